#include "OvSeismic/picking/OvPicker.h"

OvPicker::~OvPicker() = default;

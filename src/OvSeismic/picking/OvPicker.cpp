#include "OvSeismic/picking/OvPicker.h"

#include "OvSeismic/picking/OvGatherPicker.h"

OvPicker::~OvPicker() = default;

std::unique_ptr<OvPicker> OvPicker::create()
{
    return std::make_unique<OvGatherPicker>();
}

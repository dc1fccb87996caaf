#include "OvBase/OvAbstractGadget.h"

OvAbstractGadget::OvAbstractGadget(QWidget* parent)
    : QWidget(parent)
{
}

OvAbstractGadget::~OvAbstractGadget() = default;

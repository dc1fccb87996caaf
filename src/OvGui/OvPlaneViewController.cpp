#include "OvGui/OvPlaneViewController.h"

OvPlaneViewController::OvPlaneViewController(QWidget* parent)
    : OvAbstractViewController(parent)
{
}

OvPlaneViewController::~OvPlaneViewController() = default;

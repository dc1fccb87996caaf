#include "OvGui/OvAbstractViewController.h"

#include "OvBase/OvAbstractJob.h"

struct OvAbstractViewController::Private
{
    OvAbstractJob* job = nullptr;
};

OvAbstractViewController::OvAbstractViewController(QWidget* parent)
    : QWidget(parent)
    , d(std::make_unique<Private>())
{
    d->job = new OvAbstractJob(this);
}

OvAbstractViewController::~OvAbstractViewController() = default;

OvAbstractJob* OvAbstractViewController::delegateJob() const
{
    return d->job;
}

bool OvAbstractViewController::saveable() const
{
    return false;
}

void OvAbstractViewController::handleKeyEvent(QKeyEvent* event)
{
    Q_UNUSED(event)
}

void OvAbstractViewController::captureScreenshot() {}

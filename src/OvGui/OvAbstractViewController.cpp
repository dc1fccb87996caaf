#include "OvGui/OvAbstractViewController.h"

#include "OvBase/OvAbstractJob.h"
#include "OvBase/OvProjectManager.h"
#include "OvGui/view/OvPictureFile.h"

#include <QPixmap>

struct OvAbstractViewController::Private
{
    OvAbstractJob* job = nullptr;
};

OvAbstractViewController::OvAbstractViewController(QWidget* parent)
    : QWidget(parent)
    , d(std::make_unique<Private>())
{
    d->job = new OvAbstractJob(this);
    d->job->setKind(OvAbstractJob::Workspace);
}

OvAbstractViewController::~OvAbstractViewController()
{
    OvProjectManager::instance().forgetWorkspace(this);
}

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

void OvAbstractViewController::captureScreenshot()
{
    const QString path = OvPictureFile::askAndSave(this, description(), grab().toImage());
    if (!path.isEmpty())
        emit outputInfo(tr("Picture written to %1.").arg(path));
}

#include "OvCopyViewPlugin.h"

#include "OvBase/OvProjectManager.h"
#include "OvGui/OvGatherViewController.h"
#include "OvPlugins/OvPluginUtil.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>

namespace {

QImage pictureOf(OvAbstractViewController* view)
{
    if (auto* gathers = qobject_cast<OvGatherViewController*>(view))
        return gathers->picture();
    return view->grab().toImage();
}

} // namespace

QString OvCopyViewPlugin::name() const
{
    return QStringLiteral("CopyView");
}

bool OvCopyViewPlugin::needsProject() const
{
    return false;
}

QAction* OvCopyViewPlugin::action()
{
    if (!m_action) {
        m_action = new QAction(this);
        m_action->setObjectName(QStringLiteral("actionCopy_View"));
        m_action->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+C")));
        connect(m_action, &QAction::triggered, this, &OvCopyViewPlugin::copy);
    }
    m_action->setText(tr("Copy View to Clipboard"));
    return m_action;
}

void OvCopyViewPlugin::copy()
{
    OvAbstractViewController* view = OvProjectManager::instance().currentWorkspace();
    if (!view) {
        OvPluginUtil::showStatus(tr("There is no view to copy."));
        return;
    }
    QGuiApplication::clipboard()->setImage(pictureOf(view));
    OvPluginUtil::showStatus(tr("The picture of the view is on the clipboard."));
}

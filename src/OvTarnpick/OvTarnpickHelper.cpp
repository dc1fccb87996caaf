#include "OvTarnpick/OvTarnpickHelper.h"

#include "OvTarnpick/OvTarnpickHelper_p.h"
#include "OvTarnpick/controller/OvMdiArea.h"
#include "OvTarnpick/controller/OvProjectManageDlg.h"

#include "OvBase/OvAbstractJob.h"
#include "OvGui/OvAbstractViewController.h"
#include "OvGui/OvMultiPlaneViewController.h"

#include <QAction>
#include <QEvent>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QStatusBar>

namespace {
constexpr int infoDurationMs = 5000;
}

OvTarnpickHelper::OvTarnpickHelper(QMainWindow* mainWindow, QObject* parent)
    : QObject(parent)
    , d(new OvTarnpickHelperPrivate(this, mainWindow))
{
}

OvTarnpickHelper::~OvTarnpickHelper() = default;

void OvTarnpickHelper::captureActiveWorkspace()
{
    if (OvAbstractViewController* workspace = d->activeWorkspace())
        workspace->captureScreenshot();
    else
        QMessageBox::warning(d->mainWindow, QObject::tr("Warning"), tr("Nothing to capture!"),
                             QMessageBox::Ok);
}

void OvTarnpickHelper::manageProjects()
{
    OvProjectManageDlg dialog(OvProjectManageDlg::ManageProjects, nullptr);
    if (dialog.exec() == QDialog::Accepted)
        d->rebuildRecentMenu();
}

void OvTarnpickHelper::clearRecentProjects()
{
    d->clearRecentProjects();
}

void OvTarnpickHelper::forwardKeyEvent(QKeyEvent* event)
{
    if (OvAbstractViewController* workspace = d->activeWorkspace())
        workspace->handleKeyEvent(event);
}

void OvTarnpickHelper::refreshWindowTitles()
{
    d->refreshWindowTitles();
}

void OvTarnpickHelper::clearBillBoard()
{
    d->clearBillBoard();
}

void OvTarnpickHelper::collectActions(QAction* action, QList<QAction*>& actions)
{
    if (!action)
        return;
    if (!actions.contains(action))
        actions.append(action);
    if (!action->menu())
        return;
    const auto entries = action->menu()->actions();
    for (QAction* entry : entries)
        collectActions(entry, actions);
}

bool OvTarnpickHelper::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Close) {
        auto* subWindow = qobject_cast<QMdiSubWindow*>(watched);
        auto* view =
            subWindow ? qobject_cast<OvMultiPlaneViewController*>(subWindow->widget()) : nullptr;
        if (view) {
            d->mdiArea->removeSubWindow(subWindow);
            delete view;
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void OvTarnpickHelper::slotSelectErrorFB()
{
    OvAbstractViewController* workspace = d->activeWorkspace();
    // Asking for a missing method would log a warning.
    if (workspace && workspace->metaObject()->indexOfMethod("classifyFB()") >= 0)
        QMetaObject::invokeMethod(workspace, "classifyFB", Qt::AutoConnection);
}

bool OvTarnpickHelper::slotLinkWindow()
{
    return d->linkWindow();
}

void OvTarnpickHelper::slotCascadeSubWindows()
{
    d->mdiArea->cascadeSubWindows();
}

void OvTarnpickHelper::slotTileSubWindows()
{
    d->mdiArea->tileSubWindows();
}

void OvTarnpickHelper::slotTileSubWindowsVertically()
{
    d->mdiArea->tileVertically();
}

void OvTarnpickHelper::slotTileSubWindowsHorizontally()
{
    d->mdiArea->tileHorizontally();
}

void OvTarnpickHelper::slotProjectChanged(const OvProjectDefine& define)
{
    if (define.isValid())
        emit activeWorkspace(nullptr);
    else
        d->closeAllWorkspaces();
}

void OvTarnpickHelper::slotNew3DWindow() {}

void OvTarnpickHelper::outputInfo(const QString& text)
{
    d->mainWindow->statusBar()->showMessage(text, infoDurationMs);
}

void OvTarnpickHelper::populate()
{
    const auto* workspace = qobject_cast<OvAbstractViewController*>(sender());
    if (workspace && workspace == d->activeWorkspace())
        d->showWorkspaceFiles(workspace);
}

void OvTarnpickHelper::slotActiveJobChanged(OvAbstractJob* job)
{
    const auto subWindows = d->mdiArea->subWindowList(QMdiArea::CreationOrder);
    for (QMdiSubWindow* subWindow : subWindows) {
        const auto* workspace = qobject_cast<OvAbstractViewController*>(subWindow->widget());
        if (workspace && workspace->delegateJob() == job) {
            d->mdiArea->setActiveSubWindow(subWindow);
            return;
        }
    }
}

void OvTarnpickHelper::slotWorkspaceActivated(OvAbstractViewController* workspace)
{
    emit activeWorkspace(workspace);
    d->applyWorkspaceDefines(workspace);
    d->showWorkspaceFiles(workspace);
}

void OvTarnpickHelper::slotAboutToAddWorkspace(OvAbstractViewController* workspace)
{
    d->addWorkspace(workspace);
}

#include "OvTarnpick/OvTarnpickHelper_p.h"

#include "OvTarnpick/OvTarnpickHelper.h"
#include "OvTarnpick/controller/OvMdiArea.h"
#include "OvTarnpick/gadget/OvMainBillBoard.h"

#include "OvBase/OvAbstractJob.h"
#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvProjectManager.h"
#include "OvBase/OvTaskManager.h"
#include "OvBase/OvTaskMonitor.h"
#include "OvGui/OvAbstractViewController.h"
#include "OvGui/OvMultiPlaneViewController.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QPointer>
#include <QToolBar>
#include <QWindow>

#include <memory>

OvTarnpickHelperPrivate::OvTarnpickHelperPrivate(OvTarnpickHelper* owner, QMainWindow* window)
    : q(owner)
    , mainWindow(window)
    , mdiArea(new OvMdiArea(nullptr))
{
    mainWindow->setCentralWidget(mdiArea);
    connectHub();
    rebuildRecentMenu();
    initToolBar();
    refreshWindowTitles();
}

OvTarnpickHelperPrivate::~OvTarnpickHelperPrivate()
{
    closeAllWorkspaces();
    OvProjectManager::instance().closeProject();
}

void OvTarnpickHelperPrivate::connectHub()
{
    OvProjectManager* manager = &OvProjectManager::instance();
    QObject::connect(mdiArea, &OvMdiArea::workspaceActivated, q,
                     &OvTarnpickHelper::slotWorkspaceActivated);
    QObject::connect(&OvTaskMonitor::instance(), &OvTaskMonitor::changeActiveJob, q,
                     &OvTarnpickHelper::slotActiveJobChanged);
    QObject::connect(q, &OvTarnpickHelper::activeWorkspace, manager,
                     &OvProjectManager::activeWorkspace);
    QObject::connect(manager, &OvProjectManager::aboutToAddWorkspace, q,
                     &OvTarnpickHelper::slotAboutToAddWorkspace);
    QObject::connect(manager, &OvProjectManager::projectChanged, q,
                     &OvTarnpickHelper::slotProjectChanged);
    QObject::connect(manager, &OvProjectManager::projectAboutToClose, q,
                     &OvTarnpickHelper::slotProjectAboutToClose);
    QObject::connect(manager, &OvProjectManager::displayDefineChanged, q,
                     &OvTarnpickHelper::changeDisplayDefine);
    QObject::connect(manager, &OvProjectManager::fitDisplayDefineChanged, q,
                     &OvTarnpickHelper::changeFitDisplayDefine);
    QObject::connect(manager, &OvProjectManager::traceHeaderDefineChanged, q,
                     &OvTarnpickHelper::changeTraceHeaderDefine);
    QObject::connect(manager, &OvProjectManager::timeout, q, &OvTarnpickHelper::processAutoSave);
}

void OvTarnpickHelperPrivate::initToolBar()
{
    const auto toolBars = mainWindow->findChildren<QToolBar*>(QStringLiteral("mainToolBar"),
                                                              Qt::FindDirectChildrenOnly);
    if (toolBars.isEmpty())
        return;
    QToolBar* toolBar = toolBars.constLast();
    toolBar->addWidget(new QWidget)->setObjectName(QStringLiteral("spacer"));
    billBoard = new OvMainBillBoard(nullptr);
    toolBar->addWidget(billBoard);
    billBoard->setEnabled(false);
}

OvAbstractViewController* OvTarnpickHelperPrivate::activeWorkspace() const
{
    return mdiArea->activeWorkspace();
}

QMdiSubWindow* OvTarnpickHelperPrivate::addWorkspace(OvAbstractViewController* workspace)
{
    primeWorkspaceDefines(workspace);
    QMdiSubWindow* subWindow = mdiArea->addSubWindow(workspace);
    QObject::connect(workspace->delegateJob(), &OvAbstractJob::changeTaskName, subWindow,
                     &QMdiSubWindow::setWindowTitle);
    subWindow->setWindowTitle(workspace->description());
    bringForward(subWindow);
    connectWorkspace(workspace, subWindow);
    OvTaskManager::instance().addTask(QPointer<OvAbstractJob>(workspace->delegateJob()));
    return subWindow;
}

void OvTarnpickHelperPrivate::bringForward(QMdiSubWindow* subWindow)
{
    subWindow->showMaximized();
    mdiArea->setActiveSubWindow(subWindow);
    if (mainWindow->isActiveWindow())
        return;
    // The area ignores activation then, and takes up its former sub-window with the focus. It is so
    // after each modal dialog, until the window system has handed the focus back.
    auto connection = std::make_shared<QMetaObject::Connection>();
    const QPointer<QMdiSubWindow> guard = subWindow;
    const auto activate = [this, guard, connection] {
        if (!mainWindow->isActiveWindow())
            return;
        QObject::disconnect(*connection);
        // One that was closed meanwhile has left the area.
        if (guard && mdiArea->subWindowList().contains(guard.data()))
            mdiArea->setActiveSubWindow(guard);
    };
    *connection = QObject::connect(qApp, &QGuiApplication::focusWindowChanged, q, activate);
}

void OvTarnpickHelperPrivate::connectWorkspace(OvAbstractViewController* workspace,
                                               QMdiSubWindow* subWindow)
{
    QObject::connect(workspace, &OvAbstractViewController::populate, q,
                     &OvTarnpickHelper::populate);
    QObject::connect(workspace, &OvAbstractViewController::outputInfo, q,
                     &OvTarnpickHelper::outputInfo);
    QObject::connect(workspace, &QObject::destroyed, subWindow, &QObject::deleteLater);
}

void OvTarnpickHelperPrivate::refreshWindowTitles()
{
    const auto subWindows = mdiArea->subWindowList(QMdiArea::CreationOrder);
    for (QMdiSubWindow* subWindow : subWindows) {
        const auto* workspace = qobject_cast<OvAbstractViewController*>(subWindow->widget());
        if (!workspace)
            continue;
        subWindow->setWindowTitle(workspace->description());
        workspace->delegateJob()->setTaskName(workspace->description());
    }
}

void OvTarnpickHelperPrivate::closeAllWorkspaces()
{
    q->disconnect(mdiArea);
    // The parallel view first: it mirrors the others.
    const auto subWindows = mdiArea->subWindowList(QMdiArea::ActivationHistoryOrder);
    for (QMdiSubWindow* subWindow : subWindows) {
        if (qobject_cast<OvMultiPlaneViewController*>(subWindow->widget()))
            removeSubWindow(subWindow);
    }
    const auto remaining = mdiArea->subWindowList(QMdiArea::ActivationHistoryOrder);
    for (QMdiSubWindow* subWindow : remaining)
        removeSubWindow(subWindow);
    QObject::connect(mdiArea, &OvMdiArea::workspaceActivated, q,
                     &OvTarnpickHelper::slotWorkspaceActivated);
}

void OvTarnpickHelperPrivate::removeSubWindow(QMdiSubWindow* subWindow)
{
    mdiArea->removeSubWindow(subWindow);
    delete subWindow;
}

void OvTarnpickHelperPrivate::clearBillBoard()
{
    if (!billBoard)
        return;
    billBoard->clear();
    billBoard->setEnabled(false);
}

void OvTarnpickHelperPrivate::showWorkspaceFiles(const OvAbstractViewController* workspace)
{
    clearBillBoard();
    if (!billBoard || !workspace)
        return;
    if (OvBaseUtil::hasProperty(workspace, "SegyFile")) {
        billBoard->setEnabled(true);
        billBoard->setSegyFile(workspace->property("SegyFile").toString());
    }
    if (OvBaseUtil::hasProperty(workspace, "FBFile")) {
        billBoard->setEnabled(true);
        billBoard->setFbFile(workspace->property("FBFile").toString());
    }
}

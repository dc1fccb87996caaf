#pragma once

#include "OvBase/OvProjectDefine.h"

#include <QObject>
#include <QScopedPointer>

class OvAbstractJob;
class OvAbstractViewController;
class OvTarnpickHelperPrivate;
class QAction;
class QKeyEvent;
class QMainWindow;

/// The controller between the main window and its workspaces. GUI thread.
///
/// It gives the main window its multi-document area as central widget and keeps window titles,
/// status bar, billboard and recent-projects menu in step with the framework. It must go before the
/// main window does; on its way it removes every workspace and closes the project.
class OvTarnpickHelper : public QObject
{
    Q_OBJECT

public:
    OvTarnpickHelper(QMainWindow* mainWindow, QObject* parent);
    ~OvTarnpickHelper() override;

    /// Lets the active workspace write a picture of itself; warns when there is none.
    void captureActiveWorkspace();
    void manageProjects();
    /// Empties the recent-projects list and its menu; nothing when the menu is missing.
    void clearRecentProjects();
    void forwardKeyEvent(QKeyEvent* event);
    /// Titles every sub-window and names every workspace's job anew, from its description.
    void refreshWindowTitles();
    void clearBillBoard();
    /// Appends action and, depth first, the actions of its menu; each only once. A null action is
    /// none.
    static void collectActions(QAction* action, QList<QAction*>& actions);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void activeWorkspace(OvAbstractViewController* workspace);

public slots:
    void changeDisplayDefine();
    void changeFitDisplayDefine();
    void changeTraceHeaderDefine();
    /// Has every saveable workspace saved.
    void processAutoSave();
    /// Invokes "classifyFB" on the active workspace, if it has it.
    void slotSelectErrorFB();
    /// Lets the user choose what the parallel view shows; true when one is shown.
    bool slotLinkWindow();
    void slotCascadeSubWindows();
    void slotTileSubWindows();
    void slotTileSubWindowsVertically();
    void slotTileSubWindowsHorizontally();
    /// Opens the project that the sending action names.
    void slotRecentlyProject();
    void slotProjectChanged(const OvProjectDefine& define);
    void slotProjectAboutToClose(const OvProjectDefine& define);
    /// Reserved.
    void slotNew3DWindow();
    void outputInfo(const QString& text);
    /// The files of the sending workspace have changed.
    void populate();
    void slotActiveJobChanged(OvAbstractJob* job);
    void slotWorkspaceActivated(OvAbstractViewController* workspace);
    void slotAboutToAddWorkspace(OvAbstractViewController* workspace);

private:
    QScopedPointer<OvTarnpickHelperPrivate> d;
};

#pragma once

#include "OvBase/OvProjectDefine.h"

#include <QList>
#include <QMdiArea>
#include <QStringList>

class OvAbstractJob;
class OvAbstractViewController;
class OvMainBillBoard;
class OvMdiArea;
class OvMultiPlaneViewController;
class OvPlaneViewController;
class OvTarnpickHelper;
class QAction;
class QMainWindow;
class QMdiSubWindow;
class QMenu;

/// The state and the work of the workspace controller.
class OvTarnpickHelperPrivate
{
public:
    OvTarnpickHelperPrivate(OvTarnpickHelper* owner, QMainWindow* window);
    ~OvTarnpickHelperPrivate();

    OvTarnpickHelper* q;
    QMainWindow* mainWindow;              ///< not owned
    OvMdiArea* mdiArea;                   ///< owned by the main window
    OvMainBillBoard* billBoard = nullptr; ///< owned by the tool bar; null without one
    QList<QAction*> recentActions;        ///< children of q

    /// Null when there is none.
    OvAbstractViewController* activeWorkspace() const;
    QMdiSubWindow* addWorkspace(OvAbstractViewController* workspace);
    /// Shows a sub-window maximized and makes it the active one: now, or, while the main window is
    /// in the background, as soon as that is active again.
    void bringForward(QMdiSubWindow* subWindow);
    void refreshWindowTitles();
    void closeAllWorkspaces();

    void clearBillBoard();
    void showWorkspaceFiles(const OvAbstractViewController* workspace);

    /// Gives a new workspace the project's settings in the records that it takes part in; always
    /// false.
    bool primeWorkspaceDefines(OvAbstractViewController* workspace);
    /// Makes the settings of a workspace the project's; always false.
    bool applyWorkspaceDefines(const OvAbstractViewController* workspace);

    QMenu* findRecentMenu() const;
    void pruneRecentList();
    void rebuildRecentMenu();
    void clearRecentProjects();
    /// The recent list is one text: the names, latest first, joined with '|'. A '|' inside a name
    /// is stored as the control character U+001F, so that such a name neither falls apart nor
    /// brings others into the list; the menu shows it as it is. A name without any letter, digit or
    /// underscore is dropped when the list is read.
    void addRecentProject(const OvProjectDefine& define);
    void openRecentProject(const QString& name);

    bool linkWindow();

private:
    void connectHub();
    void initToolBar();
    void connectWorkspace(OvAbstractViewController* workspace, QMdiSubWindow* subWindow);
    void removeSubWindow(QMdiSubWindow* subWindow);

    OvMultiPlaneViewController* parallelView() const;
    QList<OvPlaneViewController*> linkableViews() const;
    OvMultiPlaneViewController* addParallelView(const QList<OvPlaneViewController*>& views);
    void removeParallelView(OvMultiPlaneViewController* view);

    void deleteRecentActions();
    void insertRecentAction(QMenu* menu, QAction* before, const QString& name);
};

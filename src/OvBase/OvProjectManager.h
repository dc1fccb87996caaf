#pragma once

#include "OvBase/OvBaseExport.h"
#include "OvBase/OvProjectDefine.h"

#include <QObject>

#include <memory>

class OvAbstractViewController;

/// Which project is open, and the hub through which workspaces meet the window. GUI thread.
class OVBASE_EXPORT OvProjectManager : public QObject
{
    Q_OBJECT

public:
    static OvProjectManager& instance();
    ~OvProjectManager() override;

    /// Starts the auto-save clock: timeout() every 60 s, or as many seconds as the global value
    /// "autoSaveInterval" says; a changed value takes effect at the next tick.
    void init();
    /// Stops the clock.
    void finish();

    /// The open project; a default record when none is.
    const OvProjectDefine& define() const;
    /// Closes the open project, then opens define, noting the time in the table. False, with
    /// nothing closed, for an invalid record or while another project is being opened.
    bool openProject(const OvProjectDefine& define);
    /// Announces projectAboutToClose(), forgets the project, announces projectChanged() with an
    /// invalid record. Nothing happens when no project is open.
    void closeProject();

    /// Shows a new view in the main window (emits aboutToAddWorkspace). The window takes it over.
    void addWorkspace(OvAbstractViewController* workspace);
    /// The view last announced by activeWorkspace(); null when none or when it was deleted.
    OvAbstractViewController* currentWorkspace() const;
    /// Called by the destructor of every view: a current workspace is announced as none.
    void forgetWorkspace(const OvAbstractViewController* workspace);

signals:
    void projectChanged(const OvProjectDefine& define);
    void projectAboutToClose(const OvProjectDefine& define);
    void aboutToAddWorkspace(OvAbstractViewController* workspace);
    /// Emitted by the window whenever another workspace becomes the active one; null for none.
    void activeWorkspace(OvAbstractViewController* workspace);
    void displayDefineChanged();
    void fitDisplayDefineChanged();
    void traceHeaderDefineChanged();
    /// The auto-save clock.
    void timeout();

private:
    Q_SLOT void rememberWorkspace(OvAbstractViewController* workspace);
    OvProjectManager();
    struct Private;
    std::unique_ptr<Private> d;
};

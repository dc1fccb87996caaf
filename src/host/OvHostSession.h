#pragma once

#include "host/OvHostOptions.h"
#include "host/OvStepRunner.h"

#include "OvSeismic/OvStatus.h"

#include <QObject>
#include <QPointer>

class OvGatherViewController;
class OvLoginDlg;
class QMainWindow;

/// From the login window to what the command line asks for. GUI thread.
class OvHostSession : public QObject
{
    Q_OBJECT

public:
    /// loginWindow is not owned and outlives the session.
    OvHostSession(const OvHostOptions& options, OvLoginDlg* loginWindow);
    ~OvHostSession() override;

    /// Shows the login window and queues the rest. Call before the event loop starts.
    void start();

    /// The main window; null before login.
    static QMainWindow* mainWindow();

private:
    void addLogin();
    void addProject(const QString& name);
    void addFile(const QString& path);
    void addWalk();
    bool enter();
    bool openProject(const QString& name);
    bool showFile(const QString& path);
    /// Tells the user, or the terminal in a walk; gives back false.
    bool refuse(const QString& message) const;
    void finish(bool succeeded, const QString& message);
    /// Whether nobody watches: messages go to the terminal, and the program ends by itself.
    bool isWalk() const { return !options.screenshots.isEmpty(); }

    const OvHostOptions options;
    OvLoginDlg* const loginWindow;
    OvStepRunner runner;
};

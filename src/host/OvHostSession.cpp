#include "host/OvHostSession.h"

#include "OvBase/OvProjectDefineNode.h"
#include "OvBase/OvProjectManager.h"
#include "OvGui/OvGatherViewController.h"
#include "OvTarnpick/OvLoginDlg.h"
#include "host/OvDemoSurvey.h"
#include "host/OvScreenshotWalk.h"

#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>

#include <cstdio>

namespace {

/// To the terminal itself: the log belongs to the console window.
void print(const QString& message)
{
    std::fputs((message + QLatin1Char('\n')).toLocal8Bit().constData(), stderr);
}

} // namespace

OvHostSession::OvHostSession(const OvHostOptions& chosen, OvLoginDlg* window)
    : options(chosen)
    , loginWindow(window)
{
    connect(&runner, &OvStepRunner::finished, this, &OvHostSession::finish);
}

OvHostSession::~OvHostSession() = default;

QMainWindow* OvHostSession::mainWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window->inherits("OvTarnpick") && window->isVisible())
            return qobject_cast<QMainWindow*>(window);
    }
    return nullptr;
}

void OvHostSession::start()
{
    const bool walks = isWalk();
    const bool demo =
        options.demo || (walks && options.file.isEmpty() && options.project.isEmpty());
    if (demo) {
        const OvStatus made = OvDemoSurvey::make();
        if (!made) {
            refuse(made.message());
            if (walks)
                runner.add({QStringLiteral("demo line"), {}, [] { return false; }});
        }
    }
    addLogin();
    if (demo || !options.project.isEmpty())
        addProject(demo ? OvDemoSurvey::projectName() : options.project);
    if (demo || !options.file.isEmpty())
        addFile(options.file.isEmpty() ? OvDemoSurvey::file() : options.file);
    if (walks)
        addWalk();
    if (walks || !options.entersByItself())
        loginWindow->show();
    runner.start();
}

void OvHostSession::addLogin()
{
    if (isWalk())
        OvScreenshotWalk::addLogin(&runner, loginWindow, options.screenshots);
    if (options.entersByItself())
        runner.add({QStringLiteral("login"), {}, [this] { return enter(); }});
    const bool waitsForUser = !options.entersByItself();
    runner.add({QStringLiteral("main window"),
                [] { return mainWindow() != nullptr; },
                {},
                waitsForUser ? 0 : 60000});
    if (isWalk())
        OvScreenshotWalk::addEmptyWindow(&runner, options.screenshots);
}

bool OvHostSession::enter()
{
    if (loginWindow->login())
        return true;
    // It says why, and offers another try.
    loginWindow->show();
    return refuse(tr("The login failed."));
}

void OvHostSession::addProject(const QString& name)
{
    runner.add({QStringLiteral("project"), {}, [this, name] { return openProject(name); }});
}

bool OvHostSession::openProject(const QString& name)
{
    if (name == OvDemoSurvey::projectName() && options.project.isEmpty()) {
        const OvStatus stored = OvDemoSurvey::ensureProject();
        if (!stored)
            return refuse(stored.message());
    }
    const OvProjectDefine define = OvProjectDefineNode().projectByName(name);
    return OvProjectManager::instance().openProject(define) ||
           refuse(tr("There is no project named \"%1\".").arg(name));
}

void OvHostSession::addFile(const QString& path)
{
    runner.add({QStringLiteral("open project"),
                [] { return OvProjectManager::instance().define().isValid(); },
                [this, path] { return showFile(path); }, isWalk() ? 60000 : 0});
}

bool OvHostSession::showFile(const QString& path)
{
    OvStatus status;
    const auto document = OvSegyDocument::open(path, &status);
    if (!document)
        return refuse(status.message());
    OvProjectManager::instance().addWorkspace(new OvGatherViewController(document));
    return true;
}

void OvHostSession::addWalk()
{
    OvScreenshotWalk::addWork(&runner, options.screenshots);
}

bool OvHostSession::refuse(const QString& message) const
{
    if (isWalk())
        print(message);
    else
        QMessageBox::warning(mainWindow(), tr("Maravel"), message);
    return false;
}

void OvHostSession::finish(bool succeeded, const QString& message)
{
    if (!isWalk())
        return;
    if (!message.isEmpty())
        print(message);
    QCoreApplication::exit(succeeded ? 0 : 1);
}

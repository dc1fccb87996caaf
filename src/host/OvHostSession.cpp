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
    const bool walks = !options.screenshots.isEmpty();
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
    loginWindow->show();
    runner.start();
}

void OvHostSession::addLogin()
{
    if (!options.screenshots.isEmpty())
        OvScreenshotWalk::addLogin(&runner, loginWindow, options.screenshots);
    if (options.entersByItself())
        runner.add({QStringLiteral("login"), {}, [this] { return enter(); }});
    const bool waitsForUser = !options.entersByItself();
    runner.add({QStringLiteral("main window"),
                [] { return mainWindow() != nullptr; },
                {},
                waitsForUser ? 0 : 60000});
    if (!options.screenshots.isEmpty())
        OvScreenshotWalk::addEmptyWindow(&runner, options.screenshots);
}

bool OvHostSession::enter()
{
    return loginWindow->login() || refuse(tr("The login failed."));
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
                [this, path] { return showFile(path); },
                options.screenshots.isEmpty() ? 0 : 60000});
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
    qWarning("%s", qPrintable(message));
    if (options.screenshots.isEmpty())
        QMessageBox::warning(mainWindow(), tr("Maravel"), message);
    return false;
}

void OvHostSession::finish(bool succeeded)
{
    if (!options.screenshots.isEmpty())
        QCoreApplication::exit(succeeded ? 0 : 1);
}

#include "host/OvScreenshotWalk.h"

#include "OvBase/OvProjectManager.h"
#include "OvBase/OvTaskManager.h"
#include "OvGui/OvGatherViewController.h"
#include "OvGui/OvMultiPlaneViewController.h"
#include "host/OvHostSession.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QListView>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr int longWaitMs = 300000;
constexpr QSize pictureSize(1280, 800);

bool writePicture(QWidget* widget, const QString& folder, const QString& name)
{
    return widget && QDir().mkpath(folder) &&
           widget->grab().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
}

QAction* findAction(const QList<QAction*>& actions, const QString& name)
{
    for (QAction* action : actions) {
        if (action->objectName() == name)
            return action;
        QAction* below = action->menu() ? findAction(action->menu()->actions(), name) : nullptr;
        if (below)
            return below;
    }
    return nullptr;
}

bool trigger(const QString& name)
{
    QMainWindow* window = OvHostSession::mainWindow();
    QAction* action = window ? findAction(window->menuBar()->actions(), name) : nullptr;
    if (!action || !action->isEnabled())
        return false;
    action->trigger();
    return true;
}

QDialog* openDialog()
{
    return qobject_cast<QDialog*>(QApplication::activeModalWidget());
}

bool confirm(QDialog* dialog)
{
    auto* box = dialog ? dialog->findChild<QDialogButtonBox*>() : nullptr;
    QPushButton* button = box ? box->button(QDialogButtonBox::Ok) : nullptr;
    if (button)
        button->click();
    return button != nullptr;
}

QList<OvGatherViewController*> gatherViews()
{
    QMainWindow* window = OvHostSession::mainWindow();
    return window ? window->findChildren<OvGatherViewController*>()
                  : QList<OvGatherViewController*>();
}

bool allShown()
{
    const auto views = gatherViews();
    return !views.isEmpty() &&
           std::all_of(views.begin(), views.end(), [](OvGatherViewController* view) {
               return view->document()->isIndexComplete() && view->isShowingData();
           });
}

bool hasPicks()
{
    const auto views = gatherViews();
    return !views.isEmpty() &&
           views.first()->document()->firstBreaks(views.first()->currentGather()).pickedCount() > 0;
}

bool addSecondView()
{
    const auto views = gatherViews();
    if (views.isEmpty())
        return false;
    auto* second = new OvGatherViewController(views.first()->document());
    OvProjectManager::instance().addWorkspace(second);
    second->setCurrentGather(second->gatherCount() - 1);
    return true;
}

bool linkAll(const QString& folder)
{
    QDialog* dialog = openDialog();
    auto* all = dialog->findChild<QAbstractButton*>(QStringLiteral("selAllBtn"));
    if (!all)
        return false;
    all->click();
    return writePicture(dialog, folder, QStringLiteral("6-link-windows")) && confirm(dialog);
}

bool parallelViewShown()
{
    QMainWindow* window = OvHostSession::mainWindow();
    auto* view = window ? window->findChild<OvMultiPlaneViewController*>() : nullptr;
    if (!view || !view->isVisible() || openDialog())
        return false;
    return view->isShowingData();
}

// The open dialog with its first project shown, if it lists any.
bool pictureOfProjects(const QString& folder)
{
    QDialog* dialog = openDialog();
    auto* list = dialog->findChild<QListView*>(QStringLiteral("projectList"));
    if (!list)
        return false;
    list->setCurrentIndex(list->model()->index(0, 0));
    const bool written = writePicture(dialog, folder, QStringLiteral("9-manage-projects"));
    dialog->reject();
    return written;
}

bool pictureOfNewProject(const QString& folder)
{
    QDialog* dialog = openDialog();
    const bool written = writePicture(dialog, folder, QStringLiteral("8-new-project"));
    dialog->reject();
    return written;
}

bool pictureOfMain(const QString& folder, const QString& name)
{
    return writePicture(OvHostSession::mainWindow(), folder, name);
}

void addPicking(OvStepRunner* runner, const QString& folder)
{
    runner->add({QStringLiteral("Auto Pick"), {}, [] { return trigger("actionAuto_Pick"); }});
    runner->add({QStringLiteral("picking dialog"), [] { return openDialog() != nullptr; },
                 [folder] {
                     return writePicture(openDialog(), folder, QStringLiteral("4-picking")) &&
                            confirm(openDialog());
                 }});
    runner->add(
        {QStringLiteral("picks"),
         [] { return hasPicks() && !OvTaskManager::instance().hasRunningJob() && allShown(); },
         [folder] { return pictureOfMain(folder, QStringLiteral("5-picks")); }, longWaitMs});
}

void addParallelView(OvStepRunner* runner, const QString& folder)
{
    runner->add({QStringLiteral("second view"), {}, addSecondView});
    runner->add(
        {QStringLiteral("Parallel View"), allShown, [] { return trigger("actionLinkWindow"); }});
    runner->add({QStringLiteral("link-window dialog"), [] { return openDialog() != nullptr; },
                 [folder] { return linkAll(folder); }});
    runner->add({QStringLiteral("parallel view"), parallelViewShown,
                 [folder] { return pictureOfMain(folder, QStringLiteral("7-parallel-view")); }});
}

void addProjectDialogs(OvStepRunner* runner, const QString& folder)
{
    const auto isOpen = [] { return openDialog() != nullptr; };
    const auto isClosed = [] { return openDialog() == nullptr; };
    runner->add({QStringLiteral("New Project"), {}, [] { return trigger("action_New_Project"); }});
    runner->add({QStringLiteral("new-project dialog"), isOpen,
                 [folder] { return pictureOfNewProject(folder); }});
    runner->add({QStringLiteral("Manage Project"), isClosed,
                 [] { return trigger("action_Manage_Project"); }});
    runner->add(
        {QStringLiteral("project dialog"), isOpen, [folder] { return pictureOfProjects(folder); }});
    runner->add({QStringLiteral("closed project dialog"), isClosed, {}});
}

} // namespace

void OvScreenshotWalk::addLogin(OvStepRunner* runner, QWidget* loginWindow, const QString& folder)
{
    runner->add({QStringLiteral("login window"), [loginWindow] { return loginWindow->isVisible(); },
                 [=] { return writePicture(loginWindow, folder, QStringLiteral("1-login")); }});
}

void OvScreenshotWalk::addEmptyWindow(OvStepRunner* runner, const QString& folder)
{
    runner->add({QStringLiteral("empty main window"),
                 [] { return OvHostSession::mainWindow() != nullptr; },
                 [] { // The pictures do not depend on the size of the screen.
                     OvHostSession::mainWindow()->resize(pictureSize);
                     return true;
                 }});
    runner->add({QStringLiteral("resized main window"),
                 [] { return OvHostSession::mainWindow()->size() == pictureSize; },
                 [folder] { return pictureOfMain(folder, QStringLiteral("2-main")); }});
}

void OvScreenshotWalk::addWork(OvStepRunner* runner, const QString& folder)
{
    runner->add({QStringLiteral("gather"), allShown,
                 [folder] { return pictureOfMain(folder, QStringLiteral("3-gather")); },
                 longWaitMs});
    addPicking(runner, folder);
    addParallelView(runner, folder);
    addProjectDialogs(runner, folder);
}

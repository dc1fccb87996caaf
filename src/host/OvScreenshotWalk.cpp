#include "host/OvScreenshotWalk.h"

#include "OvBase/OvTaskManager.h"
#include "OvGui/OvGatherViewController.h"
#include "OvGui/OvMultiPlaneViewController.h"
#include "host/OvHostSession.h"
#include "host/OvWalkHands.h"

#include <QAbstractButton>
#include <QDialog>
#include <QListView>
#include <QMainWindow>
#include <QTableView>

using namespace OvWalkHands;

namespace {

constexpr int longWaitMs = 300000;
constexpr QSize pictureSize(1280, 800);
// Entries of the list of displays.
constexpr int wiggleAndArea = 2;
constexpr int variableDensity = 3;

bool isOpen()
{
    return openDialog() != nullptr;
}

bool isClosed()
{
    return !isOpen();
}

OvStepRunner::Step pictureStep(const QString& folder, const QString& name)
{
    return {name, allShown, [=] { return pictureOfMain(folder, name); }, longWaitMs};
}

OvStepRunner::Step triggerStep(const QString& actionName)
{
    return {actionName, isClosed, [=] { return trigger(actionName); }};
}

// A picture of the open dialog, which is then left.
OvStepRunner::Step dialogStep(const QString& folder, const QString& name,
                              const std::function<bool()>& ready = isOpen)
{
    return {name, ready, [=] {
                QDialog* dialog = openDialog();
                const bool written = writePicture(dialog, folder, name);
                dialog->reject();
                return written;
            }};
}

// The mapping dialog has found the values, which fill its last column.
bool isExamined()
{
    const auto* table =
        isOpen() ? openDialog()->findChild<QTableView*>(QStringLiteral("mappingTable")) : nullptr;
    const QAbstractItemModel* model = table ? table->model() : nullptr;
    return model && !model->index(0, model->columnCount() - 1).data().toString().isEmpty();
}

bool isOrderedBy(OvGatherKey key)
{
    const auto views = gatherViews();
    return !views.isEmpty() && views.constFirst()->gatherOrder().key == key;
}

bool goToMiddleGather()
{
    OvGatherViewController* view = gatherViews().constFirst();
    view->setCurrentGather(view->gatherCount() / 2);
    return true;
}

bool goToFirstGather()
{
    gatherViews().constFirst()->setCurrentGather(0);
    return true;
}

// Some picks are moved and one is rejected.
bool correctPicks()
{
    return dragAlongPicks(44, 52, 1.0) && rejectPick(58) && hoverAtPick(62);
}

QDialog* informationDialog()
{
    QMainWindow* window = OvHostSession::mainWindow();
    auto* dialog = window->findChild<QDialog*>(QStringLiteral("OvSegyInfoDlg"));
    if (!dialog || !dialog->isVisible())
        return nullptr;
    // It examines the file by itself at first.
    const auto* findings = dialog->findChild<QListView*>(QStringLiteral("remarks"));
    return findings && findings->model()->rowCount() > 0 ? dialog : nullptr;
}

bool pictureOfInformation(const QString& folder, const QString& name)
{
    QDialog* dialog = informationDialog();
    const bool written = writePicture(dialog, folder, name);
    dialog->close();
    return written;
}

bool linkAll(const QString& folder, const QString& name)
{
    QDialog* dialog = openDialog();
    auto* all = dialog->findChild<QAbstractButton*>(QStringLiteral("selAllBtn"));
    if (!all)
        return false;
    all->click();
    return writePicture(dialog, folder, name) && confirm(dialog);
}

bool parallelViewShown()
{
    QMainWindow* window = OvHostSession::mainWindow();
    auto* view = window ? window->findChild<OvMultiPlaneViewController*>() : nullptr;
    return view && view->isVisible() && isClosed() && view->isShowingData();
}

// The open dialog shows its first project, if it lists any.
bool chooseFirstProject()
{
    auto* list = openDialog()->findChild<QListView*>(QStringLiteral("projectList"));
    if (!list)
        return false;
    list->setCurrentIndex(list->model()->index(0, 0));
    return true;
}

void addPicking(OvStepRunner* runner, const QString& folder)
{
    runner->add(triggerStep(QStringLiteral("actionAuto_Pick")));
    runner->add({QStringLiteral("picking dialog"), isOpen, [folder] {
                     return writePicture(openDialog(), folder, QStringLiteral("04-picking")) &&
                            check(openDialog(), QStringLiteral("preview"));
                 }});
    runner->add({QStringLiteral("preview"), [] { return hasPreview() && allShown(); },
                 [folder] {
                     return pictureWithDialog(folder, QStringLiteral("05-preview")) &&
                            confirm(openDialog());
                 }});
    runner->add(
        {QStringLiteral("picks"),
         [] { return hasPicks() && !OvTaskManager::instance().hasRunningJob() && allShown(); },
         [folder] { return pictureOfMain(folder, QStringLiteral("06-picks")); }, longWaitMs});
}

void addEditing(OvStepRunner* runner, const QString& folder)
{
    runner->add(triggerStep(QStringLiteral("actionEdit_Picks")));
    runner->add({QStringLiteral("zoom to picks"), allShown, [] { return zoomToPicks(32, 72); }});
    runner->add({QStringLiteral("correction"), allShown, correctPicks});
    runner->add(pictureStep(folder, QStringLiteral("07-editing")));
    runner->add(triggerStep(QStringLiteral("actionEdit_Picks")));
    runner->add({QStringLiteral("whole gather"), {}, showWholeGather});
}

void addDisplays(OvStepRunner* runner, const QString& folder)
{
    const QString list = QStringLiteral("displayMode");
    runner->add(
        {QStringLiteral("density"), allShown, [=] { return choose(list, variableDensity); }});
    runner->add(pictureStep(folder, QStringLiteral("08-variable-density")));
    runner->add({QStringLiteral("wiggles"), {}, [=] { return choose(list, wiggleAndArea); }});
}

void addReceivers(OvStepRunner* runner, const QString& folder)
{
    runner->add(triggerStep(QStringLiteral("actionGathers_By_receiver")));
    runner->add({QStringLiteral("receivers"),
                 [] { return allShown() && isOrderedBy(OvGatherKey::Receiver); },
                 goToMiddleGather});
    runner->add(pictureStep(folder, QStringLiteral("09-receiver-gather")));
    runner->add(triggerStep(QStringLiteral("actionGathers_By_field_record")));
    runner->add({QStringLiteral("field records"),
                 [] { return allShown() && isOrderedBy(OvGatherKey::FieldRecord); },
                 goToFirstGather});
}

void addInformation(OvStepRunner* runner, const QString& folder)
{
    runner->add(triggerStep(QStringLiteral("actionSegy_Information")));
    runner->add(
        {QStringLiteral("information dialog"), [] { return informationDialog() != nullptr; },
         [folder] { return pictureOfInformation(folder, QStringLiteral("10-segy-information")); }});
    runner->add({QStringLiteral("console"), {}, [] { return setDockVisible("OvConsole", true); }});
    runner->add(pictureStep(folder, QStringLiteral("12-console")));
    runner->add(
        {QStringLiteral("no console"), {}, [] { return setDockVisible("OvConsole", false); }});
}

void addMapping(OvStepRunner* runner, const QString& folder)
{
    runner->add(triggerStep(QStringLiteral("actionHeader_Mapping")));
    runner->add(dialogStep(folder, QStringLiteral("11-header-mapping"), isExamined));
}

void addParallelView(OvStepRunner* runner, const QString& folder)
{
    runner->add({QStringLiteral("second view"), {}, addSecondView});
    runner->add(
        {QStringLiteral("Parallel View"), allShown, [] { return trigger("actionLinkWindow"); }});
    runner->add({QStringLiteral("link-window dialog"), isOpen,
                 [folder] { return linkAll(folder, QStringLiteral("13-link-windows")); }});
    runner->add({QStringLiteral("parallel view"), parallelViewShown,
                 [folder] { return pictureOfMain(folder, QStringLiteral("14-parallel-view")); }});
}

void addDialogs(OvStepRunner* runner, const QString& folder)
{
    runner->add(triggerStep(QStringLiteral("action_New_Project")));
    runner->add(dialogStep(folder, QStringLiteral("15-new-project")));
    runner->add(triggerStep(QStringLiteral("action_Manage_Project")));
    runner->add({QStringLiteral("project dialog"), isOpen, chooseFirstProject});
    runner->add(dialogStep(folder, QStringLiteral("16-manage-projects")));
    runner->add(triggerStep(QStringLiteral("actionAbout_Tarnpick")));
    runner->add(dialogStep(folder, QStringLiteral("17-about")));
    runner->add({QStringLiteral("closed dialog"), isClosed, {}});
}

} // namespace

void OvScreenshotWalk::addLogin(OvStepRunner* runner, QWidget* loginWindow, const QString& folder)
{
    runner->add({QStringLiteral("login window"), [loginWindow] { return loginWindow->isVisible(); },
                 [=] { return writePicture(loginWindow, folder, QStringLiteral("01-login")); }});
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
                 [folder] { return pictureOfMain(folder, QStringLiteral("02-main")); }});
}

void OvScreenshotWalk::addWork(OvStepRunner* runner, const QString& folder)
{
    runner->add(pictureStep(folder, QStringLiteral("03-gather")));
    addPicking(runner, folder);
    addEditing(runner, folder);
    addDisplays(runner, folder);
    addReceivers(runner, folder);
    addInformation(runner, folder);
    addMapping(runner, folder);
    addParallelView(runner, folder);
    addDialogs(runner, folder);
}

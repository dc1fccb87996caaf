#include "OvFirstBreakPlugin.h"

#include "OvExportJob.h"
#include "OvFirstBreakBar.h"
#include "OvFirstBreakMenu.h"
#include "OvPickDlg.h"
#include "OvPickJob.h"
#include "OvPreviewPicker.h"

#include "OvBase/OvProjectManager.h"
#include "OvGui/OvGatherViewController.h"
#include "OvPlugins/OvPluginUtil.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>

namespace {

constexpr int margin = 16;

QString proposedExportPath(const OvSegyDocument& document)
{
    const QFileInfo segy(document.segyPath());
    const QFileInfo folder(segy.absolutePath());
    const QDir target(folder.isWritable() ? folder.absoluteFilePath() : QDir::homePath());
    return target.filePath(segy.completeBaseName() + QStringLiteral("_fb.csv"));
}

// To the lower right corner of its window, so that the data that it is about can be seen.
void moveAside(QDialog* dialog)
{
    const QWidget* window = dialog->parentWidget();
    if (!window)
        return;
    const QRect area = window->frameGeometry().adjusted(0, 0, -margin, -margin);
    dialog->move(area.bottomRight() -
                 QPoint(dialog->frameGeometry().width(), dialog->frameGeometry().height()));
}

} // namespace

OvFirstBreakPlugin::OvFirstBreakPlugin()
{
    OvProjectManager* manager = &OvProjectManager::instance();
    connect(manager, &OvProjectManager::activeWorkspace, this,
            &OvFirstBreakPlugin::followWorkspace);
    connect(manager, &OvProjectManager::projectChanged, this, &OvFirstBreakPlugin::followWorkspace);
    connect(manager, &OvProjectManager::projectAboutToClose, this, &OvFirstBreakPlugin::closeJobs);
}

OvFirstBreakPlugin::~OvFirstBreakPlugin()
{
    delete m_bar.data();
    delete m_menu.data();
}

QString OvFirstBreakPlugin::name() const
{
    return QStringLiteral("FirstBreak");
}

QMenu* OvFirstBreakPlugin::menu()
{
    if (!m_menu) {
        m_menu = new OvFirstBreakMenu;
        connectMenu();
        connectEditing();
        followWorkspace();
    }
    m_menu->adoptWindowActions();
    return m_menu;
}

void OvFirstBreakPlugin::connectMenu()
{
    connect(m_menu, &OvFirstBreakMenu::pickRequested, this, &OvFirstBreakPlugin::askForPicking);
    connect(m_menu, &OvFirstBreakMenu::pickGatherRequested, this, &OvFirstBreakPlugin::pickGather);
    connect(m_menu, &OvFirstBreakMenu::exportRequested, this, &OvFirstBreakPlugin::askForExport);
    connect(m_menu, &QMenu::aboutToShow, this, &OvFirstBreakPlugin::followWorkspace);
    connect(m_menu, &OvFirstBreakMenu::rejectRequested, this, [this] {
        if (activeView())
            activeView()->toggleRejectedPick();
    });
    connect(m_menu, &OvFirstBreakMenu::classifyRequested, this, [this] {
        if (activeView())
            activeView()->classifyFB();
    });
}

void OvFirstBreakPlugin::connectEditing()
{
    connect(m_menu->editAction(), &QAction::triggered, this, &OvFirstBreakPlugin::setEditing);
    connect(&m_undo, &QUndoGroup::canUndoChanged, m_menu->undoAction(), &QAction::setEnabled);
    connect(&m_undo, &QUndoGroup::canRedoChanged, m_menu->redoAction(), &QAction::setEnabled);
    connect(m_menu->undoAction(), &QAction::triggered, this, [this] {
        if (activeView())
            activeView()->undoPickEdit();
    });
    connect(m_menu->redoAction(), &QAction::triggered, this, [this] {
        if (activeView())
            activeView()->redoPickEdit();
    });
}

QWidget* OvFirstBreakPlugin::toolBarWidget()
{
    if (!m_bar) {
        menu(); // has the actions
        m_bar =
            new OvFirstBreakBar(m_menu->editAction(), m_menu->undoAction(), m_menu->redoAction());
        connect(m_bar, &OvFirstBreakBar::snapWindowChanged, this,
                &OvFirstBreakPlugin::setSnapWindow);
        connect(m_bar, &OvFirstBreakBar::resetRequested, this,
                &OvFirstBreakPlugin::followWorkspace);
    }
    return m_bar;
}

void OvFirstBreakPlugin::setEditing(bool editing)
{
    m_editing = editing;
    followWorkspace();
}

void OvFirstBreakPlugin::setSnapWindow(int windowMs)
{
    if (activeView())
        activeView()->setSnapWindow(windowMs);
}

void OvFirstBreakPlugin::changeLanguage()
{
    if (m_menu)
        m_menu->retranslate();
    followWorkspace(); // an obstacle is told in the present language
    const QList<OvDocumentJob*> jobs = findChildren<OvDocumentJob*>();
    for (OvDocumentJob* job : jobs)
        job->retranslate();
}

OvGatherViewController* OvFirstBreakPlugin::activeView() const
{
    return qobject_cast<OvGatherViewController*>(OvProjectManager::instance().currentWorkspace());
}

void OvFirstBreakPlugin::followWorkspace()
{
    OvGatherViewController* view = activeView();
    const QString obstacle = view ? view->editObstacle() : QString();
    if (m_menu) {
        m_menu->setUsable(view);
        m_menu->setEditObstacle(obstacle);
    }
    followView(view);
    if (view && m_bar)
        view->setSnapWindow(m_bar->snapWindow());
    if (view && obstacle.isEmpty())
        view->setEditing(m_editing);
    if (m_menu)
        m_menu->editAction()->setChecked(view && view->isEditing());
}

void OvFirstBreakPlugin::followView(OvGatherViewController* view)
{
    if (view == m_followed)
        return;
    if (m_followed)
        disconnect(m_followed, nullptr, this, nullptr);
    m_followed = view;
    QUndoStack* stack = view ? view->undoStack() : nullptr;
    if (stack)
        m_undo.addStack(stack);
    m_undo.setActiveStack(stack);
    if (view)
        connect(view, &OvGatherViewController::editingChanged, this,
                &OvFirstBreakPlugin::setEditing);
}

// Whether a job neither hinders others nor is hindered by them.
bool OvFirstBreakPlugin::isAside(const OvDocumentJob* job)
{
    const auto* picking = qobject_cast<const OvPickJob*>(job);
    return picking && picking->isOfOneGather() && picking->isRunning();
}

// Tells the user when a job of the kind runs on the document already; forgets those that have
// ended.
template <typename Job>
bool OvFirstBreakPlugin::makeRoomFor(const QSharedPointer<OvSegyDocument>& document)
{
    const QList<Job*> jobs = findChildren<Job*>();
    for (Job* job : jobs) {
        if (job->document() != document || isAside(job))
            continue;
        if (job->isRunning()) {
            OvPluginUtil::showWarning(
                tr("\"%1\" is still at work. Wait until it has ended, or cancel "
                   "it in the task list.")
                    .arg(job->taskName()));
            return false;
        }
        job->deleteLater();
    }
    return true;
}

void OvFirstBreakPlugin::askForPicking()
{
    OvGatherViewController* view = activeView();
    if (!view)
        return;
    const OvPickJob::Options shown = gatherShown(*view);
    auto* dialog = new OvPickDlg(OvProjectManager::instance().define().id, shown.gather,
                                 OvPluginUtil::mainWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this,
            [this, dialog, gathers = shown.gathers, document = view->document()] {
                OvPickJob::Options options = dialog->options();
                options.gathers = gathers;
                pick(options, document);
            });
    dialog->setUnfinishedRun(view->document()->unfinishedRun(),
                             OvPickWork::gatheringText(*view->document()->index()));
    connectPreview(dialog, view, shown);
    dialog->open();
    moveAside(dialog);
}

// What is known of the gather on the screen, whatever the order of gathers is there.
OvPickJob::Options OvFirstBreakPlugin::gatherShown(const OvGatherViewController& view)
{
    OvPickJob::Options options;
    options.gather = view.currentGather();
    // Before anything is known of the file it is the first one of the document's.
    if (options.gather < view.gatherIndex()->gatherCount())
        options.gathers = view.gatherIndex();
    return options;
}

void OvFirstBreakPlugin::connectPreview(OvPickDlg* dialog, OvGatherViewController* view,
                                        const OvPickJob::Options& shown)
{
    auto* picker = new OvPreviewPicker(view->document(), shown.gathers, shown.gather, dialog);
    connect(dialog, &OvPickDlg::previewRequested, picker, &OvPreviewPicker::pick);
    connect(picker, &OvPreviewPicker::picked, view, &OvGatherViewController::setPreviewPicks);
    connect(picker, &OvPreviewPicker::failed, view, [view](const QString& message) {
        view->setPreviewPicks({}, {});
        OvPluginUtil::showStatus(message);
    });
    connect(dialog, &OvPickDlg::previewEnded, view, [view, picker] {
        picker->cancel();
        view->setPreviewPicks({}, {});
    });
}

void OvFirstBreakPlugin::pickGather()
{
    const OvGatherViewController* view = activeView();
    if (!view || !view->editObstacle().isEmpty())
        return;
    OvPickJob::Options options = gatherShown(*view);
    options.define = OvPickDlg::savedDefine(OvProjectManager::instance().define().id);
    pick(options, view->document());
}

void OvFirstBreakPlugin::pick(const OvPickJob::Options& options,
                              const QSharedPointer<OvSegyDocument>& document)
{
    if (options.gather >= 0)
        retireGatherJobs(document);
    else if (!makeRoomFor<OvPickJob>(document))
        return;
    launch(new OvPickJob(document, options, this));
}

// A single gather that has not been picked yet makes room for the one asked for now.
void OvFirstBreakPlugin::retireGatherJobs(const QSharedPointer<OvSegyDocument>& document)
{
    const QList<OvPickJob*> jobs = findChildren<OvPickJob*>();
    for (OvPickJob* job : jobs) {
        if (job->document() == document && job->isOfOneGather())
            retire(job);
    }
}

void OvFirstBreakPlugin::askForExport()
{
    const OvGatherViewController* view = activeView();
    if (!view)
        return;
    const QSharedPointer<OvSegyDocument> document = view->document();
    const QString path = QFileDialog::getSaveFileName(
        OvPluginUtil::mainWindow(), tr("Export FB to Text File"), proposedExportPath(*document),
        tr("Comma-separated text (*.csv);;Text (*.txt);;All files (*)"));
    if (!path.isEmpty() && makeRoomFor<OvExportJob>(document))
        launch(new OvExportJob(document, path, this));
}

void OvFirstBreakPlugin::launch(OvDocumentJob* job)
{
    connect(job, &OvAbstractJob::stateChanged, this, [this, job] { report(job); });
    job->launch();
}

void OvFirstBreakPlugin::report(OvDocumentJob* job)
{
    if (job->state() == OvAbstractJob::Failed)
        OvPluginUtil::showWarning(job->message());
    else if (!job->isRunning())
        OvPluginUtil::showStatus(job->message());
}

void OvFirstBreakPlugin::closeJobs()
{
    const QList<OvDocumentJob*> jobs = findChildren<OvDocumentJob*>();
    for (OvDocumentJob* job : jobs)
        retire(job);
}

void OvFirstBreakPlugin::retire(OvDocumentJob* job)
{
    job->requestCancel();
    if (!job->isRunning()) {
        job->deleteLater();
        return;
    }
    connect(job, &OvAbstractJob::stateChanged, job, [job] {
        if (!job->isRunning())
            job->deleteLater();
    });
}

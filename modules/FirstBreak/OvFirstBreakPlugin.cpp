#include "OvFirstBreakPlugin.h"

#include "OvExportJob.h"
#include "OvFirstBreakMenu.h"
#include "OvPickDlg.h"
#include "OvPickJob.h"

#include "OvBase/OvProjectManager.h"
#include "OvGui/OvGatherViewController.h"
#include "OvPlugins/OvPluginUtil.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>

namespace {

QString proposedExportPath(const OvSegyDocument& document)
{
    const QFileInfo segy(document.segyPath());
    const QFileInfo folder(segy.absolutePath());
    const QDir target(folder.isWritable() ? folder.absoluteFilePath() : QDir::homePath());
    return target.filePath(segy.completeBaseName() + QStringLiteral("_fb.csv"));
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
        connect(m_menu, &OvFirstBreakMenu::pickRequested, this, &OvFirstBreakPlugin::askForPicking);
        connect(m_menu, &OvFirstBreakMenu::exportRequested, this,
                &OvFirstBreakPlugin::askForExport);
        followWorkspace();
    }
    m_menu->adoptWindowActions();
    return m_menu;
}

QWidget* OvFirstBreakPlugin::toolBarWidget()
{
    return nullptr;
}

void OvFirstBreakPlugin::changeLanguage()
{
    if (m_menu)
        m_menu->retranslate();
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
    if (m_menu)
        m_menu->setUsable(activeView());
}

// Tells the user when a job of the kind runs on the document already; forgets those that have
// ended.
template <typename Job>
bool OvFirstBreakPlugin::makeRoomFor(const QSharedPointer<OvSegyDocument>& document)
{
    const QList<Job*> jobs = findChildren<Job*>();
    for (Job* job : jobs) {
        if (job->document() != document)
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
    const OvGatherViewController* view = activeView();
    if (!view)
        return;
    auto* dialog = new OvPickDlg(OvProjectManager::instance().define().id, view->currentGather(),
                                 OvPluginUtil::mainWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this,
            [this, dialog, document = view->document()] { pick(dialog, document); });
    dialog->open();
}

void OvFirstBreakPlugin::pick(const OvPickDlg* dialog,
                              const QSharedPointer<OvSegyDocument>& document)
{
    if (makeRoomFor<OvPickJob>(document))
        launch(new OvPickJob(document, dialog->options(), this));
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
    for (OvDocumentJob* job : jobs) {
        job->requestCancel();
        if (!job->isRunning()) {
            job->deleteLater();
            continue;
        }
        connect(job, &OvAbstractJob::stateChanged, job, [job] {
            if (!job->isRunning())
                job->deleteLater();
        });
    }
}

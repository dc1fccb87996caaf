#include "OvSegyDataMenu.h"

#include "OvGatherOrderMenu.h"
#include "OvHeaderMappingDlg.h"
#include "OvSegyFolder.h"
#include "OvSegyInfoDlg.h"

#include "OvBase/OvProjectManager.h"
#include "OvGui/OvGatherViewController.h"
#include "OvGui/document/OvProjectMapping.h"
#include "OvPlugins/OvPluginUtil.h"

#include <QDir>
#include <QFileDialog>
#include <QMainWindow>

namespace {

constexpr int mostFilesListed = 30;

} // namespace

OvSegyDataMenu::OvSegyDataMenu(QWidget* parent)
    : QMenu(parent)
    , m_folder(new OvSegyFolder(this))
{
    setObjectName(QStringLiteral("menu_Data"));
    m_files = addMenu(QString());
    m_files->setObjectName(QStringLiteral("menuSegy_Files"));
    m_open = addAction(QString(), this, &OvSegyDataMenu::chooseFiles, QKeySequence::Open);
    m_open->setObjectName(QStringLiteral("actionOpen_Segy"));
    addSeparator();
    m_information = addAction(QString(), this, &OvSegyDataMenu::showInformation,
                              QKeySequence(QStringLiteral("Ctrl+I")));
    m_information->setObjectName(QStringLiteral("actionSegy_Information"));
    m_mapping = addAction(QString(), this, &OvSegyDataMenu::editMapping,
                          QKeySequence(QStringLiteral("Ctrl+H")));
    m_mapping->setObjectName(QStringLiteral("actionHeader_Mapping"));
    addSeparator();
    m_order = new OvGatherOrderMenu(this);
    addMenu(m_order);
    setToolTipsVisible(true);
    connect(m_folder, &OvSegyFolder::changed, this, &OvSegyDataMenu::listFiles);
    connect(&OvProjectManager::instance(), &OvProjectManager::projectChanged, this,
            &OvSegyDataMenu::followProject);
    connect(&OvProjectManager::instance(), &OvProjectManager::aboutToAddWorkspace, this,
            &OvSegyDataMenu::listenTo);
    retranslate();
    followProject();
}

OvSegyDataMenu::~OvSegyDataMenu() = default;

void OvSegyDataMenu::retranslate()
{
    setTitle(tr("&Data"));
    m_files->setTitle(tr("SEG-Y &Files"));
    m_open->setText(tr("&Open SEG-Y..."));
    m_information->setText(tr("SEG-Y &Information"));
    m_information->setToolTip(tr("What the headers and traces of the file hold, and what is odd"));
    m_mapping->setText(tr("&Header Mapping..."));
    m_mapping->setToolTip(tr("Where the trace headers of this project's files keep field record, "
                             "offset, coordinates and the rest"));
    m_order->retranslate();
    listFiles();
}

void OvSegyDataMenu::followProject()
{
    const OvProjectDefine& define = OvProjectManager::instance().define();
    m_open->setEnabled(define.isValid());
    m_files->setEnabled(define.isValid());
    m_mapping->setEnabled(define.isValid());
    m_folder->setFolder(define.isValid() ? define.dataPath : QString());
}

void OvSegyDataMenu::listFiles()
{
    m_files->clear();
    const QStringList files = m_folder->files();
    const QStringList listed = files.mid(0, mostFilesListed);
    for (const QString& name : listed)
        addFile(name);
    if (files.isEmpty())
        addNote(m_folder->isScanning() ? tr("Reading the folder...")
                                       : tr("No SEG-Y files in this folder"));
    if (files.size() > mostFilesListed) {
        m_files->addSeparator();
        m_files->addAction(tr("More..."), this, &OvSegyDataMenu::chooseFiles)
            ->setObjectName(QStringLiteral("actionMore_Segy"));
    }
}

void OvSegyDataMenu::addFile(const QString& name)
{
    // The path must not go into the action's data: that would give it a button on the main gadget.
    const QString path = QDir(m_folder->folder()).filePath(name);
    const QString text = QString(name).replace(QLatin1Char('&'), QLatin1String("&&"));
    m_files->addAction(text, this, [this, path] { openFiles({path}); });
}

void OvSegyDataMenu::addNote(const QString& text)
{
    m_files->addAction(text)->setEnabled(false);
}

void OvSegyDataMenu::chooseFiles()
{
    openFiles(QFileDialog::getOpenFileNames(
        OvPluginUtil::mainWindow(), tr("Open SEG-Y"), m_folder->folder(),
        tr("SEG-Y files (*.sgy *.segy *.SGY *.SEGY);;All files (*)")));
}

void OvSegyDataMenu::openFiles(const QStringList& paths)
{
    QStringList failures;
    for (const QString& path : paths) {
        OvStatus status;
        const QSharedPointer<OvSegyDocument> document = OvSegyDocument::open(path, &status);
        if (document)
            OvProjectManager::instance().addWorkspace(new OvGatherViewController(document));
        else
            failures.append(status.message());
    }
    if (!failures.isEmpty())
        OvPluginUtil::showWarning(failures.join(QStringLiteral("\n\n")));
}

QString OvSegyDataMenu::activeFile() const
{
    const auto* view =
        qobject_cast<OvGatherViewController*>(OvProjectManager::instance().currentWorkspace());
    return view ? view->document()->segyPath() : QString();
}

QSharedPointer<OvSegyDocument> OvSegyDataMenu::documentFor(const QString& title)
{
    QString path = activeFile();
    if (path.isEmpty())
        path = QFileDialog::getOpenFileName(
            OvPluginUtil::mainWindow(), title, m_folder->folder(),
            tr("SEG-Y files (*.sgy *.segy *.SGY *.SEGY);;All files (*)"));
    if (path.isEmpty())
        return {};
    OvStatus status;
    QSharedPointer<OvSegyDocument> document = OvSegyDocument::open(path, &status);
    if (!document)
        OvPluginUtil::showWarning(status.message());
    return document;
}

void OvSegyDataMenu::showInformation()
{
    const auto document = documentFor(tr("SEG-Y Information"));
    if (document)
        describe(document);
}

void OvSegyDataMenu::describe(const QSharedPointer<OvSegyDocument>& document)
{
    delete m_dialog.data();
    m_dialog = new OvSegyInfoDlg(document, OvPluginUtil::mainWindow());
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    m_dialog->show();
}

void OvSegyDataMenu::listenTo(OvAbstractViewController* workspace)
{
    const auto* view = qobject_cast<OvGatherViewController*>(workspace);
    if (!view)
        return;
    connect(view, &OvGatherViewController::detailsRequested, this, [this, view] {
        describe(view->document());
        m_dialog->showRemarks();
    });
}

void OvSegyDataMenu::editMapping()
{
    const auto document = documentFor(tr("Header Mapping"));
    if (!document)
        return;
    auto* dialog =
        new OvHeaderMappingDlg(document, OvProjectMapping::mapping(), OvPluginUtil::mainWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [dialog] {
        const OvStatus status = OvProjectMapping::setMapping(dialog->mapping());
        if (!status)
            OvPluginUtil::showWarning(status.message());
    });
    dialog->open();
}

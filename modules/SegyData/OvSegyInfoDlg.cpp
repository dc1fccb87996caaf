#include "OvSegyInfoDlg.h"

#include "OvHeaderMappingModel.h"
#include "OvLatestWork.h"

#include "OvPlugins/OvPluginUtil.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSaveFile>
#include <QScrollBar>
#include <QStyle>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

#include <limits>

namespace {

enum Tab { FactsTab, RemarksTab, WordsTab, TextTab };

constexpr qint64 spreadTraces = 20000;

QLabel* plainLabel(const QString& text)
{
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

QLabel* wrappedLabel(const QString& text)
{
    QLabel* label = plainLabel(text);
    label->setWordWrap(true);
    return label;
}

void clearRows(QFormLayout* layout)
{
    while (layout->rowCount() > 0)
        layout->removeRow(0);
}

QStyle::StandardPixmap iconOf(OvSegyFinding::Severity severity)
{
    switch (severity) {
    case OvSegyFinding::Severity::Error:
        return QStyle::SP_MessageBoxCritical;
    case OvSegyFinding::Severity::Warning:
        return QStyle::SP_MessageBoxWarning;
    case OvSegyFinding::Severity::Info:
        break;
    }
    return QStyle::SP_MessageBoxInformation;
}

/// What one examination hands from the worker to the dialog.
struct Outcome
{
    OvStatus status;
    std::vector<OvSegyFinding> findings;
    OvHeaderSurvey survey;
};

/// Both halves report to one bar: the samples and headers first, then the words of the headers.
Outcome examineFile(const OvSegyFile& file, const OvTraceHeaderMapping& mapping, bool whole,
                    const OvLatestWork::Progress& progress)
{
    Outcome outcome;
    const auto depth = whole ? OvSegyDoctor::Depth::Full : OvSegyDoctor::Depth::Quick;
    outcome.status = OvSegyDoctor::examine(
        file, depth, &outcome.findings,
        [&](qint64 done, qint64 total) { return progress(done * 9, total * 10); }, mapping);
    if (outcome.status)
        outcome.status = outcome.survey.run(
            file, mapping, whole ? std::numeric_limits<qint64>::max() : spreadTraces,
            [&](qint64 done, qint64 total) { return progress(total * 9 + done, total * 10); });
    return outcome;
}

} // namespace

OvSegyInfoDlg::OvSegyInfoDlg(const QSharedPointer<OvSegyDocument>& document, QWidget* parent)
    : OvDialog(parent)
    , m_document(document)
    , m_report(document)
    , m_examination(new OvLatestWork(this))
    , m_words(new OvHeaderMappingModel(document->file().info().traceHeaderBytes(), this))
{
    setObjectName(QStringLiteral("OvSegyInfoDlg"));
    m_words->setMapping(document->mapping());
    makePages();
    makeButtons();
    arrange();
    connectAll();
    retranslate();
    examine(false);
    resize(m_textHeader->fontMetrics().averageCharWidth() * 92, 500);
}

OvSegyInfoDlg::~OvSegyInfoDlg() = default;

QString OvSegyInfoDlg::helpPage() const
{
    return QStringLiteral("segy.html");
}

void OvSegyInfoDlg::showRemarks()
{
    m_tabs->setCurrentIndex(RemarksTab);
}

void OvSegyInfoDlg::makePages()
{
    m_tabs = new QTabWidget(this);
    m_findings = new QListWidget;
    m_findings->setObjectName(QStringLiteral("remarks"));
    m_findings->setWordWrap(true);
    m_findings->setResizeMode(QListView::Adjust);
    m_findings->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_findings->setSpacing(2);
    m_textHeader = makeTextView(QStringLiteral("textHeader"));
    m_textHeader->setPlainText(m_document->file().textHeader().join(QLatin1Char('\n')));
    m_wordTable = makeWordTable();
    m_tabs->addTab(makeFactsPage(), QString());
    m_tabs->addTab(m_findings, QString());
    m_tabs->addTab(m_wordTable, QString());
    m_tabs->addTab(m_textHeader, QString());
}

QPlainTextEdit* OvSegyInfoDlg::makeTextView(const QString& objectName)
{
    auto* view = new QPlainTextEdit;
    view->setObjectName(objectName);
    view->setReadOnly(true);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return view;
}

QWidget* OvSegyInfoDlg::makeFactsPage()
{
    auto* page = new QWidget;
    page->setObjectName(QStringLiteral("facts"));
    m_facts = new QFormLayout(page);
    m_facts->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return page;
}

QTableView* OvSegyInfoDlg::makeWordTable()
{
    auto* table = new QTableView;
    table->setObjectName(QStringLiteral("words"));
    table->setModel(m_words);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setWordWrap(false);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setHighlightSections(false);
    return table;
}

void OvSegyInfoDlg::makeButtons()
{
    m_note = new QLabel(this);
    m_note->setObjectName(QStringLiteral("note"));
    m_note->setTextFormat(Qt::PlainText);
    m_note->setWordWrap(true);
    m_progress = new QProgressBar(this);
    m_progress->setObjectName(QStringLiteral("progress"));
    m_examine = new QPushButton(this);
    m_examine->setObjectName(QStringLiteral("examine"));
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    m_copy = m_buttons->addButton(QString(), QDialogButtonBox::ActionRole);
    m_copy->setObjectName(QStringLiteral("copyText"));
    m_save = m_buttons->addButton(QString(), QDialogButtonBox::ActionRole);
    m_save->setObjectName(QStringLiteral("saveText"));
}

void OvSegyInfoDlg::arrange()
{
    auto* examination = new QHBoxLayout;
    examination->addWidget(m_note, 1);
    examination->addWidget(m_progress);
    examination->addWidget(m_examine);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addLayout(examination);
    layout->addWidget(m_buttons);
}

void OvSegyInfoDlg::connectAll()
{
    const OvSegyDocument* document = m_document.data();
    const auto refresh = [this] {
        showFacts();
        showFindings();
    };
    connect(document, &OvSegyDocument::indexComplete, this, refresh);
    connect(document, &OvSegyDocument::indexFailed, this, refresh);
    connect(m_examination, &OvLatestWork::progress, m_progress, &QProgressBar::setValue);
    connect(m_examine, &QPushButton::clicked, this, &OvSegyInfoDlg::toggleExamination);
    connect(m_copy, &QPushButton::clicked, this, &OvSegyInfoDlg::copyText);
    connect(m_save, &QPushButton::clicked, this, &OvSegyInfoDlg::saveText);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void OvSegyInfoDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        // Findings are made in one language.
        m_report.setFindings({});
        retranslate();
        examine(m_progress->isVisible());
    }
    OvDialog::changeEvent(event);
}

void OvSegyInfoDlg::retranslate()
{
    setWindowTitle(tr("SEG-Y Information"));
    m_tabs->setTabText(FactsTab, tr("File"));
    m_tabs->setTabText(WordsTab, tr("Trace Headers"));
    m_tabs->setTabText(TextTab, tr("Text Header"));
    m_examine->setText(m_progress->isVisible() ? tr("&Stop") : tr("&Examine Whole File"));
    m_examine->setToolTip(
        tr("Looks at the headers and samples of every trace; on a large file this takes minutes"));
    m_copy->setText(tr("&Copy"));
    m_copy->setToolTip(tr("Copies all pages as text"));
    m_save->setText(tr("&Save..."));
    m_save->setToolTip(tr("Writes all pages to a text file"));
    m_buttons->button(QDialogButtonBox::Close)->setText(tr("Close"));
    m_words->retranslate();
    showFacts();
    showFindings();
}

void OvSegyInfoDlg::examine(bool wholeFile)
{
    m_progress->setValue(0);
    m_progress->setVisible(wholeFile);
    m_examine->setText(wholeFile ? tr("&Stop") : tr("&Examine Whole File"));
    m_note->setText(tr("Examining..."));
    m_examination->start(wholeFile ? OvLatestWork::Long : OvLatestWork::Short,
                         [this, wholeFile, file = m_document->sharedFile(),
                          mapping = m_words->mapping()](const OvLatestWork::Progress& progress) {
                             const Outcome outcome =
                                 examineFile(*file, mapping, wholeFile, progress);
                             return [this, outcome] {
                                 if (outcome.status)
                                     takeFindings(outcome.findings, outcome.survey);
                                 else
                                     endExamination(outcome.status.message());
                             };
                         });
}

void OvSegyInfoDlg::toggleExamination()
{
    if (m_progress->isVisible())
        m_examination->cancel();
    else
        examine(true);
}

void OvSegyInfoDlg::takeFindings(const std::vector<OvSegyFinding>& findings,
                                 const OvHeaderSurvey& survey)
{
    m_report.setFindings(findings);
    m_report.setSurvey(survey, m_words->mapping());
    m_words->setSurvey(survey);
    m_wordTable->resizeColumnsToContents();
    showFindings();
    endExamination(
        survey.isWhole()
            ? tr("All %1 traces were looked at.").arg(locale().toString(survey.traceCount()))
            : tr("A part of the %1 traces was looked at.")
                  .arg(locale().toString(m_document->file().info().traceCount)));
}

void OvSegyInfoDlg::endExamination(const QString& note)
{
    m_progress->hide();
    m_examine->setText(tr("&Examine Whole File"));
    m_note->setText(note);
}

void OvSegyInfoDlg::showFacts()
{
    clearRows(m_facts);
    const QList<OvSegyReport::Fact> facts = m_report.facts();
    for (const auto& fact : facts)
        m_facts->addRow(plainLabel(fact.first), wrappedLabel(fact.second));
}

void OvSegyInfoDlg::showFindings()
{
    m_findings->clear();
    for (const OvSegyFinding& finding : m_report.findings()) {
        QString text = finding.text;
        const QString place = OvSegyReport::placeOf(finding);
        if (!place.isEmpty())
            text += QStringLiteral(" (%1)").arg(place);
        if (!finding.advice.isEmpty())
            text += QLatin1Char('\n') + finding.advice;
        auto* item =
            new QListWidgetItem(style()->standardIcon(iconOf(finding.severity)), text, m_findings);
        item->setToolTip(OvSegyReport::severityName(finding.severity));
    }
    m_tabs->setTabText(RemarksTab, tr("Remarks (%1)").arg(m_report.remarkCount()));
}

void OvSegyInfoDlg::copyText()
{
    QApplication::clipboard()->setText(m_report.text());
    m_note->setText(tr("Copied."));
}

void OvSegyInfoDlg::saveText()
{
    const QFileInfo segy(m_document->segyPath());
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save SEG-Y Information"),
        segy.dir().filePath(segy.completeBaseName() + QStringLiteral("_info.txt")),
        tr("Text files (*.txt);;All files (*)"));
    if (path.isEmpty())
        return;
    QSaveFile file(path);
    const QByteArray text = m_report.text().toUtf8();
    if (file.open(QIODevice::WriteOnly | QIODevice::Text) && file.write(text) == text.size() &&
        file.commit())
        m_note->setText(tr("Written to %1.").arg(QDir::toNativeSeparators(path)));
    else
        OvPluginUtil::showWarning(
            tr("The text could not be written to %1: %2. Choose another folder or free some space.")
                .arg(QDir::toNativeSeparators(path), file.errorString()),
            this);
}

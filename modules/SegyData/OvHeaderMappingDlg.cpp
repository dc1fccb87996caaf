#include "OvHeaderMappingDlg.h"

#include "OvHeaderExamination.h"
#include "OvHeaderMappingDelegate.h"
#include "OvHeaderMappingModel.h"
#include "OvHeaderValuesModel.h"

#include "OvBase/OvBaseUtil.h"
#include "OvPlugins/OvPluginUtil.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStyle>
#include <QTableView>
#include <QVBoxLayout>

namespace {

const QString placeKey = QStringLiteral("headerMappingDialog");
constexpr int shownTraces = 200;
constexpr int settleMs = 200;
constexpr int visibleProblems = 4;
constexpr int leastValueDigits = 14; // that are to be seen beside each other

using Mapping = OvTraceHeaderMapping;

QTableView* makeTable(const char* name, QAbstractItemModel* model, QWidget* parent)
{
    auto* table = new QTableView(parent);
    table->setObjectName(QLatin1String(name));
    table->setModel(model);
    table->setTabKeyNavigation(false);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->setWordWrap(false);
    table->horizontalHeader()->setHighlightSections(false);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() * 3 / 2);
    return table;
}

/// Returns the label above the table.
QLabel* addTable(QSplitter* splitter, QTableView* table)
{
    auto* side = new QWidget(splitter);
    auto* label = new QLabel(side);
    label->setBuddy(table);
    label->setWordWrap(true); // is not to keep its side of the splitter wide
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(table);
    splitter->addWidget(side);
    return label;
}

} // namespace

OvHeaderMappingDlg::OvHeaderMappingDlg(const QSharedPointer<OvSegyDocument>& document,
                                       const OvTraceHeaderMapping& mapping, QWidget* parent)
    : OvDialog(parent)
    , m_document(document)
    , m_model(new OvHeaderMappingModel(document->file().info().traceHeaderBytes(), this))
    , m_values(new OvHeaderValuesModel(this))
    , m_examination(new OvHeaderExamination(document->sharedFile(), this))
{
    setObjectName(QStringLiteral("OvHeaderMappingDlg"));
    m_settle.setSingleShot(true);
    m_settle.setInterval(settleMs);
    makeTables();
    makeFields();
    arrange();
    retranslate();
    connectFields();
    connectExamination();
    m_model->setMapping(mapping);
    m_examination->readFirst(shownTraces, m_model->headerBytes());
    startSurvey(false);
    restorePlace();
    m_table->setFocus();
    m_table->setCurrentIndex(m_model->index(0, OvHeaderMappingModel::Byte));
}

OvHeaderMappingDlg::~OvHeaderMappingDlg()
{
    // They tell of the end of their rows, when this is no dialog any more.
    m_problems->disconnect(this);
    m_table->selectionModel()->disconnect(this);
}

OvTraceHeaderMapping OvHeaderMappingDlg::mapping() const
{
    return m_model->mapping();
}

QString OvHeaderMappingDlg::helpPage() const
{
    return QStringLiteral("mapping.html");
}

void OvHeaderMappingDlg::makeTables()
{
    m_splitter = new QSplitter(this);
    m_splitter->setChildrenCollapsible(false);
    m_table = makeTable("mappingTable", m_model, this);
    m_table->setItemDelegate(new OvHeaderMappingDelegate(m_table));
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                             QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->verticalHeader()->hide();
    m_valueTable = makeTable("valueTable", m_values, this);
    m_valueTable->setMinimumWidth(
        fontMetrics().horizontalAdvance(QString(leastValueDigits, QLatin1Char('0'))));
    m_tableLabel = addTable(m_splitter, m_table);
    m_valuesLabel = addTable(m_splitter, m_valueTable);
    m_splitter->setStretchFactor(0, 3);
    m_splitter->setStretchFactor(1, 2);
}

void OvHeaderMappingDlg::makeFields()
{
    m_presetLabel = new QLabel(this);
    m_presets = new QComboBox(this);
    m_presets->setObjectName(QStringLiteral("presets"));
    for (int i = 0; i <= Mapping::presetCount; ++i) // one more for a mapping of one's own
        m_presets->addItem(QString());
    m_presetLabel->setBuddy(m_presets);
    m_file = new QLabel(this);
    m_file->setTextFormat(Qt::PlainText);
    m_problems = new QListWidget(this);
    m_problems->setObjectName(QStringLiteral("problems"));
    m_problems->setWordWrap(true);
    m_problems->setMaximumHeight(visibleProblems * fontMetrics().height() * 3 / 2);
    m_problemsLabel = new QLabel(this);
    m_problemsLabel->setBuddy(m_problems);
    m_found = new QLabel(this);
    m_found->setObjectName(QStringLiteral("found"));
    m_found->setTextFormat(Qt::PlainText);
    m_found->setWordWrap(true);
    m_progress = new QProgressBar(this);
    m_progress->setObjectName(QStringLiteral("progress"));
    m_examine = new QPushButton(this);
    m_examine->setObjectName(QStringLiteral("examine"));
    m_examine->setAutoDefault(false);
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
}

void OvHeaderMappingDlg::arrange()
{
    auto* top = new QHBoxLayout;
    top->addWidget(m_presetLabel);
    top->addWidget(m_presets);
    top->addStretch();
    top->addWidget(m_file);
    auto* examination = new QHBoxLayout;
    examination->addWidget(m_found, 1);
    examination->addWidget(m_progress);
    examination->addWidget(m_examine);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_splitter, 1);
    layout->addWidget(m_problemsLabel);
    layout->addWidget(m_problems);
    layout->addLayout(examination);
    layout->addWidget(m_buttons);
}

void OvHeaderMappingDlg::connectFields()
{
    connect(m_buttons, &QDialogButtonBox::accepted, this, &OvHeaderMappingDlg::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &OvHeaderMappingDlg::reject);
    connect(m_presets, QOverload<int>::of(&QComboBox::activated), this,
            &OvHeaderMappingDlg::usePreset);
    connect(m_examine, &QPushButton::clicked, this, &OvHeaderMappingDlg::toggleExamination);
    connect(m_problems, &QListWidget::currentRowChanged, this, &OvHeaderMappingDlg::goToProblem);
    connect(m_model, &OvHeaderMappingModel::mappingChanged, this,
            &OvHeaderMappingDlg::followMapping);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { goToColumnOf(current.row()); });
    connect(&m_settle, &QTimer::timeout, this, [this] { startSurvey(false); });
}

void OvHeaderMappingDlg::connectExamination()
{
    connect(m_examination, &OvHeaderExamination::headersRead, this,
            [this](const QByteArray& headers) {
                m_values->setHeaders(headers, m_model->headerBytes(),
                                     m_document->file().info().byteOrder);
                m_valueTable->resizeColumnsToContents();
            });
    connect(m_examination, &OvHeaderExamination::progress, m_progress, &QProgressBar::setValue);
    connect(m_examination, &OvHeaderExamination::surveyed, this, &OvHeaderMappingDlg::showFound);
    connect(m_examination, &OvHeaderExamination::failed, this, [this](const QString& message) {
        m_failure = message;
        endSurvey(Finding::Failed);
    });
}

void OvHeaderMappingDlg::restorePlace()
{
    m_table->resizeColumnsToContents();
    const QVariantMap place = OvBaseUtil::globalValue(placeKey).toMap();
    if (restoreGeometry(place.value(QStringLiteral("geometry")).toByteArray()) &&
        m_splitter->restoreState(place.value(QStringLiteral("splitter")).toByteArray()))
        return;
    const int words = widthOfWords();
    const QSize wanted(words * 7 / 4, 720);
    resize(wanted.boundedTo(QGuiApplication::primaryScreen()->availableSize() * 9 / 10));
    // Where the screen is too narrow for both, the values can be scrolled better than the words.
    layout()->activate();
    m_splitter->setSizes({words, qMax(m_splitter->width() - m_splitter->handleWidth() - words, 0)});
}

// Of the table with its columns as wide as what will be found, and with the icons of remarks.
int OvHeaderMappingDlg::widthOfWords() const
{
    const auto metric = [this](QStyle::PixelMetric what) {
        return m_table->style()->pixelMetric(what, nullptr, m_table);
    };
    const int margin = metric(QStyle::PM_FocusFrameHMargin) + 1;
    const qint64 traces = m_document->file().info().traceCount;
    int width = 2 * m_table->frameWidth() + metric(QStyle::PM_ScrollBarExtent) +
                metric(QStyle::PM_SmallIconSize) + 2 * margin;
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const QString found = OvHeaderMappingModel::longestFound(column, traces);
        const int text = m_table->fontMetrics().horizontalAdvance(found) + 2 * margin;
        width += qMax(m_table->columnWidth(column), text + 1); // a line of the grid
    }
    return width;
}

void OvHeaderMappingDlg::done(int result)
{
    const OvStatus status = OvBaseUtil::setGlobalValue(
        placeKey, QVariantMap{{QStringLiteral("geometry"), saveGeometry()},
                              {QStringLiteral("splitter"), m_splitter->saveState()}});
    if (!status)
        qWarning("%s", qUtf8Printable(status.message()));
    OvDialog::done(result);
}

void OvHeaderMappingDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    OvDialog::changeEvent(event);
}

void OvHeaderMappingDlg::keyPressEvent(QKeyEvent* event)
{
    const bool removes = event->key() == Qt::Key_Delete && m_table->hasFocus();
    const QModelIndex current = m_table->currentIndex();
    if (!removes || !current.isValid()) {
        OvDialog::keyPressEvent(event);
        return;
    }
    m_model->setData(m_model->index(current.row(), OvHeaderMappingModel::Byte), 0, Qt::EditRole);
}

void OvHeaderMappingDlg::retranslate()
{
    setWindowTitle(tr("Header Mapping"));
    m_presetLabel->setText(tr("&Preset"));
    m_file->setText(QFileInfo(m_document->segyPath()).fileName());
    m_tableLabel->setText(tr("&Where the words lie, and what stands there"));
    m_valuesLabel->setText(tr("The &first traces, values as they stand in the file"));
    m_problemsLabel->setText(tr("&Remarks"));
    m_buttons->button(QDialogButtonBox::Ok)->setText(tr("OK"));
    m_buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    m_table->setToolTip(tr("Type a byte number, or press F2 to edit; Delete takes a word away"));
    retranslatePresets();
    m_model->retranslate();
    m_values->retranslate();
    showProblems();
    showFinding();
}

void OvHeaderMappingDlg::retranslatePresets()
{
    for (int i = 0; i < Mapping::presetCount; ++i)
        m_presets->setItemText(i, Mapping::presetName(static_cast<Mapping::Preset>(i)));
    m_presets->setItemText(Mapping::presetCount, tr("Own positions"));
}

void OvHeaderMappingDlg::usePreset(int index)
{
    if (index < Mapping::presetCount)
        m_model->setMapping(Mapping::preset(static_cast<Mapping::Preset>(index)));
}

void OvHeaderMappingDlg::followMapping()
{
    int preset = 0;
    while (preset < Mapping::presetCount &&
           Mapping::preset(static_cast<Mapping::Preset>(preset)) != mapping())
        ++preset;
    m_presets->setCurrentIndex(preset);
    m_values->setMapping(mapping());
    m_finding = Finding::Sought;
    showFinding();
    showProblems();
    m_settle.start();
}

void OvHeaderMappingDlg::startSurvey(bool wholeFile)
{
    m_settle.stop();
    const OvStatus status = mapping().validate(m_model->headerBytes());
    m_examine->setEnabled(status.ok());
    if (!status) {
        m_examination->cancel();
        endSurvey(Finding::None);
        return;
    }
    m_progress->setValue(0);
    m_progress->setVisible(wholeFile);
    showFinding();
    m_examination->survey(mapping(), wholeFile);
}

void OvHeaderMappingDlg::endSurvey(Finding finding)
{
    m_progress->hide();
    m_finding = finding;
    showFinding();
}

void OvHeaderMappingDlg::showFinding()
{
    m_found->setText(findingText());
    m_examine->setText(m_progress->isHidden() ? tr("&Examine Whole File") : tr("&Stop"));
}

QString OvHeaderMappingDlg::findingText() const
{
    switch (m_finding) {
    case Finding::None:
        return {};
    case Finding::Sought:
        return tr("Examining...");
    case Finding::Failed:
        return m_failure;
    case Finding::Found:
        break;
    }
    const qint64 all = m_document->file().info().traceCount;
    const QString traces = locale().toString(m_surveyed);
    return m_surveyed == all ? tr("Found in all %1 traces.").arg(traces)
                             : tr("Found in %1 of %2 traces, spread over the file.")
                                   .arg(traces, locale().toString(all));
}

void OvHeaderMappingDlg::showFound(const OvHeaderSurvey& survey)
{
    m_model->setSurvey(survey);
    if (!m_columnsFit) // later they are as wide as the user has made them
        m_table->resizeColumnsToContents();
    m_columnsFit = true;
    showProblems();
    m_surveyed = survey.traceCount();
    endSurvey(Finding::Found);
}

void OvHeaderMappingDlg::showProblems()
{
    const QSignalBlocker blocker(m_problems);
    m_problems->clear();
    const auto problems = m_model->problems();
    for (const auto& problem : problems) {
        const bool error = problem.severity == Mapping::Problem::Error;
        auto* item =
            new QListWidgetItem(style()->standardIcon(error ? QStyle::SP_MessageBoxCritical
                                                            : QStyle::SP_MessageBoxWarning),
                                problem.message, m_problems);
        item->setData(Qt::UserRole, int(problem.quantity));
    }
    if (problems.isEmpty())
        m_problems->addItem(tr("Nothing to remark."));
}

void OvHeaderMappingDlg::goToProblem(int row)
{
    const QListWidgetItem* item = m_problems->item(row);
    if (item && item->data(Qt::UserRole).isValid())
        m_table->setCurrentIndex(
            m_model->index(item->data(Qt::UserRole).toInt(), OvHeaderMappingModel::Byte));
}

void OvHeaderMappingDlg::goToColumnOf(int quantity)
{
    if (quantity < 0 || m_values->rowCount() == 0)
        return;
    const int row = qMax(0, m_valueTable->rowAt(0));
    m_valueTable->scrollTo(m_values->index(row, quantity));
    m_valueTable->selectColumn(quantity);
}

void OvHeaderMappingDlg::toggleExamination()
{
    if (m_progress->isVisible())
        m_examination->cancel();
    else
        startSurvey(true);
}

void OvHeaderMappingDlg::accept()
{
    const auto problems = m_model->problems();
    if (problems.isEmpty() || problems.first().severity != Mapping::Problem::Error) {
        OvDialog::accept();
        return;
    }
    m_table->setCurrentIndex(m_model->index(problems.first().quantity, OvHeaderMappingModel::Byte));
    m_table->setFocus();
    OvPluginUtil::showWarning(problems.first().message, this);
}

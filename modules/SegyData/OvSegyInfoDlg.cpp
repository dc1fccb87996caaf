#include "OvSegyInfoDlg.h"

#include "OvBase/OvBaseUtil.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QFontDatabase>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QVBoxLayout>

#include <cmath>

namespace {

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

} // namespace

OvSegyInfoDlg::OvSegyInfoDlg(const QSharedPointer<OvSegyDocument>& document, QWidget* parent)
    : OvDialog(parent)
    , m_document(document)
    , m_tabs(new QTabWidget(this))
{
    setObjectName(QStringLiteral("OvSegyInfoDlg"));
    m_textHeader = makeTextView(QStringLiteral("textHeader"));
    m_textHeader->setPlainText(document->file().textHeader().join(QLatin1Char('\n')));
    m_warnings = makeTextView(QStringLiteral("warnings"));
    m_tabs->addTab(makeFactsPage(), QString());
    m_tabs->addTab(m_textHeader, QString());
    m_tabs->addTab(m_warnings, QString());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addWidget(buttons);
    connectIndex();
    retranslate();
    resize(m_textHeader->fontMetrics().averageCharWidth() * 88, 460);
}

OvSegyInfoDlg::~OvSegyInfoDlg() = default;

QString OvSegyInfoDlg::helpPage() const
{
    return QStringLiteral("segy.html");
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

void OvSegyInfoDlg::connectIndex()
{
    connect(m_document.data(), &OvSegyDocument::indexComplete, this, &OvSegyInfoDlg::showFacts);
    connect(m_document.data(), &OvSegyDocument::indexFailed, this,
            &OvSegyInfoDlg::showGeometryFailure);
}

void OvSegyInfoDlg::showGeometryFailure(const QString& message)
{
    m_failure = message;
    showFacts();
}

void OvSegyInfoDlg::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    OvDialog::changeEvent(event);
}

void OvSegyInfoDlg::retranslate()
{
    setWindowTitle(tr("SEG-Y Information"));
    m_tabs->setTabText(0, tr("File"));
    m_tabs->setTabText(1, tr("Text Header"));
    showFacts();
}

void OvSegyInfoDlg::showFacts()
{
    clearRows(m_facts);
    const QList<QPair<QString, QString>> facts = fileFacts() + traceFacts() + geometryFacts();
    for (const auto& fact : facts)
        m_facts->addRow(plainLabel(fact.first), wrappedLabel(fact.second));
    QStringList warnings = m_document->file().info().warnings;
    if (m_document->isIndexComplete())
        warnings += m_document->index()->warnings();
    m_warnings->setPlainText(warnings.isEmpty() ? tr("Nothing to remark.")
                                                : warnings.join(QLatin1Char('\n')));
    m_tabs->setTabText(2, tr("Remarks (%1)").arg(warnings.size()));
}

QList<QPair<QString, QString>> OvSegyInfoDlg::fileFacts() const
{
    const OvSegyFileInfo& info = m_document->file().info();
    const bool bigEndian = info.byteOrder == OvByteOrder::BigEndian;
    const bool ebcdic = info.textEncoding == OvTextEncoding::Ebcdic;
    return {
        {tr("File:"), QDir::toNativeSeparators(info.path)},
        {tr("File size:"), tr("%1 bytes").arg(locale().toString(info.fileSize))},
        {tr("Revision:"), QStringLiteral("%1.%2").arg(info.revisionMajor).arg(info.revisionMinor)},
        {tr("Byte order:"), bigEndian ? tr("big-endian") : tr("little-endian")},
        {tr("Text header:"), ebcdic ? tr("EBCDIC") : tr("ASCII")},
        {tr("Extended text headers:"), QString::number(info.extendedTextHeaders)},
    };
}

QList<QPair<QString, QString>> OvSegyInfoDlg::traceFacts() const
{
    const OvSegyFileInfo& info = m_document->file().info();
    const double lengthMs = (info.sampleCount - 1) * info.intervalMs();
    return {
        {tr("Data format:"),
         tr("%1 (code %2)").arg(OvBaseUtil::segyFormatInfo(info.formatCode)).arg(info.formatCode)},
        {tr("Sample interval:"), tr("%1 µs").arg(locale().toString(info.intervalUs))},
        {tr("Samples per trace:"), locale().toString(info.sampleCount)},
        {tr("Trace length:"), tr("%1 ms").arg(locale().toString(lengthMs))},
        {tr("Traces:"), locale().toString(info.traceCount)},
    };
}

QList<QPair<QString, QString>> OvSegyInfoDlg::geometryFacts() const
{
    if (!m_failure.isEmpty())
        return {{tr("Gathers:"), m_failure}};
    if (!m_document->isIndexComplete())
        return {{tr("Gathers:"), tr("reading the trace headers...")}};
    return {
        {tr("Gathers:"), locale().toString(m_document->gatherCount())},
        {tr("Offsets:"), offsetRange()},
    };
}

QString OvSegyInfoDlg::offsetRange() const
{
    const std::shared_ptr<const OvSegyIndex> index = m_document->index();
    if (std::isnan(index->minimumOffset()))
        return tr("none in the trace headers");
    return tr("%1 m to %2 m")
        .arg(locale().toString(index->minimumOffset()), locale().toString(index->maximumOffset()));
}

#include "OvSegyReport.h"

#include "OvBase/OvBaseUtil.h"
#include "OvSeismic/segy/OvSegySampleFormat.h"

#include <QDir>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace {

constexpr int significantDigits = 10;

QString number(qint64 value)
{
    return QLocale().toString(value);
}

QString value(double number)
{
    return QString::number(number, 'g', significantDigits);
}

QString underlined(const QString& title)
{
    return title + QLatin1Char('\n') + QString(title.size(), QLatin1Char('-'));
}

} // namespace

void OvSegyReport::setSurvey(const OvHeaderSurvey& survey, const OvTraceHeaderMapping& mapping)
{
    m_survey = survey;
    m_mapping = mapping;
}

QList<OvSegyReport::Fact> OvSegyReport::facts() const
{
    return fileFacts() + traceFacts() + geometryFacts();
}

QList<OvSegyReport::Fact> OvSegyReport::fileFacts() const
{
    const OvSegyFileInfo& info = m_document->file().info();
    const bool ebcdic = info.textEncoding == OvTextEncoding::Ebcdic;
    return {
        {tr("File:"), QDir::toNativeSeparators(info.path)},
        {tr("File size:"), tr("%1 bytes").arg(number(info.fileSize))},
        {tr("Revision:"), QStringLiteral("%1.%2").arg(info.revisionMajor).arg(info.revisionMinor)},
        {tr("Byte order:"), ovSegyByteOrderName(info.byteOrder)},
        {tr("Text header:"), ebcdic ? tr("EBCDIC") : tr("ASCII")},
        {tr("Extended text headers:"), QString::number(info.extendedTextHeaders)},
        {tr("Extra trace headers:"), QString::number(info.extraTraceHeaders)},
    };
}

QList<OvSegyReport::Fact> OvSegyReport::traceFacts() const
{
    const OvSegyFileInfo& info = m_document->file().info();
    const double lengthMs = (info.sampleCount - 1) * info.intervalMs();
    return {
        {tr("Data format:"),
         tr("%1 (code %2)").arg(OvBaseUtil::segyFormatInfo(info.formatCode)).arg(info.formatCode)},
        {tr("Sample interval:"), tr("%1 µs").arg(QLocale().toString(info.intervalUs))},
        {tr("Samples per trace:"), number(info.sampleCount)},
        {tr("Trace length:"), tr("%1 ms").arg(QLocale().toString(lengthMs))},
        {tr("Traces:"), number(info.traceCount)},
        {tr("Lengths:"), info.metresPerUnit == 1.0 ? tr("metres") : tr("feet")},
    };
}

QList<OvSegyReport::Fact> OvSegyReport::geometryFacts() const
{
    if (!m_document->indexMessage().isEmpty())
        return {{tr("Gathers:"), m_document->indexMessage()}};
    if (!m_document->isIndexComplete())
        return {{tr("Gathers:"), tr("reading the trace headers...")}};
    return {
        {tr("Gathers:"), number(m_document->gatherCount())},
        {tr("Offsets:"), offsetRange()},
    };
}

QString OvSegyReport::offsetRange() const
{
    const std::shared_ptr<const OvSegyIndex> index = m_document->index();
    if (std::isnan(index->minimumOffset()))
        return tr("none in the trace headers");
    const QLocale locale;
    return tr("%1 m to %2 m")
        .arg(locale.toString(index->minimumOffset()), locale.toString(index->maximumOffset()));
}

std::vector<OvSegyFinding> OvSegyReport::findings() const
{
    std::vector<OvSegyFinding> all = m_findings;
    if (m_document->isIndexComplete()) {
        const QStringList sentences = m_document->index()->warnings();
        for (const QString& sentence : sentences) {
            OvSegyFinding finding;
            finding.code = QStringLiteral("index");
            finding.text = sentence;
            all.push_back(finding);
        }
    }
    return all;
}

int OvSegyReport::remarkCount() const
{
    return static_cast<int>(
        std::count_if(m_findings.begin(), m_findings.end(), [](const OvSegyFinding& finding) {
            return finding.severity != OvSegyFinding::Severity::Info;
        }));
}

QString OvSegyReport::severityName(OvSegyFinding::Severity severity)
{
    switch (severity) {
    case OvSegyFinding::Severity::Error:
        return tr("error");
    case OvSegyFinding::Severity::Warning:
        return tr("warning");
    case OvSegyFinding::Severity::Info:
        break;
    }
    return tr("note");
}

QString OvSegyReport::placeOf(const OvSegyFinding& finding)
{
    QStringList places;
    if (finding.firstTrace >= 0)
        places += tr("trace %1").arg(number(finding.firstTrace + 1));
    if (finding.firstByte >= 0)
        places += finding.lastByte > finding.firstByte
                      ? tr("bytes %1 to %2").arg(finding.firstByte).arg(finding.lastByte)
                      : tr("byte %1").arg(finding.firstByte);
    return places.join(tr(", "));
}

QStringList OvSegyReport::findingLines() const
{
    QStringList lines;
    for (const OvSegyFinding& finding : findings()) {
        QString line = QStringLiteral("[%1] %2").arg(severityName(finding.severity), finding.text);
        const QString place = placeOf(finding);
        if (!place.isEmpty())
            line += QStringLiteral(" (%1)").arg(place);
        lines += finding.advice.isEmpty() ? line : line + QLatin1Char(' ') + finding.advice;
    }
    return lines;
}

QStringList OvSegyReport::wordLines() const
{
    QStringList lines;
    for (int i = 0; i < OvTraceHeaderMapping::quantityCount; ++i) {
        const auto quantity = static_cast<OvTraceHeaderMapping::Quantity>(i);
        const OvHeaderSurvey::Word& word = m_survey.word(quantity);
        if (word.count > word.invalid)
            lines +=
                tr("%1 (byte %2): %3 to %4, %5 of %6 are zero")
                    .arg(OvTraceHeaderMapping::name(quantity),
                         QString::number(m_mapping.word(quantity).position), value(word.minimum),
                         value(word.maximum), number(word.zeros), number(word.count));
    }
    return lines;
}

QString OvSegyReport::text() const
{
    QStringList lines{underlined(tr("SEG-Y Information"))};
    const QList<Fact> all = facts();
    for (const Fact& fact : all)
        lines += fact.first + QLatin1Char(' ') + fact.second;
    lines += QString();
    lines += underlined(tr("Remarks"));
    lines += findingLines();
    lines += QString();
    lines += underlined(tr("Trace headers"));
    lines += wordLines();
    lines += QString();
    lines += underlined(tr("Text Header"));
    lines += m_document->file().textHeader();
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

#include "OvSeismic/segy/OvSegyDiagnosis.h"

#include "OvSeismic/segy/OvSegySampleFormat.h"

#include <algorithm>

namespace {

// Several placeholders are filled at once: a number or a name may hold a percent sign itself.
QString number(qint64 value)
{
    return QString::number(value);
}

/// Traces are counted from 1 where a user reads of them.
QString ordinal(qint64 trace)
{
    return QString::number(trace + 1);
}

} // namespace

using Mapping = OvTraceHeaderMapping;

OvSegyDiagnosis::OvSegyDiagnosis(const OvSegyFileInfo& info, const OvSegyCensus& census,
                                 const OvTraceHeaderMapping& mapping)
    : m_info(info)
    , m_census(census)
    , m_mapping(mapping)
{
    describeFile();
    describeExtras();
    takeWarnings();
    judgeGeometry();
    judgeHeaders();
    judgeNumbering();
    judgeSamples();
    std::stable_sort(m_findings.begin(), m_findings.end(),
                     [](const OvSegyFinding& a, const OvSegyFinding& b) {
                         return static_cast<int>(a.severity) > static_cast<int>(b.severity);
                     });
}

OvSegyFinding& OvSegyDiagnosis::add(Severity severity, const char* code, const QString& text,
                                    const QString& advice)
{
    OvSegyFinding finding;
    finding.severity = severity;
    finding.code = QLatin1String(code);
    finding.text = text;
    finding.advice = advice;
    m_findings.push_back(finding);
    return m_findings.back();
}

OvSegyFinding& OvSegyDiagnosis::add(Severity severity, const char* code,
                                    const OvSegyCensus::Tally& tally, const QString& text,
                                    const QString& advice)
{
    OvSegyFinding& finding = add(severity, code, text, advice);
    finding.firstTrace = tally.firstTrace;
    finding.count = tally.count;
    return finding;
}

void OvSegyDiagnosis::place(OvSegyFinding* finding, qint64 firstByte, qint64 lastByte) const
{
    finding->firstByte = firstByte;
    finding->lastByte = lastByte;
}

void OvSegyDiagnosis::place(OvSegyFinding* finding, Mapping::Quantity first,
                            Mapping::Quantity last) const
{
    const OvHeaderWord& from = m_mapping.word(first);
    const OvHeaderWord& to = m_mapping.word(last);
    if (from.exists() && to.exists())
        place(finding, qMin(from.position, to.position), qMax(from.end(), to.end()));
}

/// How much of the file the counts in the sentences are about.
QString OvSegyDiagnosis::looked() const
{
    return number(m_census.traces());
}

void OvSegyDiagnosis::describeFile()
{
    place(&add(Severity::Info, "revision",
               tr("The file follows revision %1.%2 of the format.")
                   .arg(number(m_info.revisionMajor), number(m_info.revisionMinor))),
          3501, 3502);
    place(&add(Severity::Info, "byte-order",
               tr("The byte order is %1.").arg(ovSegyByteOrderName(m_info.byteOrder))),
          3297, 3300);
    const bool ebcdic = m_info.textEncoding == OvTextEncoding::Ebcdic;
    place(&add(Severity::Info, "text",
               tr("The textual header is in %1.")
                   .arg(ebcdic ? QStringLiteral("EBCDIC") : QStringLiteral("ASCII"))),
          1, 3200);
    place(&add(Severity::Info, "format",
               tr("The samples are in format %1, %2.")
                   .arg(number(m_info.formatCode), ovSegyFormatName(m_info.formatCode))),
          3225, 3226);
    add(Severity::Info, "traces",
        tr("Traces: %1. Samples of a trace: %2, one every %3 µs.")
            .arg(number(m_info.traceCount), number(m_info.sampleCount),
                 QString::number(m_info.intervalUs)));
    if (m_census.traces() < m_info.traceCount) {
        add(Severity::Info, "sampled",
            tr("%1 of the %2 traces were examined.").arg(looked(), number(m_info.traceCount)),
            tr("Examine the whole file to be sure of the rest."))
            .count = m_census.traces();
    }
}

void OvSegyDiagnosis::describeExtras()
{
    if (m_info.extendedTextHeaders > 0) {
        const qint64 texts = m_info.extendedTextHeaders;
        place(&add(Severity::Info, "extended-texts",
                   tr("Extended textual headers behind the binary header: %1.").arg(texts)),
              3601, 3600 + texts * 3200);
    }
    if (m_info.extraTraceHeaders > 0) {
        place(
            &add(
                Severity::Info, "extra-trace-headers",
                tr("Additional headers of a trace: %1 at the most.").arg(m_info.extraTraceHeaders)),
            3507, 3510);
    }
}

void OvSegyDiagnosis::takeWarnings()
{
    if (m_info.likelyFormatCode != 0) {
        place(&add(Severity::Warning, "likely-format",
                   tr("The samples look like format %1, %2, although another is declared.")
                       .arg(number(m_info.likelyFormatCode),
                            ovSegyFormatName(m_info.likelyFormatCode)),
                   tr("Compare the traces with another file of the survey.")),
              3225, 3226);
    }
    for (int i = 0; i < m_info.warnings.size(); ++i) {
        OvSegyFinding& finding = add(Severity::Warning, "layout", m_info.warnings.at(i));
        if (i < m_info.warningBytes.size())
            place(&finding, m_info.warningBytes.at(i).first, m_info.warningBytes.at(i).second);
    }
}

void OvSegyDiagnosis::judgeGeometry()
{
    if (m_census.fieldRecords.count == 0) {
        place(
            &add(Severity::Warning, "no-field-records", tr("No trace has a field record number."),
                 tr("All traces form one gather. Where the number stands in other bytes, set them "
                    "in the header mapping.")),
            Mapping::FieldRecord, Mapping::FieldRecord);
    }
    if (m_census.channels.count == 0) {
        place(&add(Severity::Info, "no-channels", tr("No trace has a channel number."),
                   tr("Traces are numbered within their gather.")),
              Mapping::Channel, Mapping::Channel);
    }
    judgeOffsets();
    if (m_census.elevations.count == 0)
        place(&add(Severity::Info, "no-elevations", tr("No trace has an elevation.")),
              Mapping::ReceiverElevation, Mapping::SourceElevation);
}

void OvSegyDiagnosis::judgeOffsets()
{
    const bool coordinates =
        m_census.sourcePositions.count > 0 && m_census.receiverPositions.count > 0;
    if (m_census.offsets.count == 0) {
        const QString mapping = tr(
            "Where offsets or coordinates stand in other bytes, set them in the header mapping.");
        const QString text = coordinates
                                 ? tr("No trace has an offset; offsets come from the coordinates.")
                                 : tr("No trace has an offset, and coordinates are missing, too.");
        place(&add(coordinates ? Severity::Info : Severity::Warning, "no-offsets", text,
                   coordinates ? QString() : mapping),
              Mapping::Offset, Mapping::Offset);
    }
    if (m_census.sourcePositions.count == 0)
        place(&add(Severity::Info, "no-source-positions", tr("No trace has source coordinates.")),
              Mapping::SourceX, Mapping::SourceY);
    if (m_census.receiverPositions.count == 0)
        place(
            &add(Severity::Info, "no-receiver-positions", tr("No trace has receiver coordinates.")),
            Mapping::ReceiverX, Mapping::ReceiverY);
}

void OvSegyDiagnosis::judgeHeaders()
{
    const auto& counts = m_census.otherCount;
    if (counts.count > 0) {
        place(&add(Severity::Warning, "sample-counts", counts,
                   tr("Trace headers that state another number of samples than the trace has: %1 "
                      "of %2; the first is that of trace %3.")
                       .arg(number(counts.count), looked(), ordinal(counts.firstTrace)),
                   tr("The size of the file decides; nothing needs to be done.")),
              115, 116);
    }
    const auto& intervals = m_census.otherInterval;
    if (intervals.count > 0) {
        place(&add(Severity::Warning, "sample-intervals", intervals,
                   tr("Trace headers that state another sample interval than %3 µs: %1 of %2; the "
                      "first is that of trace %4.")
                       .arg(number(intervals.count), looked(), QString::number(m_info.intervalUs),
                            ordinal(intervals.firstTrace)),
                   tr("Check the interval against the observer's notes before you pick.")),
              117, 118);
    }
    const auto& scalars = m_census.oddScalars;
    if (scalars.count > 0) {
        place(&add(Severity::Warning, "scalars", scalars,
                   tr("Trace headers with a scalar for coordinates or elevations that is no power "
                      "of ten: %1 of %2; the first is that of trace %3.")
                       .arg(number(scalars.count), looked(), ordinal(scalars.firstTrace)),
                   tr("Check whether positions and elevations have the right size.")),
              Mapping::ElevationScalar, Mapping::CoordinateScalar);
    }
}

void OvSegyDiagnosis::judgeNumbering()
{
    if (m_census.channels.count == 0 || m_census.fieldRecords.count == 0)
        return;
    const auto duplicates = m_census.keys().duplicates();
    if (duplicates.count > 0) {
        OvSegyFinding& finding =
            add(Severity::Warning, "duplicates",
                tr("Traces that repeat the field record and channel of another: %1; for one, "
                   "record %2 and channel %3 occur more than once.")
                    .arg(number(duplicates.count), number(duplicates.record),
                         number(duplicates.channel)),
                tr("Check whether shots were repeated or files joined twice."));
        finding.count = duplicates.count;
        place(&finding, Mapping::FieldRecord, Mapping::Channel);
    }
    // What a part of the traces lacks the others may have.
    if (m_census.traces() == m_info.traceCount)
        judgeMissing();
}

void OvSegyDiagnosis::judgeMissing()
{
    const auto channels = m_census.keys().missingChannels();
    if (channels.records > 0) {
        OvSegyFinding& finding = add(
            Severity::Warning, "missing-channels",
            tr("Field records that lack channels: %1; the first is record %2 without channel %3.")
                .arg(number(channels.records), number(channels.record), number(channels.channel)),
            tr("Check whether traces were removed on purpose."));
        finding.count = channels.records;
        place(&finding, Mapping::Channel, Mapping::Channel);
    }
    const auto records = m_census.keys().missingRecords();
    if (records.count > 0) {
        OvSegyFinding& finding =
            add(Severity::Info, "missing-records",
                tr("Field records that are missing between %1 and %2: %3; the first is %4.")
                    .arg(number(records.from), number(records.to), number(records.count),
                         number(records.first)));
        finding.count = records.count;
        place(&finding, Mapping::FieldRecord, Mapping::FieldRecord);
    }
}

void OvSegyDiagnosis::judgeSamples()
{
    const auto& odd = m_census.notFinite;
    if (odd.count > 0) {
        add(Severity::Error, "not-finite", odd,
            tr("Samples that are infinite or no numbers: %1; traces with such samples: %2, the "
               "first is trace %3.")
                .arg(number(m_census.notFiniteSample.count), number(odd.count),
                     ordinal(odd.firstTrace)),
            tr("Write the file anew, or leave these traces out when you pick."));
    }
    const auto& huge = m_census.huge;
    if (huge.count > 0) {
        add(Severity::Warning, "huge-samples", huge,
            tr("Traces with samples of an impossible size: %1; the first is trace %2.")
                .arg(number(huge.count), ordinal(huge.firstTrace)),
            tr("The sample format in bytes 3225-3226 may be wrong, or the file damaged."));
    }
    const auto& silent = m_census.silent;
    if (silent.count > 0) {
        add(Severity::Warning, "dead-traces", silent,
            tr("Traces without signal that are not marked as dead: %1 of %2; the first is trace "
               "%3.")
                .arg(number(silent.count), looked(), ordinal(silent.firstTrace)));
    }
    const auto& marked = m_census.markedDead;
    if (marked.count > 0) {
        add(Severity::Info, "marked-dead", marked,
            tr("Traces that are marked as dead: %1 of %2; the first is trace %3.")
                .arg(number(marked.count), looked(), ordinal(marked.firstTrace)));
    }
}

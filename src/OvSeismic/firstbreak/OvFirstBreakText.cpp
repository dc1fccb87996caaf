#include "OvSeismic/firstbreak/OvFirstBreakText.h"

#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "OvSeismic/segy/OvSegyFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QSaveFile>

#include <cmath>
#include <new>

namespace {

constexpr qint64 progressIntervalMs = 50;
constexpr int flushBytes = 1 << 20;

struct Row
{
    qint32 fieldRecord = 0;
    qint32 channel = 0;
    float offset = OvFirstBreaks::noPick;
    float timeMs = OvFirstBreaks::noPick;
    float confidence = 0.0F;
};

class Exporter
{
    Q_DECLARE_TR_FUNCTIONS(OvFirstBreakText)

public:
    Exporter(const OvSegyFile& file, const OvSegyIndex& index, const QString& outPath,
             const OvFirstBreakText::Progress& progress)
        : m_file(file)
        , m_index(index)
        , m_progress(progress)
        , m_out(outPath)
    {
        m_sinceProgress.start();
    }

    OvStatus run(const std::function<OvStatus(int, OvFirstBreaks*)>& breaksOf);
    OvStatus failure(const QString& reason) const
    {
        const QString name = QDir::toNativeSeparators(m_out.fileName());
        return OvStatus::failure(tr("Cannot write %1: %2").arg(name, reason));
    }
    OvStatus noMemory() const { return failure(tr("there is not enough memory.")); }

private:
    OvStatus collect(const std::function<OvStatus(int, OvFirstBreaks*)>& breaksOf);
    OvStatus collectGather(int gather, const OvFirstBreaks& breaks);
    OvStatus writeRows();
    OvStatus tell(int done, bool always);
    OvStatus cancelled() const { return failure(tr("the export was cancelled.")); }

    const OvSegyFile& m_file;
    const OvSegyIndex& m_index;
    const OvFirstBreakText::Progress& m_progress;
    QSaveFile m_out;
    QElapsedTimer m_sinceProgress;
    std::vector<Row> m_rows;
};

QByteArray number(float value)
{
    return std::isfinite(value) ? QByteArray::number(double(value), 'f', 3) : QByteArray();
}

void appendLine(QByteArray* text, std::size_t trace, const Row& row)
{
    *text += QByteArray::number(static_cast<qulonglong>(trace)) + ',';
    *text += QByteArray::number(row.fieldRecord) + ',' + QByteArray::number(row.channel) + ',';
    *text += number(row.offset) + ',' + number(row.timeMs) + ',';
    *text += std::isfinite(row.timeMs) ? number(row.confidence) : QByteArray();
    *text += '\n';
}

OvStatus Exporter::run(const std::function<OvStatus(int, OvFirstBreaks*)>& breaksOf)
{
    if (m_index.traceCount() != m_file.info().traceCount)
        return failure(tr("the traces of the SEG-Y file are not all known yet."));
    if (!m_out.open(QIODevice::WriteOnly))
        return failure(m_out.errorString());
    OvStatus status = collect(breaksOf);
    if (status)
        status = writeRows();
    if (!status)
        m_out.cancelWriting();
    // After a cancel, commit() would report the cancel as an error of its own.
    if (status && !m_out.commit())
        status = failure(m_out.errorString());
    return status;
}

OvStatus Exporter::tell(int done, bool always)
{
    if (!m_progress || (!always && m_sinceProgress.elapsed() < progressIntervalMs))
        return {};
    m_sinceProgress.restart();
    return m_progress(done, m_index.gatherCount()) ? OvStatus() : cancelled();
}

OvStatus Exporter::collect(const std::function<OvStatus(int, OvFirstBreaks*)>& breaksOf)
{
    m_rows.resize(static_cast<std::size_t>(m_index.traceCount()));
    OvStatus status;
    for (int gather = 0; gather < m_index.gatherCount() && status; ++gather) {
        OvFirstBreaks breaks;
        status = breaksOf(gather, &breaks);
        if (status)
            status = collectGather(gather, breaks);
        if (status)
            status = tell(gather + 1, gather + 1 == m_index.gatherCount());
    }
    return status;
}

OvStatus Exporter::collectGather(int gather, const OvFirstBreaks& breaks)
{
    const OvGather headers = m_index.gatherHeaders(m_file, gather);
    if (!breaks.isEmpty() && breaks.size() != headers.traceCount()) {
        return failure(tr("record %1 has %2 traces and first breaks of %3.")
                           .arg(headers.fieldRecord)
                           .arg(headers.traceCount())
                           .arg(breaks.size()));
    }
    std::size_t i = 0;
    for (const OvTraceHeader& header : headers.headers) {
        Row& row = m_rows[static_cast<std::size_t>(header.traceIndex)];
        row.fieldRecord = header.fieldRecord;
        row.channel = header.channel;
        row.offset = header.offset;
        if (!breaks.isEmpty() && breaks.states[i] != OvPickState::Rejected) {
            row.timeMs = breaks.timesMs[i];
            row.confidence = breaks.confidences[i];
        }
        ++i;
    }
    return {};
}

OvStatus Exporter::writeRows()
{
    QByteArray text("trace,field_record,channel,offset_m,time_ms,confidence\n");
    for (std::size_t trace = 0; trace < m_rows.size(); ++trace) {
        appendLine(&text, trace, m_rows[trace]);
        if (text.size() < flushBytes)
            continue;
        if (m_out.write(text) != text.size())
            return failure(m_out.errorString());
        text.clear();
        OvStatus status = tell(m_index.gatherCount(), false);
        if (!status)
            return status;
    }
    return m_out.write(text) == text.size() ? OvStatus() : failure(m_out.errorString());
}

} // namespace

OvStatus OvFirstBreakText::exportCsv(
    const OvSegyFile& file, const OvSegyIndex& index,
    const std::function<OvStatus(int gather, OvFirstBreaks* breaks)>& breaksOf,
    const QString& outPath, const Progress& progress)
{
    Exporter exporter(file, index, outPath, progress);
    try {
        return exporter.run(breaksOf);
    } catch (const std::bad_alloc&) {
        return exporter.noMemory();
    }
}

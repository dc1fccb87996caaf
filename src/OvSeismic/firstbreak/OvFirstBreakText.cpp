#include "OvSeismic/firstbreak/OvFirstBreakText.h"

#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "OvSeismic/segy/OvSegyFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QSaveFile>
#include <QTemporaryFile>

#include <cmath>
#include <new>

namespace {

constexpr qint64 progressIntervalMs = 50;
constexpr int flushBytes = 1 << 20;
constexpr std::size_t rowsAtOnce = 16384;

// As it waits in the temporary file.
struct Row
{
    qint32 fieldRecord = 0;
    qint32 channel = 0;
    float offset = OvFirstBreaks::noPick;
    float timeMs = OvFirstBreaks::noPick;
    float confidence = 0.0F;
};

QByteArray number(float value)
{
    return std::isfinite(value) ? QByteArray::number(double(value), 'f', 3) : QByteArray();
}

void appendLine(QByteArray* text, qint64 trace, const Row& row)
{
    *text += QByteArray::number(trace) + ',';
    *text += QByteArray::number(row.fieldRecord) + ',' + QByteArray::number(row.channel) + ',';
    *text += number(row.offset) + ',' + number(row.timeMs) + ',';
    *text += std::isfinite(row.timeMs) ? number(row.confidence) : QByteArray();
    *text += '\n';
}

std::vector<Row> rowsOf(const OvGather& headers, const OvFirstBreaks& breaks)
{
    std::vector<Row> rows;
    rows.reserve(headers.headers.size());
    for (const OvTraceHeader& header : headers.headers) {
        const std::size_t i = rows.size();
        Row row;
        row.fieldRecord = header.fieldRecord;
        row.channel = header.channel;
        row.offset = header.offset;
        if (!breaks.isEmpty() && breaks.states[i] != OvPickState::Rejected) {
            row.timeMs = breaks.timesMs[i];
            row.confidence = breaks.confidences[i];
        }
        rows.push_back(row);
    }
    return rows;
}

} // namespace

struct OvFirstBreakTextWriter::Private
{
    Q_DECLARE_TR_FUNCTIONS(OvFirstBreakText)

public:
    Private(const OvSegyFile& segyFile, const OvSegyIndex& segyIndex)
        : file(segyFile)
        , index(segyIndex)
    {
    }

    OvStatus failure(const QString& reason) const
    {
        const QString name = QDir::toNativeSeparators(out.fileName());
        return OvStatus::failure(tr("Cannot write %1: %2").arg(name, reason));
    }
    OvStatus keepRows(const OvGather& headers, const std::vector<Row>& gathered);
    OvStatus writeRows(const std::function<bool()>& goOn);
    OvStatus append(const QByteArray& text);

    const OvSegyFile& file;
    const OvSegyIndex& index;
    QSaveFile out;
    QTemporaryFile rows;
    std::vector<bool> added; // by gather
};

OvStatus OvFirstBreakTextWriter::Private::keepRows(const OvGather& headers,
                                                   const std::vector<Row>& gathered)
{
    for (std::size_t from = 0, to = 0; from < gathered.size(); from = to) {
        const qint64 first = headers.headers[from].traceIndex;
        do
            ++to;
        while (to < gathered.size() &&
               headers.headers[to].traceIndex == first + static_cast<qint64>(to - from));
        const qint64 bytes = static_cast<qint64>(to - from) * qint64(sizeof(Row));
        const char* data = reinterpret_cast<const char*>(gathered.data() + from);
        if (!rows.seek(first * static_cast<qint64>(sizeof(Row))) ||
            rows.write(data, bytes) != bytes)
            return failure(rows.errorString());
    }
    return {};
}

OvStatus OvFirstBreakTextWriter::Private::append(const QByteArray& text)
{
    return out.write(text) == text.size() ? OvStatus() : failure(out.errorString());
}

OvStatus OvFirstBreakTextWriter::Private::writeRows(const std::function<bool()>& goOn)
{
    QByteArray text("trace,field_record,channel,offset_m,time_ms,confidence\n");
    std::vector<Row> some(rowsAtOnce);
    OvStatus status = rows.seek(0) ? OvStatus() : failure(rows.errorString());
    for (qint64 trace = 0; trace < index.traceCount() && status;) {
        const qint64 count = std::min<qint64>(rowsAtOnce, index.traceCount() - trace);
        const qint64 bytes = count * static_cast<qint64>(sizeof(Row));
        if (rows.read(reinterpret_cast<char*>(some.data()), bytes) != bytes)
            return failure(rows.errorString());
        for (qint64 i = 0; i < count; ++i, ++trace)
            appendLine(&text, trace, some[static_cast<std::size_t>(i)]);
        if (text.size() < flushBytes)
            continue;
        status = append(text);
        text.clear();
        if (status && goOn && !goOn())
            status = failure(tr("the export was cancelled."));
    }
    return status ? append(text) : status;
}

OvFirstBreakTextWriter::OvFirstBreakTextWriter(const OvSegyFile& file, const OvSegyIndex& index)
    : d(std::make_unique<Private>(file, index))
{
}

OvFirstBreakTextWriter::~OvFirstBreakTextWriter()
{
    d->out.cancelWriting();
}

OvStatus OvFirstBreakTextWriter::cancelled() const
{
    return d->failure(Private::tr("the export was cancelled."));
}

OvStatus OvFirstBreakTextWriter::noMemory() const
{
    return d->failure(Private::tr("there is not enough memory."));
}

OvStatus OvFirstBreakTextWriter::open(const QString& outPath)
{
    d->out.setFileName(outPath);
    d->added.assign(static_cast<std::size_t>(d->index.gatherCount()), false);
    if (d->index.traceCount() != d->file.info().traceCount)
        return d->failure(Private::tr("the traces of the SEG-Y file are not all known yet."));
    if (!d->out.open(QIODevice::WriteOnly))
        return d->failure(d->out.errorString());
    return d->rows.open() ? OvStatus() : d->failure(d->rows.errorString());
}

OvStatus OvFirstBreakTextWriter::add(int gather, const OvFirstBreaks& breaks)
{
    const OvGather headers = d->index.gatherHeaders(d->file, gather);
    if (!breaks.isEmpty() && breaks.size() != headers.traceCount()) {
        return d->failure(Private::tr("record %1 has %2 traces and first breaks of %3.")
                              .arg(headers.fieldRecord)
                              .arg(headers.traceCount())
                              .arg(breaks.size()));
    }
    d->added.at(static_cast<std::size_t>(gather)) = true;
    return d->keepRows(headers, rowsOf(headers, breaks));
}

OvStatus OvFirstBreakTextWriter::finish(const std::function<bool()>& goOn)
{
    OvStatus status;
    for (int gather = 0; gather < d->index.gatherCount() && status; ++gather) {
        if (!d->added[static_cast<std::size_t>(gather)])
            status = goOn && !goOn() ? cancelled() : add(gather, {});
    }
    if (status)
        status = d->writeRows(goOn);
    if (status && !d->out.commit())
        status = d->failure(d->out.errorString());
    return status;
}

OvStatus OvFirstBreakText::exportCsv(
    const OvSegyFile& file, const OvSegyIndex& index,
    const std::function<OvStatus(int gather, OvFirstBreaks* breaks)>& breaksOf,
    const QString& outPath, const Progress& progress)
{
    OvFirstBreakTextWriter writer(file, index);
    const int gathers = index.gatherCount();
    QElapsedTimer sinceProgress;
    sinceProgress.start();
    const auto goOn = [&](int done, bool always) {
        if (!progress || (!always && sinceProgress.elapsed() < progressIntervalMs))
            return true;
        sinceProgress.restart();
        return progress(done, gathers);
    };
    try {
        OvStatus status = writer.open(outPath);
        for (int gather = 0; gather < gathers && status; ++gather) {
            OvFirstBreaks breaks;
            status = breaksOf(gather, &breaks);
            if (status)
                status = writer.add(gather, breaks);
            if (status && !goOn(gather + 1, gather + 1 == gathers))
                status = writer.cancelled();
        }
        return status ? writer.finish([&] { return goOn(gathers, false); }) : status;
    } catch (const std::bad_alloc&) {
        return writer.noMemory();
    }
}

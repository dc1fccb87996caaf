#include "OvSeismic/segy/OvSegyIndex.h"

#include "OvSeismic/segy/OvSegyColumns.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyGrouping.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>

#include <cmath>
#include <limits>
#include <new>

namespace {

constexpr qint64 progressIntervalMs = 50;
// How many headers pass between two looks at the clock.
constexpr qint64 progressStride = 256;

} // namespace

struct OvSegyIndex::Private
{
    Q_DECLARE_TR_FUNCTIONS(OvSegyIndex)

public:
    OvStatus tooMany(const OvSegyFile& file) const;
    OvStatus noMemory(const OvSegyFile& file) const;
    OvStatus scan(const OvSegyFile& file, const Progress& progress);
    OvStatus scanFirstGather(const OvSegyFile& file, qint64 maxTraces);
    bool hasGather(int gather) const { return gather >= 0 && gather < grouping.gatherCount(); }
    OvStatus noGather(const OvSegyFile& file, int gather) const;
    void finish();
    void measureOffsets();

    OvSegyColumns columns;
    OvSegyGrouping grouping;
    float minimumOffset = std::numeric_limits<float>::quiet_NaN();
    float maximumOffset = std::numeric_limits<float>::quiet_NaN();
};

OvStatus OvSegyIndex::Private::tooMany(const OvSegyFile& file) const
{
    return OvStatus::failure(
        tr("%1 has %2 traces, more than the program can index. Split the file.")
            .arg(QDir::toNativeSeparators(file.info().path),
                 QString::number(file.info().traceCount)));
}

OvStatus OvSegyIndex::Private::noMemory(const OvSegyFile& file) const
{
    return OvStatus::failure(tr("There is not enough memory to index the %1 traces of %2.")
                                 .arg(file.info().traceCount)
                                 .arg(QDir::toNativeSeparators(file.info().path)));
}

OvStatus OvSegyIndex::Private::noGather(const OvSegyFile& file, int gather) const
{
    return OvStatus::failure(tr("%1 has no gather %2; it has %3 gathers.")
                                 .arg(QDir::toNativeSeparators(file.info().path),
                                      QString::number(gather),
                                      QString::number(grouping.gatherCount())));
}

OvStatus OvSegyIndex::Private::scan(const OvSegyFile& file, const Progress& progress)
{
    OvStatus located = file.locate(progress);
    if (!located)
        return located;
    const qint64 total = file.info().traceCount;
    columns = OvSegyColumns(file.info().metresPerUnit);
    columns.reserve(total);
    QElapsedTimer sinceProgress;
    sinceProgress.start();
    bool cancelled = false;
    OvStatus status = file.scanHeaders(0, total, [&](const OvSegyTraceWords& words) {
        columns.append(words);
        const qint64 done = columns.size();
        if (progress && done % progressStride == 0 &&
            sinceProgress.elapsed() >= progressIntervalMs) {
            sinceProgress.restart();
            cancelled = !progress(done, total);
        }
        return !cancelled;
    });
    if (cancelled)
        status = OvStatus::failure(tr("Cancelled."));
    if (status && progress && !progress(total, total))
        status = OvStatus::failure(tr("Cancelled."));
    return status;
}

OvStatus OvSegyIndex::Private::scanFirstGather(const OvSegyFile& file, qint64 maxTraces)
{
    columns = OvSegyColumns(file.info().metresPerUnit);
    bool single = true;
    return file.scanHeaders(0, maxTraces, [&](const OvSegyTraceWords& words) {
        const qint64 known = columns.size();
        const bool sameRecord = known == 0 || words.fieldRecord == columns.fieldRecord(0);
        single = single && (known == 0 || !sameRecord);
        // While no record has shown two traces, the file may be one gather of single-trace records.
        if (!sameRecord && !single)
            return false;
        columns.append(words);
        return true;
    });
}

void OvSegyIndex::Private::finish()
{
    columns.finish();
    grouping = OvSegyGrouping(columns);
    measureOffsets();
}

void OvSegyIndex::Private::measureOffsets()
{
    for (qint64 trace = 0; trace < columns.size(); ++trace) {
        const float offset = std::abs(columns.offset(trace));
        // Written so that the NaN at the start gives way to the first number.
        if (!(offset >= minimumOffset))
            minimumOffset = offset;
        if (!(offset <= maximumOffset))
            maximumOffset = offset;
    }
}

OvSegyIndex::OvSegyIndex()
    : d(std::make_unique<Private>())
{
}

OvSegyIndex::~OvSegyIndex() = default;
OvSegyIndex::OvSegyIndex(OvSegyIndex&&) noexcept = default;
OvSegyIndex& OvSegyIndex::operator=(OvSegyIndex&&) noexcept = default;

OvStatus OvSegyIndex::build(const OvSegyFile& file, const Progress& progress)
{
    d = std::make_unique<Private>();
    if (file.info().traceCount > std::numeric_limits<qint32>::max())
        return d->tooMany(file);
    OvStatus status;
    try {
        status = d->scan(file, progress);
        if (status)
            d->finish();
    } catch (const std::bad_alloc&) {
        status = d->noMemory(file);
    }
    if (!status)
        d = std::make_unique<Private>();
    return status;
}

OvStatus OvSegyIndex::buildFirstGather(const OvSegyFile& file, qint64 maxTraces)
{
    d = std::make_unique<Private>();
    OvStatus status = d->scanFirstGather(file, maxTraces);
    if (status)
        d->finish();
    else
        d = std::make_unique<Private>();
    return status;
}

qint64 OvSegyIndex::traceCount() const
{
    return d->columns.size();
}

int OvSegyIndex::gatherCount() const
{
    return d->grouping.gatherCount();
}

qint32 OvSegyIndex::fieldRecord(int gather) const
{
    return d->hasGather(gather) ? d->grouping.fieldRecord(gather) : 0;
}

int OvSegyIndex::gatherTraceCount(int gather) const
{
    return d->hasGather(gather) ? d->grouping.traceCount(gather) : 0;
}

int OvSegyIndex::gatherOfFieldRecord(qint32 fieldRecord) const
{
    return d->grouping.gatherOfFieldRecord(fieldRecord);
}

int OvSegyIndex::gatherOfTrace(qint64 trace) const
{
    return trace >= 0 && trace < traceCount() ? d->grouping.gatherOfTrace(trace) : -1;
}

OvGather OvSegyIndex::gatherHeaders(const OvSegyFile& file, int gather) const
{
    OvGather result;
    result.ordinal = gather;
    result.fieldRecord = fieldRecord(gather);
    result.sampleCount = file.info().sampleCount;
    result.intervalMs = file.info().intervalMs();
    const int traces = gatherTraceCount(gather);
    result.headers.reserve(static_cast<std::size_t>(traces));
    for (int row = 0; row < traces; ++row) {
        result.headers.push_back(d->columns.header(d->grouping.trace(gather, row)));
        if (!d->columns.hasChannels())
            result.headers.back().channel = row + 1;
    }
    return result;
}

OvStatus OvSegyIndex::readGather(const OvSegyFile& file, int gather, OvGather* out) const
{
    *out = {};
    if (!d->hasGather(gather))
        return d->noGather(file, gather);
    try {
        *out = gatherHeaders(file, gather);
    } catch (const std::bad_alloc&) {
        return d->noMemory(file);
    }
    return file.readSamples(out);
}

float OvSegyIndex::minimumOffset() const
{
    return d->minimumOffset;
}

float OvSegyIndex::maximumOffset() const
{
    return d->maximumOffset;
}

QStringList OvSegyIndex::warnings() const
{
    QStringList sentences;
    if (traceCount() > 0 && d->columns.offsetsAreUnknown())
        sentences +=
            Private::tr("The file has no offsets and no usable coordinates; offsets are unknown.");
    if (d->columns.offsetsAreComputed())
        sentences +=
            Private::tr("The file has no offsets; they are computed from the coordinates.");
    if (d->grouping.rule() == OvSegyGrouping::Rule::SingleTraces)
        sentences += Private::tr("Every field record has one trace; all traces form one gather.");
    if (d->grouping.rule() == OvSegyGrouping::Rule::NoRecords)
        sentences += Private::tr("The file has no field records; all traces form one gather.");
    return sentences;
}

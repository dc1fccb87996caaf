#include "OvSeismic/segy/OvSegyIndex.h"

#include "OvSeismic/segy/OvPositionalFile.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyHeaderScan.h"
#include "OvSeismic/segy/OvSegyIndex_p.h"

#include <QDir>

#include <limits>
#include <new>

namespace {

constexpr qint64 mostTraces = std::numeric_limits<qint32>::max();

/// Behind a trace, in bytes from the start of the file.
qint64 endOf(const OvSegyFile& file, qint64 trace)
{
    return trace + 1 < file.locatedCount() ? file.position(trace + 1) : file.info().tracesEnd;
}

} // namespace

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
    return OvStatus::failure(tr("%1 has no gather %2; number of its gathers: %3.")
                                 .arg(QDir::toNativeSeparators(file.info().path),
                                      QString::number(gather),
                                      QString::number(grouping.gatherCount())));
}

OvStatus OvSegyIndex::Private::scan(const OvSegyFile& file, const Progress& progress)
{
    OvStatus located = file.locate(progress);
    if (located && file.locatedCount() > mostTraces)
        located = tooMany(file);
    if (!located)
        return located;
    OvSegyColumns all(mapping, file.info().metresPerUnit);
    OvSegyHeaderScan headers(file, mapping);
    switch (headers.run(progress, &all)) {
    case OvSegyHeaderScan::Outcome::Cancelled:
        return OvStatus::failure(tr("Cancelled."));
    case OvSegyHeaderScan::Outcome::Failed:
        return headers.status();
    case OvSegyHeaderScan::Outcome::Done:
        break;
    }
    finish(std::move(all));
    return {};
}

OvStatus OvSegyIndex::Private::scanFirstGather(const OvSegyFile& file, qint64 maxTraces)
{
    OvSegyColumns first(mapping, file.info().metresPerUnit);
    OvStatus status = file.locate({}, maxTraces);
    if (status)
        status = OvSegyHeaderScan(file, mapping).readFirstGather(maxTraces, &first);
    if (status)
        finish(std::move(first));
    return status;
}

void OvSegyIndex::Private::finish(OvSegyColumns&& all)
{
    all.finish();
    take(std::move(all));
}

void OvSegyIndex::Private::take(OvSegyColumns&& finished)
{
    columns = std::make_shared<const OvSegyColumns>(std::move(finished));
    grouping = OvSegyGrouping(*columns, order);
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
    return build(file, {}, progress);
}

OvStatus OvSegyIndex::build(const OvSegyFile& file, const OvTraceHeaderMapping& mapping,
                            const Progress& progress)
{
    d = std::make_unique<Private>();
    OvStatus status = mapping.validate(file.info().headerBytes());
    d->mapping = mapping;
    try {
        if (status)
            status = d->scan(file, progress);
    } catch (const std::bad_alloc&) {
        status = d->noMemory(file);
    }
    if (!status)
        d = std::make_unique<Private>();
    return status;
}

OvStatus OvSegyIndex::buildFirstGather(const OvSegyFile& file, qint64 maxTraces)
{
    return buildFirstGather(file, {}, maxTraces);
}

OvStatus OvSegyIndex::buildFirstGather(const OvSegyFile& file, const OvTraceHeaderMapping& mapping,
                                       qint64 maxTraces)
{
    d = std::make_unique<Private>();
    d->mapping = mapping;
    OvStatus status = mapping.validate(file.info().headerBytes());
    if (status)
        status = d->scanFirstGather(file, maxTraces);
    if (!status)
        d = std::make_unique<Private>();
    return status;
}

OvSegyIndex OvSegyIndex::regrouped(const OvGatherOrder& order) const
{
    OvSegyIndex result;
    result.d->mapping = d->mapping;
    result.d->order = order;
    result.d->columns = d->columns;
    const bool sameGathers =
        order.key == d->order.key && (order.key != OvGatherKey::OffsetBin || order == d->order);
    result.d->grouping = sameGathers ? d->grouping : OvSegyGrouping(*d->columns, order);
    return result;
}

const OvGatherOrder& OvSegyIndex::order() const
{
    return d->order;
}

const OvTraceHeaderMapping& OvSegyIndex::mapping() const
{
    return d->mapping;
}

qint64 OvSegyIndex::traceCount() const
{
    return d->columns->size();
}

int OvSegyIndex::gatherCount() const
{
    return d->grouping.gatherCount();
}

qint32 OvSegyIndex::fieldRecord(int gather) const
{
    return d->hasGather(gather) ? d->columns->fieldRecord(d->firstTrace(gather)) : 0;
}

int OvSegyIndex::gatherTraceCount(int gather) const
{
    return d->hasGather(gather) ? d->grouping.traceCount(gather) : 0;
}

int OvSegyIndex::gatherOfFieldRecord(qint32 fieldRecord) const
{
    return d->order.key == OvGatherKey::FieldRecord
               ? d->grouping.gatherOfFieldRecord(*d->columns, fieldRecord)
               : -1;
}

int OvSegyIndex::gatherOfTrace(qint64 trace) const
{
    return trace >= 0 && trace < traceCount() ? d->grouping.gatherOfTrace(trace) : -1;
}

std::vector<qint64> OvSegyIndex::gatherTraces(int gather) const
{
    std::vector<qint64> traces;
    const int count = gatherTraceCount(gather);
    traces.reserve(static_cast<std::size_t>(count));
    if (d->order.sort == OvGatherSort::FileOrder) {
        for (int row = 0; row < count; ++row)
            traces.push_back(d->grouping.trace(gather, row));
        return traces;
    }
    for (const OvTraceHeader& header : d->headers(gather))
        traces.push_back(header.traceIndex);
    return traces;
}

OvGather OvSegyIndex::gatherHeaders(const OvSegyFile& file, int gather) const
{
    OvGather result;
    result.ordinal = gather;
    result.fieldRecord = fieldRecord(gather);
    result.sampleCount = file.info().sampleCount;
    result.intervalMs = file.info().intervalMs();
    result.headers = d->headers(gather);
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

void OvSegyIndex::prefetchGather(const OvSegyFile& file, int gather) const
{
    // Traces far apart are each a request of their own: no more of them than a screen shows.
    constexpr int mostRanges = 1024;
    constexpr qint64 mostBytes = 64LL << 20;
    qint64 bytes = 0;
    int ranges = 0;
    const int count = gatherTraceCount(gather);
    for (int row = 0; row < count && ranges < mostRanges && bytes < mostBytes; ++ranges) {
        const qint64 first = d->grouping.trace(gather, row);
        qint64 end = first;
        for (; row < count && d->grouping.trace(gather, row) == end; ++row)
            ++end;
        const qint64 length = endOf(file, end - 1) - file.position(first);
        file.bytes().prefetch(file.position(first), qMin(length, mostBytes - bytes));
        bytes += length;
    }
}

float OvSegyIndex::minimumOffset() const
{
    return d->columns->minimumOffset();
}

float OvSegyIndex::maximumOffset() const
{
    return d->columns->maximumOffset();
}

qint64 OvSegyIndex::memoryBytes() const
{
    return static_cast<qint64>(sizeof(Private)) + d->columns->bytes() + d->grouping.bytes();
}

#include "OvSeismic/segy/OvSegyIndex_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

double sortValue(const OvTraceHeader& header, OvGatherSort sort)
{
    switch (sort) {
    case OvGatherSort::FileOrder:
        break;
    case OvGatherSort::Channel:
        return header.channel;
    case OvGatherSort::Offset:
        return double(header.offset);
    case OvGatherSort::AbsoluteOffset:
        return std::abs(double(header.offset));
    case OvGatherSort::FieldRecord:
        return header.fieldRecord;
    case OvGatherSort::Cdp:
        return header.cdp;
    case OvGatherSort::SourceX:
        return header.sourceX;
    case OvGatherSort::SourceY:
        return header.sourceY;
    case OvGatherSort::ReceiverX:
        return header.receiverX;
    case OvGatherSort::ReceiverY:
        return header.receiverY;
    case OvGatherSort::SourceElevation:
        return double(header.sourceElevation);
    case OvGatherSort::ReceiverElevation:
        return double(header.receiverElevation);
    case OvGatherSort::Delay:
        return double(header.delayMs);
    case OvGatherSort::TraceId:
        return header.traceId;
    }
    return double(header.traceIndex);
}

QString number(double value)
{
    constexpr int digits = 12;
    return QString::number(value, 'g', digits);
}

} // namespace

std::vector<OvTraceHeader> OvSegyIndex::Private::headers(int gather) const
{
    std::vector<OvTraceHeader> result;
    if (!hasGather(gather))
        return result;
    const int traces = grouping.traceCount(gather);
    result.reserve(static_cast<std::size_t>(traces));
    for (int position = 0; position < traces; ++position) {
        result.push_back(columns->header(grouping.trace(gather, position)));
        if (!columns->hasChannels())
            result.back().channel = position + 1;
    }
    sortRows(&result);
    return result;
}

void OvSegyIndex::Private::sortRows(std::vector<OvTraceHeader>* headers) const
{
    if (order.sort == OvGatherSort::FileOrder)
        return;
    // What is no number comes last, in either direction.
    const auto less = [this](const OvTraceHeader& a, const OvTraceHeader& b) {
        const double left = sortValue(a, order.sort);
        const double right = sortValue(b, order.sort);
        if (std::isnan(left) || std::isnan(right))
            return !std::isnan(left) && std::isnan(right);
        return order.descending ? right < left : left < right;
    };
    std::stable_sort(headers->begin(), headers->end(), less);
}

double OvSegyIndex::keyValue(int gather) const
{
    constexpr double unknown = std::numeric_limits<double>::quiet_NaN();
    if (!d->hasGather(gather))
        return unknown;
    const qint64 trace = d->firstTrace(gather);
    switch (d->order.key) {
    case OvGatherKey::FieldRecord:
        return d->columns->fieldRecord(trace);
    case OvGatherKey::Cdp:
        return d->columns->cdp(trace);
    case OvGatherKey::OffsetBin:
        return d->binStart(trace);
    case OvGatherKey::Source:
    case OvGatherKey::Receiver:
        break;
    }
    return gather + 1;
}

int OvSegyIndex::gatherOfKey(double value) const
{
    using Limits = std::numeric_limits<qint32>;
    const bool whole = value >= double(Limits::min()) && value <= double(Limits::max()) &&
                       !(std::floor(value) < value);
    switch (d->order.key) {
    case OvGatherKey::FieldRecord:
        return whole ? gatherOfFieldRecord(static_cast<qint32>(value)) : -1;
    case OvGatherKey::Cdp:
        return whole ? d->gatherOfSortedKey(static_cast<qint64>(value)) : -1;
    case OvGatherKey::OffsetBin:
        return d->gatherOfSortedKey(
            OvSegyGrouping::binOf(static_cast<float>(value), OvSegyGrouping::binWidth(d->order)));
    case OvGatherKey::Source:
    case OvGatherKey::Receiver:
        break;
    }
    return whole && d->hasGather(static_cast<int>(value) - 1) ? static_cast<int>(value) - 1 : -1;
}

qint64 OvSegyIndex::Private::sortedKey(qint64 trace) const
{
    return order.key == OvGatherKey::Cdp
               ? columns->cdp(trace)
               : OvSegyGrouping::binOf(columns->offset(trace), OvSegyGrouping::binWidth(order));
}

int OvSegyIndex::Private::gatherOfSortedKey(qint64 key) const
{
    int low = 0;
    int high = grouping.gatherCount();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (sortedKey(firstTrace(middle)) < key)
            low = middle + 1;
        else
            high = middle;
    }
    return hasGather(low) && sortedKey(firstTrace(low)) == key ? low : -1;
}

double OvSegyIndex::Private::binStart(qint64 trace) const
{
    if (std::isnan(columns->offset(trace)))
        return std::numeric_limits<double>::quiet_NaN();
    return static_cast<double>(sortedKey(trace)) * OvSegyGrouping::binWidth(order);
}

QString OvSegyIndex::gatherLabel(int gather) const
{
    if (!d->hasGather(gather))
        return {};
    using Columns = OvSegyColumns;
    switch (d->order.key) {
    case OvGatherKey::OffsetBin:
        return d->binLabel(gather);
    case OvGatherKey::Source:
        return d->positionLabel(gather, Columns::SourceX, Columns::SourceY);
    case OvGatherKey::Receiver:
        return d->positionLabel(gather, Columns::ReceiverX, Columns::ReceiverY);
    case OvGatherKey::FieldRecord:
    case OvGatherKey::Cdp:
        break;
    }
    return number(keyValue(gather));
}

QString OvSegyIndex::Private::binLabel(int gather) const
{
    const double start = binStart(firstTrace(gather));
    if (std::isnan(start))
        return tr("unknown offset");
    return tr("%1 - %2 m").arg(number(start), number(start + OvSegyGrouping::binWidth(order)));
}

QString OvSegyIndex::Private::positionLabel(int gather, OvSegyColumns::Column x,
                                            OvSegyColumns::Column y) const
{
    const qint64 trace = firstTrace(gather);
    return tr("%1: %2, %3", "number of a position: X, Y")
        .arg(QString::number(gather + 1), number(columns->coordinate(x, trace)),
             number(columns->coordinate(y, trace)));
}

QString OvSegyIndex::Private::joinedWarning() const
{
    if (grouping.rule() == OvSegyGrouping::Rule::SingleTraces)
        return tr("Every field record has one trace; all traces form one gather.");
    if (grouping.rule() != OvSegyGrouping::Rule::NoKeys)
        return {};
    switch (order.key) {
    case OvGatherKey::FieldRecord:
        return tr("The file has no field records; all traces form one gather.");
    case OvGatherKey::Source:
        return tr("The file has no source positions; all traces form one gather.");
    case OvGatherKey::Receiver:
        return tr("The file has no receiver positions; all traces form one gather.");
    case OvGatherKey::Cdp:
        return tr("The file has no CDP numbers; all traces form one gather.");
    case OvGatherKey::OffsetBin:
        break;
    }
    // That offsets are unknown is said anyway.
    return {};
}

QStringList OvSegyIndex::warnings() const
{
    QStringList sentences;
    if (traceCount() > 0 && d->columns->offsetsAreUnknown())
        sentences +=
            Private::tr("The file has no offsets and no usable coordinates; offsets are unknown.");
    if (d->columns->offsetsAreComputed())
        sentences +=
            Private::tr("The file has no offsets; they are computed from the coordinates.");
    const QString joined = d->joinedWarning();
    if (!joined.isEmpty())
        sentences += joined;
    return sentences;
}

#include "OvSeismic/segy/OvSegyGrouping.h"

#include "OvSeismic/segy/OvSegyColumns.h"
#include "OvSeismic/segy/OvSegyGroupingBuilder.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace {

constexpr double farthestBin = 1e15;

using Position = OvSegyGroupingBuilder::Position;

Position positionOf(const OvSegyColumns& columns, qint64 trace, OvSegyColumns::Column x,
                    OvSegyColumns::Column y)
{
    // What is no number would equal nothing, not even itself.
    const auto known = [](double value) { return std::isfinite(value) ? value : 0.0; };
    return {known(columns.coordinate(x, trace)), known(columns.coordinate(y, trace))};
}

} // namespace

OvSegyGrouping::OvSegyGrouping(const OvSegyColumns& columns, const OvGatherOrder& order)
    : m_size(columns.size())
{
    if (m_size == 0)
        return;
    OvSegyGroupingBuilder builder(m_size);
    using Columns = OvSegyColumns;
    switch (order.key) {
    case OvGatherKey::FieldRecord:
        builder.build([&](qint64 trace) { return qint64(columns.fieldRecord(trace)); }, false);
        break;
    case OvGatherKey::Cdp:
        builder.build([&](qint64 trace) { return qint64(columns.cdp(trace)); }, true);
        break;
    case OvGatherKey::OffsetBin:
        builder.build([&, width = binWidth(order)](
                          qint64 trace) { return binOf(columns.offset(trace), width); },
                      true);
        break;
    case OvGatherKey::Source:
        builder.build(
            [&](qint64 trace) {
                return positionOf(columns, trace, Columns::SourceX, Columns::SourceY);
            },
            false);
        break;
    case OvGatherKey::Receiver:
        builder.build(
            [&](qint64 trace) {
                return positionOf(columns, trace, Columns::ReceiverX, Columns::ReceiverY);
            },
            false);
        break;
    }
    take(&builder, columns, order.key);
}

void OvSegyGrouping::take(OvSegyGroupingBuilder* builder, const OvSegyColumns& columns,
                          OvGatherKey key)
{
    const bool byRecord = key == OvGatherKey::FieldRecord;
    const qint64 gathers = builder->gatherCount();
    if (gathers == 1 && builder->saysNothing())
        m_rule = Rule::NoKeys;
    if (byRecord && m_size > 1 && gathers == m_size)
        m_rule = Rule::SingleTraces;
    if (gathers == 1 || m_rule == Rule::SingleTraces) {
        m_starts = {0};
        return;
    }
    builder->layOut(&m_starts, &m_traces, &m_gathers);
    if (byRecord)
        sortByRecord(columns);
}

void OvSegyGrouping::sortByRecord(const OvSegyColumns& columns)
{
    const auto less = [&](quint32 a, quint32 b) {
        return columns.fieldRecord(trace(static_cast<int>(a), 0)) <
               columns.fieldRecord(trace(static_cast<int>(b), 0));
    };
    m_byRecord.resize(m_starts.size());
    std::iota(m_byRecord.begin(), m_byRecord.end(), 0U);
    if (std::is_sorted(m_byRecord.begin(), m_byRecord.end(), less))
        m_byRecord = {};
    else
        std::sort(m_byRecord.begin(), m_byRecord.end(), less);
}

int OvSegyGrouping::gatherOfFieldRecord(const OvSegyColumns& columns, qint32 fieldRecord) const
{
    const auto gatherAt = [this](int place) {
        return m_byRecord.empty() ? place : static_cast<int>(m_byRecord[at(place)]);
    };
    const auto recordOf = [&](int gather) { return columns.fieldRecord(trace(gather, 0)); };
    int low = 0;
    int high = gatherCount();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (recordOf(gatherAt(middle)) < fieldRecord)
            low = middle + 1;
        else
            high = middle;
    }
    const int gather = low < gatherCount() ? gatherAt(low) : -1;
    return gather >= 0 && recordOf(gather) == fieldRecord ? gather : -1;
}

int OvSegyGrouping::gatherOfTrace(qint64 trace) const
{
    if (m_gathers.size() > 0)
        return static_cast<int>(m_gathers.at(trace));
    const auto after = std::upper_bound(m_starts.begin(), m_starts.end(), trace);
    return static_cast<int>(after - m_starts.begin()) - 1;
}

double OvSegyGrouping::binWidth(const OvGatherOrder& order)
{
    const bool usable = std::isfinite(order.binWidthM) && order.binWidthM > 0.0;
    return usable ? order.binWidthM : OvGatherOrder().binWidthM;
}

qint64 OvSegyGrouping::binOf(float offset, double width)
{
    if (std::isnan(offset))
        return std::numeric_limits<qint64>::max();
    return static_cast<qint64>(std::min(std::abs(double(offset)) / width, farthestBin));
}

qint64 OvSegyGrouping::bytes() const
{
    const std::size_t own = (m_starts.capacity() + m_byRecord.capacity()) * sizeof(quint32);
    return static_cast<qint64>(own) + m_traces.bytes() + m_gathers.bytes();
}

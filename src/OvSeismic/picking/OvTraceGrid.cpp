#include "OvSeismic/picking/OvTraceGrid.h"

#include "OvSeismic/dsp/OvExtent.h"
#include "OvSeismic/dsp/OvFir.h"
#include "OvSeismic/dsp/OvLanes.h"
#include "OvSeismic/dsp/OvVectorClones.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace {

// Means of `every` samples each.
void takeMeans(const float* samples, int every, int count, float* out)
{
    const float share = 1.0F / static_cast<float>(every);
    for (int i = 0; i < count; ++i, samples += every)
        out[i] = share * std::accumulate(samples, samples + every, 0.0F);
}

// Sum of what samples differ from an origin.
template <int bytes>
OV_LANES_INLINE float differences(const float* samples, float origin, int count)
{
    constexpr int lanes = 16;
    using Lanes = OvLanes<lanes, float, bytes>;
    const Lanes zero = Lanes::all(origin);
    Lanes sums = Lanes::all(0.0F);
    int i = 0;
    for (; i + lanes <= count; i += lanes)
        sums += Lanes::from(samples + i) - zero;
    float rest = 0.0F;
    for (; i < count; ++i)
        rest += samples[i] - origin;
    return sums.sum() + rest;
}

OV_LANES_VERSIONS(float, sumDifferences, (const float* samples, float origin, int count),
                  differences, (samples, origin, count))

OV_VECTOR_CLONES
void takeOff(const float* in, float origin, float mean, int count, float* out)
{
    for (int i = 0; i < count; ++i)
        out[i] = in[i] - origin - mean;
}

// Takes the mean off; in and out may be the same. The first point goes first, so that an offset
// does not eat up the digits.
void centre(const float* in, int count, float* out)
{
    if (count < 1)
        return;
    const float origin = in[0];
    takeOff(in, origin, sumDifferences(in, origin, count) / static_cast<float>(count), count, out);
}

} // namespace

int OvTraceGrid::lengthOf(const OvGather& gather, int row)
{
    const float* samples = gather.trace(row);
    int length = gather.sampleCount;
    while (length > 0 && samples[length - 1] == 0.0F)
        --length;
    return length;
}

void OvTraceGrid::take(const float* samples, int count, int every, Span* span, float* out) const
{
    const int taken = std::max(std::min(count / every, m_points - span->first), 0);
    span->last = span->first + taken;
    float* points = out + span->first;
    std::fill(out, points, 0.0F);
    std::fill(points + taken, out + m_points, 0.0F);
    if (every > 1)
        takeMeans(samples, every, taken, points);
    centre(every > 1 ? points : samples, taken, points);
    span->largest = OvExtent::of(points, taken).amount();
}

OvTraceGrid::Clock OvTraceGrid::clockOf(const OvGather& gather, const OvTraceChain& chain)
{
    constexpr double mostRecords = 2.0;
    std::vector<double> starts;
    starts.reserve(chain.rows.size());
    for (const int row : chain.rows)
        starts.push_back(gather.timeMs(row, 0.0));
    if (starts.empty())
        return {};
    std::sort(starts.begin(), starts.end());
    const double recordMs = gather.sampleCount * gather.intervalMs;
    const double usual = starts[starts.size() / 2];
    const double startMs = std::max(starts.front(), usual - mostRecords * recordMs);
    return {startMs, std::min(starts.back(), usual + mostRecords * recordMs) + recordMs};
}

void OvTraceGrid::load(const OvGather& gather, const OvTraceChain& chain, int every,
                       double lengthMs)
{
    m_rows = chain.size();
    m_cables = chain.cables;
    m_stepMs = gather.intervalMs * every;
    const Clock clock = clockOf(gather, chain);
    const double wholeMs = clock.endMs - clock.startMs;
    const double usedMs = lengthMs > 0.0 ? std::min(lengthMs, wholeMs) : wholeMs;
    m_points = std::max(static_cast<int>(usedMs / m_stepMs), 1);
    m_spans.assign(static_cast<std::size_t>(m_rows), {});
    m_values.resize(static_cast<std::size_t>(m_rows) * static_cast<std::size_t>(m_points));
    for (int i = 0; i < m_rows; ++i) {
        Span& span = m_spans[static_cast<std::size_t>(i)];
        const int source = chain.rows[static_cast<std::size_t>(i)];
        // A point stands in the middle of the samples that it averages.
        const double ownMs = gather.timeMs(source, 0.5 * (every - 1));
        const long long first = std::llround((ownMs - clock.startMs) / m_stepMs);
        const bool isOnClock = first >= 0 && first < m_points;
        span.first = isOnClock ? static_cast<int>(first) : 0;
        span.startMs = ownMs - span.first * m_stepMs;
        take(gather.trace(source), isOnClock ? lengthOf(gather, source) : 0, every, &span, row(i));
    }
}

void OvTraceGrid::takeFiltered(const OvTraceGrid& from, const std::vector<float>& taps)
{
    m_rows = from.m_rows;
    m_points = from.m_points;
    m_stepMs = from.m_stepMs;
    m_cables = from.m_cables;
    m_spans = from.m_spans;
    m_values.resize(from.m_values.size());
    for (int i = 0; i < m_rows; ++i) {
        Span& span = m_spans[static_cast<std::size_t>(i)];
        if (span.last > span.first)
            OvFir::apply(taps, 0, from.row(i) + span.first, span.last - span.first,
                         row(i) + span.first);
        // What a filter makes of the edge is no signal.
        const int settled = std::min(span.first + static_cast<int>(taps.size()) - 1, span.last);
        std::fill(row(i), row(i) + settled, 0.0F);
        std::fill(row(i) + span.last, row(i) + m_points, 0.0F);
        span.largest = OvExtent::of(row(i) + span.first, span.last - span.first).amount();
    }
}

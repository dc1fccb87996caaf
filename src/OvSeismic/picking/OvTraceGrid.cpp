#include "OvSeismic/picking/OvTraceGrid.h"

#include "OvSeismic/dsp/OvFir.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <cmath>
#include <limits>

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
    const int taken = std::min(count / every, m_points - span->first);
    span->last = span->first + std::max(taken, 0);
    const float share = 1.0F / static_cast<float>(every);
    double sum = 0.0;
    float* point = out + span->first;
    for (int i = 0; i < taken; ++i, samples += every) {
        float value = samples[0];
        for (int k = 1; k < every; ++k)
            value += samples[k];
        point[i] = value * share;
        sum += static_cast<double>(point[i]);
    }
    const float mean = taken > 0 ? static_cast<float>(sum / taken) : 0.0F;
    float largest = 0.0F;
    for (int i = 0; i < taken; ++i) {
        point[i] -= mean;
        largest = std::max(largest, std::abs(point[i]));
    }
    span->largest = largest;
}

void OvTraceGrid::load(const OvGather& gather, const OvTraceChain& chain, int every,
                       double lengthMs)
{
    m_rows = chain.size();
    m_cables = chain.cables;
    m_stepMs = gather.intervalMs * every;
    double startMs = std::numeric_limits<double>::infinity();
    double latestMs = -startMs;
    for (const int row : chain.rows) {
        startMs = std::min(startMs, gather.timeMs(row, 0.0));
        latestMs = std::max(latestMs, gather.timeMs(row, 0.0));
    }
    const double wholeMs = latestMs - startMs + gather.sampleCount * gather.intervalMs;
    const double usedMs = lengthMs > 0.0 ? std::min(lengthMs, wholeMs) : wholeMs;
    m_points = std::max(static_cast<int>(usedMs / m_stepMs), 1);
    m_spans.assign(static_cast<std::size_t>(m_rows), {});
    m_values.assign(static_cast<std::size_t>(m_rows) * static_cast<std::size_t>(m_points), 0.0F);
    for (int i = 0; i < m_rows; ++i) {
        Span& span = m_spans[static_cast<std::size_t>(i)];
        const int source = chain.rows[static_cast<std::size_t>(i)];
        // A point stands in the middle of the samples that it averages.
        const double ownMs = gather.timeMs(source, 0.5 * (every - 1));
        span.first =
            std::min(static_cast<int>(std::lround((ownMs - startMs) / m_stepMs)), m_points);
        span.startMs = ownMs - span.first * m_stepMs;
        take(gather.trace(source), lengthOf(gather, source), every, &span, row(i));
    }
}

void OvTraceGrid::takeFiltered(const OvTraceGrid& from, const std::vector<float>& taps)
{
    m_rows = from.m_rows;
    m_points = from.m_points;
    m_stepMs = from.m_stepMs;
    m_cables = from.m_cables;
    m_spans = from.m_spans;
    m_values.assign(from.m_values.size(), 0.0F);
    for (int i = 0; i < m_rows; ++i) {
        Span& span = m_spans[static_cast<std::size_t>(i)];
        if (span.last > span.first)
            OvFir::apply(taps, 0, from.row(i) + span.first, span.last - span.first,
                         row(i) + span.first);
        // What a filter makes of the edge is no signal.
        const int settled = std::min(span.first + static_cast<int>(taps.size()) - 1, span.last);
        std::fill(row(i) + span.first, row(i) + settled, 0.0F);
        span.largest = 0.0F;
        for (int k = span.first; k < span.last; ++k)
            span.largest = std::max(span.largest, std::abs(row(i)[k]));
    }
}

#include "OvSeismic/picking/OvPickPlan.h"

#include "OvSeismic/picking/OvPickParameters.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <cmath>

namespace {

struct Span
{
    double startMs = 0.0;
    double endMs = 0.0;
};

Span searchedSpan(const OvGather& gather, const OvTraceChain& chain, int processingLengthMs)
{
    const double length = (gather.sampleCount - 1) * gather.intervalMs;
    Span span{gather.timeMs(chain.rows.front(), 0.0), -1.0};
    for (const int row : chain.rows) {
        span.startMs = std::min(span.startMs, gather.timeMs(row, 0.0));
        span.endMs = std::max(span.endMs, gather.timeMs(row, 0.0) + length);
    }
    if (processingLengthMs > 0)
        span.endMs = std::min(span.endMs, span.startMs + processingLengthMs);
    return span;
}

int pointsIn(double lengthMs, double stepMs)
{
    return std::max(static_cast<int>(std::lround(lengthMs / stepMs)), 1);
}

} // namespace

int OvPickPlan::nearestPoint(double timeMs) const
{
    return std::clamp(static_cast<int>(std::lround((timeMs - startMs) / stepMs)), 0, points - 1);
}

OvPickPlan OvPickPlan::of(const OvGather& gather, const OvTraceChain& chain, double periodMs,
                          const OvPickParameters& parameters)
{
    OvPickPlan plan;
    if (chain.rows.empty() || !(gather.intervalMs > 0.0))
        return plan;
    const Span span = searchedSpan(gather, chain, parameters.processingLengthMs);
    constexpr double pointsAPeriod = 10.0;
    constexpr double mostPoints = 4096.0;
    plan.periodMs = periodMs;
    plan.startMs = span.startMs;
    plan.stepMs = std::max({periodMs / pointsAPeriod, gather.intervalMs,
                            (span.endMs - span.startMs) / (mostPoints - 2.0)});
    plan.points = static_cast<int>((span.endMs - span.startMs) / plan.stepMs) + 1;
    // Nothing arrives before the shot, whatever was recorded ahead of it.
    plan.earliest =
        std::clamp(static_cast<int>(std::floor(-span.startMs / plan.stepMs)), 0, plan.points - 1);
    const double quick = parameters.quickSearchWindowMs;
    plan.before = pointsIn(quick > 0.0 ? quick : 1.5 * periodMs, plan.stepMs);
    plan.after = pointsIn(quick > 0.0 ? quick : periodMs, plan.stepMs);
    plan.tuningMs = parameters.tuningSearchWindowMs > 0
                        ? static_cast<double>(parameters.tuningSearchWindowMs)
                        : 0.6 * periodMs;
    plan.leastAmplitude = parameters.amplitudeThreshold;
    return plan;
}

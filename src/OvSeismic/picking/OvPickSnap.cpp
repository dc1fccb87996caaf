#include "OvSeismic/picking/OvPickSnap.h"

#include "OvSeismic/dsp/OvDominantPeriod.h"
#include "OvSeismic/dsp/OvFirstSwing.h"
#include "OvSeismic/dsp/OvTraceView.h"
#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double waveMs = 100.0; // enough of an arrival to tell its period
constexpr double shortestPeriod = 4.0;
constexpr double longestPeriod = 60.0; // samples
constexpr double clearOfNoise = 3.0;
constexpr double peakAfterOnset = 0.4; // periods
constexpr double leastShare = 0.4;     // of the largest deflection in the window

bool isUsable(const OvGather& gather, int row)
{
    if (gather.headers[static_cast<std::size_t>(row)].isDead() || gather.sampleCount < 2)
        return false;
    const float* samples = gather.trace(row);
    return std::all_of(samples, samples + gather.sampleCount,
                       [](float value) { return std::isfinite(value); });
}

double periodAt(const float* samples, int count, double first, double last)
{
    const int from = std::clamp(static_cast<int>(first), 0, count);
    const int to = std::clamp(static_cast<int>(last), from, count);
    return std::clamp(ovDominantPeriod(samples, from, to), shortestPeriod, longestPeriod);
}

// The onset as a sample, or NaN.
double onsetNear(const float* samples, int count, double centre, double half, double wave)
{
    const double period = periodAt(samples, count, centre - half, centre + half + wave);
    OvFirstSwing::Window window;
    window.first = static_cast<int>(std::floor(centre - half));
    window.last = static_cast<int>(std::floor(centre + half + peakAfterOnset * period)) + 1;
    window.quiet = static_cast<int>(period) + 1;
    window.share = leastShare;
    const OvTraceView trace(samples, count);
    const auto swing = OvFirstSwing::find(trace, window, OvFirstSwing::Sign::Either);
    if (!swing.found())
        return NAN;
    const double height = std::abs(static_cast<double>(samples[swing.peak]) - swing.rest);
    const double noise = std::sqrt(trace.variance(window.first - window.quiet, window.first));
    return height < clearOfNoise * noise ? NAN : OvFirstSwing::onset(samples, swing);
}

} // namespace

double OvPickSnap::snap(const OvGather& gather, int row, double timeMs, double windowMs)
{
    const double last = gather.sampleCount - 1;
    const double clicked = std::clamp(gather.sampleAt(row, timeMs), 0.0, std::max(0.0, last));
    if (windowMs <= 0.0 || !isUsable(gather, row))
        return gather.timeMs(row, clicked);
    const double half = windowMs / gather.intervalMs;
    const double onset =
        onsetNear(gather.trace(row), gather.sampleCount, clicked, half, waveMs / gather.intervalMs);
    const bool isNear = std::abs(onset - clicked) <= half && onset >= 0.0 && onset <= last;
    return gather.timeMs(row, isNear ? onset : clicked);
}

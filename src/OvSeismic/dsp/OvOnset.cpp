#include "OvSeismic/dsp/OvOnset.h"

#include "OvSeismic/dsp/OvTraceSums.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// Fewer samples on one side say nothing about a variance.
constexpr int leastSide = 3;

double criterion(const OvTraceSums& trace, int from, int split, int to, double floor)
{
    return (split - from) * std::log(std::max(trace.variance(from, split), floor)) +
           (to - split) * std::log(std::max(trace.variance(split, to), floor));
}

} // namespace

double OvOnset::parabolaShift(double before, double middle, double after)
{
    const double curvature = before - 2.0 * middle + after;
    if (std::abs(curvature) <= std::numeric_limits<double>::min())
        return 0.0;
    return std::clamp(0.5 * (before - after) / curvature, -0.5, 0.5);
}

double OvOnset::aic(const OvTraceSums& trace, const Window& window, double floor)
{
    const int from = std::max(window.from, 0);
    const int to = std::min(window.to, trace.size());
    const int first = std::max(window.first, from + leastSide);
    const int last = std::min(window.last, to - leastSide + 1);
    const double least = std::max(floor, std::numeric_limits<double>::min());
    if (first >= last)
        return -1.0;
    int best = first;
    double bestValue = std::numeric_limits<double>::infinity();
    double worstValue = -bestValue;
    for (int split = first; split < last; ++split) {
        const double value = criterion(trace, from, split, to, least);
        worstValue = std::max(worstValue, value);
        if (value < bestValue) {
            bestValue = value;
            best = split;
        }
    }
    if (!(worstValue > bestValue))
        return -1.0;
    if (best == first || best == last - 1)
        return best;
    return best + parabolaShift(criterion(trace, from, best - 1, to, least), bestValue,
                                criterion(trace, from, best + 1, to, least));
}

#include "OvSeismic/picking/OvPhaseSearch.h"

#include "OvSeismic/picking/OvPickCourse.h"
#include "OvSeismic/picking/OvTraceGrid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();
constexpr double searchedPeriods = 1.3; // behind the onset
constexpr double leastShare = 0.4;      // of the largest deflection there
constexpr double ownReach = 1.0 / 7.0;  // periods

// The vertex of the parabola through a sample and its neighbours.
double vertex(const float* samples, int at)
{
    const auto left = static_cast<double>(samples[at - 1]);
    const auto here = static_cast<double>(samples[at]);
    const auto right = static_cast<double>(samples[at + 1]);
    const double bend = left - 2.0 * here + right;
    return bend != 0.0 ? at + 0.5 * (left - right) / bend : at;
}

double crossing(const float* samples, int at)
{
    const auto here = static_cast<double>(samples[at]);
    const auto next = static_cast<double>(samples[at + 1]);
    return here != next ? at + here / (here - next) : at;
}

bool isExtremum(const float* samples, int at, float sign)
{
    const float here = sign * samples[at];
    return here > 0.0F && here >= sign * samples[at - 1] && here > sign * samples[at + 1];
}

bool isCrossing(const float* samples, int at)
{
    return (samples[at] > 0.0F) != (samples[at + 1] > 0.0F);
}

float signOf(OvPickPhase phase)
{
    return phase == OvPickPhase::Trough ? -1.0F : 1.0F;
}

// First extremum of either or one sign that is no ripple; -1 without one.
int firstSwing(const std::vector<float>& samples, int from, int to, bool either, float sign)
{
    float largest = 0.0F;
    for (int i = from; i < to; ++i)
        largest = std::max(largest, std::abs(samples[static_cast<std::size_t>(i)]));
    for (int i = std::max(from, 1); i + 1 < to; ++i) {
        const float value = samples[static_cast<std::size_t>(i)];
        const float own = either ? (value < 0.0F ? -1.0F : 1.0F) : sign;
        if (own * value >= static_cast<float>(leastShare) * largest &&
            isExtremum(samples.data(), i, own))
            return i;
    }
    return -1;
}

// Distance of the phase from the onset on a stack, points.
double onStack(const OvArrivalStack& stack, double period, OvPickPhase phase)
{
    const std::vector<float>& samples = stack.samples();
    const int to = std::min(stack.origin() + static_cast<int>(searchedPeriods * period) + 2,
                            static_cast<int>(samples.size()));
    const bool zero = phase == OvPickPhase::ZeroCrossing;
    int at = firstSwing(samples, stack.origin(), to, zero, signOf(phase));
    if (at < 0)
        return none;
    if (!zero)
        return vertex(samples.data(), at) - stack.origin();
    while (at + 1 < to && !isCrossing(samples.data(), at))
        ++at;
    return at + 1 < to ? crossing(samples.data(), at) - stack.origin() : none;
}

double onTrace(const OvTraceGrid& grid, int row, float sign, double point, double reach,
               OvPickPhase phase)
{
    const float* samples = grid.row(row);
    const int from = std::max(static_cast<int>(std::ceil(point - reach)), 1);
    const int to = std::min(static_cast<int>(point + reach) + 1, grid.points() - 1);
    double best = point;
    double least = reach;
    for (int i = from; i < to; ++i) {
        const bool zero = phase == OvPickPhase::ZeroCrossing;
        if (zero ? !isCrossing(samples, i) : !isExtremum(samples, i, sign * signOf(phase)))
            continue;
        const double found = zero ? crossing(samples, i) : vertex(samples, i);
        if (std::abs(found - point) <= least) {
            least = std::abs(found - point);
            best = found;
        }
    }
    return best;
}

} // namespace

std::vector<double> OvPhaseSearch::find(const OvTraceGrid& grid,
                                        const std::vector<OvArrivalStack::Member>& members,
                                        double period, OvPickPhase phase)
{
    std::vector<double> points;
    std::vector<double> distances;
    points.reserve(members.size());
    for (const OvArrivalStack::Member& member : members)
        points.push_back(member.point);
    if (phase == OvPickPhase::Onset)
        return points;
    OvArrivalStack stack;
    stack.load(grid, members, period);
    double last = 0.25 * period;
    for (int row = 0; row < static_cast<int>(members.size()); ++row) {
        stack.stack(row);
        const double found = onStack(stack, period, phase);
        last = std::isfinite(found) ? found : last;
        distances.push_back(last);
    }
    distances = OvPickCourse::runningMedians(distances, 4, grid.cables());
    for (int row = 0; row < static_cast<int>(members.size()); ++row) {
        const auto at = static_cast<std::size_t>(row);
        points[at] = onTrace(grid, row, members[at].sign, points[at] + distances[at],
                             ownReach * period, phase);
    }
    return points;
}

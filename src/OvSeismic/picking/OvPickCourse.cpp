#include "OvSeismic/picking/OvPickCourse.h"

#include "OvSeismic/dsp/OvDominantPeriod.h"
#include "OvSeismic/dsp/OvRank.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

// The links about one that lead the same way along its cable: from the first to one behind the last
// trace that they join.
OvLinkRange sameWay(const OvTraceChain& chain, int count, int link, int reach)
{
    OvLinkRange range = ovNeighbours(chain.cables, count, link, reach);
    if (chain.away.empty())
        return range;
    const auto leads = [&](int other) { return chain.away[static_cast<std::size_t>(other)]; };
    int first = link;
    while (first - 1 > range.first && leads(first - 1) == leads(link))
        --first;
    int last = link + 1;
    while (last < range.last && leads(last) == leads(link))
        ++last;
    return {std::max(first - 1, range.first), last};
}

} // namespace

std::vector<double> OvPickCourse::slopes(const std::vector<double>& times,
                                         const OvTraceChain& chain)
{
    constexpr int mostReach = 4;
    const int count = static_cast<int>(times.size());
    std::vector<double> slopes(times.size(), 0.0);
    for (int i = 1; i < count; ++i) {
        const OvLinkRange way = sameWay(chain, count, i, mostReach);
        if (way.first == i)
            continue;
        std::array<double, mostReach> around{};
        for (int reach = 1; reach <= mostReach; ++reach) {
            const auto left = static_cast<std::size_t>(std::max(i - reach, way.first));
            const auto right = static_cast<std::size_t>(std::min(i + reach, way.last) - 1);
            around[static_cast<std::size_t>(reach - 1)] =
                (times[right] - times[left]) / static_cast<double>(right - left);
        }
        // The two in the middle, each of which is the smaller or larger one of a pair.
        const auto [a, b] = std::minmax(around[0], around[1]);
        const auto [c, d] = std::minmax(around[2], around[3]);
        slopes[static_cast<std::size_t>(i)] = 0.5 * (std::max(a, c) + std::min(b, d));
    }
    return slopes;
}

std::vector<double> OvPickCourse::strays(const std::vector<double>& times, int reach,
                                         const OvTraceChain& chain)
{
    const std::vector<double> slope = slopes(times, chain);
    std::vector<double> course(times.size(), 0.0); // what the slopes alone add up to
    for (std::size_t i = 1; i < times.size(); ++i)
        course[i] = course[i - 1] + slope[i];
    std::vector<double> strays(times.size(), 0.0);
    std::vector<double> around;
    const int count = static_cast<int>(times.size());
    for (int i = 0; i < count; ++i) {
        around.clear();
        const OvLinkRange near = ovNeighbours(chain.cables, count, i, reach);
        for (int k = near.first; k < near.last; ++k) {
            if (k != i)
                around.push_back(times[static_cast<std::size_t>(k)] -
                                 course[static_cast<std::size_t>(k)]);
        }
        if (around.empty())
            continue;
        const auto at = static_cast<std::size_t>(i);
        strays[at] = times[at] - course[at] - OvRank::median(around);
    }
    return strays;
}

std::vector<double> OvPickCourse::leads(const std::vector<double>& times,
                                        const std::vector<bool>& trusted, const OvTraceChain& chain)
{
    constexpr double none = -std::numeric_limits<double>::infinity();
    const std::vector<double> smooth = runningMedians(times, 3, chain.cables);
    std::vector<double> leads(times.size(), 0.0);
    // Each row hears of the latest time from the one before it on the way out.
    const auto hear = [&](std::size_t row, std::size_t nearer, bool isWayOut, double* latest) {
        *latest = isWayOut ? std::max(*latest, trusted[nearer] ? smooth[nearer] : none) : none;
        leads[row] = std::max(leads[row], *latest - times[row]);
    };
    double latest = none;
    for (std::size_t i = 1; i < times.size(); ++i)
        hear(i, i - 1, chain.away[i] > 0 && !chain.beginsCable(static_cast<int>(i)), &latest);
    latest = none;
    for (std::size_t i = times.size(); i-- > 1;)
        hear(i - 1, i, chain.away[i] < 0 && !chain.beginsCable(static_cast<int>(i)), &latest);
    return leads;
}

std::vector<double> OvPickCourse::runningMedians(const std::vector<double>& values, int reach,
                                                 const std::vector<int>& cables)
{
    std::vector<double> medians(values.size());
    const int count = static_cast<int>(values.size());
    for (int first = 0, last = 0; first < count; first = last) {
        last = ovNeighbours(cables, count, first, count).last; // of the cable
        OvRank::runningMedians(values.data() + first, last - first, reach, medians.data() + first);
    }
    return medians;
}

double OvPickCourse::periodBehind(const OvTraceGrid& grid, const std::vector<double>& starts,
                                  double length)
{
    std::vector<double> periods;
    for (int row = 0; row < grid.rows(); ++row) {
        const double start = starts[static_cast<std::size_t>(row)];
        const int first = std::max(static_cast<int>(start), 0);
        const int last = std::min(static_cast<int>(start + length) + 1, grid.points());
        const double period = ovDominantPeriod(grid.row(row), first, last);
        if (period > 0.0)
            periods.push_back(period);
    }
    return periods.empty() ? 0.0 : OvRank::median(periods);
}

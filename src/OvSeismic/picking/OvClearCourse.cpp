#include "OvSeismic/picking/OvClearCourse.h"

#include "OvSeismic/picking/OvPickCourse.h"
#include "OvSeismic/picking/OvPickGuide.h"
#include "OvSeismic/picking/OvTraceGrid.h"

#include <algorithm>

namespace {

constexpr double shortest = 4.0; // points

double wholePeriod(const OvTraceGrid& grid)
{
    const double longest = std::max(0.125 * grid.points(), shortest);
    const std::vector<double> starts(static_cast<std::size_t>(grid.rows()), 0.0);
    const double period = OvPickCourse::periodBehind(grid, starts, grid.points());
    return std::clamp(period, shortest, longest);
}

double arrivalPeriod(const OvTraceGrid& grid, const std::vector<double>& timesMs, double whole)
{
    std::vector<double> starts;
    for (int row = 0; row < grid.rows(); ++row)
        starts.push_back(grid.pointAt(row, timesMs[static_cast<std::size_t>(row)]));
    const double period = OvPickCourse::periodBehind(grid, starts, 2.5 * whole);
    return std::clamp(period > 0.0 ? period : whole, whole / 3.0, whole * 3.0);
}

} // namespace

OvClearCourse OvClearCourse::find(const OvGather& gather, const OvTraceChain& chain,
                                  const OvTraceGrid& grid, const OvPickParameters& parameters,
                                  const std::atomic<bool>* cancel)
{
    const auto planOf = [&](double period) {
        return OvPickPlan::of(gather, chain, period * grid.stepMs(), parameters);
    };
    const double whole = wholePeriod(grid);
    OvClearCourse course;
    course.plan = planOf(whole);
    course.timesMs = OvPickGuide::find(gather, chain, course.plan, {}, cancel);
    if (course.timesMs.empty())
        return course;
    course.plan = planOf(arrivalPeriod(grid, course.timesMs, whole));
    course.timesMs = OvPickGuide::find(gather, chain, course.plan, course.timesMs, cancel);
    return course;
}

#include "OvSeismic/picking/OvArrivalStack.h"

#include "OvSeismic/dsp/OvFir.h"
#include "OvSeismic/dsp/OvTraceView.h"
#include "OvSeismic/picking/OvPickCourse.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double reachPeriods = 2.0; // of the stack on either side

int rounded(double value)
{
    return static_cast<int>(std::lround(value));
}

} // namespace

// Weighted by the inverse of its size about the arrival, so that all traces count alike.
void OvArrivalStack::add(const OvTraceGrid& grid, const Member& member, int row, float weight,
                         double period)
{
    const float* samples = grid.row(row);
    const double start = member.point - m_origin;
    const int whole = static_cast<int>(std::floor(start));
    const auto part = static_cast<float>(start - whole);
    const int from = std::clamp(rounded(member.point), 0, grid.points());
    const int to = std::clamp(rounded(member.point + 1.2 * period), from, grid.points());
    const float energy = OvFir::dot(samples + from, samples + from, to - from);
    if (!(energy > 0.0F))
        return;
    const float scale = member.sign * weight / std::sqrt(energy);
    const int first = std::max(-whole, 0);
    const int last = std::min(static_cast<int>(m_samples.size()), grid.points() - 1 - whole);
    for (int i = first; i < last; ++i) {
        const float* at = samples + whole + i;
        m_samples[static_cast<std::size_t>(i)] += scale * (at[0] + part * (at[1] - at[0]));
    }
}

void OvArrivalStack::stack(const OvTraceGrid& grid, const std::vector<Member>& members, int row,
                           double period)
{
    m_origin = rounded(reachPeriods * period);
    m_samples.assign(2 * static_cast<std::size_t>(m_origin) + 1, 0.0F);
    const OvLinkRange near =
        ovNeighbours(grid.cables(), static_cast<int>(members.size()), row, m_neighbours);
    for (int other = near.first; other < near.last; ++other) {
        const Member& member = members[static_cast<std::size_t>(other)];
        const double away = static_cast<double>(other - row) / (0.6 * m_neighbours);
        const float weight = member.weight * static_cast<float>(std::exp(-away * away));
        if (weight > 0.0F)
            add(grid, member, other, weight, period);
    }
}

double OvArrivalStack::onset(double period, OvFirstSwing::Sign asked) const
{
    using OvFirstSwing::Sign;
    constexpr double muchWeaker = 0.55;
    const OvTraceView trace(m_samples.data(), static_cast<int>(m_samples.size()));
    OvFirstSwing::Window window;
    window.first = rounded(m_origin - 0.5 * period);
    window.last = rounded(m_origin + 0.9 * period);
    window.quiet = rounded(1.2 * period);
    window.share = 0.4;
    const auto height = [this](const OvFirstSwing::Swing& swing) {
        return static_cast<double>(m_samples[static_cast<std::size_t>(swing.peak)]) - swing.rest;
    };
    const float* samples = m_samples.data();
    auto swing = OvFirstSwing::find(trace, window, Sign::Either);
    if (!swing.found())
        return 0.0;
    if ((height(swing) > 0.0) != (asked == Sign::Positive)) {
        const auto other = OvFirstSwing::find(trace, window, asked);
        if (other.found() && other.peak > swing.peak &&
            std::abs(height(swing)) < muchWeaker * std::abs(height(other)))
            swing = other;
    }
    return OvFirstSwing::onset(samples, swing) - m_origin;
}

std::vector<double> OvArrivalStack::onsets(const OvTraceGrid& grid,
                                           const std::vector<Member>& members, double period,
                                           OvFirstSwing::Sign asked)
{
    std::vector<double> rough;
    for (int row = 0; row < static_cast<int>(members.size()); ++row) {
        stack(grid, members, row, period);
        rough.push_back(onset(period, asked));
    }
    return OvPickCourse::runningMedians(rough, 4, grid.cables());
}

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

// Scaled by the inverse of its size about the arrival, so that all traces count alike.
void OvArrivalStack::cut(const OvTraceGrid& grid, const Member& member, int row, float* out) const
{
    const int length = static_cast<int>(m_samples.size());
    std::fill_n(out, length, 0.0F);
    const float* samples = grid.row(row);
    const int from = std::clamp(rounded(member.point), 0, grid.points());
    const int to = std::clamp(rounded(member.point + 1.2 * m_period), from, grid.points());
    const float energy = OvFir::dot(samples + from, samples + from, to - from);
    if (!(energy > 0.0F))
        return;
    const double start = member.point - m_origin;
    const int whole = static_cast<int>(std::floor(start));
    const auto part = static_cast<float>(start - whole);
    const int first = std::clamp(-whole, 0, length);
    const int last = std::clamp(grid.points() - 1 - whole, first, length);
    OvFir::addBetween(samples + whole + first, part,
                      member.sign * member.weight / std::sqrt(energy), last - first, out + first);
}

void OvArrivalStack::load(const OvTraceGrid& grid, const std::vector<Member>& members,
                          double period)
{
    m_period = period;
    m_origin = rounded(reachPeriods * period);
    m_cables = grid.cables();
    m_rows = static_cast<int>(members.size());
    m_samples.resize(2 * static_cast<std::size_t>(m_origin) + 1);
    m_cuts.resize(members.size() * m_samples.size());
    for (std::size_t row = 0; row < members.size(); ++row)
        cut(grid, members[row], static_cast<int>(row), m_cuts.data() + row * m_samples.size());
    m_taper.clear();
    for (int away = -m_neighbours; away <= m_neighbours; ++away) {
        const double share = away / (0.6 * m_neighbours);
        m_taper.push_back(static_cast<float>(std::exp(-share * share)));
    }
}

void OvArrivalStack::stack(int row)
{
    const OvLinkRange near = ovNeighbours(m_cables, m_rows, row, m_neighbours);
    const float* taper = m_taper.data() + (m_neighbours + near.first - row);
    OvFir::mixRows(m_cuts.data() + static_cast<std::size_t>(near.first) * m_samples.size(), taper,
                   near.last - near.first, static_cast<int>(m_samples.size()), m_samples.data());
}

double OvArrivalStack::onset(OvFirstSwing::Sign asked) const
{
    using OvFirstSwing::Sign;
    constexpr double muchWeaker = 0.55;
    const OvTraceView trace(m_samples.data(), static_cast<int>(m_samples.size()));
    OvFirstSwing::Window window;
    window.first = rounded(m_origin - 0.5 * m_period);
    window.last = rounded(m_origin + 0.9 * m_period);
    window.quiet = rounded(1.2 * m_period);
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
    load(grid, members, period);
    std::vector<double> rough;
    rough.reserve(members.size());
    for (int row = 0; row < static_cast<int>(members.size()); ++row) {
        stack(row);
        rough.push_back(onset(asked));
    }
    return OvPickCourse::runningMedians(rough, 4, grid.cables());
}

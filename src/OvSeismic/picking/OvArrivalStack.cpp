#include "OvSeismic/picking/OvArrivalStack.h"

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
OvArrivalStack::Place OvArrivalStack::placeOf(const Member& member, int row) const
{
    const double start = member.point - m_origin;
    Place place;
    place.start = static_cast<int>(std::floor(start));
    place.part = static_cast<float>(start - place.start);
    const int from = std::clamp(rounded(member.point), 0, m_grid->points());
    const int to = std::clamp(rounded(member.point + 1.2 * m_period), from, m_grid->points());
    const float* samples = m_grid->row(row) + from;
    const float energy = OvFir::dot(samples, samples, to - from);
    if (energy > 0.0F)
        place.scale = member.sign * member.weight / std::sqrt(energy);
    return place;
}

void OvArrivalStack::load(const OvTraceGrid& grid, const std::vector<Member>& members,
                          double period)
{
    m_grid = &grid;
    m_period = period;
    m_origin = rounded(reachPeriods * period);
    m_samples.resize(2 * static_cast<std::size_t>(m_origin) + 1);
    m_places.clear();
    for (const Member& member : members)
        m_places.push_back(placeOf(member, static_cast<int>(m_places.size())));
    m_taper.clear();
    for (int away = 0; away <= m_neighbours; ++away) {
        const double share = away / (0.6 * m_neighbours);
        m_taper.push_back(static_cast<float>(std::exp(-share * share)));
    }
}

void OvArrivalStack::stack(int row)
{
    const int length = static_cast<int>(m_samples.size());
    const OvLinkRange near =
        ovNeighbours(m_grid->cables(), static_cast<int>(m_places.size()), row, m_neighbours);
    const auto isInside = [this, length](const Place& place) {
        return place.start >= 0 && place.start + length < m_grid->points();
    };
    const auto weightOf = [this, row](int other) {
        return m_places[static_cast<std::size_t>(other)].scale *
               m_taper[static_cast<std::size_t>(std::abs(other - row))];
    };
    m_parts.clear();
    for (int other = near.first; other < near.last; ++other) {
        const Place& place = m_places[static_cast<std::size_t>(other)];
        const float weight = weightOf(other);
        if (weight == 0.0F || !isInside(place))
            continue;
        const float* samples = m_grid->row(other) + place.start;
        m_parts.push_back({samples, weight * (1.0F - place.part)});
        m_parts.push_back({samples + 1, weight * place.part});
    }
    OvFir::mix(m_parts, length, m_samples.data());
    for (int other = near.first; other < near.last; ++other) {
        const Place& place = m_places[static_cast<std::size_t>(other)];
        if (isInside(place))
            continue;
        const int first = std::clamp(-place.start, 0, length);
        const int last = std::clamp(m_grid->points() - 1 - place.start, first, length);
        OvFir::addBetween(m_grid->row(other) + place.start + first, place.part, weightOf(other),
                          last - first, m_samples.data() + first);
    }
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

#include "OvSeismic/picking/OvPickCurve.h"

#include "OvSeismic/dsp/OvRank.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::size_t mostBins = 64;
constexpr std::size_t mostPicksInBin = 32;

using Knot = OvPickLine::Knot;

double slopeAt(const std::vector<Knot>& knots, std::size_t index)
{
    const Knot& left = knots[index > 0 ? index - 1 : 0];
    const Knot& right = knots[std::min(index + 1, knots.size() - 1)];
    const double run = right.offset - left.offset;
    return run > 0.0 ? (right.timeMs - left.timeMs) / run : 0.0;
}

// Running medians of the times of picks sorted by offset.
std::vector<double> smoothed(const std::vector<Knot>& picks)
{
    constexpr std::size_t mostReach = 3;
    std::vector<double> times;
    times.reserve(picks.size());
    for (std::size_t i = 0; i < picks.size(); ++i) {
        const std::size_t reach = std::min({mostReach, i, picks.size() - 1 - i});
        std::vector<double> around;
        for (std::size_t k = i - reach; k <= i + reach; ++k)
            around.push_back(picks[k].timeMs);
        times.push_back(OvRank::median(around));
    }
    return times;
}

Knot middle(const std::vector<Knot>& picks, const std::vector<double>& times, std::size_t first,
            std::size_t end)
{
    std::vector<double> offsets;
    std::vector<double> values;
    for (std::size_t i = first; i < end; ++i) {
        offsets.push_back(picks[i].offset);
        values.push_back(times[i]);
    }
    return {OvRank::median(offsets), OvRank::median(values), 0.0};
}

double spread(const std::vector<Knot>& picks, std::size_t first, std::size_t end, const Knot& knot,
              double slope)
{
    std::vector<double> strays;
    for (std::size_t i = first; i < end; ++i)
        strays.push_back(
            std::abs(picks[i].timeMs - knot.timeMs - slope * (picks[i].offset - knot.offset)));
    return OvRank::median(strays);
}

Knot between(const Knot& left, const Knot& right, double offset)
{
    const double share = (offset - left.offset) / (right.offset - left.offset);
    Knot knot;
    knot.offset = offset;
    knot.timeMs = left.timeMs + share * (right.timeMs - left.timeMs);
    knot.spreadMs = std::max(left.spreadMs, right.spreadMs);
    return knot;
}

} // namespace

OvPickLine::OvPickLine(std::vector<Knot> knots)
    : m_knots(std::move(knots))
{
}

OvPickLine::Knot OvPickLine::at(double offset) const
{
    constexpr double overhang = 0.1;
    if (m_knots.empty())
        return {};
    const Knot& first = m_knots.front();
    const Knot& last = m_knots.back();
    const double allowed = overhang * (last.offset - first.offset);
    if (!(offset >= first.offset - allowed && offset <= last.offset + allowed))
        return {};
    if (m_knots.size() == 1)
        return first;
    const auto behind =
        std::upper_bound(m_knots.begin() + 1, m_knots.end() - 1, offset,
                         [](double value, const Knot& knot) { return value < knot.offset; });
    return between(*(behind - 1), *behind, offset);
}

void OvPickCurve::Bin::add(const Pick& pick)
{
    if (++skipped < stride)
        return;
    skipped = 0;
    picks.push_back(pick);
    if (picks.size() <= mostPicksInBin)
        return;
    for (std::size_t i = 0; 2 * i < picks.size(); ++i)
        picks[i] = picks[2 * i];
    picks.resize((picks.size() + 1) / 2);
    stride *= 2;
}

void OvPickCurve::add(double offset, double timeMs)
{
    constexpr double mostBinNumber = 1e9;
    while (offset / m_width > mostBinNumber)
        widen();
    const int bin = static_cast<int>(offset / m_width);
    m_bins[bin].add({static_cast<float>(offset), static_cast<float>(timeMs)});
    while (m_bins.size() > mostBins)
        widen();
}

void OvPickCurve::add(const OvPickCurve& other)
{
    for (const auto& entry : other.m_bins) {
        for (const Pick& pick : entry.second.picks)
            add(static_cast<double>(pick.offset), static_cast<double>(pick.timeMs));
    }
}

void OvPickCurve::widen()
{
    m_width *= 2.0;
    std::map<int, Bin> merged;
    for (const auto& [number, bin] : m_bins) {
        Bin& target = merged[number / 2];
        for (const Pick& pick : bin.picks)
            target.add(pick);
    }
    m_bins = std::move(merged);
}

OvPickLine OvPickCurve::line() const
{
    std::vector<Knot> picks; // of all bins, by offset
    std::vector<std::size_t> ends;
    for (const auto& entry : m_bins) {
        for (const Pick& pick : entry.second.picks)
            picks.push_back(
                {static_cast<double>(pick.offset), static_cast<double>(pick.timeMs), 0.0});
        const auto first =
            picks.begin() + static_cast<std::ptrdiff_t>(ends.empty() ? 0 : ends.back());
        std::sort(first, picks.end(),
                  [](const Knot& a, const Knot& b) { return a.offset < b.offset; });
        ends.push_back(picks.size());
    }
    const std::vector<double> times = smoothed(picks);
    std::vector<Knot> knots;
    std::size_t first = 0;
    for (const std::size_t end : ends) {
        knots.push_back(middle(picks, times, first, end));
        first = end;
    }
    first = 0;
    for (std::size_t i = 0; i < knots.size(); ++i) {
        knots[i].spreadMs = spread(picks, first, ends[i], knots[i], slopeAt(knots, i));
        first = ends[i];
    }
    return OvPickLine(std::move(knots));
}

#include "OvSeismic/picking/OvOnsetSearch.h"

#include "OvSeismic/dsp/OvRank.h"
#include "OvSeismic/dsp/OvTraceView.h"
#include "OvSeismic/picking/OvPickParameters.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

using OvFirstSwing::Sign;
using OvOnsetSearch::Arrival;
using OvOnsetSearch::Scale;

// Fewer samples make no steady RMS.
constexpr int leastSamples = 12;
constexpr double none = std::numeric_limits<double>::quiet_NaN();

int floored(double value)
{
    return static_cast<int>(std::floor(value));
}

bool isSet(const std::atomic<bool>* cancel)
{
    return cancel && cancel->load();
}

// The onsets that a trace offers, ms from the guide.
struct Candidates
{
    double either = none;    // of the first swing, whatever its sign
    double preferred = none; // of the first swing of the preferred sign

    double nearest(double target) const
    {
        const bool other = !(std::abs(either - target) < std::abs(preferred - target));
        return other && std::isfinite(preferred) ? preferred : either;
    }
};

// Looks at one trace at a time.
class Probe
{
public:
    Probe(const OvTraceGrid& grid, const Scale& scale, const std::vector<double>& guide)
        : m_grid(grid)
        , m_scale(scale)
        , m_guide(guide)
        , m_period(scale.periodMs / grid.stepMs())
    {
    }

    void load(std::size_t link)
    {
        m_link = link;
        m_row = static_cast<int>(link);
        // Nothing is asked farther away than this.
        const double reach = 2.0 * m_scale.tuningMs / m_grid.stepMs() + 4.0 * m_period;
        const double guess = m_grid.pointAt(m_row, m_guide[link]);
        m_from = std::clamp(floored(guess - reach), 0, m_grid.points());
        const int to = std::clamp(floored(guess + reach) + leastSamples, m_from, m_grid.points());
        m_samples = m_grid.row(m_row) + m_from;
        m_trace = {m_samples, to - m_from};
    }

    // Onset of the first swing within halfMs of a distance from the guide, as such a distance; NaN
    // when there is none.
    double onset(double distanceMs, double halfMs, Sign sign) const
    {
        const auto swing = this->swing(distanceMs, halfMs, sign);
        if (!swing.found())
            return none;
        const double sample = OvFirstSwing::onset(m_samples, swing);
        return m_grid.timeMs(m_row, m_from + sample) - m_guide[m_link];
    }

    // The sign of the first swing beside the guide when it is clear of the noise.
    Sign clearSign() const
    {
        constexpr double clear = 12.0;
        auto window = this->window(0.0, m_scale.tuningMs, Sign::Either);
        // Where there is hardly any noise a weaker first lobe can be told from it.
        window.lobeShare = 0.3;
        const auto swing = OvFirstSwing::find(m_trace, window, Sign::Either);
        if (!swing.found())
            return Sign::Either;
        const double height = static_cast<double>(m_samples[swing.peak]) - swing.rest;
        const int quiet = swing.peak - floored(m_period);
        const double noise = std::sqrt(m_trace.variance(quiet - floored(m_period), quiet));
        if (std::abs(height) < clear * noise)
            return Sign::Either;
        return height > 0.0 ? Sign::Positive : Sign::Negative;
    }

    Arrival measured(double distanceMs) const
    {
        Arrival arrival;
        arrival.timeMs = m_guide[m_link] + distanceMs;
        if (!std::isfinite(distanceMs))
            return arrival;
        const int onset = floored(m_grid.pointAt(m_row, arrival.timeMs) + 0.5) - m_from;
        const int length = std::max(floored(m_period), leastSamples);
        const auto largest = static_cast<double>(m_grid.largest(m_row));
        const double still = 1e-12 * largest * largest;
        const double after = m_trace.variance(onset, onset + length);
        const double before = varianceBefore(onset, length);
        arrival.ratio = std::sqrt(after / std::max(before, still));
        return arrival;
    }

private:
    OvFirstSwing::Window window(double distanceMs, double halfMs, Sign sign) const
    {
        const double centre = m_grid.pointAt(m_row, m_guide[m_link] + distanceMs) - m_from;
        const double half = halfMs / m_grid.stepMs();
        OvFirstSwing::Window window;
        window.first = floored(centre - half);
        // The peak comes later than the onset.
        window.last = floored(centre + half + 0.4 * m_period) + 1;
        window.quiet = floored(m_period) + 1;
        window.share = sign == Sign::Either ? 0.4 : 0.25;
        return window;
    }

    OvFirstSwing::Swing swing(double distanceMs, double halfMs, Sign sign) const
    {
        return OvFirstSwing::find(m_trace, window(distanceMs, halfMs, sign), sign);
    }

    // Variance of the two periods before the onset; where the trace does not reach so far back,
    // that of its quietest quarter.
    double varianceBefore(int onset, int length) const
    {
        if (onset >= length / 2 + 2)
            return m_trace.variance(onset - 2 * length, onset);
        const OvTraceView whole(m_grid.row(m_row), m_grid.points());
        std::vector<double> quiet;
        for (int from = 0; from + length <= whole.size(); from += length)
            quiet.push_back(whole.variance(from, from + length));
        if (quiet.empty())
            return whole.variance(0, whole.size());
        const int count = static_cast<int>(quiet.size());
        return OvRank::of(quiet.data(), count, count / 4);
    }

    const OvTraceGrid& m_grid;
    const Scale m_scale;
    const std::vector<double>& m_guide;
    double m_period; // samples
    std::size_t m_link = 0;
    int m_row = 0;
    int m_from = 0; // sample at which what is loaded of the trace begins
    const float* m_samples = nullptr;
    OvTraceView m_trace;
};

// The sign that was asked for, unless the clear first swings of the gather mostly have the other.
Sign signOf(Probe* probe, std::size_t links, OvPickParameters::Polarity polarity,
            const std::atomic<bool>* cancel)
{
    constexpr double mostly = 1.2;
    int positive = 0;
    int negative = 0;
    for (std::size_t link = 0; link < links && !isSet(cancel); ++link) {
        probe->load(link);
        const Sign sign = probe->clearSign();
        positive += sign == Sign::Positive ? 1 : 0;
        negative += sign == Sign::Negative ? 1 : 0;
    }
    // A few traces of a noisy gather say nothing about the others.
    constexpr int share = 8; // at least one in so many
    if (share * (positive + negative) < static_cast<int>(links))
        return polarity == OvPickParameters::Polarity::Positive ? Sign::Positive : Sign::Negative;
    if (polarity == OvPickParameters::Polarity::Positive)
        return negative > mostly * positive ? Sign::Negative : Sign::Positive;
    return positive > mostly * negative ? Sign::Positive : Sign::Negative;
}

// Median of the distances of the traces around a link, its own left out; 0 without any.
double pointedAt(const OvTraceGrid& grid, const std::vector<double>& distances, std::size_t link)
{
    constexpr int reach = 4;
    constexpr std::size_t most = std::size_t(2) * reach;
    const OvLinkRange near = ovNeighbours(grid.cables(), static_cast<int>(distances.size()),
                                          static_cast<int>(link), reach);
    std::array<double, most> around;
    int count = 0;
    for (auto i = static_cast<std::size_t>(near.first); i < static_cast<std::size_t>(near.last);
         ++i) {
        if (i != link && std::isfinite(distances[i]))
            around[static_cast<std::size_t>(count++)] = distances[i];
    }
    return count > 0 ? OvRank::median(around.data(), count) : 0.0;
}

// What a trace says when it is asked near to where its neighbours point.
double reconsidered(Probe* probe, std::size_t link, const Candidates& candidates, double pointed,
                    double allowed, Sign sign)
{
    const double nearest = candidates.nearest(pointed);
    if (std::abs(nearest - pointed) <= allowed)
        return nearest;
    probe->load(link);
    const double preferred = probe->onset(pointed, allowed, sign);
    if (std::abs(preferred - pointed) <= allowed)
        return preferred;
    return probe->onset(pointed, allowed, Sign::Either);
}

} // namespace

std::vector<OvOnsetSearch::Arrival> OvOnsetSearch::find(const OvTraceGrid& grid, const Scale& scale,
                                                        const std::vector<double>& guide, Sign sign,
                                                        const std::atomic<bool>* cancel)
{
    constexpr int rounds = 3;
    const double allowed = 0.25 * scale.periodMs;
    Probe probe(grid, scale, guide);
    std::vector<Candidates> candidates(guide.size());
    std::vector<double> distances(guide.size());
    for (std::size_t link = 0; link < guide.size() && !isSet(cancel); ++link) {
        probe.load(link);
        const double preferred = probe.onset(0.0, scale.tuningMs, sign);
        candidates[link] = {probe.onset(0.0, scale.tuningMs, Sign::Either), preferred};
        distances[link] = std::isfinite(preferred) ? preferred : candidates[link].either;
    }
    for (int round = 0; round < rounds; ++round) {
        const std::vector<double> last = distances;
        for (std::size_t link = 0; link < guide.size() && !isSet(cancel); ++link)
            distances[link] = reconsidered(&probe, link, candidates[link],
                                           pointedAt(grid, last, link), allowed, sign);
    }
    std::vector<Arrival> arrivals;
    for (std::size_t link = 0; link < guide.size() && !isSet(cancel); ++link) {
        probe.load(link);
        arrivals.push_back(probe.measured(distances[link]));
        arrivals.back().strayMs = std::abs(distances[link] - pointedAt(grid, distances, link));
    }
    return isSet(cancel) ? std::vector<Arrival>() : arrivals;
}

OvFirstSwing::Sign OvOnsetSearch::preferredSign(const OvTraceGrid& grid, const Scale& scale,
                                                const std::vector<double>& guide,
                                                const OvPickParameters& parameters,
                                                const std::atomic<bool>* cancel)
{
    Probe probe(grid, scale, guide);
    return signOf(&probe, guide.size(), parameters.polarity, cancel);
}

#include "OvSeismic/picking/OvOnsetGuide.h"

#include "OvSeismic/dsp/OvAutoregression.h"
#include "OvSeismic/dsp/OvChangeScore.h"
#include "OvSeismic/dsp/OvExtent.h"
#include "OvSeismic/dsp/OvFir.h"
#include "OvSeismic/dsp/OvRank.h"
#include "OvSeismic/picking/OvTraceChain.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::size_t noiseLags = 9;
constexpr double firstPeriod = 16.0; // points, until it is known
constexpr double longestPeriod = 120.0;
// The loudest waves of whole rows are often later and longer ones than the first arrival, such as
// ground roll; the first arrival should have about 15 points on the grid.
constexpr double longestOfWholeRows = 24.0;

int rounded(double value)
{
    return static_cast<int>(std::lround(value));
}

bool isSet(const std::atomic<bool>* cancel)
{
    return cancel && cancel->load();
}

// Independent samples in one sample of white noise after a filter.
double freedomOf(const std::vector<float>& taps)
{
    std::vector<double> correlation(taps.size(), 0.0);
    OvAutoregression::addCorrelation(taps.data(), static_cast<int>(taps.size()), 1.0, &correlation);
    return OvNoiseLevel::freedomOf(correlation);
}

} // namespace

// Six times the lag at which the autocorrelation of whitened rows, the noise's taken off, has
// fallen to a half: that of a cosine has after a sixth of its period.
void OvOnsetGuide::measurePeriod(const OvTraceGrid& grid, bool atCourse)
{
    constexpr int mostRows = 24;
    constexpr double shortest = 8.0;
    const int lags = static_cast<int>(longestPeriod / 6.0) + 2;
    std::vector<double> signal(static_cast<std::size_t>(lags), 0.0);
    std::vector<double> one(signal.size());
    std::vector<float> whitened(static_cast<std::size_t>(m_points));
    const int every = std::max(1, grid.rows() / mostRows);
    for (int row = 0; row < grid.rows(); row += every) {
        const auto at = static_cast<std::size_t>(row);
        int from = grid.first(row);
        int to = grid.last(row);
        if (atCourse) {
            from = std::clamp(rounded(m_times[at] - 0.2 * m_period), from, to);
            to = std::min(rounded(m_times[at] + 1.3 * m_period), to);
        }
        const Quiet& quiet = m_quiet[at];
        if (to - from < 4 || quiet.size() < 4)
            continue;
        OvFir::apply(m_whitener, 0, grid.row(row) + grid.first(row),
                     grid.last(row) - grid.first(row), whitened.data() + grid.first(row));
        const float* still = whitened.data() + quiet.from;
        const double noise = static_cast<double>(OvFir::dot(still, still, quiet.size())) /
                             quiet.size() / (atCourse ? 1.0 : m_quietShare);
        std::fill(one.begin(), one.end(), 0.0);
        OvAutoregression::addCorrelation(whitened.data() + from, to - from, 1.0, &one);
        const double power = one[0] - noise * (to - from);
        if (!(power > 0.2 * one[0]))
            continue;
        one[0] = power;
        for (std::size_t lag = 0; lag < signal.size(); ++lag)
            signal[lag] += one[lag] / power;
    }
    std::size_t lag = 1;
    while (lag < signal.size() && signal[lag] > 0.5 * signal[0])
        ++lag;
    if (!(signal[0] > 0.0))
        return;
    const double above = signal[lag - 1] - 0.5 * signal[0];
    const double fall = lag < signal.size() ? signal[lag - 1] - signal[lag] : 1.0;
    const double found = 6.0 * (static_cast<double>(lag) - 1.0 + above / std::max(fall, 1e-12));
    const double least = atCourse ? std::max(0.5 * shortest, m_period / 3.0) : shortest;
    const double most = atCourse ? m_period * 1.5 : m_mostOfRows;
    m_period = std::clamp(found, least, most);
}

OvOnsetGuide::Quiet OvOnsetGuide::quietest(const OvTraceGrid& grid, int row)
{
    const int length = std::max(rounded(1.5 * m_period), 40);
    const int first = grid.first(row);
    const float* values = grid.row(row);
    const float largest = grid.largest(row);
    const int loudest =
        first + OvExtent::firstAsLarge(values + first, grid.last(row) - first, largest);
    constexpr float silent = std::numeric_limits<float>::infinity(); // says nothing
    m_energies.resize(static_cast<std::size_t>((loudest - first) / length));
    OvChangeScore::energies(values + first, loudest - first, length, m_energies.data());
    int known = 0;
    for (float& energy : m_energies) {
        known += energy > 0.0F ? 1 : 0;
        energy = energy > 0.0F ? energy : silent;
    }
    if (known == 0)
        return {};
    const float quiet =
        OvRank::of(m_energies.data(), static_cast<int>(m_energies.size()), known / 8);
    const auto at = std::find(m_energies.begin(), m_energies.end(), quiet) - m_energies.begin();
    const int from = first + static_cast<int>(at) * length;
    return {from, from + length};
}

void OvOnsetGuide::findQuiet(const OvTraceGrid& grid, bool atCourse)
{
    m_quiet.assign(static_cast<std::size_t>(grid.rows()), {});
    int known = 0;
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        Quiet& quiet = m_quiet[static_cast<std::size_t>(row)];
        if (!atCourse) {
            quiet = quietest(grid, row);
            continue;
        }
        const int to = rounded(m_times[static_cast<std::size_t>(row)] - 0.4 * m_period);
        const int from = std::max(grid.first(row), to - rounded(12.0 * m_period));
        if (to - from >= std::max(rounded(m_period), 6))
            quiet = {from, to};
        known += quiet.size() > 0 ? 1 : 0;
    }
    if (atCourse && 4 * known < grid.rows())
        findQuiet(grid, false);
}

void OvOnsetGuide::whiten(const OvTraceGrid& grid)
{
    constexpr double white = 1e-4;
    OvAutoregression::Covariance covariance(static_cast<int>(noiseLags) - 1);
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        const Quiet& quiet = m_quiet[static_cast<std::size_t>(row)];
        if (quiet.size() < 1)
            continue;
        const float* values = grid.row(row) + quiet.from;
        const int length = std::min(quiet.size(), std::max(rounded(4.0 * m_period), 64));
        const auto energy = static_cast<double>(OvFir::dot(values, values, length));
        if (energy > 0.0)
            covariance.add(values, length, 1.0 / energy);
    }
    m_whitener = covariance.whitener(white);
    // A filter that takes a lot away says little before it has seen its whole length.
    float size = 0.0F;
    for (const float tap : m_whitener)
        size += std::abs(tap);
    constexpr float strong = 1.4F;
    m_settle = size > strong ? static_cast<int>(m_whitener.size()) : 0;
}

void OvOnsetGuide::filter(const OvTraceGrid& grid)
{
    const int half = std::max(rounded(m_period / 6.0), 1);
    const std::vector<float> smoother = OvFir::triangle(half);
    // The smoother brings in what comes before the whitener has settled.
    m_settle += m_settle > 0 ? half : 0;
    const std::vector<float> taps = OvFir::joined(m_whitener, smoother);
    m_freedom = freedomOf(smoother);
    m_filtered.resize(grid.rows(), m_points);
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        float* out = m_filtered.row(row);
        const int first = grid.first(row);
        const int last = grid.last(row);
        std::fill(out, out + first, 0.0F);
        std::fill(out + last, out + m_points, 0.0F);
        if (last > first)
            OvFir::apply(taps, half - 1, grid.row(row) + first, last - first, out + first);
    }
}

// How much quieter the stretches of quietest() are than noise is on average.
void OvOnsetGuide::measureQuietShare(const OvTraceGrid& grid)
{
    std::vector<double> correlation(noiseLags, 0.0);
    int rows = 0;
    double length = 0.0;
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        const Quiet& quiet = m_quiet[static_cast<std::size_t>(row)];
        if (quiet.size() < 1)
            continue;
        const float* values = grid.row(row) + quiet.from;
        const auto energy = static_cast<double>(OvFir::dot(values, values, quiet.size()));
        OvAutoregression::addCorrelation(values, quiet.size(), 1.0 / energy, &correlation);
        length += quiet.size();
        ++rows;
    }
    m_quietShare = rows > 0 ? OvNoiseLevel::chiSquareQuantile(
                                  0.13, OvNoiseLevel::freedomOf(correlation) * length / rows)
                            : 1.0;
}

// Negative where a row tells nothing.
float OvOnsetGuide::noiseEnergy(const OvTraceGrid& grid, int row, bool atCourse)
{
    const Quiet& quiet = m_quiet[static_cast<std::size_t>(row)];
    const int block = std::max(rounded(0.7 * m_period), 4);
    const int first = std::min(grid.first(row) + m_settle, grid.last(row));
    const int from = std::max(quiet.from, first);
    if (quiet.to - from < block)
        return -1.0F;
    if (atCourse)
        return m_meter.usual(filtered(row) + from, quiet.to - from, block, m_freedom);
    const int stretch = std::max(rounded(1.5 * m_period), 6);
    return std::max(
        m_meter.quiet(filtered(row) + first, grid.last(row) - first, stretch, m_freedom), 0.0F);
}

void OvOnsetGuide::measureNoise(const OvTraceGrid& grid, bool atCourse, double leastAmplitude)
{
    m_noise.assign(static_cast<std::size_t>(grid.rows()), -1.0F);
    for (int row = 0; row < grid.rows() && !isSet(m_cancel); ++row) {
        const float energy = noiseEnergy(grid, row, atCourse);
        m_noise[static_cast<std::size_t>(row)] = energy < 0.0F ? -1.0F : std::sqrt(energy);
    }
    // Traces without a quiet stretch of their own take over their neighbours' noise.
    float last = -1.0F;
    for (float& noise : m_noise)
        noise = last = noise >= 0.0F ? noise : last;
    for (auto noise = m_noise.rbegin(); noise != m_noise.rend(); ++noise)
        *noise = last = *noise >= 0.0F ? *noise : std::max(last, 0.0F);
    for (int row = 0; row < grid.rows(); ++row) {
        float& noise = m_noise[static_cast<std::size_t>(row)];
        noise = std::max(noise, static_cast<float>(leastAmplitude) * grid.largest(row));
    }
}

void OvOnsetGuide::follow(const OvTraceChain& chain, const OvTraceGrid& grid,
                          const OvOnsetLimits& limits)
{
    OvOnsetLattice::Rows rows;
    rows.grid = &grid;
    rows.values = m_filtered.row(0);
    rows.noise = m_noise.data();
    rows.period = m_period;
    rows.settle = m_settle;
    m_lattice.build(rows, limits);
    const auto& path = m_path.find(m_lattice.scores(), m_lattice.steps(chain, m_times));
    m_times.assign(path.begin(), path.end());
    for (double& time : m_times)
        time *= m_lattice.block();
}

// One search, by the course before if there is one.
void OvOnsetGuide::pass(const OvTraceGrid& grid, const OvTraceChain& chain,
                        const OvOnsetLimits& limits, bool atCourse, bool measures)
{
    findQuiet(grid, atCourse);
    measureQuietShare(grid);
    whiten(grid);
    if (measures)
        measurePeriod(grid, atCourse);
    if (!atCourse)
        findQuiet(grid, false);
    filter(grid);
    measureNoise(grid, atCourse, limits.leastAmplitude);
    follow(chain, grid, limits);
}

double OvOnsetGuide::scout(const OvTraceGrid& grid, const OvTraceChain& chain,
                           const std::atomic<bool>* cancel)
{
    OvOnsetLimits limits;
    limits.cancel = m_cancel = cancel;
    m_points = grid.points();
    m_period = firstPeriod;
    m_mostOfRows = longestPeriod;
    m_times.clear();
    for (const bool atCourse : {false, true})
        pass(grid, chain, limits, atCourse, true);
    return m_period;
}

// Hardly a row has left the course of the pass before.
bool OvOnsetGuide::hasSettled(const std::vector<double>& last) const
{
    constexpr double near = 0.5; // periods
    constexpr double hardly = 0.05;
    if (last.size() != m_times.size())
        return false;
    int left = 0;
    for (std::size_t row = 0; row < last.size(); ++row)
        left += std::abs(m_times[row] - last[row]) > near * m_period ? 1 : 0;
    return left <= hardly * static_cast<double>(last.size());
}

bool OvOnsetGuide::find(const OvTraceGrid& grid, const OvTraceChain& chain,
                        const OvOnsetLimits& limits, double scouted)
{
    constexpr int mostPasses = 3;
    m_cancel = limits.cancel;
    m_points = grid.points();
    m_period = scouted > 0.0 ? scouted : firstPeriod;
    m_mostOfRows = longestOfWholeRows;
    m_times.clear();
    bool isSettled = false;
    for (int i = 0; i < mostPasses && !isSettled && !isSet(m_cancel); ++i) {
        const std::vector<double> last = m_times;
        pass(grid, chain, limits, i > 0, i + 1 < mostPasses);
        isSettled = hasSettled(last);
    }
    return !isSet(m_cancel);
}

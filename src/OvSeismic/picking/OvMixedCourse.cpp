#include "OvSeismic/picking/OvMixedCourse.h"

#include "OvSeismic/dsp/OvChangeScore.h"
#include "OvSeismic/dsp/OvFir.h"
#include "OvSeismic/dsp/OvRank.h"
#include "OvSeismic/picking/OvOnsetGuide.h"
#include "OvSeismic/picking/OvPickCourse.h"
#include "OvSeismic/picking/OvTraceChain.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using Matches = std::vector<OvArrivalAlignment::Match>;

constexpr int neighbours = 3;     // on either side
constexpr double clearStep = 4.0; // of energies: an arrival begins here
constexpr double noStep = 1.7;    // nothing begins here

std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

int rounded(double value)
{
    return static_cast<int>(std::lround(value));
}

// Traces with neighbours that hardly match them.
bool areWeak(const std::vector<double>& all, const OvTraceChain& chain)
{
    constexpr double weak = 3.0; // of 5.8
    std::vector<double> strengths;
    for (int row = 0; row < chain.size(); ++row) {
        if (!chain.isAlone(row))
            strengths.push_back(all[at(row)]);
    }
    return !strengths.empty() && OvRank::median(strengths) < weak;
}

} // namespace

void OvMixedCourse::measureHalves(const OvTraceGrid& grid)
{
    m_half = std::max(rounded(0.5 * m_period), 2);
    m_halves.resize(grid.rows(), m_points / m_half);
    for (int row = 0; row < grid.rows(); ++row) {
        const int first = grid.first(row);
        OvChangeScore::energies(mixed(row) + first, grid.last(row) - first, m_half,
                                m_halves.row(row));
    }
}

// Energy of the period behind a point over that of what lies ahead of it; NaN at the ends of a row.
double OvMixedCourse::stepAt(const OvTraceGrid& grid, int row, double point) const
{
    constexpr double ahead = 6.0;
    constexpr double clear = 0.7;
    constexpr int least = 4;
    const auto inside = [&](double place) {
        return std::clamp(rounded(place), grid.first(row), grid.last(row));
    };
    const auto mean = [&](int from, int to) {
        const float* values = mixed(row) + from;
        return static_cast<double>(OvFir::dot(values, values, to - from)) / (to - from);
    };
    const int start = inside(point);
    const int end = inside(point + m_period);
    const int from = inside(point - ahead * m_period);
    const int to = inside(point - clear * m_period);
    if (end - start < least || to - from < least)
        return std::numeric_limits<double>::quiet_NaN();
    return mean(start, end) / std::max(mean(from, to), 1e-12);
}

// Short stretches, and steps that noise makes as well, do not overrule the first course.
void OvMixedCourse::choose(const OvTraceGrid& grid, const OvTraceChain& chain,
                           const std::vector<double>& second)
{
    constexpr double apart = 0.8; // periods
    constexpr int shortest = 12;
    const auto side = [&](int row) {
        const double distance = second[at(row)] - m_times[at(row)];
        return std::abs(distance) < apart * m_period ? 0 : distance < 0.0 ? -1 : 1;
    };
    for (int row = 0, end = 0; row < grid.rows(); row = end) {
        const int where = side(row);
        std::vector<double> steps;
        for (end = row; end < grid.rows() && side(end) == where; ++end) {
            if (end > row && chain.beginsCable(end))
                break;
            const double earlier = std::min(second[at(end)], m_times[at(end)]);
            const double step = where == 0 ? 0.0 : stepAt(grid, end, earlier);
            if (std::isfinite(step))
                steps.push_back(step);
        }
        if (where == 0 || end - row < shortest || steps.empty())
            continue;
        const double step = OvRank::median(steps);
        if (where < 0 ? step > clearStep : step < noStep)
            std::copy(second.begin() + row, second.begin() + end, m_times.begin() + row);
    }
}

// The course begins a step everywhere, and nothing ahead of it could be one.
bool OvMixedCourse::isBeyondDoubt(const OvTraceGrid& grid, const OvTraceChain& chain) const
{
    constexpr int reach = 4;
    std::vector<double> steps;
    std::vector<double> foreruns;
    for (int row = 0; row < grid.rows(); ++row) {
        const double step = stepAt(grid, row, m_times[at(row)]);
        steps.push_back(std::isfinite(step) ? step : noStep);
        foreruns.push_back(forerunAt(grid, row, m_times[at(row)]));
    }
    steps = OvPickCourse::runningMedians(steps, reach, chain.cables);
    foreruns = OvPickCourse::runningMedians(foreruns, reach, chain.cables);
    return *std::min_element(steps.begin(), steps.end()) >= noStep &&
           *std::max_element(foreruns.begin(), foreruns.end()) < std::sqrt(clearStep);
}

bool OvMixedCourse::find(const OvOnsetGuide& guide, const Matches& matches, const OvTraceGrid& grid,
                         const OvTraceChain& chain, const OvOnsetLimits& limits)
{
    m_points = grid.points();
    m_period = guide.period();
    m_times = guide.times();
    std::vector<double> arrivals;
    std::vector<float> signs;
    std::vector<double> strengths;
    for (const OvArrivalAlignment::Match& match : matches) {
        arrivals.push_back(match.time);
        signs.push_back(match.sign);
        strengths.push_back(static_cast<double>(match.strength));
    }
    m_mixer.load(guide, grid, signs);
    m_mixer.mix(chain, arrivals, neighbours);
    measureHalves(grid);
    if (isBeyondDoubt(grid, chain))
        return true;
    if (areWeak(strengths, chain))
        return followSlopes(strengths, grid, chain, limits);
    m_lattice.build(m_mixer.rows(), limits);
    if (limits.cancel && limits.cancel->load())
        return false;
    std::vector<double> second;
    for (const int block : m_path.find(m_lattice.scores(), m_lattice.steps(chain, m_times)))
        second.push_back(block * m_lattice.block());
    choose(grid, chain, second);
    return true;
}

// Where hardly anything holds the traces together along the course, it says little of the slopes
// along which to mix. Stretches of it that do hold together stay.
bool OvMixedCourse::followSlopes(const std::vector<double>& strengths, const OvTraceGrid& grid,
                                 const OvTraceChain& chain, const OvOnsetLimits& limits)
{
    constexpr int reach = 6;
    constexpr double strong = 4.0; // of 5.8
    if (!m_slopes.find(&m_mixer, chain, limits, m_times))
        return false;
    const auto around = OvPickCourse::runningMedians(strengths, reach, chain.cables);
    for (int row = 0; row < grid.rows(); ++row) {
        if (around[at(row)] <= strong)
            m_times[at(row)] = m_slopes.times()[at(row)];
    }
    m_mixer.mix(chain, m_times, neighbours);
    measureHalves(grid);
    return true;
}

double OvMixedCourse::loudness(int row, int from, int to) const
{
    const float noise = m_mixer.noise(row);
    if (to <= from || !(noise > 0.0F))
        return 1.0;
    const float energy =
        OvFir::dot(mixed(row) + from, mixed(row) + from, to - from) / static_cast<float>(to - from);
    return static_cast<double>(std::sqrt(energy) / noise);
}

double OvMixedCourse::riseAt(int row, double point) const
{
    const int from = std::clamp(rounded(point), 0, m_points);
    return loudness(row, from, std::clamp(rounded(point + m_period), from, m_points));
}

double OvMixedCourse::forerunAt(const OvTraceGrid& grid, int row, double point) const
{
    const int end = std::min(rounded(point - m_period), grid.last(row));
    const int halves = std::min((end - grid.first(row)) / m_half, m_halves.points);
    const float noise = m_mixer.noise(row);
    const float* energies = m_halves.row(row);
    float largest = 0.0F;
    for (int k = 0; k + 1 < halves; ++k)
        largest = std::max(largest, energies[k] + energies[k + 1]);
    if (!(noise > 0.0F))
        return 1.0;
    return std::max(static_cast<double>(std::sqrt(0.5F * largest) / noise), 1.0);
}

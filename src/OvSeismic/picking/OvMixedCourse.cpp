#include "OvSeismic/picking/OvMixedCourse.h"

#include "OvSeismic/dsp/OvChangeScore.h"
#include "OvSeismic/dsp/OvFir.h"
#include "OvSeismic/dsp/OvVectorClones.h"
#include "OvSeismic/picking/OvOnsetGuide.h"
#include "OvSeismic/picking/OvPickCourse.h"
#include "OvSeismic/picking/OvTraceChain.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using Matches = std::vector<OvArrivalAlignment::Match>;

constexpr int neighbours = 3;     // on either side
constexpr float mostNoise = 4.0F; // what is louder counts like this: bursts, and late waves
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

OV_VECTOR_CLONES
void takeClipped(const float* in, float scale, int count, float* out)
{
    for (int i = 0; i < count; ++i)
        out[i] = std::min(std::max(scale * in[i], -mostNoise), mostNoise);
}

} // namespace

void OvMixedCourse::clip(const OvOnsetGuide& guide, const Matches& matches, const OvTraceGrid& grid)
{
    m_clipped.resize(grid.rows(), m_points);
    for (int row = 0; row < grid.rows(); ++row) {
        const float noise = guide.noise(row);
        const float scale = noise > 0.0F ? matches[at(row)].sign / noise : 0.0F;
        takeClipped(guide.filtered(row), scale, m_points, m_clipped.row(row));
    }
}

void OvMixedCourse::mix(const Matches& matches, const OvTraceGrid& grid, const OvTraceChain& chain)
{
    const auto weightOf = [](int away) {
        return static_cast<float>(neighbours + 1 - std::abs(away));
    };
    m_mixed.resize(grid.rows(), m_points);
    for (int row = 0; row < grid.rows(); ++row) {
        const OvLinkRange near = chain.neighbours(row, neighbours);
        float squares = 0.0F;
        for (int other = near.first; other < near.last; ++other)
            squares += weightOf(other - row) * weightOf(other - row);
        const float scale = 1.0F / std::sqrt(squares); // independent noise keeps its size
        m_parts.clear();
        for (int other = near.first; other < near.last; ++other) {
            const int shift = rounded(matches[at(other)].time - matches[at(row)].time);
            m_parts.push_back({m_clipped.row(other), scale * weightOf(other - row), shift});
        }
        mixRow(grid.first(row), grid.last(row), m_mixed.row(row));
    }
}

// What all parts cover at once, and then what single ones do beside it.
void OvMixedCourse::mixRow(int first, int last, float* mixed)
{
    int from = first;
    int to = last;
    for (const Part& part : m_parts) {
        from = std::max(from, -part.shift);
        to = std::min(to, m_points - part.shift);
    }
    from = std::min(from, last);
    to = std::max(to, from);
    m_shifted.clear();
    for (const Part& part : m_parts)
        m_shifted.push_back({part.samples + from + part.shift, part.weight});
    std::fill_n(mixed, from, 0.0F);
    OvFir::mix(m_shifted, to - from, mixed + from);
    std::fill(mixed + to, mixed + m_points, 0.0F);
    for (const Part& part : m_parts) {
        const int begin = std::max(first, -part.shift);
        const int end = std::min(last, m_points - part.shift);
        const float* samples = part.samples + part.shift;
        for (const auto& [one, other] :
             {std::pair(begin, std::min(end, from)), std::pair(std::max(begin, to), end)}) {
            if (one < other)
                OvFir::addScaled(samples + one, part.weight, other - one, mixed + one);
        }
    }
}

void OvMixedCourse::measureNoise(const OvOnsetGuide& guide, const OvTraceGrid& grid)
{
    const int stretch = std::max(rounded(1.5 * guide.period()), 6);
    m_noise.clear();
    for (int row = 0; row < grid.rows(); ++row) {
        const int first = grid.first(row);
        const float energy =
            m_meter.quiet(mixed(row) + first, grid.last(row) - first, stretch, guide.freedom());
        m_noise.push_back(std::sqrt(std::max(energy, 0.0F)));
    }
}

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
double OvMixedCourse::stepAt(const OvTraceGrid& grid, int row, double point, double period) const
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
    const int end = inside(point + period);
    const int from = inside(point - ahead * period);
    const int to = inside(point - clear * period);
    if (end - start < least || to - from < least)
        return std::numeric_limits<double>::quiet_NaN();
    return mean(start, end) / std::max(mean(from, to), 1e-12);
}

// Short stretches, and steps that noise makes as well, do not overrule the first course.
void OvMixedCourse::choose(const OvTraceGrid& grid, const OvTraceChain& chain, double period,
                           const std::vector<double>& second)
{
    constexpr double apart = 0.8; // periods
    constexpr int shortest = 12;
    const auto side = [&](int row) {
        const double distance = second[at(row)] - m_times[at(row)];
        return std::abs(distance) < apart * period ? 0 : distance < 0.0 ? -1 : 1;
    };
    for (int row = 0, end = 0; row < grid.rows(); row = end) {
        const int where = side(row);
        std::vector<double> steps;
        for (end = row; end < grid.rows() && side(end) == where; ++end) {
            if (end > row && chain.beginsCable(end))
                break;
            const double earlier = std::min(second[at(end)], m_times[at(end)]);
            const double step = where == 0 ? 0.0 : stepAt(grid, end, earlier, period);
            if (std::isfinite(step))
                steps.push_back(step);
        }
        if (where == 0 || end - row < shortest || steps.empty())
            continue;
        const double step = OvPickCourse::median(steps);
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
        const double step = stepAt(grid, row, m_times[at(row)], m_period);
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
    clip(guide, matches, grid);
    mix(matches, grid, chain);
    measureNoise(guide, grid);
    measureHalves(grid);
    if (isBeyondDoubt(grid, chain))
        return true;
    OvOnsetLattice::Rows rows;
    rows.grid = &grid;
    rows.values = m_mixed.row(0);
    rows.noise = m_noise.data();
    rows.period = guide.period();
    rows.settle = guide.settle();
    m_lattice.build(rows, limits);
    if (limits.cancel && limits.cancel->load())
        return false;
    std::vector<double> second;
    for (const int block : m_path.find(m_lattice.scores(), m_lattice.steps(chain, m_times)))
        second.push_back(block * m_lattice.block());
    choose(grid, chain, guide.period(), second);
    return true;
}

double OvMixedCourse::loudness(int row, int from, int to) const
{
    const float noise = m_noise[at(row)];
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
    const float noise = m_noise[at(row)];
    const float* energies = m_halves.row(row);
    float largest = 0.0F;
    for (int k = 0; k + 1 < halves; ++k)
        largest = std::max(largest, energies[k] + energies[k + 1]);
    if (!(noise > 0.0F))
        return 1.0;
    return std::max(static_cast<double>(std::sqrt(0.5F * largest) / noise), 1.0);
}

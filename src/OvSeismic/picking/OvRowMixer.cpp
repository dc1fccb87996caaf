#include "OvSeismic/picking/OvRowMixer.h"

#include "OvSeismic/dsp/OvVectorClones.h"
#include "OvSeismic/picking/OvOnsetGuide.h"
#include "OvSeismic/picking/OvTraceChain.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float mostNoise = 4.0F; // what is louder counts like this: bursts, and late waves

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

void OvRowMixer::load(const OvOnsetGuide& guide, const OvTraceGrid& grid,
                      const std::vector<float>& signs)
{
    m_guide = &guide;
    m_grid = &grid;
    m_points = grid.points();
    m_clipped.resize(grid.rows(), m_points);
    for (int row = 0; row < grid.rows(); ++row) {
        const float noise = guide.noise(row);
        const float scale = noise > 0.0F ? signs[at(row)] / noise : 0.0F;
        takeClipped(guide.filtered(row), scale, m_points, m_clipped.row(row));
    }
}

void OvRowMixer::mix(const OvTraceChain& chain, const std::vector<double>& course, int reach)
{
    const auto weightOf = [reach](int away) {
        return static_cast<float>(reach + 1 - std::abs(away));
    };
    const int rows = m_grid->rows();
    m_mixed.resize(rows, m_points);
    for (int row = 0; row < rows; ++row) {
        const OvLinkRange near = chain.neighbours(row, reach);
        float squares = 0.0F;
        for (int other = near.first; other < near.last; ++other)
            squares += weightOf(other - row) * weightOf(other - row);
        const float scale = 1.0F / std::sqrt(squares); // independent noise keeps its size
        m_parts.clear();
        for (int other = near.first; other < near.last; ++other) {
            const int shift = rounded(course[at(other)] - course[at(row)]);
            m_parts.push_back({m_clipped.row(other), scale * weightOf(other - row), shift});
        }
        mixRow(m_grid->first(row), m_grid->last(row), m_mixed.row(row));
    }
    measureNoise();
}

// What all parts cover at once, and then what single ones do beside it.
void OvRowMixer::mixRow(int first, int last, float* mixed)
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

void OvRowMixer::measureNoise()
{
    const int stretch = std::max(rounded(1.5 * m_guide->period()), 6);
    m_noise.clear();
    for (int i = 0; i < m_grid->rows(); ++i) {
        const int first = m_grid->first(i);
        const float energy =
            m_meter.quiet(row(i) + first, m_grid->last(i) - first, stretch, m_guide->freedom());
        m_noise.push_back(std::sqrt(std::max(energy, 0.0F)));
    }
}

OvOnsetLattice::Rows OvRowMixer::rows() const
{
    OvOnsetLattice::Rows rows;
    rows.grid = m_grid;
    rows.values = m_mixed.row(0);
    rows.noise = m_noise.data();
    rows.period = m_guide->period();
    rows.settle = m_guide->settle();
    return rows;
}

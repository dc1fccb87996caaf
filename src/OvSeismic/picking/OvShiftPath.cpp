#include "OvSeismic/picking/OvShiftPath.h"

#include "OvSeismic/dsp/OvVectorClones.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr float unreachable = -1e30F;

// Of each place the larger of its own value and what comes from `shift` places before it.
OV_VECTOR_CLONES
void takeFromBefore(const float* in, int places, int shift, float cost, float* out)
{
    std::copy_n(in, shift, out);
    for (int i = shift; i < places; ++i)
        out[i] = std::max(in[i], in[i - shift] - cost);
}

OV_VECTOR_CLONES
void takeFromBehind(const float* in, int places, int shift, float cost, float* out)
{
    for (int i = 0; i < places - shift; ++i)
        out[i] = std::max(in[i], in[i + shift] - cost);
    std::copy(in + (places - shift), in + places, out + (places - shift));
}

// The point of the row before from which a point is reached for `best`: the nearest to where no
// move costs anything.
int originOf(const float* before, int points, const OvShiftPath::Step& step, int point, float best)
{
    const int start = std::clamp(point - step.expected, 0, points - 1);
    const float least = best - 1e-5F * (1.0F + std::abs(best)); // sums were rounded on the way
    const auto sumFrom = [&](int from) {
        const auto aside = static_cast<float>(point - from - step.expected);
        return before[from] - std::max(aside * step.later, -aside * step.earlier);
    };
    int origin = start;
    float largest = sumFrom(start);
    for (int away = 1; away < points && largest < least; ++away) {
        for (const int from : {start - away, start + away}) {
            if (from < 0 || from >= points || !(sumFrom(from) > largest))
                continue;
            largest = sumFrom(from);
            origin = from;
        }
    }
    return origin;
}

} // namespace

const std::vector<int>& OvShiftPath::find(const OvScoreLattice& lattice,
                                          const std::vector<Step>& steps)
{
    m_path.assign(static_cast<std::size_t>(std::max(lattice.rows, 0)), 0);
    m_points = lattice.points;
    if (lattice.rows < 1 || m_points < 1) {
        m_path.clear();
        return m_path;
    }
    m_sums.resize(lattice.rows, m_points);
    std::copy_n(lattice.row(0), m_points, m_sums.row(0));
    for (int row = 1; row < lattice.rows; ++row)
        advance(m_sums.row(row - 1), steps[static_cast<std::size_t>(row)], lattice.row(row),
                m_sums.row(row));
    const float* last = m_sums.row(lattice.rows - 1);
    m_path.back() = static_cast<int>(std::max_element(last, last + m_points) - last);
    for (int row = lattice.rows - 1; row > 0; --row) {
        const int point = m_path[static_cast<std::size_t>(row)];
        m_path[static_cast<std::size_t>(row) - 1] =
            originOf(m_sums.row(row - 1), m_points, steps[static_cast<std::size_t>(row)], point,
                     m_sums.row(row)[point] - lattice.row(row)[point]);
    }
    return m_path;
}

// Places are where a point would come from without a cost, which may lie outside.
void OvShiftPath::advance(const float* before, const Step& step, const float* scores, float* out)
{
    const int expected = std::clamp(step.expected, -m_points, m_points);
    const int ahead = std::max(expected, 0); // places in front of the first point
    const int places = m_points + std::abs(expected);
    if (m_reached.size() < static_cast<std::size_t>(places)) {
        m_reached.resize(static_cast<std::size_t>(places));
        m_spare.resize(m_reached.size());
    }
    std::fill_n(m_reached.begin(), places, unreachable);
    std::copy_n(before, m_points, m_reached.begin() + ahead);
    for (int shift = 1; shift < places; shift *= 2) {
        takeFromBefore(m_reached.data(), places, shift, static_cast<float>(shift) * step.later,
                       m_spare.data());
        m_reached.swap(m_spare);
    }
    for (int shift = 1; shift < places; shift *= 2) {
        takeFromBehind(m_reached.data(), places, shift, static_cast<float>(shift) * step.earlier,
                       m_spare.data());
        m_reached.swap(m_spare);
    }
    const float* from = m_reached.data() + (ahead - expected);
    for (int point = 0; point < m_points; ++point)
        out[point] = from[point] + scores[point];
}

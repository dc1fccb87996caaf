#include "OvSeismic/picking/OvShiftPath.h"

#include <algorithm>

const std::vector<int>& OvShiftPath::find(const OvScoreLattice& lattice,
                                          const std::vector<Step>& steps)
{
    m_path.assign(static_cast<std::size_t>(std::max(lattice.rows, 0)), 0);
    m_points = lattice.points;
    if (lattice.rows < 1 || m_points < 1) {
        m_path.clear();
        return m_path;
    }
    const auto points = static_cast<std::size_t>(m_points);
    m_sums.assign(lattice.row(0), lattice.row(0) + m_points);
    m_origins.resize(static_cast<std::size_t>(lattice.rows) * points);
    for (int row = 1; row < lattice.rows; ++row)
        advance(row, steps[static_cast<std::size_t>(row)], lattice.row(row));
    m_path.back() =
        static_cast<int>(std::max_element(m_sums.begin(), m_sums.end()) - m_sums.begin());
    for (auto row = m_path.size() - 1; row > 0; --row)
        m_path[row - 1] = m_origins[row * points + static_cast<std::size_t>(m_path[row])];
    return m_path;
}

// The sweeps run over where a point would come from without a cost, which may lie outside.
void OvShiftPath::advance(int row, const Step& step, const float* scores)
{
    const int expected = std::clamp(step.expected, -m_points, m_points);
    const int ahead = std::max(expected, 0); // places in front of the first point
    const int places = m_points + std::abs(expected);
    m_spread.assign(static_cast<std::size_t>(places), {unreachable, 0});
    for (int point = 0; point < m_points; ++point)
        m_spread[static_cast<std::size_t>(point + ahead)] = {
            m_sums[static_cast<std::size_t>(point)], point};
    const auto relax = [](const Best& from, float penalty, Best* to) {
        const float sum = from.sum - penalty;
        if (sum > to->sum)
            *to = {sum, from.origin};
    };
    for (std::size_t i = 1; i < m_spread.size(); ++i)
        relax(m_spread[i - 1], step.later, &m_spread[i]);
    for (std::size_t i = m_spread.size() - 1; i > 0; --i)
        relax(m_spread[i], step.earlier, &m_spread[i - 1]);
    std::uint16_t* origins =
        m_origins.data() + static_cast<std::size_t>(row) * static_cast<std::size_t>(m_points);
    const Best* from = m_spread.data() + (ahead - expected);
    for (int point = 0; point < m_points; ++point) {
        m_sums[static_cast<std::size_t>(point)] = from[point].sum + scores[point];
        origins[point] = static_cast<std::uint16_t>(from[point].origin);
    }
}

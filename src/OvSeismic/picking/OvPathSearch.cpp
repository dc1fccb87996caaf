#include "OvSeismic/picking/OvPathSearch.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace {

constexpr float unreachable = -std::numeric_limits<float>::max();

class Search
{
public:
    explicit Search(const OvScoreLattice& lattice)
        : m_lattice(lattice)
        , m_points(static_cast<std::size_t>(lattice.points))
        , m_sums(lattice.row(0), lattice.row(0) + lattice.points)
        , m_next(m_points)
        , m_origins(static_cast<std::size_t>(lattice.rows) * m_points)
    {
    }

    void advance(int row, const OvPathStep& step, const OvMoveGains& gains)
    {
        const auto moves = 2 * static_cast<std::size_t>(step.reach) + 1;
        m_gains.assign(moves * m_points, 0.0F);
        if (gains)
            gains(row, step, &m_gains);
        m_row = m_origins.data() + static_cast<std::size_t>(row) * m_points;
        std::fill(m_next.begin(), m_next.end(), unreachable);
        for (int away = -step.reach; away <= step.reach; ++away)
            tryMove(step.expected + away, cost(step, away),
                    m_gains.data() + static_cast<std::size_t>(away + step.reach) * m_points);
        const float* scores = m_lattice.row(row);
        for (std::size_t point = 0; point < m_points; ++point)
            m_sums[point] = m_next[point] + scores[point];
    }

    std::vector<int> path() const
    {
        std::vector<int> path(static_cast<std::size_t>(m_lattice.rows));
        path.back() =
            static_cast<int>(std::max_element(m_sums.begin(), m_sums.end()) - m_sums.begin());
        for (auto row = path.size() - 1; row > 0; --row)
            path[row - 1] = m_origins[row * m_points + static_cast<std::size_t>(path[row])];
        return path;
    }

private:
    static float cost(const OvPathStep& step, int aside)
    {
        const int back = std::max(-step.away * (step.expected + aside), 0);
        return step.penalty * static_cast<float>(std::abs(aside)) +
               step.backPenalty * static_cast<float>(back);
    }

    // A move that would leave the grid is made from its edge, so that every point has an origin.
    void tryMove(int move, float cost, const float* gains)
    {
        const int last = m_lattice.points - 1;
        for (int point = 0; point <= last; ++point) {
            const auto at = static_cast<std::size_t>(point);
            const int origin = std::clamp(point - move, 0, last);
            const float sum = m_sums[static_cast<std::size_t>(origin)] + gains[at] - cost;
            if (sum > m_next[at]) {
                m_next[at] = sum;
                m_row[at] = static_cast<std::uint16_t>(origin);
            }
        }
    }

    const OvScoreLattice& m_lattice;
    std::size_t m_points;
    std::vector<float> m_sums; // best sum of a path that ends at each point
    std::vector<float> m_next;
    std::vector<float> m_gains;
    std::vector<std::uint16_t> m_origins; // point of the row before on that path
    std::uint16_t* m_row = nullptr;
};

} // namespace

std::vector<int> ovBestPath(const OvScoreLattice& lattice, const std::vector<OvPathStep>& steps,
                            const OvMoveGains& gains, const std::atomic<bool>* cancel)
{
    if (lattice.rows < 1 || lattice.points < 1)
        return {};
    Search search(lattice);
    for (int row = 1; row < lattice.rows; ++row) {
        if (cancel && cancel->load())
            return {};
        search.advance(row, steps[static_cast<std::size_t>(row)], gains);
    }
    return search.path();
}

#include "OvSeismic/picking/OvPathSearch.h"

#include "OvSeismic/dsp/OvVectorClones.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace {

constexpr float unreachable = -std::numeric_limits<float>::max();

// Takes the move to each of count points where it is worth more than what was best until now.
OV_VECTOR_CLONES
void takeMoves(const float* sums, const float* gains, float cost, int move, int count, float* best,
               int* moves)
{
    for (int i = 0; i < count; ++i) {
        const float sum = sums[i] + gains[i] - cost;
        const bool better = sum > best[i];
        best[i] = better ? sum : best[i];
        moves[i] = better ? move : moves[i];
    }
}

class Search
{
public:
    explicit Search(const OvScoreLattice& lattice)
        : m_lattice(lattice)
        , m_points(static_cast<std::size_t>(lattice.points))
        , m_sums(lattice.row(0), lattice.row(0) + lattice.points)
        , m_next(m_points)
        , m_moves(m_points)
        , m_origins(static_cast<std::size_t>(lattice.rows) * m_points)
    {
    }

    void advance(int row, const OvPathStep& step, const OvMoveGains& gains)
    {
        const auto moves = 2 * static_cast<std::size_t>(step.reach) + 1;
        m_gains.assign(moves * m_points, 0.0F);
        if (gains)
            gains(row, step, &m_gains);
        std::fill(m_next.begin(), m_next.end(), unreachable);
        for (int away = -step.reach; away <= step.reach; ++away)
            tryMove(step.expected + away, cost(step, away),
                    m_gains.data() + static_cast<std::size_t>(away + step.reach) * m_points);
        std::uint16_t* origins = m_origins.data() + static_cast<std::size_t>(row) * m_points;
        const float* scores = m_lattice.row(row);
        for (int point = 0; point < m_lattice.points; ++point) {
            const auto at = static_cast<std::size_t>(point);
            m_sums[at] = m_next[at] + scores[point];
            origins[at] = static_cast<std::uint16_t>(originOf(point, m_moves[at]));
        }
    }

    // From the best point of the row before to every point.
    void jump(int row)
    {
        const auto best = std::max_element(m_sums.begin(), m_sums.end());
        const float sum = *best;
        std::fill_n(m_origins.begin() + static_cast<std::ptrdiff_t>(row) * m_lattice.points,
                    m_points, static_cast<std::uint16_t>(best - m_sums.begin()));
        const float* scores = m_lattice.row(row);
        std::transform(scores, scores + m_points, m_sums.begin(),
                       [sum](float score) { return sum + score; });
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
    int originOf(int point, int move) const
    {
        return std::clamp(point - move, 0, m_lattice.points - 1);
    }

    void tryMove(int move, float cost, const float* gains)
    {
        const int first = std::clamp(move, 0, m_lattice.points);
        const int last = std::clamp(m_lattice.points + move, first, m_lattice.points);
        tryFromEdge(0, first, move, cost, gains);
        if (last > first)
            takeMoves(m_sums.data() + (first - move), gains + first, cost, move, last - first,
                      m_next.data() + first, m_moves.data() + first);
        tryFromEdge(last, m_lattice.points, move, cost, gains);
    }

    void tryFromEdge(int from, int to, int move, float cost, const float* gains)
    {
        for (int point = from; point < to; ++point)
            takeMoves(m_sums.data() + originOf(point, move), gains + point, cost, move, 1,
                      m_next.data() + point, m_moves.data() + point);
    }

    const OvScoreLattice& m_lattice;
    std::size_t m_points;
    std::vector<float> m_sums; // best sum of a path that ends at each point
    std::vector<float> m_next;
    std::vector<int> m_moves; // to each point on that path
    std::vector<float> m_gains;
    std::vector<std::uint16_t> m_origins; // point of the row before on that path
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
        const OvPathStep& step = steps[static_cast<std::size_t>(row)];
        if (step.anywhere)
            search.jump(row);
        else
            search.advance(row, step, gains);
    }
    return search.path();
}

#include "OvSeismic/picking/OvShiftPath.h"

#include "OvSeismic/dsp/OvLanes.h"
#include "OvSeismic/dsp/OvVectorClones.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr float unreachable = -1e30F;

constexpr int lanes = 16;
template <int bytes>
using Lanes = OvLanes<lanes, float, bytes>;

// What a place can be reached for from itself and the three `step`s nearest to it on one side, at a
// cost a place.
template <int bytes>
OV_LANES_INLINE Lanes<bytes> largestOfFour(const float* place, std::ptrdiff_t step,
                                           const Lanes<bytes>& cost)
{
    const Lanes<bytes> one = Lanes<bytes>::from(place + step) - cost;
    const Lanes<bytes> two = Lanes<bytes>::from(place + 2 * step) - (cost + cost);
    const Lanes<bytes> three = Lanes<bytes>::from(place + 3 * step) - (cost + cost + cost);
    return Lanes<bytes>::from(place).orMore(one).orMore(two.orMore(three));
}

// Of all places what they can be reached for from the places on one side (`side` -1 before them, 1
// behind them) at a cost a place: from four of them, by these from sixteen, by these from all.
// There are `lanes` unreachable places at either end of values and spare.
template <int bytes, int side>
OV_LANES_INLINE void reachFrom(float* values, float* spare, int places, float cost)
{
    const Lanes<bytes> each = Lanes<bytes>::all(cost);
    const Lanes<bytes> four = Lanes<bytes>::all(4.0F * cost);
    const Lanes<bytes> all = Lanes<bytes>::all(lanes * cost);
    for (int i = 0; i < places; i += lanes)
        largestOfFour<bytes>(values + i, side, each).to(spare + i);
    Lanes<bytes> nearer = Lanes<bytes>::all(unreachable);
    for (int i = 0; i < places; i += lanes) {
        const int at = side < 0 ? i : places - lanes - i;
        nearer = largestOfFour<bytes>(spare + at, 4 * side, four).orMore(nearer - all);
        nearer.to(values + at);
    }
}

template <int bytes>
OV_LANES_INLINE void reachFromAll(float* values, float* spare, int places, float later,
                                  float earlier)
{
    reachFrom<bytes, -1>(values, spare, places, later);
    reachFrom<bytes, 1>(values, spare, places, earlier);
}

OV_LANES_VERSIONS(void, reach,
                  (float* values, float* spare, int places, float later, float earlier),
                  reachFromAll, (values, spare, places, later, earlier))

OV_VECTOR_CLONES
void takeSums(const float* one, const float* other, int count, float* out)
{
    for (int i = 0; i < count; ++i)
        out[i] = one[i] + other[i];
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
    const int places = (m_points + std::abs(expected) + lanes - 1) / lanes * lanes;
    const auto room = static_cast<std::size_t>(places) + std::size_t(2) * lanes;
    if (m_reached.size() < room) {
        m_reached.resize(room);
        m_spare.resize(room);
    }
    const auto first = m_reached.begin() + lanes + ahead;
    std::fill(m_reached.begin(), first, unreachable);
    std::copy_n(before, m_points, first);
    std::fill(first + m_points, m_reached.begin() + static_cast<std::ptrdiff_t>(room), unreachable);
    std::fill_n(m_spare.begin(), lanes, unreachable);
    std::fill_n(m_spare.begin() + lanes + places, lanes, unreachable);
    float* reached = m_reached.data() + lanes;
    reach(reached, m_spare.data() + lanes, places, step.later, step.earlier);
    takeSums(reached + (ahead - expected), scores, m_points, out);
}

#include "OvSeismic/picking/OvPathSearch.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace {

constexpr float unreachable = -std::numeric_limits<float>::max();

struct Front
{
    std::vector<float> sums;  // best sum of a path that ends at each point of the row
    std::vector<int> origins; // point of the row before on that path
};

void advance(const std::vector<float>& before, const float* scores, const OvPathStep& step,
             Front* front)
{
    const int points = static_cast<int>(before.size());
    for (int point = 0; point < points; ++point) {
        const int centre = std::clamp(point - step.expected, 0, points - 1);
        float best = unreachable;
        int origin = centre;
        const int first = std::max(centre - step.reach, 0);
        const int last = std::min(centre + step.reach, points - 1);
        for (int from = first; from <= last; ++from) {
            const int away = std::abs(from - centre);
            const float sum =
                before[static_cast<std::size_t>(from)] - step.penalty * static_cast<float>(away);
            if (sum > best) {
                best = sum;
                origin = from;
            }
        }
        front->sums[static_cast<std::size_t>(point)] = best + scores[point];
        front->origins[static_cast<std::size_t>(point)] = origin;
    }
}

} // namespace

std::vector<int> ovBestPath(const OvScoreLattice& lattice, const std::vector<OvPathStep>& steps,
                            const std::atomic<bool>* cancel)
{
    if (lattice.rows < 1 || lattice.points < 1)
        return {};
    const auto points = static_cast<std::size_t>(lattice.points);
    std::vector<float> sums(lattice.row(0), lattice.row(0) + lattice.points);
    Front front{std::vector<float>(points), std::vector<int>(points)};
    std::vector<std::uint16_t> origins(static_cast<std::size_t>(lattice.rows) * points);
    for (int row = 1; row < lattice.rows; ++row) {
        if (cancel && cancel->load())
            return {};
        advance(sums, lattice.row(row), steps[static_cast<std::size_t>(row)], &front);
        sums.swap(front.sums);
        std::transform(front.origins.begin(), front.origins.end(),
                       origins.begin() +
                           static_cast<std::ptrdiff_t>(static_cast<std::size_t>(row) * points),
                       [](int origin) { return static_cast<std::uint16_t>(origin); });
    }
    std::vector<int> path(static_cast<std::size_t>(lattice.rows));
    path.back() = static_cast<int>(std::max_element(sums.begin(), sums.end()) - sums.begin());
    for (auto row = path.size() - 1; row > 0; --row)
        path[row - 1] = origins[row * points + static_cast<std::size_t>(path[row])];
    return path;
}

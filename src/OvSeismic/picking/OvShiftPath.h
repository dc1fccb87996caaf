#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/picking/OvPathSearch.h"

#include <cstdint>
#include <vector>

/// The best path through a lattice whose moves cost in proportion to their size.
///
/// The same search as ovBestPath() with one cost a step and no bound on moves, which two sweeps
/// over the points of a row replace (Felzenszwalb, P., Huttenlocher, D., 2012, Distance transforms
/// of sampled functions, Theory of Computing 8, 415-428: the transform under the L1 norm). The work
/// of a row grows with its points only. Keeps its memory from search to search.
class OVSEISMIC_EXPORT OvShiftPath
{
public:
    struct Step
    {
        int expected = 0;     ///< move in points that costs nothing
        float later = 1.0F;   ///< cost of each point by which a move exceeds it
        float earlier = 1.0F; ///< cost of each point by which a move falls short of it
    };
    /// Every move costs nothing.
    static constexpr Step anywhere{0, 0.0F, 0.0F};

    /// steps holds one entry a row; the first is not used. One point a row, valid until the next
    /// search; empty for an empty lattice.
    const std::vector<int>& find(const OvScoreLattice& lattice, const std::vector<Step>& steps);

private:
    void advance(int row, const Step& step, const float* scores);

    struct Best
    {
        float sum;
        int origin;
    };
    static constexpr float unreachable = -1e30F;

    int m_points = 0;
    std::vector<float> m_sums; // best sum of a path that ends at each point
    std::vector<Best> m_spread;
    std::vector<std::uint16_t> m_origins;
    std::vector<int> m_path;
};

#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/picking/OvScoreLattice.h"

#include <vector>

/// The best path through a lattice whose moves cost in proportion to their size: one point a row
/// with the largest sum of scores less the cost of its moves, by dynamic programming (Viterbi, A.,
/// 1967, Error bounds for convolutional codes and an asymptotically optimum decoding algorithm,
/// IEEE Trans. Inf. Theory 13, 260-269).
///
/// What a point can be reached for at best is a distance transform under the L1 norm of the row
/// before (Felzenszwalb, P., Huttenlocher, D., 2012, Distance transforms of sampled functions,
/// Theory of Computing 8, 415-428), taken in steps that double, so that all points of a row move at
/// once. The work of a row grows with points * log(points). Keeps its memory from search to search.
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
    void advance(const float* before, const Step& step, const float* scores, float* out);

    int m_points = 0;
    OvScoreLattice m_sums; // best sum of a path that ends at each point
    std::vector<float> m_reached;
    std::vector<float> m_spare;
    std::vector<int> m_path;
};

#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <atomic>
#include <vector>

/// Scores of every point in time of every trace of a chain, trace after trace.
struct OvScoreLattice
{
    int rows = 0;
    int points = 0;
    std::vector<float> scores; ///< rows * points values

    float* row(int index)
    {
        return scores.data() + static_cast<std::size_t>(index) * static_cast<std::size_t>(points);
    }
    const float* row(int index) const
    {
        return scores.data() + static_cast<std::size_t>(index) * static_cast<std::size_t>(points);
    }
};

/// How a path may go from the row before to a row.
struct OvPathStep
{
    int expected = 0;     ///< move in points that costs nothing
    int reach = 0;        ///< largest distance from the expected move
    float penalty = 0.0F; ///< cost of each point of that distance
};

/// The path of one point a row with the largest sum of scores less the cost of its moves, by
/// dynamic programming (Viterbi, A., 1967, Error bounds for convolutional codes and an
/// asymptotically optimum decoding algorithm, IEEE Trans. Inf. Theory 13, 260-269). steps holds one
/// entry a row; the first is not used. Empty for an empty lattice, and once *cancel is true (cancel
/// may be null).
OVSEISMIC_EXPORT std::vector<int> ovBestPath(const OvScoreLattice& lattice,
                                             const std::vector<OvPathStep>& steps,
                                             const std::atomic<bool>* cancel);

#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <atomic>
#include <functional>
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
    int expected = 0;         ///< move in points that costs nothing
    int reach = 0;            ///< largest distance from the expected move
    float penalty = 0.0F;     ///< cost of each point of that distance
    int away = 0;             ///< sign that moves should have, 0 either
    float backPenalty = 0.0F; ///< cost of each point of a move of the other sign
    bool anywhere = false;    ///< every move is free and gains nothing
};

/// Fills gains, (2 * reach + 1) * points values, with what each move to a row is worth: at
/// [(move - expected + reach) * points + point] the gain of reaching point by that move.
using OvMoveGains = std::function<void(int row, const OvPathStep& step, std::vector<float>* gains)>;

/// The path of one point a row with the largest sum of scores and gains less the cost of its moves,
/// by dynamic programming (Viterbi, A., 1967, Error bounds for convolutional codes and an
/// asymptotically optimum decoding algorithm, IEEE Trans. Inf. Theory 13, 260-269). steps holds one
/// entry a row; the first is not used. gains may be empty. Empty for an empty lattice, and once
/// *cancel is true (cancel may be null). At most 65535 points.
OVSEISMIC_EXPORT std::vector<int> ovBestPath(const OvScoreLattice& lattice,
                                             const std::vector<OvPathStep>& steps,
                                             const OvMoveGains& gains,
                                             const std::atomic<bool>* cancel);

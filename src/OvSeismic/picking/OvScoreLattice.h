#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

/// A value, mostly a score, for every point in time of every trace of a chain, trace after trace.
struct OvScoreLattice
{
    int rows = 0;
    int points = 0;
    std::vector<float> scores; ///< rows * points values, and room for more

    /// Makes room for rows * points scores, and never less; what they hold is left open.
    void resize(int rowCount, int pointCount)
    {
        rows = rowCount;
        points = pointCount;
        scores.resize(std::max(scores.size(),
                               static_cast<std::size_t>(rows) * static_cast<std::size_t>(points)));
    }
    float* row(int index)
    {
        return scores.data() + static_cast<std::size_t>(index) * static_cast<std::size_t>(points);
    }
    const float* row(int index) const
    {
        return scores.data() + static_cast<std::size_t>(index) * static_cast<std::size_t>(points);
    }
};

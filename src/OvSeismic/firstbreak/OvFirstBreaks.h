#pragma once

#include <QtGlobal>

#include <cmath>
#include <limits>
#include <vector>

/// How a trace came by its first break.
enum class OvPickState : quint8 {
    None = 0, ///< not picked
    Automatic = 1,
    Manual = 2,   ///< made or moved by the interpreter; no job overwrites it
    Rejected = 3, ///< classified as wrong: kept, drawn apart, left out of exports
};

/// The first breaks of one gather, one entry a trace in the gather's order.
struct OvFirstBreaks
{
    static constexpr float noPick = std::numeric_limits<float>::quiet_NaN();

    std::vector<float> timesMs; ///< ms after the shot instant; NaN where there is no pick
    std::vector<OvPickState> states;
    std::vector<float> confidences; ///< 0 to 1

    int size() const { return static_cast<int>(timesMs.size()); }
    bool isEmpty() const { return timesMs.empty(); }
    void resize(int traces)
    {
        const auto n = static_cast<std::size_t>(traces);
        timesMs.resize(n, noPick);
        states.resize(n, OvPickState::None);
        confidences.resize(n, 0.0F);
    }
    /// False also for a row that is not there, so that a gather without any pick needs no care.
    bool hasPick(int row) const
    {
        return row < size() && !std::isnan(timesMs[static_cast<std::size_t>(row)]);
    }
    int pickedCount() const
    {
        int count = 0;
        for (const float time : timesMs)
            count += std::isnan(time) ? 0 : 1;
        return count;
    }
};

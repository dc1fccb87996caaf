#pragma once

#include "OvSeismic/segy/OvSegyTypes.h"

#include <vector>

/// One gather in memory: its trace headers and samples, in the file's order.
///
/// A value: copied, moved and handed between threads freely.
struct OvGather
{
    int ordinal = -1; ///< position among the gathers of its file
    qint32 fieldRecord = 0;
    int sampleCount = 0;                ///< samples a trace; zeros follow traces that have fewer
    double intervalMs = 0.0;            ///< sample interval, ms
    std::vector<OvTraceHeader> headers; ///< one a trace
    std::vector<float> samples;         ///< trace after trace, headers.size() * sampleCount values

    int traceCount() const { return static_cast<int>(headers.size()); }
    const float* trace(int row) const
    {
        return samples.data() +
               static_cast<std::size_t>(row) * static_cast<std::size_t>(sampleCount);
    }
    float* trace(int row)
    {
        return samples.data() +
               static_cast<std::size_t>(row) * static_cast<std::size_t>(sampleCount);
    }
    /// Time after the shot instant, ms, of a (fractional) sample position of a trace.
    double timeMs(int row, double sample) const
    {
        return static_cast<double>(headers[static_cast<std::size_t>(row)].delayMs) +
               sample * intervalMs;
    }
    /// The inverse of timeMs().
    double sampleAt(int row, double time) const
    {
        return (time - static_cast<double>(headers[static_cast<std::size_t>(row)].delayMs)) /
               intervalMs;
    }
};

#pragma once

#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "OvSeismic/segy/OvGather.h"
#include "fixtures/SegyWriter.h"

#include <QString>

#include <memory>

/// Gathers and files for the tests of views.
namespace Gathers {

inline OvGather silent(int traces, int samples, double intervalMs)
{
    OvGather gather;
    gather.ordinal = 0;
    gather.fieldRecord = 7;
    gather.sampleCount = samples;
    gather.intervalMs = intervalMs;
    gather.samples.assign(static_cast<std::size_t>(traces) * static_cast<std::size_t>(samples),
                          0.0F);
    for (int row = 0; row < traces; ++row) {
        OvTraceHeader header;
        header.traceIndex = row;
        header.channel = row + 1;
        header.offset = static_cast<float>(10 * row);
        gather.headers.push_back(header);
    }
    return gather;
}

/// One sample that is not zero.
inline OvGather spike(int traces, int samples, int row, int sample, float value)
{
    OvGather gather = silent(traces, samples, 1.0);
    gather.trace(row)[sample] = value;
    return gather;
}

/// A line of shots; the records are firstRecord, firstRecord + 10 and so on.
inline bool writeLine(const QString& path, int shots, int channels = 24, int firstRecord = 100)
{
    SegyWriter writer;
    writer.sampleCount = 200;
    writer.intervalUs = 2000;
    for (int shot = 0; shot < shots; ++shot)
        writer.addShot(firstRecord + 10 * shot, 40.0 * shot, channels, 10.0);
    return writer.write(path);
}

inline OvFirstBreaks breaksAt(int traces, float timeMs, OvPickState state = OvPickState::Automatic)
{
    OvFirstBreaks breaks;
    breaks.resize(traces);
    std::fill(breaks.timesMs.begin(), breaks.timesMs.end(), timeMs);
    std::fill(breaks.states.begin(), breaks.states.end(), state);
    std::fill(breaks.confidences.begin(), breaks.confidences.end(), 0.9F);
    return breaks;
}

} // namespace Gathers

#pragma once

#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

/// A gather of receivers at given places, without an arrival, for tests of the order of traces.
struct CableGather
{
    OvGather gather;

    explicit CableGather(int samples = 4)
    {
        gather.sampleCount = samples;
        gather.intervalMs = 2.0;
    }

    /// Channels are counted from 1; the trace carries a signal.
    void addTrace(double receiverX, double receiverY)
    {
        OvTraceHeader header;
        header.channel = gather.traceCount() + 1;
        header.receiverX = receiverX;
        header.receiverY = receiverY;
        header.traceId = 1;
        gather.headers.push_back(header);
        gather.samples.resize(gather.headers.size() * static_cast<std::size_t>(gather.sampleCount));
        *gather.trace(gather.traceCount() - 1) = 1.0F;
    }

    /// Puts the shot of all traces and gives them their distances to it for offsets.
    void placeShot(double x, double y)
    {
        for (OvTraceHeader& header : gather.headers) {
            header.sourceX = x;
            header.sourceY = y;
            header.offset =
                static_cast<float>(std::hypot(header.receiverX - x, header.receiverY - y));
        }
    }
};

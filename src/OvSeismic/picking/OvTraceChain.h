#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

struct OvGather;

/// The traces of a gather that can be picked, in the order in which an arrival runs through them.
struct OVSEISMIC_EXPORT OvTraceChain
{
    std::vector<int> rows;     ///< rows of the gather, neighbours in the field next to each other
    std::vector<double> steps; ///< distance to the link before, in usual trace distances; 1 unknown
    std::vector<int> away;     ///< 1 where a link is farther from the shot than the one before, -1
                               ///< where it is nearer, 0 unknown
    bool hasOffsets = false;

    int size() const { return static_cast<int>(rows.size()); }

    /// Traces that carry a signal: not marked dead or auxiliary (trace identification codes 2 to
    /// 9), not constant, every sample a finite number.
    ///
    /// They run by signed offset, so that the two sides of a split spread meet at the shot. The
    /// sign is the file's own where it has negative ones; else the side of the shot on which the
    /// receiver lies by its coordinates; else, for offsets that fall and rise again along the file,
    /// the side of the smallest. Without offsets they run by channel.
    static OvTraceChain of(const OvGather& gather);
};

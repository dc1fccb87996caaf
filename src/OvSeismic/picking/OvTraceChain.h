#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

struct OvGather;

/// Links first to last - 1 of a chain.
struct OvLinkRange
{
    int first = 0;
    int last = 0;
};

/// The links at most `reach` away from one, itself among them, that lie on its cable. cables holds
/// the cable of each of the `count` links; an empty one stands for a single cable.
OVSEISMIC_EXPORT OvLinkRange ovNeighbours(const std::vector<int>& cables, int count, int link,
                                          int reach);

/// The traces of a gather that can be picked, in the order in which an arrival runs through them.
struct OVSEISMIC_EXPORT OvTraceChain
{
    std::vector<int> rows;     ///< rows of the gather, neighbours in the field next to each other
    std::vector<double> steps; ///< distance to the link before, in usual trace distances; 1 unknown
    std::vector<int> away;     ///< 1 where a link is farther from the shot than the one before, -1
                               ///< where it is nearer, 0 unknown
    std::vector<int> cables;   ///< cable of each link, from 0, ascending; empty for a single one
    bool hasOffsets = false;

    int size() const { return static_cast<int>(rows.size()); }
    /// Whether a link is the first of its cable, so that nothing leads to it.
    bool beginsCable(int link) const;
    /// Whether a link is the only one of its cable.
    bool isAlone(int link) const;
    OvLinkRange neighbours(int link, int reach) const
    {
        return ovNeighbours(cables, size(), link, reach);
    }

    /// Traces that carry a signal: not marked dead or auxiliary (trace identification codes 2 to
    /// 9), not constant, every sample a finite number.
    ///
    /// They run by signed offset, so that the two sides of a split spread meet at the shot. The
    /// sign is the file's own where it has negative ones; else the side of the shot on which the
    /// receiver lies by its coordinates; else, for offsets that fall and rise again along the file,
    /// the side of the smallest. Without offsets they run by channel, and traces of about one
    /// offset from all along a line by their midpoints. Where the traces lie on
    /// several cables (OvCableFinder) they run so through one cable after the other, in the order
    /// of the cables' first traces.
    static OvTraceChain of(const OvGather& gather);
};

#pragma once

#include "OvSeismic/picking/OvOnsetGuide.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"
#include "SyntheticGather.h"

/// A synthetic gather on a grid of its own samples, for tests of what works on a guide's course.
struct GuidedGather
{
    SyntheticGather synthetic;
    OvTraceChain chain;
    OvTraceGrid grid;
    OvOnsetGuide guide;

    explicit GuidedGather(int traces)
        : synthetic(traces)
    {
    }

    static std::size_t at(int row) { return static_cast<std::size_t>(row); }

    /// After changes of the samples.
    void load()
    {
        chain = OvTraceChain::of(synthetic.gather);
        grid.load(synthetic.gather, chain, 1, 0.0);
    }

    /// Point at which the arrival of a link of the chain begins.
    double onset(int link) const
    {
        return grid.pointAt(link, synthetic.onsetsMs[at(chain.rows[at(link)])]);
    }
};

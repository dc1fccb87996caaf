#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/picking/OvPickPlan.h"

#include <atomic>
#include <vector>

class OvTraceGrid;
struct OvGather;
struct OvPickParameters;
struct OvTraceChain;

/// The course of the first arrival through a gather in which most traces show it by themselves.
///
/// Owes nothing to any earlier course, so that it can stand against one: a first guide by the steps
/// of the energy, on the scale of the whole traces' dominant period, and a second one on the scale
/// of the waves behind the first, along which neighbours have to look alike (OvPickGuide).
struct OVSEISMIC_EXPORT OvClearCourse
{
    OvPickPlan plan;             ///< by the dominant period of the waves behind the course
    std::vector<double> timesMs; ///< of each row, after the shot instant; empty once cancelled

    /// The grid holds the traces of the chain. cancel may be null.
    static OvClearCourse find(const OvGather& gather, const OvTraceChain& chain,
                              const OvTraceGrid& grid, const OvPickParameters& parameters,
                              const std::atomic<bool>* cancel);
};

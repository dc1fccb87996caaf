#pragma once

#include "OvSeismic/picking/OvPicker.h"

/// The whole gather, from noise to phase.
///
/// 1. The live traces are put in a chain (OvTraceChain) and on one clock (OvTraceGrid), about
///    fifteen points a period.
/// 2. The course of the arrival: what noise can be predicted is taken out, each trace says where it
///    turns from noise to signal, the best path through all traces follows (OvOnsetGuide).
/// 3. The traces are aligned on each other along the course (OvArrivalAlignment), and mixed with
///    their neighbours: where the mixed rows show an earlier arrival for a long stretch, that is
///    the course (OvMixedCourse), and they are aligned once more. Of arrivals too weak for that it
///    is that of rows mixed along likely slopes (OvSlopeCourse).
/// 4. The aligned traces are stacked, the onset of the stack is carried back to each of them
///    (OvArrivalStack). Where the trace itself stands clear of the noise, the onset of its own
///    first swing near the course (OvOnsetSearch) takes its place.
/// 5. The wanted phase of the swing (OvPhaseSearch), and what speaks for each pick
///    (OvPickEvidence).
///
/// Polarity: where a clear trace offers two swings, the one of the asked sign is taken, if it lies
/// no worse with the neighbours. When the clear first swings of a gather mostly have the other
/// sign, that sign takes the place of the asked one, so that picks stay on the first swing; a
/// single channel of reversed polarity keeps its onset as well.
///
/// A trace is left without a pick below either threshold of the parameters, outside the offset
/// limits, and below the least confidence.
class OVSEISMIC_EXPORT OvGatherPicker : public OvPicker
{
public:
    OvPickResult pick(const OvGather& gather, const OvPickSettings& settings,
                      const std::atomic<bool>* cancel) const override;
};

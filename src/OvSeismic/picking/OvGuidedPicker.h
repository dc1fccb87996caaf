#pragma once

#include "OvSeismic/picking/OvPicker.h"

/// Energy steps, a guide through offset, and the onset of the first swing beside the guide.
///
/// 1. The live traces of the gather are put in a chain (OvTraceChain).
/// 2. The dominant period sets the scales that the parameters leave open (OvPickPlan).
/// 3. A path through all traces follows the first energy step (OvPickGuide), twice: the second time
///    with each trace's noise and the arrival's slope known from the first, and so that neighbours
///    look alike along it.
/// 4. Near the path the onset is that of the first swing (OvFirstSwing). An onset that stands apart
///    from those of its neighbours is searched again where they point (OvOnsetSearch).
///
/// Polarity: where a trace offers two swings, the one of the asked sign is taken, if it lies no
/// worse with the neighbours. When the clear first swings of a gather mostly have the other sign,
/// that sign takes the place of the asked one, so that picks stay on the first swing; a single
/// channel of reversed polarity keeps its onset as well.
///
/// The confidence is 1 for an arrival ten times as large as the noise whose onset agrees with those
/// of its neighbours, and falls with either. Below 0.05 there is no pick whatever the thresholds,
/// and none in the whole gather when not one trace in ten reaches 0.25: such a gather is a misfire.
class OvGuidedPicker : public OvPicker
{
public:
    OvPickResult pick(const OvGather& gather, const OvPickSettings& settings,
                      const std::atomic<bool>* cancel) const override;
};

#pragma once

#include "OvSeismic/picking/OvPicker.h"

/// Energy steps, a guide through offset, and the onset beside the guide.
///
/// 1. The live traces of the gather are put in a chain (OvTraceChain).
/// 2. The dominant period sets the scales that the parameters leave open (OvPickPlan).
/// 3. A path through all traces follows the first energy step (OvPickGuide), twice: the second time
///    with each trace's noise and the arrival's slope known from the first.
/// 4. Near the path the onset is the change of variance (OvOnset); an onset that stands apart from
///    those of its neighbours is searched again where they point.
///
/// Polarity. The pick is the onset of the first swing. Only where that swing is of the other sign
/// and less than a third of the swing behind it (the ripple of a zero-phase filter, say) the pick
/// moves to the zero crossing between the two. A trace that is reversed as a whole keeps its onset.
///
/// The confidence is 1 for an arrival ten times as large as the noise that agrees with its
/// neighbours, and falls with either. A trace whose arrival does not stand out from its noise at
/// all is left without a pick, whatever the thresholds.
class OvGuidedPicker : public OvPicker
{
public:
    OvPickResult pick(const OvGather& gather, const OvPickParameters& parameters,
                      const std::atomic<bool>* cancel) const override;
};

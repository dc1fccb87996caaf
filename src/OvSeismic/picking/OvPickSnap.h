#pragma once

#include "OvSeismic/OvSeismicExport.h"

struct OvGather;

/// Where a pick made by hand goes.
namespace OvPickSnap {

/// The onset of the first swing (OvFirstSwing, the rule of automatic picking) whose onset lies
/// within windowMs of timeMs, in ms after the shot instant.
///
/// The swing has to be three times as high as the RMS of the period before the window; where none
/// is, on a dead trace, and with a window of 0, the answer is timeMs itself. Never outside the
/// samples of the trace.
OVSEISMIC_EXPORT double snap(const OvGather& gather, int row, double timeMs, double windowMs);

} // namespace OvPickSnap

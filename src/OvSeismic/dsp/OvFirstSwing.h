#pragma once

#include "OvSeismic/OvSeismicExport.h"

class OvTraceView;

/// The first swing of an arrival, and its onset.
namespace OvFirstSwing {

enum class Sign { Either = 0, Positive = 1, Negative = -1 };

/// Where a swing is looked for, in samples.
struct Window
{
    int first = 0;           ///< first sample that may belong to the swing
    int last = 0;            ///< one behind the last
    int quiet = 0;           ///< samples before first that tell the level of rest and the noise
    double share = 0.0;      ///< least height, as a share of the largest deflection in the window
    double lobeShare = 0.33; ///< least height of a lobe before the swing, as a share of the swing's
};

struct Swing
{
    int peak = -1;     ///< sample of its extremum; -1 when there is none
    double rest = 0.0; ///< the level that it departs from
    bool found() const { return peak >= 0; }
};

/// The first swing in a window that is higher than the share and than twice the noise (RMS of the
/// quiet samples), though never asked to be higher than 0.8 of the largest. With either sign a lobe
/// of the other sign right before it is the first swing when it has a third of the height and
/// stands clear of the noise, for the first swing of a wave is often weaker than the second.
OVSEISMIC_EXPORT Swing find(const OvTraceView& trace, const Window& window, Sign sign);

/// Onset of a swing as a fractional sample: where the straight line through the points of its flank
/// at 0.3 and at 0.6 of its height meets the level of rest. The flank stands clear of the noise,
/// which blurs any threshold near the onset itself.
OVSEISMIC_EXPORT double onset(const float* samples, const Swing& swing);

} // namespace OvFirstSwing

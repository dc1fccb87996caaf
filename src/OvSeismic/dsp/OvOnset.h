#pragma once

#include "OvSeismic/OvSeismicExport.h"

class OvTraceSums;

/// Where a trace changes from noise to signal.
namespace OvOnset {

/// Samples [from, to) that are looked at, and those, [first, last), among which the onset lies.
struct Window
{
    int from = 0;
    int to = 0;
    int first = 0;
    int last = 0;
};

/// The onset inside a window as a fractional sample position, or -1 when the window is too short or
/// holds no change.
///
/// The split k of a window of n samples that makes AIC(k) = k ln var(x[0, k)) +
/// (n - k) ln var(x[k, n)) least (Maeda, N., 1985, A method for reading and checking phase times in
/// auto-processing system of seismic wave data, Zisin 38, 365-379), made finer than a sample by the
/// parabola through the least value and its neighbours. floor is the variance below which two
/// stretches count as equally quiet; it keeps noise-free traces from splitting at their first
/// non-zero digit.
OVSEISMIC_EXPORT double aic(const OvTraceSums& trace, const Window& window, double floor);

/// Position of the extremum of a parabola through three neighbouring values, from -0.5 to 0.5 about
/// the middle one; 0 when the three lie on a line.
OVSEISMIC_EXPORT double parabolaShift(double before, double middle, double after);

} // namespace OvOnset

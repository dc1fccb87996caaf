#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

class OvTraceSums;

/// The energy-ratio detection function, in a form that bursts of noise cannot upset.
namespace OvEnergyStep {

/// Regular points in time at which a trace is looked at, in samples of that trace.
struct Grid
{
    double first = 0.0; ///< sample position of point 0; negative when the trace begins later
    double step = 1.0;  ///< samples from point to point
    int points = 0;
};

/// Variance of the samples within half samples of each point; negative where the trace has none.
OVSEISMIC_EXPORT void variances(const OvTraceSums& trace, const Grid& grid, double half,
                                std::vector<float>* out);

/// What activity() compares variances with.
struct Reference
{
    double noise = 0.0; ///< variance of the noise, or of what is as good as noise
    double share =
        0.0;       ///< share of the largest variance of the next points that counts as noise too
    int ahead = 0; ///< how many points that looks ahead
};

/// Replaces variances by how much they stand out: ln(variance / reference), limited to -limit and
/// limit. Points before the trace count as noise, points after it as neither. A forerunner that is
/// much weaker than the wave close behind it is noise by the share of the reference.
OVSEISMIC_EXPORT void activity(const Reference& reference, double limit,
                               std::vector<float>* values);

/// Mean activity of the `after` points from each point on less that of the `before` points before
/// it: the logarithm of an energy ratio of forward and backward window (Han, L., Wong, J.,
/// Bancroft, J., 2009, Time picking and random noise reduction on microseismic data, CREWES
/// Research Report 21), of geometric means in the place of arithmetic ones. Points before the first
/// one count as noise.
OVSEISMIC_EXPORT void steps(const std::vector<float>& activity, int before, int after, float noise,
                            float* out);

} // namespace OvEnergyStep

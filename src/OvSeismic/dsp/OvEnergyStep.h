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
    double share = 0.0; ///< share of the largest variance of the next points that is noise, too
    int ahead = 0;      ///< how many points that looks ahead
    double limit = 1.0; ///< largest size of the result
};

/// Replaces variances by how much they stand out: ln(variance / reference), from -limit to limit.
/// Points before the trace count as noise, points after it as neither. A forerunner that is much
/// weaker than the wave close behind it is noise by the share of the reference.
OVSEISMIC_EXPORT void activity(const Reference& reference, std::vector<float>* values);

/// How steps() weighs the activity around a point.
struct Windows
{
    int before = 1;            ///< points of the window before a point
    int after = 1;             ///< points of the window from it on
    float limit = 1.0F;        ///< of the activity; points before the first one have -limit
    float heardPenalty = 0.0F; ///< taken off where a whole window of activity went before
};

/// Mean activity of the window from each point on less that of the window before it: the logarithm
/// of an energy ratio of forward and backward window (Han, L., Wong, J., Bancroft, J., 2009, Time
/// picking and random noise reduction on microseismic data, CREWES Research Report 21), of
/// geometric means in the place of arithmetic ones. The penalty grows with the activity ahead of
/// both windows, so that of two equal steps with silence between them the first one wins.
OVSEISMIC_EXPORT void steps(const std::vector<float>& activity, const Windows& windows, float* out);

} // namespace OvEnergyStep

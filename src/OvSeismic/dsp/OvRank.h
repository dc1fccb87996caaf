#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

/// Values by their rank among others. None may be NaN.
namespace OvRank {

/// The value that `rank` of `count` values are smaller than or as large as, its own left out; rank
/// is less than count.
OVSEISMIC_EXPORT float of(const float* values, int count, int rank);
OVSEISMIC_EXPORT double of(const double* values, int count, int rank);

/// The one in the middle, the upper one of two. count is 1 at least.
OVSEISMIC_EXPORT double median(const double* values, int count);
OVSEISMIC_EXPORT double median(const std::vector<double>& values);

/// Medians of the values up to `reach` on either side of each and the one itself.
OVSEISMIC_EXPORT void runningMedians(const double* values, int count, int reach, double* out);

} // namespace OvRank

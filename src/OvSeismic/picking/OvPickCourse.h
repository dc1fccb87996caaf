#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

/// The course of times along a chain of traces.
namespace OvPickCourse {

/// Slope at each link: from the link before to this one, the median of slopes across the
/// neighbours; 0 at the first.
OVSEISMIC_EXPORT std::vector<double> slopes(const std::vector<double>& times);

/// Distance of each time from where its neighbours, up to `reach` on either side, point: the median
/// of what each of them says when the slopes are followed from it. The time's own word is left out.
OVSEISMIC_EXPORT std::vector<double> strays(const std::vector<double>& times, int reach);

/// Medians of the values up to `reach` on either side and the one in the middle.
OVSEISMIC_EXPORT std::vector<double> runningMedians(const std::vector<double>& values, int reach);

/// Median; the upper of two in the middle. values must not be empty.
OVSEISMIC_EXPORT double median(std::vector<double> values);

} // namespace OvPickCourse

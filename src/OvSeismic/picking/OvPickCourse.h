#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

class OvTraceGrid;
struct OvTraceChain;

/// The course of times along a chain of traces. Neighbours are those on the same cable; cables as
/// in OvTraceChain.
namespace OvPickCourse {

/// Slope at each link: from the link before to this one, the median of slopes across the
/// neighbours; 0 at the first of a cable. Slopes turn over at the shot: only links that lead the
/// same way, towards it or away, are compared.
OVSEISMIC_EXPORT std::vector<double> slopes(const std::vector<double>& times,
                                            const OvTraceChain& chain);

/// Distance of each time from where its neighbours, up to `reach` on either side, point: the median
/// of what each of them says when the slopes are followed from it. The time's own word is left out.
OVSEISMIC_EXPORT std::vector<double> strays(const std::vector<double>& times, int reach,
                                            const OvTraceChain& chain);

/// How much earlier each time is than the latest of the trusted ones nearer to the shot on its
/// side, as the medians of seven tell them; 0 where it is not, and where it is unknown which way
/// the shot lies.
OVSEISMIC_EXPORT std::vector<double> leads(const std::vector<double>& times,
                                           const std::vector<bool>& trusted,
                                           const OvTraceChain& chain);

/// Medians of the values up to `reach` on either side and the one in the middle.
OVSEISMIC_EXPORT std::vector<double> runningMedians(const std::vector<double>& values, int reach,
                                                    const std::vector<int>& cables);

/// Median over the rows of the dominant period (ovDominantPeriod) of `length` points from each
/// row's start on, points; 0 when no row has one.
OVSEISMIC_EXPORT double periodBehind(const OvTraceGrid& grid, const std::vector<double>& starts,
                                     double length);

} // namespace OvPickCourse

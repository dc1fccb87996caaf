#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <atomic>
#include <vector>

struct OvGather;
struct OvPickPlan;
struct OvTraceChain;

/// The course of the first arrival through a gather, good to about half a period.
namespace OvPickGuide {

/// Times after the shot instant, ms, one for each trace of the chain; empty once *cancel is true
/// (cancel may be null).
///
/// Every trace is judged by where it turns from as quiet as its noise to louder than it, so that a
/// weak first arrival is not passed over for the strong waves behind it; the whole gather is judged
/// by the path through all traces, so that single traces cannot stray. previous (may be empty) is
/// an earlier guide: it tells where each trace's noise ends and how steep the arrival runs.
OVSEISMIC_EXPORT std::vector<double> find(const OvGather& gather, const OvTraceChain& chain,
                                          const OvPickPlan& plan,
                                          const std::vector<double>& previous,
                                          const std::atomic<bool>* cancel);

} // namespace OvPickGuide

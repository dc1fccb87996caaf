#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

struct OvFirstBreaks;
struct OvGather;

/// Automatic picks that are probably wrong.
namespace OvErrorPicks {

/// Their rows, ascending.
///
/// A pick is held against straight lines through the picks beside it along its cable
/// (OvTraceChain): those ahead of it, those behind it, and both, so that a bend of the arrival or
/// the shot in the middle is no error. The lines are repeated-median lines (Siegel, A., 1982,
/// Robust regression using repeated medians, Biometrika 69, 242-244), which up to half of their
/// picks cannot upset. The smallest of these distances may be five times the spread of all such
/// distances (1.4826 times their median), at least half the dominant period and 2 samples; for a
/// pick of low confidence down to half as much. Manual picks count as neighbours and are never
/// named; rejected ones are left out.
OVSEISMIC_EXPORT std::vector<int> find(const OvGather& gather, const OvFirstBreaks& breaks);

} // namespace OvErrorPicks

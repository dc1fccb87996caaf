#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/picking/OvArrivalStack.h"
#include "OvSeismic/picking/OvPickSettings.h"

#include <vector>

class OvTraceGrid;

/// From onsets to another point of the same swing.
namespace OvPhaseSearch {

/// Points of each row at the phase. members hold the onsets. Which swing it is, and how far from
/// the onset, the stack around each row decides, so that it is the same on all of them; then the
/// trace's own extremum or zero within a seventh of a period takes the place of what the stack
/// says.
OVSEISMIC_EXPORT std::vector<double> find(const OvTraceGrid& grid,
                                          const std::vector<OvArrivalStack::Member>& members,
                                          double period, OvPickPhase phase);

} // namespace OvPhaseSearch

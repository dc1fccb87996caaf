#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

struct OvGather;

/// Tells the cables (receiver lines) of a gather apart.
///
/// By coordinates where there are some: positions no farther apart than 1.6 times the usual
/// distance to the nearest one make pieces, and pieces that go on from each other, with a gap or a
/// bend between them, make a cable; pieces that lie side by side are of different ones. The
/// positions are those of the receivers, or of the sources where all traces have the same receiver.
/// Where a gather holds several shots with eight traces on average (or as many receivers), these
/// are told apart first; where both ends change from trace to trace nothing can be said. Without
/// coordinates by the offsets along the channels: along one straight cable signed offsets go one
/// way, and unsigned ones fall and then rise.
namespace OvCableFinder {

/// The cable of each of some rows of a gather, from 0 in the order of the cables' first rows; all 0
/// where there is one, or none that could be told. A cable has four traces at least; what seems to
/// lie on none goes with the nearest row that does.
OVSEISMIC_EXPORT std::vector<int> find(const OvGather& gather, const std::vector<int>& rows);

} // namespace OvCableFinder

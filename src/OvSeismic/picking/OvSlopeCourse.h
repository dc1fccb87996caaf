#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/picking/OvOnsetLattice.h"
#include "OvSeismic/picking/OvShiftPath.h"

#include <vector>

class OvRowMixer;
struct OvTraceChain;

/// The course of arrivals that are too weak to be followed from trace to trace.
///
/// The rows are mixed with their neighbours along each of a set of slopes, those of waves that run
/// away from the shot, as if the receivers listened in that direction (Rieber, F., 1936, A new
/// reflection system with controlled directional sensitivity, Geophysics 1, 97-106); a time scores
/// by the slope that shows most. Keeps its memory from gather to gather.
class OVSEISMIC_EXPORT OvSlopeCourse
{
public:
    /// The mixer is loaded with the rows, and mixes them several times; course is one to begin
    /// with. False once *limits.cancel is true.
    bool find(OvRowMixer* mixer, const OvTraceChain& chain, const OvOnsetLimits& limits,
              const std::vector<double>& course);
    const std::vector<double>& times() const { return m_times; } ///< point of each row

private:
    void listen(OvRowMixer* mixer, const OvTraceChain& chain, const OvOnsetLimits& limits,
                double slope);

    std::vector<double> m_times;
    std::vector<double> m_line;
    OvOnsetLattice m_lattice; // of one slope
    OvScoreLattice m_scores;  // the largest of all
    OvShiftPath m_path;
};

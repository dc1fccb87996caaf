#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/picking/OvArrivalAlignment.h"
#include "OvSeismic/picking/OvOnsetLattice.h"
#include "OvSeismic/picking/OvRowMixer.h"
#include "OvSeismic/picking/OvShiftPath.h"
#include "OvSeismic/picking/OvSlopeCourse.h"

#include <vector>

class OvOnsetGuide;

/// A second opinion on the course of the first arrival.
///
/// What runs along the course, weaker and ahead of the wave that was followed, is as hidden on each
/// trace as any wave is in noise. Rows mixed with their neighbours along the course (OvRowMixer)
/// show it. Unless they show that the arrivals begin on the course and nothing ahead of it, the
/// course is found again in the mixed rows; where the two part for a long stretch, the one stays
/// that the energies about it speak for. Where hardly anything holds the traces together, the
/// course is that of rows mixed along all likely slopes (OvSlopeCourse), but for stretches that do
/// hold together.
class OVSEISMIC_EXPORT OvMixedCourse
{
public:
    /// The guide has found its course in the rows of the grid, matches is where the arrivals lie
    /// along it. False once *limits.cancel is true.
    bool find(const OvOnsetGuide& guide, const std::vector<OvArrivalAlignment::Match>& matches,
              const OvTraceGrid& grid, const OvTraceChain& chain, const OvOnsetLimits& limits);
    /// The better of the two at each row, points.
    const std::vector<double>& times() const { return m_times; }
    /// A row mixed with its neighbours, in units of its noise before.
    const float* mixed(int row) const { return m_mixer.row(row); }

    /// RMS of the period behind a point of a mixed row over that of its noise.
    double riseAt(int row, double point) const;
    /// RMS of the loudest period of a mixed row that ends a period before a point, over that of its
    /// noise: how much like an arrival what lies ahead of the point is. 1 without anything ahead.
    double forerunAt(const OvTraceGrid& grid, int row, double point) const;

private:
    double loudness(int row, int from, int to) const;
    bool followSlopes(const std::vector<double>& strengths, const OvTraceGrid& grid,
                      const OvTraceChain& chain, const OvOnsetLimits& limits);
    void measureHalves(const OvTraceGrid& grid);
    double stepAt(const OvTraceGrid& grid, int row, double point) const;
    bool isBeyondDoubt(const OvTraceGrid& grid, const OvTraceChain& chain) const;
    void choose(const OvTraceGrid& grid, const OvTraceChain& chain,
                const std::vector<double>& second);

    int m_points = 0;
    double m_period = 0.0;
    OvRowMixer m_mixer;
    OvSlopeCourse m_slopes;
    OvScoreLattice m_halves; // energies of the half periods of each mixed row
    int m_half = 1;          // points
    std::vector<double> m_times;
    OvOnsetLattice m_lattice;
    OvShiftPath m_path;
};

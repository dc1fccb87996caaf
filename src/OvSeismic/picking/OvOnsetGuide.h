#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/dsp/OvNoiseLevel.h"
#include "OvSeismic/picking/OvOnsetLattice.h"
#include "OvSeismic/picking/OvShiftPath.h"
#include "OvSeismic/picking/OvTraceGrid.h"

#include <atomic>
#include <vector>

struct OvTraceChain;

/// The course of the first arrival through a gather, good to a part of a period.
///
/// Every trace says at each time how likely it turns from noise to signal there (OvOnsetLattice),
/// in traces from which the predictable part of the gather's noise has been taken
/// (OvAutoregression); the best path through all traces (OvShiftPath) is the course. It is found
/// first with the quietest stretch of each trace for its noise, then with what lies ahead of the
/// course before, and with the slopes of that course; a third time if the second has moved it.
class OVSEISMIC_EXPORT OvOnsetGuide
{
public:
    /// Dominant period, points, of the waves of some traces, from a first look.
    double scout(const OvTraceGrid& grid, const OvTraceChain& chain,
                 const std::atomic<bool>* cancel);
    /// scouted is a period to begin with, points; 0 unknown. False once *limits.cancel is true;
    /// what follows then means nothing.
    bool find(const OvTraceGrid& grid, const OvTraceChain& chain, const OvOnsetLimits& limits,
              double scouted = 0.0);

    double period() const { return m_period; } ///< dominant period of the arrival, points
    const std::vector<double>& times() const { return m_times; } ///< point of each row
    /// Rows as they were searched: the predictable noise taken out, smoothed.
    const float* filtered(int row) const { return m_filtered.row(row); }
    const std::vector<float>& whitener() const { return m_whitener; }
    /// RMS of the noise of a filtered row.
    float noise(int row) const { return m_noise[static_cast<std::size_t>(row)]; }
    /// Independent samples in one sample of the noise of a filtered row.
    double freedom() const { return m_freedom; }
    /// Points at the start of a row that say nothing.
    int settle() const { return m_settle; }
    /// What was searched last.
    const OvOnsetLattice& lattice() const { return m_lattice; }

private:
    struct Quiet
    {
        int from = 0;
        int to = 0;
        int size() const { return to - from; }
    };

    void pass(const OvTraceGrid& grid, const OvTraceChain& chain, const OvOnsetLimits& limits,
              bool atCourse, bool measures);
    bool hasSettled(const std::vector<double>& last) const;
    void measurePeriod(const OvTraceGrid& grid, bool atCourse);
    void findQuiet(const OvTraceGrid& grid, bool atCourse);
    Quiet quietest(const OvTraceGrid& grid, int row);
    void measureQuietShare(const OvTraceGrid& grid);
    void whiten(const OvTraceGrid& grid);
    void filter(const OvTraceGrid& grid);
    float noiseEnergy(const OvTraceGrid& grid, int row, bool atCourse);
    void measureNoise(const OvTraceGrid& grid, bool atCourse, double leastAmplitude);
    void follow(const OvTraceChain& chain, const OvTraceGrid& grid, const OvOnsetLimits& limits);

    const std::atomic<bool>* m_cancel = nullptr;
    int m_points = 0;
    int m_settle = 0;
    double m_period = 0.0;
    double m_mostOfRows = 0.0; // period that whole rows may show
    double m_quietShare = 1.0;
    double m_freedom = 1.0;
    std::vector<double> m_times;
    std::vector<Quiet> m_quiet;
    std::vector<float> m_energies; // of stretches of one row
    std::vector<float> m_noise;
    std::vector<float> m_whitener;
    OvScoreLattice m_filtered;
    OvNoiseLevel::Meter m_meter;
    OvOnsetLattice m_lattice;
    OvShiftPath m_path;
};

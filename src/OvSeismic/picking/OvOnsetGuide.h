#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/dsp/OvChangeScore.h"
#include "OvSeismic/picking/OvShiftPath.h"
#include "OvSeismic/picking/OvTraceGrid.h"

#include <atomic>
#include <vector>

struct OvTraceChain;

/// The course of the first arrival through a gather, good to a part of a period.
///
/// Every trace says at each time how likely it turns from noise to signal there (OvChangeScore), in
/// traces from which the predictable part of the gather's noise has been taken (OvAutoregression);
/// the best path through all traces (OvShiftPath) is the course. It is found three times: with the
/// quietest stretch of each trace for its noise, then with what lies ahead of the course before,
/// and with the slopes of that course.
class OVSEISMIC_EXPORT OvOnsetGuide
{
public:
    struct Options
    {
        double windowPoints = 0.0;         ///< length of the arrival that is looked at; 0 by period
        double leastAmplitude = 0.001;     ///< share of a trace's largest amplitude that is noise
        int earliest = 0;                  ///< no arrival before this point of the grid
        std::vector<float> earliestLikely; ///< point of each row; may be empty
        std::vector<float> latestLikely;
        std::vector<float> expected;   ///< a point of each row, NaN unknown; may be empty
        std::vector<float> halfWidths; ///< points
        const std::atomic<bool>* cancel = nullptr;
    };

    /// Dominant period, points, of the waves of some traces, from a first look.
    double scout(const OvTraceGrid& grid, const OvTraceChain& chain,
                 const std::atomic<bool>* cancel);
    /// False once *cancel is true; what follows then means nothing.
    bool find(const OvTraceGrid& grid, const OvTraceChain& chain, const Options& options);

    double period() const { return m_period; } ///< dominant period of the arrival, points
    const std::vector<double>& times() const { return m_times; } ///< point of each row
    /// Rows as they were searched: the predictable noise taken out, smoothed.
    const float* filtered(int row) const
    {
        return m_filtered.data() +
               static_cast<std::size_t>(row) * static_cast<std::size_t>(m_points);
    }
    const std::vector<float>& whitener() const { return m_whitener; }
    /// RMS of the noise of a filtered row.
    float noise(int row) const { return m_noise[static_cast<std::size_t>(row)]; }

private:
    struct Quiet
    {
        int from = 0;
        int to = 0;
        int size() const { return to - from; }
    };

    void measurePeriod(const OvTraceGrid& grid, bool atCourse);
    void findQuiet(const OvTraceGrid& grid, bool atCourse);
    Quiet quietest(const OvTraceGrid& grid, int row);
    void measureQuietShare(const OvTraceGrid& grid);
    float quietEnergy(int row, int from, int to);
    void whiten(const OvTraceGrid& grid);
    void filter(const OvTraceGrid& grid);
    void measureNoise(const OvTraceGrid& grid, bool atCourse, double leastAmplitude);
    OvChangeScore::Rule ruleFor(const OvTraceGrid& grid, const Options& options, int row) const;
    float leakOf(const OvTraceGrid& grid) const;
    void score(const OvTraceGrid& grid, const Options& options);
    void holdWithin(const Options& options, int row);
    void guideBy(const OvTraceGrid& grid, const Options& options);
    void follow(const OvTraceChain& chain, bool atCourse);

    const std::atomic<bool>* m_cancel = nullptr;
    int m_points = 0;
    int m_block = 1;  // points
    int m_settle = 0; // points at the start of a row that say nothing
    double m_period = 0.0;
    double m_quietShare = 1.0;
    float m_standsOut = 0.0F; // what later blocks have to exceed
    double m_freedom = 1.0;   // independent samples in one of a filtered row
    std::vector<double> m_times;
    std::vector<Quiet> m_quiet;
    std::vector<float> m_noise;
    std::vector<float> m_whitener;
    std::vector<float> m_filtered;
    std::vector<float> m_energies;
    std::vector<OvShiftPath::Step> m_steps;
    OvScoreLattice m_lattice;
    OvShiftPath m_path;
};

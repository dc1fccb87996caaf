#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/dsp/OvChangeScore.h"
#include "OvSeismic/picking/OvScoreLattice.h"
#include "OvSeismic/picking/OvShiftPath.h"

#include <atomic>
#include <vector>

class OvTraceGrid;
struct OvTraceChain;

/// What is known of a gather's first arrival before it is looked for.
struct OvOnsetLimits
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

/// How likely each trace turns from noise to signal at each time (OvChangeScore), in blocks of a
/// sixth of a period. Keeps its memory from gather to gather.
class OVSEISMIC_EXPORT OvOnsetLattice
{
public:
    struct Rows
    {
        const OvTraceGrid* grid = nullptr; ///< says where each row begins and ends
        const float* values = nullptr;     ///< of all rows, grid->points() each
        const float* noise = nullptr;      ///< RMS of each row's noise
        double period = 0.0;               ///< points
        int settle = 0;                    ///< points at the start of a row that say nothing
    };

    /// Stops early once *limits.cancel is true.
    void build(const Rows& rows, const OvOnsetLimits& limits);
    const OvScoreLattice& scores() const { return m_scores; }
    int block() const { return m_block; } ///< points

    /// Adds the scores of a row at `count` points from one on, between blocks in proportion, to
    /// out; before the first block and behind the last one theirs.
    void addScores(int row, int point, int count, float* out) const;

    /// What moves from link to link cost: with an earlier course (may be empty) those that do not
    /// keep its slopes, without one all, and those that lead back towards the shot threefold.
    std::vector<OvShiftPath::Step> steps(const OvTraceChain& chain,
                                         const std::vector<double>& course) const;

private:
    OvChangeScore::Rule ruleFor(const Rows& rows, const OvOnsetLimits& limits, int row) const;
    void holdWithin(const OvOnsetLimits& limits, int row);
    void guideBy(const OvOnsetLimits& limits, int row);

    int m_block = 1; // points
    OvScoreLattice m_ratios;
    OvScoreLattice m_scores;
};

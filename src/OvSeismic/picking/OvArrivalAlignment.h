#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/picking/OvShiftPath.h"

#include <atomic>
#include <functional>
#include <vector>

struct OvTraceChain;

/// Brings neighbours into line: what each trace is shifted by so that its arrival lies on that of a
/// pilot, the mean of the traces around it without its own.
///
/// The likelihood of a shift is that of the pilot in white noise, which the square of the
/// correlation over the noise's gives (Turin, G., 1960, An introduction to matched filters, IRE
/// Trans. Inf. Theory 6, 311-329), and that of the trace turning from noise to signal there, so
/// that a louder wave a cycle behind does not win; a share of a trace's signal counts as noise, so
/// that of clear traces shape decides, not size. The best path through the shifts of all traces
/// (OvShiftPath) keeps single traces from skipping a cycle. Several rounds, each with sharper
/// pilots, until hardly a trace moves; the weaker the arrivals, the more neighbours make a pilot.
class OVSEISMIC_EXPORT OvArrivalAlignment
{
public:
    struct Input
    {
        int rows = 0;
        int points = 0;
        double period = 0.0; ///< points
        std::function<const float*(int row)> samples;
        std::function<float(int row)> noise; ///< RMS
        /// Adds the log-likelihood of a row turning from noise to signal at each of `count` points
        /// from one on to out; may be empty. Points may lie outside.
        std::function<void(int row, int point, int count, float* out)> addChange;
        const OvTraceChain* chain = nullptr;
        const std::atomic<bool>* cancel = nullptr;
    };

    struct Match
    {
        double time = 0.0;     ///< point at which the arrival lies
        float strength = 0.0F; ///< correlation with the pilot over that of noise
        float likeness = 0.0F; ///< correlation coefficient with the pilot
        float stray = 0.0F;    ///< distance from where the neighbours point, points
        float sign = 1.0F;     ///< -1 on a channel of reversed polarity
    };

    /// times holds a point of each row to begin with; at most so many rounds. False once *cancel is
    /// true.
    bool align(const Input& input, const std::vector<double>& times, int rounds = 4);
    /// Goes on from what align() has found in the same rows. False once *cancel is true.
    bool refine(const Input& input, int rounds);
    const std::vector<Match>& matches() const { return m_matches; }
    /// How many neighbours on either side made a pilot in the end.
    int neighbours() const { return m_neighbours; }

private:
    void chooseNeighbours(int most);
    void cut(const Input& input);
    void stack(const Input& input, int row);
    float noiseGain(const Input& input);
    void takeUnder(const float* samples, int start, int points);
    void correlate(const Input& input, int row, float gain);
    void turnReversed();
    void score(const Input& input, int row);
    double follow(const Input& input);
    void moveTo(const Input& input, int row, int peak);
    void settle(const Input& input);

    int m_before = 0; // points of the pilot ahead of the arrival
    int m_length = 0; // of the pilot
    int m_reach = 0;  // largest shift
    int m_neighbours = 0;
    std::vector<float> m_taper; // weights of the neighbours, the row itself in the middle
    std::vector<Match> m_matches;
    std::vector<float> m_cuts; // of each row, aligned, of unit size
    std::vector<float> m_weights;
    std::vector<float> m_pilot;
    std::vector<float> m_shares; // of the neighbours in the pilot
    std::vector<float> m_under;  // samples that lie under the pilot at any shift
    std::vector<float> m_ones;
    std::vector<float> m_energies;     // of what lies under it at each shift
    std::vector<float> m_correlations; // of each row, 2 * reach + 1
    std::vector<OvShiftPath::Step> m_steps;
    OvScoreLattice m_lattice;
    OvShiftPath m_path;
};

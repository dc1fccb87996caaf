#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/dsp/OvFirstSwing.h"

#include <vector>

class OvTraceGrid;

/// Means of the traces around each trace, aligned on their arrivals: what noise hides on one trace
/// stands out of fifteen (Mayne, W., 1962, Common reflection point horizontal data stacking
/// techniques, Geophysics 27, 927-938), so that the onset found there is carried back.
class OVSEISMIC_EXPORT OvArrivalStack
{
public:
    /// How one row takes part.
    struct Member
    {
        double point = 0.0;  ///< where its arrival lies
        float weight = 0.0F; ///< 0 leaves it out
        float sign = 1.0F;   ///< -1 for a channel of reversed polarity
    };

    /// How many traces on either side are stacked; 7 unless set.
    void setNeighbours(int neighbours) { m_neighbours = neighbours; }
    /// Takes over what is stacked from then on: the rows of a grid, one member each; period in
    /// points.
    void load(const OvTraceGrid& grid, const std::vector<Member>& members, double period);
    /// Stacks the traces around a row. The stack runs from two periods ahead of the arrival to two
    /// behind it.
    void stack(int row);
    const std::vector<float>& samples() const { return m_samples; }
    /// Point of samples() at which the arrivals were aligned.
    int origin() const { return m_origin; }
    /// Onset of the first swing near the origin, as points from it; 0 when there is none. A swing
    /// of the other sign than the asked one is passed over when it is much weaker than the asked
    /// one right behind it.
    double onset(OvFirstSwing::Sign asked) const;

    /// Onsets at every row, points from the member's own; medians of nine, so that the onset does
    /// not jump from one neighbourhood to the next.
    std::vector<double> onsets(const OvTraceGrid& grid, const std::vector<Member>& members,
                               double period, OvFirstSwing::Sign asked);

private:
    void cut(const OvTraceGrid& grid, const Member& member, int row, float* out) const;

    int m_neighbours = 7;
    int m_origin = 0;
    int m_rows = 0;
    double m_period = 0.0;
    std::vector<int> m_cables;
    std::vector<float> m_cuts;  // of each row, aligned and scaled
    std::vector<float> m_taper; // weights of the neighbours, the row itself in the middle
    std::vector<float> m_samples;
};

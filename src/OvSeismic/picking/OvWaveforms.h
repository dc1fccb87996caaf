#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/picking/OvPathSearch.h"

#include <vector>

/// The traces of a chain, sampled at the points of a search, to be compared with each other.
class OVSEISMIC_EXPORT OvWaveforms
{
public:
    /// Windows that are compared run from `before` points ahead of a point to `after` behind it.
    OvWaveforms(int rows, int points, int before, int after);

    /// The values of a row, to be filled; followed by measure().
    float* row(int index) { return m_values.data() + offset(index); }
    const float* row(int index) const { return m_values.data() + offset(index); }
    void measure(int index);

    /// Correlation coefficient of the window about a point of a row with that about another point
    /// of the row before; 0 outside the rows and where there is no signal.
    float correlation(int index, int point, int pointBefore) const;
    /// Fills gains, as OvMoveGains asks, with weight times the correlation of the two ends of every
    /// move to a row.
    void gains(int index, const OvPathStep& step, float weight, std::vector<float>* gains) const;
    /// Turns over the rows that, near a path, are like neither neighbour unless turned over:
    /// channels of reversed polarity. slack is how far from the path, in points, neighbours may
    /// match; neighbours are those on the same cable (as in OvTraceChain).
    void turnReversed(const std::vector<int>& path, int slack, const std::vector<int>& cables);

private:
    std::size_t offset(int index) const
    {
        return static_cast<std::size_t>(index) * static_cast<std::size_t>(m_points);
    }
    bool isReversed(int index, const std::vector<int>& path, int slack) const;

    int m_points;
    int m_before;
    int m_after;
    std::vector<float> m_values;
    std::vector<float> m_scales; // 1 / norm of the window about each point; 0 without a signal
};

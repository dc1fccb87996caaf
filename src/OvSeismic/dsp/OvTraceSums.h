#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

/// Running sums of one trace, so that the statistics of any window cost the same.
///
/// Windows are half-open sample ranges [from, to) and are clipped to the trace. The mean of the
/// trace is taken off on the way in, which keeps the sums exact for traces on a large constant.
class OVSEISMIC_EXPORT OvTraceSums
{
public:
    /// Takes over count samples; keeps its memory from trace to trace.
    void assign(const float* samples, int count);

    int size() const { return m_count; }
    /// Largest distance of a sample of the window from the mean of the trace.
    double largest(int from, int to) const;
    double mean(int from, int to) const;
    /// Variance about the window's own mean; 0 for a window of fewer than two samples.
    double variance(int from, int to) const;

private:
    int m_count = 0;
    std::vector<double> m_values;
    std::vector<double> m_sums;    // [i] is the sum of the values before i
    std::vector<double> m_squares; // the same of their squares
};

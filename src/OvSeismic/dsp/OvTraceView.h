#pragma once

#include "OvSeismic/OvSeismicExport.h"

/// Statistics of windows of samples that belong to someone else.
///
/// Windows are half-open sample ranges [from, to) and are clipped to the trace. Sums are taken
/// about a sample of the window, which keeps them exact for traces on a large constant.
class OVSEISMIC_EXPORT OvTraceView
{
public:
    OvTraceView() = default;
    OvTraceView(const float* samples, int count);

    const float* samples() const { return m_samples; }
    int size() const { return m_count; }
    double mean(int from, int to) const;
    /// Variance about the window's own mean; 0 for a window of fewer than two samples.
    double variance(int from, int to) const;

private:
    const float* m_samples = nullptr;
    int m_count = 0;
};

#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <vector>

/// Linear prediction of noise from its past, and the filter that leaves only what cannot be
/// predicted (Yule, G., 1927, On a method of investigating periodicities in disturbed series, Phil.
/// Trans. R. Soc. A 226, 267-298).
namespace OvAutoregression {

/// Adds the autocorrelation of count samples, times weight, to the lags of out (out->size() of
/// them, from lag 0).
OVSEISMIC_EXPORT void addCorrelation(const float* samples, int count, double weight,
                                     std::vector<double>* out);

/// Products of samples with the ones before them, summed over many stretches of noise: the
/// covariance method (Makhoul, J., 1975, Linear prediction: a tutorial review, Proc. IEEE 63,
/// 561-580), which short stretches of strong low frequencies do not blur.
class OVSEISMIC_EXPORT Covariance
{
public:
    explicit Covariance(int order);

    /// A stretch of count samples, which counts by its weight. Shorter ones than three times the
    /// order are left out.
    void add(const float* samples, int count, double weight);
    /// Taps 1, a1 ... of the filter of least output; `white` is the share of the power that is
    /// taken for white noise on top. The filter of the one tap 1 without any power.
    std::vector<float> whitener(double white) const;

private:
    std::size_t place(int row, int column) const
    {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_order + 1) +
               static_cast<std::size_t>(column);
    }
    double& at(int row, int column) { return m_sums[place(row, column)]; }
    double at(int row, int column) const { return m_sums[place(row, column)]; }

    int m_order;
    std::vector<double> m_sums; // (order + 1) squared, symmetric
};

} // namespace OvAutoregression

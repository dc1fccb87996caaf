#include "OvSeismic/dsp/OvAutoregression.h"

#include "OvSeismic/dsp/OvFir.h"

#include <algorithm>
#include <cmath>

void OvAutoregression::addCorrelation(const float* samples, int count, double weight,
                                      std::vector<double>* out)
{
    static thread_local std::vector<float> sums;
    const int lags = std::min(static_cast<int>(out->size()), std::max(count, 0));
    sums.resize(static_cast<std::size_t>(lags));
    OvFir::autocorrelate(samples, count, lags, sums.data());
    for (std::size_t lag = 0; lag < sums.size(); ++lag)
        (*out)[lag] += weight * static_cast<double>(sums[lag]);
}

OvAutoregression::Covariance::Covariance(int order)
    : m_order(std::max(order, 0))
    , m_sums(static_cast<std::size_t>((m_order + 1) * (m_order + 1)), 0.0)
{
}

void OvAutoregression::Covariance::add(const float* samples, int count, double weight)
{
    if (count < 3 * std::max(m_order, 1))
        return;
    // Each sum of products i - row, i - column follows from the one up and left of it.
    const auto product = [samples](int i, int k) {
        return static_cast<double>(samples[i]) * static_cast<double>(samples[k]);
    };
    for (int shift = 0; shift <= m_order; ++shift) {
        double sum = static_cast<double>(
            OvFir::dot(samples + m_order, samples + m_order - shift, count - m_order));
        for (int row = 0; row + shift <= m_order; ++row) {
            at(row, row + shift) += weight * sum;
            if (row + shift < m_order)
                sum += product(m_order - 1 - row, m_order - 1 - row - shift) -
                       product(count - 1 - row, count - 1 - row - shift);
        }
    }
}

std::vector<float> OvAutoregression::Covariance::whitener(double white) const
{
    std::vector<float> taps{1.0F};
    if (!(at(0, 0) > 0.0))
        return taps;
    // Cholesky's factor of the lower right part, then two substitutions.
    const int n = m_order;
    std::vector<double> factor(static_cast<std::size_t>(n) * static_cast<std::size_t>(n), 0.0);
    const auto f = [&factor, n](int row, int column) -> double& {
        return factor[static_cast<std::size_t>(row) * static_cast<std::size_t>(n) +
                      static_cast<std::size_t>(column)];
    };
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column <= row; ++column) {
            double sum = at(column + 1, row + 1) + (row == column ? white * at(0, 0) : 0.0);
            for (int k = 0; k < column; ++k)
                sum -= f(row, k) * f(column, k);
            if (row == column && !(sum > 0.0))
                return taps;
            f(row, column) = row == column ? std::sqrt(sum) : sum / f(column, column);
        }
    }
    std::vector<double> solution(static_cast<std::size_t>(n), 0.0);
    const auto s = [&solution](int i) -> double& { return solution[static_cast<std::size_t>(i)]; };
    for (int row = 0; row < n; ++row) {
        double sum = -at(0, row + 1);
        for (int k = 0; k < row; ++k)
            sum -= f(row, k) * s(k);
        s(row) = sum / f(row, row);
    }
    for (int row = n - 1; row >= 0; --row) {
        double sum = s(row);
        for (int k = row + 1; k < n; ++k)
            sum -= f(k, row) * s(k);
        s(row) = sum / f(row, row);
    }
    for (const double value : solution)
        taps.push_back(static_cast<float>(value));
    return taps;
}

#include "OvSeismic/dsp/OvTraceSums.h"

#include <algorithm>
#include <cmath>
#include <numeric>

void OvTraceSums::assign(const float* samples, int count)
{
    m_count = std::max(count, 0);
    const auto n = static_cast<std::size_t>(m_count);
    const double sum = std::accumulate(samples, samples + m_count, 0.0);
    const double shift = n > 0 ? sum / static_cast<double>(n) : 0.0;
    m_values.resize(n);
    m_sums.resize(n + 1);
    m_squares.resize(n + 1);
    m_sums[0] = 0.0;
    m_squares[0] = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        const double value = static_cast<double>(samples[i]) - shift;
        m_values[i] = value;
        m_sums[i + 1] = m_sums[i] + value;
        m_squares[i + 1] = m_squares[i] + value * value;
    }
}

double OvTraceSums::largest(int from, int to) const
{
    double largest = 0.0;
    for (int i = std::max(from, 0); i < std::min(to, m_count); ++i)
        largest = std::max(largest, std::abs(m_values[static_cast<std::size_t>(i)]));
    return largest;
}

double OvTraceSums::mean(int from, int to) const
{
    const int first = std::clamp(from, 0, m_count);
    const int last = std::clamp(to, first, m_count);
    if (first == last)
        return 0.0;
    return (m_sums[static_cast<std::size_t>(last)] - m_sums[static_cast<std::size_t>(first)]) /
           (last - first);
}

double OvTraceSums::variance(int from, int to) const
{
    const int first = std::clamp(from, 0, m_count);
    const int last = std::clamp(to, first, m_count);
    if (last - first < 2)
        return 0.0;
    const double mean = this->mean(first, last);
    const double square =
        (m_squares[static_cast<std::size_t>(last)] - m_squares[static_cast<std::size_t>(first)]) /
        (last - first);
    return std::max(square - mean * mean, 0.0);
}

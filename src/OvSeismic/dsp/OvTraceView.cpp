#include "OvSeismic/dsp/OvTraceView.h"

#include <algorithm>

namespace {

// Sums of the differences to the first of some samples.
struct Sums
{
    double values = 0.0;
    double squares = 0.0;

    Sums(const float* samples, int count)
    {
        // Additions wait for the one before; two chains each halve that.
        const auto origin = static_cast<double>(samples[0]);
        double oddValues = 0.0;
        double oddSquares = 0.0;
        for (int i = 1; i + 1 < count; i += 2) {
            const double odd = static_cast<double>(samples[i]) - origin;
            const double even = static_cast<double>(samples[i + 1]) - origin;
            oddValues += odd;
            oddSquares += odd * odd;
            values += even;
            squares += even * even;
        }
        const double last = static_cast<double>(samples[count - 1]) - origin;
        values += oddValues + (count % 2 == 0 ? last : 0.0);
        squares += oddSquares + (count % 2 == 0 ? last * last : 0.0);
    }
};

} // namespace

OvTraceView::OvTraceView(const float* samples, int count)
    : m_samples(samples)
    , m_count(std::max(count, 0))
{
}

double OvTraceView::mean(int from, int to) const
{
    const int first = std::clamp(from, 0, m_count);
    const int count = std::clamp(to, first, m_count) - first;
    if (count < 1)
        return 0.0;
    return static_cast<double>(m_samples[first]) + Sums(m_samples + first, count).values / count;
}

double OvTraceView::variance(int from, int to) const
{
    const int first = std::clamp(from, 0, m_count);
    const int count = std::clamp(to, first, m_count) - first;
    if (count < 2)
        return 0.0;
    const Sums sums(m_samples + first, count);
    const double mean = sums.values / count;
    return std::max(sums.squares / count - mean * mean, 0.0);
}

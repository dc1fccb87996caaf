#include "OvSeismic/picking/OvWaveforms.h"

#include "OvSeismic/picking/OvTraceChain.h"

#include <algorithm>
#include <cmath>

OvWaveforms::OvWaveforms(int rows, int points, int before, int after)
    : m_points(points)
    , m_before(before)
    , m_after(after)
    , m_values(static_cast<std::size_t>(rows) * static_cast<std::size_t>(points), 0.0F)
    , m_scales(m_values.size(), 0.0F)
{
}

void OvWaveforms::measure(int index)
{
    const float* values = row(index);
    std::vector<double> energies(static_cast<std::size_t>(m_points), 0.0);
    for (int point = 0; point < m_points; ++point) {
        const int last = std::min(point + m_after, m_points - 1);
        for (int i = std::max(point - m_before, 0); i <= last; ++i)
            energies[static_cast<std::size_t>(point)] +=
                static_cast<double>(values[i]) * static_cast<double>(values[i]);
    }
    // Below this the running sums of gains() hold nothing but rounding.
    constexpr double still = 1e-12;
    const double largest = *std::max_element(energies.begin(), energies.end());
    std::transform(energies.begin(), energies.end(),
                   m_scales.begin() + static_cast<std::ptrdiff_t>(offset(index)),
                   [largest](double energy) {
                       const bool silent = energy <= still * largest;
                       return silent ? 0.0F : static_cast<float>(1.0 / std::sqrt(energy));
                   });
}

float OvWaveforms::correlation(int index, int point, int pointBefore) const
{
    if (index < 1 || point < 0 || point >= m_points || pointBefore < 0 || pointBefore >= m_points)
        return 0.0F;
    const int from = std::max({-m_before, -point, -pointBefore});
    const int to = std::min({m_after, m_points - 1 - point, m_points - 1 - pointBefore});
    const float* here = row(index) + point;
    const float* there = row(index - 1) + pointBefore;
    double product = 0.0;
    for (int i = from; i <= to; ++i)
        product += static_cast<double>(here[i]) * static_cast<double>(there[i]);
    const auto at = static_cast<std::size_t>(point);
    const auto atBefore = static_cast<std::size_t>(pointBefore);
    return static_cast<float>(product) * m_scales[offset(index) + at] *
           m_scales[offset(index - 1) + atBefore];
}

void OvWaveforms::gains(int index, const OvPathStep& step, float weight,
                        std::vector<float>* gains) const
{
    const float* here = row(index);
    const float* there = row(index - 1);
    const float* hereScale = m_scales.data() + offset(index);
    const float* thereScale = m_scales.data() + offset(index - 1);
    float* out = gains->data();
    // Running sums of the products give all windows of one move at the price of one.
    std::vector<double> sums(static_cast<std::size_t>(m_points) + 1);
    const auto sumBefore = [&](int point) { return sums[static_cast<std::size_t>(point)]; };
    for (int move = step.expected - step.reach; move <= step.expected + step.reach; ++move) {
        const int first = std::clamp(move, 0, m_points);
        const int last = std::clamp(m_points + move, first, m_points);
        sums[static_cast<std::size_t>(first)] = 0.0;
        for (int i = first; i < last; ++i)
            sums[static_cast<std::size_t>(i) + 1] =
                sumBefore(i) + static_cast<double>(here[i]) * static_cast<double>(there[i - move]);
        for (int point = first; point < last; ++point) {
            const double product = sumBefore(std::min(point + m_after + 1, last)) -
                                   sumBefore(std::max(point - m_before, first));
            out[point] =
                weight * hereScale[point] * thereScale[point - move] * static_cast<float>(product);
        }
        out += m_points;
    }
}

bool OvWaveforms::isReversed(int index, const std::vector<int>& path, int slack) const
{
    constexpr float clearly = 0.6F;
    // Row `later` and the one before it, whichever of the two is the row in question.
    const auto opposed = [&](int later) {
        const int point = path[static_cast<std::size_t>(later)];
        const int pointBefore = path[static_cast<std::size_t>(later) - 1];
        float least = 0.0F;
        float most = 0.0F;
        for (int aside = -slack; aside <= slack; ++aside) {
            const float match = correlation(later, point, pointBefore + aside);
            least = std::min(least, match);
            most = std::max(most, match);
        }
        return -least > most + clearly;
    };
    return opposed(index) && opposed(index + 1);
}

void OvWaveforms::turnReversed(const std::vector<int>& path, int slack,
                               const std::vector<int>& cables)
{
    std::vector<int> reversed;
    const int count = static_cast<int>(path.size());
    for (int index = 0; index < count; ++index) {
        const OvLinkRange near = ovNeighbours(cables, count, index, 1);
        if (near.last - near.first == 3 && isReversed(index, path, slack))
            reversed.push_back(index);
    }
    for (const int index : reversed)
        std::transform(row(index), row(index) + m_points, row(index),
                       [](float value) { return -value; });
}

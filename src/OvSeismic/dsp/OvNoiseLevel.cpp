#include "OvSeismic/dsp/OvNoiseLevel.h"

#include "OvSeismic/dsp/OvChangeScore.h"
#include "OvSeismic/dsp/OvRank.h"

#include <algorithm>
#include <cmath>

namespace {

// Share of a sample of n that the value of a rank (from 0) stands for (Benard's median rank).
double shareOf(std::size_t rank, std::size_t n)
{
    return (static_cast<double>(rank) + 0.7) / (static_cast<double>(n) + 0.4);
}

} // namespace

double OvNoiseLevel::chiSquareQuantile(double share, double degrees)
{
    // Normal quantile by the logistic approximation.
    const double normal = std::log(share / (1.0 - share)) / 1.702;
    const double spread = 2.0 / (9.0 * std::max(degrees, 1.0));
    const double root = std::max(1.0 - spread + normal * std::sqrt(spread), 0.3);
    return root * root * root;
}

double OvNoiseLevel::freedomOf(const std::vector<double>& correlation)
{
    double sum = correlation[0] * correlation[0];
    for (std::size_t lag = 1; lag < correlation.size(); ++lag)
        sum += 2.0 * correlation[lag] * correlation[lag];
    return correlation[0] * correlation[0] / sum;
}

void OvNoiseLevel::Meter::load(const float* samples, int count, int stretch)
{
    m_energies.resize(static_cast<std::size_t>(count / stretch));
    OvChangeScore::energies(samples, count, stretch, m_energies.data());
}

float OvNoiseLevel::Meter::ranked(std::size_t rank) const
{
    return OvRank::of(m_energies.data(), static_cast<int>(m_energies.size()),
                      static_cast<int>(rank));
}

float OvNoiseLevel::Meter::quiet(const float* samples, int count, int stretch, double freedom)
{
    constexpr std::size_t part = 8;
    load(samples, count, stretch);
    m_energies.erase(std::remove_if(m_energies.begin(), m_energies.end(),
                                    [](float energy) { return !(energy > 0.0F); }),
                     m_energies.end());
    if (m_energies.empty())
        return -1.0F;
    const std::size_t rank = m_energies.size() / part;
    const double share = shareOf(rank, m_energies.size());
    return ranked(rank) / static_cast<float>(chiSquareQuantile(share, freedom * stretch));
}

float OvNoiseLevel::Meter::usual(const float* samples, int count, int stretch, double freedom)
{
    constexpr float burst = 3.0F; // times the median
    constexpr double loud = 0.9;
    constexpr double chance = 1.2; // by which a few stretches of steady noise may be louder
    constexpr std::size_t enough = 4;
    load(samples, count, stretch);
    const float limit = burst * ranked(m_energies.size() / 2);
    float sum = 0.0F;
    int used = 0;
    for (const float energy : m_energies) {
        sum += energy <= limit ? energy : 0.0F;
        used += energy <= limit ? 1 : 0;
    }
    const float mean = sum / static_cast<float>(std::max(used, 1));
    if (m_energies.size() < enough)
        return mean;
    const auto rank = static_cast<std::size_t>(loud * static_cast<double>(m_energies.size()));
    const double share = shareOf(rank, m_energies.size());
    const double usual = chance * chiSquareQuantile(share, freedom * stretch);
    return std::max(mean, ranked(rank) / static_cast<float>(usual));
}

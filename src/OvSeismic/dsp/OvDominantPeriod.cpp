#include "OvSeismic/dsp/OvDominantPeriod.h"

#include <algorithm>
#include <cmath>
#include <numeric>

double ovDominantPeriod(const float* samples, int from, int to)
{
    constexpr int leastSamples = 4;
    if (to - from < leastSamples)
        return 0.0;
    const double mean = std::accumulate(samples + from, samples + to, 0.0) / (to - from);
    double energy = 0.0;
    double change = 0.0;
    for (int i = from; i + 1 < to; ++i) {
        const double value = static_cast<double>(samples[i]) - mean;
        const double step = static_cast<double>(samples[i + 1]) - static_cast<double>(samples[i]);
        energy += value * value;
        change += step * step;
    }
    if (energy <= 0.0 || change <= 0.0)
        return 0.0;
    constexpr double pi = 3.14159265358979323846;
    return pi / std::asin(std::min(0.5 * std::sqrt(change / energy), 1.0));
}

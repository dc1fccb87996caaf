#include "ReferencePickers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

// [i] is the sum of the squares before i.
std::vector<double> energySums(const float* samples, int count)
{
    std::vector<double> sums(static_cast<std::size_t>(count) + 1, 0.0);
    for (int i = 0; i < count; ++i) {
        const auto value = static_cast<double>(samples[i]);
        sums[static_cast<std::size_t>(i) + 1] = sums[static_cast<std::size_t>(i)] + value * value;
    }
    return sums;
}

double energy(const std::vector<double>& sums, int from, int to)
{
    const int last = static_cast<int>(sums.size()) - 1;
    const int first = std::clamp(from, 0, last);
    const int end = std::clamp(to, first, last);
    return sums[static_cast<std::size_t>(end)] - sums[static_cast<std::size_t>(first)];
}

int largestAmplitude(const float* samples, int count)
{
    return static_cast<int>(
        std::max_element(samples, samples + count,
                         [](float a, float b) { return std::abs(a) < std::abs(b); }) -
        samples);
}

// Split of [from, to) into two stretches of least AIC, given the running energies of both.
double leastAic(const std::vector<double>& before, const std::vector<double>& after, int from,
                int to)
{
    constexpr int margin = 5;
    double least = std::numeric_limits<double>::infinity();
    double at = none;
    for (int k = from + margin; k < to - margin; ++k) {
        const double quiet = energy(before, from, k) / (k - from);
        const double loud = energy(after, k, to) / (to - k);
        if (!(quiet > 0.0) || !(loud > 0.0))
            continue;
        const double value = (k - from) * std::log(quiet) + (to - k - 1) * std::log(loud);
        if (value < least) {
            least = value;
            at = k;
        }
    }
    return at;
}

constexpr int order = 4;
using Model = std::array<double, order>;

// Autocorrelation method, Levinson's recursion.
Model modelOf(const float* samples, int from, int to)
{
    std::array<double, order + 1> correlation{};
    for (int lag = 0; lag <= order; ++lag) {
        for (int i = from + lag; i < to; ++i)
            correlation[static_cast<std::size_t>(lag)] +=
                static_cast<double>(samples[i]) * static_cast<double>(samples[i - lag]);
    }
    Model model{};
    double error = correlation[0] * (1.0 + 1e-9);
    for (std::size_t m = 0; m < order && error > 0.0; ++m) {
        double reflection = correlation[m + 1];
        for (std::size_t i = 0; i < m; ++i)
            reflection -= model[i] * correlation[m - i];
        reflection /= error;
        Model next = model;
        next[m] = reflection;
        for (std::size_t i = 0; i < m; ++i)
            next[i] = model[i] - reflection * model[m - 1 - i];
        model = next;
        error *= 1.0 - reflection * reflection;
    }
    return model;
}

std::vector<float> residuals(const float* samples, int count, const Model& model)
{
    std::vector<float> out(static_cast<std::size_t>(count), 0.0F);
    for (int i = order; i < count; ++i) {
        double predicted = 0.0;
        for (int lag = 1; lag <= order; ++lag)
            predicted +=
                model[static_cast<std::size_t>(lag) - 1] * static_cast<double>(samples[i - lag]);
        out[static_cast<std::size_t>(i)] =
            static_cast<float>(static_cast<double>(samples[i]) - predicted);
    }
    return out;
}

} // namespace

double ReferencePickers::staLta(const float* samples, int count, double intervalMs)
{
    const int shortWindow = std::max(static_cast<int>(30.0 / intervalMs), 2);
    const int longWindow = std::max(static_cast<int>(200.0 / intervalMs), 4);
    const std::vector<double> sums = energySums(samples, count);
    std::vector<double> ratios(static_cast<std::size_t>(count), 0.0);
    for (int i = longWindow / 4; i + shortWindow < count; ++i) {
        const int first = std::max(i - longWindow, 0);
        const double before = energy(sums, first, i) / (i - first);
        if (before > 0.0)
            ratios[static_cast<std::size_t>(i)] =
                energy(sums, i, i + shortWindow) / shortWindow / before;
    }
    const auto at = std::max_element(ratios.begin(), ratios.end());
    return *at > 0.0 ? static_cast<double>(at - ratios.begin()) : none;
}

double ReferencePickers::modifiedEnergyRatio(const float* samples, int count, double intervalMs)
{
    const int window = std::max(static_cast<int>(40.0 / intervalMs), 2);
    const std::vector<double> sums = energySums(samples, count);
    double largest = 0.0;
    double at = none;
    for (int i = window; i + window < count; ++i) {
        const double before = energy(sums, i - window, i + 1);
        if (!(before > 0.0))
            continue;
        const double ratio =
            energy(sums, i, i + window + 1) / before * std::abs(static_cast<double>(samples[i]));
        if (ratio > largest) {
            largest = ratio;
            at = i;
        }
    }
    return at;
}

double ReferencePickers::aic(const float* samples, int count, double)
{
    const std::vector<double> sums = energySums(samples, count);
    return leastAic(sums, sums, 0, largestAmplitude(samples, count));
}

double ReferencePickers::autoregressiveAic(const float* samples, int count, double)
{
    const int end = largestAmplitude(samples, count);
    if (end < 10 * order)
        return none;
    const auto before =
        energySums(residuals(samples, end, modelOf(samples, 0, end / 4)).data(), end);
    const auto after =
        energySums(residuals(samples, end, modelOf(samples, 3 * end / 4, end)).data(), end);
    return leastAic(before, after, order, end);
}

#include "OvSeismic/dsp/OvChangeScore.h"

#include <algorithm>

namespace {

// Of a block of about two independent samples, against a signal of 1.5 times the noise's power.
constexpr float slope = 0.6F;
constexpr float level = 0.92F;
constexpr float least = -1.0F;
constexpr float most = 2.5F;
// A window that holds less than this is no arrival, and what it lacks counts this many times more.
constexpr float leastWindow = 2.0F;
constexpr float lackWeight = 2.0F;
// Largest of each value and the ones ahead of it, by halves (van Herk's running maximum would be
// one pass; the windows here are a few blocks).
float largestAhead(const float* values, int blocks, int at, int ahead)
{
    return *std::max_element(values + at, values + std::min(at + ahead + 1, blocks));
}

} // namespace

void OvChangeScore::energies(const float* samples, int count, int block, float* out)
{
    const float share = 1.0F / static_cast<float>(block);
    for (int k = 0; k < count / block; ++k, samples += block) {
        float sum = 0.0F;
        for (int i = 0; i < block; ++i)
            sum += samples[i] * samples[i];
        out[k] = sum * share;
    }
}

void OvChangeScore::ratios(const Rule& rule, int blocks, float* values)
{
    // Values ahead of the one at hand have not been replaced yet.
    for (int k = 0; k < blocks; ++k) {
        const float masked = rule.forerunner > 0.0F
                                 ? rule.forerunner * largestAhead(values, blocks, k, rule.ahead)
                                 : 0.0F;
        const float noise = std::max(rule.noise, masked);
        const float ratio = noise > 0.0F ? slope * values[k] / noise - level : least;
        values[k] = k < rule.first ? least : std::clamp(ratio, least, most);
    }
}

float OvChangeScore::excess(const float* ratios, float standsOut, int from, int to)
{
    float sum = 0.0F;
    for (int k = from; k + 1 < to; ++k)
        sum += std::min(ratios[k], ratios[k + 1]) > standsOut ? ratios[k] : 0.0F;
    return to - from > 1 ? sum / static_cast<float>(to - from - 1) : 0.0F;
}

void OvChangeScore::scores(const Rule& rule, int blocks, const float* ratios, float* out)
{
    const auto at = [&](int k) { return k < blocks ? ratios[k] : 0.0F; };
    const auto later = [&](int k) {
        return k + 1 < blocks
                   ? (std::min(ratios[k], ratios[k + 1]) > rule.standsOut ? ratios[k] : 0.0F) -
                         rule.leak
                   : 0.0F;
    };
    float window = 0.0F;
    float behind = 0.0F;
    for (int k = blocks - 1; k >= 0; --k) {
        window += at(k) - at(k + rule.window);
        behind += later(k + rule.window);
        out[k] = window - lackWeight * std::max(leastWindow - window, 0.0F) + behind;
    }
}

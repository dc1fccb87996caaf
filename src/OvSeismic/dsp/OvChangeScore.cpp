#include "OvSeismic/dsp/OvChangeScore.h"

#include "OvSeismic/dsp/OvVectorClones.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace {

// Of a block of about two independent samples, against a signal of 1.5 times the noise's power.
constexpr float slope = 0.6F;
constexpr float level = 0.92F;
constexpr float least = -1.0F;
constexpr float most = 2.5F;
// A window that holds less than this is no arrival, and what it lacks counts this many times more.
constexpr float leastWindow = 2.0F;
constexpr float lackWeight = 2.0F;
constexpr int stretch = 256;

// Largest of each of count values and the `ahead` behind it, in place, by windows that double: each
// takes the larger of two of half its length. values holds count + ahead.
OV_VECTOR_CLONES
void takeLargest(float* values, int count, int ahead)
{
    int length = 1;
    for (int left = count + ahead; length <= ahead;) {
        const int shift = std::min(length, ahead + 1 - length);
        left -= shift;
        for (int i = 0; i < left; ++i)
            values[i] = std::max(values[i], values[i + shift]);
        length += shift;
    }
}

OV_VECTOR_CLONES
void takeRatios(const float* masks, float noise, float share, int count, float* values)
{
    for (int k = 0; k < count; ++k) {
        const float whole = std::max(noise, share * masks[k]);
        const float ratio = slope * values[k] / whole - level;
        values[k] = whole > 0.0F ? std::min(std::max(ratio, least), most) : least;
    }
}

template <int block>
OV_VECTOR_CLONES void takeEnergies(const float* samples, int blocks, float* out)
{
    constexpr float share = 1.0F / static_cast<float>(block);
    for (int k = 0; k < blocks; ++k) {
        float sum = 0.0F;
        for (int i = 0; i < block; ++i)
            sum += samples[k * block + i] * samples[k * block + i];
        out[k] = sum * share;
    }
}

// What stands out of the blocks but the last one.
OV_VECTOR_CLONES
void takeExcess(const float* ratios, float standsOut, float leak, int blocks, float* out)
{
    for (int k = 0; k + 1 < blocks; ++k)
        out[k] = (std::min(ratios[k], ratios[k + 1]) > standsOut ? ratios[k] : 0.0F) - leak;
}

// From sums of the ratios from each block and from behind its window on, and the excess there.
OV_VECTOR_CLONES
void takeScores(const float* sums, const float* sumsBehind, const float* excessBehind, int blocks,
                float* out)
{
    for (int k = 0; k < blocks; ++k) {
        const float inside = sums[k] - sumsBehind[k];
        const float lacking = inside - lackWeight * (leastWindow - inside);
        out[k] = (lacking < inside ? lacking : inside) + excessBehind[k];
    }
}

// Both at once, as each addition waits for the one before.
void turnIntoSumsFromBehind(float* one, float* other, int count)
{
    float sum = 0.0F;
    float otherSum = 0.0F;
    for (int k = count - 1; k >= 0; --k) {
        one[k] = sum += one[k];
        other[k] = otherSum += other[k];
    }
}

} // namespace

void OvChangeScore::energies(const float* samples, int count, int block, float* out)
{
    const int blocks = count / block;
    switch (block) {
    case 1: // the usual ones, at which a compiler can unroll
        return takeEnergies<1>(samples, blocks, out);
    case 2:
        return takeEnergies<2>(samples, blocks, out);
    case 3:
        return takeEnergies<3>(samples, blocks, out);
    case 4:
        return takeEnergies<4>(samples, blocks, out);
    default:
        break;
    }
    const float share = 1.0F / static_cast<float>(block);
    for (int k = 0; k < blocks; ++k, samples += block)
        out[k] = share * std::inner_product(samples, samples + block, samples, 0.0F);
}

void OvChangeScore::ratios(const Rule& rule, int blocks, float* values)
{
    // Values ahead of the stretch at hand have not been replaced yet.
    std::array<float, std::size_t(2) * stretch> masks{};
    const int ahead = rule.forerunner > 0.0F ? std::clamp(rule.ahead, 0, stretch) : 0;
    for (int from = 0; from < blocks; from += stretch) {
        const int count = std::min(stretch, blocks - from);
        const int known = std::min(count + ahead, blocks - from);
        std::copy_n(values + from, known, masks.begin());
        std::fill(masks.begin() + known, masks.begin() + count + ahead, 0.0F);
        takeLargest(masks.data(), count, ahead);
        takeRatios(masks.data(), rule.noise, rule.forerunner, count, values + from);
    }
    std::fill_n(values, std::clamp(rule.first, 0, blocks), least);
}

void OvChangeScore::scores(const Rule& rule, int blocks, float* ratios, float* out)
{
    if (blocks < 1)
        return;
    takeExcess(ratios, rule.standsOut, rule.leak, blocks, out);
    out[blocks - 1] = 0.0F;
    turnIntoSumsFromBehind(ratios, out, blocks);
    std::array<float, stretch> excess{};
    std::array<float, stretch> sums{};
    for (int from = 0; from < blocks; from += stretch) {
        const int count = std::min(stretch, blocks - from);
        const int first = std::min(from + rule.window, blocks);
        const int known = std::min(count, blocks - first);
        std::copy_n(out + first, known, excess.begin());
        std::fill(excess.begin() + known, excess.begin() + count, 0.0F);
        std::copy_n(ratios + first, known, sums.begin());
        std::fill(sums.begin() + known, sums.begin() + count, 0.0F);
        takeScores(ratios + from, sums.data(), excess.data(), count, out + from);
    }
}

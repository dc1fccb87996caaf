#include "OvSeismic/dsp/OvChangeScore.h"

#include "OvSeismic/dsp/OvDot_p.h"
#include "OvSeismic/dsp/OvLanes.h"
#include "OvSeismic/dsp/OvVectorClones.h"

#include <algorithm>
#include <array>

namespace {

// Of a block of about two independent samples, against a signal of 1.5 times the noise's power.
constexpr float slope = 0.6F;
constexpr float level = 0.92F;
constexpr float least = -1.0F;
constexpr float most = 2.5F;
// A window that holds less than this is no arrival, and what it lacks counts this many times more.
constexpr float leastWindow = 2.0F;
constexpr float lackWeight = 2.0F;
constexpr int stretch = 512;
constexpr int lanes = 16;

// The ratios of some blocks in place of their energies, which `ahead` more blocks follow.
template <int bytes, int count>
OV_LANES_INLINE void takeRatios(const OvChangeScore::Rule& rule, int ahead, float* values)
{
    using Some = OvLanes<count, float, bytes>;
    const Some energies = Some::from(values);
    Some mask = energies;
    for (int i = 1; i <= ahead; ++i)
        mask = mask.orMore(Some::from(values + i));
    const Some whole = Some::all(rule.noise).orMore(Some::all(rule.forerunner) * mask);
    const Some ratios = Some::all(slope) * energies / whole - Some::all(level);
    ratios.orMore(Some::all(least))
        .orLess(Some::all(most))
        .whereLess(Some::all(0.0F), whole, least)
        .to(values);
}

template <int bytes>
OV_LANES_INLINE void takeAllRatios(const OvChangeScore::Rule& rule, int blocks, float* values)
{
    constexpr int few = 4;
    const int ahead = rule.forerunner > 0.0F ? std::max(rule.ahead, 0) : 0;
    int k = 0;
    for (; k + ahead + lanes <= blocks; k += lanes)
        takeRatios<bytes, lanes>(rule, ahead, values + k);
    for (; k + ahead + few <= blocks; k += few)
        takeRatios<bytes, few>(rule, ahead, values + k);
    for (; k < blocks; ++k)
        takeRatios<bytes, 1>(rule, std::min(ahead, blocks - 1 - k), values + k);
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

template <int bytes>
OV_LANES_INLINE void takeLongEnergies(const float* samples, int block, int blocks, float* out)
{
    constexpr int few = 8;
    using Few = OvLanes<few, float, bytes>;
    static constexpr std::array<float, std::size_t(2) * few> firstOf8{1, 1, 1, 1, 1, 1, 1, 1};
    const float share = 1.0F / static_cast<float>(block);
    // A short block and some of the next one, which counts nothing.
    const int followed = block < few && 2 * block >= few ? blocks - 1 : 0;
    int k = 0;
    for (; k < followed; ++k) {
        const Few here = Few::from(samples) * Few::from(firstOf8.data() + few - block);
        out[k] = share * (here * here).sum();
        samples += block;
    }
    for (; k < blocks; ++k, samples += block)
        out[k] = share * ovDot<bytes>(samples, samples, block);
}

// What stands out of the blocks but the last one.
OV_VECTOR_CLONES
void takeExcess(const float* ratios, float standsOut, float leak, int blocks, float* out)
{
    for (int k = 0; k + 1 < blocks; ++k)
        out[k] = (std::min(ratios[k], ratios[k + 1]) > standsOut ? ratios[k] : 0.0F) - leak;
}

// What the ratios of a window count.
template <int bytes, int count>
OV_LANES_INLINE OvLanes<count, float, bytes> weighed(const OvLanes<count, float, bytes>& inside)
{
    using Some = OvLanes<count, float, bytes>;
    const Some lacking = inside - Some::all(lackWeight) * (Some::all(leastWindow) - inside);
    return lacking.orLess(inside);
}

// The scores of some blocks in place of the excess from them on, windows being full.
template <int bytes, int count>
OV_LANES_INLINE void takeScores(const float* ratios, int window, float* out)
{
    using Some = OvLanes<count, float, bytes>;
    Some inside = Some::from(ratios);
    for (int i = 1; i < window; ++i)
        inside += Some::from(ratios + i);
    (weighed<bytes, count>(inside) + Some::from(out + window)).to(out);
}

template <int bytes>
OV_LANES_INLINE void takeAllScores(const float* ratios, int window, int blocks, float* out)
{
    constexpr int few = 4;
    const int full = std::max(blocks - window, 0);
    int k = 0;
    for (; k + lanes <= full; k += lanes)
        takeScores<bytes, lanes>(ratios + k, window, out + k);
    for (; k + few <= full; k += few)
        takeScores<bytes, few>(ratios + k, window, out + k);
    for (; k < full; ++k)
        takeScores<bytes, 1>(ratios + k, window, out + k);
    // Behind the last full window comes nothing.
    float inside = 0.0F;
    for (k = blocks - 1; k >= full; --k) {
        inside += ratios[k];
        weighed<bytes, 1>(OvLanes<1, float, bytes>::all(inside)).to(out + k);
    }
}

// Sums of each value and the `lanes` - 1 behind it, in place; values holds as many more.
template <int bytes>
OV_LANES_INLINE void takeSumsAhead(float* values, int count)
{
    using Lanes = OvLanes<lanes, float, bytes>;
    for (const std::ptrdiff_t step : {1, 4}) {
        for (int i = 0; i < count; i += lanes) {
            const Lanes two = Lanes::from(values + i) + Lanes::from(values + i + step);
            const Lanes next =
                Lanes::from(values + i + 2 * step) + Lanes::from(values + i + 3 * step);
            (two + next).to(values + i);
        }
    }
}

// Turns values into what they and all behind them add up to.
template <int bytes>
OV_LANES_INLINE void turnIntoSumsFromBehind(float* values, int count)
{
    using Lanes = OvLanes<lanes, float, bytes>;
    constexpr int margin = 2 * lanes;
    std::array<float, stretch + margin> sums;
    float behind = 0.0F;
    for (int last = count; last > 0; last -= std::min(last, stretch)) {
        const int size = std::min(last, stretch);
        float* from = values + (last - size);
        std::copy_n(from, size, sums.begin());
        std::fill(sums.begin() + size, sums.begin() + size + margin, 0.0F);
        takeSumsAhead<bytes>(sums.data(), size);
        Lanes later = Lanes::all(behind);
        for (int i = (size - 1) / lanes * lanes; i >= 0; i -= lanes) {
            later += Lanes::from(sums.data() + i);
            later.to(sums.data() + i);
        }
        std::copy_n(sums.begin(), size, from);
        behind = sums[0];
    }
}

OV_LANES_VERSIONS(void, findRatios, (const OvChangeScore::Rule& rule, int blocks, float* values),
                  takeAllRatios, (rule, blocks, values))
OV_LANES_VERSIONS(void, findLongEnergies, (const float* samples, int block, int blocks, float* out),
                  takeLongEnergies, (samples, block, blocks, out))
OV_LANES_VERSIONS(void, findScores, (const float* ratios, int window, int blocks, float* out),
                  takeAllScores, (ratios, window, blocks, out))
OV_LANES_VERSIONS(void, sumFromBehind, (float* values, int count), turnIntoSumsFromBehind,
                  (values, count))

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
    findLongEnergies(samples, block, blocks, out);
}

void OvChangeScore::ratios(const Rule& rule, int blocks, float* values)
{
    findRatios(rule, blocks, values);
    std::fill_n(values, std::clamp(rule.first, 0, blocks), least);
}

void OvChangeScore::scores(const Rule& rule, int blocks, const float* ratios, float* out)
{
    if (blocks < 1)
        return;
    takeExcess(ratios, rule.standsOut, rule.leak, blocks, out);
    out[blocks - 1] = 0.0F;
    sumFromBehind(out, blocks);
    findScores(ratios, rule.window, blocks, out);
}

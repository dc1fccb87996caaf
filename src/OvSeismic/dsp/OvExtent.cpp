#include "OvSeismic/dsp/OvExtent.h"

#include "OvSeismic/dsp/OvLanes.h"
#include "OvSeismic/dsp/OvVectorClones.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int lanes = 16;
constexpr int wide = 2 * lanes;
using Lanes = OvLanes<lanes>;

// What some samples reach, each sample taken once or more.
class Reach
{
public:
    OV_LANES_INLINE explicit Reach(const float* samples)
        : m_least(Lanes::from(samples))
        , m_most(m_least)
        , m_zeros(m_least * Lanes::all(0.0F))
    {
    }

    OV_LANES_INLINE void take(const float* samples)
    {
        const Lanes here = Lanes::from(samples);
        m_least = m_least.orLess(here);
        m_most = m_most.orMore(here);
        m_zeros += here * Lanes::all(0.0F);
    }

    OV_LANES_INLINE void take(const Reach& other)
    {
        m_least = m_least.orLess(other.m_least);
        m_most = m_most.orMore(other.m_most);
        m_zeros += other.m_zeros;
    }

    OV_LANES_INLINE OvExtent extent() const
    {
        return {-(Lanes::all(0.0F) - m_least).largest(), m_most.largest(), m_zeros.sum() == 0.0F};
    }

private:
    Lanes m_least;
    Lanes m_most;
    Lanes m_zeros; // no longer 0 after what is no finite number
};

// count is a whole block at least; the last block overlaps the one before.
OV_VECTOR_CLONES
OvExtent extentOf(const float* samples, int count)
{
    Reach even(samples);
    Reach odd(samples + lanes);
    for (int i = wide; i < count; i += wide) {
        const float* block = samples + std::min(i, count - wide);
        even.take(block);
        odd.take(block + lanes);
    }
    even.take(odd);
    return even.extent();
}

// Place of the first block of samples with one of an amount or more; what is no whole block is left
// to the caller.
OV_VECTOR_CLONES
int firstBlock(const float* samples, int count, float amount)
{
    int i = 0;
    for (; i + wide <= count; i += wide) {
        const Lanes even = Lanes::from(samples + i);
        const Lanes odd = Lanes::from(samples + i + lanes);
        const Lanes least = even.orLess(odd);
        const Lanes most = even.orMore(odd).orMore(Lanes::all(0.0F) - least);
        if (most.largest() >= amount)
            break;
    }
    return i;
}

} // namespace

OvExtent OvExtent::of(const float* samples, int count)
{
    if (count >= wide)
        return extentOf(samples, count);
    OvExtent extent;
    if (count > 0)
        extent.least = extent.most = samples[0];
    for (int i = 0; i < count; ++i) {
        extent.least = std::min(extent.least, samples[i]);
        extent.most = std::max(extent.most, samples[i]);
        extent.isFinite = extent.isFinite && std::isfinite(samples[i]);
    }
    return extent;
}

int OvExtent::firstAsLarge(const float* samples, int count, float amount)
{
    const auto isAsLarge = [amount](float value) { return std::abs(value) >= amount; };
    const float* from = samples + firstBlock(samples, count, amount);
    return static_cast<int>(std::find_if(from, samples + count, isAsLarge) - samples);
}

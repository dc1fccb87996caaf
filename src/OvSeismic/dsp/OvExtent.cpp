#include "OvSeismic/dsp/OvExtent.h"

#include "OvSeismic/dsp/OvLanes.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int lanes = 16;
constexpr int wide = 2 * lanes;
template <int bytes>
using Lanes = OvLanes<lanes, float, bytes>;

// What some samples reach, each sample taken once or more.
template <int bytes>
class Reach
{
public:
    OV_LANES_INLINE explicit Reach(const float* samples)
        : m_least(Lanes<bytes>::from(samples))
        , m_most(m_least)
        , m_zeros(m_least * Lanes<bytes>::all(0.0F))
    {
    }

    OV_LANES_INLINE void take(const float* samples)
    {
        const Lanes<bytes> here = Lanes<bytes>::from(samples);
        m_least = m_least.orLess(here);
        m_most = m_most.orMore(here);
        m_zeros += here * Lanes<bytes>::all(0.0F);
    }

    OV_LANES_INLINE void take(const Reach& other)
    {
        m_least = m_least.orLess(other.m_least);
        m_most = m_most.orMore(other.m_most);
        m_zeros += other.m_zeros;
    }

    OV_LANES_INLINE OvExtent extent() const
    {
        return {-(Lanes<bytes>::all(0.0F) - m_least).largest(), m_most.largest(),
                m_zeros.sum() == 0.0F};
    }

private:
    Lanes<bytes> m_least;
    Lanes<bytes> m_most;
    Lanes<bytes> m_zeros; // no longer 0 after what is no finite number
};

// count is a whole block at least; the last block overlaps the one before.
template <int bytes>
OV_LANES_INLINE OvExtent extentOf(const float* samples, int count)
{
    Reach<bytes> even(samples);
    Reach<bytes> odd(samples + lanes);
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
template <int bytes>
OV_LANES_INLINE int firstBlock(const float* samples, int count, float amount)
{
    int i = 0;
    for (; i + wide <= count; i += wide) {
        const Lanes<bytes> even = Lanes<bytes>::from(samples + i);
        const Lanes<bytes> odd = Lanes<bytes>::from(samples + i + lanes);
        const Lanes<bytes> least = even.orLess(odd);
        const Lanes<bytes> most = even.orMore(odd).orMore(Lanes<bytes>::all(0.0F) - least);
        if (most.largest() >= amount)
            break;
    }
    return i;
}

OV_LANES_VERSIONS(OvExtent, findExtent, (const float* samples, int count), extentOf,
                  (samples, count))
OV_LANES_VERSIONS(int, findBlock, (const float* samples, int count, float amount), firstBlock,
                  (samples, count, amount))

} // namespace

OvExtent OvExtent::of(const float* samples, int count)
{
    if (count >= wide)
        return findExtent(samples, count);
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
    const float* from = samples + findBlock(samples, count, amount);
    return static_cast<int>(std::find_if(from, samples + count, isAsLarge) - samples);
}

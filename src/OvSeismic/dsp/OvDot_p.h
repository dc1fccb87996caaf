#pragma once

#include "OvSeismic/dsp/OvLanes.h"

/// OvFir::dot() as a kernel, for where calls would cost more than short sums do.
template <int bytes>
OV_LANES_INLINE float ovDot(const float* a, const float* b, int count)
{
    constexpr int few = 8;
    constexpr int lanes = 16;
    constexpr int wide = 2 * lanes;
    using Few = OvLanes<few, float, bytes>;
    using Lanes = OvLanes<lanes, float, bytes>;
    // From element n on the weights of eight values of which the last n count.
    static constexpr std::array<float, 16> lastOf8{0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1};
    int i = 0;
    float sum = 0.0F;
    if (count >= 2 * wide) {
        Lanes even = Lanes::from(a) * Lanes::from(b);
        Lanes odd = Lanes::from(a + lanes) * Lanes::from(b + lanes);
        for (i = wide; i + wide <= count; i += wide) {
            even += Lanes::from(a + i) * Lanes::from(b + i);
            odd += Lanes::from(a + i + lanes) * Lanes::from(b + i + lanes);
        }
        sum = (even + odd).sum();
    }
    if (count - i >= few) {
        Few rest = Few::from(a + i) * Few::from(b + i);
        for (i += few; i + few <= count; i += few)
            rest += Few::from(a + i) * Few::from(b + i);
        // The last ones once more, of which those that have been taken count nothing.
        const int last = count - few;
        rest += Few::from(a + last) * Few::from(b + last) * Few::from(lastOf8.data() + count - i);
        return sum + rest.sum();
    }
    for (; i < count; ++i)
        sum += a[i] * b[i];
    return sum;
}

#include "OvSeismic/dsp/OvRank.h"

#include "OvSeismic/dsp/OvLanes.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace {

constexpr int few = 64;

// The largest of those that at most `rank` values are smaller than. All are compared with all,
// which takes no branches; their number is small.
template <int bytes, typename Value>
OV_LANES_INLINE Value amongFew(const Value* values, int count, int rank)
{
    constexpr int lanes = 64 / sizeof(Value);
    using Lanes = OvLanes<lanes, Value, bytes>;
    constexpr Value none = std::numeric_limits<Value>::infinity();
    std::array<Value, few> padded;
    const int size = (count + lanes - 1) / lanes * lanes;
    std::copy_n(values, count, padded.begin());
    std::fill(padded.begin() + count, padded.begin() + size, none);
    const Lanes enough = Lanes::all(static_cast<Value>(rank + 1));
    Lanes largest = Lanes::all(-none);
    for (int i = 0; i < size; i += lanes) {
        const Lanes here = Lanes::from(padded.data() + i);
        Lanes smaller = Lanes::all(Value(0));
        for (int k = 0; k < count; ++k)
            smaller += Lanes::all(values[k]).isLess(here);
        largest = here.whereLess(smaller, enough, -none).orMore(largest);
    }
    return largest.largest();
}

OV_LANES_VERSIONS(float, amongFewFloats, (const float* values, int count, int rank), amongFew,
                  (values, count, rank))
OV_LANES_VERSIONS(double, amongFewDoubles, (const double* values, int count, int rank), amongFew,
                  (values, count, rank))

template <typename Value>
Value amongMany(const Value* values, int count, int rank)
{
    std::vector<Value> sorted(values, values + count);
    std::nth_element(sorted.begin(), sorted.begin() + rank, sorted.end());
    return sorted[static_cast<std::size_t>(rank)];
}

} // namespace

float OvRank::of(const float* values, int count, int rank)
{
    return count <= few ? amongFewFloats(values, count, rank) : amongMany(values, count, rank);
}

double OvRank::of(const double* values, int count, int rank)
{
    return count <= few ? amongFewDoubles(values, count, rank) : amongMany(values, count, rank);
}

double OvRank::median(const double* values, int count)
{
    return of(values, count, count / 2);
}

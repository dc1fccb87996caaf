#include "OvSeismic/dsp/OvRank.h"

#include "OvSeismic/dsp/OvLanes.h"

#include <algorithm>
#include <limits>

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

constexpr int mostReach = 4;
constexpr int mostInWindow = 2 * mostReach + 1;

// Puts in order what stands in the first half of each window, a few windows at once. Each begins at
// values, the last of them count - 1 farther on.
template <int bytes, int count>
OV_LANES_INLINE void takeMedians(const double* values, int reach, double* out)
{
    using Lanes = OvLanes<count, double, bytes>;
    std::array<Lanes, mostInWindow> window;
    const std::size_t size = 2 * static_cast<std::size_t>(reach) + 1;
    for (std::size_t i = 0; i < size; ++i)
        window[i] = Lanes::from(values + i);
    for (std::size_t i = 0; i <= size / 2; ++i) {
        for (std::size_t k = i + 1; k < size; ++k) {
            const Lanes less = window[k].orLess(window[i]);
            window[k] = window[k].orMore(window[i]);
            window[i] = less;
        }
    }
    window[size / 2].to(out);
}

// Of whole windows; values and out begin with the first.
template <int bytes>
OV_LANES_INLINE void takeAllMedians(const double* values, int windows, int reach, double* out)
{
    constexpr int lanes = 8;
    int i = 0;
    for (; i + lanes <= windows; i += lanes)
        takeMedians<bytes, lanes>(values + i, reach, out + i);
    for (; i < windows; ++i)
        takeMedians<bytes, 1>(values + i, reach, out + i);
}

OV_LANES_VERSIONS(void, findMedians, (const double* values, int windows, int reach, double* out),
                  takeAllMedians, (values, windows, reach, out))

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

double OvRank::median(const std::vector<double>& values)
{
    return median(values.data(), static_cast<int>(values.size()));
}

void OvRank::runningMedians(const double* values, int count, int reach, double* out)
{
    const int whole = reach <= mostReach ? std::max(count - 2 * reach, 0) : 0;
    if (whole > 0)
        findMedians(values, whole, reach, out + reach);
    for (int i = 0; i < count; ++i) {
        if (i == reach)
            i += whole;
        const int first = std::max(i - reach, 0);
        if (i < count)
            out[i] = median(values + first, std::min(i + reach + 1, count) - first);
    }
}

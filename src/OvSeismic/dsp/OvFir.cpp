#include "OvSeismic/dsp/OvFir.h"

#include "OvSeismic/dsp/OvDot_p.h"
#include "OvSeismic/dsp/OvLanes.h"
#include "OvSeismic/dsp/OvVectorClones.h"

#include <algorithm>
#include <array>

namespace {

constexpr int lanes = 16;
template <int bytes>
using Lanes = OvLanes<lanes, float, bytes>;

// Where the lanes of one of several registers begin.
constexpr std::ptrdiff_t startOf(int index)
{
    return static_cast<std::ptrdiff_t>(index) * lanes;
}

float beyond(const float* in, int count, int i)
{
    if (i < 0)
        return 2.0F * in[0] - in[std::min(-i, count - 1)];
    if (i >= count)
        return 2.0F * in[count - 1] - in[std::max(2 * (count - 1) - i, 0)];
    return in[i];
}

// A block of sums of the taps times what lies `step` by `step` from each point. The sums stay in
// registers while all taps go over them.
template <int bytes, int registers, int step>
OV_LANES_INLINE void takeBlock(const float* taps, int length, const float* in, float* out)
{
    std::array<Lanes<bytes>, registers> sums;
    for (int j = 0; j < registers; ++j)
        sums[static_cast<std::size_t>(j)] =
            Lanes<bytes>::from(in + startOf(j)) * Lanes<bytes>::all(taps[0]);
    for (std::ptrdiff_t k = 1; k < length; ++k) {
        const Lanes<bytes> tap = Lanes<bytes>::all(taps[k]);
        for (int j = 0; j < registers; ++j)
            sums[static_cast<std::size_t>(j)] +=
                Lanes<bytes>::from(in + startOf(j) + k * step) * tap;
    }
    for (int j = 0; j < registers; ++j)
        sums[static_cast<std::size_t>(j)].to(out + startOf(j));
}

template <int step>
float takeOne(const float* taps, int length, const float* in)
{
    float sum = 0.0F;
    for (std::ptrdiff_t k = 0; k < length; ++k)
        sum += taps[k] * in[k * step];
    return sum;
}

// Wide blocks, or narrow ones of fewer points. What is left over is the end of one more block,
// which overlaps the last one.
template <int bytes, int step>
OV_LANES_INLINE void takeSums(const float* taps, int length, const float* in, int count, float* out)
{
    constexpr int registers = 4;
    constexpr int wide = registers * lanes;
    int i = 0;
    for (; i + wide <= count; i += wide)
        takeBlock<bytes, registers, step>(taps, length, in + i, out + i);
    if (i > 0 && i < count) {
        const int last = count - wide;
        takeBlock<bytes, registers, step>(taps, length, in + last, out + last);
        return;
    }
    for (; i + lanes <= count; i += lanes)
        takeBlock<bytes, 1, step>(taps, length, in + i, out + i);
    if (i > 0 && i < count) {
        const int last = count - lanes;
        takeBlock<bytes, 1, step>(taps, length, in + last, out + last);
        return;
    }
    for (; i < count; ++i)
        out[i] = takeOne<step>(taps, length, in + i);
}

template <int bytes>
OV_LANES_INLINE void takeSumsForward(const float* taps, int length, const float* in, int count,
                                     float* out)
{
    takeSums<bytes, 1>(taps, length, in, count, out);
}

template <int bytes>
OV_LANES_INLINE void takeSumsBackward(const float* taps, int length, const float* in, int count,
                                      float* out)
{
    takeSums<bytes, -1>(taps, length, in, count, out);
}

OV_LANES_VERSIONS(void, sumForward,
                  (const float* taps, int length, const float* in, int count, float* out),
                  takeSumsForward, (taps, length, in, count, out))
OV_LANES_VERSIONS(void, sumBackward,
                  (const float* taps, int length, const float* in, int count, float* out),
                  takeSumsBackward, (taps, length, in, count, out))

// The points [from, to) of out, which need some of what lies beyond an end of in.
void applyAtEdge(const std::vector<float>& taps, int ahead, const float* in, int count, int from,
                 int to, float* out)
{
    constexpr int room = 128;
    const int before = static_cast<int>(taps.size()) - 1;
    std::array<float, room + lanes> around;
    std::array<float, lanes> sums;
    for (int first = from; first < to && before <= room; first += lanes) {
        const int last = std::min(first + lanes, to);
        float* next = around.data();
        for (int i = first - before; i < first + lanes; ++i)
            *next++ = i < last ? beyond(in, count, i + ahead) : 0.0F;
        sumBackward(taps.data(), before + 1, around.data() + before, lanes, sums.data());
        std::copy_n(sums.data(), last - first, out + first);
    }
    for (int i = from; i < to && before > room; ++i) {
        out[i] = 0.0F;
        for (int k = 0; k <= before; ++k)
            out[i] += taps[static_cast<std::size_t>(k)] * beyond(in, count, i + ahead - k);
    }
}

// What is mixed: parts anywhere, or rows one after the other.
struct Parts
{
    const OvFir::Part* parts;
    std::size_t count;
    const float* samples(std::size_t index) const { return parts[index].samples; }
    float weight(std::size_t index) const { return parts[index].weight; }
};

struct Rows
{
    const float* first;
    const float* weights;
    std::size_t count;
    std::size_t length;
    const float* samples(std::size_t index) const { return first + index * length; }
    float weight(std::size_t index) const { return weights[index]; }
};

// What `registers` full of points add up to.
template <int bytes, int registers, typename Source>
OV_LANES_INLINE void mixBlock(const Source& source, int from, float* out)
{
    std::array<Lanes<bytes>, registers> sums;
    sums.fill(Lanes<bytes>::all(0.0F));
    for (std::size_t k = 0; k < source.count; ++k) {
        const Lanes<bytes> weight = Lanes<bytes>::all(source.weight(k));
        const float* samples = source.samples(k) + from;
        for (int j = 0; j < registers; ++j)
            sums[static_cast<std::size_t>(j)] += Lanes<bytes>::from(samples + startOf(j)) * weight;
    }
    for (int j = 0; j < registers; ++j)
        sums[static_cast<std::size_t>(j)].to(out + from + startOf(j));
}

template <int bytes, typename Source>
OV_LANES_INLINE void mixAll(const Source& source, int count, float* out)
{
    constexpr int registers = 4;
    constexpr int wide = registers * lanes;
    int i = 0;
    for (; i + wide <= count; i += wide)
        mixBlock<bytes, registers>(source, i, out);
    for (; i + lanes <= count; i += lanes)
        mixBlock<bytes, 1>(source, i, out);
    if (i > 0 && i < count)
        mixBlock<bytes, 1>(source, count - lanes, out);
    for (; i < count && count < lanes; ++i) {
        out[i] = 0.0F;
        for (std::size_t k = 0; k < source.count; ++k)
            out[i] += source.samples(k)[i] * source.weight(k);
    }
}

OV_LANES_VERSIONS(void, mixParts, (const Parts& parts, int count, float* out), mixAll,
                  (parts, count, out))
OV_LANES_VERSIONS(void, mixEqualRows, (const Rows& rows, int count, float* out), mixAll,
                  (rows, count, out))
OV_LANES_VERSIONS(float, sumOfProducts, (const float* a, const float* b, int count), ovDot,
                  (a, b, count))

// Four lags at a time, so that one load serves all, as far as there are whole registers for all
// four; then what is left of each.
template <int bytes>
OV_LANES_INLINE void takeLags(const float* in, int count, int lags, float* out)
{
    constexpr int together = 4;
    int lag = 0;
    for (; lag + together <= lags; lag += together) {
        std::array<Lanes<bytes>, together> sums;
        sums.fill(Lanes<bytes>::all(0.0F));
        const int least = count - lag - (together - 1); // products of the last of the four
        int i = 0;
        for (; i + lanes <= least; i += lanes) {
            const Lanes<bytes> here = Lanes<bytes>::from(in + i);
            for (int k = 0; k < together; ++k)
                sums[static_cast<std::size_t>(k)] += Lanes<bytes>::from(in + i + lag + k) * here;
        }
        for (int k = 0; k < together; ++k)
            out[lag + k] = sums[static_cast<std::size_t>(k)].sum() +
                           ovDot<bytes>(in + i + lag + k, in + i, count - i - lag - k);
    }
    for (; lag < lags; ++lag)
        out[lag] = ovDot<bytes>(in + lag, in, count - lag);
}

OV_LANES_VERSIONS(void, findLags, (const float* in, int count, int lags, float* out), takeLags,
                  (in, count, lags, out))

} // namespace

void OvFir::autocorrelate(const float* in, int count, int lags, float* out)
{
    findLags(in, count, lags, out);
}

void OvFir::apply(const std::vector<float>& taps, int ahead, const float* in, int count, float* out)
{
    const int length = static_cast<int>(taps.size());
    const int first = std::clamp(length - 1 - ahead, 0, count);
    const int last = std::clamp(count - ahead, first, count);
    applyAtEdge(taps, ahead, in, count, 0, first, out);
    sumBackward(taps.data(), length, in + first + ahead, last - first, out + first);
    applyAtEdge(taps, ahead, in, count, last, count, out);
}

void OvFir::correlate(const float* pattern, int length, const float* in, int count, float* out)
{
    sumForward(pattern, length, in, count, out);
}

std::vector<float> OvFir::triangle(int half)
{
    const int width = std::max(half, 1);
    std::vector<float> taps;
    for (int i = 1 - width; i < width; ++i)
        taps.push_back(static_cast<float>(width - std::abs(i)) / static_cast<float>(width * width));
    return taps;
}

std::vector<float> OvFir::joined(const std::vector<float>& first, const std::vector<float>& second)
{
    std::vector<float> taps(first.size() + second.size() - 1, 0.0F);
    for (std::size_t i = 0; i < first.size(); ++i) {
        for (std::size_t k = 0; k < second.size(); ++k)
            taps[i + k] += first[i] * second[k];
    }
    return taps;
}

OV_VECTOR_CLONES
void OvFir::addScaled(const float* in, float factor, int count, float* out)
{
    for (int i = 0; i < count; ++i)
        out[i] += factor * in[i];
}

OV_VECTOR_CLONES
void OvFir::addBetween(const float* in, float part, float factor, int count, float* out)
{
    for (int i = 0; i < count; ++i)
        out[i] += factor * (in[i] + part * (in[i + 1] - in[i]));
}

void OvFir::mix(const std::vector<Part>& parts, int count, float* out)
{
    mixParts({parts.data(), parts.size()}, count, out);
}

void OvFir::mixRows(const float* samples, const float* weights, int rows, int count, float* out)
{
    mixEqualRows(
        {samples, weights, static_cast<std::size_t>(rows), static_cast<std::size_t>(count)}, count,
        out);
}

float OvFir::dot(const float* a, const float* b, int count)
{
    return sumOfProducts(a, b, count);
}

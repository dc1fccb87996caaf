#include "OvSeismic/dsp/OvFir.h"

#include "OvSeismic/dsp/OvVectorClones.h"

#include <algorithm>
#include <array>

namespace {

float beyond(const float* in, int count, int i)
{
    if (i < 0)
        return 2.0F * in[0] - in[std::min(-i, count - 1)];
    if (i >= count)
        return 2.0F * in[count - 1] - in[std::max(2 * (count - 1) - i, 0)];
    return in[i];
}

float atEdge(const std::vector<float>& taps, int ahead, const float* in, int count, int i)
{
    float sum = 0.0F;
    for (int k = 0; k < static_cast<int>(taps.size()); ++k) {
        sum += taps[static_cast<std::size_t>(k)] * beyond(in, count, i + ahead - k);
    }
    return sum;
}

// Sums of the taps times what lies behind each of count points, a whole number of blocks. A block
// of outputs stays in registers while all taps go over it.
constexpr int block = 32;
OV_VECTOR_CLONES
void applyBlocks(const float* taps, int length, const float* in, int count, float* out)
{
    for (int i = 0; i < count; i += block) {
        std::array<float, block> sums{};
        for (int k = 0; k < length; ++k) {
            const float tap = taps[k];
            for (int j = 0; j < block; ++j)
                sums[static_cast<std::size_t>(j)] += tap * in[i + j - k];
        }
        std::copy(sums.begin(), sums.end(), out + i);
    }
}

} // namespace

void OvFir::apply(const std::vector<float>& taps, int ahead, const float* in, int count, float* out)
{
    const int length = static_cast<int>(taps.size());
    const int first = std::clamp(length - 1 - ahead, 0, count);
    const int last = std::clamp(count - ahead, first, count);
    for (int i = 0; i < first; ++i)
        out[i] = atEdge(taps, ahead, in, count, i);
    const int whole = (last - first) / block * block;
    applyBlocks(taps.data(), length, in + first + ahead, whole, out + first);
    int i = first + whole;
    // What is left over is the end of one more block, which overlaps the last one.
    if (whole > 0 && i < last) {
        applyBlocks(taps.data(), length, in + last - block + ahead, block, out + last - block);
        i = last;
    }
    for (; i < count; ++i)
        out[i] = atEdge(taps, ahead, in, count, i);
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
float OvFir::dot(const float* a, const float* b, int count)
{
    // Independent sums, which a compiler may keep in one vector register.
    constexpr int lanes = 8;
    std::array<float, lanes> sums{};
    int i = 0;
    for (; i + lanes <= count; i += lanes) {
        for (int j = 0; j < lanes; ++j)
            sums[static_cast<std::size_t>(j)] += a[i + j] * b[i + j];
    }
    float sum = 0.0F;
    for (; i < count; ++i)
        sum += a[i] * b[i];
    for (const float part : sums)
        sum += part;
    return sum;
}

#pragma once

#include "OvSeismic/dsp/OvVectorClones.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

#if defined(__GNUC__)
#define OV_LANES_INLINE __attribute__((always_inline)) inline
#else
#define OV_LANES_INLINE inline
#endif

/// Defines a function of this file that calls a kernel, a template function marked OV_LANES_INLINE
/// whose first parameter is the width of vector registers in bytes: once for every processor, once
/// for those with AVX2 and once for those with AVX-512, of which the right one is chosen when the
/// library is loaded. The results are the same, bit for bit.
// NOLINTBEGIN(bugprone-macro-parentheses)
#if defined(OV_VECTOR_VERSIONS)
#define OV_LANES_VERSIONS(result, name, parameters, kernel, arguments)                             \
    __attribute__((target("default"))) result name parameters                                      \
    {                                                                                              \
        return kernel<16> arguments;                                                               \
    }                                                                                              \
    __attribute__((target("avx2"))) result name parameters                                         \
    {                                                                                              \
        return kernel<32> arguments;                                                               \
    }                                                                                              \
    __attribute__((target("avx512f"))) result name parameters                                      \
    {                                                                                              \
        return kernel<64> arguments;                                                               \
    }
#else
#define OV_LANES_VERSIONS(result, name, parameters, kernel, arguments)                             \
    result name parameters                                                                         \
    {                                                                                              \
        return kernel<16> arguments;                                                               \
    }
#endif
// NOLINTEND(bugprone-macro-parentheses)

/// A few numbers that are worked on at once, for the inner loops of kernels that a compiler does
/// not keep in vector registers by itself. Without vector types, as compilers other than GCC and
/// Clang have none, the same arithmetic goes lane by lane.
///
/// bytes is the width of the vector registers: a compiler splits what is wider, and does it badly.
/// Kernels leave it open; OV_LANES_VERSIONS fills it in.
template <int count, typename Value, int bytes>
class OvLanes
{
#if defined(__GNUC__)
    static constexpr int width = std::min<int>(count, bytes / sizeof(Value));
    typedef Value Piece __attribute__((vector_size(width * sizeof(Value))));
#else
    static constexpr int width = 1;
    using Piece = Value;
#endif
    static constexpr std::size_t pieces = count / width;

public:
    OvLanes() = default; ///< lanes of any value
    OV_LANES_INLINE static OvLanes from(const Value* values)
    {
        OvLanes lanes;
        for (std::size_t i = 0; i < pieces; ++i)
            std::memcpy(&lanes.m_pieces[i], values + i * width, sizeof(Piece));
        return lanes;
    }
    OV_LANES_INLINE static OvLanes all(Value value)
    {
        OvLanes lanes;
        for (Piece& piece : lanes.m_pieces)
            piece = Piece{} + value;
        return lanes;
    }
    OV_LANES_INLINE void to(Value* out) const
    {
        for (std::size_t i = 0; i < pieces; ++i)
            std::memcpy(out + i * width, &m_pieces[i], sizeof(Piece));
    }

    OV_LANES_INLINE OvLanes operator+(const OvLanes& other) const
    {
        OvLanes lanes;
        for (std::size_t i = 0; i < pieces; ++i)
            lanes.m_pieces[i] = m_pieces[i] + other.m_pieces[i];
        return lanes;
    }
    OV_LANES_INLINE OvLanes operator-(const OvLanes& other) const
    {
        OvLanes lanes;
        for (std::size_t i = 0; i < pieces; ++i)
            lanes.m_pieces[i] = m_pieces[i] - other.m_pieces[i];
        return lanes;
    }
    OV_LANES_INLINE OvLanes operator*(const OvLanes& other) const
    {
        OvLanes lanes;
        for (std::size_t i = 0; i < pieces; ++i)
            lanes.m_pieces[i] = m_pieces[i] * other.m_pieces[i];
        return lanes;
    }
    OV_LANES_INLINE OvLanes operator/(const OvLanes& other) const
    {
        OvLanes lanes;
        for (std::size_t i = 0; i < pieces; ++i)
            lanes.m_pieces[i] = m_pieces[i] / other.m_pieces[i];
        return lanes;
    }
    OV_LANES_INLINE OvLanes& operator+=(const OvLanes& other)
    {
        return *this = *this + other;
    }
    /// The larger and the smaller of each lane's two.
    OV_LANES_INLINE OvLanes orMore(const OvLanes& other) const
    {
        OvLanes lanes;
        for (std::size_t i = 0; i < pieces; ++i)
            lanes.m_pieces[i] = m_pieces[i] > other.m_pieces[i] ? m_pieces[i] : other.m_pieces[i];
        return lanes;
    }
    OV_LANES_INLINE OvLanes orLess(const OvLanes& other) const
    {
        OvLanes lanes;
        for (std::size_t i = 0; i < pieces; ++i)
            lanes.m_pieces[i] = m_pieces[i] < other.m_pieces[i] ? m_pieces[i] : other.m_pieces[i];
        return lanes;
    }
    /// 1 in each lane that is less than the other's, 0 in those that are not.
    OV_LANES_INLINE OvLanes isLess(const OvLanes& other) const
    {
        return all(Value(1)).whereLess(*this, other, Value(0));
    }
    /// Lanes where one is less than a limit, another value where it is not.
    OV_LANES_INLINE OvLanes whereLess(const OvLanes& one, const OvLanes& limit, Value other) const
    {
        OvLanes lanes;
        for (std::size_t i = 0; i < pieces; ++i)
            lanes.m_pieces[i] = one.m_pieces[i] < limit.m_pieces[i] ? m_pieces[i] : Piece{} + other;
        return lanes;
    }
    OV_LANES_INLINE Value largest() const
    {
        std::array<Value, count> lanes;
        to(lanes.data());
        if constexpr (count == 2)
            return lanes[0] > lanes[1] ? lanes[0] : lanes[1];
        else
            return OvLanes<count / 2, Value, bytes>::from(lanes.data())
                .orMore(OvLanes<count / 2, Value, bytes>::from(lanes.data() + count / 2))
                .largest();
    }
    /// Of all lanes, in the same order on every processor.
    OV_LANES_INLINE Value sum() const
    {
        std::array<Value, count> lanes;
        to(lanes.data());
        if constexpr (count == 4)
            return (lanes[0] + lanes[2]) + (lanes[1] + lanes[3]);
        else
            return (OvLanes<count / 2, Value, bytes>::from(lanes.data()) +
                    OvLanes<count / 2, Value, bytes>::from(lanes.data() + count / 2))
                .sum();
    }

private:
    Piece m_pieces[pieces];
};

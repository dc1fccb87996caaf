#pragma once

#include <array>
#include <cstddef>
#include <cstring>

#if defined(__GNUC__)
#define OV_LANES_INLINE __attribute__((always_inline)) inline
#else
#define OV_LANES_INLINE inline
#endif

/// A few floats that are worked on at once, for the inner loops of kernels that a compiler does not
/// keep in vector registers by itself. Without vector types, as compilers other than GCC and Clang
/// have none, the same arithmetic goes lane by lane. For use within a function marked
/// OV_VECTOR_CLONES.
template <int count>
class OvLanes
{
public:
    OvLanes() = default; ///< lanes of any value
    OV_LANES_INLINE static OvLanes from(const float* values)
    {
        OvLanes lanes;
        std::memcpy(&lanes.m_values, values, sizeof lanes.m_values);
        return lanes;
    }
    OV_LANES_INLINE static OvLanes all(float value)
    {
#if defined(__GNUC__)
        return {Values{} + value};
#else
        return each([&](std::size_t) { return value; });
#endif
    }
    OV_LANES_INLINE void to(float* out) const
    {
        std::memcpy(out, &m_values, sizeof m_values);
    }

    OV_LANES_INLINE OvLanes operator+(const OvLanes& other) const
    {
#if defined(__GNUC__)
        return {m_values + other.m_values};
#else
        return each([&](std::size_t i) { return m_values[i] + other.m_values[i]; });
#endif
    }
    OV_LANES_INLINE OvLanes operator-(const OvLanes& other) const
    {
#if defined(__GNUC__)
        return {m_values - other.m_values};
#else
        return each([&](std::size_t i) { return m_values[i] - other.m_values[i]; });
#endif
    }
    OV_LANES_INLINE OvLanes operator*(const OvLanes& other) const
    {
#if defined(__GNUC__)
        return {m_values * other.m_values};
#else
        return each([&](std::size_t i) { return m_values[i] * other.m_values[i]; });
#endif
    }
    OV_LANES_INLINE OvLanes& operator+=(const OvLanes& other)
    {
        return *this = *this + other;
    }
    /// The larger and the smaller of each lane's two.
    OV_LANES_INLINE OvLanes orMore(const OvLanes& other) const
    {
#if defined(__GNUC__)
        return {m_values > other.m_values ? m_values : other.m_values};
#else
        return each([&](std::size_t i) {
            return m_values[i] > other.m_values[i] ? m_values[i] : other.m_values[i];
        });
#endif
    }
    OV_LANES_INLINE OvLanes orLess(const OvLanes& other) const
    {
#if defined(__GNUC__)
        return {m_values < other.m_values ? m_values : other.m_values};
#else
        return each([&](std::size_t i) {
            return m_values[i] < other.m_values[i] ? m_values[i] : other.m_values[i];
        });
#endif
    }
    /// Of all lanes, in the same order on every processor.
    OV_LANES_INLINE float sum() const
    {
        std::array<float, count> lanes;
        to(lanes.data());
        if constexpr (count == 4)
            return (lanes[0] + lanes[2]) + (lanes[1] + lanes[3]);
        else
            return (OvLanes<count / 2>::from(lanes.data()) +
                    OvLanes<count / 2>::from(lanes.data() + count / 2))
                .sum();
    }

private:
#if defined(__GNUC__)
    typedef float Values __attribute__((vector_size(count * sizeof(float))));
#else
    using Values = std::array<float, count>;
    template <typename Value>
    static OvLanes each(Value value)
    {
        OvLanes lanes;
        for (std::size_t i = 0; i < count; ++i)
            lanes.m_values[i] = value(i);
        return lanes;
    }
#endif

    OV_LANES_INLINE OvLanes(const Values& values)
        : m_values(values)
    {
    }

    Values m_values;
};

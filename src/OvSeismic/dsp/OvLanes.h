#pragma once

#include <array>
#include <cstddef>
#include <cstring>

#if defined(__GNUC__)
#define OV_LANES_INLINE __attribute__((always_inline)) inline
#else
#define OV_LANES_INLINE inline
#endif

/// A few numbers that are worked on at once, for the inner loops of kernels that a compiler does
/// not keep in vector registers by itself. Without vector types, as compilers other than GCC and
/// Clang have none, the same arithmetic goes lane by lane. For use within a function marked
/// OV_VECTOR_CLONES.
template <int count, typename Value = float>
class OvLanes
{
public:
    OvLanes() = default; ///< lanes of any value
    OV_LANES_INLINE static OvLanes from(const Value* values)
    {
        OvLanes lanes;
        std::memcpy(&lanes.m_values, values, sizeof lanes.m_values);
        return lanes;
    }
    OV_LANES_INLINE static OvLanes all(Value value)
    {
#if defined(__GNUC__)
        return {Values{} + value};
#else
        return each([&](std::size_t) { return value; });
#endif
    }
    OV_LANES_INLINE void to(Value* out) const
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
    OV_LANES_INLINE OvLanes operator/(const OvLanes& other) const
    {
#if defined(__GNUC__)
        return {m_values / other.m_values};
#else
        return each([&](std::size_t i) { return m_values[i] / other.m_values[i]; });
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
    /// 1 in each lane that is less than the other's, 0 in those that are not.
    OV_LANES_INLINE OvLanes isLess(const OvLanes& other) const
    {
#if defined(__GNUC__)
        return {m_values < other.m_values ? Values{} + Value(1) : Values{}};
#else
        return each([&](std::size_t i) { return Value(m_values[i] < other.m_values[i] ? 1 : 0); });
#endif
    }
    /// Lanes where one is less than a limit, another value where it is not.
    OV_LANES_INLINE OvLanes whereLess(const OvLanes& one, const OvLanes& limit, Value other) const
    {
#if defined(__GNUC__)
        return {one.m_values < limit.m_values ? m_values : Values{} + other};
#else
        return each([&](std::size_t i) {
            return one.m_values[i] < limit.m_values[i] ? m_values[i] : other;
        });
#endif
    }
    OV_LANES_INLINE Value largest() const
    {
        std::array<Value, count> lanes;
        to(lanes.data());
        if constexpr (count == 2)
            return lanes[0] > lanes[1] ? lanes[0] : lanes[1];
        else
            return OvLanes<count / 2, Value>::from(lanes.data())
                .orMore(OvLanes<count / 2, Value>::from(lanes.data() + count / 2))
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
            return (OvLanes<count / 2, Value>::from(lanes.data()) +
                    OvLanes<count / 2, Value>::from(lanes.data() + count / 2))
                .sum();
    }

private:
#if defined(__GNUC__)
    typedef Value Values __attribute__((vector_size(count * sizeof(Value))));
#else
    using Values = std::array<Value, count>;
    template <typename Each>
    static OvLanes each(Each value)
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

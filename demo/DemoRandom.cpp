#include "DemoRandom.h"

#include <cmath>

double DemoRandom::even()
{
    constexpr int mantissaBits = 53;
    constexpr int wordBits = 64;
    return std::ldexp(static_cast<double>(m_engine() >> (wordBits - mantissaBits)), -mantissaBits);
}

double DemoRandom::normal()
{
    if (m_hasSpare) {
        m_hasSpare = false;
        return m_spare;
    }
    constexpr double turn = 6.28318530717958647692;
    const double radius = std::sqrt(-2.0 * std::log(1.0 - even()));
    const double angle = turn * even();
    m_spare = radius * std::sin(angle);
    m_hasSpare = true;
    return radius * std::cos(angle);
}

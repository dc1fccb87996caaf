#pragma once

#include <cstdint>
#include <random>

/// Random numbers that are the same on every platform: the engine is fixed by the language, and the
/// distributions, which are not, are written out here.
class DemoRandom
{
public:
    explicit DemoRandom(std::uint64_t seed)
        : m_engine(seed)
    {
    }

    /// Even in [0, 1).
    double even();
    /// Normal with mean 0 and deviation 1 (Box, G., Muller, M., 1958, A note on the generation of
    /// random normal deviates, Ann. Math. Stat. 29, 610-611).
    double normal();

private:
    std::mt19937_64 m_engine;
    double m_spare = 0.0;
    bool m_hasSpare = false;
};

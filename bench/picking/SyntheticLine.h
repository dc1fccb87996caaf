#pragma once

#include "OvSeismic/segy/OvGather.h"

#include <QString>

#include <vector>

/// What disturbs the traces of a synthetic line.
enum class Noise {
    White,
    Coloured,  ///< most of it in the band of the first arrival
    Hum,       ///< white, and 50 Hz as loud as the first arrival
    Swell,     ///< white, and 2 to 6 Hz with an RMS of twice the first arrival's peak
    CrossTalk, ///< white, and the strongest trace leaking into all others
    OtherShot, ///< white, and the waves of a shot beyond the end of the line
};

struct NoiseKind
{
    Noise noise = Noise::White;
    /// Peak of the first arrival's wavelet over the RMS of the white or coloured noise, of each
    /// trace.
    double signalToNoise = 10.0;

    QString name() const;
};

struct SyntheticShot
{
    OvGather gather;
    std::vector<double> onsetsMs; ///< exact; NaN on dead traces
};

/// Refraction gathers with exact first-break times, the same on every machine: 120 channels, 1000
/// samples of 2 ms.
///
/// A direct wave and two head waves over an uneven weathered layer make the first break; smooth and
/// random statics shift it. The first arrival is a Berlage wavelet (Aldridge, D., 1990, The Berlage
/// wavelet, Geophysics 55, 1508-1511) of 25 to 45 Hz, which begins at the first break exactly.
/// Later waves of 0.7 to 2.3 times its size, ground roll, bursts on 4 % of the traces, 2 % dead and
/// 1 % reversed traces make it a field record. The peak of the ground roll is up to four times that
/// of the first arrival near the shot, where its modes run together, and 1.3 times beyond 200 m,
/// where they have parted; 1.5 times is the median.
namespace SyntheticLine {

constexpr int channels = 120;
constexpr int sampleCount = 1000;
constexpr double intervalMs = 2.0;

SyntheticShot shot(unsigned seed, const NoiseKind& kind);

} // namespace SyntheticLine

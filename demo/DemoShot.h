#pragma once

#include <vector>

class DemoLine;

/// The recording of one shot of the line.
namespace DemoShot {

constexpr int sampleCount = 450;
constexpr int intervalUs = 1000;
/// Time of the first sample after the shot instant: recording begins before the shot.
constexpr int delayMs = -20;

/// Samples of all channels, channel after channel. Each wave is a Berlage wavelet (Aldridge, D. F.,
/// 1990, The Berlage wavelet, Geophysics 55, 1508-1511), so that it is exactly still until its
/// time; the noise is normal, grows with offset, and is louder on some traces than on others.
std::vector<float> record(const DemoLine& line, int shot);

} // namespace DemoShot

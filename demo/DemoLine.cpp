#include "DemoLine.h"

#include "DemoRandom.h"

#include <algorithm>
#include <cmath>

namespace {

double wave(double position, double length, double phase)
{
    constexpr double turn = 6.28318530717958647692;
    return std::sin(turn * position / length + phase);
}

// Delay of a head wave of one velocity in a layer of another, seconds a metre of thickness.
double delayPerMetre(double layer, double refractor)
{
    return std::sqrt(1.0 / (layer * layer) - 1.0 / (refractor * refractor));
}

double distance(int shot, int station)
{
    return std::abs(DemoLine::stationPosition(station) - DemoLine::shotPosition(shot));
}

} // namespace

DemoLine::DemoLine()
{
    constexpr unsigned seed = 1958;
    DemoRandom random(seed);
    double roughness = 0.0;
    for (int station = 0; station < stationCount; ++station) {
        roughness = 0.7 * roughness + 0.35 * random.normal();
        m_roughness.push_back(roughness);
    }
}

int DemoLine::firstStation(int shot)
{
    return std::clamp(2 * shot + 1 - channelCount / 2, 0, stationCount - channelCount);
}

bool DemoLine::isDead(int station)
{
    return station % 97 == 41;
}

bool DemoLine::isReversed(int station)
{
    return station % 61 == 17;
}

bool DemoLine::hums(int station)
{
    return station % 160 >= 71 && station % 160 <= 74;
}

double DemoLine::elevation(double position) const
{
    return 240.0 + 14.0 * wave(position, 2300.0, 0.4) + 3.0 * wave(position, 420.0, 1.9);
}

double DemoLine::weathering(double position) const
{
    const int last = stationCount - 1;
    const int station = std::clamp(static_cast<int>(position / stationSpacing), 0, last);
    const double smooth = 8.0 + 3.0 * wave(position, 900.0, 0.0) + 1.2 * wave(position, 170.0, 0.8);
    return std::max(smooth + m_roughness[static_cast<std::size_t>(station)], 1.0);
}

double DemoLine::firstDelay(double position) const
{
    return weathering(position) * delayPerMetre(weatheringVelocity, firstVelocity);
}

double DemoLine::secondDelay(double position) const
{
    const double thickness = 34.0 + 9.0 * wave(position, 1700.0, 2.2);
    return weathering(position) * delayPerMetre(weatheringVelocity, secondVelocity) +
           thickness * delayPerMetre(firstVelocity, secondVelocity);
}

double DemoLine::directTime(int shot, int station) const
{
    return distance(shot, station) / weatheringVelocity;
}

double DemoLine::firstHeadTime(int shot, int station) const
{
    return distance(shot, station) / firstVelocity + firstDelay(shotPosition(shot)) +
           firstDelay(stationPosition(station));
}

double DemoLine::secondHeadTime(int shot, int station) const
{
    return distance(shot, station) / secondVelocity + secondDelay(shotPosition(shot)) +
           secondDelay(stationPosition(station));
}

double DemoLine::firstBreak(int shot, int station) const
{
    return std::min(
        {directTime(shot, station), firstHeadTime(shot, station), secondHeadTime(shot, station)});
}

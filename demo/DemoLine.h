#pragma once

#include <vector>

/// A refraction line over two refractors under weathering of changing thickness.
///
/// Positions are metres along the line, times seconds. The first breaks follow the delay-time model
/// (Gardner, L. W., 1939, An areal plan of mapping subsurface structure by refraction shooting,
/// Geophysics 4, 247-259): a head wave takes distance / refractor velocity and a delay at each end.
class DemoLine
{
public:
    static constexpr int stationCount = 480;
    static constexpr int stationSpacing = 6; ///< m
    static constexpr int channelCount = 120;
    static constexpr int allShots = 240;
    static constexpr double weatheringVelocity = 650.0;
    static constexpr double firstVelocity = 1900.0;
    static constexpr double secondVelocity = 3700.0;
    static constexpr double soundVelocity = 340.0;

    DemoLine();

    /// Shots lie midway between two stations.
    static int shotPosition(int shot) { return 2 * stationSpacing * shot + stationSpacing / 2; }
    static int stationPosition(int station) { return stationSpacing * station; }
    /// Station of the first channel of a shot: the spread rolls along and stays on the line.
    static int firstStation(int shot);
    /// One shot of the line misfired.
    static bool isMisfire(int shot) { return shot == 9; }
    static bool isDead(int station);
    static bool isReversed(int station);
    /// Stations next to a power line.
    static bool hums(int station);

    double elevation(double position) const;
    double weathering(double position) const; ///< thickness, m

    double directTime(int shot, int station) const;
    double firstHeadTime(int shot, int station) const;
    double secondHeadTime(int shot, int station) const;
    double firstBreak(int shot, int station) const;

private:
    double firstDelay(double position) const;
    double secondDelay(double position) const;

    std::vector<double> m_roughness; // of the weathering at each station, m
};

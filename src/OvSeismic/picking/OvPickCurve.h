#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <limits>
#include <map>
#include <vector>

/// A course of first-break time over offset, straight between its knots.
class OVSEISMIC_EXPORT OvPickLine
{
public:
    struct Knot
    {
        double offset = 0.0; ///< m
        double timeMs = std::numeric_limits<double>::quiet_NaN();
        double spreadMs = 0.0; ///< median distance of picks from the line
    };

    OvPickLine() = default;
    /// knots by offset, ascending.
    explicit OvPickLine(std::vector<Knot> knots);

    /// NaN farther from the knots than a tenth of the reach from the first to the last one.
    Knot at(double offset) const;

private:
    std::vector<Knot> m_knots;
};

/// Collects any number of picks, in little memory, into a course of time over offset.
///
/// Picks fall into bins of offset, at most 64, which are doubled in width when they would be more.
/// A bin keeps up to 32 of its picks, evenly thinned, and makes one knot at their medians.
class OVSEISMIC_EXPORT OvPickCurve
{
public:
    void add(double offset, double timeMs);
    void add(const OvPickCurve& other);
    bool isEmpty() const { return m_bins.empty(); }
    /// Running medians of seven picks keep single wrong ones off the line, and leave a course that
    /// rises throughout as it is.
    OvPickLine line() const;

private:
    struct Pick
    {
        float offset;
        float timeMs;
    };
    struct Bin
    {
        std::vector<Pick> picks;
        int stride = 1;  // of the picks that come, every how-manieth is kept
        int skipped = 0; // since the last one that was kept

        void add(const Pick& pick);
    };

    void widen();

    std::map<int, Bin> m_bins;
    double m_width = 0.125; // of a bin, m
};

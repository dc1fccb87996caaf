#pragma once

#include <QString>

#include <vector>

/// What became of the picks of many traces.
class Scores
{
public:
    /// error in ms, NaN without a pick.
    void add(double errorMs, double confidence);

    std::size_t count() const { return m_all.size(); }
    /// Share of all traces whose pick is within a tolerance; of the most confident part of them.
    double within(double toleranceMs, double confidentPart = 1.0) const;
    double picked() const;
    double biasMs() const;           ///< median error of the picks
    double medianAbsoluteMs() const; ///< median distance of the picks from the truth

    struct Bin
    {
        double confidence = 0.0; ///< mean
        double right = 0.0;      ///< share
        int count = 0;
    };
    /// Picks by confidence, in tenths; bins without picks are left out.
    std::vector<Bin> reliability(double toleranceMs) const;

private:
    struct Entry
    {
        double errorMs;
        double confidence;
    };
    std::vector<double> errors(bool absolute) const;

    std::vector<Entry> m_all;
};

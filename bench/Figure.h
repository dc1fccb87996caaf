#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <vector>

/// How a benchmark measures, and how it reports: one line a figure, `name ratio goal ok|short`.
namespace Figure {

inline double milliseconds(const QElapsedTimer& clock)
{
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

/// Milliseconds that a piece of work takes.
template <typename Work>
double timed(const Work& work)
{
    QElapsedTimer clock;
    clock.start();
    work();
    return milliseconds(clock);
}

/// NaN when one of the values is, or when there are none.
inline double median(std::vector<double> values)
{
    const auto isBad = [](double value) { return std::isnan(value); };
    if (values.empty() || std::any_of(values.begin(), values.end(), isBad))
        return std::nan("");
    std::sort(values.begin(), values.end());
    const std::size_t half = values.size() / 2;
    return values.size() % 2 ? values[half] : (values[half - 1] + values[half]) / 2;
}

/// The median of what measure() returns in so many rounds.
template <typename Measure>
double medianOf(int rounds, const Measure& measure)
{
    std::vector<double> values(static_cast<std::size_t>(rounds));
    std::generate(values.begin(), values.end(), measure);
    return median(values);
}

/// ratio is ours over theirs in the same unit; the goal is met when it is not above. A measurement
/// that failed is NaN and meets no goal.
inline bool report(const char* name, double ours, double theirs, double goal,
                   const char* unit = "ms")
{
    const double ratio = ours / theirs;
    const bool met = ratio <= goal;
    QTextStream(stdout) << name << ' ' << QString::number(ratio, 'f', 2) << ' ' << goal << ' '
                        << (met ? "ok" : "short") << '\n';
    QTextStream(stderr) << "  " << name << ": " << QString::number(ours, 'f', 1) << ' ' << unit
                        << " against " << QString::number(theirs, 'f', 1) << ' ' << unit << '\n';
    return met;
}

/// Measures ours() and theirs() in turns and reports the medians. The first turn does not count:
/// after it both find their libraries, fonts and files in memory.
template <typename Ours, typename Theirs>
bool race(const char* name, int rounds, double goal, const Ours& ours, const Theirs& theirs)
{
    std::vector<double> our;
    std::vector<double> their;
    for (int round = -1; round < rounds; ++round) {
        const double mine = ours();
        const double other = theirs();
        if (round < 0)
            continue;
        our.push_back(mine);
        their.push_back(other);
    }
    return report(name, median(our), median(their), goal);
}

} // namespace Figure

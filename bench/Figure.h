#pragma once

#include <QByteArray>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <vector>

/// How a benchmark reports: one line a figure, `name ratio goal ok|short`.
namespace Figure {

inline double median(std::vector<double> values)
{
    if (values.empty())
        return std::nan("");
    std::sort(values.begin(), values.end());
    const std::size_t half = values.size() / 2;
    return values.size() % 2 ? values[half] : (values[half - 1] + values[half]) / 2;
}

/// ratio is ours over theirs in the same unit; the goal is met when it is not above.
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

} // namespace Figure

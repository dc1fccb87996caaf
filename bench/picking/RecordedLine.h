#pragma once

#include "OvSeismic/segy/OvGather.h"

#include <QString>

#include <functional>
#include <vector>

/// Recorded gathers with picks made by hand, from the folder that TARNPICK_TEST_DATA names.
namespace RecordedLine {

/// Calls each with every gather of a file, samples and all. False, with a word on standard error,
/// when the file cannot be read.
bool forEachGather(const QString& path, const std::function<void(const OvGather& gather)>& each);

struct ManualPick
{
    double source = 0.0; ///< positions along the line, m
    double receiver = 0.0;
    double timeMs = 0.0;
};

/// Three columns: source, receiver, seconds.
std::vector<ManualPick> readPicks(const QString& path);

/// Times of a gather's traces, ms; NaN where there is no pick by hand.
std::vector<double> manualTimes(const OvGather& gather, const std::vector<ManualPick>& picks);

} // namespace RecordedLine

#include "OvSeismic/picking/OvErrorPicks.h"

#include "OvSeismic/dsp/OvDominantPeriod.h"
#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::size_t neighbours = 7;     // on either side
constexpr std::size_t nearNeighbours = 4; // where the arrival bends often
constexpr std::size_t leastPicks = 3;     // that make a line
constexpr double spreadsAllowed = 5.0;
constexpr double leastTolerancePeriods = 0.5; // what a cycle skip exceeds
constexpr double waveMs = 100.0;              // enough of an arrival to tell its period
constexpr double leastToleranceSamples = 2.0;
constexpr double lowConfidence = 0.3;

struct Pick
{
    int row;
    double place; // along the chain
    double timeMs;
};

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::vector<Pick> picksAlong(const OvTraceChain& chain, const OvFirstBreaks& breaks)
{
    std::vector<Pick> picks;
    double place = 0.0;
    for (std::size_t link = 0; link < chain.rows.size(); ++link) {
        place += link > 0 ? chain.steps[link] : 0.0;
        const int row = chain.rows[link];
        const auto i = static_cast<std::size_t>(row);
        if (row < breaks.size() && breaks.hasPick(row) && breaks.states[i] != OvPickState::Rejected)
            picks.push_back({row, place, static_cast<double>(breaks.timesMs[i])});
    }
    return picks;
}

double slopeThrough(const Pick& pick, const std::vector<Pick>& others)
{
    std::vector<double> slopes;
    for (const Pick& other : others)
        if (other.place != pick.place)
            slopes.push_back((other.timeMs - pick.timeMs) / (other.place - pick.place));
    return slopes.empty() ? 0.0 : median(slopes);
}

// Distance of a pick from the line through others; infinite where they make none.
double distanceFrom(const std::vector<Pick>& others, const Pick& pick)
{
    if (others.size() < leastPicks)
        return std::numeric_limits<double>::infinity();
    std::vector<double> slopes;
    for (const Pick& other : others)
        slopes.push_back(slopeThrough(other, others));
    const double slope = median(slopes);
    std::vector<double> levels;
    for (const Pick& other : others)
        levels.push_back(other.timeMs + slope * (pick.place - other.place));
    return std::abs(pick.timeMs - median(levels));
}

std::vector<Pick> part(const std::vector<Pick>& picks, std::size_t first, std::size_t end)
{
    const auto at = [&picks](std::size_t i) {
        return picks.begin() + static_cast<std::ptrdiff_t>(i);
    };
    return {at(first), at(end)};
}

double distanceAt(const std::vector<Pick>& picks, std::size_t index)
{
    double least = std::numeric_limits<double>::infinity();
    for (const std::size_t reach : {neighbours, nearNeighbours}) {
        std::vector<Pick> ahead = part(picks, index > reach ? index - reach : 0, index);
        const std::vector<Pick> behind =
            part(picks, index + 1, std::min(picks.size(), index + reach + 1));
        least = std::min(
            {least, distanceFrom(ahead, picks[index]), distanceFrom(behind, picks[index])});
        ahead.insert(ahead.end(), behind.begin(), behind.end());
        least = std::min(least, distanceFrom(ahead, picks[index]));
    }
    return least;
}

double spreadOf(const std::vector<double>& distances)
{
    constexpr double toDeviation = 1.4826; // of a normal distribution
    return toDeviation * median(distances);
}

double periodMs(const OvGather& gather, const std::vector<Pick>& picks)
{
    std::vector<double> periods;
    for (const Pick& pick : picks) {
        const double first = std::clamp(gather.sampleAt(pick.row, pick.timeMs), 0.0,
                                        static_cast<double>(gather.sampleCount));
        const int from = static_cast<int>(first);
        const int to =
            std::min(gather.sampleCount, from + static_cast<int>(waveMs / gather.intervalMs));
        periods.push_back(ovDominantPeriod(gather.trace(pick.row), from, to));
    }
    return median(periods) * gather.intervalMs;
}

bool isWrong(double distanceMs, double toleranceMs, float confidence)
{
    const double trust = std::min(1.0, static_cast<double>(confidence) / lowConfidence);
    return distanceMs > toleranceMs * (0.5 + 0.5 * trust);
}

} // namespace

std::vector<int> OvErrorPicks::find(const OvGather& gather, const OvFirstBreaks& breaks)
{
    const std::vector<Pick> picks = picksAlong(OvTraceChain::of(gather), breaks);
    if (picks.size() <= leastPicks)
        return {};
    std::vector<double> distances;
    for (std::size_t i = 0; i < picks.size(); ++i)
        distances.push_back(distanceAt(picks, i));
    const double tolerance = std::max({spreadsAllowed * spreadOf(distances),
                                       leastTolerancePeriods * periodMs(gather, picks),
                                       leastToleranceSamples * gather.intervalMs});
    std::vector<int> rows;
    for (std::size_t i = 0; i < picks.size(); ++i) {
        const auto row = static_cast<std::size_t>(picks[i].row);
        const bool automatic = breaks.states[row] == OvPickState::Automatic;
        if (automatic && isWrong(distances[i], tolerance, breaks.confidences[row]))
            rows.push_back(picks[i].row);
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

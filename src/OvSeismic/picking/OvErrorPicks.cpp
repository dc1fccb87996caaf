#include "OvSeismic/picking/OvErrorPicks.h"

#include "OvSeismic/dsp/OvDominantPeriod.h"
#include "OvSeismic/dsp/OvRank.h"
#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int neighbours = 7;         // on either side
constexpr int nearNeighbours = 4;     // where the arrival bends often
constexpr std::size_t leastPicks = 3; // that make a line
constexpr double spreadsAllowed = 5.0;
constexpr double leastTolerancePeriods = 0.5; // what a cycle skip exceeds
constexpr double waveMs = 100.0;              // enough of an arrival to tell its period
constexpr double leastToleranceSamples = 2.0;
constexpr double lowConfidence = 0.3;

struct Pick
{
    int row;
    int cable;
    double place; // along the chain
    double timeMs;
};

std::vector<Pick> picksAlong(const OvTraceChain& chain, const OvFirstBreaks& breaks)
{
    std::vector<Pick> picks;
    double place = 0.0;
    for (std::size_t link = 0; link < chain.rows.size(); ++link) {
        place += link > 0 ? chain.steps[link] : 0.0;
        const int row = chain.rows[link];
        const auto i = static_cast<std::size_t>(row);
        if (row < breaks.size() && breaks.hasPick(row) && breaks.states[i] != OvPickState::Rejected)
            picks.push_back({row, chain.cables.empty() ? 0 : chain.cables[link], place,
                             static_cast<double>(breaks.timesMs[i])});
    }
    return picks;
}

double slopeThrough(const Pick& pick, const std::vector<Pick>& others)
{
    std::vector<double> slopes;
    for (const Pick& other : others)
        if (other.place != pick.place)
            slopes.push_back((other.timeMs - pick.timeMs) / (other.place - pick.place));
    return slopes.empty() ? 0.0 : OvRank::median(slopes);
}

// Distance of a pick from the line through others; infinite where they make none.
double distanceFrom(const std::vector<Pick>& others, const Pick& pick)
{
    if (others.size() < leastPicks)
        return std::numeric_limits<double>::infinity();
    std::vector<double> slopes;
    slopes.reserve(others.size());
    for (const Pick& other : others)
        slopes.push_back(slopeThrough(other, others));
    const double slope = OvRank::median(slopes);
    std::vector<double> levels;
    levels.reserve(others.size());
    for (const Pick& other : others)
        levels.push_back(other.timeMs + slope * (pick.place - other.place));
    return std::abs(pick.timeMs - OvRank::median(levels));
}

double distanceAt(const std::vector<Pick>& picks, const std::vector<int>& cables, int index)
{
    const Pick& pick = picks[static_cast<std::size_t>(index)];
    double least = std::numeric_limits<double>::infinity();
    for (const int reach : {neighbours, nearNeighbours}) {
        const OvLinkRange near = ovNeighbours(cables, static_cast<int>(picks.size()), index, reach);
        std::vector<Pick> ahead(picks.begin() + near.first, picks.begin() + index);
        const std::vector<Pick> behind(picks.begin() + index + 1, picks.begin() + near.last);
        least = std::min({least, distanceFrom(ahead, pick), distanceFrom(behind, pick)});
        ahead.insert(ahead.end(), behind.begin(), behind.end());
        least = std::min(least, distanceFrom(ahead, pick));
    }
    return least;
}

std::vector<double> distancesOf(const std::vector<Pick>& picks)
{
    std::vector<int> cables;
    cables.reserve(picks.size());
    for (const Pick& pick : picks)
        cables.push_back(pick.cable);
    std::vector<double> distances;
    distances.reserve(picks.size());
    for (int i = 0; i < static_cast<int>(picks.size()); ++i)
        distances.push_back(distanceAt(picks, cables, i));
    return distances;
}

double spreadOf(const std::vector<double>& distances)
{
    constexpr double toDeviation = 1.4826; // of a normal distribution
    return toDeviation * OvRank::median(distances);
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
    return OvRank::median(periods) * gather.intervalMs;
}

bool isWrong(double distanceMs, double toleranceMs, float confidence)
{
    const double trust = std::min(1.0, static_cast<double>(confidence) / lowConfidence);
    return std::isfinite(distanceMs) && distanceMs > toleranceMs * (0.5 + 0.5 * trust);
}

} // namespace

std::vector<int> OvErrorPicks::find(const OvGather& gather, const OvFirstBreaks& breaks)
{
    const std::vector<Pick> picks = picksAlong(OvTraceChain::of(gather), breaks);
    if (picks.size() <= leastPicks)
        return {};
    const std::vector<double> distances = distancesOf(picks);
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

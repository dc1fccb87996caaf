#include "OvSeismic/picking/OvTraceChain.h"

#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

// Dead and dummy traces, time breaks, upholes, sweeps and the like.
bool isAuxiliary(const OvTraceHeader& header)
{
    constexpr qint16 firstOther = 2;
    constexpr qint16 lastOther = 9;
    return header.traceId >= firstOther && header.traceId <= lastOther;
}

bool isLive(const OvGather& gather, int row)
{
    if (isAuxiliary(gather.headers[static_cast<std::size_t>(row)]) || gather.sampleCount < 1)
        return false;
    const float* samples = gather.trace(row);
    float least = samples[0];
    float most = samples[0];
    bool finite = true;
    for (int i = 0; i < gather.sampleCount; ++i) {
        finite = finite && std::isfinite(samples[i]);
        least = std::min(least, samples[i]);
        most = std::max(most, samples[i]);
    }
    return finite && most > least;
}

const OvTraceHeader& header(const OvGather& gather, int row)
{
    return gather.headers[static_cast<std::size_t>(row)];
}

bool usesSigns(const OvGather& gather, const std::vector<int>& rows)
{
    return std::any_of(rows.begin(), rows.end(),
                       [&](int row) { return header(gather, row).offset < 0.0F; });
}

// Where each receiver lies along the line from the first receiver to the one farthest from it, as
// seen from the shot.
std::vector<double> sidesByCoordinates(const OvGather& gather, const std::vector<int>& rows)
{
    const OvTraceHeader& origin = header(gather, rows.front());
    double alongX = 0.0;
    double alongY = 0.0;
    for (const int row : rows) {
        const double x = header(gather, row).receiverX - origin.receiverX;
        const double y = header(gather, row).receiverY - origin.receiverY;
        if (std::hypot(x, y) > std::hypot(alongX, alongY)) {
            alongX = x;
            alongY = y;
        }
    }
    std::vector<double> sides;
    sides.reserve(rows.size());
    for (const int row : rows) {
        const OvTraceHeader& trace = header(gather, row);
        sides.push_back((trace.receiverX - trace.sourceX) * alongX +
                        (trace.receiverY - trace.sourceY) * alongY);
    }
    return sides;
}

bool hasBothSigns(const std::vector<double>& values)
{
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    return *least < 0.0 && *most > 0.0;
}

// Negative before the smallest offset when offsets fall towards it and rise behind it.
std::vector<double> sidesByOrder(const OvGather& gather, const std::vector<int>& rows)
{
    const auto size = [&](int row) { return std::abs(header(gather, row).offset); };
    const auto nearer = [&](int a, int b) { return size(a) < size(b); };
    const auto nearest = std::min_element(rows.begin(), rows.end(), nearer);
    const bool valley = std::is_sorted(nearest, rows.end(), nearer) &&
                        std::is_sorted(std::make_reverse_iterator(nearest), rows.rend(), nearer);
    std::vector<double> sides(rows.size(), 1.0);
    if (valley)
        std::fill(sides.begin(), sides.begin() + (nearest - rows.begin()), -1.0);
    return sides;
}

std::vector<double> signedOffsets(const OvGather& gather, const std::vector<int>& rows)
{
    std::vector<double> offsets;
    offsets.reserve(rows.size());
    for (const int row : rows)
        offsets.push_back(static_cast<double>(header(gather, row).offset));
    if (usesSigns(gather, rows))
        return offsets;
    std::vector<double> sides = sidesByCoordinates(gather, rows);
    if (!hasBothSigns(sides))
        sides = sidesByOrder(gather, rows);
    for (std::size_t i = 0; i < offsets.size(); ++i)
        offsets[i] = std::copysign(offsets[i], sides[i]);
    return offsets;
}

// Distances to the link before in units of their median, held between 1/4 and 8.
std::vector<double> relativeSteps(const std::vector<double>& positions)
{
    std::vector<double> steps(positions.size(), 1.0);
    std::vector<double> sorted;
    for (std::size_t i = 1; i < positions.size(); ++i) {
        steps[i] = std::abs(positions[i] - positions[i - 1]);
        sorted.push_back(steps[i]);
    }
    if (sorted.empty())
        return steps;
    std::sort(sorted.begin(), sorted.end());
    const double median = sorted[sorted.size() / 2];
    for (double& step : steps)
        step = median > 0.0 ? std::clamp(step / median, 0.25, 8.0) : 1.0;
    steps.front() = 1.0;
    return steps;
}

std::vector<int> directions(const std::vector<double>& offsets)
{
    std::vector<int> away(offsets.size(), 0);
    for (std::size_t i = 1; i < offsets.size(); ++i) {
        const double growth = std::abs(offsets[i]) - std::abs(offsets[i - 1]);
        away[i] = growth > 0.0 ? 1 : growth < 0.0 ? -1 : 0;
    }
    return away;
}

void sortBy(const std::vector<double>& keys, OvTraceChain* chain, std::vector<double>* sorted)
{
    std::vector<std::size_t> order(keys.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
    std::vector<int> rows;
    for (const std::size_t i : order) {
        rows.push_back(chain->rows[i]);
        sorted->push_back(keys[i]);
    }
    chain->rows = rows;
}

} // namespace

OvTraceChain OvTraceChain::of(const OvGather& gather)
{
    OvTraceChain chain;
    for (int row = 0; row < gather.traceCount(); ++row) {
        if (isLive(gather, row))
            chain.rows.push_back(row);
    }
    if (chain.rows.empty())
        return chain;
    const auto offsetOf = [&](int row) { return header(gather, row).offset; };
    const auto known = [&](int row) { return std::isfinite(offsetOf(row)); };
    const auto [least, most] =
        std::minmax_element(chain.rows.begin(), chain.rows.end(),
                            [&](int a, int b) { return offsetOf(a) < offsetOf(b); });
    chain.hasOffsets = std::all_of(chain.rows.begin(), chain.rows.end(), known) &&
                       offsetOf(*least) < offsetOf(*most);
    std::vector<double> positions;
    if (chain.hasOffsets) {
        sortBy(signedOffsets(gather, chain.rows), &chain, &positions);
        chain.steps = relativeSteps(positions);
        chain.away = directions(positions);
        return chain;
    }
    std::vector<double> channels;
    for (const int row : chain.rows)
        channels.push_back(static_cast<double>(header(gather, row).channel));
    sortBy(channels, &chain, &positions);
    chain.steps = relativeSteps(positions);
    chain.away.assign(chain.rows.size(), 0);
    return chain;
}

#include "OvSeismic/picking/OvTraceChain.h"

#include "OvSeismic/dsp/OvExtent.h"
#include "OvSeismic/picking/OvCableFinder.h"
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
    const OvExtent extent = OvExtent::of(gather.trace(row), gather.sampleCount);
    return extent.isFinite && extent.most > extent.least;
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

struct Vector
{
    double x;
    double y;
};

// From one trace's receiver to another's, and the same of the sources.
Vector betweenReceivers(const OvTraceHeader& from, const OvTraceHeader& to)
{
    return {to.receiverX - from.receiverX, to.receiverY - from.receiverY};
}

Vector betweenSources(const OvTraceHeader& from, const OvTraceHeader& to)
{
    return {to.sourceX - from.sourceX, to.sourceY - from.sourceY};
}

// From the first trace's end to the one farthest from it; the sources where there is one receiver.
Vector alongTheLine(const OvGather& gather, const std::vector<int>& rows)
{
    const OvTraceHeader& origin = header(gather, rows.front());
    for (const auto between : {betweenReceivers, betweenSources}) {
        Vector along{0.0, 0.0};
        for (const int row : rows) {
            const Vector way = between(origin, header(gather, row));
            if (way.x * way.x + way.y * way.y > along.x * along.x + along.y * along.y)
                along = way;
        }
        if (along.x != 0.0 || along.y != 0.0)
            return along;
    }
    return {0.0, 0.0};
}

// Where each receiver lies along the line as seen from its shot.
std::vector<double> sidesByCoordinates(const OvGather& gather, const std::vector<int>& rows)
{
    const Vector along = alongTheLine(gather, rows);
    std::vector<double> sides;
    sides.reserve(rows.size());
    for (const int row : rows) {
        const OvTraceHeader& trace = header(gather, row);
        sides.push_back((trace.receiverX - trace.sourceX) * along.x +
                        (trace.receiverY - trace.sourceY) * along.y);
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

std::vector<double> signedOffsets(const OvGather& gather, const std::vector<int>& rows,
                                  bool areSigned)
{
    std::vector<double> offsets;
    offsets.reserve(rows.size());
    for (const int row : rows)
        offsets.push_back(static_cast<double>(header(gather, row).offset));
    if (areSigned)
        return offsets;
    std::vector<double> sides = sidesByCoordinates(gather, rows);
    if (!hasBothSigns(sides))
        sides = sidesByOrder(gather, rows);
    for (std::size_t i = 0; i < offsets.size(); ++i)
        offsets[i] = std::copysign(offsets[i], sides[i]);
    return offsets;
}

std::vector<double> channelsOf(const OvGather& gather, const std::vector<int>& rows)
{
    std::vector<double> channels;
    channels.reserve(rows.size());
    for (const int row : rows)
        channels.push_back(static_cast<double>(header(gather, row).channel));
    return channels;
}

// Median distance to the link before; 0 without any.
double usualStep(const std::vector<double>& steps)
{
    if (steps.size() < 2)
        return 0.0;
    std::vector<double> sorted(steps.begin() + 1, steps.end());
    std::sort(sorted.begin(), sorted.end());
    return sorted[sorted.size() / 2];
}

// Distances to the link before in units of the usual one, held between 1/4 and 8.
std::vector<double> relativeSteps(std::vector<double> steps, double usual)
{
    for (double& step : steps)
        step = usual > 0.0 ? std::clamp(step / usual, 0.25, 8.0) : 1.0;
    steps.front() = 1.0;
    return steps;
}

std::vector<double> differences(const std::vector<double>& positions)
{
    std::vector<double> steps(positions.size(), 0.0);
    for (std::size_t i = 1; i < positions.size(); ++i)
        steps[i] = std::abs(positions[i] - positions[i - 1]);
    return steps;
}

// How far the ends of the traces lie from those of the trace before; all 0 without coordinates.
std::vector<double> distancesBetween(const OvGather& gather, const std::vector<int>& rows)
{
    std::vector<double> steps(rows.size(), 0.0);
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const OvTraceHeader& from = header(gather, rows[i - 1]);
        const OvTraceHeader& to = header(gather, rows[i]);
        const Vector receivers = betweenReceivers(from, to);
        const Vector sources = betweenSources(from, to);
        steps[i] = std::hypot(receivers.x, receivers.y) + std::hypot(sources.x, sources.y);
    }
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

template <typename Value>
std::vector<Value> reordered(const std::vector<Value>& values,
                             const std::vector<std::size_t>& order)
{
    std::vector<Value> result;
    result.reserve(values.size());
    for (const std::size_t i : order)
        result.push_back(values[i]);
    return result;
}

std::vector<std::size_t> ascending(const std::vector<double>& keys)
{
    std::vector<std::size_t> order(keys.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
    return order;
}

bool haveOffsets(const OvGather& gather, const std::vector<int>& rows)
{
    const auto offsetOf = [&](int row) { return header(gather, row).offset; };
    const auto [least, most] = std::minmax_element(
        rows.begin(), rows.end(), [&](int a, int b) { return offsetOf(a) < offsetOf(b); });
    return std::all_of(rows.begin(), rows.end(),
                       [&](int row) { return std::isfinite(offsetOf(row)); }) &&
           offsetOf(*least) < offsetOf(*most);
}

// Usual distance in the whole record, for where most of its traces are dead; `unknown` where the
// headers of the dead ones say nothing.
double layoutStep(const OvGather& gather, bool areSigned, double unknown)
{
    std::vector<int> rows;
    for (int row = 0; row < gather.traceCount(); ++row) {
        const OvTraceHeader& trace = header(gather, row);
        if (std::isfinite(trace.offset) && (trace.isDead() || !isAuxiliary(trace)))
            rows.push_back(row);
    }
    std::vector<double> offsets = signedOffsets(gather, rows, areSigned);
    std::sort(offsets.begin(), offsets.end());
    const double step = usualStep(differences(offsets));
    return step > 0.0 ? step : unknown;
}

// Where each midpoint lies along the line through them.
std::vector<double> midpointsAlong(const OvGather& gather, const std::vector<int>& rows)
{
    const Vector along = alongTheLine(gather, rows);
    const double length = std::max(std::hypot(along.x, along.y), 1e-30);
    std::vector<double> places;
    for (const int row : rows) {
        const OvTraceHeader& trace = header(gather, row);
        places.push_back(0.5 *
                         ((trace.receiverX + trace.sourceX) * along.x +
                          (trace.receiverY + trace.sourceY) * along.y) /
                         length);
    }
    return places;
}

double rangeOf(const std::vector<double>& values)
{
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    return *most - *least;
}

// Traces of about one offset from all along a line.
bool isCommonOffset(const OvGather& gather, const std::vector<int>& rows)
{
    constexpr double little = 0.25;
    const OvTraceHeader& first = header(gather, rows.front());
    const auto moves = [&](auto between) {
        return std::any_of(rows.begin(), rows.end(), [&](int row) {
            const Vector way = between(first, header(gather, row));
            return way.x != 0.0 || way.y != 0.0;
        });
    };
    if (!moves(betweenReceivers) || !moves(betweenSources))
        return false;
    std::vector<double> offsets = signedOffsets(gather, rows, true);
    std::transform(offsets.begin(), offsets.end(), offsets.begin(),
                   [](double offset) { return std::abs(offset); });
    return rangeOf(offsets) < little * rangeOf(midpointsAlong(gather, rows));
}

// How the traces of a cable are put in order.
struct Layout
{
    std::vector<double> positions; // of each row
    bool bySignedOffset = false;

    static Layout of(const OvGather& gather, const std::vector<int>& rows, bool hasOffsets,
                     bool areSigned)
    {
        if (!hasOffsets)
            return {channelsOf(gather, rows), false};
        if (isCommonOffset(gather, rows))
            return {midpointsAlong(gather, rows), false};
        return {signedOffsets(gather, rows, areSigned), true};
    }
};

// Puts the traces of one cable behind those that the chain has.
void addCable(const OvGather& gather, const std::vector<int>& rows, bool areSigned, bool isOnly,
              OvTraceChain* chain)
{
    Layout layout = Layout::of(gather, rows, chain->hasOffsets, areSigned);
    const std::vector<std::size_t> order = ascending(layout.positions);
    const std::vector<int> sorted = reordered(rows, order);
    layout.positions = reordered(layout.positions, order);
    std::vector<double> steps = distancesBetween(gather, sorted);
    // Beside the shot the offsets of a cable that passes it say little about distances.
    if (isOnly || *std::max_element(steps.begin(), steps.end()) <= 0.0)
        steps = differences(layout.positions);
    double usual = usualStep(steps);
    if (isOnly && layout.bySignedOffset)
        usual = std::min(usual, layoutStep(gather, areSigned, usual));
    steps = relativeSteps(std::move(steps), usual);
    const std::vector<int> away =
        layout.bySignedOffset ? directions(layout.positions) : std::vector<int>(rows.size(), 0);
    chain->rows.insert(chain->rows.end(), sorted.begin(), sorted.end());
    chain->steps.insert(chain->steps.end(), steps.begin(), steps.end());
    chain->away.insert(chain->away.end(), away.begin(), away.end());
}

std::vector<int> liveRows(const OvGather& gather)
{
    std::vector<int> rows;
    for (int row = 0; row < gather.traceCount(); ++row) {
        if (isLive(gather, row))
            rows.push_back(row);
    }
    return rows;
}

} // namespace

OvLinkRange ovNeighbours(const std::vector<int>& cables, int count, int link, int reach)
{
    OvLinkRange range{std::max(link - reach, 0), std::min(link + reach + 1, count)};
    if (cables.empty())
        return range;
    const auto isOther = [&](int other) {
        return cables[static_cast<std::size_t>(other)] != cables[static_cast<std::size_t>(link)];
    };
    while (isOther(range.first))
        ++range.first;
    while (isOther(range.last - 1))
        --range.last;
    return range;
}

bool OvTraceChain::beginsCable(int link) const
{
    return neighbours(link, 1).first == link;
}

bool OvTraceChain::isAlone(int link) const
{
    const OvLinkRange near = neighbours(link, 1);
    return near.last - near.first == 1;
}

OvTraceChain OvTraceChain::of(const OvGather& gather)
{
    OvTraceChain chain;
    const std::vector<int> live = liveRows(gather);
    if (live.empty())
        return chain;
    chain.hasOffsets = haveOffsets(gather, live);
    const std::vector<int> cables = OvCableFinder::find(gather, live);
    const auto count =
        static_cast<std::size_t>(*std::max_element(cables.begin(), cables.end())) + 1;
    std::vector<std::vector<int>> rows(count);
    for (std::size_t i = 0; i < live.size(); ++i)
        rows[static_cast<std::size_t>(cables[i])].push_back(live[i]);
    const bool areSigned = usesSigns(gather, live);
    for (std::size_t cable = 0; cable < count; ++cable) {
        addCable(gather, rows[cable], areSigned, count == 1, &chain);
        if (count > 1)
            chain.cables.resize(chain.rows.size(), static_cast<int>(cable));
    }
    return chain;
}

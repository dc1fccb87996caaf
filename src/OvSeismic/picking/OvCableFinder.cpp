#include "OvSeismic/picking/OvCableFinder.h"

#include "OvSeismic/dsp/OvRank.h"
#include "OvSeismic/picking/OvLineFinder.h"
#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>

namespace {

using OvLineFinder::Place;

constexpr std::size_t leastTraces = 4; // of a cable

const OvTraceHeader& header(const OvGather& gather, int row)
{
    return gather.headers[static_cast<std::size_t>(row)];
}

Place receiverOf(const OvTraceHeader& trace)
{
    return {trace.receiverX, trace.receiverY};
}

Place sourceOf(const OvTraceHeader& trace)
{
    return {trace.sourceX, trace.sourceY};
}

// The place of each row among the different ones, in the order of their first rows.
template <typename PlaceOf>
std::vector<int> numbered(const OvGather& gather, const std::vector<int>& rows, PlaceOf placeOf)
{
    std::vector<Place> places;
    places.reserve(rows.size());
    for (const int row : rows)
        places.push_back(placeOf(header(gather, row)));
    return OvLineFinder::numbersOf(places);
}

template <typename PlaceOf>
bool isOnePlace(const OvGather& gather, const std::vector<int>& rows, PlaceOf placeOf)
{
    const Place first = placeOf(header(gather, rows.front()));
    return std::all_of(rows.begin(), rows.end(), [&](int row) {
        const Place place = placeOf(header(gather, row));
        return place.x == first.x && place.y == first.y;
    });
}

int countOf(const std::vector<int>& numbers)
{
    return *std::max_element(numbers.begin(), numbers.end()) + 1;
}

// Traces of one shot, or of one receiver; a single group where there are hardly several traces of
// any.
std::vector<int> groupsOf(const std::vector<int>& receivers, const std::vector<int>& sources)
{
    const std::vector<int>& fixed = countOf(sources) <= countOf(receivers) ? sources : receivers;
    const bool areGroups =
        static_cast<std::size_t>(countOf(fixed)) * 2 * leastTraces <= fixed.size();
    return areGroups ? fixed : std::vector<int>(fixed.size(), 0);
}

// Traces in the order of their channels, where these tell them apart.
std::vector<std::size_t> channelOrder(const OvGather& gather, const std::vector<int>& rows)
{
    std::vector<std::size_t> order(rows.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::set<qint32> channels;
    for (const int row : rows)
        channels.insert(header(gather, row).channel);
    if (channels.size() == rows.size())
        std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return header(gather, rows[a]).channel < header(gather, rows[b]).channel;
        });
    return order;
}

// Offsets that go one way, or fall and then rise, along the channels.
struct Run
{
    std::size_t first = 0;
    std::size_t last = 0; // one behind the last
    double from = 0.0;    // signed offsets
    double to = 0.0;
};

// Cuts the offsets along the channels where one straight cable cannot go on.
class Cutter
{
public:
    explicit Cutter(std::vector<double> offsets)
        : m_offsets(std::move(offsets))
        , m_signed(std::any_of(m_offsets.begin(), m_offsets.end(),
                               [](double offset) { return offset < 0.0; }))
    {
        std::vector<double> steps;
        for (std::size_t i = 1; i < m_offsets.size(); ++i)
            steps.push_back(step(i));
        m_usualStep = OvRank::median(steps);
    }

    std::vector<Run> runs() const
    {
        std::vector<Run> runs;
        Run run;
        int way = 0;
        for (std::size_t i = 1; i <= m_offsets.size(); ++i) {
            const bool turns = i < m_offsets.size() && isTurn(way, wayTo(i));
            if (i == m_offsets.size() || turns) {
                run.last = i;
                // The farthest trace is of the cable whose steps it keeps.
                if (turns && i - run.first > 1 && oddness(i - 1) > oddness(i))
                    --run.last;
                measure(&run);
                runs.push_back(run);
                run.first = run.last;
                way = run.last < i ? wayTo(i) : 0;
            } else if (wayTo(i) != 0) {
                way = wayTo(i);
            }
        }
        return runs;
    }

    // Whether the two may be of one cable, a before b along the channels.
    bool goesOn(const Run& a, const Run& b) const
    {
        const double slack = 2.0 * m_usualStep;
        const bool above = b.from > a.to - slack;
        const bool below = b.to < a.from + slack;
        return m_signed ? above || below : above;
    }

private:
    double step(std::size_t i) const { return std::abs(m_offsets[i] - m_offsets[i - 1]); }
    double oddness(std::size_t i) const { return std::abs(step(i) - m_usualStep); }
    int wayTo(std::size_t i) const
    {
        const double growth = m_offsets[i] - m_offsets[i - 1];
        return growth > 0.0 ? 1 : growth < 0.0 ? -1 : 0;
    }
    bool isTurn(int way, int next) const { return m_signed ? way * next < 0 : way > 0 && next < 0; }

    // Unsigned offsets that fall are taken for those ahead of the shot.
    void measure(Run* run) const
    {
        const auto at = [this](std::size_t i) {
            return m_offsets.begin() + static_cast<std::ptrdiff_t>(i);
        };
        const auto [least, most] = std::minmax_element(at(run->first), at(run->last));
        run->from = *least;
        run->to = *most;
        if (m_signed)
            return;
        constexpr std::ptrdiff_t stumble = 2; // steps that are no way
        const bool falls = least - at(run->first) > stumble;
        const bool rises = at(run->last) - 1 - least > stumble;
        run->from = falls ? -m_offsets[run->first] : *least;
        run->to = falls && !rises ? -*least : m_offsets[run->last - 1];
    }

    std::vector<double> m_offsets;
    bool m_signed;
    double m_usualStep = 0.0;
};

// The cable of each run.
std::vector<int> cablesOf(const Cutter& cutter, const std::vector<Run>& runs)
{
    std::vector<int> cables(runs.size(), -1);
    int count = 0;
    for (std::size_t b = 0; b < runs.size(); ++b) {
        for (int cable = 0; cable < count && cables[b] < 0; ++cable) {
            bool goesOn = true;
            for (std::size_t a = 0; a < b; ++a)
                goesOn = goesOn && (cables[a] != cable || cutter.goesOn(runs[a], runs[b]));
            if (goesOn)
                cables[b] = cable;
        }
        if (cables[b] < 0)
            cables[b] = count++;
    }
    return cables;
}

std::vector<int> byOffsets(const OvGather& gather, const std::vector<int>& rows)
{
    constexpr std::size_t leastRun = 4; // traces on average; shorter ones are no cables in order
    std::vector<int> cables(rows.size(), 0);
    if (rows.size() < 2)
        return cables;
    const std::vector<std::size_t> order = channelOrder(gather, rows);
    std::vector<double> offsets;
    for (const std::size_t i : order) {
        offsets.push_back(static_cast<double>(header(gather, rows[i]).offset));
        if (!std::isfinite(offsets.back()))
            return cables;
    }
    const Cutter cutter(std::move(offsets));
    const std::vector<Run> runs = cutter.runs();
    if (runs.size() < 2 || leastRun * runs.size() > rows.size())
        return cables;
    const std::vector<int> numbers = cablesOf(cutter, runs);
    for (std::size_t run = 0; run < runs.size(); ++run) {
        for (std::size_t i = runs[run].first; i < runs[run].last; ++i)
            cables[order[i]] = numbers[run];
    }
    return cables;
}

// -1 for those that are too few for a cable.
void leaveOutSmall(std::vector<int>* cables)
{
    std::vector<std::size_t> counts(cables->size(), 0);
    for (const int cable : *cables)
        ++counts[static_cast<std::size_t>(cable)];
    for (int& cable : *cables) {
        if (counts[static_cast<std::size_t>(cable)] < leastTraces)
            cable = -1;
    }
}

void joinNearest(std::vector<int>* cables)
{
    const std::vector<int> known = *cables;
    const auto count = known.size();
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t away = 1; away < count && (*cables)[i] < 0; ++away) {
            if (i >= away)
                (*cables)[i] = known[i - away];
            if ((*cables)[i] < 0 && i + away < count)
                (*cables)[i] = known[i + away];
        }
    }
}

// The cables of traces of one shot or one receiver; one where both change.
std::vector<int> cablesOf(const OvGather& gather, const std::vector<int>& rows)
{
    const bool isOneReceiver = isOnePlace(gather, rows, receiverOf);
    const bool isOneSource = isOnePlace(gather, rows, sourceOf);
    if (isOneReceiver && isOneSource)
        return byOffsets(gather, rows);
    if (!isOneReceiver && !isOneSource)
        return std::vector<int>(rows.size(), 0);
    std::vector<Place> places;
    for (const int row : rows) {
        const OvTraceHeader& trace = header(gather, row);
        places.push_back(isOneReceiver ? sourceOf(trace) : receiverOf(trace));
    }
    return OvLineFinder::find(places);
}

// Numbers the cables of one group, whose rows are at some indices, from `first` on; their count.
int addGroup(const OvGather& gather, const std::vector<int>& rows,
             const std::vector<std::size_t>& indices, int first, std::vector<int>* cables)
{
    std::vector<int> own;
    own.reserve(indices.size());
    for (const std::size_t i : indices)
        own.push_back(rows[i]);
    const std::vector<int> found = cablesOf(gather, own);
    for (std::size_t i = 0; i < found.size(); ++i)
        (*cables)[indices[i]] = first + found[i];
    return countOf(found);
}

void renumber(std::vector<int>* cables)
{
    std::vector<int> numbers(cables->size(), -1);
    int next = 0;
    for (int& cable : *cables) {
        int& number = numbers[static_cast<std::size_t>(cable)];
        number = number < 0 ? next++ : number;
        cable = number;
    }
}

} // namespace

std::vector<int> OvCableFinder::find(const OvGather& gather, const std::vector<int>& rows)
{
    if (rows.size() < 2 * leastTraces)
        return std::vector<int>(rows.size(), 0);
    const std::vector<int> receivers = numbered(gather, rows, receiverOf);
    const std::vector<int> sources = numbered(gather, rows, sourceOf);
    const std::vector<int> groups = groupsOf(receivers, sources);
    std::vector<std::vector<std::size_t>> members(static_cast<std::size_t>(countOf(groups)));
    for (std::size_t i = 0; i < rows.size(); ++i)
        members[static_cast<std::size_t>(groups[i])].push_back(i);
    std::vector<int> cables(rows.size(), 0);
    int count = 0;
    for (const std::vector<std::size_t>& group : members)
        count += addGroup(gather, rows, group, count, &cables);
    leaveOutSmall(&cables);
    const auto stray = std::count(cables.begin(), cables.end(), -1);
    // Mostly small pieces are no pattern of cables.
    if (4 * static_cast<std::size_t>(stray) > rows.size())
        return std::vector<int>(rows.size(), 0);
    joinNearest(&cables);
    renumber(&cables);
    return cables;
}

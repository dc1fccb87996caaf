#include "OvSeismic/picking/OvPickPriorBuilder.h"

#include "OvSeismic/dsp/OvRank.h"
#include "OvSeismic/picking/OvPickCurve.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace {

constexpr int sectors = 8;
constexpr qint64 leastPicks = 3;
constexpr std::size_t mostSources = 4096;
constexpr std::size_t mostNear = 4;
// A source is near when it lies within this many usual distances between sources.
constexpr double nearSpacings = 4.0;

struct Position
{
    double x = 0.0;
    double y = 0.0;
};

double distance(const Position& a, const Position& b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

int sectorOf(const OvTraceHeader& trace)
{
    constexpr double wholeTurn = 6.283185307179586;
    const double x = trace.receiverX - trace.sourceX;
    const double y = trace.receiverY - trace.sourceY;
    if (!(std::hypot(x, y) > 0.0))
        return trace.offset < 0.0F ? sectors / 2 : 0;
    const auto sector = static_cast<int>(std::lround(std::atan2(y, x) / wholeTurn * sectors));
    return (sector + sectors) % sectors;
}

using Cell = std::pair<qint64, qint64>;

// The picks of one source, or of sources in one cell.
struct Source
{
    Position position;
    std::map<int, OvPickCurve> curves; // by sector

    void merge(const Source& other)
    {
        for (const auto& [sector, curve] : other.curves)
            curves[sector].add(curve);
    }
};

using Sources = std::map<Cell, Source>;

struct Learned
{
    Position position;
    std::map<int, OvPickLine> lines; // by sector
};

Cell cellOf(const Position& position, double size)
{
    const auto index = [size](double value) {
        constexpr double most = 1e15;
        return static_cast<qint64>(std::clamp(std::floor(value / size), -most, most));
    };
    return {index(position.x), index(position.y)};
}

std::vector<const Learned*> nearest(const std::vector<Learned>& sources, const Position& position,
                                    double reach, std::size_t most)
{
    std::vector<std::pair<double, const Learned*>> found;
    for (const Learned& source : sources) {
        const double away = distance(source.position, position);
        if (away <= reach)
            found.emplace_back(away, &source);
    }
    const auto count = static_cast<std::ptrdiff_t>(std::min(most, found.size()));
    std::partial_sort(found.begin(), found.begin() + count, found.end(),
                      [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<const Learned*> near;
    for (auto at = found.begin(); at != found.begin() + count; ++at)
        near.push_back(at->second);
    return near;
}

// Usual distance from a source to the one nearest to it, told from some of the sources.
double usualSpacing(const std::vector<Learned>& sources)
{
    constexpr std::size_t mostAsked = 200;
    std::vector<double> spacings;
    const std::size_t step = std::max<std::size_t>(1, sources.size() / mostAsked);
    for (std::size_t i = 0; i < sources.size(); i += step) {
        double least = std::numeric_limits<double>::infinity();
        for (const Learned& other : sources) {
            if (&other != &sources[i])
                least = std::min(least, distance(other.position, sources[i].position));
        }
        if (std::isfinite(least))
            spacings.push_back(least);
    }
    return spacings.empty() ? 0.0 : OvRank::median(spacings);
}

class LearnedPrior : public OvPickPrior
{
public:
    explicit LearnedPrior(const Sources& sources)
    {
        std::array<OvPickCurve, sectors> bySector;
        OvPickCurve whole;
        for (const auto& entry : sources) {
            Learned learned{entry.second.position, {}};
            for (const auto& [sector, curve] : entry.second.curves) {
                learned.lines.emplace(sector, curve.line());
                bySector[static_cast<std::size_t>(sector)].add(curve);
                whole.add(curve);
            }
            m_sources.push_back(std::move(learned));
        }
        std::transform(bySector.begin(), bySector.end(), m_sectors.begin(),
                       [](const OvPickCurve& curve) { return curve.line(); });
        m_all = whole.line();
        m_spacing = usualSpacing(m_sources);
    }

    std::vector<Expected> expected(const std::vector<OvTraceHeader>& traces) const override
    {
        std::vector<Expected> all;
        all.reserve(traces.size());
        std::vector<const Learned*> near;
        Position last{std::numeric_limits<double>::quiet_NaN(), 0.0};
        for (const OvTraceHeader& trace : traces) {
            const Position position{trace.sourceX, trace.sourceY};
            if (!(distance(position, last) <= 0.0)) {
                near = nearest(m_sources, position, nearSpacings * m_spacing, mostNear);
                last = position;
            }
            all.push_back(expectedOf(trace, near));
        }
        return all;
    }

private:
    Expected expectedOf(const OvTraceHeader& trace, const std::vector<const Learned*>& near) const
    {
        const double offset = std::abs(static_cast<double>(trace.offset));
        if (!std::isfinite(offset))
            return {};
        const int sector = sectorOf(trace);
        const Expected close = fromNear(offset, sector, near);
        if (close.isKnown())
            return close;
        const Expected same = fromLine(m_sectors[static_cast<std::size_t>(sector)], offset);
        return same.isKnown() ? same : fromLine(m_all, offset);
    }

    static Expected fromNear(double offset, int sector, const std::vector<const Learned*>& near)
    {
        std::vector<double> times;
        double spread = 0.0;
        for (const Learned* source : near) {
            const auto line = source->lines.find(sector);
            if (line == source->lines.end())
                continue;
            const OvPickLine::Knot value = line->second.at(offset);
            if (!std::isfinite(value.timeMs))
                continue;
            times.push_back(value.timeMs);
            spread = std::max(spread, value.spreadMs);
        }
        if (times.empty())
            return {};
        const double time = OvRank::median(times);
        std::vector<double> strays;
        strays.reserve(times.size());
        for (const double other : times)
            strays.push_back(std::abs(other - time));
        return width(time, std::max(spread, OvRank::median(strays)));
    }

    static Expected fromLine(const OvPickLine& line, double offset)
    {
        const OvPickLine::Knot value = line.at(offset);
        return std::isfinite(value.timeMs) ? width(value.timeMs, value.spreadMs) : Expected();
    }

    // Spreads are median distances; picks within four of them and a bit are no surprise.
    static Expected width(double timeMs, double spreadMs)
    {
        constexpr double spreads = 4.0;
        constexpr double share = 0.03;
        constexpr double leastMs = 8.0;
        return {timeMs, std::max(leastMs, spreads * spreadMs + share * std::abs(timeMs))};
    }

    std::vector<Learned> m_sources;
    std::array<OvPickLine, sectors> m_sectors;
    OvPickLine m_all;
    double m_spacing = 0.0;
};

} // namespace

struct OvPickPriorBuilder::Private
{
    Sources sources;
    double cellSize = 1e-3;
    qint64 count = 0;

    void coarsen()
    {
        while (sources.size() > mostSources) {
            cellSize *= 2.0;
            Sources merged;
            for (const auto& entry : sources) {
                const auto [at, isNew] =
                    merged.emplace(cellOf(entry.second.position, cellSize), entry.second);
                if (!isNew)
                    at->second.merge(entry.second);
            }
            sources = std::move(merged);
        }
    }
};

OvPickPriorBuilder::OvPickPriorBuilder()
    : d(std::make_unique<Private>())
{
}

OvPickPriorBuilder::~OvPickPriorBuilder() = default;
OvPickPriorBuilder::OvPickPriorBuilder(OvPickPriorBuilder&&) noexcept = default;
OvPickPriorBuilder& OvPickPriorBuilder::operator=(OvPickPriorBuilder&&) noexcept = default;

void OvPickPriorBuilder::add(const OvTraceHeader& trace, double timeMs)
{
    const double offset = std::abs(static_cast<double>(trace.offset));
    if (!std::isfinite(offset) || !std::isfinite(timeMs))
        return;
    const Position position{trace.sourceX, trace.sourceY};
    Source& source = d->sources[cellOf(position, d->cellSize)];
    if (source.curves.empty())
        source.position = position;
    source.curves[sectorOf(trace)].add(offset, timeMs);
    ++d->count;
    d->coarsen();
}

qint64 OvPickPriorBuilder::count() const
{
    return d->count;
}

std::shared_ptr<const OvPickPrior> OvPickPriorBuilder::build() const
{
    if (d->count < leastPicks)
        return nullptr;
    return std::make_shared<LearnedPrior>(d->sources);
}

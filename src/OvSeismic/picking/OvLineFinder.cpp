#include "OvSeismic/picking/OvLineFinder.h"

#include "OvSeismic/dsp/OvRank.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <numeric>
#include <unordered_map>

namespace {

using OvLineFinder::Place;

constexpr double linked = 1.6; // spacings
constexpr std::size_t mostPieces = 400;

double distance(const Place& a, const Place& b)
{
    return std::hypot(b.x - a.x, b.y - a.y);
}

// Which elements belong together.
class Forest
{
public:
    explicit Forest(std::size_t count)
        : m_parents(count)
    {
        std::iota(m_parents.begin(), m_parents.end(), std::size_t(0));
    }

    std::size_t root(std::size_t element)
    {
        while (m_parents[element] != element)
            element = m_parents[element] = m_parents[m_parents[element]];
        return element;
    }

    void join(std::size_t a, std::size_t b) { m_parents[root(a)] = root(b); }

private:
    std::vector<std::size_t> m_parents;
};

// Median distance of a place to the nearest other one.
double spacingOf(const std::vector<Place>& places)
{
    constexpr std::size_t enough = 64;
    std::vector<double> nearest; // squared
    const std::size_t every = std::max<std::size_t>(1, places.size() / enough);
    for (std::size_t i = 0; i < places.size(); i += every) {
        double least = std::numeric_limits<double>::infinity();
        for (std::size_t k = 0; k < places.size(); ++k) {
            const double x = places[k].x - places[i].x;
            const double y = places[k].y - places[i].y;
            least = k == i ? least : std::min(least, x * x + y * y);
        }
        nearest.push_back(least);
    }
    return std::sqrt(OvRank::median(nearest));
}

// Places in squares as wide as a link, so that those within reach lie in the squares around.
class Squares
{
public:
    Squares(const std::vector<Place>& places, double width)
        : m_places(places)
        , m_width(width)
    {
        for (std::size_t i = 0; i < places.size(); ++i)
            m_squares[keyOf(column(places[i].x), column(places[i].y))].push_back(i);
    }

    void linkAround(std::size_t index, Forest* forest) const
    {
        const std::int64_t x = column(m_places[index].x);
        const std::int64_t y = column(m_places[index].y);
        for (std::int64_t aside = -1; aside <= 1; ++aside)
            for (std::int64_t ahead = -1; ahead <= 1; ++ahead)
                linkTo(index, keyOf(x + aside, y + ahead), forest);
    }

private:
    void linkTo(std::size_t index, std::uint64_t key, Forest* forest) const
    {
        const auto square = m_squares.find(key);
        if (square == m_squares.end())
            return;
        for (const std::size_t other : square->second) {
            if (distance(m_places[index], m_places[other]) <= m_width)
                forest->join(index, other);
        }
    }

    std::int64_t column(double value) const
    {
        constexpr double farthest = 1e15;
        return static_cast<std::int64_t>(
            std::clamp(std::floor(value / m_width), -farthest, farthest));
    }

    // Squares that share a key only cost time.
    static std::uint64_t keyOf(std::int64_t x, std::int64_t y)
    {
        constexpr std::uint64_t odd = 0x9E3779B97F4A7C15U;
        return static_cast<std::uint64_t>(x) * odd + static_cast<std::uint64_t>(y);
    }

    const std::vector<Place>& m_places;
    double m_width;
    std::unordered_map<std::uint64_t, std::vector<std::size_t>> m_squares;
};

// Places that follow on each other without a gap.
struct Piece
{
    std::vector<Place> places;
    Place along; // from end to end, of length 1; 0 for a single place
    double length = 0.0;

    void measure()
    {
        const Place end = farthestFrom(places.front());
        const Place start = farthestFrom(end);
        length = distance(start, end);
        if (length > 0.0)
            along = {(end.x - start.x) / length, (end.y - start.y) / length};
    }

private:
    Place farthestFrom(const Place& from) const
    {
        return *std::max_element(places.begin(), places.end(),
                                 [&from](const Place& a, const Place& b) {
                                     return distance(from, a) < distance(from, b);
                                 });
    }
};

// What a piece covers of a direction, and where it does so at its two ends.
struct Reach
{
    double from = std::numeric_limits<double>::infinity();
    double to = -std::numeric_limits<double>::infinity();
    Place first;
    Place last;

    Reach(const Piece& piece, const Place& along)
    {
        for (const Place& place : piece.places) {
            const double at = place.x * along.x + place.y * along.y;
            if (at < from) {
                from = at;
                first = place;
            }
            if (at > to) {
                to = at;
                last = place;
            }
        }
    }
};

// How two pieces lie to each other, seen along the longer of them.
struct Link
{
    double gap = 0.0;   // between them; negative where they lie side by side
    double aside = 0.0; // from the end of one to the beginning of the other, across

    Link(const Piece& a, const Piece& b)
    {
        Place along = a.length >= b.length ? a.along : b.along;
        if (!(a.length > 0.0) && !(b.length > 0.0)) {
            gap = distance(a.places.front(), b.places.front());
            return;
        }
        const Reach one(a, along);
        const Reach two(b, along);
        gap = std::max(one.from, two.from) - std::min(one.to, two.to);
        const bool forward = one.from + one.to < two.from + two.to;
        const Place& from = forward ? one.last : two.last;
        const Place& to = forward ? two.first : one.first;
        aside = std::abs((to.y - from.y) * along.x - (to.x - from.x) * along.y);
    }

    bool isSideBySide(double spacing) const { return gap < 0.5 * spacing; }
    bool goesOn(double spacing) const
    {
        return !isSideBySide(spacing) && aside <= std::max(gap, 3.0 * spacing);
    }
    double cost() const { return gap + 4.0 * aside; }
};

std::vector<int> numbersOf(Forest* forest, std::size_t count)
{
    std::map<std::size_t, int> numbers;
    std::vector<int> result;
    result.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        result.push_back(
            numbers.emplace(forest->root(i), static_cast<int>(numbers.size())).first->second);
    return result;
}

std::vector<int> pieceOfEach(const std::vector<Place>& places, double spacing)
{
    const Squares squares(places, linked * spacing);
    Forest forest(places.size());
    for (std::size_t i = 0; i < places.size(); ++i)
        squares.linkAround(i, &forest);
    return numbersOf(&forest, places.size());
}

std::vector<Piece> piecesOf(const std::vector<Place>& places, const std::vector<int>& numbers)
{
    std::vector<Piece> pieces(
        static_cast<std::size_t>(*std::max_element(numbers.begin(), numbers.end())) + 1);
    for (std::size_t i = 0; i < places.size(); ++i)
        pieces[static_cast<std::size_t>(numbers[i])].places.push_back(places[i]);
    for (Piece& piece : pieces)
        piece.measure();
    return pieces;
}

// Joins pieces, and never two of which any parts lie side by side.
class Joiner
{
public:
    Joiner(const std::vector<Piece>& pieces, double spacing)
        : m_count(pieces.size())
        , m_apart(m_count * m_count, false)
        , m_forest(m_count)
    {
        for (std::size_t a = 0; a < m_count; ++a)
            for (std::size_t b = a + 1; b < m_count; ++b)
                note(a, b, Link(pieces[a], pieces[b]), spacing);
    }

    std::vector<int> lines()
    {
        std::stable_sort(m_links.begin(), m_links.end(),
                         [](const Candidate& a, const Candidate& b) { return a.cost < b.cost; });
        for (const Candidate& link : m_links) {
            if (mayJoin(link.a, link.b))
                m_forest.join(link.a, link.b);
        }
        return numbersOf(&m_forest, m_count);
    }

private:
    struct Candidate
    {
        double cost;
        std::size_t a;
        std::size_t b;
    };

    void note(std::size_t a, std::size_t b, const Link& link, double spacing)
    {
        m_apart[a * m_count + b] = m_apart[b * m_count + a] = link.isSideBySide(spacing);
        if (link.goesOn(spacing))
            m_links.push_back({link.cost(), a, b});
    }

    bool mayJoin(std::size_t a, std::size_t b)
    {
        const std::size_t one = m_forest.root(a);
        const std::size_t two = m_forest.root(b);
        if (one == two)
            return false;
        for (std::size_t i = 0; i < m_count; ++i) {
            for (std::size_t k = 0; m_forest.root(i) == one && k < m_count; ++k) {
                if (m_apart[i * m_count + k] && m_forest.root(k) == two)
                    return false;
            }
        }
        return true;
    }

    std::size_t m_count;
    std::vector<bool> m_apart;
    Forest m_forest;
    std::vector<Candidate> m_links;
};

// Whether most places lie next to the one that follows along their line.
bool areLines(const std::vector<Piece>& lines, double spacing)
{
    std::size_t next = 0;
    std::size_t all = 0;
    for (const Piece& line : lines) {
        std::vector<Place> places = line.places;
        std::sort(places.begin(), places.end(), [&line](const Place& a, const Place& b) {
            return (b.x - a.x) * line.along.x + (b.y - a.y) * line.along.y > 0.0;
        });
        for (std::size_t i = 1; i < places.size(); ++i)
            next += distance(places[i - 1], places[i]) <= linked * spacing ? 1 : 0;
        all += places.size();
    }
    return 3 * next >= 2 * all;
}

} // namespace

std::vector<int> OvLineFinder::numbersOf(const std::vector<Place>& places)
{
    const auto isBefore = [&places](std::size_t a, std::size_t b) {
        return std::pair(places[a].x, places[a].y) < std::pair(places[b].x, places[b].y);
    };
    std::vector<std::size_t> order(places.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    if (!std::is_sorted(order.begin(), order.end(), isBefore))
        std::stable_sort(order.begin(), order.end(), isBefore);
    std::vector<std::size_t> firsts(places.size()); // the first of all at the same place
    for (std::size_t i = 0; i < order.size(); ++i) {
        const bool isNew = i == 0 || isBefore(order[i - 1], order[i]);
        firsts[order[i]] = isNew ? order[i] : firsts[order[i - 1]];
    }
    std::vector<int> numbers(places.size());
    int next = 0;
    for (std::size_t i = 0; i < places.size(); ++i)
        numbers[i] = firsts[i] == i ? next++ : numbers[firsts[i]];
    return numbers;
}

std::vector<int> OvLineFinder::find(const std::vector<Place>& places)
{
    const std::vector<int> indices = numbersOf(places);
    std::vector<Place> distinct;
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (static_cast<std::size_t>(indices[i]) == distinct.size())
            distinct.push_back(places[i]);
    }
    std::vector<int> lines(places.size(), 0);
    const double spacing = distinct.size() > 2 ? spacingOf(distinct) : 0.0;
    if (!(spacing > 0.0) || !std::isfinite(spacing))
        return lines;
    std::vector<int> numbers = pieceOfEach(distinct, spacing);
    const auto last = static_cast<std::size_t>(*std::max_element(numbers.begin(), numbers.end()));
    if (last == 0 || last >= mostPieces)
        return lines;
    const std::vector<Piece> pieces = piecesOf(distinct, numbers);
    const std::vector<int> lineOfEach = Joiner(pieces, spacing).lines();
    std::transform(numbers.begin(), numbers.end(), numbers.begin(), [&lineOfEach](int piece) {
        return lineOfEach[static_cast<std::size_t>(piece)];
    });
    if (!areLines(piecesOf(distinct, numbers), spacing))
        return lines;
    for (std::size_t i = 0; i < places.size(); ++i)
        lines[i] = numbers[static_cast<std::size_t>(indices[i])];
    return lines;
}

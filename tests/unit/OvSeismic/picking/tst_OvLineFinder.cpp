#include "OvSeismic/picking/OvLineFinder.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <vector>

using OvLineFinder::Place;

/// Lines of places, in the order of a file and out of it. What cables make of them is tested there.
class tst_OvLineFinder : public QObject
{
    Q_OBJECT

private slots:
    void numbersByFirstComing();
    void aGapIsNoEnd_data();
    void aGapIsNoEnd();
    void parallelLines_data();
    void parallelLines();
    void hairpinIsOnePiece();
    void nothingAndTwoPlaces();
};

namespace {

std::vector<Place> lineFrom(const Place& start, const Place& step, int count)
{
    std::vector<Place> places;
    for (int i = 0; i < count; ++i)
        places.push_back({start.x + i * step.x, start.y + i * step.y});
    return places;
}

// What a file in any order would hold.
std::vector<Place> shuffled(const std::vector<Place>& places)
{
    std::vector<Place> result;
    for (std::size_t i = 0; i < places.size(); ++i)
        result.push_back(places[i * 7 % places.size()]);
    return result;
}

void addOrders()
{
    QTest::addColumn<bool>("inOrder");
    QTest::newRow("in order") << true;
    QTest::newRow("shuffled") << false;
}

} // namespace

void tst_OvLineFinder::numbersByFirstComing()
{
    const std::vector<int> numbers = OvLineFinder::numbersOf(
        {{5.0, 1.0}, {2.0, 1.0}, {5.0, 1.0}, {2.0, 0.0}, {2.0, 1.0}, {9.0, 9.0}});
    QCOMPARE(numbers, (std::vector<int>{0, 1, 0, 2, 1, 3}));
    QCOMPARE(OvLineFinder::numbersOf({{1.0, 0.0}, {2.0, 0.0}, {2.0, 0.0}}),
             (std::vector<int>{0, 1, 1}));
    QVERIFY(OvLineFinder::numbersOf({}).empty());
}

void tst_OvLineFinder::aGapIsNoEnd_data()
{
    addOrders();
}

void tst_OvLineFinder::aGapIsNoEnd()
{
    QFETCH(bool, inOrder);
    std::vector<Place> places = lineFrom({100.0, 50.0}, {8.0, 6.0}, 41);
    places.erase(places.begin() + 20);
    QCOMPARE(OvLineFinder::find(inOrder ? places : shuffled(places)), std::vector<int>(40, 0));
}

void tst_OvLineFinder::parallelLines_data()
{
    addOrders();
}

void tst_OvLineFinder::parallelLines()
{
    QFETCH(bool, inOrder);
    std::vector<Place> places = lineFrom({0.0, 0.0}, {10.0, 0.0}, 20);
    const std::vector<Place> other = lineFrom({0.0, 100.0}, {10.0, 0.0}, 20);
    places.insert(places.end(), other.begin(), other.end());
    places = inOrder ? places : shuffled(places);
    const std::vector<int> lines = OvLineFinder::find(places);
    for (std::size_t i = 0; i < places.size(); ++i)
        QCOMPARE(lines[i] == lines[0], places[i].y == places[0].y);
}

// Two pieces that follow on each other in the file, and lie next to each other elsewhere.
void tst_OvLineFinder::hairpinIsOnePiece()
{
    std::vector<Place> places = lineFrom({0.0, 0.0}, {10.0, 0.0}, 20);
    const std::vector<Place> back = lineFrom({0.0, 12.0}, {10.0, 0.0}, 20);
    places.insert(places.end(), back.begin(), back.end());
    QCOMPARE(OvLineFinder::find(places), std::vector<int>(40, 0));
}

void tst_OvLineFinder::nothingAndTwoPlaces()
{
    QVERIFY(OvLineFinder::find({}).empty());
    QCOMPARE(OvLineFinder::find({{1.0, 2.0}, {3.0, 4.0}}), (std::vector<int>{0, 0}));
}

QTEST_GUILESS_MAIN(tst_OvLineFinder)
#include "tst_OvLineFinder.moc"

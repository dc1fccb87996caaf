#include "OvSeismic/picking/OvPickCourse.h"
#include "OvSeismic/picking/OvTraceChain.h"

#include <QtTest>

#include <cmath>

class tst_OvPickCourse : public QObject
{
    Q_OBJECT

private slots:
    void slopeOfALine();
    void slopeIgnoresASingleJump();
    void slopesOfShortCourses();
    void strayOfASinglePick();
    void leadOverNearerTimes();
    void leadsNeedTrustAndGeometry();
    void runningMedians();
    void neighboursAreOfTheSameCable();
    void sidesOfTheShotDoNotMix();
    void linksThatLeadNowhereKnownCompareAll();
};

void tst_OvPickCourse::slopeOfALine()
{
    std::vector<double> times;
    for (int i = 0; i < 12; ++i)
        times.push_back(3.0 * i + 7.0);
    const std::vector<double> slopes = OvPickCourse::slopes(times, {});
    QCOMPARE(slopes.front(), 0.0);
    for (std::size_t i = 1; i < slopes.size(); ++i)
        QVERIFY(std::abs(slopes[i] - 3.0) < 1e-9);
}

void tst_OvPickCourse::slopeIgnoresASingleJump()
{
    std::vector<double> times(21, 50.0);
    times[10] = 80.0;
    for (const double slope : OvPickCourse::slopes(times, {}))
        QVERIFY2(std::abs(slope) <= 6.0, qPrintable(QString::number(slope)));
}

void tst_OvPickCourse::slopesOfShortCourses()
{
    QVERIFY(OvPickCourse::slopes({}, {}).empty());
    QVERIFY((OvPickCourse::slopes({4.0}, {}) == std::vector<double>{0.0}));
    QVERIFY((OvPickCourse::slopes({4.0, 6.0}, {}) == std::vector<double>{0.0, 2.0}));
}

void tst_OvPickCourse::strayOfASinglePick()
{
    std::vector<double> times;
    for (int i = 0; i < 21; ++i)
        times.push_back(2.0 * i);
    times[10] += 30.0;
    const std::vector<double> strays = OvPickCourse::strays(times, 4, {});
    QVERIFY2(std::abs(strays[10] - 30.0) < 10.0, qPrintable(QString::number(strays[10])));
    QVERIFY2(std::abs(strays[3]) < 1.0, qPrintable(QString::number(strays[3])));
    QVERIFY(std::abs(strays[10]) > 5.0 * std::abs(strays[17]));
    QVERIFY(OvPickCourse::strays({}, 5, {}).empty());
    QCOMPARE(OvPickCourse::strays({4.0}, 5, {}), std::vector<double>{0.0});
}

namespace {

// Ten links towards the shot and ten away from it, 10 later each; the four farthest on the one side
// come at a time of their own.
struct Spread
{
    OvTraceChain chain;
    std::vector<double> times;

    explicit Spread(double farTime)
    {
        for (int i = 0; i < 20; ++i) {
            chain.away.push_back(i == 0 ? 0 : i <= 9 ? -1 : 1);
            times.push_back(i < 4 ? farTime : 10.0 * std::abs(i - 9));
        }
        chain.rows.resize(20);
    }
};

} // namespace

void tst_OvPickCourse::leadOverNearerTimes()
{
    const Spread early(5.0);
    const std::vector<bool> all(20, true);
    const std::vector<double> leads = OvPickCourse::leads(early.times, all, early.chain);
    // The latest median of seven on the way out is 20, of the links 3 to 9.
    QVERIFY2(leads[0] >= 10.0, qPrintable(QString::number(leads[0])));
    for (std::size_t i = 0; i < 4; ++i)
        QVERIFY2(leads[i] >= 10.0 && leads[i] <= 45.0, qPrintable(QString::number(leads[i])));
    // Nothing on the other side, nor what comes later with offset, as it should.
    for (std::size_t i = 10; i < 20; ++i)
        QVERIFY2(leads[i] <= 10.0, qPrintable(QString::number(leads[i])));
    const Spread late(90.0);
    for (const double lead : OvPickCourse::leads(late.times, all, late.chain))
        QVERIFY2(lead <= 30.0, qPrintable(QString::number(lead)));
    QCOMPARE(OvPickCourse::leads(late.times, all, late.chain)[0], 0.0);
}

void tst_OvPickCourse::leadsNeedTrustAndGeometry()
{
    Spread early(5.0);
    const std::vector<bool> none(20, false);
    const std::vector<bool> all(20, true);
    const std::vector<double> nothing(20, 0.0);
    QCOMPARE(OvPickCourse::leads(early.times, none, early.chain), nothing);
    early.chain.cables.assign(20, 1);
    std::fill_n(early.chain.cables.begin(), 4, 0);
    const std::vector<double> apart = OvPickCourse::leads(early.times, all, early.chain);
    for (std::size_t i = 0; i < 4; ++i)
        QCOMPARE(apart[i], 0.0);
    early.chain.cables.clear();
    early.chain.away.assign(20, 0);
    QCOMPARE(OvPickCourse::leads(early.times, all, early.chain), nothing);
    QVERIFY(OvPickCourse::leads({}, {}, {}).empty());
}

void tst_OvPickCourse::runningMedians()
{
    const std::vector<double> medians =
        OvPickCourse::runningMedians({1.0, 9.0, 2.0, 3.0, 4.0}, 1, {});
    // Of two in the middle, at the ends, the upper one.
    QVERIFY((medians == std::vector<double>{9.0, 2.0, 3.0, 3.0, 4.0}));
}

// Two cables with courses of their own, 1000 apart.
void tst_OvPickCourse::neighboursAreOfTheSameCable()
{
    std::vector<double> times;
    OvTraceChain chain;
    for (int i = 0; i < 16; ++i) {
        chain.cables.push_back(i / 8);
        times.push_back(i < 8 ? 3.0 * i : 1000.0 - 5.0 * i);
    }
    const std::vector<double> slopes = OvPickCourse::slopes(times, chain);
    const std::vector<double> strays = OvPickCourse::strays(times, 5, chain);
    for (int i = 0; i < 16; ++i) {
        const auto at = static_cast<std::size_t>(i);
        QCOMPARE(slopes[at], i % 8 == 0 ? 0.0 : i < 8 ? 3.0 : -5.0);
        // The first of a cable has no slope, its neighbours point past it by one step at most.
        QVERIFY2(std::abs(strays[at]) <= 5.0, qPrintable(QString::number(strays[at])));
    }
    const std::vector<double> medians = OvPickCourse::runningMedians(times, 3, chain.cables);
    QVERIFY(*std::max_element(medians.begin(), medians.begin() + 8) <= 21.0);
    QVERIFY(*std::min_element(medians.begin() + 8, medians.end()) >= 925.0);
}

namespace {

// A course that comes down by 6 a link to the shot at the link 6 and rises by 4 a link behind it.
struct SplitCourse
{
    std::vector<double> times;
    OvTraceChain chain;

    SplitCourse()
    {
        for (int i = 0; i < 14; ++i) {
            times.push_back(i <= 6 ? 100.0 - 6.0 * i : 64.0 + 4.0 * (i - 6));
            chain.away.push_back(i == 0 ? 0 : i <= 6 ? -1 : 1);
        }
    }
};

} // namespace

void tst_OvPickCourse::sidesOfTheShotDoNotMix()
{
    const SplitCourse split;
    const std::vector<double> slopes = OvPickCourse::slopes(split.times, split.chain);
    const std::vector<double> strays = OvPickCourse::strays(split.times, 5, split.chain);
    for (std::size_t i = 1; i < slopes.size(); ++i) {
        QCOMPARE(slopes[i], i <= 6 ? -6.0 : 4.0);
        QVERIFY2(std::abs(strays[i]) < 1e-9, qPrintable(QString::number(strays[i])));
    }
}

void tst_OvPickCourse::linksThatLeadNowhereKnownCompareAll()
{
    SplitCourse split;
    split.chain.away.clear();
    const std::vector<double> slopes = OvPickCourse::slopes(split.times, split.chain);
    QCOMPARE(slopes[2], -6.0);
    QVERIFY(slopes[6] > -6.0);
    QVERIFY(slopes[7] < 4.0);
    QCOMPARE(slopes[13], 4.0);
}

QTEST_GUILESS_MAIN(tst_OvPickCourse)
#include "tst_OvPickCourse.moc"

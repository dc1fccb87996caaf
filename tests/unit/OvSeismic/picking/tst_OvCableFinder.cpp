#include "OvSeismic/picking/OvCableFinder.h"

#include "OvSeismic/picking/OvTraceChain.h"

#include "CableGather.h"

#include <QElapsedTimer>
#include <QtTest>

#include <numeric>
#include <random>
#include <set>

Q_DECLARE_METATYPE(std::vector<float>)

/// Cables told apart by where their receivers lie, or by offsets along the channels.
class tst_OvCableFinder : public QObject
{
    Q_OBJECT

private slots:
    void oneCable_data();
    void oneCable();
    void sideBySide_data();
    void sideBySide();
    void shuffledTracesOfThreeCables();
    void gapsOfOneCableBesideGapsOfAnother();
    void strayPositionsGoWithTheirNeighbours();
    void positionsWithoutAPatternAreOneCable();
    void sourceLinesOfAReceiverGather();
    void bothEndsMoving();
    void severalShotsInOneGather();
    void byOffsets_data();
    void byOffsets();
    void manyTracesInLittleTime();
};

namespace {

std::vector<int> allRows(const OvGather& gather)
{
    std::vector<int> rows;
    for (int row = 0; row < gather.traceCount(); ++row)
        rows.push_back(row);
    return rows;
}

std::vector<int> found(const OvGather& gather)
{
    return OvCableFinder::find(gather, allRows(gather));
}

int countOf(const std::vector<int>& cables)
{
    return static_cast<int>(std::set<int>(cables.begin(), cables.end()).size());
}

std::vector<float> rising(float from, float to, float step)
{
    std::vector<float> offsets;
    const int steps = static_cast<int>((to - from) / step + 1e-3F);
    for (int i = 0; i <= steps; ++i)
        offsets.push_back(from + step * static_cast<float>(i));
    return offsets;
}

std::vector<float> reversed(std::vector<float> offsets)
{
    std::reverse(offsets.begin(), offsets.end());
    return offsets;
}

std::vector<float> joined(const std::vector<std::vector<float>>& parts)
{
    std::vector<float> offsets;
    for (const std::vector<float>& part : parts)
        offsets.insert(offsets.end(), part.begin(), part.end());
    return offsets;
}

std::vector<float> absolute(std::vector<float> offsets)
{
    for (float& offset : offsets)
        offset = std::abs(offset);
    return offsets;
}

} // namespace

void tst_OvCableFinder::oneCable_data()
{
    QTest::addColumn<QVector<double>>("xs");
    QTest::addColumn<QVector<double>>("ys");
    QVector<double> straight;
    QVector<double> level;
    QVector<double> gap;
    QVector<double> uneven;
    QVector<double> bend;
    QVector<double> bendLevel;
    for (int i = 0; i < 60; ++i) {
        straight << 10.0 * i;
        level << 0.0;
        gap << 10.0 * i + (i < 25 ? 0.0 : 150.0);
        uneven << 10.0 * i + (i % 7 == 3 ? 4.0 : 0.0) + (i > 40 ? 10.0 * (i - 40) : 0.0);
        bend << (i < 30 ? 10.0 * i : 295.0 + 7.0 * (i - 30));
        bendLevel << (i < 30 ? 0.0 : 7.0 * (i - 29));
    }
    QTest::newRow("straight") << straight << level;
    QTest::newRow("with a gap") << gap << level;
    QTest::newRow("uneven, wider at its end") << uneven << level;
    QTest::newRow("bent") << bend << bendLevel;
    QTest::newRow("no coordinates") << level << level;
}

void tst_OvCableFinder::oneCable()
{
    QFETCH(QVector<double>, xs);
    QFETCH(QVector<double>, ys);
    CableGather made;
    for (int i = 0; i < xs.size(); ++i)
        made.addTrace(xs[i], ys[i]);
    made.placeShot(205.0, 30.0);
    QCOMPARE(countOf(found(made.gather)), 1);
    QVERIFY(OvTraceChain::of(made.gather).cables.empty());
}

void tst_OvCableFinder::sideBySide_data()
{
    QTest::addColumn<double>("spacing");
    QTest::addColumn<double>("between");
    QTest::addColumn<double>("angle");
    QTest::newRow("far apart") << 10.0 << 200.0 << 0.0;
    QTest::newRow("near, slanting") << 10.0 << 20.0 << 0.7;
    QTest::newRow("across") << 50.0 << 100.0 << 1.5707963;
}

void tst_OvCableFinder::sideBySide()
{
    QFETCH(double, spacing);
    QFETCH(double, between);
    QFETCH(double, angle);
    CableGather made;
    for (int cable = 0; cable < 3; ++cable) {
        for (int i = 0; i < 24; ++i) {
            const double along = spacing * i;
            const double aside = between * cable;
            made.addTrace(along * std::cos(angle) - aside * std::sin(angle),
                          along * std::sin(angle) + aside * std::cos(angle));
        }
    }
    made.placeShot(11.0 * spacing, 0.5 * between);
    const std::vector<int> cables = found(made.gather);
    for (std::size_t i = 0; i < cables.size(); ++i)
        QCOMPARE(cables[i], static_cast<int>(i / 24));
}

void tst_OvCableFinder::shuffledTracesOfThreeCables()
{
    std::vector<int> order(90);
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), std::mt19937(3));
    CableGather made;
    for (const int i : order)
        made.addTrace(25.0 * (i / 3), 75.0 * (i % 3));
    made.placeShot(300.0, 20.0);
    const std::vector<int> cables = found(made.gather);
    std::vector<int> numbers(3, -1);
    for (std::size_t i = 0; i < cables.size(); ++i) {
        int& number = numbers[static_cast<std::size_t>(order[i] % 3)];
        number = number < 0 ? cables[i] : number;
        QCOMPARE(cables[i], number);
    }
    QCOMPARE(std::set<int>(numbers.begin(), numbers.end()).size(), std::size_t(3));
    QCOMPARE(cables.front(), 0);
}

void tst_OvCableFinder::gapsOfOneCableBesideGapsOfAnother()
{
    CableGather made;
    for (int cable = 0; cable < 2; ++cable) {
        for (int i = 0; i < 50; ++i) {
            const bool isGap = cable == 0 ? i >= 20 && i < 30 : i >= 27 && i < 33;
            if (!isGap)
                made.addTrace(10.0 * i, 40.0 * cable);
        }
    }
    made.placeShot(240.0, 20.0);
    const std::vector<int> cables = found(made.gather);
    for (std::size_t i = 0; i < cables.size(); ++i)
        QCOMPARE(cables[i], i < 40 ? 0 : 1);
}

void tst_OvCableFinder::strayPositionsGoWithTheirNeighbours()
{
    CableGather made;
    for (int i = 0; i < 48; ++i)
        made.addTrace(i == 30 ? 9000.0 : 10.0 * (i % 24), i == 30 ? 77.0 : 60.0 * (i / 24));
    made.placeShot(100.0, 30.0);
    const std::vector<int> cables = found(made.gather);
    for (std::size_t i = 0; i < cables.size(); ++i)
        QCOMPARE(cables[i], static_cast<int>(i / 24));
}

void tst_OvCableFinder::positionsWithoutAPatternAreOneCable()
{
    std::mt19937 engine(7);
    const auto anywhere = [&engine] { return static_cast<double>(engine() % 1000); };
    CableGather made;
    for (int i = 0; i < 80; ++i)
        made.addTrace(anywhere(), anywhere());
    made.placeShot(500.0, 500.0);
    QCOMPARE(countOf(found(made.gather)), 1);
}

void tst_OvCableFinder::sourceLinesOfAReceiverGather()
{
    CableGather made;
    for (int i = 0; i < 40; ++i) {
        made.addTrace(200.0, 10.0);
        made.gather.headers.back().sourceX = 20.0 * (i % 20);
        made.gather.headers.back().sourceY = 100.0 * (i / 20);
    }
    const std::vector<int> cables = found(made.gather);
    for (std::size_t i = 0; i < cables.size(); ++i)
        QCOMPARE(cables[i], static_cast<int>(i / 20));
}

void tst_OvCableFinder::bothEndsMoving()
{
    CableGather made;
    for (int i = 0; i < 40; ++i) {
        made.addTrace(500.0 + 10.0 * i, 100.0 * (i % 2));
        made.gather.headers.back().sourceX = 500.0 - 10.0 * i;
        made.gather.headers.back().offset = 20.0F * static_cast<float>(i % 20);
    }
    QCOMPARE(countOf(found(made.gather)), 1);
}

// As in a file without field records; each shot goes into two receiver lines.
void tst_OvCableFinder::severalShotsInOneGather()
{
    CableGather made;
    for (int i = 0; i < 3 * 48; ++i) {
        made.addTrace(10.0 * (i % 24), 80.0 * (i / 24 % 2));
        made.gather.headers.back().sourceX = 45.0 * (i / 48);
        made.gather.headers.back().offset = static_cast<float>(10 * (i % 24));
    }
    std::vector<int> cables = found(made.gather);
    for (std::size_t i = 0; i < cables.size(); ++i)
        QCOMPARE(cables[i], static_cast<int>(i / 24));
    // The same by receiver: each has had nine shots.
    CableGather turned;
    for (int i = 0; i < 4 * 9; ++i) {
        turned.addTrace(500.0 * (i % 4), 0.0);
        turned.gather.headers.back().sourceX = 20.0 * (i / 4);
    }
    cables = found(turned.gather);
    for (std::size_t i = 0; i < cables.size(); ++i)
        QCOMPARE(cables[i], static_cast<int>(i % 4));
}

void tst_OvCableFinder::byOffsets_data()
{
    QTest::addColumn<std::vector<float>>("offsets");
    QTest::addColumn<int>("first"); // traces of the first cable; 0 for a single one
    const std::vector<float> split = rising(-300, 300, 20);
    const std::vector<float> oneSide = rising(20, 600, 20);
    const std::vector<float> gap = joined({rising(20, 200, 20), rising(400, 600, 20)});
    QTest::newRow("signed, one") << split << 0;
    QTest::newRow("signed, one, reversed") << reversed(split) << 0;
    QTest::newRow("signed, both sides from the shot out")
        << joined({oneSide, reversed(rising(-600, -20, 20))}) << 0;
    QTest::newRow("signed, two alike") << joined({split, split}) << 31;
    QTest::newRow("signed, the second reversed")
        << joined({split, reversed(rising(-290, 310, 20))}) << 31;
    QTest::newRow("unsigned, one") << absolute(split) << 0;
    QTest::newRow("unsigned, one with a gap") << gap << 0;
    QTest::newRow("unsigned, one with a gap, reversed") << reversed(gap) << 0;
    QTest::newRow("unsigned, gap about the shot")
        << joined({reversed(rising(100, 600, 20)), rising(100, 600, 20)}) << 0;
    QTest::newRow("unsigned, two alike") << joined({oneSide, oneSide}) << 30;
    QTest::newRow("unsigned, two falling") << joined({reversed(oneSide), reversed(oneSide)}) << 30;
    QTest::newRow("unsigned, the second reversed") << joined({oneSide, reversed(oneSide)}) << 30;
    QTest::newRow("unsigned, two split spreads")
        << joined({absolute(split), absolute(split)}) << 31;
    QTest::newRow("unsigned, two with gaps") << joined({gap, gap}) << 21;
    QTest::newRow("one that stumbles")
        << joined({rising(20, 200, 20), {230, 215}, rising(240, 500, 20)}) << 0;
    QTest::newRow("in pairs") << std::vector<float>{10, 10, 20, 20, 30, 30, 40, 40, 50, 50} << 0;
    QTest::newRow("in no order") << std::vector<float>{50, 10, 80, 30, 70, 20,
                                                       60, 40, 55, 15, 85, 35}
                                 << 0;
    QTest::newRow("all zero") << std::vector<float>(20, 0.0F) << 0;
}

void tst_OvCableFinder::byOffsets()
{
    QFETCH(std::vector<float>, offsets);
    QFETCH(int, first);
    CableGather made;
    for (const float offset : offsets) {
        made.addTrace(0.0, 0.0);
        made.gather.headers.back().offset = offset;
    }
    const std::vector<int> cables = found(made.gather);
    for (std::size_t i = 0; i < cables.size(); ++i)
        QCOMPARE(cables[i], first > 0 && static_cast<int>(i) >= first ? 1 : 0);
}

void tst_OvCableFinder::manyTracesInLittleTime()
{
    CableGather made(1);
    for (int i = 0; i < 20000; ++i)
        made.addTrace(25.0 * (i % 1000), 200.0 * (i / 1000));
    made.placeShot(9000.0, 1900.0);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(countOf(found(made.gather)), 20);
    // Some 0.2 s under the sanitizers; what grows with the square of the traces takes far longer.
    QVERIFY2(clock.elapsed() < 5000, qPrintable(QString::number(clock.elapsed())));
}

QTEST_GUILESS_MAIN(tst_OvCableFinder)
#include "tst_OvCableFinder.moc"

#include "OvSeismic/picking/OvTraceChain.h"

#include "CableGather.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <numeric>

class tst_OvTraceChain : public QObject
{
    Q_OBJECT

private slots:
    void leavesOutWhatHasNoSignal();
    void runsBySignedOffset();
    void takesSidesFromCoordinates();
    void takesSidesFromAValley();
    void keepsOneSideTogether();
    void runsByChannelWithoutOffsets();
    void runsByChannelWhenAllOffsetsAreOne();
    void measuresGaps();
    void measuresGapsThatDeadTracesLeave();
    void knowsTheWayFromTheShot();
    void hasNoLinksWithoutTraces();
    void runsThroughOneCableAfterTheOther();
    void measuresGapsAlongACableThatPassesTheShot();
    void looksForNeighboursOnTheCable();
    void takesSidesFromTheSourcesOfOneReceiver();
    void runsAlongTheLineInACommonOffset();
};

namespace {

constexpr float unknown = std::numeric_limits<float>::quiet_NaN();

OvGather gatherOf(const std::vector<float>& offsets)
{
    OvGather gather;
    gather.sampleCount = 4;
    gather.intervalMs = 1.0;
    for (std::size_t i = 0; i < offsets.size(); ++i) {
        OvTraceHeader header;
        header.channel = static_cast<qint32>(i) + 1;
        header.offset = offsets[i];
        header.traceId = 1;
        gather.headers.push_back(header);
        gather.samples.insert(gather.samples.end(), {0.0F, 1.0F, -1.0F, 0.0F});
    }
    return gather;
}

std::vector<int> rowsOf(const OvGather& gather)
{
    return OvTraceChain::of(gather).rows;
}

} // namespace

void tst_OvTraceChain::leavesOutWhatHasNoSignal()
{
    OvGather gather = gatherOf({10, 20, 30, 40, 50, 60});
    gather.headers[0].traceId = 2;
    std::fill_n(gather.trace(1), 4, 0.0F);
    std::fill_n(gather.trace(2), 4, 7.0F);
    gather.trace(3)[2] = std::numeric_limits<float>::quiet_NaN();
    gather.trace(4)[0] = std::numeric_limits<float>::infinity();
    QCOMPARE(rowsOf(gather), std::vector<int>{5});
}

void tst_OvTraceChain::runsBySignedOffset()
{
    const OvGather gather = gatherOf({30, -10, 10, -30, -20, 20});
    QVERIFY((rowsOf(gather) == std::vector<int>{3, 4, 1, 2, 5, 0}));
}

void tst_OvTraceChain::takesSidesFromCoordinates()
{
    // Offsets without signs on a slanting line; the shot lies between the second and the third.
    OvGather gather = gatherOf({15, 5, 5, 15});
    for (std::size_t i = 0; i < 4; ++i) {
        const double along = 10.0 * static_cast<double>(i);
        gather.headers[i].receiverX = 500.0 + 0.6 * along;
        gather.headers[i].receiverY = 900.0 - 0.8 * along;
        gather.headers[i].sourceX = 500.0 + 0.6 * 15.0;
        gather.headers[i].sourceY = 900.0 - 0.8 * 15.0;
    }
    QVERIFY((rowsOf(gather) == std::vector<int>{0, 1, 2, 3}));
}

void tst_OvTraceChain::takesSidesFromAValley()
{
    QVERIFY((rowsOf(gatherOf({30, 20, 10, 10, 20, 30})) == std::vector<int>{0, 1, 2, 3, 4, 5}));
}

void tst_OvTraceChain::keepsOneSideTogether()
{
    QVERIFY((rowsOf(gatherOf({40, 10, 30, 20})) == std::vector<int>{1, 3, 2, 0}));
    QVERIFY((rowsOf(gatherOf({-40, -10, -30})) == std::vector<int>{0, 2, 1}));
}

void tst_OvTraceChain::runsByChannelWithoutOffsets()
{
    OvGather gather = gatherOf({unknown, unknown, unknown});
    gather.headers[0].channel = 3;
    gather.headers[2].channel = 1;
    const OvTraceChain chain = OvTraceChain::of(gather);
    QVERIFY((chain.rows == std::vector<int>{2, 1, 0}));
    QVERIFY(!chain.hasOffsets);
    QVERIFY((chain.away == std::vector<int>{0, 0, 0}));
}

void tst_OvTraceChain::runsByChannelWhenAllOffsetsAreOne()
{
    const OvTraceChain chain = OvTraceChain::of(gatherOf({0, 0, 0}));
    QVERIFY(!chain.hasOffsets);
    QVERIFY((chain.rows == std::vector<int>{0, 1, 2}));
}

void tst_OvTraceChain::measuresGaps()
{
    const OvTraceChain chain = OvTraceChain::of(gatherOf({10, 20, 30, 60, 70, 270}));
    QVERIFY((chain.steps == std::vector<double>{1.0, 1.0, 1.0, 3.0, 1.0, 8.0}));
}

void tst_OvTraceChain::measuresGapsThatDeadTracesLeave()
{
    OvGather gather = gatherOf({10, 20, 30, 40, 50, 60, 70});
    for (const int row : {0, 2, 3, 4, 5})
        std::fill_n(gather.trace(row), 4, 0.0F);
    QVERIFY((OvTraceChain::of(gather).steps == std::vector<double>{1.0, 5.0}));
}

void tst_OvTraceChain::knowsTheWayFromTheShot()
{
    const OvTraceChain chain = OvTraceChain::of(gatherOf({-30, -10, 10, 20}));
    QVERIFY((chain.away == std::vector<int>{0, -1, 0, 1}));
}

void tst_OvTraceChain::hasNoLinksWithoutTraces()
{
    QCOMPARE(OvTraceChain::of(OvGather()).size(), 0);
    QCOMPARE(OvTraceChain::of(gatherOf({5})).size(), 1);
}

namespace {

// Three receiver lines of ten stations 20 m apart, recorded from the far end of the second; the
// shot lies 30 m beside that one, between two of its stations.
CableGather threeLines()
{
    CableGather made;
    for (int i = 0; i < 30; ++i) {
        const int station = i / 10 == 1 ? 9 - i % 10 : i % 10;
        made.addTrace(20.0 * station, 100.0 * (i / 10));
    }
    made.placeShot(70.0, 130.0);
    return made;
}

} // namespace

void tst_OvTraceChain::runsThroughOneCableAfterTheOther()
{
    const OvTraceChain chain = OvTraceChain::of(threeLines().gather);
    std::vector<int> rows(30);
    std::iota(rows.begin(), rows.end(), 0);
    QCOMPARE(chain.rows, rows);
    for (int i = 0; i < 30; ++i) {
        QCOMPARE(chain.cables[static_cast<std::size_t>(i)], i / 10);
        QCOMPARE(chain.beginsCable(i), i % 10 == 0);
    }
    const std::vector<int> up = {0, -1, -1, -1, 0, 1, 1, 1, 1, 1};
    const std::vector<int> down = {0, -1, -1, -1, -1, -1, 0, 1, 1, 1};
    std::vector<int> away = up;
    away.insert(away.end(), down.begin(), down.end());
    away.insert(away.end(), up.begin(), up.end());
    QCOMPARE(chain.away, away);
}

void tst_OvTraceChain::measuresGapsAlongACableThatPassesTheShot()
{
    CableGather made = threeLines();
    // Beside the shot the signed offsets jump from -33 m to 33 m between stations 20 m apart.
    const OvTraceChain whole = OvTraceChain::of(made.gather);
    QCOMPARE(whole.steps, std::vector<double>(30, 1.0));
    std::fill_n(made.gather.trace(4), 4, 0.0F);
    std::fill_n(made.gather.trace(5), 4, 0.0F);
    const OvTraceChain chain = OvTraceChain::of(made.gather);
    QCOMPARE(chain.size(), 28);
    for (int i = 0; i < 28; ++i)
        QCOMPARE(chain.steps[static_cast<std::size_t>(i)], i == 4 ? 3.0 : 1.0);
}

void tst_OvTraceChain::looksForNeighboursOnTheCable()
{
    OvTraceChain chain;
    chain.rows = {0, 1, 2, 3, 4, 5, 6};
    const auto near = [&chain](int link, int reach) {
        const OvLinkRange range = chain.neighbours(link, reach);
        return std::pair<int, int>(range.first, range.last);
    };
    QCOMPARE(near(3, 2), (std::pair<int, int>(1, 6)));
    QVERIFY(chain.beginsCable(0) && !chain.beginsCable(4));
    chain.cables = {0, 0, 0, 0, 1, 1, 2};
    QCOMPARE(near(3, 2), (std::pair<int, int>(1, 4)));
    QCOMPARE(near(4, 9), (std::pair<int, int>(4, 6)));
    QCOMPARE(near(6, 9), (std::pair<int, int>(6, 7)));
    QCOMPARE(near(0, 1), (std::pair<int, int>(0, 2)));
    QVERIFY(chain.beginsCable(0) && chain.beginsCable(4) && chain.beginsCable(6));
}

void tst_OvTraceChain::takesSidesFromTheSourcesOfOneReceiver()
{
    // Offsets without signs: the receiver lies between the second source and the third.
    OvGather gather = gatherOf({15, 5, 5, 15});
    for (std::size_t i = 0; i < 4; ++i) {
        gather.headers[i].receiverX = 815.0;
        gather.headers[i].sourceX = 800.0 + 10.0 * static_cast<double>(i);
    }
    // Sources up the line have their receiver on the other side.
    QVERIFY((rowsOf(gather) == std::vector<int>{3, 2, 1, 0}));
}

void tst_OvTraceChain::runsAlongTheLineInACommonOffset()
{
    // Offsets of 25 m to 50 m of both signs, 40 m from trace to trace, from the far end on.
    OvGather gather = gatherOf({25, -40, 50, -30, 35, 45});
    for (std::size_t i = 0; i < 6; ++i) {
        const double middle = 700.0 - 40.0 * static_cast<double>(i);
        const double offset = static_cast<double>(gather.headers[i].offset);
        gather.headers[i].sourceX = middle - 0.5 * offset;
        gather.headers[i].receiverX = middle + 0.5 * offset;
    }
    OvTraceChain chain = OvTraceChain::of(gather);
    // Along the way from the first receiver to the farthest.
    QVERIFY((chain.rows == std::vector<int>{0, 1, 2, 3, 4, 5}));
    QVERIFY(chain.hasOffsets);
    QCOMPARE(chain.away, std::vector<int>(6, 0));
    // With a wide range of offsets it is no common offset: by offset.
    gather.headers[3].offset = -330.0F;
    QCOMPARE(OvTraceChain::of(gather).rows.front(), 3);
}

QTEST_GUILESS_MAIN(tst_OvTraceChain)
#include "tst_OvTraceChain.moc"

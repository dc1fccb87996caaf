#include "OvSeismic/picking/OvTraceChain.h"

#include "OvSeismic/segy/OvGather.h"

#include <QtTest>

#include <cmath>
#include <limits>

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
    void knowsTheWayFromTheShot();
    void hasNoLinksWithoutTraces();
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

QTEST_GUILESS_MAIN(tst_OvTraceChain)
#include "tst_OvTraceChain.moc"

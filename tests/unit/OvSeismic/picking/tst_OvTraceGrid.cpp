#include "OvSeismic/picking/OvTraceGrid.h"

#include "OvSeismic/picking/OvTraceChain.h"

#include "SyntheticGather.h"

#include <QtTest>

class tst_OvTraceGrid : public QObject
{
    Q_OBJECT

private slots:
    void keepsTime_data();
    void keepsTime();
    void oneClockForDelaysThatDiffer();
    void leavesOutWhatStartsFarAway_data();
    void leavesOutWhatStartsFarAway();
    void averagesAboutTheMean();
    void samplesThatAreMissingAreNoPartOfARow();
    void rowsKeepTheirCables();
};

namespace {

OvTraceChain chainOf(int rows)
{
    OvTraceChain chain;
    for (int row = 0; row < rows; ++row)
        chain.rows.push_back(row);
    chain.steps.assign(chain.rows.size(), 1.0);
    return chain;
}

} // namespace

void tst_OvTraceGrid::keepsTime_data()
{
    QTest::addColumn<int>("every");
    QTest::addColumn<float>("delay");
    QTest::newRow("every sample") << 1 << 0.0F;
    QTest::newRow("averages of three") << 3 << 0.0F;
    QTest::newRow("delays that differ") << 1 << 13.0F;
    QTest::newRow("both") << 2 << 7.0F;
}

void tst_OvTraceGrid::keepsTime()
{
    QFETCH(int, every);
    QFETCH(float, delay);
    SyntheticGather synthetic(4);
    synthetic.gather.headers[2].delayMs = delay;
    const OvTraceChain chain = OvTraceChain::of(synthetic.gather);
    OvTraceGrid grid;
    grid.load(synthetic.gather, chain, every, 0.0);
    QCOMPARE(grid.rows(), 4);
    QCOMPARE(grid.stepMs(), 2.0 * every);
    for (int row = 0; row < 4; ++row) {
        // A point is the mean of the samples about its time.
        const int point = grid.first(row) + 60 / every;
        const double sample = synthetic.gather.sampleAt(row, grid.timeMs(row, point));
        const int from = static_cast<int>(std::lround(sample - 0.5 * (every - 1)));
        double mean = 0.0;
        double whole = 0.0;
        for (int i = 0; i < 400; ++i)
            whole += static_cast<double>(synthetic.gather.trace(row)[i]) / 400.0;
        for (int i = 0; i < every; ++i)
            mean += static_cast<double>(synthetic.gather.trace(row)[from + i]) / every;
        QVERIFY(std::abs(static_cast<double>(grid.row(row)[point]) - mean + whole) < 2e-3);
        QVERIFY(std::abs(grid.pointAt(row, grid.timeMs(row, 12.25)) - 12.25) < 1e-9);
    }
    grid.load(synthetic.gather, chain, every, 100.0);
    QCOMPARE(grid.points(), 50 / every);
}

void tst_OvTraceGrid::oneClockForDelaysThatDiffer()
{
    SyntheticGather made(2, 50);
    made.gather.headers[0].delayMs = -20.0F;
    made.gather.headers[1].delayMs = -11.0F;
    OvTraceGrid grid;
    grid.load(made.gather, chainOf(2), 1, 0.0);
    QCOMPARE(grid.points(), 54);
    QCOMPARE(grid.first(0), 0);
    QCOMPARE(grid.first(1), 5); // 9 ms are four and a half samples
    QCOMPARE(grid.timeMs(1, grid.first(1)), -11.0);
    QCOMPARE(grid.pointAt(0, 0.0), 10.0);
    QCOMPARE(grid.pointAt(1, -11.0 + 2.0 * 7), 12.0);
}

void tst_OvTraceGrid::leavesOutWhatStartsFarAway_data()
{
    QTest::addColumn<float>("delayMs");
    QTest::newRow("later") << 3.0e7F;
    QTest::newRow("earlier") << -3.0e7F;
}

void tst_OvTraceGrid::leavesOutWhatStartsFarAway()
{
    QFETCH(float, delayMs);
    SyntheticGather made(5, 50);
    made.gather.headers[3].delayMs = delayMs;
    const OvTraceChain chain = OvTraceChain::of(made.gather);
    OvTraceGrid grid;
    grid.load(made.gather, chain, 1, 0.0);
    QVERIFY2(grid.points() <= 3 * 50, qPrintable(QString::number(grid.points())));
    for (int row = 0; row < grid.rows(); ++row) {
        const bool isFar = chain.rows[static_cast<std::size_t>(row)] == 3;
        QCOMPARE(grid.last(row) - grid.first(row), isFar ? 0 : 50);
        QVERIFY(isFar || std::abs(grid.timeMs(row, grid.first(row))) < 1e-6);
    }
}

void tst_OvTraceGrid::averagesAboutTheMean()
{
    SyntheticGather made(1, 8);
    const float samples[] = {1, 3, 5, 7, 1, 3, 5, 7};
    std::copy(samples, samples + 8, made.gather.trace(0));
    OvTraceGrid grid;
    grid.load(made.gather, chainOf(1), 2, 0.0);
    QCOMPARE(grid.points(), 4);
    QCOMPARE(grid.row(0)[0], -2.0F);
    QCOMPARE(grid.row(0)[3], 2.0F);
    QCOMPARE(grid.largest(0), 2.0F);
    // Between the two samples that it averages.
    QCOMPARE(grid.timeMs(0, 0.0), 1.0);
}

void tst_OvTraceGrid::samplesThatAreMissingAreNoPartOfARow()
{
    SyntheticGather made(2, 40);
    std::fill_n(made.gather.trace(0), 40, 6.0F);
    std::fill_n(made.gather.trace(1), 40, 6.0F);
    made.gather.trace(1)[3] = 0.0F; // a sample like any other
    std::fill(made.gather.trace(1) + 25, made.gather.trace(1) + 40, 0.0F);
    QCOMPARE(OvTraceGrid::lengthOf(made.gather, 0), 40);
    QCOMPARE(OvTraceGrid::lengthOf(made.gather, 1), 25);
    OvTraceGrid grid;
    grid.load(made.gather, chainOf(2), 1, 0.0);
    QCOMPARE(grid.last(0), 40);
    QCOMPARE(grid.last(1), 25);
    QVERIFY(std::abs(grid.row(1)[24] - 0.24F) < 1e-6F);
    QCOMPARE(grid.row(1)[25], 0.0F);
    // A grid that held other traces before is no different.
    std::fill_n(made.gather.trace(0), 10, -6.0F);
    made.gather.headers[0].delayMs = 10.0F;
    OvTraceGrid other;
    other.load(made.gather, chainOf(2), 1, 0.0);
    grid.load(SyntheticGather(2, 45).gather, chainOf(2), 1, 0.0);
    grid.load(made.gather, chainOf(2), 1, 0.0);
    OvTraceGrid filtered;
    filtered.takeFiltered(grid, {1.0F, -0.5F});
    const std::vector<float> once(filtered.row(0), filtered.row(0) + 2 * filtered.points());
    OvTraceGrid loud;
    loud.load(SyntheticGather(2, 60).gather, chainOf(2), 1, 0.0);
    filtered.takeFiltered(loud, {1.0F});
    filtered.takeFiltered(grid, {1.0F, -0.5F});
    for (int row = 0; row < 2; ++row) {
        for (int i = 0; i < grid.points(); ++i) {
            QCOMPARE(grid.row(row)[i], other.row(row)[i]);
            QCOMPARE(filtered.row(row)[i], once[static_cast<std::size_t>(row * grid.points() + i)]);
        }
    }
    made.silence(1);
    QCOMPARE(OvTraceGrid::lengthOf(made.gather, 1), 0);
}

void tst_OvTraceGrid::rowsKeepTheirCables()
{
    const SyntheticGather made(4, 50);
    OvTraceChain chain = chainOf(4);
    chain.cables = {0, 0, 1, 1};
    OvTraceGrid grid;
    grid.load(made.gather, chain, 1, 0.0);
    QCOMPARE(grid.cables(), chain.cables);
    OvTraceGrid filtered;
    filtered.takeFiltered(grid, {1.0F, -0.5F});
    QCOMPARE(filtered.cables(), chain.cables);
    grid.load(made.gather, chainOf(4), 1, 0.0);
    QVERIFY(grid.cables().empty());
}

QTEST_GUILESS_MAIN(tst_OvTraceGrid)
#include "tst_OvTraceGrid.moc"

#include "OvSeismic/picking/OvOnsetGuide.h"

#include "OvSeismic/dsp/OvFir.h"
#include "OvSeismic/dsp/OvRank.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "SyntheticGather.h"

#include <QtTest>

#include <cmath>

/// The course of arrivals whose times are known, in noise of known size.
class tst_OvOnsetGuide : public QObject
{
    Q_OBJECT

private slots:
    void courseOfAKnownGather_data();
    void courseOfAKnownGather();
    void periodOfAKnownWavelet_data();
    void periodOfAKnownWavelet();
    void noiseOfKnownSize_data();
    void noiseOfKnownSize();
    void takesHumOut();
    void loudSlowRollDoesNotSetThePeriod();
    void scoutedPeriodHelpsAgainstSwell();
    void sharpApexOfASplitSpread();
    void fewRows_data();
    void fewRows();
    void rowsOfZeros();
    void stopsWhenCancelled();
    void keepsNothingFromTheLastGather();
};

namespace {

constexpr double periodPoints = 20.0; // 25 Hz at 2 ms

struct Setup
{
    SyntheticGather synthetic;
    OvTraceChain chain;
    OvTraceGrid grid;
    OvOnsetGuide guide;

    explicit Setup(double noise, int traces = 60)
        : synthetic(traces)
    {
        synthetic.addNoise(noise);
        load();
    }

    void load()
    {
        chain = OvTraceChain::of(synthetic.gather);
        grid.load(synthetic.gather, chain, 1, 0.0);
    }

    bool find() { return guide.find(grid, chain, {}); }

    double error(int link) const
    {
        const auto at = static_cast<std::size_t>(link);
        const auto row = static_cast<std::size_t>(chain.rows[at]);
        return guide.times()[at] - grid.pointAt(link, synthetic.onsetsMs[row]);
    }

    // Rows whose course lies no farther than so many points from the arrival.
    int within(double tolerance) const
    {
        int count = 0;
        for (int link = 0; link < grid.rows(); ++link)
            count += std::abs(error(link)) <= tolerance ? 1 : 0;
        return count;
    }
};

} // namespace

void tst_OvOnsetGuide::courseOfAKnownGather_data()
{
    QTest::addColumn<double>("noise");
    QTest::addColumn<int>("least");
    QTest::newRow("without noise") << 0.0 << 60;
    QTest::newRow("2 %") << 0.02 << 60;
    QTest::newRow("10 %") << 0.1 << 58;
    QTest::newRow("25 %") << 0.25 << 54;
}

void tst_OvOnsetGuide::courseOfAKnownGather()
{
    QFETCH(double, noise);
    QFETCH(int, least);
    Setup setup(noise);
    QVERIFY(setup.find());
    QCOMPARE(setup.guide.times().size(), std::size_t(60));
    const int good = setup.within(periodPoints / 6.0);
    QVERIFY2(good >= least, qPrintable(QString::number(good)));
}

void tst_OvOnsetGuide::periodOfAKnownWavelet_data()
{
    QTest::addColumn<double>("frequencyHz");
    QTest::newRow("25 Hz") << 25.0;
    QTest::newRow("15 Hz") << 15.0;
    QTest::newRow("40 Hz") << 40.0;
}

void tst_OvOnsetGuide::periodOfAKnownWavelet()
{
    QFETCH(double, frequencyHz);
    Setup setup(0.0);
    for (int row = 0; row < 60; ++row) {
        setup.synthetic.silence(row);
        setup.synthetic.add(row, setup.synthetic.onsetsMs[static_cast<std::size_t>(row)], 1.0,
                            frequencyHz);
    }
    setup.synthetic.addNoise(0.02);
    setup.load();
    const double truth = 500.0 / frequencyHz;
    QVERIFY(setup.find());
    QVERIFY2(std::abs(setup.guide.period() - truth) < 0.2 * truth,
             qPrintable(QString::number(setup.guide.period())));
    const double scouted = setup.guide.scout(setup.grid, setup.chain, nullptr);
    QVERIFY2(std::abs(scouted - truth) < 0.3 * truth, qPrintable(QString::number(scouted)));
}

void tst_OvOnsetGuide::noiseOfKnownSize_data()
{
    QTest::addColumn<double>("rms");
    QTest::newRow("2 %") << 0.02;
    QTest::newRow("10 %") << 0.1;
    QTest::newRow("25 %") << 0.25;
}

// White noise behind a filter is its RMS times the root of the sum of the squared taps.
void tst_OvOnsetGuide::noiseOfKnownSize()
{
    QFETCH(double, rms);
    Setup setup(rms);
    QVERIFY(setup.find());
    const int half = std::max(static_cast<int>(std::lround(setup.guide.period() / 6.0)), 1);
    const std::vector<float> taps = OvFir::joined(setup.guide.whitener(), OvFir::triangle(half));
    double squares = 0.0;
    for (const float tap : taps)
        squares += static_cast<double>(tap) * static_cast<double>(tap);
    std::vector<double> shares;
    int near = 0;
    for (int row = 20; row < 60; ++row) {
        const double share =
            static_cast<double>(setup.guide.noise(row)) / (rms * std::sqrt(squares));
        near += std::abs(share - 1.0) < 0.15 ? 1 : 0;
        shares.push_back(share);
    }
    const double usual = OvRank::median(shares);
    QVERIFY2(std::abs(usual - 1.0) < 0.1, qPrintable(QString::number(usual)));
    QVERIFY2(near >= 20, qPrintable(QString::number(near)));
}

void tst_OvOnsetGuide::takesHumOut()
{
    Setup plain(0.02);
    QVERIFY(plain.find());
    QCOMPARE(plain.guide.settle(), 0);
    Setup setup(0.02);
    for (int row = 0; row < 60; ++row) {
        for (int i = 0; i < setup.synthetic.gather.sampleCount; ++i)
            setup.synthetic.gather.trace(row)[i] +=
                static_cast<float>(0.5 * std::sin(0.628318 * i + row));
    }
    setup.load();
    QVERIFY(setup.find());
    // The filter is strong, and what is left of an RMS of 0.35 is little.
    QVERIFY(setup.guide.settle() > static_cast<int>(setup.guide.whitener().size()));
    for (int row = 0; row < 60; ++row)
        QVERIFY2(setup.guide.noise(row) < 0.1F, qPrintable(QString::number(row)));
    const int good = setup.within(periodPoints / 4.0);
    QVERIFY2(good >= 57, qPrintable(QString::number(good)));
}

// Beside the shot a direct wave of 40 ms a trace, farther out a refracted one of 5 ms a trace.
// Most of the energy is ground roll of four times the amplitude and a quarter of the frequency.
void tst_OvOnsetGuide::loudSlowRollDoesNotSetThePeriod()
{
    Setup setup(0.0);
    for (int row = 0; row < 60; ++row) {
        const double offset = static_cast<double>(
            setup.synthetic.gather.headers[static_cast<std::size_t>(row)].offset);
        for (const double velocity : {1.6, 1.5, 1.4}) // m/ms
            setup.synthetic.add(row, 60.0 + offset / velocity, 4.0, 25.0 / 4.0);
    }
    setup.synthetic.addNoise(0.3);
    setup.load();
    QVERIFY(setup.find());
    const int good = setup.within(periodPoints / 3.0);
    QVERIFY2(good >= 54, qPrintable(QString::number(good)));
    QVERIFY2(setup.guide.period() < 1.3 * periodPoints,
             qPrintable(QString::number(setup.guide.period())));
}

// Noise of many hundred milliseconds a cycle shows itself in long stretches only.
void tst_OvOnsetGuide::scoutedPeriodHelpsAgainstSwell()
{
    Setup setup(0.15);
    std::mt19937 engine(5);
    std::uniform_real_distribution<double> phase(0.0, 6.283185307);
    for (int row = 0; row < 60; ++row) {
        float* trace = setup.synthetic.gather.trace(row);
        for (const double frequencyHz : {2.5, 3.5, 5.0}) {
            const double start = phase(engine);
            for (int i = 0; i < setup.synthetic.gather.sampleCount; ++i)
                trace[i] += static_cast<float>(
                    2.0 * std::sin(6.283185307 * frequencyHz * 0.002 * i + start));
        }
    }
    setup.load();
    const double scouted = setup.guide.scout(setup.grid, setup.chain, nullptr);
    QVERIFY(setup.guide.find(setup.grid, setup.chain, {}, scouted));
    const int good = setup.within(periodPoints / 3.0);
    QVERIFY(setup.find());
    const int without = setup.within(periodPoints / 3.0);
    QVERIFY2(good >= 50 && good > without,
             qPrintable(QStringLiteral("%1, %2").arg(good).arg(without)));
}

void tst_OvOnsetGuide::sharpApexOfASplitSpread()
{
    Setup setup(0.0, 61);
    for (int row = 0; row < 61; ++row) {
        const auto at = static_cast<std::size_t>(row);
        const double away = std::abs(row - 30);
        setup.synthetic.gather.headers[at].offset = 10.0F * static_cast<float>(row - 30);
        setup.synthetic.silence(row);
        setup.synthetic.onsetsMs[at] = 60.0 + std::min(40.0 * away, 120.0 + 5.0 * away);
        setup.synthetic.add(row, setup.synthetic.onsetsMs[at], 1.0, 25.0);
    }
    setup.synthetic.addNoise(0.05);
    setup.load();
    QVERIFY(setup.find());
    QCOMPARE(setup.chain.rows[30], 30);
    QVERIFY(std::abs(setup.error(30)) <= periodPoints / 6.0);
    // Where the one wave takes over from the other the course cuts the corner.
    for (int row = 25; row <= 35; ++row)
        QVERIFY2(std::abs(setup.error(row)) <= periodPoints / 2.0,
                 qPrintable(QStringLiteral("%1 off at the row %2").arg(setup.error(row)).arg(row)));
    const int good = setup.within(periodPoints / 6.0);
    QVERIFY2(good >= 51, qPrintable(QString::number(good)));
}

void tst_OvOnsetGuide::fewRows_data()
{
    QTest::addColumn<int>("traces");
    QTest::newRow("one") << 1;
    QTest::newRow("two") << 2;
}

void tst_OvOnsetGuide::fewRows()
{
    QFETCH(int, traces);
    Setup setup(0.0, traces);
    for (int row = 0; row < traces; ++row) {
        const auto at = static_cast<std::size_t>(row);
        setup.synthetic.silence(row);
        setup.synthetic.onsetsMs[at] += 300.0;
        setup.synthetic.add(row, setup.synthetic.onsetsMs[at], 1.0, 25.0);
    }
    setup.synthetic.addNoise(0.02);
    setup.load();
    QVERIFY(setup.find());
    QCOMPARE(setup.within(periodPoints / 3.0), traces);
    QVERIFY(setup.guide.period() > 10.0 && setup.guide.period() < 30.0);
}

void tst_OvOnsetGuide::rowsOfZeros()
{
    Setup setup(0.02);
    for (const int row : {0, 17, 18, 59})
        setup.synthetic.silence(row);
    // The chain leaves silent rows out: the grid has them all the same.
    setup.grid.load(setup.synthetic.gather, setup.chain, 1, 0.0);
    QVERIFY(setup.find());
    QVERIFY(setup.within(periodPoints / 6.0) >= 56);
    for (int row = 0; row < 60; ++row) {
        const bool isSilent = setup.grid.largest(row) == 0.0F;
        QVERIFY(std::isfinite(setup.guide.noise(row)));
        QVERIFY(isSilent || setup.guide.noise(row) > 0.0F);
    }
    for (int row = 0; row < 60; ++row)
        setup.synthetic.silence(row);
    setup.grid.load(setup.synthetic.gather, setup.chain, 1, 0.0);
    QVERIFY(setup.find());
    QCOMPARE(setup.guide.times().size(), std::size_t(60));
    QVERIFY(std::isfinite(setup.guide.period()) && setup.guide.period() > 0.0);
    for (int row = 0; row < 60; ++row)
        QCOMPARE(setup.guide.noise(row), 0.0F);
}

void tst_OvOnsetGuide::stopsWhenCancelled()
{
    Setup setup(0.05);
    const std::atomic<bool> cancel{true};
    OvOnsetLimits limits;
    limits.cancel = &cancel;
    QVERIFY(!setup.guide.find(setup.grid, setup.chain, limits));
    QVERIFY(setup.find());
    QVERIFY(setup.within(periodPoints / 6.0) >= 58);
}

void tst_OvOnsetGuide::keepsNothingFromTheLastGather()
{
    Setup small(0.05, 30);
    QVERIFY(small.find());
    Setup large(0.2);
    OvOnsetGuide used;
    QVERIFY(used.find(large.grid, large.chain, {}));
    QVERIFY(used.find(small.grid, small.chain, {}));
    QCOMPARE(used.times(), small.guide.times());
    QCOMPARE(used.period(), small.guide.period());
}

QTEST_GUILESS_MAIN(tst_OvOnsetGuide)
#include "tst_OvOnsetGuide.moc"

#include "OvSeismic/picking/OvOnsetSearch.h"

#include "OvSeismic/picking/OvPickParameters.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"

#include "SyntheticGather.h"

#include <QtTest>

using OvFirstSwing::Sign;

/// Onsets of waves with straight flanks, which are known exactly, between the samples, too.
class tst_OvOnsetSearch : public QObject
{
    Q_OBJECT

private slots:
    void onsetsBetweenSamples_data();
    void onsetsBetweenSamples();
    void ratioOfAKnownWave_data();
    void ratioOfAKnownWave();
    void tellsHowFarATraceStrays();
    void takesTheAskedSwing_data();
    void takesTheAskedSwing();
    void signOfTheClearSwings_data();
    void signOfTheClearSwings();
    void noisySwingsDoNotOverrule();
    void looksAgainWhereNeighboursPoint();
    void keepsAnArrivalThatIsReallyLate();
    void findsNothingOnASilentTrace();
    void stopsWhenCancelled();
};

namespace {

constexpr double periodMs = 40.0;
constexpr OvOnsetSearch::Scale scale{periodMs, 0.6 * periodMs};

// Silent traces of 2 ms a sample on a grid, and times that the search is led by.
struct Line
{
    SyntheticGather made;
    OvTraceChain chain;
    OvTraceGrid grid;
    std::vector<double> guide;

    explicit Line(int traces)
        : made(traces, 300)
    {
        for (int row = 0; row < traces; ++row) {
            made.silence(row);
            chain.rows.push_back(row);
            guide.push_back(150.0);
        }
        chain.steps.assign(guide.size(), 1.0);
    }

    // Half a period up or down and the other half back, a triangle each, from a time on.
    void addWave(int row, double onsetMs, double first, double second)
    {
        const auto triangle = [](double ms) { return std::max(1.0 - std::abs(ms) / 10.0, 0.0); };
        for (int i = 0; i < made.gather.sampleCount; ++i) {
            const double ms = made.gather.timeMs(row, i) - onsetMs;
            made.gather.trace(row)[i] +=
                static_cast<float>(first * triangle(ms - 10.0) + second * triangle(ms - 30.0));
        }
    }

    // Up and down from sample to sample, so that its RMS is exact over any window.
    void addFlutter(int row, float rms)
    {
        for (int i = 0; i < made.gather.sampleCount; ++i)
            made.gather.trace(row)[i] += i % 2 == 0 ? rms : -rms;
    }

    std::vector<OvOnsetSearch::Arrival> find(Sign sign, const std::atomic<bool>* cancel = nullptr)
    {
        grid.load(made.gather, chain, 1, 0.0);
        return OvOnsetSearch::find(grid, scale, guide, sign, cancel);
    }

    Sign preferred(OvPickParameters::Polarity polarity, const std::atomic<bool>* cancel = nullptr)
    {
        grid.load(made.gather, chain, 1, 0.0);
        OvPickParameters parameters;
        parameters.polarity = polarity;
        return OvOnsetSearch::preferredSign(grid, scale, guide, parameters, cancel);
    }
};

bool isNear(double value, double expected, double tolerance)
{
    return std::abs(value - expected) <= tolerance;
}

QByteArray said(int row, double value)
{
    return "row " + QByteArray::number(row) + ": " + QByteArray::number(value);
}

} // namespace

void tst_OvOnsetSearch::onsetsBetweenSamples_data()
{
    QTest::addColumn<double>("height");
    QTest::newRow("upwards") << 1.0;
    QTest::newRow("downwards, large") << -1000.0;
}

void tst_OvOnsetSearch::onsetsBetweenSamples()
{
    QFETCH(double, height);
    constexpr int traces = 16;
    Line line(traces);
    std::vector<double> onsets;
    for (int row = 0; row < traces; ++row) {
        // Every tenth of a sample; the guide is up to 4 ms off.
        onsets.push_back(120.0 + 5.2 * row);
        line.addWave(row, onsets.back(), height, -height);
        line.guide[static_cast<std::size_t>(row)] = onsets.back() + 4.0 * (row % 3 - 1);
    }
    const auto arrivals = line.find(height > 0.0 ? Sign::Positive : Sign::Negative);
    QCOMPARE(static_cast<int>(arrivals.size()), traces);
    for (int row = 0; row < traces; ++row) {
        const auto at = static_cast<std::size_t>(row);
        QVERIFY2(isNear(arrivals[at].timeMs, onsets[at], 0.01),
                 said(row, arrivals[at].timeMs - onsets[at]).constData());
    }
}

void tst_OvOnsetSearch::ratioOfAKnownWave_data()
{
    QTest::addColumn<double>("onsetMs");
    QTest::newRow("two periods ahead of it") << 160.0;
    // There the quietest quarter of the trace stands for what the trace has not recorded.
    QTest::newRow("at the very beginning") << 12.0;
}

void tst_OvOnsetSearch::ratioOfAKnownWave()
{
    QFETCH(double, onsetMs);
    constexpr double noise = 0.01;
    Line line(9);
    for (int row = 0; row < 9; ++row) {
        line.addWave(row, onsetMs, 1.0, -1.0);
        line.addFlutter(row, static_cast<float>(noise));
        line.guide[static_cast<std::size_t>(row)] = onsetMs;
    }
    const auto arrivals = line.find(Sign::Positive);
    QCOMPARE(static_cast<int>(arrivals.size()), 9);
    // Over a whole period triangles have a mean square of a third.
    const double expected = std::sqrt(1.0 / 3.0 + noise * noise) / noise;
    for (int row = 0; row < 9; ++row) {
        const auto& arrival = arrivals[static_cast<std::size_t>(row)];
        QVERIFY2(isNear(arrival.timeMs, onsetMs, 0.5), said(row, arrival.timeMs).constData());
        QVERIFY2(isNear(arrival.ratio, expected, 0.04 * expected),
                 said(row, arrival.ratio).constData());
    }
}

void tst_OvOnsetSearch::tellsHowFarATraceStrays()
{
    Line line(15);
    for (int row = 0; row < 15; ++row)
        line.addWave(row, row == 7 ? 156.5 : 150.0, 1.0, -1.0);
    const auto arrivals = line.find(Sign::Positive);
    QCOMPARE(static_cast<int>(arrivals.size()), 15);
    for (int row = 0; row < 15; ++row) {
        const auto& arrival = arrivals[static_cast<std::size_t>(row)];
        QVERIFY(isNear(arrival.timeMs, row == 7 ? 156.5 : 150.0, 0.01));
        QVERIFY2(isNear(arrival.strayMs, row == 7 ? 6.5 : 0.0, 0.01),
                 said(row, arrival.strayMs).constData());
    }
}

void tst_OvOnsetSearch::takesTheAskedSwing_data()
{
    QTest::addColumn<int>("sign");
    QTest::addColumn<double>("onsetMs");
    QTest::newRow("downwards") << static_cast<int>(Sign::Negative) << 141.0;
    QTest::newRow("upwards") << static_cast<int>(Sign::Positive) << 161.0;
}

// A swing down and one up, twice as high, right behind it.
void tst_OvOnsetSearch::takesTheAskedSwing()
{
    QFETCH(int, sign);
    QFETCH(double, onsetMs);
    Line line(9);
    for (int row = 0; row < 9; ++row)
        line.addWave(row, 141.0, -0.5, 1.0);
    const auto arrivals = line.find(static_cast<Sign>(sign));
    QCOMPARE(static_cast<int>(arrivals.size()), 9);
    for (int row = 0; row < 9; ++row) {
        const double found = arrivals[static_cast<std::size_t>(row)].timeMs;
        QVERIFY2(isNear(found, onsetMs, 0.01), said(row, found).constData());
    }
}

void tst_OvOnsetSearch::signOfTheClearSwings_data()
{
    QTest::addColumn<int>("down");
    QTest::addColumn<int>("up");
    QTest::addColumn<int>("askedUp");
    QTest::addColumn<int>("askedDown");
    const int up = static_cast<int>(Sign::Positive);
    const int down = static_cast<int>(Sign::Negative);
    // Of 24 traces. The other sign has to be that of a fifth more traces.
    QTest::newRow("all down") << 24 << 0 << down << down;
    QTest::newRow("all up") << 0 << 24 << up << up;
    QTest::newRow("even") << 12 << 12 << up << down;
    QTest::newRow("a few more down") << 13 << 11 << up << down;
    QTest::newRow("a fifth more down") << 14 << 10 << down << down;
    QTest::newRow("a fifth more up") << 10 << 14 << up << up;
    // At least an eighth of the traces has to be clear.
    QTest::newRow("an eighth is clear") << 3 << 0 << down << down;
    QTest::newRow("fewer are clear") << 2 << 0 << up << down;
    QTest::newRow("none is") << 0 << 0 << up << down;
}

void tst_OvOnsetSearch::signOfTheClearSwings()
{
    QFETCH(int, down);
    QFETCH(int, up);
    QFETCH(int, askedUp);
    QFETCH(int, askedDown);
    Line line(24);
    for (int row = 0; row < down + up; ++row)
        line.addWave(row, 150.0, row < down ? -1.0 : 1.0, row < down ? 1.0 : -1.0);
    using Polarity = OvPickParameters::Polarity;
    QCOMPARE(static_cast<int>(line.preferred(Polarity::Positive)), askedUp);
    QCOMPARE(static_cast<int>(line.preferred(Polarity::Negative)), askedDown);
}

// Clear is what is twelve times the noise.
void tst_OvOnsetSearch::noisySwingsDoNotOverrule()
{
    const auto preferred = [](float noise) {
        Line line(24);
        for (int row = 0; row < 24; ++row) {
            line.addWave(row, 150.0, -1.0, 1.0);
            line.addFlutter(row, noise);
        }
        return static_cast<int>(line.preferred(OvPickParameters::Polarity::Positive));
    };
    // The flutter takes its own size off the peak.
    QCOMPARE(preferred(1.0F / 14.0F), static_cast<int>(Sign::Negative));
    QCOMPARE(preferred(1.0F / 11.0F), static_cast<int>(Sign::Positive));
}

// A crack ahead of the arrival is the first swing of its trace.
void tst_OvOnsetSearch::looksAgainWhereNeighboursPoint()
{
    const auto findWith = [](int cracked) {
        Line line(15);
        for (int row = 0; row < 15; ++row) {
            line.addWave(row, 150.0, 1.0, -1.0);
            if (row < 7 || row >= 7 + cracked)
                continue;
            line.made.gather.trace(row)[65] = 1.0F;
            line.made.gather.trace(row)[66] = -1.0F;
        }
        return line.find(Sign::Positive);
    };
    auto arrivals = findWith(1);
    QCOMPARE(static_cast<int>(arrivals.size()), 15);
    for (int row = 0; row < 15; ++row) {
        const auto& arrival = arrivals[static_cast<std::size_t>(row)];
        QVERIFY2(isNear(arrival.timeMs, 150.0, 0.01), said(row, arrival.timeMs).constData());
        QVERIFY(isNear(arrival.strayMs, 0.0, 0.01));
    }
    // Where all traces have it, it is no crack.
    arrivals = findWith(8);
    QCOMPARE(static_cast<int>(arrivals.size()), 15);
    QVERIFY2(isNear(arrivals[14].timeMs, 128.0, 0.01), said(14, arrivals[14].timeMs).constData());
}

void tst_OvOnsetSearch::keepsAnArrivalThatIsReallyLate()
{
    Line line(15);
    for (int row = 0; row < 15; ++row)
        line.addWave(row, row == 4 ? 168.0 : 150.0, 1.0, -1.0);
    const auto arrivals = line.find(Sign::Positive);
    QCOMPARE(static_cast<int>(arrivals.size()), 15);
    for (int row = 0; row < 15; ++row) {
        const auto& arrival = arrivals[static_cast<std::size_t>(row)];
        QVERIFY2(isNear(arrival.timeMs, row == 4 ? 168.0 : 150.0, 0.01),
                 said(row, arrival.timeMs).constData());
        QVERIFY(isNear(arrival.strayMs, row == 4 ? 18.0 : 0.0, 0.01));
    }
}

void tst_OvOnsetSearch::findsNothingOnASilentTrace()
{
    Line line(9);
    for (int row = 0; row < 9; ++row) {
        if (row != 3)
            line.addWave(row, 153.0, 1.0, -1.0);
    }
    const auto arrivals = line.find(Sign::Positive);
    QCOMPARE(static_cast<int>(arrivals.size()), 9);
    for (int row = 0; row < 9; ++row) {
        const auto& arrival = arrivals[static_cast<std::size_t>(row)];
        if (row == 3) {
            QVERIFY(std::isnan(arrival.timeMs));
            QCOMPARE(arrival.ratio, 0.0);
        } else {
            QVERIFY(isNear(arrival.timeMs, 153.0, 0.01));
            QVERIFY(isNear(arrival.strayMs, 0.0, 0.01));
        }
    }
}

void tst_OvOnsetSearch::stopsWhenCancelled()
{
    Line line(9);
    for (int row = 0; row < 9; ++row)
        line.addWave(row, 150.0, -1.0, 1.0);
    std::atomic<bool> cancel{false};
    QCOMPARE(static_cast<int>(line.find(Sign::Negative, &cancel).size()), 9);
    QCOMPARE(static_cast<int>(line.preferred(OvPickParameters::Polarity::Positive, &cancel)),
             static_cast<int>(Sign::Negative));
    cancel = true;
    QVERIFY(line.find(Sign::Negative, &cancel).empty());
    // Nothing was looked at, so nothing speaks against the sign that was asked for.
    QCOMPARE(static_cast<int>(line.preferred(OvPickParameters::Polarity::Positive, &cancel)),
             static_cast<int>(Sign::Positive));
}

QTEST_GUILESS_MAIN(tst_OvOnsetSearch)
#include "tst_OvOnsetSearch.moc"

#include "OvSeismic/picking/OvPicker.h"

#include "OvSeismic/picking/OvPickPrior.h"

#include "SyntheticGather.h"

#include <QElapsedTimer>
#include <QtTest>

#include <limits>
#include <thread>

/// The program's picker on gathers with known arrivals.
class tst_OvPicker : public QObject
{
    Q_OBJECT

private slots:
    void picksTheOnset_data();
    void picksTheOnset();
    void timesAreAfterTheShot();
    void weakArrivalAheadOfStrongWaves();
    void holdsOnThroughBadTraces();
    void leavesDeadTracesAlone();
    void reversedTraceKeepsItsOnset();
    void polarityDecidesWhereDataDoNot();
    void bothSidesOfASplitSpread();
    void offsetLimits();
    void unknownOffsetsPassTheLimits();
    void processingLength();
    void amplitudeThreshold();
    void snrThreshold();
    void windowsAreHeeded();
    void misfireHasNoPicks();
    void confidenceFallsWithNoise();
    void smallestGathers_data();
    void smallestGathers();
    void sameFromSeveralThreads();
    void stopsWhenCancelled();
    void auxiliaryTracesHaveNoPicks();
    void phaseIsTheSameOnAllTraces_data();
    void phaseIsTheSameOnAllTraces();
    void leastConfidenceLeavesTracesOut();
    void wrongGuideDoesNotRuinAClearGather();
    void guideHelpsThroughAnotherShot();
    void unsortedChannels();
    void delaysThatDiffer();
    void humAndSwell();

private:
    OvPickResult pick(const OvGather& gather, const OvPickParameters& parameters = {}) const
    {
        OvPickSettings settings;
        settings.parameters = parameters;
        return m_picker->pick(gather, settings, nullptr);
    }
    std::unique_ptr<OvPicker> m_picker = OvPicker::create();
};

namespace {

int pickedCount(const OvPickResult& result)
{
    return static_cast<int>(std::count_if(result.timesMs.begin(), result.timesMs.end(),
                                          [](float time) { return std::isfinite(time); }));
}

int within(const SyntheticGather& synthetic, const OvPickResult& result, double toleranceMs)
{
    int count = 0;
    for (std::size_t i = 0; i < result.timesMs.size(); ++i)
        count +=
            std::abs(static_cast<double>(result.timesMs[i]) - synthetic.onsetsMs[i]) <= toleranceMs;
    return count;
}

bool isPicked(const OvPickResult& result, int row)
{
    return std::isfinite(result.timesMs[static_cast<std::size_t>(row)]);
}

double errorMs(const SyntheticGather& synthetic, const OvPickResult& result, int row)
{
    const auto at = static_cast<std::size_t>(row);
    return static_cast<double>(result.timesMs[at]) - synthetic.onsetsMs[at];
}

} // namespace

void tst_OvPicker::picksTheOnset_data()
{
    QTest::addColumn<double>("noise");
    QTest::addColumn<double>("toleranceMs");
    QTest::addColumn<int>("least");
    QTest::newRow("without noise") << 0.0 << 3.0 << 60;
    QTest::newRow("noise of 1 %") << 0.01 << 3.0 << 60;
    QTest::newRow("noise of 5 %") << 0.05 << 5.0 << 58;
    QTest::newRow("noise of 15 %") << 0.15 << 8.0 << 54;
}

void tst_OvPicker::picksTheOnset()
{
    QFETCH(double, noise);
    QFETCH(double, toleranceMs);
    QFETCH(int, least);
    SyntheticGather synthetic(60);
    synthetic.addNoise(noise);
    const OvPickResult result = pick(synthetic.gather);
    QCOMPARE(result.timesMs.size(), std::size_t(60));
    QCOMPARE(result.confidences.size(), std::size_t(60));
    const int good = within(synthetic, result, toleranceMs);
    QVERIFY2(good >= least, qPrintable(QString::number(good)));
}

void tst_OvPicker::timesAreAfterTheShot()
{
    SyntheticGather late(40, 400, 20.0F);
    late.addNoise(0.01);
    QVERIFY(within(late, pick(late.gather), 3.0) >= 39);
    SyntheticGather early(40, 400, -50.0F);
    early.addNoise(0.01);
    QVERIFY(within(early, pick(early.gather), 3.0) >= 39);
}

void tst_OvPicker::weakArrivalAheadOfStrongWaves()
{
    SyntheticGather synthetic(60);
    for (int row = 0; row < 60; ++row)
        synthetic.add(row, 90.0 + 30.0 * (row + 1) / 3.0, 40.0, 12.0);
    synthetic.addNoise(0.02);
    const int good = within(synthetic, pick(synthetic.gather), 5.0);
    QVERIFY2(good >= 57, qPrintable(QString::number(good)));
}

void tst_OvPicker::holdsOnThroughBadTraces()
{
    SyntheticGather synthetic(60);
    synthetic.addNoise(0.02);
    for (const int row : {7, 20, 21, 40}) {
        for (int i = 0; i < synthetic.gather.sampleCount; ++i)
            synthetic.gather.trace(row)[i] += 2.0F * static_cast<float>(std::sin(0.63 * i));
    }
    synthetic.gather.trace(30)[5] += 300.0F;
    synthetic.gather.trace(50)[200] -= 300.0F;
    const OvPickResult result = pick(synthetic.gather);
    QVERIFY(within(synthetic, result, 5.0) >= 54);
    QVERIFY(std::abs(errorMs(synthetic, result, 30)) < 5.0);
    QVERIFY(std::abs(errorMs(synthetic, result, 50)) < 5.0);
    QVERIFY(std::abs(errorMs(synthetic, result, 8)) < 5.0);
}

void tst_OvPicker::leavesDeadTracesAlone()
{
    SyntheticGather synthetic(30);
    synthetic.addNoise(0.02);
    synthetic.gather.headers[3].traceId = 2;
    synthetic.silence(9);
    synthetic.gather.trace(15)[100] = std::numeric_limits<float>::quiet_NaN();
    const OvPickResult result = pick(synthetic.gather);
    for (const int row : {3, 9, 15}) {
        QVERIFY(!isPicked(result, row));
        QCOMPARE(result.confidences[static_cast<std::size_t>(row)], 0.0F);
    }
    QCOMPARE(within(synthetic, result, 4.0), 27);
}

void tst_OvPicker::reversedTraceKeepsItsOnset()
{
    SyntheticGather synthetic(40);
    synthetic.addNoise(0.01);
    for (const int row : {12, 25})
        synthetic.scale(row, -1.0F);
    const OvPickResult result = pick(synthetic.gather);
    QVERIFY(std::abs(errorMs(synthetic, result, 12)) < 3.0);
    QVERIFY(std::abs(errorMs(synthetic, result, 25)) < 3.0);
}

void tst_OvPicker::polarityDecidesWhereDataDoNot()
{
    // A gather whose first swings are all negative is picked there whatever is asked.
    OvPickParameters negative;
    negative.polarity = OvPickParameters::Polarity::Negative;
    SyntheticGather turned(40);
    turned.addNoise(0.01);
    for (int row = 0; row < 40; ++row)
        turned.scale(row, -1.0F);
    QVERIFY(within(turned, pick(turned.gather), 3.0) >= 39);
    QVERIFY(within(turned, pick(turned.gather, negative), 3.0) >= 39);
    // A weak positive swing ahead of a negative one, in noise that lets nothing be clear: there the
    // asked sign is followed.
    SyntheticGather unclear(40);
    for (int row = 0; row < 40; ++row)
        unclear.scale(row, 0.0F);
    for (int row = 0; row < 40; ++row) {
        const double onset = unclear.onsetsMs[static_cast<std::size_t>(row)];
        for (int i = 0; i < unclear.gather.sampleCount; ++i) {
            const double t = unclear.gather.timeMs(row, i) - onset;
            if (t > 0.0 && t < 20.0)
                unclear.gather.trace(row)[i] += static_cast<float>(0.5 * std::sin(t * 0.15708));
            if (t >= 20.0 && t < 40.0)
                unclear.gather.trace(row)[i] += static_cast<float>(std::sin(t * 0.15708));
        }
    }
    unclear.addNoise(0.1);
    const OvPickResult first = pick(unclear.gather);
    const OvPickResult second = pick(unclear.gather, negative);
    double sum = 0.0;
    for (int row = 0; row < 40; ++row)
        sum += isPicked(first, row) && isPicked(second, row)
                   ? errorMs(unclear, second, row) - errorMs(unclear, first, row)
                   : 0.0;
    QVERIFY2(sum / 40.0 > 10.0, qPrintable(QString::number(sum / 40.0)));
    QVERIFY(within(unclear, first, 6.0) >= 32);
}

void tst_OvPicker::bothSidesOfASplitSpread()
{
    // 20 traces on the far side, at other times than their mirror images.
    SyntheticGather synthetic(60);
    for (int row = 0; row < 20; ++row) {
        const auto at = static_cast<std::size_t>(row);
        synthetic.gather.headers[at].offset = -200.0F + 10.0F * static_cast<float>(row);
        synthetic.silence(row);
        synthetic.onsetsMs[at] =
            35.0 - 0.8 * static_cast<double>(synthetic.gather.headers[at].offset);
        synthetic.add(row, synthetic.onsetsMs[at], 1.0, 25.0);
    }
    for (int row = 20; row < 60; ++row) {
        const auto at = static_cast<std::size_t>(row);
        synthetic.gather.headers[at].offset = 10.0F * static_cast<float>(row - 19);
        synthetic.silence(row);
        synthetic.onsetsMs[at] =
            35.0 + 0.4 * static_cast<double>(synthetic.gather.headers[at].offset);
        synthetic.add(row, synthetic.onsetsMs[at], 1.0, 25.0);
    }
    synthetic.addNoise(0.02);
    const int good = within(synthetic, pick(synthetic.gather), 4.0);
    QVERIFY2(good >= 58, qPrintable(QString::number(good)));
}

void tst_OvPicker::offsetLimits()
{
    SyntheticGather synthetic(30);
    synthetic.addNoise(0.01);
    synthetic.gather.headers[20].offset = -210.0F;
    OvPickParameters parameters;
    parameters.minimumOffsetM = 50;
    parameters.maximumOffsetM = 210;
    const OvPickResult result = pick(synthetic.gather, parameters);
    QVERIFY(!isPicked(result, 3));
    QVERIFY(isPicked(result, 4));
    QVERIFY(isPicked(result, 19));
    QVERIFY(!isPicked(result, 21));
    QCOMPARE(pickedCount(result), 17);
}

void tst_OvPicker::unknownOffsetsPassTheLimits()
{
    SyntheticGather synthetic(30);
    synthetic.addNoise(0.01);
    for (OvTraceHeader& header : synthetic.gather.headers)
        header.offset = std::numeric_limits<float>::quiet_NaN();
    OvPickParameters parameters;
    parameters.minimumOffsetM = 5000;
    QVERIFY(within(synthetic, pick(synthetic.gather, parameters), 4.0) >= 29);
}

void tst_OvPicker::processingLength()
{
    // Arrivals at 35 to 180 ms; only the traces whose arrival lies in the first 100 ms can be
    // right, and no pick lies far behind.
    SyntheticGather synthetic(30);
    synthetic.addNoise(0.01);
    OvPickParameters parameters;
    parameters.processingLengthMs = 100;
    const OvPickResult result = pick(synthetic.gather, parameters);
    for (const float time : result.timesMs)
        QVERIFY(!(time > 130.0F));
    QVERIFY(std::abs(errorMs(synthetic, result, 3)) < 4.0);
    parameters.processingLengthMs = 9999;
    QVERIFY(within(synthetic, pick(synthetic.gather, parameters), 4.0) >= 29);
}

void tst_OvPicker::amplitudeThreshold()
{
    SyntheticGather synthetic(30);
    for (int row = 10; row < 20; ++row)
        synthetic.add(row, 500.0, 10.0, 12.0);
    synthetic.addNoise(0.01);
    OvPickParameters parameters;
    QVERIFY(pickedCount(pick(synthetic.gather, parameters)) >= 29);
    parameters.amplitudeThreshold = 0.5;
    const OvPickResult result = pick(synthetic.gather, parameters);
    for (int row = 10; row < 20; ++row)
        QVERIFY(!isPicked(result, row));
    QVERIFY(isPicked(result, 5) && isPicked(result, 25));
    parameters.amplitudeThreshold = 1.01;
    QCOMPARE(pickedCount(pick(synthetic.gather, parameters)), 0);
}

void tst_OvPicker::snrThreshold()
{
    // Noise of 0.3 on the far half, 0.01 on the near one.
    SyntheticGather loud(30);
    loud.addNoise(0.3);
    SyntheticGather synthetic(30);
    synthetic.addNoise(0.01);
    for (int row = 15; row < 30; ++row)
        std::copy_n(loud.gather.trace(row), 400, synthetic.gather.trace(row));
    OvPickParameters parameters;
    parameters.snrThreshold = 8.0;
    const OvPickResult result = pick(synthetic.gather, parameters);
    for (int row = 15; row < 30; ++row)
        QVERIFY(!isPicked(result, row));
    QVERIFY(pickedCount(result) >= 14);
    parameters.snrThreshold = 9999.0;
    QCOMPARE(pickedCount(pick(synthetic.gather, parameters)), 0);
}

void tst_OvPicker::windowsAreHeeded()
{
    // A forerunner of a third of the size 40 ms ahead: windows as long as the gap hear it as the
    // first arrival; the tuning window decides how far from the guide an onset may lie.
    SyntheticGather synthetic(40);
    synthetic.addNoise(0.02);
    OvPickParameters parameters;
    parameters.quickSearchWindowMs = 60;
    QVERIFY(within(synthetic, pick(synthetic.gather, parameters), 5.0) >= 36);
    parameters.quickSearchWindowMs = 10;
    QVERIFY(within(synthetic, pick(synthetic.gather, parameters), 5.0) >= 36);
    parameters = {};
    parameters.tuningSearchWindowMs = 15;
    QVERIFY(within(synthetic, pick(synthetic.gather, parameters), 5.0) >= 36);
    // A window of 1 ms ties the onset to the guide, which is good to half a period only.
    parameters.tuningSearchWindowMs = 1;
    const OvPickResult tied = pick(synthetic.gather, parameters);
    const OvPickResult free = pick(synthetic.gather);
    QVERIFY(tied.timesMs != free.timesMs);
}

void tst_OvPicker::misfireHasNoPicks()
{
    SyntheticGather synthetic(60);
    for (int row = 0; row < 60; ++row)
        synthetic.silence(row);
    synthetic.addNoise(1.0);
    QCOMPARE(pickedCount(pick(synthetic.gather)), 0);
}

void tst_OvPicker::confidenceFallsWithNoise()
{
    const auto mean = [this](double noise) {
        SyntheticGather synthetic(40);
        synthetic.addNoise(noise);
        const OvPickResult result = pick(synthetic.gather);
        double sum = 0.0;
        for (const float confidence : result.confidences)
            sum += static_cast<double>(confidence);
        return sum / 40.0;
    };
    const double clear = mean(0.01);
    const double noisy = mean(0.5);
    const double bad = mean(1.0);
    QVERIFY(clear > 0.95 && clear <= 1.0);
    QVERIFY(noisy < clear && bad < noisy && bad >= 0.0);
}

void tst_OvPicker::smallestGathers_data()
{
    QTest::addColumn<int>("traces");
    QTest::addColumn<int>("samples");
    for (const int traces : {0, 1, 2, 3}) {
        for (const int samples : {1, 2, 3, 5, 8, 40}) {
            const QString name = QStringLiteral("%1 x %2").arg(traces).arg(samples);
            QTest::newRow(qPrintable(name)) << traces << samples;
        }
    }
}

void tst_OvPicker::smallestGathers()
{
    QFETCH(int, traces);
    QFETCH(int, samples);
    SyntheticGather synthetic(traces, samples);
    synthetic.addNoise(1.0);
    for (const bool hasInterval : {true, false}) {
        synthetic.gather.intervalMs = hasInterval ? 2.0 : 0.0;
        const OvPickResult result = pick(synthetic.gather);
        QCOMPARE(int(result.timesMs.size()), traces);
        QCOMPARE(int(result.confidences.size()), traces);
        for (const float time : result.timesMs)
            QVERIFY(std::isnan(time) ||
                    (time > -20.0F && time < 2.0F * static_cast<float>(samples)));
    }
}

void tst_OvPicker::sameFromSeveralThreads()
{
    SyntheticGather synthetic(30);
    synthetic.addNoise(0.05);
    const OvPickResult alone = pick(synthetic.gather);
    std::vector<OvPickResult> results(4);
    std::vector<std::thread> threads;
    for (OvPickResult& result : results)
        threads.emplace_back([&] { result = pick(synthetic.gather); });
    for (std::thread& thread : threads)
        thread.join();
    const auto same = [](float a, float b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    for (const OvPickResult& result : results)
        QVERIFY(std::equal(alone.timesMs.begin(), alone.timesMs.end(), result.timesMs.begin(),
                           result.timesMs.end(), same));
}

void tst_OvPicker::stopsWhenCancelled()
{
    const SyntheticGather synthetic(600, 3000);
    std::atomic<bool> cancel{true};
    QVERIFY(m_picker->pick(synthetic.gather, {}, &cancel).timesMs.empty());
    cancel = false;
    OvPickResult result;
    std::thread worker([&] { result = m_picker->pick(synthetic.gather, {}, &cancel); });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    QElapsedTimer sinceCancel;
    sinceCancel.start();
    cancel = true;
    worker.join();
    QVERIFY2(sinceCancel.elapsed() < 150, qPrintable(QString::number(sinceCancel.elapsed())));
    QVERIFY(result.timesMs.empty());
}

void tst_OvPicker::auxiliaryTracesHaveNoPicks()
{
    SyntheticGather synthetic(30);
    synthetic.addNoise(0.02);
    synthetic.gather.headers[0].traceId = 6;
    synthetic.gather.headers[29].traceId = 5;
    synthetic.gather.headers[12].traceId = 0;
    const OvPickResult result = pick(synthetic.gather);
    QVERIFY(!isPicked(result, 0) && !isPicked(result, 29));
    QCOMPARE(within(synthetic, result, 4.0), 28);
}

void tst_OvPicker::phaseIsTheSameOnAllTraces_data()
{
    QTest::addColumn<int>("phase");
    QTest::addColumn<double>("afterMs");
    QTest::newRow("peak") << static_cast<int>(OvPickPhase::Peak) << 12.0;
    QTest::newRow("trough") << static_cast<int>(OvPickPhase::Trough) << 30.1;
    QTest::newRow("zero") << static_cast<int>(OvPickPhase::ZeroCrossing) << 20.0;
}

void tst_OvPicker::phaseIsTheSameOnAllTraces()
{
    QFETCH(int, phase);
    QFETCH(double, afterMs);
    SyntheticGather synthetic(40);
    synthetic.addNoise(0.03);
    OvPickSettings settings;
    settings.phase = static_cast<OvPickPhase>(phase);
    OvPickResult result = m_picker->pick(synthetic.gather, settings, nullptr);
    for (float& time : result.timesMs)
        time -= static_cast<float>(afterMs);
    QVERIFY2(within(synthetic, result, 3.0) >= 39,
             qPrintable(QString::number(within(synthetic, result, 3.0))));
}

void tst_OvPicker::leastConfidenceLeavesTracesOut()
{
    SyntheticGather synthetic(60);
    synthetic.addNoise(0.5);
    OvPickSettings settings;
    int last = 60;
    for (const double least : {0.0, 0.5, 0.8, 0.95, 1.0}) {
        settings.minimumConfidence = least;
        const OvPickResult result = m_picker->pick(synthetic.gather, settings, nullptr);
        const int count = pickedCount(result);
        QVERIFY(count <= last);
        last = count;
        for (std::size_t row = 0; row < 60; ++row) {
            if (std::isfinite(result.timesMs[row]))
                QVERIFY(static_cast<double>(result.confidences[row]) >= least - 1e-6);
            else
                QCOMPARE(result.confidences[row], 0.0F);
        }
    }
    settings.minimumConfidence = 0.0;
    QCOMPARE(pickedCount(m_picker->pick(synthetic.gather, settings, nullptr)), 60);
    QVERIFY(last < 60);
}

void tst_OvPicker::wrongGuideDoesNotRuinAClearGather()
{
    SyntheticGather synthetic(60);
    synthetic.addNoise(0.02);
    OvPickSettings settings;
    // The arrival runs at 2000 m/s after 30 ms.
    settings.prior = OvPickPrior::fromVelocity(700.0, 150.0);
    QVERIFY(within(synthetic, m_picker->pick(synthetic.gather, settings, nullptr), 4.0) >= 58);
}

void tst_OvPicker::guideHelpsThroughAnotherShot()
{
    // Waves of a shot behind the far end, three times as large, ahead of the arrival there.
    SyntheticGather synthetic(60);
    for (int row = 0; row < 60; ++row)
        synthetic.add(row, 60.0 + 3.0 * (59 - row), 3.0, 25.0);
    synthetic.addNoise(0.1);
    OvPickSettings settings;
    const int alone = within(synthetic, m_picker->pick(synthetic.gather, settings, nullptr), 6.0);
    settings.prior = OvPickPrior::fromVelocity(2000.0, 30.0);
    const int guided = within(synthetic, m_picker->pick(synthetic.gather, settings, nullptr), 6.0);
    QVERIFY2(guided >= alone, qPrintable(QStringLiteral("%1, %2").arg(alone).arg(guided)));
}

void tst_OvPicker::unsortedChannels()
{
    SyntheticGather synthetic(40);
    synthetic.addNoise(0.1);
    SyntheticGather shuffled = synthetic;
    for (int row = 0; row < 40; ++row) {
        const int from = (row * 17) % 40;
        const auto at = static_cast<std::size_t>(row);
        shuffled.gather.headers[at] = synthetic.gather.headers[static_cast<std::size_t>(from)];
        shuffled.onsetsMs[at] = synthetic.onsetsMs[static_cast<std::size_t>(from)];
        std::copy_n(synthetic.gather.trace(from), 400, shuffled.gather.trace(row));
    }
    const OvPickResult sorted = pick(synthetic.gather);
    const OvPickResult unsorted = pick(shuffled.gather);
    QCOMPARE(within(shuffled, unsorted, 6.0), within(synthetic, sorted, 6.0));
    QVERIFY(within(synthetic, sorted, 6.0) >= 37);
}

void tst_OvPicker::delaysThatDiffer()
{
    SyntheticGather synthetic(40, 400, -30.0F);
    SyntheticGather late(40, 400, -11.0F);
    for (int row = 1; row < 40; row += 2) {
        synthetic.gather.headers[static_cast<std::size_t>(row)].delayMs = -11.0F;
        std::copy_n(late.gather.trace(row), 400, synthetic.gather.trace(row));
    }
    synthetic.addNoise(0.02);
    QVERIFY(within(synthetic, pick(synthetic.gather), 4.0) >= 38);
}

void tst_OvPicker::humAndSwell()
{
    SyntheticGather synthetic(60);
    synthetic.addNoise(0.05);
    for (int row = 0; row < 60; ++row) {
        for (int i = 0; i < 400; ++i)
            synthetic.gather.trace(row)[i] += static_cast<float>(0.7 * std::sin(0.6283 * i + row) +
                                                                 2.0 * std::sin(0.04 * i - row));
    }
    const int good = within(synthetic, pick(synthetic.gather), 6.0);
    QVERIFY2(good >= 48, qPrintable(QString::number(good)));
}

QTEST_GUILESS_MAIN(tst_OvPicker)
#include "tst_OvPicker.moc"

#include "OvSeismic/dsp/OvEnergyStep.h"

#include "OvSeismic/dsp/OvTraceSums.h"

#include <QtTest>

#include <algorithm>
#include <cmath>

class tst_OvEnergyStep : public QObject
{
    Q_OBJECT

private slots:
    void variancesOfAKnownTrace();
    void variancesOutsideTheTrace();
    void activityIsTheLimitedLogarithm();
    void forerunnersAreNoise();
    void pointsWithoutSamples();
    void stepOfAKnownSeries();
    void largestStepIsTheChange();
    void spikesDoNotOutweighAStep();
    void firstOfTwoEqualStepsWins();
};

namespace {

bool near(float value, double expected)
{
    return std::abs(static_cast<double>(value) - expected) < 1e-5;
}

int peakOf(const std::vector<float>& values)
{
    return static_cast<int>(std::max_element(values.begin(), values.end()) - values.begin());
}

std::vector<float> stepsOf(const std::vector<float>& activity, const OvEnergyStep::Windows& windows)
{
    std::vector<float> out(activity.size());
    OvEnergyStep::steps(activity, windows, out.data());
    return out;
}

// `quiet` points of -1 with `active` points of 1 from `from` on.
std::vector<float> burst(int points, int from, int active)
{
    std::vector<float> activity(static_cast<std::size_t>(points), -1.0F);
    std::fill_n(activity.begin() + from, active, 1.0F);
    return activity;
}

} // namespace

void tst_OvEnergyStep::variancesOfAKnownTrace()
{
    // Alternating 0 and 2, then alternating 0 and 6: variances 1 and 9 over pairs.
    std::vector<float> samples(40, 0.0F);
    for (std::size_t i = 1; i < 40; i += 2)
        samples[i] = i < 20 ? 2.0F : 6.0F;
    OvTraceSums trace;
    trace.assign(samples.data(), 40);
    std::vector<float> out;
    // Half windows of 1.5 samples hold four samples at half-sample centres.
    OvEnergyStep::variances(trace, {4.5, 10.0, 3}, 1.5, &out);
    QCOMPARE(out.size(), std::size_t(3));
    QVERIFY(near(out[0], 1.0));
    QVERIFY(near(out[2], 9.0));
}

void tst_OvEnergyStep::variancesOutsideTheTrace()
{
    const std::vector<float> samples{1.0F, 2.0F, 3.0F};
    OvTraceSums trace;
    trace.assign(samples.data(), 3);
    std::vector<float> out;
    OvEnergyStep::variances(trace, {-2.0, 2.0, 4}, 1.0, &out);
    QVERIFY(out[0] < 0.0F);
    QVERIFY(out[1] >= 0.0F);
    QVERIFY(out[2] >= 0.0F);
    QVERIFY(out[3] < 0.0F);
}

void tst_OvEnergyStep::activityIsTheLimitedLogarithm()
{
    OvEnergyStep::Reference reference;
    reference.noise = 2.0;
    reference.limit = 3.0;
    std::vector<float> values{2.0F, 2.0F * static_cast<float>(std::exp(1.0)), 1.0e9F, 0.0F};
    OvEnergyStep::activity(reference, &values);
    QVERIFY(near(values[0], 0.0));
    QVERIFY(near(values[1], 1.0));
    QVERIFY(near(values[2], 3.0));
    QVERIFY(near(values[3], -3.0));
}

void tst_OvEnergyStep::forerunnersAreNoise()
{
    OvEnergyStep::Reference reference;
    reference.noise = 1.0;
    reference.share = 0.1;
    reference.ahead = 2;
    reference.limit = 4.0;
    // 50 stands far above the noise, but not above a tenth of the 1000 two points on.
    std::vector<float> values{1.0F, 50.0F, 50.0F, 50.0F, 1000.0F};
    OvEnergyStep::activity(reference, &values);
    QVERIFY(near(values[1], std::log(10.0)));
    QVERIFY(values[2] < 0.0F);
    QVERIFY(values[3] < 0.0F);
    QVERIFY(near(values[4], std::log(10.0)));
}

void tst_OvEnergyStep::pointsWithoutSamples()
{
    OvEnergyStep::Reference reference;
    reference.noise = 1.0;
    reference.limit = 2.0;
    std::vector<float> values{-1.0F, -1.0F, 1.0F, -1.0F};
    OvEnergyStep::activity(reference, &values);
    QVERIFY(near(values[0], -2.0));
    QVERIFY(near(values[1], -2.0));
    QVERIFY(near(values[2], 0.0));
    QVERIFY(near(values[3], 0.0));
}

void tst_OvEnergyStep::stepOfAKnownSeries()
{
    OvEnergyStep::Windows windows;
    windows.before = 2;
    windows.after = 3;
    const std::vector<float> out = stepsOf({-1.0F, -1.0F, 0.5F, 1.0F, 0.0F, -1.0F}, windows);
    // By hand: mean of three from the point on less mean of the two before it; the last value goes
    // on behind the end.
    QVERIFY(near(out[0], -0.5 - -1.0));
    QVERIFY(near(out[2], 0.5 - -1.0));
    QVERIFY(near(out[3], 0.0 - -0.25));
    QVERIFY(near(out[5], -1.0 - 0.5));
}

void tst_OvEnergyStep::largestStepIsTheChange()
{
    OvEnergyStep::Windows windows;
    windows.before = 8;
    windows.after = 5;
    for (const int change : {0, 3, 17, 40})
        QCOMPARE(peakOf(stepsOf(burst(60, change, 60 - change), windows)), change);
}

void tst_OvEnergyStep::spikesDoNotOutweighAStep()
{
    OvEnergyStep::Windows windows;
    windows.before = 8;
    windows.after = 6;
    std::vector<float> activity = burst(80, 50, 30);
    activity[20] = 1.0F;
    QCOMPARE(peakOf(stepsOf(activity, windows)), 50);
}

void tst_OvEnergyStep::firstOfTwoEqualStepsWins()
{
    std::vector<float> activity = burst(120, 30, 10);
    std::fill_n(activity.begin() + 80, 10, 1.0F);
    OvEnergyStep::Windows windows;
    windows.before = 8;
    windows.after = 6;
    const std::vector<float> even = stepsOf(activity, windows);
    QVERIFY(near(even[30], static_cast<double>(even[80])));
    windows.heardPenalty = 0.5F;
    const std::vector<float> early = stepsOf(activity, windows);
    QVERIFY(near(early[30], static_cast<double>(even[30])));
    QVERIFY(near(early[80], static_cast<double>(even[80]) - 0.5));
}

QTEST_GUILESS_MAIN(tst_OvEnergyStep)
#include "tst_OvEnergyStep.moc"

#include "OvSeismic/picking/OvPickGuide.h"

#include "OvSeismic/picking/OvOnsetSearch.h"
#include "OvSeismic/picking/OvPickParameters.h"
#include "OvSeismic/picking/OvPickPlan.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"
#include "SyntheticGather.h"

#include <QtTest>

/// The guide, and the search for onsets beside it.
class tst_OvPickGuide : public QObject
{
    Q_OBJECT

private slots:
    void runsAlongTheArrival();
    void secondPassHoldsOn();
    void stopsWhenCancelled();
    void onsetsBesideTheGuide();
    void onsetsMeasureTheArrival();
};

namespace {

struct Setup
{
    SyntheticGather synthetic;
    OvTraceChain chain;
    OvPickPlan plan;
    OvTraceGrid grid;

    explicit Setup(double noise)
        : synthetic(50)
    {
        synthetic.addNoise(noise);
        chain = OvTraceChain::of(synthetic.gather);
        plan = OvPickPlan::of(synthetic.gather, chain, 40.0, {});
        grid.load(synthetic.gather, chain, 1, 0.0);
    }

    std::vector<double> guide(const std::vector<double>& previous = {}) const
    {
        return OvPickGuide::find(synthetic.gather, chain, plan, previous, nullptr);
    }

    int near(const std::vector<double>& times, double toleranceMs) const
    {
        int count = 0;
        for (std::size_t i = 0; i < times.size(); ++i)
            count += std::abs(times[i] - synthetic.onsetsMs[i]) <= toleranceMs;
        return count;
    }
};

} // namespace

void tst_OvPickGuide::runsAlongTheArrival()
{
    const Setup setup(0.03);
    const std::vector<double> guide = setup.guide();
    QCOMPARE(guide.size(), std::size_t(50));
    QVERIFY2(setup.near(guide, 20.0) >= 48, qPrintable(QString::number(setup.near(guide, 20.0))));
}

void tst_OvPickGuide::secondPassHoldsOn()
{
    const Setup setup(0.15);
    const std::vector<double> first = setup.guide();
    const std::vector<double> second = setup.guide(first);
    QVERIFY2(setup.near(second, 20.0) >= 47, qPrintable(QString::number(setup.near(second, 20.0))));
    QVERIFY(setup.near(second, 20.0) >= setup.near(first, 20.0));
}

void tst_OvPickGuide::stopsWhenCancelled()
{
    const Setup setup(0.03);
    const std::atomic<bool> cancel{true};
    QVERIFY(
        OvPickGuide::find(setup.synthetic.gather, setup.chain, setup.plan, {}, &cancel).empty());
    QVERIFY(
        OvOnsetSearch::find(setup.grid, setup.plan, setup.synthetic.onsetsMs, {}, &cancel).empty());
}

void tst_OvPickGuide::onsetsBesideTheGuide()
{
    // A guide that is off by a quarter of the period, to and fro.
    const Setup setup(0.02);
    std::vector<double> guide = setup.synthetic.onsetsMs;
    for (std::size_t i = 0; i < guide.size(); ++i)
        guide[i] += i % 2 == 0 ? 10.0 : -10.0;
    const auto arrivals = OvOnsetSearch::find(setup.grid, setup.plan, guide, {}, nullptr);
    QCOMPARE(arrivals.size(), std::size_t(50));
    std::vector<double> times;
    for (const auto& arrival : arrivals)
        times.push_back(arrival.timeMs);
    QVERIFY2(setup.near(times, 4.0) >= 48, qPrintable(QString::number(setup.near(times, 4.0))));
}

void tst_OvPickGuide::onsetsMeasureTheArrival()
{
    const Setup setup(0.05);
    const auto arrivals =
        OvOnsetSearch::find(setup.grid, setup.plan, setup.synthetic.onsetsMs, {}, nullptr);
    double ratio = 0.0;
    for (const auto& arrival : arrivals) {
        ratio += arrival.ratio / 50.0;
        QVERIFY(arrival.amplitude > 0.5 && arrival.amplitude <= 1.0);
        QVERIFY(arrival.strayMs < 15.0);
    }
    // The wavelet's RMS over its first period is 0.4; the noise adds its own.
    QVERIFY2(ratio > 4.0 && ratio < 14.0, qPrintable(QString::number(ratio)));
}

QTEST_GUILESS_MAIN(tst_OvPickGuide)
#include "tst_OvPickGuide.moc"

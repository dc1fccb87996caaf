#include "OvSeismic/picking/OvPickPlan.h"

#include "OvSeismic/picking/OvPickParameters.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "SyntheticGather.h"

#include <QtTest>

class tst_OvPickPlan : public QObject
{
    Q_OBJECT

private slots:
    void coversAllTraces();
    void nothingArrivesBeforeTheShot();
    void chooseScalesFromThePeriod();
    void parametersTakeThePlaceOfTheData();
    void processingLengthEndsTheSearch();
    void neverTooManyPoints();
    void nearestPointStaysOnTheGrid();
    void emptyWithoutTraces();
};

namespace {

OvPickPlan planOf(const OvGather& gather, const OvPickParameters& parameters = {},
                  double periodMs = 40.0)
{
    return OvPickPlan::of(gather, OvTraceChain::of(gather), periodMs, parameters);
}

} // namespace

void tst_OvPickPlan::coversAllTraces()
{
    SyntheticGather synthetic(4);
    synthetic.gather.headers[1].delayMs = 30.0F;
    synthetic.gather.headers[2].delayMs = 10.0F;
    synthetic.gather.headers[3].delayMs = 10.0F;
    const OvPickPlan plan = planOf(synthetic.gather);
    QCOMPARE(plan.startMs, 0.0);
    QVERIFY(std::abs(plan.timeMs(plan.points - 1) - 828.0) < plan.stepMs);
    QCOMPARE(plan.earliest, 0);
}

void tst_OvPickPlan::nothingArrivesBeforeTheShot()
{
    const OvPickPlan plan = planOf(SyntheticGather(4, 400, -50.0F).gather);
    QCOMPARE(plan.startMs, -50.0);
    QVERIFY(plan.timeMs(plan.earliest) <= 0.0);
    QVERIFY(plan.timeMs(plan.earliest) > -plan.stepMs);
}

void tst_OvPickPlan::chooseScalesFromThePeriod()
{
    const OvPickPlan plan = planOf(SyntheticGather(4).gather);
    QCOMPARE(plan.periodMs, 40.0);
    QCOMPARE(plan.stepMs, 4.0);
    QCOMPARE(plan.before, 15);
    QCOMPARE(plan.after, 10);
    QCOMPARE(plan.tuningMs, 24.0);
    // Points lie no closer than samples.
    QCOMPARE(planOf(SyntheticGather(4).gather, {}, 8.0).stepMs, 2.0);
}

void tst_OvPickPlan::parametersTakeThePlaceOfTheData()
{
    OvPickParameters parameters;
    parameters.quickSearchWindowMs = 80;
    parameters.tuningSearchWindowMs = 7;
    parameters.amplitudeThreshold = 0.25;
    const OvPickPlan plan = planOf(SyntheticGather(4).gather, parameters);
    QCOMPARE(plan.before, 20);
    QCOMPARE(plan.after, 20);
    QCOMPARE(plan.tuningMs, 7.0);
    QCOMPARE(plan.leastAmplitude, 0.25);
}

void tst_OvPickPlan::processingLengthEndsTheSearch()
{
    OvPickParameters parameters;
    parameters.processingLengthMs = 100;
    const OvPickPlan plan = planOf(SyntheticGather(4, 400, -20.0F).gather, parameters);
    QVERIFY(plan.timeMs(plan.points - 1) <= 80.0);
    QVERIFY(plan.timeMs(plan.points) > 80.0);
    parameters.processingLengthMs = 9999;
    QCOMPARE(planOf(SyntheticGather(4).gather, parameters).points,
             planOf(SyntheticGather(4).gather).points);
}

void tst_OvPickPlan::neverTooManyPoints()
{
    const OvPickPlan plan = planOf(SyntheticGather(2, 60000).gather, {}, 8.0);
    QVERIFY(plan.points <= 4096);
    QVERIFY(std::abs(plan.timeMs(plan.points - 1) - 119998.0) < plan.stepMs);
}

void tst_OvPickPlan::nearestPointStaysOnTheGrid()
{
    const OvPickPlan plan = planOf(SyntheticGather(4).gather);
    QCOMPARE(plan.nearestPoint(plan.timeMs(17) + 0.4 * plan.stepMs), 17);
    QCOMPARE(plan.nearestPoint(-900.0), 0);
    QCOMPARE(plan.nearestPoint(1.0e6), plan.points - 1);
}

void tst_OvPickPlan::emptyWithoutTraces()
{
    QCOMPARE(planOf(OvGather()).points, 0);
    OvGather timeless = SyntheticGather(3).gather;
    timeless.intervalMs = 0.0;
    QCOMPARE(planOf(timeless).points, 0);
}

QTEST_GUILESS_MAIN(tst_OvPickPlan)
#include "tst_OvPickPlan.moc"

#include "OvSeismic/picking/OvClearCourse.h"

#include "OvSeismic/picking/OvPickCourse.h"
#include "OvSeismic/picking/OvPickParameters.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"
#include "SyntheticGather.h"

#include <QtTest>

#include <cmath>

/// The course that a clear gather has by itself, and the periods that it is measured by.
class tst_OvClearCourse : public QObject
{
    Q_OBJECT

private slots:
    void runsAlongTheArrival();
    void takesThePeriodOfTheArrival();
    void stopsWhenCancelled();
    void periodOfASine();
    void noPeriodOfStillRows();
};

namespace {

struct Setup
{
    SyntheticGather synthetic;
    OvTraceChain chain;
    OvTraceGrid grid;

    explicit Setup(double noise)
        : synthetic(50)
    {
        synthetic.addNoise(noise);
        chain = OvTraceChain::of(synthetic.gather);
        grid.load(synthetic.gather, chain, 1, 0.0);
    }

    OvClearCourse course(const std::atomic<bool>* cancel = nullptr) const
    {
        return OvClearCourse::find(synthetic.gather, chain, grid, {}, cancel);
    }
};

} // namespace

void tst_OvClearCourse::runsAlongTheArrival()
{
    const Setup setup(0.05);
    const OvClearCourse course = setup.course();
    QCOMPARE(course.timesMs.size(), std::size_t(50));
    int near = 0;
    for (std::size_t i = 0; i < course.timesMs.size(); ++i)
        near += std::abs(course.timesMs[i] - setup.synthetic.onsetsMs[i]) <= 15.0;
    QVERIFY2(near >= 48, qPrintable(QString::number(near)));
}

void tst_OvClearCourse::takesThePeriodOfTheArrival()
{
    const OvClearCourse course = Setup(0.02).course();
    QVERIFY2(course.plan.periodMs > 25.0 && course.plan.periodMs < 55.0,
             qPrintable(QString::number(course.plan.periodMs)));
}

void tst_OvClearCourse::stopsWhenCancelled()
{
    const std::atomic<bool> cancel{true};
    QVERIFY(Setup(0.02).course(&cancel).timesMs.empty());
}

void tst_OvClearCourse::periodOfASine()
{
    constexpr double turn = 6.283185307179586;
    constexpr double period = 20.0;
    SyntheticGather synthetic(4);
    const int count = synthetic.gather.sampleCount;
    for (int row = 0; row < 4; ++row) {
        for (int i = 0; i < count; ++i)
            synthetic.gather.trace(row)[i] = static_cast<float>(std::sin(turn * i / period));
    }
    OvTraceGrid grid;
    grid.load(synthetic.gather, OvTraceChain::of(synthetic.gather), 1, 0.0);
    const std::vector<double> starts(4, 30.0);
    QVERIFY(std::abs(OvPickCourse::periodBehind(grid, starts, 200.0) - period) < 1.0);
}

void tst_OvClearCourse::noPeriodOfStillRows()
{
    const Setup setup(0.02);
    // Behind the last point there is nothing to measure.
    const std::vector<double> starts(50, setup.grid.points());
    QCOMPARE(OvPickCourse::periodBehind(setup.grid, starts, 100.0), 0.0);
}

QTEST_GUILESS_MAIN(tst_OvClearCourse)
#include "tst_OvClearCourse.moc"

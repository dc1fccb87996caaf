#include "OvGui/canvas/OvTimeAxis.h"

#include <QtTest>

class tst_OvTimeAxis : public QObject
{
    Q_OBJECT

private slots:
    void stepsAreRound_data()
    {
        QTest::addColumn<double>("pixelsPerMs");
        QTest::addColumn<double>("step");
        QTest::newRow("50 ms fit exactly") << 1.0 << 50.0;
        QTest::newRow("up to the next") << 0.9 << 100.0;
        QTest::newRow("twenty") << 2.6 << 20.0;
        QTest::newRow("long record") << 0.04 << 2000.0;
        QTest::newRow("tenths") << 500.0 << 0.1;
    }

    void stepsAreRound()
    {
        QFETCH(double, pixelsPerMs);
        QFETCH(double, step);
        QCOMPARE(OvTimeAxis::niceStep(pixelsPerMs, 50.0), step);
    }

    void ticksLieInTheDataAndInView()
    {
        OvGatherExtent extent;
        extent.traceCount = 10;
        extent.startMs = -10.0;
        extent.endMs = 500.0;
        OvViewState state;
        state.setViewSize({100.0, 300.0});
        state.setExtent(extent);
        state.setScale(8.0, 1.0);
        state.scrollTo(0.0, -10.0);
        const auto ticks = OvTimeAxis::ticks(state, 50.0);
        QVERIFY(!ticks.isEmpty());
        QCOMPARE(ticks.first().timeMs, -10.0);
        QVector<double> major;
        for (const auto& tick : ticks) {
            QVERIFY(tick.timeMs <= 290.0);
            if (tick.major)
                major.append(tick.timeMs);
        }
        QCOMPARE(major, QVector<double>({0, 50, 100, 150, 200, 250}));
    }

    void labelsCarryTheDecimalsOfTheStep()
    {
        QCOMPARE(OvTimeAxis::label(150.0, 50.0), QString("150"));
        QCOMPARE(OvTimeAxis::label(0.30000000000000004, 0.1), QString("0.3"));
        QCOMPARE(OvTimeAxis::label(-1e-14, 0.1), QString("0.0"));
        QCOMPARE(OvTimeAxis::label(-10.0, 5.0), QString("-10"));
        QCOMPARE(OvTimeAxis::label(12000.0, 1000.0), QString("12000"));
    }
};

QTEST_GUILESS_MAIN(tst_OvTimeAxis)
#include "tst_OvTimeAxis.moc"

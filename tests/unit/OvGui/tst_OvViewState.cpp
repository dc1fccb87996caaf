#include "OvGui/canvas/OvViewState.h"

#include "Gathers.h"

#include <QtTest>

class tst_OvViewState : public QObject
{
    Q_OBJECT

private:
    static OvViewState stateOf(int traces, double endMs)
    {
        OvGatherExtent extent;
        extent.traceCount = traces;
        extent.endMs = endMs;
        OvViewState state;
        state.setViewSize({400.0, 300.0});
        state.setExtent(extent);
        return state;
    }

private slots:
    void extentSpansAllDelays()
    {
        OvGather gather = Gathers::silent(3, 101, 2.0);
        gather.headers[1].delayMs = -10.0F;
        gather.headers[2].delayMs = 30.0F;
        const OvGatherExtent extent = OvGatherExtent::of(gather);
        QCOMPARE(extent.traceCount, 3);
        QCOMPARE(extent.startMs, -10.0);
        QCOMPARE(extent.endMs, 230.0);
        QVERIFY(OvGatherExtent::of(Gathers::silent(0, 100, 2.0)).isEmpty());
        QVERIFY(OvGatherExtent::of(Gathers::silent(3, 100, 0.0)).isEmpty());
    }

    void fitShowsEverything()
    {
        OvViewState state = stateOf(99, 600.0);
        state.fit();
        QVERIFY(state.isFitted());
        QCOMPARE(state.traceSpacing(), 4.0); // half a trace is free at either side
        QCOMPARE(state.pixelsPerMs(), 0.5);
        QCOMPARE(state.xOfRow(0), 4.0);
        QCOMPARE(state.xOfRow(98), 396.0);
        QCOMPARE(state.yOf(600.0), 300.0);
    }

    void fittedViewFollowsItsWindowAndItsGather()
    {
        OvViewState state = stateOf(99, 600.0);
        state.fit();
        state.setViewSize({800.0, 600.0});
        QCOMPARE(state.traceSpacing(), 8.0);
        QCOMPARE(state.pixelsPerMs(), 1.0);
        OvGatherExtent longer = state.extent();
        longer.endMs = 1200.0;
        state.setExtent(longer);
        QCOMPARE(state.pixelsPerMs(), 0.5);
    }

    void anOpeningViewFitsWhereTracesCanBeToldApart()
    {
        OvViewState few = stateOf(49, 600.0);
        few.open();
        QVERIFY(few.isFitted());
        QCOMPARE(few.traceSpacing(), 8.0);
        OvViewState many = stateOf(999, 600.0);
        many.open();
        QVERIFY(!many.isFitted());
        QCOMPARE(many.traceSpacing(), 4.0);
        QCOMPARE(many.pixelsPerMs(), 0.5);
        QCOMPARE(many.left(), -0.5);
    }

    void anOpeningViewFollowsItsWindowUntilItIsMoved()
    {
        OvViewState state = stateOf(999, 600.0);
        state.open();
        state.setViewSize({400.0, 600.0});
        QCOMPARE(state.pixelsPerMs(), 1.0);
        state.scrollTo(100.0, 0.0);
        state.setViewSize({400.0, 300.0});
        QCOMPARE(state.pixelsPerMs(), 1.0);
        QCOMPARE(state.left(), 100.0);
    }

    void zoomKeepsThePointUnderTheMouse_data()
    {
        QTest::addColumn<double>("traceFactor");
        QTest::addColumn<double>("timeFactor");
        QTest::newRow("in") << 1.7 << 1.7;
        QTest::newRow("time only") << 1.0 << 2.0;
        QTest::newRow("traces only") << 2.0 << 1.0;
    }

    void zoomKeepsThePointUnderTheMouse()
    {
        QFETCH(double, traceFactor);
        QFETCH(double, timeFactor);
        OvViewState state = stateOf(99, 600.0);
        state.fit();
        const QPointF mouse(123.0, 77.0);
        const double trace = state.traceAt(mouse.x());
        const double time = state.timeAt(mouse.y());
        state.zoomAt(mouse, traceFactor, timeFactor);
        QVERIFY(!state.isFitted());
        QCOMPARE(state.traceAt(mouse.x()), trace);
        QCOMPARE(state.timeAt(mouse.y()), time);
        QCOMPARE(state.traceSpacing(), 4.0 * traceFactor);
        QCOMPARE(state.pixelsPerMs(), 0.5 * timeFactor);
    }

    void zoomToFillsTheViewWithTheRectangle()
    {
        OvViewState state = stateOf(99, 600.0);
        state.fit();
        const double left = state.traceAt(100.0);
        const double bottom = state.timeAt(200.0);
        state.zoomTo(QRectF(QPointF(200.0, 200.0), QPointF(100.0, 50.0))); // drawn backwards
        QCOMPARE(state.traceAt(0.0), left);
        QCOMPARE(state.timeAt(300.0), bottom);
    }

    void scrollStaysOnTheData()
    {
        OvViewState state = stateOf(200, 2000.0);
        state.setScale(8.0, 1.0);
        state.panBy({1e6, 1e6});
        QCOMPARE(state.left(), state.minimumLeft());
        QCOMPARE(state.topMs(), 0.0);
        state.panBy({-1e6, -1e6});
        QCOMPARE(state.traceAt(400.0), 200.5);
        QCOMPARE(state.timeAt(300.0), 2000.0);
    }

    void panMovesTheDataWithTheMouse()
    {
        OvViewState state = stateOf(200, 2000.0);
        state.setScale(8.0, 1.0);
        state.scrollTo(50.0, 500.0);
        const double x = state.xOfRow(60);
        const double y = state.yOf(600.0);
        state.panBy({-13.0, 21.0});
        QCOMPARE(state.xOfRow(60), x - 13.0);
        QCOMPARE(state.yOf(600.0), y + 21.0);
    }

    void scaleIsBounded()
    {
        OvViewState state = stateOf(99, 600.0);
        state.setScale(1e9, 1e9);
        QVERIFY(state.traceSpacing() <= 400.0);
        QVERIFY(state.pixelsPerMs() <= 60.0);
        state.setScale(1e-9, 1e-9);
        QVERIFY(state.visibleTraces() < 500.0);
        QVERIFY(state.visibleMs() < 3000.0);
    }

    void rowsBesideTheTracesAreNone()
    {
        OvViewState state = stateOf(99, 600.0);
        state.fit();
        QCOMPARE(state.rowAt(1.0), -1);
        QCOMPARE(state.rowAt(2.5), 0);
        QCOMPARE(state.rowAt(397.5), 98);
        QCOMPARE(state.rowAt(399.0), -1);
    }

    void anEmptyGatherTakesNoHarm()
    {
        OvViewState state;
        state.fit();
        state.zoomAt({1.0, 1.0}, 2.0, 2.0);
        state.zoomTo({0.0, 0.0, 10.0, 10.0});
        QVERIFY(state.extent().isEmpty());
        QCOMPARE(state.rowAt(0.0), -1);
    }
};

QTEST_GUILESS_MAIN(tst_OvViewState)
#include "tst_OvViewState.moc"

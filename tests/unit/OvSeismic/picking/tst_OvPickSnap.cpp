#include "OvSeismic/picking/OvPickSnap.h"

#include "SyntheticGather.h"

#include <QtTest>

#include <limits>

class tst_OvPickSnap : public QObject
{
    Q_OBJECT

private slots:
    void aWindowOfZeroPicksWhereClicked()
    {
        const SyntheticGather line(3);
        QCOMPARE(OvPickSnap::snap(line.gather, 1, 61.37, 0.0), 61.37);
    }

    void theOnsetIsFoundFromEitherSide_data()
    {
        QTest::addColumn<double>("click");
        QTest::addColumn<double>("window");
        for (const double window : {8.0, 16.0, 40.0})
            for (const double click : {-5.0, -3.0, 0.0, 3.0, 7.0})
                QTest::newRow(qPrintable(QString("%1 ms off in %2 ms").arg(click).arg(window)))
                    << click << window;
    }

    void theOnsetIsFoundFromEitherSide()
    {
        QFETCH(double, click);
        QFETCH(double, window);
        SyntheticGather line(20);
        line.addNoise(0.005);
        const double onset = line.onsetsMs[12];
        const double found = OvPickSnap::snap(line.gather, 12, onset + click, window);
        // A swing that grows as t squared is seen 3 ms late at this frequency.
        QVERIFY2(std::abs(found - onset) < 4.5, qPrintable(QString::number(found - onset)));
        QVERIFY(std::abs(found - onset - click) <= window);
    }

    void anArrivalOutsideTheWindowIsLeftAlone()
    {
        const SyntheticGather line(20);
        const double click = line.onsetsMs[5] - 30.0;
        QCOMPARE(OvPickSnap::snap(line.gather, 5, click, 10.0), click);
    }

    void noiseAndDeadTracesHoldNothing()
    {
        SyntheticGather line(3, 400, 0.0F);
        line.gather.headers[0].traceId = 2;
        QCOMPARE(OvPickSnap::snap(line.gather, 0, 33.3, 20.0), 33.3);
        std::fill(line.gather.trace(1), line.gather.trace(1) + 400, 1.0F);
        QCOMPARE(OvPickSnap::snap(line.gather, 1, 33.3, 20.0), 33.3);
        line.gather.trace(2)[7] = std::numeric_limits<float>::quiet_NaN();
        QCOMPARE(OvPickSnap::snap(line.gather, 2, 33.3, 20.0), 33.3);
    }

    void picksStayOnTheTrace()
    {
        const SyntheticGather line(3, 400, 10.0F);
        QCOMPARE(OvPickSnap::snap(line.gather, 0, -500.0, 0.0), 10.0);
        QCOMPARE(OvPickSnap::snap(line.gather, 0, 5000.0, 0.0), 10.0 + 399 * 2.0);
    }
};

QTEST_GUILESS_MAIN(tst_OvPickSnap)
#include "tst_OvPickSnap.moc"

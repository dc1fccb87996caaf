#include "OvSeismic/picking/OvPickPriorBuilder.h"

#include <QtTest>

#include <limits>

/// Guides from a velocity, and learned from picks.
class tst_OvPickPrior : public QObject
{
    Q_OBJECT

private slots:
    void velocityAndIntercept();
    void noVelocityNoGuide();
    void learnsACurve();
    void wrongPicksDoNoHarm();
    void tellsDirectionsApart();
    void tellsSignsApartWithoutCoordinates();
    void prefersSourcesNearBy();
    void nothingBeyondThePicks();
    void needsThreePicks();
    void staysSmall();
};

namespace {

// Receiver at an angle (degrees) and distance from a source at (x, 0).
OvTraceHeader trace(double offset, double sourceX = 0.0, double degrees = 0.0)
{
    OvTraceHeader header;
    header.offset = static_cast<float>(offset);
    header.sourceX = sourceX;
    header.receiverX = sourceX + offset * std::cos(degrees * 0.017453292519943295);
    header.receiverY = offset * std::sin(degrees * 0.017453292519943295);
    return header;
}

OvTraceHeader bare(double offset)
{
    OvTraceHeader header;
    header.offset = static_cast<float>(offset);
    return header;
}

double timeAt(const OvPickPrior& prior, const OvTraceHeader& header)
{
    return prior.expected({header}).front().timeMs;
}

double curved(double offset)
{
    return 20.0 + 0.4 * std::min(offset, 500.0) + 0.2 * std::max(offset - 500.0, 0.0);
}

} // namespace

void tst_OvPickPrior::velocityAndIntercept()
{
    const auto prior = OvPickPrior::fromVelocity(2000.0, 15.0);
    QVERIFY(prior);
    OvTraceHeader unknown = bare(0.0);
    unknown.offset = std::numeric_limits<float>::quiet_NaN();
    const auto all = prior->expected({bare(1000.0), bare(-400.0), unknown});
    QCOMPARE(all.size(), std::size_t(3));
    QCOMPARE(all[0].timeMs, 515.0);
    QCOMPARE(all[1].timeMs, 215.0);
    QVERIFY(all[0].halfWidthMs > all[1].halfWidthMs && all[1].halfWidthMs >= 20.0);
    QVERIFY(!all[2].isKnown());
}

void tst_OvPickPrior::noVelocityNoGuide()
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    QVERIFY(!OvPickPrior::fromVelocity(0.0, 0.0));
    QVERIFY(!OvPickPrior::fromVelocity(-2000.0, 0.0));
    QVERIFY(!OvPickPrior::fromVelocity(none, 0.0));
    QVERIFY(!OvPickPrior::fromVelocity(2000.0, none));
    QVERIFY(!OvPickPrior::fromVelocity(std::numeric_limits<double>::infinity(), 0.0));
}

void tst_OvPickPrior::learnsACurve()
{
    OvPickPriorBuilder builder;
    for (int i = 0; i <= 200; ++i)
        builder.add(trace(10.0 * i), curved(10.0 * i));
    QCOMPARE(builder.count(), qint64(201));
    const auto prior = builder.build();
    for (int metres = 50; metres < 1950; metres += 33) {
        const double offset = metres;
        const auto expected = prior->expected({trace(offset)}).front();
        QVERIFY(expected.isKnown());
        QVERIFY2(std::abs(expected.timeMs - curved(offset)) < 4.0,
                 qPrintable(QStringLiteral("%1 at %2").arg(expected.timeMs).arg(offset)));
        QVERIFY(expected.halfWidthMs < 30.0);
    }
}

void tst_OvPickPrior::wrongPicksDoNoHarm()
{
    OvPickPriorBuilder builder;
    for (int shot = 0; shot < 6; ++shot) {
        for (int i = 0; i <= 100; ++i)
            builder.add(trace(20.0 * i, 100.0 * shot),
                        (i + shot) % 5 == 0 ? 900.0 : curved(20.0 * i));
    }
    const auto prior = builder.build();
    for (int metres = 100; metres < 1900; metres += 50)
        QVERIFY(std::abs(timeAt(*prior, trace(metres, 250.0)) - curved(metres)) < 10.0);
}

void tst_OvPickPrior::tellsDirectionsApart()
{
    OvPickPriorBuilder builder;
    for (int i = 1; i <= 50; ++i) {
        builder.add(trace(20.0 * i, 0.0, 0.0), 0.5 * 20.0 * i);
        builder.add(trace(20.0 * i, 0.0, 90.0), 1.0 * 20.0 * i);
        builder.add(trace(20.0 * i, 0.0, 180.0), 2.0 * 20.0 * i);
    }
    const auto prior = builder.build();
    QVERIFY(std::abs(timeAt(*prior, trace(600.0, 0.0, 10.0)) - 300.0) < 10.0);
    QVERIFY(std::abs(timeAt(*prior, trace(600.0, 0.0, 80.0)) - 600.0) < 15.0);
    QVERIFY(std::abs(timeAt(*prior, trace(600.0, 0.0, -170.0)) - 1200.0) < 30.0);
    // A direction without picks is guided by all of them.
    QVERIFY(std::abs(timeAt(*prior, trace(600.0, 0.0, 270.0)) - 600.0) < 60.0);
}

void tst_OvPickPrior::tellsSignsApartWithoutCoordinates()
{
    OvPickPriorBuilder builder;
    for (int i = 1; i <= 50; ++i) {
        builder.add(bare(20.0 * i), 0.5 * 20.0 * i);
        builder.add(bare(-20.0 * i), 1.5 * 20.0 * i);
    }
    const auto prior = builder.build();
    QVERIFY(std::abs(timeAt(*prior, bare(500.0)) - 250.0) < 8.0);
    QVERIFY(std::abs(timeAt(*prior, bare(-500.0)) - 750.0) < 20.0);
}

void tst_OvPickPrior::prefersSourcesNearBy()
{
    // The intercept grows along the line by 10 ms a source.
    OvPickPriorBuilder builder;
    for (int shot = 0; shot < 20; ++shot) {
        for (int i = 0; i <= 50; ++i)
            builder.add(trace(20.0 * i, 50.0 * shot), 10.0 * shot + curved(20.0 * i));
    }
    const auto prior = builder.build();
    for (int shot = 2; shot < 18; ++shot) {
        const double expected = timeAt(*prior, trace(400.0, 50.0 * shot));
        QVERIFY2(std::abs(expected - 10.0 * shot - curved(400.0)) < 14.0,
                 qPrintable(QString::number(expected)));
    }
    // Far from all of them the whole survey speaks, and says how little it is to be trusted.
    const auto far = prior->expected({trace(400.0, 90000.0)}).front();
    QVERIFY(std::abs(far.timeMs - 95.0 - curved(400.0)) < 30.0);
    QVERIFY(far.halfWidthMs > 100.0);
    QVERIFY(prior->expected({trace(400.0, 500.0)}).front().halfWidthMs < far.halfWidthMs / 2.0);
}

void tst_OvPickPrior::nothingBeyondThePicks()
{
    OvPickPriorBuilder builder;
    for (int i = 10; i <= 50; ++i)
        builder.add(trace(20.0 * i), curved(20.0 * i));
    const auto prior = builder.build();
    QVERIFY(std::isnan(timeAt(*prior, trace(10.0))));
    QVERIFY(std::isfinite(timeAt(*prior, trace(190.0))));
    QVERIFY(std::isfinite(timeAt(*prior, trace(1040.0))));
    QVERIFY(std::isnan(timeAt(*prior, trace(1200.0))));
}

void tst_OvPickPrior::needsThreePicks()
{
    OvPickPriorBuilder builder;
    OvTraceHeader unknown = bare(0.0);
    unknown.offset = std::numeric_limits<float>::quiet_NaN();
    builder.add(unknown, 100.0);
    builder.add(bare(100.0), std::numeric_limits<double>::quiet_NaN());
    builder.add(bare(100.0), 100.0);
    builder.add(bare(200.0), 150.0);
    QCOMPARE(builder.count(), qint64(2));
    QVERIFY(!builder.build());
    builder.add(bare(300.0), 200.0);
    QVERIFY(builder.build());
}

void tst_OvPickPrior::staysSmall()
{
    // More sources than are kept apart, and far coordinates.
    OvPickPriorBuilder builder;
    for (int shot = 0; shot < 6000; ++shot) {
        for (int i = 1; i <= 4; ++i)
            builder.add(trace(100.0 * i, 4.0e6 + 25.0 * shot), curved(100.0 * i));
    }
    const auto prior = builder.build();
    for (int shot = 0; shot < 6000; shot += 500)
        QVERIFY(std::abs(timeAt(*prior, trace(300.0, 4.0e6 + 25.0 * shot)) - curved(300.0)) < 2.0);
}

QTEST_GUILESS_MAIN(tst_OvPickPrior)
#include "tst_OvPickPrior.moc"

#include "OvSeismic/dsp/OvFirstSwing.h"

#include "OvSeismic/dsp/OvTraceView.h"

#include <QtTest>

#include <cmath>
#include <vector>

using OvFirstSwing::Sign;

class tst_OvFirstSwing : public QObject
{
    Q_OBJECT

private slots:
    void onsetOfATriangle_data();
    void onsetOfATriangle();
    void startsFromTheLevelOfRest();
    void goesBackToTheFirstLobe_data();
    void goesBackToTheFirstLobe();
    void findsTheAskedSign();
    void passesOverNoise();
    void staysInItsWindow();
    void findsNothingWhereNothingIs();
    void worksAtTheEndsOfATrace();
};

namespace {

// Triangles of ten samples up and ten down: their flanks are straight, so their onset is exact.
void addTriangle(std::vector<float>* samples, double onset, float height)
{
    constexpr double flank = 10.0;
    for (std::size_t i = 0; i < samples->size(); ++i) {
        const double distance = std::abs(static_cast<double>(i) - onset - flank);
        (*samples)[i] += height * static_cast<float>(std::max(1.0 - distance / flank, 0.0));
    }
}

OvFirstSwing::Swing findIn(const std::vector<float>& samples, const OvFirstSwing::Window& window,
                           Sign sign)
{
    const OvTraceView trace(samples.data(), static_cast<int>(samples.size()));
    return OvFirstSwing::find(trace, window, sign);
}

OvFirstSwing::Window windowOf(int first, int last)
{
    OvFirstSwing::Window window;
    window.first = first;
    window.last = last;
    window.quiet = 20;
    window.share = 0.4;
    return window;
}

double onsetIn(const std::vector<float>& samples, Sign sign = Sign::Either)
{
    const auto swing = findIn(samples, windowOf(30, 150), sign);
    return swing.found() ? OvFirstSwing::onset(samples.data(), swing) : -1.0;
}

} // namespace

void tst_OvFirstSwing::onsetOfATriangle_data()
{
    QTest::addColumn<double>("onset");
    QTest::addColumn<float>("height");
    QTest::newRow("on a sample") << 60.0 << 3.0F;
    QTest::newRow("downwards") << 60.0 << -3.0F;
    QTest::newRow("tiny") << 60.0 << 1.0e-6F;
}

void tst_OvFirstSwing::onsetOfATriangle()
{
    QFETCH(double, onset);
    QFETCH(float, height);
    std::vector<float> samples(200, 0.0F);
    addTriangle(&samples, onset, height);
    QVERIFY2(std::abs(onsetIn(samples) - onset) < 0.01,
             qPrintable(QString::number(onsetIn(samples))));
}

void tst_OvFirstSwing::startsFromTheLevelOfRest()
{
    std::vector<float> samples(200, 250.0F);
    addTriangle(&samples, 71.0, 2.0F);
    QVERIFY(std::abs(onsetIn(samples) - 71.0) < 0.01);
}

void tst_OvFirstSwing::goesBackToTheFirstLobe_data()
{
    QTest::addColumn<float>("first");
    QTest::addColumn<double>("onset");
    QTest::newRow("a lobe of its own") << -0.38F << 60.0;
    QTest::newRow("a ripple") << -0.25F << 80.0;
    QTest::newRow("of the same sign, apart") << 0.25F << 80.0;
}

void tst_OvFirstSwing::goesBackToTheFirstLobe()
{
    QFETCH(float, first);
    QFETCH(double, onset);
    std::vector<float> samples(200, 0.0F);
    addTriangle(&samples, 60.0, first);
    addTriangle(&samples, 80.0, 1.0F);
    QVERIFY2(std::abs(onsetIn(samples) - onset) < 0.01,
             qPrintable(QString::number(onsetIn(samples))));
}

void tst_OvFirstSwing::findsTheAskedSign()
{
    std::vector<float> samples(200, 0.0F);
    addTriangle(&samples, 60.0, -1.0F);
    addTriangle(&samples, 80.0, 1.0F);
    QVERIFY(std::abs(onsetIn(samples, Sign::Negative) - 60.0) < 0.01);
    QVERIFY(std::abs(onsetIn(samples, Sign::Positive) - 80.0) < 0.01);
    QVERIFY(std::abs(onsetIn(samples, Sign::Either) - 60.0) < 0.01);
}

void tst_OvFirstSwing::passesOverNoise()
{
    // A sinusoid of RMS 0.2 over the whole trace, so that 0.4 is the least height.
    std::vector<float> samples(200, 0.0F);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = 0.2828F * static_cast<float>(std::sin(static_cast<double>(i) * 1.3));
    addTriangle(&samples, 90.0, 2.0F);
    QVERIFY2(std::abs(onsetIn(samples) - 90.0) < 2.0,
             qPrintable(QString::number(onsetIn(samples))));
}

void tst_OvFirstSwing::staysInItsWindow()
{
    std::vector<float> samples(200, 0.0F);
    addTriangle(&samples, 40.0, 1.0F);
    addTriangle(&samples, 120.0, 1.0F);
    const auto swing = findIn(samples, windowOf(100, 190), Sign::Either);
    QCOMPARE(swing.peak, 130);
    const auto none = findIn(samples, windowOf(85, 115), Sign::Either);
    QVERIFY(!none.found());
}

void tst_OvFirstSwing::findsNothingWhereNothingIs()
{
    const std::vector<float> samples(200, 5.0F);
    QVERIFY(!findIn(samples, windowOf(30, 150), Sign::Either).found());
    QVERIFY(!findIn(samples, windowOf(150, 30), Sign::Either).found());
    QVERIFY(!findIn({}, windowOf(0, 10), Sign::Either).found());
    std::vector<float> down(200, 0.0F);
    addTriangle(&down, 60.0, -1.0F);
    QVERIFY(!findIn(down, windowOf(30, 150), Sign::Positive).found());
}

void tst_OvFirstSwing::worksAtTheEndsOfATrace()
{
    std::vector<float> samples(60, 0.0F);
    addTriangle(&samples, 45.0, 1.0F);
    const auto atEnd = findIn(samples, windowOf(30, 500), Sign::Either);
    QCOMPARE(atEnd.peak, 55);
    std::vector<float> early{3.0F, 2.0F, 1.0F, 0.0F, 0.0F, 0.0F};
    const auto atStart = findIn(early, windowOf(-5, 6), Sign::Either);
    QCOMPARE(atStart.peak, 0);
    QVERIFY(std::isfinite(OvFirstSwing::onset(early.data(), atStart)));
}

QTEST_GUILESS_MAIN(tst_OvFirstSwing)
#include "tst_OvFirstSwing.moc"

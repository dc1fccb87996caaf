#include "OvSeismic/dsp/OvDominantPeriod.h"

#include <QtTest>

#include <cmath>
#include <vector>

class tst_OvDominantPeriod : public QObject
{
    Q_OBJECT

private slots:
    void ofSinusoids_data();
    void ofSinusoids();
    void sizeAndLevelDoNotMatter();
    void looksAtItsRangeOnly();
    void nothingToTell();
};

namespace {

std::vector<float> sinusoid(double period, int count)
{
    constexpr double turn = 6.28318530717958647692;
    std::vector<float> samples;
    for (int i = 0; i < count; ++i)
        samples.push_back(static_cast<float>(std::sin(turn * i / period + 0.3)));
    return samples;
}

} // namespace

void tst_OvDominantPeriod::ofSinusoids_data()
{
    QTest::addColumn<double>("period");
    QTest::newRow("near the Nyquist period") << 2.5;
    QTest::newRow("short") << 8.0;
    QTest::newRow("long") << 50.0;
}

void tst_OvDominantPeriod::ofSinusoids()
{
    QFETCH(double, period);
    const std::vector<float> samples = sinusoid(period, 5000);
    const double found = ovDominantPeriod(samples.data(), 0, 5000);
    QVERIFY2(std::abs(found / period - 1.0) < 0.002, qPrintable(QString::number(found)));
}

void tst_OvDominantPeriod::sizeAndLevelDoNotMatter()
{
    std::vector<float> samples = sinusoid(20.0, 400);
    for (float& sample : samples)
        sample = 1000.0F + 7.0F * sample;
    const double found = ovDominantPeriod(samples.data(), 0, 400);
    QVERIFY2(std::abs(found - 20.0) < 0.1, qPrintable(QString::number(found)));
}

void tst_OvDominantPeriod::looksAtItsRangeOnly()
{
    std::vector<float> samples = sinusoid(5.0, 300);
    const std::vector<float> slow = sinusoid(30.0, 300);
    samples.insert(samples.end(), slow.begin(), slow.end());
    QVERIFY(std::abs(ovDominantPeriod(samples.data(), 0, 300) - 5.0) < 0.1);
    QVERIFY(std::abs(ovDominantPeriod(samples.data(), 300, 600) - 30.0) < 0.5);
}

void tst_OvDominantPeriod::nothingToTell()
{
    const std::vector<float> samples(100, 3.0F);
    QCOMPARE(ovDominantPeriod(samples.data(), 0, 100), 0.0);
    QCOMPARE(ovDominantPeriod(samples.data(), 10, 12), 0.0);
    QCOMPARE(ovDominantPeriod(samples.data(), 12, 10), 0.0);
}

QTEST_GUILESS_MAIN(tst_OvDominantPeriod)
#include "tst_OvDominantPeriod.moc"

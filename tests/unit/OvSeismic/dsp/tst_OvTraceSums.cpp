#include "OvSeismic/dsp/OvTraceSums.h"

#include <QtTest>

#include <vector>

class tst_OvTraceSums : public QObject
{
    Q_OBJECT

private slots:
    void knownValues();
    void clipsWindows();
    void standsOnALargeConstant();
    void forgetsTheTraceBefore();
    void isStillWithoutSamples();
};

namespace {

OvTraceSums sumsOf(const std::vector<float>& samples)
{
    OvTraceSums sums;
    sums.assign(samples.data(), static_cast<int>(samples.size()));
    return sums;
}

bool near(double value, double expected)
{
    return std::abs(value - expected) < 1e-9;
}

} // namespace

void tst_OvTraceSums::knownValues()
{
    // Mean 4: deviations -3, -1, 0, 0, 4.
    const OvTraceSums sums = sumsOf({1.0F, 3.0F, 4.0F, 4.0F, 8.0F});
    QCOMPARE(sums.size(), 5);
    QVERIFY(near(sums.mean(0, 5), 0.0));
    QVERIFY(near(sums.mean(0, 2), -2.0));
    QVERIFY(near(sums.variance(0, 5), 26.0 / 5.0));
    QVERIFY(near(sums.variance(0, 2), 1.0));
    QVERIFY(near(sums.variance(2, 4), 0.0));
    QVERIFY(near(sums.largest(0, 5), 4.0));
    QVERIFY(near(sums.largest(1, 4), 1.0));
}

void tst_OvTraceSums::clipsWindows()
{
    const OvTraceSums sums = sumsOf({1.0F, 3.0F, 4.0F, 4.0F, 8.0F});
    QVERIFY(near(sums.mean(-7, 2), sums.mean(0, 2)));
    QVERIFY(near(sums.variance(3, 99), sums.variance(3, 5)));
    QVERIFY(near(sums.largest(-9, 99), 4.0));
    QVERIFY(near(sums.variance(4, 5), 0.0));
    QVERIFY(near(sums.variance(3, 2), 0.0));
    QVERIFY(near(sums.mean(5, 9), 0.0));
}

void tst_OvTraceSums::standsOnALargeConstant()
{
    std::vector<float> samples(2000);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = 4.0e6F + (i % 2 == 0 ? 1.0F : -1.0F);
    const OvTraceSums sums = sumsOf(samples);
    QVERIFY(near(sums.variance(0, 2000), 1.0));
    QVERIFY(near(sums.variance(1000, 1010), 1.0));
}

void tst_OvTraceSums::forgetsTheTraceBefore()
{
    OvTraceSums sums = sumsOf(std::vector<float>(50, 3.0F));
    const std::vector<float> next{2.0F, -2.0F};
    sums.assign(next.data(), 2);
    QCOMPARE(sums.size(), 2);
    QVERIFY(near(sums.variance(0, 50), 4.0));
}

void tst_OvTraceSums::isStillWithoutSamples()
{
    const OvTraceSums sums = sumsOf({});
    QCOMPARE(sums.size(), 0);
    QCOMPARE(sums.variance(0, 10), 0.0);
    QCOMPARE(sums.largest(0, 10), 0.0);
}

QTEST_GUILESS_MAIN(tst_OvTraceSums)
#include "tst_OvTraceSums.moc"

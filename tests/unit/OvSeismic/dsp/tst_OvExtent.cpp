#include "OvSeismic/dsp/OvExtent.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <vector>

/// The range of samples, wherever its ends lie.
class tst_OvExtent : public QObject
{
    Q_OBJECT

private slots:
    void findsBothEnds_data();
    void findsBothEnds();
    void amountIsOfEitherSign();
    void tellsWhatIsNoNumber_data();
    void tellsWhatIsNoNumber();
    void firstAsLarge_data();
    void firstAsLarge();
    void withoutSamples();
};

namespace {

void addCounts()
{
    QTest::addColumn<int>("count");
    for (const int count : {1, 7, 31, 32, 33, 64, 100})
        QTest::newRow(qPrintable(QString::number(count))) << count;
}

std::vector<float> wave(int count)
{
    std::vector<float> samples;
    for (int i = 0; i < count; ++i)
        samples.push_back(static_cast<float>(3.0 + std::sin(0.7 * i)));
    return samples;
}

OvExtent extentOf(const std::vector<float>& samples)
{
    return OvExtent::of(samples.data(), static_cast<int>(samples.size()));
}

} // namespace

void tst_OvExtent::findsBothEnds_data()
{
    addCounts();
}

void tst_OvExtent::findsBothEnds()
{
    QFETCH(int, count);
    for (std::size_t at = 0; at < static_cast<std::size_t>(count); ++at) {
        std::vector<float> samples = wave(count);
        samples[at] = 9.0F;
        QCOMPARE(extentOf(samples).most, 9.0F);
        QVERIFY(count == 1 || extentOf(samples).least < 4.0F);
        samples[at] = 1.5F;
        QCOMPARE(extentOf(samples).least, 1.5F);
        QVERIFY(extentOf(samples).isFinite);
    }
}

void tst_OvExtent::amountIsOfEitherSign()
{
    QCOMPARE(extentOf({1.0F, -3.0F, 2.0F}).amount(), 3.0F);
    QCOMPARE(extentOf({1.0F, -3.0F, 4.0F}).amount(), 4.0F);
}

void tst_OvExtent::tellsWhatIsNoNumber_data()
{
    addCounts();
}

void tst_OvExtent::tellsWhatIsNoNumber()
{
    QFETCH(int, count);
    for (std::size_t at = 0; at < static_cast<std::size_t>(count); ++at) {
        for (const float value :
             {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
              -std::numeric_limits<float>::infinity()}) {
            std::vector<float> samples = wave(count);
            samples[at] = value;
            QVERIFY(!extentOf(samples).isFinite);
        }
    }
}

void tst_OvExtent::firstAsLarge_data()
{
    addCounts();
}

void tst_OvExtent::firstAsLarge()
{
    QFETCH(int, count);
    for (int at = 0; at < count; ++at) {
        std::vector<float> samples = wave(count);
        samples.back() = 8.0F;
        samples[static_cast<std::size_t>(at)] = at % 2 == 0 ? 7.0F : -7.0F;
        QCOMPARE(OvExtent::firstAsLarge(samples.data(), count, 7.0F), at);
        QCOMPARE(OvExtent::firstAsLarge(samples.data(), count, 9.0F), count);
    }
}

void tst_OvExtent::withoutSamples()
{
    const OvExtent extent = OvExtent::of(nullptr, 0);
    QCOMPARE(extent.least, 0.0F);
    QCOMPARE(extent.most, 0.0F);
    QVERIFY(extent.isFinite);
    QCOMPARE(OvExtent::firstAsLarge(nullptr, 0, 1.0F), 0);
}

QTEST_GUILESS_MAIN(tst_OvExtent)
#include "tst_OvExtent.moc"

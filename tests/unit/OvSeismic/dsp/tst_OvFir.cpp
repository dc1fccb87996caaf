#include "OvSeismic/dsp/OvFir.h"

#include <QtTest>

#include <cmath>

/// Short filters against sums written out.
class tst_OvFir : public QObject
{
    Q_OBJECT

private slots:
    void impulseGivesTheTaps_data();
    void impulseGivesTheTaps();
    void sameAsTheSum_data();
    void sameAsTheSum();
    void straightLinesGoOnBeyondTheEnds();
    void triangleHasUnitSum();
    void joinedIsOneAfterTheOther();
    void dotOfAnyLength();
    void mirrorsWhatLiesBeyond_data();
    void mirrorsWhatLiesBeyond();
    void mixesParts_data();
    void mixesParts();
    void mixesRows();
    void addsBetweenSamples();
    void correlatesWithItself();
    void correlatesAtEachPoint_data();
    void correlatesAtEachPoint();
};

namespace {

std::vector<float> wave(int count)
{
    std::vector<float> values;
    for (int i = 0; i < count; ++i)
        values.push_back(static_cast<float>(std::sin(0.7 * i) + 0.01 * i * i));
    return values;
}

std::vector<float> filtered(const std::vector<float>& taps, int ahead, const std::vector<float>& in)
{
    std::vector<float> out(in.size(), -99.0F);
    OvFir::apply(taps, ahead, in.data(), static_cast<int>(in.size()), out.data());
    return out;
}

} // namespace

void tst_OvFir::impulseGivesTheTaps_data()
{
    QTest::addColumn<int>("ahead");
    QTest::newRow("looks back") << 0;
    QTest::newRow("centred") << 1;
    QTest::newRow("looks ahead") << 2;
}

void tst_OvFir::impulseGivesTheTaps()
{
    QFETCH(int, ahead);
    std::vector<float> impulse(50, 0.0F);
    impulse[25] = 1.0F;
    const std::vector<float> out = filtered({1.0F, 2.0F, 4.0F}, ahead, impulse);
    for (int i = 0; i < 50; ++i) {
        const int tap = i - 25 + ahead;
        const float expected = tap >= 0 && tap < 3 ? static_cast<float>(1 << tap) : 0.0F;
        QCOMPARE(out[static_cast<std::size_t>(i)], expected);
    }
}

void tst_OvFir::sameAsTheSum_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("length");
    for (const int count : {8, 15, 16, 17, 31, 38, 64, 65, 71, 100, 140}) {
        for (const int length : {1, 3, 6})
            QTest::newRow(qPrintable(QStringLiteral("%1 samples, %2 taps").arg(count).arg(length)))
                << count << length;
    }
}

void tst_OvFir::sameAsTheSum()
{
    QFETCH(int, count);
    QFETCH(int, length);
    const std::vector<float> in = wave(count);
    const std::vector<float> taps = wave(length + 1);
    const int ahead = length / 2;
    const std::vector<float> out = filtered(taps, ahead, in);
    for (int i = length; i + ahead < count; ++i) {
        double sum = 0.0;
        for (int k = 0; k <= length; ++k)
            sum += static_cast<double>(taps[static_cast<std::size_t>(k)]) *
                   static_cast<double>(in[static_cast<std::size_t>(i + ahead - k)]);
        QVERIFY(std::abs(static_cast<double>(out[static_cast<std::size_t>(i)]) - sum) <
                1e-4 * (1.0 + std::abs(sum)));
    }
}

void tst_OvFir::straightLinesGoOnBeyondTheEnds()
{
    std::vector<float> line(40);
    for (std::size_t i = 0; i < line.size(); ++i)
        line[i] = 3.0F + 0.5F * static_cast<float>(i);
    const std::vector<float> smooth = filtered(OvFir::triangle(4), 3, line);
    for (std::size_t i = 0; i < line.size(); ++i)
        QVERIFY(std::abs(smooth[i] - line[i]) < 1e-4F);
}

void tst_OvFir::triangleHasUnitSum()
{
    QCOMPARE(OvFir::triangle(1), std::vector<float>{1.0F});
    for (const int half : {2, 3, 9}) {
        const std::vector<float> taps = OvFir::triangle(half);
        QCOMPARE(int(taps.size()), 2 * half - 1);
        double sum = 0.0;
        for (const float tap : taps)
            sum += static_cast<double>(tap);
        QVERIFY(std::abs(sum - 1.0) < 1e-6);
        QVERIFY(*std::max_element(taps.begin(), taps.end()) ==
                taps[static_cast<std::size_t>(half - 1)]);
    }
}

void tst_OvFir::joinedIsOneAfterTheOther()
{
    const std::vector<float> in = wave(200);
    const std::vector<float> first{1.0F, -0.7F, 0.2F};
    const std::vector<float> second = OvFir::triangle(3);
    const std::vector<float> twice = filtered(second, 2, filtered(first, 0, in));
    const std::vector<float> once = filtered(OvFir::joined(first, second), 2, in);
    for (std::size_t i = 10; i < 190; ++i)
        QVERIFY(std::abs(once[i] - twice[i]) < 1e-3F * (1.0F + std::abs(twice[i])));
}

void tst_OvFir::dotOfAnyLength()
{
    const std::vector<float> a = wave(200);
    for (int count = 0; count <= 200; ++count) {
        double sum = 0.0;
        for (int i = 0; i < count; ++i)
            sum += static_cast<double>(a[static_cast<std::size_t>(i)]) *
                   static_cast<double>(a[static_cast<std::size_t>(i)]);
        QVERIFY(std::abs(static_cast<double>(OvFir::dot(a.data(), a.data(), count)) - sum) <
                1e-4 * (1.0 + sum));
    }
}

void tst_OvFir::mirrorsWhatLiesBeyond_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("ahead");
    QTest::newRow("usual") << 90 << 13 << 2;
    QTest::newRow("looks far ahead") << 90 << 41 << 40;
    QTest::newRow("long") << 300 << 150 << 70;
    QTest::newRow("longer than the trace") << 20 << 47 << 23;
    QTest::newRow("two samples") << 2 << 5 << 2;
}

// Beyond an end stands the mirror image, turned over; beyond that one, its last sample.
void tst_OvFir::mirrorsWhatLiesBeyond()
{
    QFETCH(int, count);
    QFETCH(int, length);
    QFETCH(int, ahead);
    const std::vector<float> in = wave(count);
    const std::vector<float> taps = wave(length);
    const std::vector<float> out = filtered(taps, ahead, in);
    const auto at = [&](int i) {
        const auto value = [&](int k) {
            return static_cast<double>(in[static_cast<std::size_t>(std::clamp(k, 0, count - 1))]);
        };
        const int end = i < 0 ? 0 : count - 1;
        return i < 0 || i >= count ? 2.0 * value(end) - value(2 * end - i) : value(i);
    };
    for (int i = 0; i < count; ++i) {
        double sum = 0.0;
        double size = 0.0;
        for (int k = 0; k < length; ++k) {
            const double product =
                static_cast<double>(taps[static_cast<std::size_t>(k)]) * at(i + ahead - k);
            sum += product;
            size += std::abs(product);
        }
        QVERIFY(std::abs(static_cast<double>(out[static_cast<std::size_t>(i)]) - sum) <
                1e-5 * (1.0 + size));
    }
}

void tst_OvFir::correlatesAtEachPoint_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {1, 9, 16, 27, 32, 64, 100})
        QTest::newRow(qPrintable(QString::number(count))) << count;
}

void tst_OvFir::correlatesAtEachPoint()
{
    QFETCH(int, count);
    constexpr int length = 22;
    const std::vector<float> in = wave(count + length - 1);
    const std::vector<float> pattern = wave(length);
    std::vector<float> out(static_cast<std::size_t>(count) + 1, -99.0F);
    OvFir::correlate(pattern.data(), length, in.data(), count, out.data());
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        double sum = 0.0;
        for (std::size_t k = 0; k < length; ++k)
            sum += static_cast<double>(pattern[k]) * static_cast<double>(in[i + k]);
        QVERIFY(std::abs(static_cast<double>(out[i]) - sum) < 1e-4 * (1.0 + std::abs(sum)));
    }
    QCOMPARE(out.back(), -99.0F);
}

void tst_OvFir::mixesParts_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("parts");
    for (const int count : {1, 15, 16, 22, 64, 90})
        for (const int parts : {0, 1, 7})
            QTest::newRow(qPrintable(QStringLiteral("%1 of %2").arg(parts).arg(count)))
                << count << parts;
}

void tst_OvFir::mixesParts()
{
    QFETCH(int, count);
    QFETCH(int, parts);
    const std::vector<float> in = wave(100);
    std::vector<OvFir::Part> all;
    for (int k = 0; k < parts; ++k)
        all.push_back({in.data() + k, 0.5F * static_cast<float>(k) - 1.0F});
    std::vector<float> out(static_cast<std::size_t>(count) + 1, -99.0F);
    OvFir::mix(all, count, out.data());
    for (int i = 0; i < count; ++i) {
        double sum = 0.0;
        for (const OvFir::Part& part : all)
            sum += static_cast<double>(part.weight) * static_cast<double>(part.samples[i]);
        QVERIFY(std::abs(static_cast<double>(out[static_cast<std::size_t>(i)]) - sum) <
                1e-4 * (1.0 + std::abs(sum)));
    }
    QCOMPARE(out.back(), -99.0F);
}

void tst_OvFir::mixesRows()
{
    const std::vector<float> in = wave(100);
    const std::vector<float> weights{0.5F, -1.0F, 2.0F};
    for (const int count : {1, 15, 16, 22, 33}) {
        std::vector<float> out(static_cast<std::size_t>(count), -99.0F);
        OvFir::mixRows(in.data(), weights.data(), 3, count, out.data());
        std::vector<float> expected(out.size());
        OvFir::mix({{in.data(), 0.5F}, {in.data() + count, -1.0F}, {in.data() + 2 * count, 2.0F}},
                   count, expected.data());
        QCOMPARE(out, expected);
    }
}

void tst_OvFir::addsBetweenSamples()
{
    const std::vector<float> in{1.0F, 3.0F, -1.0F, 7.0F};
    std::vector<float> out(4, 10.0F);
    OvFir::addBetween(in.data(), 0.25F, 2.0F, 3, out.data());
    QCOMPARE(out, (std::vector<float>{13.0F, 14.0F, 12.0F, 10.0F}));
}

void tst_OvFir::correlatesWithItself()
{
    for (const int count : {1, 7, 24, 40, 100}) {
        for (const int lags : {1, 3, 4, 9, 22}) {
            const std::vector<float> in = wave(count);
            std::vector<float> out(static_cast<std::size_t>(std::min(lags, count)) + 1, -99.0F);
            OvFir::autocorrelate(in.data(), count, std::min(lags, count), out.data());
            for (std::size_t lag = 0; lag + 1 < out.size(); ++lag) {
                double sum = 0.0;
                for (std::size_t i = 0; i + lag < in.size(); ++i)
                    sum += static_cast<double>(in[i + lag]) * static_cast<double>(in[i]);
                QVERIFY(std::abs(static_cast<double>(out[lag]) - sum) <
                        1e-4 * (1.0 + std::abs(sum)));
            }
            QCOMPARE(out.back(), -99.0F);
        }
    }
}

QTEST_GUILESS_MAIN(tst_OvFir)
#include "tst_OvFir.moc"

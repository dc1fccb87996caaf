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
    for (const int count : {8, 31, 32, 33, 38, 64, 71, 100}) {
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
    const std::vector<float> a = wave(40);
    for (int count = 0; count <= 40; ++count) {
        double sum = 0.0;
        for (int i = 0; i < count; ++i)
            sum += static_cast<double>(a[static_cast<std::size_t>(i)]) *
                   static_cast<double>(a[static_cast<std::size_t>(i)]);
        QVERIFY(std::abs(static_cast<double>(OvFir::dot(a.data(), a.data(), count)) - sum) <
                1e-4 * (1.0 + sum));
    }
}

QTEST_GUILESS_MAIN(tst_OvFir)
#include "tst_OvFir.moc"

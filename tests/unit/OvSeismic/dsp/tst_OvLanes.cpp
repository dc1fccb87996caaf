#include "OvSeismic/dsp/OvLanes.h"

#include <QtTest>

#include <cmath>
#include <vector>

/// Arithmetic on several floats against the same one by one.
class tst_OvLanes : public QObject
{
    Q_OBJECT

private slots:
    void arithmetic();
    void largerAndSmaller();
    void comparisons();
    void allAreTheSame();
    void sumIsOfAll();
};

namespace {

using Lanes = OvLanes<8, float, 16>;

std::array<float, 8> valuesOf(const Lanes& lanes)
{
    std::array<float, 8> values{};
    lanes.to(values.data());
    return values;
}

const std::array<float, 8> a{1.0F, -2.0F, 3.5F, 0.0F, -0.5F, 6.0F, 7.0F, -8.0F};
const std::array<float, 8> b{2.0F, -3.0F, 0.5F, 1.0F, -4.0F, 6.0F, -7.0F, 8.0F};

} // namespace

void tst_OvLanes::arithmetic()
{
    const Lanes one = Lanes::from(a.data());
    const Lanes two = Lanes::from(b.data());
    Lanes sum = one;
    sum += two;
    for (std::size_t i = 0; i < a.size(); ++i) {
        QCOMPARE(valuesOf(one + two)[i], a[i] + b[i]);
        QCOMPARE(valuesOf(one - two)[i], a[i] - b[i]);
        QCOMPARE(valuesOf(one * two)[i], a[i] * b[i]);
        QCOMPARE(valuesOf(one / two)[i], a[i] / b[i]);
        QCOMPARE(valuesOf(sum)[i], a[i] + b[i]);
    }
}

void tst_OvLanes::largerAndSmaller()
{
    const Lanes one = Lanes::from(a.data());
    const Lanes two = Lanes::from(b.data());
    for (std::size_t i = 0; i < a.size(); ++i) {
        QCOMPARE(valuesOf(one.orMore(two))[i], std::max(a[i], b[i]));
        QCOMPARE(valuesOf(one.orLess(two))[i], std::min(a[i], b[i]));
    }
}

void tst_OvLanes::comparisons()
{
    const Lanes one = Lanes::from(a.data());
    const Lanes two = Lanes::from(b.data());
    for (std::size_t i = 0; i < a.size(); ++i) {
        QCOMPARE(valuesOf(one.isLess(two))[i], a[i] < b[i] ? 1.0F : 0.0F);
        QCOMPARE(valuesOf(one.whereLess(two, one, -9.0F))[i], b[i] < a[i] ? a[i] : -9.0F);
    }
    QCOMPARE(one.largest(), 7.0F);
    const std::array<double, 4> exact{1e-12, 3e-12, 2e-12, -1.0};
    QCOMPARE((OvLanes<4, double, 16>::from(exact.data()).largest()), 3e-12);
}

void tst_OvLanes::allAreTheSame()
{
    for (const float value : valuesOf(Lanes::all(-2.5F)))
        QCOMPARE(value, -2.5F);
}

void tst_OvLanes::sumIsOfAll()
{
    QCOMPARE(Lanes::from(a.data()).sum(), 7.0F);
    std::vector<float> many;
    for (int i = 0; i < 16; ++i)
        many.push_back(static_cast<float>(1 << i));
    QCOMPARE((OvLanes<16, float, 32>::from(many.data()).sum()), 65535.0F);
    QCOMPARE((OvLanes<4, float, 16>::from(many.data()).sum()), 15.0F);
}

QTEST_GUILESS_MAIN(tst_OvLanes)
#include "tst_OvLanes.moc"

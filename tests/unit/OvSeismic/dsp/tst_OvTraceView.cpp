#include "OvSeismic/dsp/OvTraceView.h"

#include <QtTest>

#include <vector>

class tst_OvTraceView : public QObject
{
    Q_OBJECT

private slots:
    void knownValues();
    void clipsWindows();
    void standsOnALargeConstant();
    void isStillWithoutSamples();
};

namespace {

OvTraceView viewOf(const std::vector<float>& samples)
{
    return {samples.data(), static_cast<int>(samples.size())};
}

bool near(double value, double expected)
{
    return std::abs(value - expected) < 1e-9;
}

} // namespace

void tst_OvTraceView::knownValues()
{
    const std::vector<float> samples{1.0F, 3.0F, 4.0F, 4.0F, 8.0F};
    const OvTraceView view = viewOf(samples);
    QCOMPARE(view.size(), 5);
    QCOMPARE(view.samples(), samples.data());
    QVERIFY(near(view.mean(0, 5), 4.0));
    QVERIFY(near(view.mean(0, 2), 2.0));
    QVERIFY(near(view.mean(1, 4), 11.0 / 3.0));
    QVERIFY(near(view.mean(4, 5), 8.0));
    // Deviations -3, -1, 0, 0, 4.
    QVERIFY(near(view.variance(0, 5), 26.0 / 5.0));
    QVERIFY(near(view.variance(0, 2), 1.0));
    QVERIFY(near(view.variance(1, 4), 2.0 / 9.0));
    QVERIFY(near(view.variance(2, 4), 0.0));
}

void tst_OvTraceView::clipsWindows()
{
    const std::vector<float> samples{1.0F, 3.0F, 4.0F, 4.0F, 8.0F};
    const OvTraceView view = viewOf(samples);
    QVERIFY(near(view.mean(-7, 2), view.mean(0, 2)));
    QVERIFY(near(view.variance(3, 99), view.variance(3, 5)));
    QVERIFY(near(view.variance(4, 5), 0.0));
    QVERIFY(near(view.variance(3, 2), 0.0));
    QVERIFY(near(view.mean(5, 9), 0.0));
}

void tst_OvTraceView::standsOnALargeConstant()
{
    std::vector<float> samples(2000);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = 4.0e6F + (i % 2 == 0 ? 1.0F : -1.0F);
    const OvTraceView view = viewOf(samples);
    QVERIFY(near(view.variance(0, 2000), 1.0));
    QVERIFY(near(view.variance(1000, 1010), 1.0));
    QVERIFY(near(view.mean(1000, 1010), 4.0e6));
}

void tst_OvTraceView::isStillWithoutSamples()
{
    const OvTraceView view = viewOf({});
    QCOMPARE(view.size(), 0);
    QCOMPARE(view.mean(0, 10), 0.0);
    QCOMPARE(view.variance(0, 10), 0.0);
}

QTEST_GUILESS_MAIN(tst_OvTraceView)
#include "tst_OvTraceView.moc"

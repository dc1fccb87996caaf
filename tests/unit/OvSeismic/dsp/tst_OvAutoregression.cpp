#include "OvSeismic/dsp/OvAutoregression.h"
#include "OvSeismic/dsp/OvFir.h"

#include <QtTest>

#include <cmath>
#include <random>

/// The model of noise, on processes whose model is known.
class tst_OvAutoregression : public QObject
{
    Q_OBJECT

private slots:
    void correlationOfAFewSamples();
    void findsTheProcess();
    void whitenedProcessIsWhite();
    void shortStretchesOfSwell();
    void silenceGivesOneTap();
    void shortStretchesAreLeftOut();
};

namespace {

// x[i] = a x[i-1] + b x[i-2] + normal noise.
std::vector<float> process(double a, double b, int count, unsigned seed = 5)
{
    std::mt19937 engine(seed);
    std::normal_distribution<double> normal;
    std::vector<double> values(2, 0.0);
    while (static_cast<int>(values.size()) < count + 200)
        values.push_back(a * values[values.size() - 1] + b * values[values.size() - 2] +
                         normal(engine));
    return {values.end() - count, values.end()};
}

std::vector<double> normalised(const std::vector<float>& samples, int lags)
{
    std::vector<double> correlation(static_cast<std::size_t>(lags), 0.0);
    OvAutoregression::addCorrelation(samples.data(), static_cast<int>(samples.size()), 1.0,
                                     &correlation);
    const double power = correlation[0];
    for (double& value : correlation)
        value /= power;
    return correlation;
}

} // namespace

void tst_OvAutoregression::correlationOfAFewSamples()
{
    const std::vector<float> samples{1.0F, -2.0F, 3.0F};
    std::vector<double> out{100.0, 0.0, 0.0, 7.0};
    OvAutoregression::addCorrelation(samples.data(), 3, 2.0, &out);
    QCOMPARE(out, (std::vector<double>{128.0, -16.0, 6.0, 7.0}));
}

void tst_OvAutoregression::findsTheProcess()
{
    const std::vector<float> samples = process(1.5, -0.8, 20000);
    OvAutoregression::Covariance covariance(2);
    for (int from = 0; from < 20000; from += 100)
        covariance.add(samples.data() + from, 100, 1.0);
    const std::vector<float> taps = covariance.whitener(0.0);
    QCOMPARE(taps.size(), std::size_t(3));
    QCOMPARE(taps[0], 1.0F);
    QVERIFY2(std::abs(taps[1] + 1.5F) < 0.02F, qPrintable(QString::number(double(taps[1]))));
    QVERIFY2(std::abs(taps[2] - 0.8F) < 0.02F, qPrintable(QString::number(double(taps[2]))));
}

void tst_OvAutoregression::whitenedProcessIsWhite()
{
    const std::vector<float> samples = process(1.6, -0.81, 20000);
    QVERIFY(std::abs(normalised(samples, 3)[1]) > 0.8);
    OvAutoregression::Covariance covariance(6);
    covariance.add(samples.data(), 20000, 1.0);
    std::vector<float> white(samples.size());
    OvFir::apply(covariance.whitener(1e-6), 0, samples.data(), 20000, white.data());
    const std::vector<double> correlation = normalised(white, 10);
    for (std::size_t lag = 1; lag < correlation.size(); ++lag)
        QVERIFY2(std::abs(correlation[lag]) < 0.03, qPrintable(QString::number(correlation[lag])));
}

void tst_OvAutoregression::shortStretchesOfSwell()
{
    // A slow wave of which no stretch sees more than a third of a period.
    std::vector<float> swell(2000);
    for (std::size_t i = 0; i < swell.size(); ++i)
        swell[i] = static_cast<float>(std::sin(0.05 * static_cast<double>(i)));
    OvAutoregression::Covariance covariance(4);
    for (std::size_t from = 0; from + 40 <= swell.size(); from += 40)
        covariance.add(swell.data() + from, 40, 1.0);
    std::vector<float> left(swell.size());
    OvFir::apply(covariance.whitener(1e-4), 0, swell.data(), 2000, left.data());
    const float most = *std::max_element(left.begin() + 10, left.end() - 10);
    QVERIFY2(most < 0.05F, qPrintable(QString::number(double(most))));
}

void tst_OvAutoregression::silenceGivesOneTap()
{
    const std::vector<float> silence(100, 0.0F);
    OvAutoregression::Covariance covariance(5);
    covariance.add(silence.data(), 100, 1.0);
    QCOMPARE(covariance.whitener(0.01), std::vector<float>{1.0F});
}

void tst_OvAutoregression::shortStretchesAreLeftOut()
{
    const std::vector<float> samples = process(0.9, 0.0, 14);
    OvAutoregression::Covariance covariance(5);
    covariance.add(samples.data(), 14, 1.0);
    QCOMPARE(covariance.whitener(0.01), std::vector<float>{1.0F});
}

QTEST_GUILESS_MAIN(tst_OvAutoregression)
#include "tst_OvAutoregression.moc"

#include "OvSeismic/dsp/OvNoiseLevel.h"

#include "OvSeismic/dsp/OvFir.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <random>

/// Levels of noise that are known because it was made.
class tst_OvNoiseLevel : public QObject
{
    Q_OBJECT

private slots:
    void quantilesAsTabled_data();
    void quantilesAsTabled();
    void freedomOfKnownProcesses_data();
    void freedomOfKnownProcesses();
    void quietNoise_data();
    void quietNoise();
    void quietBesideALoudSignal();
    void quietPassesOverSilence();
    void usualNoise_data();
    void usualNoise();
    void usualWithoutBursts();
    void usualOfNoiseThatComesAndGoes();
    void usualOfFewStretches();
};

namespace {

using Meter = OvNoiseLevel::Meter;

constexpr int many = 48000;

std::vector<float> whiteNoise(double rms, unsigned seed = 7)
{
    std::mt19937 engine(seed);
    std::normal_distribution<float> normal(0.0F, static_cast<float>(rms));
    std::vector<float> samples(many);
    std::generate(samples.begin(), samples.end(), [&] { return normal(engine); });
    return samples;
}

// Noise of RMS 2 after a triangle of so many taps on either side of its middle, 0 for none.
struct Smoothed
{
    std::vector<float> samples = whiteNoise(2.0);
    double energy = 4.0;
    double freedom = 1.0;

    explicit Smoothed(int half)
    {
        if (half < 2)
            return;
        const std::vector<float> taps = OvFir::triangle(half);
        std::vector<float> out(samples.size());
        OvFir::apply(taps, half - 1, samples.data(), many, out.data());
        samples = out;
        std::vector<double> correlation;
        for (std::size_t lag = 0; lag < taps.size(); ++lag)
            correlation.push_back(static_cast<double>(
                OvFir::dot(taps.data() + lag, taps.data(), static_cast<int>(taps.size() - lag))));
        energy *= correlation[0];
        freedom = OvNoiseLevel::freedomOf(correlation);
    }
};

// Stretches of ten samples, each of a steady energy.
std::vector<float> stretches(const std::vector<float>& energies)
{
    std::vector<float> samples;
    for (const float energy : energies)
        samples.insert(samples.end(), 10, std::sqrt(energy));
    return samples;
}

float usualOf(const std::vector<float>& energies)
{
    const std::vector<float> samples = stretches(energies);
    return Meter().usual(samples.data(), static_cast<int>(samples.size()), 10, 1.0);
}

bool isNear(float level, double truth, double share)
{
    if (std::abs(static_cast<double>(level) - truth) <= share * truth)
        return true;
    qInfo("%.4f is not near %.4f", static_cast<double>(level), truth);
    return false;
}

void addSmoothings()
{
    QTest::addColumn<int>("half");
    QTest::addColumn<int>("stretch");
    QTest::newRow("white") << 0 << 24;
    QTest::newRow("white, long stretches") << 0 << 60;
    QTest::newRow("smoothed") << 3 << 24;
    QTest::newRow("much smoothed") << 6 << 40;
}

} // namespace

void tst_OvNoiseLevel::quantilesAsTabled_data()
{
    QTest::addColumn<double>("share");
    QTest::addColumn<double>("degrees");
    QTest::addColumn<double>("tabled"); // of chi square itself
    QTest::addColumn<double>("tolerance");
    QTest::newRow("median of 2") << 0.5 << 2.0 << 1.386 << 0.02;
    QTest::newRow("median of 10") << 0.5 << 10.0 << 9.342 << 0.005;
    QTest::newRow("median of 100") << 0.5 << 100.0 << 99.334 << 0.001;
    QTest::newRow("tenth of 20") << 0.1 << 20.0 << 12.443 << 0.01;
    QTest::newRow("tenth of 50") << 0.1 << 50.0 << 37.689 << 0.01;
    QTest::newRow("nine tenths of 20") << 0.9 << 20.0 << 28.412 << 0.01;
    QTest::newRow("nine tenths of 5") << 0.9 << 5.0 << 9.236 << 0.01;
    QTest::newRow("twentieth of 10") << 0.05 << 10.0 << 3.940 << 0.06;
    QTest::newRow("all but a twentieth of 30") << 0.95 << 30.0 << 43.773 << 0.03;
}

void tst_OvNoiseLevel::quantilesAsTabled()
{
    QFETCH(double, share);
    QFETCH(double, degrees);
    QFETCH(double, tabled);
    QFETCH(double, tolerance);
    const double told = degrees * OvNoiseLevel::chiSquareQuantile(share, degrees);
    QVERIFY2(std::abs(told - tabled) < tolerance * tabled, qPrintable(QString::number(told)));
}

void tst_OvNoiseLevel::freedomOfKnownProcesses_data()
{
    QTest::addColumn<QVector<double>>("correlation");
    QTest::addColumn<double>("freedom");
    QTest::newRow("white") << QVector<double>{3.0, 0.0, 0.0} << 1.0;
    QTest::newRow("one lag") << QVector<double>{5.0} << 1.0;
    // x(i) + x(i - 1) and x(i) + 2 x(i - 1) + x(i - 2) of white noise.
    QTest::newRow("sum of two") << QVector<double>{2.0, 1.0, 0.0} << 2.0 / 3.0;
    QTest::newRow("triangle") << QVector<double>{6.0, 4.0, 1.0} << 36.0 / 70.0;
    QTest::newRow("difference") << QVector<double>{2.0, -1.0} << 2.0 / 3.0;
}

void tst_OvNoiseLevel::freedomOfKnownProcesses()
{
    QFETCH(QVector<double>, correlation);
    QFETCH(double, freedom);
    const std::vector<double> lags(correlation.begin(), correlation.end());
    QVERIFY(std::abs(OvNoiseLevel::freedomOf(lags) - freedom) < 1e-12);
}

void tst_OvNoiseLevel::quietNoise_data()
{
    addSmoothings();
}

void tst_OvNoiseLevel::quietNoise()
{
    QFETCH(int, half);
    QFETCH(int, stretch);
    const Smoothed noise(half);
    const float level = Meter().quiet(noise.samples.data(), many, stretch, noise.freedom);
    QVERIFY(isNear(level, noise.energy, 0.06));
}

// The quieter eighth of the stretches is still all noise.
void tst_OvNoiseLevel::quietBesideALoudSignal()
{
    Smoothed noise(0);
    for (int i = many - many / 10; i < many; ++i)
        noise.samples[static_cast<std::size_t>(i)] *= 50.0F;
    QVERIFY(isNear(Meter().quiet(noise.samples.data(), many, 24, 1.0), 4.0, 0.06));
    // Of half of the stretches it is the quieter quarter.
    for (int i = many / 2; i < many - many / 10; ++i)
        noise.samples[static_cast<std::size_t>(i)] *= 50.0F;
    const double more =
        OvNoiseLevel::chiSquareQuantile(0.25, 24.0) / OvNoiseLevel::chiSquareQuantile(0.125, 24.0);
    QVERIFY(isNear(Meter().quiet(noise.samples.data(), many, 24, 1.0), 4.0 * more, 0.06));
}

void tst_OvNoiseLevel::quietPassesOverSilence()
{
    Meter meter;
    Smoothed noise(0);
    std::fill(noise.samples.begin(), noise.samples.begin() + many / 2, 0.0F);
    QVERIFY(isNear(meter.quiet(noise.samples.data(), many, 24, 1.0), 4.0, 0.08));
    QVERIFY(meter.quiet(noise.samples.data(), many / 2, 24, 1.0) < 0.0F);
    QVERIFY(meter.quiet(noise.samples.data() + many / 2, 23, 24, 1.0) < 0.0F);
    QVERIFY(meter.quiet(noise.samples.data() + many / 2, 24, 24, 1.0) > 0.0F);
}

void tst_OvNoiseLevel::usualNoise_data()
{
    addSmoothings();
}

void tst_OvNoiseLevel::usualNoise()
{
    QFETCH(int, half);
    QFETCH(int, stretch);
    const Smoothed noise(half);
    const float level = Meter().usual(noise.samples.data(), many, stretch, noise.freedom);
    QVERIFY(isNear(level, noise.energy, 0.07));
}

void tst_OvNoiseLevel::usualWithoutBursts()
{
    Smoothed noise(0);
    for (int i = 0; i < many; i += many / 40)
        noise.samples[static_cast<std::size_t>(i)] = 500.0F;
    QVERIFY(isNear(Meter().usual(noise.samples.data(), many, 24, 1.0), 4.0, 0.05));
    std::vector<float> energies(20, 1.0F);
    energies[5] = 100.0F;
    QCOMPARE(usualOf(energies), 1.0F);
}

// Three stretches in ten are loud.
void tst_OvNoiseLevel::usualOfNoiseThatComesAndGoes()
{
    constexpr double chance = 1.2;
    Smoothed noise(0);
    for (int i = 0; i < many; ++i)
        noise.samples[static_cast<std::size_t>(i)] *= i / 600 % 10 < 3 ? 3.0F : 1.0F;
    const float level = Meter().usual(noise.samples.data(), many, 60, 1.0);
    // A tenth of all is a third of the loud ones.
    const double loud = 36.0 * OvNoiseLevel::chiSquareQuantile(2.0 / 3.0, 60.0) /
                        OvNoiseLevel::chiSquareQuantile(0.9, 60.0);
    QVERIFY(isNear(level, loud / chance, 0.06));
    QVERIFY(level > 24.0F && level < 36.0F);
}

void tst_OvNoiseLevel::usualOfFewStretches()
{
    QCOMPARE(usualOf({2.0F}), 2.0F);
    QCOMPARE(usualOf({1.0F, 1.0F, 2.5F}), 1.5F);
    QCOMPARE(usualOf({0.0F, 0.0F, 0.0F, 0.0F, 0.0F}), 0.0F);
    // From four on the loudest has a word.
    QVERIFY(usualOf({1.0F, 1.0F, 1.0F, 8.0F}) > 2.0F);
}

QTEST_GUILESS_MAIN(tst_OvNoiseLevel)
#include "tst_OvNoiseLevel.moc"

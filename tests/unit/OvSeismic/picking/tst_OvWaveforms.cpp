#include "OvSeismic/picking/OvWaveforms.h"

#include <QtTest>

#include <cmath>

class tst_OvWaveforms : public QObject
{
    Q_OBJECT

private slots:
    void likenessOfShiftedCopies();
    void gainsAreCorrelations();
    void silenceIsLikeNothing();
    void turnsASingleReversedRow();
    void comparesOnOneCable();
    void leavesNoiseAlone();
};

namespace {

constexpr int points = 60;

// A wave packet whose middle lies at a point, the same shape at any size.
void fill(float* row, double middle, float size)
{
    for (int i = 0; i < points; ++i) {
        const double away = i - middle;
        row[i] = size * static_cast<float>(std::exp(-away * away / 18.0) * std::cos(0.8 * away));
    }
}

OvWaveforms wavesOf(const std::vector<double>& middles, const std::vector<float>& sizes)
{
    const int rows = static_cast<int>(middles.size());
    OvWaveforms waves(rows, points, 4, 8);
    for (int row = 0; row < rows; ++row) {
        const auto at = static_cast<std::size_t>(row);
        fill(waves.row(row), middles[at], sizes[at]);
        waves.measure(row);
    }
    return waves;
}

} // namespace

void tst_OvWaveforms::likenessOfShiftedCopies()
{
    const OvWaveforms waves = wavesOf({20, 23, 23}, {1.0F, 50.0F, -2.0F});
    QVERIFY(std::abs(waves.correlation(1, 23, 20) - 1.0F) < 1e-5F);
    QVERIFY(std::abs(waves.correlation(2, 23, 23) + 1.0F) < 1e-5F);
    QVERIFY(waves.correlation(1, 23, 24) < 0.2F);
    QCOMPARE(waves.correlation(0, 20, 20), 0.0F);
    QCOMPARE(waves.correlation(1, points, 20), 0.0F);
    QCOMPARE(waves.correlation(1, 20, -1), 0.0F);
}

void tst_OvWaveforms::gainsAreCorrelations()
{
    const OvWaveforms waves = wavesOf({20, 24}, {1.0F, 3.0F});
    OvPathStep step;
    step.expected = 2;
    step.reach = 3;
    std::vector<float> gains(7 * points, -9.0F);
    waves.gains(1, step, 1.5F, &gains);
    for (int move = -1; move <= 5; ++move) {
        for (int point = 8; point < points - 12; ++point) {
            const float gain = gains[static_cast<std::size_t>((move + 1) * points + point)];
            QVERIFY(std::abs(gain - 1.5F * waves.correlation(1, point, point - move)) < 1e-4F);
        }
    }
    const auto best = std::max_element(gains.begin(), gains.end()) - gains.begin();
    QCOMPARE(int(best / points) - 1, 4);
}

void tst_OvWaveforms::silenceIsLikeNothing()
{
    const OvWaveforms waves = wavesOf({20, 20}, {1.0F, 0.0F});
    QCOMPARE(waves.correlation(1, 20, 20), 0.0F);
    std::vector<float> gains(3 * points, 0.0F);
    OvPathStep step;
    step.reach = 1;
    waves.gains(1, step, 1.0F, &gains);
    QVERIFY(std::all_of(gains.begin(), gains.end(), [](float gain) { return gain == 0.0F; }));
}

void tst_OvWaveforms::turnsASingleReversedRow()
{
    OvWaveforms waves = wavesOf({20, 21, 22, 23, 24}, {1.0F, 1.0F, -1.0F, 1.0F, 1.0F});
    waves.turnReversed({20, 21, 22, 23, 24}, 1, {});
    for (int row = 1; row < 5; ++row)
        QVERIFY(waves.correlation(row, 20 + row, 19 + row) > 0.99F);
    QVERIFY(waves.row(0)[20] > 0.0F);
}

void tst_OvWaveforms::comparesOnOneCable()
{
    OvWaveforms waves = wavesOf({20, 21, 22, 23, 24}, {1.0F, 1.0F, -1.0F, 1.0F, 1.0F});
    const float before = waves.row(2)[22];
    waves.turnReversed({20, 21, 22, 23, 24}, 1, {0, 0, 1, 1, 1});
    QCOMPARE(waves.row(2)[22], before);
}

void tst_OvWaveforms::leavesNoiseAlone()
{
    OvWaveforms waves = wavesOf({20, 21, 40, 23, 24}, {1.0F, 1.0F, 1.0F, 1.0F, 1.0F});
    const float before = waves.row(2)[40];
    waves.turnReversed({20, 21, 22, 23, 24}, 1, {});
    QCOMPARE(waves.row(2)[40], before);
}

QTEST_GUILESS_MAIN(tst_OvWaveforms)
#include "tst_OvWaveforms.moc"

#include "OvSeismic/dsp/OvChangeScore.h"

#include <QtTest>

#include <algorithm>
#include <numeric>

/// Where a row of blocks turns from noise to signal.
class tst_OvChangeScore : public QObject
{
    Q_OBJECT

private slots:
    void energiesOfWholeBlocks();
    void energiesOfBlocksOfAnyLength();
    void ratiosAreBounded();
    void forerunnersAreMasked();
    void masksOfLongRows_data();
    void masksOfLongRows();
    void laterBlocksLeak();
    void scoresAreSums_data();
    void scoresAreSums();
    void bestWhereSignalBegins();
    void weakFirstWaveIsNotGivenUp();
    void burstIsNotTheArrival();
};

namespace {

// Blocks of energy 1, with stretches of others: from, to, energy.
struct Stretch
{
    int from;
    int to;
    float energy;
};

std::vector<float> blocks(int count, const std::vector<Stretch>& stretches)
{
    std::vector<float> values(static_cast<std::size_t>(count), 1.0F);
    for (const Stretch& stretch : stretches)
        std::fill(values.begin() + stretch.from, values.begin() + stretch.to, stretch.energy);
    return values;
}

OvChangeScore::Rule rule()
{
    OvChangeScore::Rule rule;
    rule.noise = 1.0F;
    rule.window = 6;
    rule.standsOut = 0.5F;
    rule.leak = 0.03F;
    return rule;
}

int best(std::vector<float> values)
{
    const int count = static_cast<int>(values.size());
    std::vector<float> scores(values.size());
    OvChangeScore::ratios(rule(), count, values.data());
    OvChangeScore::scores(rule(), count, values.data(), scores.data());
    return static_cast<int>(std::max_element(scores.begin(), scores.end()) - scores.begin());
}

} // namespace

void tst_OvChangeScore::energiesOfBlocksOfAnyLength()
{
    std::vector<float> samples;
    for (int i = 0; i < 150; ++i)
        samples.push_back(static_cast<float>((i * 7919 + 13) % 101) - 50.0F);
    for (int block = 1; block <= 50; ++block) {
        const int blocks = 150 / block;
        std::vector<float> out(static_cast<std::size_t>(blocks) + 1, -1.0F);
        OvChangeScore::energies(samples.data(), 150, block, out.data());
        for (int k = 0; k < blocks; ++k) {
            const auto from = samples.begin() + k * block;
            const float sum = std::inner_product(from, from + block, from, 0.0F);
            QVERIFY(std::abs(out[static_cast<std::size_t>(k)] - sum / static_cast<float>(block)) <
                    0.01F);
        }
        QCOMPARE(out.back(), -1.0F);
    }
}

void tst_OvChangeScore::energiesOfWholeBlocks()
{
    const std::vector<float> samples{1.0F, -1.0F, 2.0F, 4.0F, 9.0F};
    std::vector<float> out(3, -1.0F);
    OvChangeScore::energies(samples.data(), 5, 2, out.data());
    QCOMPARE(out, (std::vector<float>{1.0F, 10.0F, -1.0F}));
}

void tst_OvChangeScore::ratiosAreBounded()
{
    std::vector<float> values{0.0F, 1.0F, 1.0F, 2.0F, 1e9F};
    OvChangeScore::Rule strict = rule();
    strict.first = 1;
    OvChangeScore::ratios(strict, 5, values.data());
    QCOMPARE(values[0], -1.0F);
    QVERIFY(values[1] < 0.0F && values[1] > -1.0F);
    QCOMPARE(values[1], values[2]);
    QVERIFY(values[3] > 0.0F && values[3] < values[4]);
    QVERIFY(values[4] < 5.0F);
    std::vector<float> silent{0.0F, 0.0F};
    strict.noise = 0.0F;
    OvChangeScore::ratios(strict, 2, silent.data());
    QCOMPARE(silent[1], -1.0F);
}

void tst_OvChangeScore::forerunnersAreMasked()
{
    OvChangeScore::Rule masking = rule();
    masking.forerunner = 0.01F;
    masking.ahead = 3;
    std::vector<float> values = blocks(20, {{8, 10, 20.0F}, {11, 16, 5000.0F}});
    OvChangeScore::ratios(masking, 20, values.data());
    QVERIFY(values[9] < 0.0F);
    QVERIFY(values[11] > 1.0F);
}

void tst_OvChangeScore::masksOfLongRows_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("ahead");
    for (const int count : {1, 5, 255, 256, 257, 700}) {
        for (const int ahead : {0, 1, 6, 11, 200})
            QTest::newRow(qPrintable(QStringLiteral("%1 blocks, %2 ahead").arg(count).arg(ahead)))
                << count << ahead;
    }
}

// Against the largest of what lies ahead, looked for at each block.
void tst_OvChangeScore::masksOfLongRows()
{
    QFETCH(int, count);
    QFETCH(int, ahead);
    std::vector<float> energies;
    for (int k = 0; k < count; ++k)
        energies.push_back(static_cast<float>((k * 7919 + 13) % 101));
    OvChangeScore::Rule asked = rule();
    asked.forerunner = 0.03F;
    asked.ahead = ahead;
    std::vector<float> ratios = energies;
    OvChangeScore::ratios(asked, count, ratios.data());
    for (int k = 0; k < count; ++k) {
        const auto from = energies.begin() + k;
        const float largest = *std::max_element(from, from + std::min(ahead + 1, count - k));
        // The ratio of a block by itself, with all of the noise that it is held against.
        OvChangeScore::Rule alone = rule();
        alone.noise = std::max(asked.noise, asked.forerunner * largest);
        float expected = *from;
        OvChangeScore::ratios(alone, 1, &expected);
        QCOMPARE(ratios[static_cast<std::size_t>(k)], expected);
    }
}

void tst_OvChangeScore::laterBlocksLeak()
{
    // Pairs above a half: 1 and 2, 2 and 0.6.
    const std::vector<float> ratios{-0.3F, 1.0F, -0.3F, 1.0F, 2.0F, 0.6F, -0.3F};
    const auto scores = [&ratios](float leak) {
        OvChangeScore::Rule asked = rule();
        asked.window = 2;
        asked.standsOut = 0.5F;
        asked.leak = leak;
        std::vector<float> used = ratios;
        std::vector<float> out(ratios.size());
        OvChangeScore::scores(asked, static_cast<int>(ratios.size()), used.data(), out.data());
        return out;
    };
    const std::vector<float> tight = scores(0.0F);
    const std::vector<float> leaking = scores(0.125F);
    // A window of 0.7 lacks 1.3, twice; 1 and 2 stand out behind it.
    QVERIFY(std::abs(tight[0] - (0.7F - 2.6F + 3.0F)) < 1e-5F);
    // The last block has no neighbour to stand out with.
    for (std::size_t k = 0; k < ratios.size(); ++k) {
        const float later =
            std::max(static_cast<float>(ratios.size()) - 3.0F - static_cast<float>(k), 0.0F);
        QVERIFY(std::abs(tight[k] - leaking[k] - 0.125F * later) < 1e-5F);
    }
}

void tst_OvChangeScore::scoresAreSums_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("window");
    for (const int count : {1, 5, 16, 21, 37, 600, 1200}) {
        for (const int window : {1, 6, 40})
            QTest::newRow(qPrintable(QStringLiteral("%1 blocks by %2").arg(count).arg(window)))
                << count << window;
    }
}

// Against the sums of each window, and of all behind it, written out.
void tst_OvChangeScore::scoresAreSums()
{
    QFETCH(int, count);
    QFETCH(int, window);
    std::vector<float> ratios;
    for (int k = 0; k < count; ++k)
        ratios.push_back(static_cast<float>((k * 7919 + 13) % 101) / 40.0F - 1.0F);
    OvChangeScore::Rule asked = rule();
    asked.window = window;
    std::vector<float> scores(ratios.size());
    OvChangeScore::scores(asked, count, ratios.data(), scores.data());
    const auto ratio = [&ratios](int k) { return ratios[static_cast<std::size_t>(k)]; };
    for (int k = 0; k < count; ++k) {
        const int end = std::min(k + window, count);
        float inside = 0.0F;
        for (int i = k; i < end; ++i)
            inside += ratio(i);
        float score = std::min(inside, inside - 2.0F * (2.0F - inside));
        for (int i = end; i + 1 < count; ++i) {
            const bool standsOut = std::min(ratio(i), ratio(i + 1)) > asked.standsOut;
            score += (standsOut ? ratio(i) : 0.0F) - asked.leak;
        }
        QVERIFY(std::abs(scores[static_cast<std::size_t>(k)] - score) < 2e-3F);
    }
}

void tst_OvChangeScore::bestWhereSignalBegins()
{
    for (const int onset : {5, 37, 80}) {
        const int found = best(blocks(120, {{onset, 120, 6.0F}}));
        QVERIFY2(std::abs(found - onset) <= 1, qPrintable(QString::number(found)));
    }
}

void tst_OvChangeScore::weakFirstWaveIsNotGivenUp()
{
    const int found = best(blocks(120, {{30, 37, 3.0F}, {60, 120, 400.0F}}));
    QVERIFY2(std::abs(found - 30) <= 1, qPrintable(QString::number(found)));
}

void tst_OvChangeScore::burstIsNotTheArrival()
{
    const int found = best(blocks(120, {{20, 21, 1000.0F}, {60, 120, 8.0F}}));
    QVERIFY2(std::abs(found - 60) <= 1, qPrintable(QString::number(found)));
}

QTEST_GUILESS_MAIN(tst_OvChangeScore)
#include "tst_OvChangeScore.moc"

#include "OvSeismic/picking/OvRowMixer.h"

#include "GuidedGather.h"
#include "OvSeismic/dsp/OvRank.h"

#include <QtTest>

#include <cmath>

/// Rows that are alike along a line, mixed along it and along others.
class tst_OvRowMixer : public QObject
{
    Q_OBJECT

private slots:
    void addsUpAlongTheWave();
    void noiseKeepsItsSize();
    void endsOfACableHaveFewerNeighbours();
    void loudSamplesAreCutOff();
    void rowsAreThoseToBeSearched();
};

namespace {

constexpr int rowCount = 40;

// Arrivals a quarter of a millisecond a metre apart from row to row, 2.5 points.
struct Setup : GuidedGather
{
    OvRowMixer mixer;
    std::vector<float> signs = std::vector<float>(rowCount, 1.0F);

    explicit Setup(double noise)
        : GuidedGather(rowCount)
    {
        synthetic.addNoise(noise);
        load();
        guide.find(grid, chain, {});
        mixer.load(guide, grid, signs);
    }

    std::vector<double> line(double slope) const
    {
        std::vector<double> points;
        for (int row = 0; row < rowCount; ++row)
            points.push_back(slope * row);
        return points;
    }
    // Of the period behind the arrival on the mixed row.
    double rms(int row) const { return rms(row, static_cast<int>(onset(row)), 20); }
    double rms(int row, int from, int count) const
    {
        double sum = 0.0;
        for (int i = from; i < from + count; ++i)
            sum += std::pow(static_cast<double>(mixer.row(row)[i]), 2.0);
        return std::sqrt(sum / count);
    }
    double usualRms() const
    {
        std::vector<double> values;
        for (int row = 5; row < rowCount - 5; ++row)
            values.push_back(rms(row));
        return OvRank::median(values);
    }
};

} // namespace

// Weights of 1, 2, 3, 4, 3, 2, 1 let what is alike grow by 16 / sqrt(44), reach 0 not at all.
void tst_OvRowMixer::addsUpAlongTheWave()
{
    Setup setup(0.5);
    setup.mixer.mix(setup.chain, setup.line(2.5), 0);
    const double alone = setup.usualRms();
    setup.mixer.mix(setup.chain, setup.line(2.5), 3);
    const double along = setup.usualRms();
    setup.mixer.mix(setup.chain, setup.line(-2.5), 3);
    const double across = setup.usualRms();
    // A tenth of what stands alone is noise, which does not grow.
    QVERIFY2(along > 1.8 * alone && along < 16.0 / std::sqrt(44.0) * alone,
             qPrintable(QStringLiteral("%1 of %2").arg(along).arg(alone)));
    QVERIFY2(across < 0.75 * along, qPrintable(QStringLiteral("%1 of %2").arg(across).arg(along)));
    // A reversed row is as good as the others once its sign is known.
    for (const int row : {7, 8, 20}) {
        setup.synthetic.scale(row, -1.0F);
        setup.signs[GuidedGather::at(row)] = -1.0F;
    }
    setup.grid.load(setup.synthetic.gather, setup.chain, 1, 0.0);
    QVERIFY(setup.guide.find(setup.grid, setup.chain, {}));
    setup.mixer.load(setup.guide, setup.grid, setup.signs);
    setup.mixer.mix(setup.chain, setup.line(2.5), 3);
    QVERIFY(std::abs(setup.usualRms() - along) < 0.02 * along);
}

void tst_OvRowMixer::noiseKeepsItsSize()
{
    Setup setup(0.5);
    for (const int reach : {0, 3, 5}) {
        setup.mixer.mix(setup.chain, setup.line(2.5), reach);
        std::vector<double> sizes;
        for (int row = 0; row < rowCount; ++row)
            sizes.push_back(static_cast<double>(setup.mixer.noise(row)));
        const double size = OvRank::median(sizes);
        QVERIFY2(std::abs(size - 1.0) < 0.12, qPrintable(QString::number(size)));
    }
}

void tst_OvRowMixer::endsOfACableHaveFewerNeighbours()
{
    Setup setup(0.5);
    setup.chain.cables.assign(rowCount, 0);
    std::fill(setup.chain.cables.begin() + 20, setup.chain.cables.end(), 1);
    setup.mixer.mix(setup.chain, setup.line(0.0), 3);
    const std::vector<float> before(setup.mixer.row(19), setup.mixer.row(19) + setup.grid.points());
    std::vector<double> moved = setup.line(0.0);
    std::fill(moved.begin() + 20, moved.end(), 40.0);
    setup.mixer.mix(setup.chain, moved, 3);
    QCOMPARE(std::vector<float>(setup.mixer.row(19), setup.mixer.row(19) + setup.grid.points()),
             before);
    setup.chain.cables.clear();
    setup.mixer.mix(setup.chain, moved, 3);
    QVERIFY(std::vector<float>(setup.mixer.row(19), setup.mixer.row(19) + setup.grid.points()) !=
            before);
}

// Four times the noise is the most that a sample counts.
void tst_OvRowMixer::loudSamplesAreCutOff()
{
    Setup setup(0.01);
    setup.mixer.mix(setup.chain, setup.line(2.5), 0);
    for (int row = 0; row < rowCount; ++row) {
        const float* values = setup.mixer.row(row);
        const float largest = *std::max_element(values, values + setup.grid.points());
        QVERIFY(std::abs(static_cast<double>(largest) - 4.0) < 1e-5);
    }
}

void tst_OvRowMixer::rowsAreThoseToBeSearched()
{
    Setup setup(0.5);
    setup.mixer.mix(setup.chain, setup.line(2.5), 3);
    const OvOnsetLattice::Rows rows = setup.mixer.rows();
    QCOMPARE(rows.values, setup.mixer.row(0));
    QCOMPARE(rows.noise[3], setup.mixer.noise(3));
    QCOMPARE(rows.grid, static_cast<const OvTraceGrid*>(&setup.grid));
    QCOMPARE(rows.period, setup.guide.period());
    QCOMPARE(rows.settle, setup.guide.settle());
}

QTEST_GUILESS_MAIN(tst_OvRowMixer)
#include "tst_OvRowMixer.moc"

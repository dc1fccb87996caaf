#include "OvSeismic/dsp/OvRank.h"
#include "OvSeismic/picking/OvArrivalAlignment.h"
#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"

#include "SyntheticGather.h"

#include <QtTest>

/// Alignment of wavelets whose times are known between the samples.
class tst_OvArrivalAlignment : public QObject
{
    Q_OBJECT

private slots:
    void findsShiftsBetweenSamples();
    void noiseHidesLittle();
    void turnsReversedTraces();
    void noiseHasLittleStrength();
    void stopsWhenCancelled();
    void changeHoldsAgainstALouderWave();
    void weakArrivalsGetMoreNeighbours();
};

namespace {

// A gather on a grid, and what is asked of it.
struct Setup
{
    SyntheticGather synthetic;
    OvTraceChain chain;
    OvTraceGrid grid;
    float noise;

    explicit Setup(double rms, int traces = 40)
        : synthetic(traces)
        , noise(static_cast<float>(std::max(rms, 1e-3)))
    {
        synthetic.addNoise(rms);
        load();
    }

    void load()
    {
        chain = OvTraceChain::of(synthetic.gather);
        grid.load(synthetic.gather, chain, 1, 0.0);
    }

    OvArrivalAlignment::Input input(const std::atomic<bool>* cancel = nullptr) const
    {
        OvArrivalAlignment::Input input;
        input.rows = grid.rows();
        input.points = grid.points();
        input.period = 20.0;
        input.samples = [this](int row) { return grid.row(row); };
        input.noise = [this](int) { return noise; };
        input.chain = &chain;
        input.cancel = cancel;
        return input;
    }

    double truth(int row) const
    {
        return grid.pointAt(row, synthetic.onsetsMs[static_cast<std::size_t>(row)]);
    }

    // Times off by up to three samples to and fro.
    std::vector<double> guesses() const
    {
        std::vector<double> times;
        for (int row = 0; row < grid.rows(); ++row)
            times.push_back(std::round(truth(row)) + 3 * (row % 3 - 1));
        return times;
    }

    // Largest distance of the matches from the truth, one shift for all taken off.
    double worst(const OvArrivalAlignment& alignment) const
    {
        std::vector<double> errors;
        for (int row = 0; row < grid.rows(); ++row)
            errors.push_back(alignment.matches()[static_cast<std::size_t>(row)].time - truth(row));
        const double shift = OvRank::median(errors);
        double worst = 0.0;
        for (const double error : errors)
            worst = std::max(worst, std::abs(error - shift));
        return worst;
    }
};

} // namespace

void tst_OvArrivalAlignment::findsShiftsBetweenSamples()
{
    const Setup setup(0.0);
    OvArrivalAlignment alignment;
    QVERIFY(alignment.align(setup.input(), setup.guesses()));
    const double worst = setup.worst(alignment);
    QVERIFY2(worst < 0.25, qPrintable(QString::number(worst)));
    for (const auto& match : alignment.matches()) {
        QVERIFY(match.likeness > 0.98F);
        // The misfit leaves 1 / sqrt(0.03) of a perfect match.
        QVERIFY(match.strength > 5.6F && match.strength < 5.8F);
    }
}

void tst_OvArrivalAlignment::noiseHidesLittle()
{
    const Setup setup(0.2);
    OvArrivalAlignment alignment;
    QVERIFY(alignment.align(setup.input(), setup.guesses()));
    const double worst = setup.worst(alignment);
    QVERIFY2(worst < 2.5, qPrintable(QString::number(worst)));
}

void tst_OvArrivalAlignment::turnsReversedTraces()
{
    Setup setup(0.05);
    for (const int row : {7, 25})
        setup.synthetic.scale(row, -1.0F);
    setup.load();
    OvArrivalAlignment alignment;
    QVERIFY(alignment.align(setup.input(), setup.guesses()));
    for (int row = 0; row < 40; ++row)
        QCOMPARE(alignment.matches()[static_cast<std::size_t>(row)].sign,
                 row == 7 || row == 25 ? -1.0F : 1.0F);
    QVERIFY(setup.worst(alignment) < 1.0);
}

void tst_OvArrivalAlignment::noiseHasLittleStrength()
{
    Setup setup(1.0);
    for (int row = 0; row < 40; ++row)
        setup.synthetic.scale(row, 0.0F);
    setup.synthetic.addNoise(1.0);
    setup.load();
    OvArrivalAlignment alignment;
    QVERIFY(alignment.align(setup.input(), setup.guesses()));
    std::vector<double> strengths;
    for (const auto& match : alignment.matches())
        strengths.push_back(static_cast<double>(match.strength));
    QVERIFY2(OvRank::median(strengths) < 3.0,
             qPrintable(QString::number(OvRank::median(strengths))));
}

void tst_OvArrivalAlignment::stopsWhenCancelled()
{
    const Setup setup(0.1);
    const std::atomic<bool> cancel{true};
    OvArrivalAlignment alignment;
    QVERIFY(!alignment.align(setup.input(&cancel), setup.guesses()));
}

// A wave three times as loud comes 32 ms behind the arrival; every other trace is put on it.
void tst_OvArrivalAlignment::changeHoldsAgainstALouderWave()
{
    Setup setup(0.0);
    for (int row = 0; row < 40; ++row)
        setup.synthetic.add(row, setup.synthetic.onsetsMs[static_cast<std::size_t>(row)] + 32.0,
                            3.0, 25.0);
    setup.synthetic.addNoise(0.1);
    setup.noise = 0.1F;
    setup.load();
    std::vector<double> guesses;
    for (int row = 0; row < 40; ++row)
        guesses.push_back(std::round(setup.truth(row)) + 16 * (row % 2));
    const auto missed = [&setup, &guesses](const OvArrivalAlignment::Input& input) {
        OvArrivalAlignment alignment;
        alignment.align(input, guesses);
        int count = 0;
        for (int row = 0; row < 40; ++row)
            count += std::abs(alignment.matches()[static_cast<std::size_t>(row)].time -
                              setup.truth(row)) > 6.0;
        return count;
    };
    OvArrivalAlignment::Input input = setup.input();
    QVERIFY(missed(input) > 20);
    input.addChange = [&setup](int row, int point, int count, float* out) {
        for (int i = 0; i < count; ++i)
            out[i] += std::abs(point + i - setup.truth(row)) < 4.0 ? 10.0F : 0.0F;
    };
    QCOMPARE(missed(input), 0);
}

void tst_OvArrivalAlignment::weakArrivalsGetMoreNeighbours()
{
    const auto neighboursAt = [](double rms) {
        const Setup setup(rms, 80);
        OvArrivalAlignment alignment;
        alignment.align(setup.input(), setup.guesses());
        return alignment.neighbours();
    };
    // Without noise the first round settles it, with the fewest neighbours.
    QCOMPARE(neighboursAt(0.0), 7);
    QVERIFY(neighboursAt(0.3) > 8);
    QVERIFY(neighboursAt(0.6) > neighboursAt(0.3));
    QCOMPARE(neighboursAt(2.0), 24);
}

QTEST_GUILESS_MAIN(tst_OvArrivalAlignment)
#include "tst_OvArrivalAlignment.moc"

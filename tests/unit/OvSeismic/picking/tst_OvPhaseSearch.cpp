#include "OvSeismic/picking/OvPhaseSearch.h"

#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"

#include "SyntheticGather.h"

#include <QtTest>

/// Points of a wavelet whose extrema and zeros are known.
class tst_OvPhaseSearch : public QObject
{
    Q_OBJECT

private slots:
    void phasesOfAKnownWavelet_data();
    void phasesOfAKnownWavelet();
    void peakOfATraceThatComesLate_data();
    void peakOfATraceThatComesLate();
};

namespace {

constexpr double period = 20.0; // points
constexpr double peakMs = 11.992;

// A gather on a grid, and its true onsets.
struct Setup
{
    SyntheticGather synthetic{40};
    OvTraceGrid grid;

    std::vector<OvArrivalStack::Member> load()
    {
        grid.load(synthetic.gather, OvTraceChain::of(synthetic.gather), 1, 0.0);
        std::vector<OvArrivalStack::Member> members;
        for (int row = 0; row < grid.rows(); ++row)
            members.push_back(
                {grid.pointAt(row, synthetic.onsetsMs[static_cast<std::size_t>(row)]), 1.0F, 1.0F});
        return members;
    }

    double afterOnsetMs(int row, const std::vector<double>& points) const
    {
        const auto at = static_cast<std::size_t>(row);
        return grid.timeMs(row, points[at]) - synthetic.onsetsMs[at];
    }
};

} // namespace

void tst_OvPhaseSearch::phasesOfAKnownWavelet_data()
{
    QTest::addColumn<int>("phase");
    QTest::addColumn<double>("afterMs");
    // t exp(-a t) sin(w t) with a = 32.5, w = 157.08 a second: zeros at 20 ms and 40 ms, extrema
    // where 1 / t - a + w / tan(w t) = 0.
    QTest::newRow("onset") << static_cast<int>(OvPickPhase::Onset) << 0.0;
    QTest::newRow("peak") << static_cast<int>(OvPickPhase::Peak) << 11.992;
    QTest::newRow("trough") << static_cast<int>(OvPickPhase::Trough) << 30.110;
    QTest::newRow("zero") << static_cast<int>(OvPickPhase::ZeroCrossing) << 20.0;
}

void tst_OvPhaseSearch::phasesOfAKnownWavelet()
{
    QFETCH(int, phase);
    QFETCH(double, afterMs);
    Setup setup;
    setup.synthetic.scale(11, -1.0F);
    std::vector<OvArrivalStack::Member> members = setup.load();
    members[11].sign = -1.0F;
    const auto points =
        OvPhaseSearch::find(setup.grid, members, period, static_cast<OvPickPhase>(phase));
    for (int row = 0; row < 40; ++row) {
        const double after = setup.afterOnsetMs(row, points);
        QVERIFY2(std::abs(after - afterMs) < 0.4, qPrintable(QString::number(after)));
    }
}

void tst_OvPhaseSearch::peakOfATraceThatComesLate_data()
{
    QTest::addColumn<double>("lateMs");
    QTest::addColumn<double>("afterMs");
    QTest::newRow("its own, less than a seventh of a period away") << 4.0 << peakMs + 4.0;
    QTest::newRow("the stack's, where the trace has another swing") << 16.0 << peakMs;
}

void tst_OvPhaseSearch::peakOfATraceThatComesLate()
{
    QFETCH(double, lateMs);
    QFETCH(double, afterMs);
    Setup setup;
    setup.synthetic.silence(20);
    setup.synthetic.add(20, setup.synthetic.onsetsMs[20] + lateMs, 1.0, 25.0);
    const auto members = setup.load();
    const auto points = OvPhaseSearch::find(setup.grid, members, period, OvPickPhase::Peak);
    const double after = setup.afterOnsetMs(20, points);
    QVERIFY2(std::abs(after - afterMs) < 0.4, qPrintable(QString::number(after)));
    QVERIFY(std::abs(setup.afterOnsetMs(19, points) - peakMs) < 0.4);
}

QTEST_GUILESS_MAIN(tst_OvPhaseSearch)
#include "tst_OvPhaseSearch.moc"

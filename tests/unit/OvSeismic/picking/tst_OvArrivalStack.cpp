#include "OvSeismic/picking/OvArrivalStack.h"

#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"
#include "SyntheticGather.h"

#include <QtTest>

#include <cmath>

/// Stacks of traces that are aligned on arrivals at known times.
class tst_OvArrivalStack : public QObject
{
    Q_OBJECT

private slots:
    void findsTheOnset_data();
    void findsTheOnset();
    void moreNeighboursHoldInMoreNoise();
    void neighboursAreAsManyAsSet();
    void reversedTracesCountTurnedOver();
    void membersWithoutWeightAreLeftOut();
    void neighboursCountLessFartherAway();
    void runsTwoPeriodsEitherSide();
    void silenceHasNoOnset();
};

namespace {

constexpr double periodPoints = 20.0;
constexpr int rowCount = 60;

struct Setup
{
    SyntheticGather synthetic{rowCount};
    OvTraceGrid grid;
    std::vector<OvArrivalStack::Member> members;

    explicit Setup(double rms)
    {
        synthetic.addNoise(rms);
        load();
    }

    void load()
    {
        grid.load(synthetic.gather, OvTraceChain::of(synthetic.gather), 1, 0.0);
        members.clear();
        for (int row = 0; row < grid.rows(); ++row)
            members.push_back(
                {grid.pointAt(row, synthetic.onsetsMs[static_cast<std::size_t>(row)]), 1.0F, 1.0F});
    }

    // Largest distance of an onset from the arrival.
    double worst(int neighbours) const
    {
        OvArrivalStack stack;
        stack.setNeighbours(neighbours);
        double worst = 0.0;
        for (const double onset :
             stack.onsets(grid, members, periodPoints, OvFirstSwing::Sign::Positive))
            worst = std::max(worst, std::abs(onset));
        return worst;
    }

    std::vector<float> stackOf(int row, int neighbours = 7) const
    {
        OvArrivalStack stack;
        stack.setNeighbours(neighbours);
        stack.load(grid, members, periodPoints);
        stack.stack(row);
        return stack.samples();
    }
};

} // namespace

void tst_OvArrivalStack::findsTheOnset_data()
{
    QTest::addColumn<int>("neighbours");
    QTest::addColumn<double>("rms");
    for (const int neighbours : {7, 24}) {
        for (const double rms : {0.0, 0.05, 0.25}) {
            const QString name = QStringLiteral("%1 neighbours, noise of %2").arg(neighbours);
            QTest::newRow(qPrintable(name.arg(rms))) << neighbours << rms;
        }
    }
}

void tst_OvArrivalStack::findsTheOnset()
{
    QFETCH(int, neighbours);
    QFETCH(double, rms);
    const Setup setup(rms);
    const double worst = setup.worst(neighbours);
    QVERIFY2(worst < 2.0, qPrintable(QString::number(worst)));
}

void tst_OvArrivalStack::moreNeighboursHoldInMoreNoise()
{
    const Setup setup(1.0);
    const double few = setup.worst(7);
    const double many = setup.worst(24);
    QVERIFY2(many < 3.0 && many < few,
             qPrintable(QStringLiteral("%1 against %2").arg(many).arg(few)));
}

// A trace that is so far away as is stacked still counts, one farther does not.
void tst_OvArrivalStack::neighboursAreAsManyAsSet()
{
    Setup setup(0.1);
    for (const int neighbours : {7, 24}) {
        const std::vector<float> before = setup.stackOf(30, neighbours);
        setup.synthetic.add(30 + neighbours + 1, 0.0, 10.0, 25.0);
        setup.load();
        QCOMPARE(setup.stackOf(30, neighbours), before);
        setup.synthetic.add(30 + neighbours, 0.0, 10.0, 25.0);
        setup.load();
        QVERIFY(setup.stackOf(30, neighbours) != before);
    }
}

void tst_OvArrivalStack::reversedTracesCountTurnedOver()
{
    Setup setup(0.1);
    const std::vector<float> plain = setup.stackOf(20);
    for (const int row : {17, 20, 22})
        setup.synthetic.scale(row, -1.0F);
    setup.load();
    QVERIFY(setup.stackOf(20) != plain);
    for (const std::size_t row : {17U, 20U, 22U})
        setup.members[row].sign = -1.0F;
    QCOMPARE(setup.stackOf(20), plain);
}

void tst_OvArrivalStack::membersWithoutWeightAreLeftOut()
{
    Setup plain(0.1);
    plain.members[21].weight = 0.0F;
    Setup burst(0.1);
    for (int i = 0; i < burst.synthetic.gather.sampleCount; ++i)
        burst.synthetic.gather.trace(21)[i] += i % 2 == 0 ? 50.0F : -50.0F;
    burst.load();
    burst.members[21].weight = 0.0F;
    QCOMPARE(burst.stackOf(20), plain.stackOf(20));
    burst.members[21].weight = 1.0F;
    QVERIFY(burst.stackOf(20) != plain.stackOf(20));
}

void tst_OvArrivalStack::neighboursCountLessFartherAway()
{
    for (const int only : {0, 1, 30, rowCount - 1}) {
        Setup setup(0.0);
        for (OvArrivalStack::Member& member : setup.members)
            member.weight = 0.0F;
        setup.members[static_cast<std::size_t>(only)].weight = 1.0F;
        const auto largestAt = [&setup](int row) {
            const std::vector<float> stack = setup.stackOf(row);
            return static_cast<double>(*std::max_element(stack.begin(), stack.end()));
        };
        const double own = largestAt(only);
        QVERIFY(own > 0.0);
        for (const int away : {1, 3, 7, 8}) {
            const int row = only + (only > 20 ? -away : away);
            const double share = away / (0.6 * 7.0);
            const double expected = away > 7 ? 0.0 : std::exp(-share * share);
            QVERIFY(std::abs(largestAt(row) / own - expected) < 1e-4);
        }
    }
}

void tst_OvArrivalStack::runsTwoPeriodsEitherSide()
{
    const Setup setup(0.0);
    OvArrivalStack stack;
    stack.load(setup.grid, setup.members, periodPoints);
    stack.stack(30);
    QCOMPARE(stack.origin(), 40);
    QCOMPARE(stack.samples().size(), std::size_t(81));
    // The first peak of the wavelet lies 12 ms behind its onset.
    const auto peak = std::max_element(stack.samples().begin(), stack.samples().begin() + 40 + 12);
    QCOMPARE(static_cast<int>(peak - stack.samples().begin()), 46);
}

void tst_OvArrivalStack::silenceHasNoOnset()
{
    Setup setup(0.1);
    for (int row = 0; row < rowCount; ++row)
        setup.synthetic.silence(row);
    const OvTraceChain chain = OvTraceChain::of(Setup(0.1).synthetic.gather);
    setup.grid.load(setup.synthetic.gather, chain, 1, 0.0);
    OvArrivalStack stack;
    const auto onsets =
        stack.onsets(setup.grid, setup.members, periodPoints, OvFirstSwing::Sign::Positive);
    QCOMPARE(onsets, std::vector<double>(rowCount, 0.0));
}

QTEST_GUILESS_MAIN(tst_OvArrivalStack)
#include "tst_OvArrivalStack.moc"

#include "OvSeismic/picking/OvOnsetLattice.h"

#include "OvSeismic/picking/OvTraceChain.h"
#include "OvSeismic/picking/OvTraceGrid.h"
#include "SyntheticGather.h"

#include <QtTest>

#include <limits>

/// Where rows whose energy steps at a known point turn from noise to signal.
class tst_OvOnsetLattice : public QObject
{
    Q_OBJECT

private slots:
    void peaksAtTheChange_data();
    void peaksAtTheChange();
    void nothingBeforeTheEarliest();
    void heldWithinWhatIsLikely();
    void guidePullsByAShare();
    void whatHasNotSettledSaysNothing();
    void betweenBlocks();
    void stepsWithoutACourse();
    void stepsAtACourse();
    void stopsWhenCancelled();
};

namespace {

constexpr int rowCount = 6;
constexpr int points = 240;
constexpr double period = 12.0;
constexpr int block = 2; // a sixth of the period

// Rows of energy 1 that step to 9 at 60, 70 and so on.
struct Setup
{
    SyntheticGather synthetic{rowCount, points};
    OvTraceGrid grid;
    std::vector<float> values;
    std::vector<float> noise = std::vector<float>(rowCount, 1.0F);

    Setup()
    {
        synthetic.addNoise(1.0);
        grid.load(synthetic.gather, OvTraceChain::of(synthetic.gather), 1, 0.0);
        for (int row = 0; row < rowCount; ++row) {
            for (int i = 0; i < points; ++i)
                values.push_back((i % 2 == 0 ? 1.0F : -1.0F) * (i < change(row) ? 1.0F : 3.0F));
        }
    }

    static int change(int row) { return 60 + 10 * row; }

    OvOnsetLattice::Rows rows() const
    {
        OvOnsetLattice::Rows rows;
        rows.grid = &grid;
        rows.values = values.data();
        rows.noise = noise.data();
        rows.period = period;
        return rows;
    }

    OvOnsetLattice built(const OvOnsetLimits& limits = {}) const
    {
        OvOnsetLattice lattice;
        lattice.build(rows(), limits);
        return lattice;
    }
};

// Point of the block of the best score.
int best(const OvOnsetLattice& lattice, int row)
{
    const float* scores = lattice.scores().row(row);
    return lattice.block() *
           static_cast<int>(std::max_element(scores, scores + lattice.scores().points) - scores);
}

// By how much limits lower the score of each block of a row.
std::vector<float> lowered(const Setup& setup, const OvOnsetLimits& limits, int row)
{
    const OvOnsetLattice free = setup.built();
    const OvOnsetLattice limited = setup.built(limits);
    std::vector<float> lowered;
    for (int k = 0; k < free.scores().points; ++k)
        lowered.push_back(free.scores().row(row)[k] - limited.scores().row(row)[k]);
    return lowered;
}

OvTraceChain chainOf(const std::vector<int>& away)
{
    OvTraceChain chain;
    chain.away = away;
    for (std::size_t i = 0; i < away.size(); ++i)
        chain.rows.push_back(static_cast<int>(i));
    chain.steps.assign(away.size(), 1.0);
    return chain;
}

bool isStep(const OvShiftPath::Step& step, int expected, double later, double earlier)
{
    return step.expected == expected && std::abs(static_cast<double>(step.later) - later) < 1e-6 &&
           std::abs(static_cast<double>(step.earlier) - earlier) < 1e-6;
}

} // namespace

void tst_OvOnsetLattice::peaksAtTheChange_data()
{
    QTest::addColumn<double>("windowPoints");
    QTest::newRow("window by the period") << 0.0;
    QTest::newRow("short window") << 6.0;
    QTest::newRow("long window") << 40.0;
}

void tst_OvOnsetLattice::peaksAtTheChange()
{
    QFETCH(double, windowPoints);
    const Setup setup;
    OvOnsetLimits limits;
    limits.windowPoints = windowPoints;
    OvOnsetLattice lattice;
    lattice.build(setup.rows(), limits);
    QCOMPARE(lattice.block(), block);
    QCOMPARE(lattice.scores().rows, rowCount);
    QCOMPARE(lattice.scores().points, points / block);
    for (int row = 0; row < rowCount; ++row)
        QCOMPARE(best(lattice, row), Setup::change(row));
}

void tst_OvOnsetLattice::nothingBeforeTheEarliest()
{
    const Setup setup;
    OvOnsetLimits limits;
    limits.earliest = 80;
    const OvOnsetLattice lattice = setup.built(limits);
    for (int row = 0; row < rowCount; ++row) {
        QCOMPARE(best(lattice, row), std::max(Setup::change(row), 80));
        QCOMPARE(lattice.scores().row(row)[39], -1000.0F);
        QVERIFY(lattice.scores().row(row)[40] > -100.0F);
    }
    limits.earliest = 10 * points;
    QCOMPARE(setup.built(limits).scores().row(0)[points / block - 1], -1000.0F);
    limits.earliest = -50;
    QCOMPARE(best(setup.built(limits), 0), 60);
}

void tst_OvOnsetLattice::heldWithinWhatIsLikely()
{
    const Setup setup;
    OvOnsetLimits limits;
    limits.earliestLikely.assign(rowCount, 41.0F);
    limits.latestLikely.assign(rowCount, 100.0F);
    const std::vector<float> far = lowered(setup, limits, 2);
    for (int k = 0; k < points / block; ++k) {
        const bool isLikely = block * k >= 41 && block * k <= 100;
        QVERIFY2(std::abs(far[static_cast<std::size_t>(k)] - (isLikely ? 0.0F : 6.0F)) < 1e-4F,
                 qPrintable(QString::number(k)));
    }
    // Bounds beside the row, and the wrong way round.
    limits.earliestLikely.assign(rowCount, 5000.0F);
    limits.latestLikely.assign(rowCount, -5000.0F);
    for (const float one : lowered(setup, limits, 2))
        QVERIFY(std::abs(one - 6.0F) < 1e-4F);
}

void tst_OvOnsetLattice::guidePullsByAShare()
{
    const Setup setup;
    const float unknown = std::numeric_limits<float>::quiet_NaN();
    OvOnsetLimits limits;
    limits.expected = {100.0F, unknown, 100.0F, 100.0F, 100.0F, 100.0F};
    limits.halfWidths = {20.0F, 20.0F, 0.0F, 20.0F, 20.0F, 20.0F};
    const std::vector<float> pulled = lowered(setup, limits, 0);
    for (int k = 0; k < points / block; ++k) {
        const double away = (block * k - 100.0) / 20.0;
        const double share = std::min(2.0 * away * away, 10.0);
        QVERIFY(std::abs(static_cast<double>(pulled[static_cast<std::size_t>(k)]) - share) < 1e-3);
    }
    for (const int row : {1, 2}) {
        for (const float one : lowered(setup, limits, row))
            QCOMPARE(one, 0.0F);
    }
    // A clear change far from where it is expected stays the best.
    QCOMPARE(best(setup.built(limits), 0), 60);
}

void tst_OvOnsetLattice::whatHasNotSettledSaysNothing()
{
    Setup setup;
    std::fill_n(setup.values.begin(), 20, 3.0F);
    OvOnsetLattice::Rows rows = setup.rows();
    OvOnsetLattice lattice;
    lattice.build(rows, {});
    const float loudStart = lattice.scores().row(0)[0];
    rows.settle = 20;
    lattice.build(rows, {});
    QVERIFY(lattice.scores().row(0)[0] < loudStart - 10.0F);
    QCOMPARE(best(lattice, 0), 60);
}

void tst_OvOnsetLattice::betweenBlocks()
{
    const Setup setup;
    const OvOnsetLattice lattice = setup.built();
    const float* scores = lattice.scores().row(1);
    const int last = points / block - 1;
    const auto added = [&lattice](int point, int count) {
        std::vector<float> out(static_cast<std::size_t>(count), 0.5F);
        lattice.addScores(1, point, count, out.data());
        return out;
    };
    const auto near = [](float a, float b) { return std::abs(a - b) < 1e-3F; };
    const std::vector<float> all = added(0, points);
    for (const int k : {0, 7, 34, 35, last - 1}) {
        const auto at = static_cast<std::size_t>(block) * static_cast<std::size_t>(k);
        QVERIFY(near(all[at], 0.5F + scores[k]));
        QVERIFY(near(all[at + 1], 0.5F + 0.5F * (scores[k] + scores[k + 1])));
    }
    // A stretch of any length says the same, and beyond the ends the end blocks do.
    constexpr int first = 2 * block - 1;
    const std::vector<float> few = added(first, 5);
    for (std::size_t i = 0; i < few.size(); ++i)
        QCOMPARE(few[i], all[i + first]);
    for (const float value : added(-30, 20))
        QCOMPARE(value, 0.5F + scores[0]);
    for (const float value : added(10 * points, 3))
        QCOMPARE(value, 0.5F + scores[last]);
    const std::vector<float> end = added(block * last - 1, 4);
    QVERIFY(near(end[0], 0.5F + 0.5F * (scores[last - 1] + scores[last])));
    for (std::size_t i = 1; i < end.size(); ++i)
        QCOMPARE(end[i], 0.5F + scores[last]);
    const std::vector<float> across = added(-3, 5);
    QCOMPARE(across[2], 0.5F + scores[0]);
    QCOMPARE(across[4], all[1]);
}

void tst_OvOnsetLattice::stepsWithoutACourse()
{
    const Setup setup;
    const OvOnsetLattice lattice = setup.built();
    OvTraceChain chain = chainOf({0, -1, -1, 1, 1, 0});
    chain.steps = {1.0, 1.0, 4.0, 0.5, 2.0, 1.0};
    const auto steps = lattice.steps(chain, {});
    QCOMPARE(steps.size(), std::size_t(6));
    QVERIFY(isStep(steps[0], 0, 0.0, 0.0));
    // An arrival comes later away from the shot: the other way costs threefold.
    QVERIFY(isStep(steps[1], 0, 3.0, 1.0));
    QVERIFY(isStep(steps[2], 0, 0.75, 0.25));
    QVERIFY(isStep(steps[3], 0, 1.0, 3.0));
    QVERIFY(isStep(steps[4], 0, 0.5, 1.5));
    QVERIFY(isStep(steps[5], 0, 1.0, 1.0));
}

// The course comes down by three blocks a link to the shot and rises by two behind it; another
// cable follows.
void tst_OvOnsetLattice::stepsAtACourse()
{
    const Setup setup;
    const OvOnsetLattice lattice = setup.built();
    OvTraceChain chain = chainOf({0, -1, -1, -1, -1, 1, 1, 1, 1, 0, 1, 1});
    chain.cables = {0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1};
    chain.steps[6] = 3.0;
    const std::vector<double> course{60, 54, 48, 42, 36, 40, 44, 48, 52, 200, 202, 204};
    const auto steps = lattice.steps(chain, course);
    for (const std::size_t i : {1U, 2U, 3U, 4U})
        QVERIFY(isStep(steps[i], -3, 3.0, 3.0));
    for (const std::size_t i : {5U, 7U, 8U})
        QVERIFY(isStep(steps[i], 2, 3.0, 3.0));
    QVERIFY(isStep(steps[6], 2, 1.0, 1.0));
    for (const std::size_t i : {0U, 9U})
        QVERIFY(isStep(steps[i], 0, 0.0, 0.0));
    QVERIFY(isStep(steps[10], 1, 3.0, 3.0));
}

void tst_OvOnsetLattice::stopsWhenCancelled()
{
    Setup setup;
    OvOnsetLattice lattice = setup.built();
    const std::vector<float> before = lattice.scores().scores;
    std::reverse(setup.values.begin(), setup.values.end());
    const std::atomic<bool> cancel{true};
    OvOnsetLimits limits;
    limits.cancel = &cancel;
    lattice.build(setup.rows(), limits);
    QCOMPARE(lattice.scores().scores, before);
    lattice.build(setup.rows(), {});
    QVERIFY(lattice.scores().scores != before);
}

QTEST_GUILESS_MAIN(tst_OvOnsetLattice)
#include "tst_OvOnsetLattice.moc"

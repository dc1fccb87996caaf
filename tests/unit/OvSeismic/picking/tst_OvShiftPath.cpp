#include "OvSeismic/picking/OvShiftPath.h"

#include <QtTest>

#include <cmath>
#include <functional>
#include <random>

/// The best path, against all paths.
class tst_OvShiftPath : public QObject
{
    Q_OBJECT

private slots:
    void sameAsTryingAllPaths_data();
    void sameAsTryingAllPaths();
    void sameAsAPlainSearch_data();
    void sameAsAPlainSearch();
    void followsASlope();
    void movesAnywhereForNothing();
    void emptyLattices();
    void keepsNothingFromTheLastSearch();
};

namespace {

using Step = OvShiftPath::Step;

float worth(const OvScoreLattice& lattice, const std::vector<Step>& steps,
            const std::vector<int>& path)
{
    float sum = lattice.row(0)[path[0]];
    for (int row = 1; row < lattice.rows; ++row) {
        const Step& step = steps[static_cast<std::size_t>(row)];
        const int aside = path[static_cast<std::size_t>(row)] -
                          path[static_cast<std::size_t>(row) - 1] - step.expected;
        sum += lattice.row(row)[path[static_cast<std::size_t>(row)]] -
               static_cast<float>(std::abs(aside)) * (aside > 0 ? step.later : step.earlier);
    }
    return sum;
}

float bestWorth(const OvScoreLattice& lattice, const std::vector<Step>& steps)
{
    float best = -1e30F;
    std::vector<int> path(static_cast<std::size_t>(lattice.rows), 0);
    const std::function<void(std::size_t)> fill = [&](std::size_t row) {
        if (row == path.size()) {
            best = std::max(best, worth(lattice, steps, path));
            return;
        }
        for (path[row] = 0; path[row] < lattice.points; ++path[row])
            fill(row + 1);
    };
    fill(0);
    return best;
}

// The worth of the best path from every point of a row to every point of the next.
float plainWorth(const OvScoreLattice& lattice, const std::vector<Step>& steps)
{
    const auto points = static_cast<std::size_t>(lattice.points);
    std::vector<float> sums(lattice.row(0), lattice.row(0) + points);
    std::vector<float> next(points);
    for (int row = 1; row < lattice.rows; ++row) {
        const Step& step = steps[static_cast<std::size_t>(row)];
        for (std::size_t to = 0; to < points; ++to) {
            float best = -1e30F;
            for (std::size_t from = 0; from < points; ++from) {
                const int aside = static_cast<int>(to) - static_cast<int>(from) - step.expected;
                best = std::max(best, sums[from] - static_cast<float>(std::abs(aside)) *
                                                       (aside > 0 ? step.later : step.earlier));
            }
            next[to] = best + lattice.row(row)[to];
        }
        sums.swap(next);
    }
    return *std::max_element(sums.begin(), sums.end());
}

OvScoreLattice randomLattice(int rows, int points, std::mt19937* engine)
{
    OvScoreLattice lattice{rows, points, {}};
    std::uniform_real_distribution<float> even(-3.0F, 3.0F);
    for (int i = 0; i < rows * points; ++i)
        lattice.scores.push_back(even(*engine));
    return lattice;
}

} // namespace

void tst_OvShiftPath::sameAsTryingAllPaths_data()
{
    QTest::addColumn<int>("expected");
    QTest::addColumn<double>("later");
    QTest::addColumn<double>("earlier");
    QTest::newRow("level") << 0 << 0.7 << 0.7;
    QTest::newRow("rising") << 2 << 0.4 << 0.4;
    QTest::newRow("falling") << -3 << 1.1 << 1.1;
    QTest::newRow("one way dearer") << 1 << 0.3 << 2.0;
    QTest::newRow("farther than the lattice") << 9 << 0.2 << 0.3;
    QTest::newRow("free") << 0 << 0.0 << 0.0;
}

void tst_OvShiftPath::sameAsTryingAllPaths()
{
    QFETCH(int, expected);
    QFETCH(double, later);
    QFETCH(double, earlier);
    std::mt19937 engine(3);
    OvShiftPath search;
    for (int trial = 0; trial < 20; ++trial) {
        const OvScoreLattice lattice = randomLattice(4, 7, &engine);
        const std::vector<Step> steps(
            4, {expected, static_cast<float>(later), static_cast<float>(earlier)});
        const std::vector<int>& path = search.find(lattice, steps);
        QCOMPARE(path.size(), std::size_t(4));
        const float found = worth(lattice, steps, path);
        const float best = bestWorth(lattice, steps);
        QVERIFY2(std::abs(found - best) < 1e-4F, qPrintable(QString::number(double(best - found))));
    }
}

void tst_OvShiftPath::sameAsAPlainSearch_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("points");
    QTest::addColumn<double>("price"); // of a point, at most
    QTest::newRow("a power of two") << 30 << 128 << 1.0;
    QTest::newRow("one more") << 30 << 129 << 1.0;
    QTest::newRow("one less") << 30 << 127 << 1.0;
    QTest::newRow("few points, many rows") << 400 << 17 << 1.0;
    QTest::newRow("far moves are cheap") << 25 << 300 << 0.02;
    QTest::newRow("large") << 60 << 700 << 0.3;
}

// Moves of every kind: level, steep, dearer one way, anywhere, farther than the lattice.
void tst_OvShiftPath::sameAsAPlainSearch()
{
    QFETCH(int, rows);
    QFETCH(int, points);
    QFETCH(double, price);
    std::mt19937 engine(21);
    const OvScoreLattice lattice = randomLattice(rows, points, &engine);
    std::uniform_real_distribution<float> cost(0.0F, static_cast<float>(price));
    std::uniform_int_distribution<int> expected(-points / 2, points / 2);
    std::vector<Step> steps;
    for (int row = 0; row < rows; ++row)
        steps.push_back({row % 7 == 3 ? 2 * points : expected(engine), cost(engine), cost(engine)});
    steps[static_cast<std::size_t>(rows) / 2] = OvShiftPath::anywhere;
    OvShiftPath search;
    const std::vector<int>& path = search.find(lattice, steps);
    QCOMPARE(path.size(), static_cast<std::size_t>(rows));
    for (const int point : path)
        QVERIFY(point >= 0 && point < points);
    const float found = worth(lattice, steps, path);
    const float best = plainWorth(lattice, steps);
    QVERIFY2(std::abs(found - best) < 1e-4F * std::abs(best) + 1e-2F,
             qPrintable(QStringLiteral("%1 of %2").arg(double(found)).arg(double(best))));
}

void tst_OvShiftPath::followsASlope()
{
    OvScoreLattice lattice{30, 100, std::vector<float>(3000, 0.0F)};
    for (int row = 0; row < 30; ++row)
        lattice.row(row)[10 + 2 * row] = 5.0F;
    lattice.row(12)[90] = 9.0F;
    const std::vector<Step> steps(30, {2, 1.0F, 1.0F});
    OvShiftPath search;
    const std::vector<int>& path = search.find(lattice, steps);
    for (int row = 0; row < 30; ++row)
        QCOMPARE(path[static_cast<std::size_t>(row)], 10 + 2 * row);
}

void tst_OvShiftPath::movesAnywhereForNothing()
{
    std::mt19937 engine(11);
    const OvScoreLattice lattice = randomLattice(2, 40, &engine);
    const auto best = [&lattice](int row) {
        return static_cast<int>(std::max_element(lattice.row(row), lattice.row(row) + 40) -
                                lattice.row(row));
    };
    OvShiftPath search;
    QCOMPARE(search.find(lattice, {{}, OvShiftPath::anywhere}),
             (std::vector<int>{best(0), best(1)}));
}

void tst_OvShiftPath::emptyLattices()
{
    OvShiftPath search;
    QVERIFY(search.find({0, 5, {}}, {}).empty());
    QVERIFY(search.find({5, 0, {}}, std::vector<Step>(5)).empty());
    QCOMPARE(search.find({1, 3, {0.0F, 2.0F, 1.0F}}, std::vector<Step>(1)), std::vector<int>{1});
}

void tst_OvShiftPath::keepsNothingFromTheLastSearch()
{
    std::mt19937 engine(8);
    const OvScoreLattice large = randomLattice(9, 40, &engine);
    const OvScoreLattice small = randomLattice(5, 11, &engine);
    const std::vector<Step> steps(9, {1, 0.5F, 0.5F});
    OvShiftPath fresh;
    const std::vector<int> alone = fresh.find(small, steps);
    OvShiftPath used;
    used.find(large, steps);
    QCOMPARE(used.find(small, steps), alone);
}

QTEST_GUILESS_MAIN(tst_OvShiftPath)
#include "tst_OvShiftPath.moc"

#include "OvSeismic/picking/OvPathSearch.h"

#include <QtTest>

#include <cmath>
#include <cstdlib>
#include <random>

class tst_OvPathSearch : public QObject
{
    Q_OBJECT

private slots:
    void findsTheBestOfAllPaths_data();
    void findsTheBestOfAllPaths();
    void prefersTheExpectedMove();
    void gainsDecide();
    void avoidsMovesTowardsTheShot();
    void worksOnOneRow();
    void movesAnywhereForNothing();
    void isEmptyForAnEmptyLattice();
    void stopsWhenCancelled();
};

namespace {

struct Problem
{
    OvScoreLattice lattice;
    std::vector<OvPathStep> steps;
    std::vector<std::vector<float>> gains; // of each row, as OvMoveGains lays them out
};

float even(std::mt19937* engine)
{
    return static_cast<float>((*engine)() % 2000) / 1000.0F - 1.0F;
}

Problem randomProblem(unsigned seed, int rows, int points)
{
    std::mt19937 engine(seed);
    Problem problem;
    problem.lattice.rows = rows;
    problem.lattice.points = points;
    for (int i = 0; i < rows * points; ++i)
        problem.lattice.scores.push_back(even(&engine));
    for (int row = 0; row < rows; ++row) {
        OvPathStep step;
        step.expected = static_cast<int>(engine() % 3) - 1;
        step.reach = 1 + static_cast<int>(engine() % 2);
        step.penalty = 0.3F;
        step.away = static_cast<int>(engine() % 3) - 1;
        step.backPenalty = 0.2F;
        problem.steps.push_back(step);
        std::vector<float> gains(static_cast<std::size_t>((2 * step.reach + 1) * points));
        for (float& gain : gains)
            gain = even(&engine);
        problem.gains.push_back(gains);
    }
    return problem;
}

// What a path is worth; -infinity for one with a move that is not allowed.
double worth(const Problem& problem, const std::vector<int>& path)
{
    double sum = 0.0;
    for (std::size_t row = 0; row < path.size(); ++row) {
        sum += static_cast<double>(problem.lattice.row(static_cast<int>(row))[path[row]]);
        if (row == 0)
            continue;
        const OvPathStep& step = problem.steps[row];
        const int move = path[row] - path[row - 1];
        const int aside = move - step.expected;
        if (std::abs(aside) > step.reach)
            return -HUGE_VAL;
        const int gain = (aside + step.reach) * problem.lattice.points + path[row];
        sum += static_cast<double>(problem.gains[row][static_cast<std::size_t>(gain)]);
        sum -= static_cast<double>(step.penalty) * std::abs(aside);
        sum -= static_cast<double>(step.backPenalty) * std::max(-step.away * move, 0);
    }
    return sum;
}

double bestByTryingAll(const Problem& problem)
{
    std::vector<int> path(static_cast<std::size_t>(problem.lattice.rows), 0);
    double best = -HUGE_VAL;
    while (true) {
        best = std::max(best, worth(problem, path));
        std::size_t row = 0;
        while (row < path.size() && ++path[row] == problem.lattice.points)
            path[row++] = 0;
        if (row == path.size())
            return best;
    }
}

OvScoreLattice flat(int rows, int points)
{
    OvScoreLattice lattice;
    lattice.rows = rows;
    lattice.points = points;
    lattice.scores.assign(static_cast<std::size_t>(rows * points), 0.0F);
    return lattice;
}

std::vector<OvPathStep> steps(int rows, const OvPathStep& step)
{
    return std::vector<OvPathStep>(static_cast<std::size_t>(rows), step);
}

} // namespace

void tst_OvPathSearch::findsTheBestOfAllPaths_data()
{
    QTest::addColumn<unsigned>("seed");
    for (const unsigned seed : {1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U})
        QTest::newRow(qPrintable(QString::number(seed))) << seed;
}

void tst_OvPathSearch::findsTheBestOfAllPaths()
{
    QFETCH(unsigned, seed);
    // Points are many beside the moves, so that the edges, where moves are cut, stay out of it.
    Problem problem = randomProblem(seed, 4, 13);
    for (int row = 0; row < 4; ++row) {
        for (const int edge : {0, 1, 2, 10, 11, 12})
            problem.lattice.row(row)[edge] -= 50.0F;
    }
    const auto gains = [&](int row, const OvPathStep&, std::vector<float>* out) {
        *out = problem.gains[static_cast<std::size_t>(row)];
    };
    const std::vector<int> path = ovBestPath(problem.lattice, problem.steps, gains, nullptr);
    QCOMPARE(path.size(), std::size_t(4));
    const double found = worth(problem, path);
    const double best = bestByTryingAll(problem);
    QVERIFY2(std::abs(found - best) < 1e-4,
             qPrintable(QStringLiteral("%1 instead of %2").arg(found).arg(best)));
}

void tst_OvPathSearch::prefersTheExpectedMove()
{
    OvScoreLattice lattice = flat(5, 40);
    lattice.row(0)[4] = 1.0F;
    OvPathStep step;
    step.expected = 3;
    step.reach = 2;
    step.penalty = 0.1F;
    const std::vector<int> path = ovBestPath(lattice, steps(5, step), {}, nullptr);
    QVERIFY((path == std::vector<int>{4, 7, 10, 13, 16}));
}

void tst_OvPathSearch::gainsDecide()
{
    const OvScoreLattice lattice = flat(2, 10);
    OvPathStep step;
    step.reach = 2;
    // Only the move of -1 to point 5 is worth anything.
    const auto gains = [](int, const OvPathStep&, std::vector<float>* out) {
        (*out)[1 * 10 + 5] = 1.0F;
    };
    const std::vector<int> path = ovBestPath(lattice, steps(2, step), gains, nullptr);
    QVERIFY((path == std::vector<int>{6, 5}));
}

void tst_OvPathSearch::avoidsMovesTowardsTheShot()
{
    OvScoreLattice lattice = flat(2, 10);
    lattice.row(0)[5] = 1.0F;
    lattice.row(1)[3] = 0.5F;
    lattice.row(1)[7] = 0.4F;
    OvPathStep step;
    step.reach = 2;
    QCOMPARE(ovBestPath(lattice, steps(2, step), {}, nullptr).back(), 3);
    step.away = 1;
    step.backPenalty = 0.1F;
    QCOMPARE(ovBestPath(lattice, steps(2, step), {}, nullptr).back(), 7);
    step.away = -1;
    QCOMPARE(ovBestPath(lattice, steps(2, step), {}, nullptr).back(), 3);
}

void tst_OvPathSearch::worksOnOneRow()
{
    OvScoreLattice lattice = flat(1, 6);
    lattice.row(0)[4] = 2.0F;
    QVERIFY((ovBestPath(lattice, steps(1, {}), {}, nullptr) == std::vector<int>{4}));
}

void tst_OvPathSearch::movesAnywhereForNothing()
{
    Problem problem = randomProblem(4, 6, 9);
    problem.steps[3].anywhere = true;
    const auto gains = [&problem](int row, const OvPathStep&, std::vector<float>* out) {
        *out = problem.gains[static_cast<std::size_t>(row)];
    };
    // The same as two searches, one for the rows ahead of the move and one for the others.
    const auto part = [&](int first, int last) {
        OvScoreLattice lattice{last - first, problem.lattice.points, {}};
        lattice.scores.assign(problem.lattice.row(first),
                              problem.lattice.row(first) + lattice.rows * lattice.points);
        const std::vector<OvPathStep> steps(problem.steps.begin() + first,
                                            problem.steps.begin() + last);
        return ovBestPath(
            lattice, steps,
            [&](int row, const OvPathStep& step, std::vector<float>* out) {
                gains(first + row, step, out);
            },
            nullptr);
    };
    std::vector<int> expected = part(0, 3);
    const std::vector<int> behind = part(3, 6);
    expected.insert(expected.end(), behind.begin(), behind.end());
    QCOMPARE(ovBestPath(problem.lattice, problem.steps, gains, nullptr), expected);
}

void tst_OvPathSearch::isEmptyForAnEmptyLattice()
{
    QVERIFY(ovBestPath(flat(0, 6), {}, {}, nullptr).empty());
    QVERIFY(ovBestPath(flat(3, 0), steps(3, {}), {}, nullptr).empty());
}

void tst_OvPathSearch::stopsWhenCancelled()
{
    const std::atomic<bool> cancel{true};
    QVERIFY(ovBestPath(flat(3, 6), steps(3, {}), {}, &cancel).empty());
}

QTEST_GUILESS_MAIN(tst_OvPathSearch)
#include "tst_OvPathSearch.moc"

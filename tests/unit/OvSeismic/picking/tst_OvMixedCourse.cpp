#include "OvSeismic/picking/OvMixedCourse.h"

#include "GuidedGather.h"
#include "OvSeismic/dsp/OvRank.h"

#include <QtTest>

/// The second look at a course that was put on a strong wave behind the first one.
class tst_OvMixedCourse : public QObject
{
    Q_OBJECT

private slots:
    void findsAWeakWaveAhead();
    void staysBehindNoise();
    void riseAndForerunTellArrivalsFromNoise();
    void shortStretchesDoNotOverrule();
    void weakMatchesLeaveItToTheSlopes();
    void mixingKeepsTheSizeOfNoise();
    void mixingLetsTheWaveAddUp();
    void rowsAreMixedToTheirEnds();
    void cablesAreNotMixed();
    void reversedTracesCountTurnedOver();
    void stopsWhenCancelled();
};

namespace {

using Matches = std::vector<OvArrivalAlignment::Match>;

constexpr int rowCount = 60;
constexpr double gapMs = 120.0; // three periods
constexpr double noiseRms = 0.8;

std::size_t at(int row)
{
    return static_cast<std::size_t>(row);
}

// A wave of amplitude 20 on every row; on some the arrival of the synthetic gather runs three
// periods ahead of it, in noise as loud as itself.
struct Setup : GuidedGather
{
    Matches matches;
    OvMixedCourse mixed;

    Setup(int firstWeak, int lastWeak)
        : GuidedGather(rowCount)
    {
        for (int row = 0; row < rowCount; ++row) {
            if (row < firstWeak || row >= lastWeak)
                synthetic.silence(row);
            synthetic.add(row, strongMs(row), 20.0, 25.0);
        }
        synthetic.addNoise(noiseRms);
        load();
        matches.resize(rowCount);
        for (int row = 0; row < rowCount; ++row) {
            matches[at(row)].time = strong(row);
            matches[at(row)].strength = 5.0F;
        }
    }

    double strongMs(int row) const { return synthetic.onsetsMs[at(row)] + gapMs; }
    double weak(int row) const { return onset(row); }
    double strong(int row) const { return grid.pointAt(row, strongMs(row)); }

    // The guide held to the strong wave.
    bool follow()
    {
        OvOnsetLimits limits;
        for (int row = 0; row < rowCount; ++row) {
            limits.expected.push_back(static_cast<float>(strong(row)));
            limits.halfWidths.push_back(5.0F);
            limits.earliestLikely.push_back(static_cast<float>(strong(row) - 8.0));
            limits.latestLikely.push_back(static_cast<float>(grid.points()));
        }
        return guide.find(grid, chain, limits);
    }

    bool mix(const std::atomic<bool>* cancel = nullptr)
    {
        OvOnsetLimits limits;
        limits.cancel = cancel;
        return mixed.find(guide, matches, grid, chain, limits);
    }

    bool run() { return follow() && mix(); }

    int nearWeak(const std::vector<double>& times) const
    {
        int count = 0;
        for (int row = 0; row < rowCount; ++row)
            count += std::abs(times[at(row)] - weak(row)) < 8.0 ? 1 : 0;
        return count;
    }
    int nearStrong(const std::vector<double>& times) const
    {
        int count = 0;
        for (int row = 0; row < rowCount; ++row)
            count += std::abs(times[at(row)] - strong(row)) < 8.0 ? 1 : 0;
        return count;
    }
    std::vector<float> mixedRow(int row) const
    {
        return {mixed.mixed(row), mixed.mixed(row) + grid.points()};
    }
    double mixedRms(int row, double from, double to) const
    {
        double sum = 0.0;
        for (int i = static_cast<int>(from); i < static_cast<int>(to); ++i)
            sum += std::pow(static_cast<double>(mixed.mixed(row)[i]), 2.0);
        return std::sqrt(sum / (static_cast<int>(to) - static_cast<int>(from)));
    }
};

QString told(int count)
{
    return QStringLiteral("%1 of %2").arg(count).arg(rowCount);
}

} // namespace

void tst_OvMixedCourse::findsAWeakWaveAhead()
{
    Setup setup(0, rowCount);
    QVERIFY(setup.run());
    const int before = setup.nearStrong(setup.guide.times());
    QVERIFY2(before >= 58, qPrintable(told(before)));
    const int after = setup.nearWeak(setup.mixed.times());
    QVERIFY2(after >= 56, qPrintable(told(after)));
}

void tst_OvMixedCourse::staysBehindNoise()
{
    Setup setup(0, 0);
    QVERIFY(setup.run());
    QCOMPARE(setup.mixed.times(), setup.guide.times());
    QVERIFY(setup.nearStrong(setup.mixed.times()) >= 58);
}

void tst_OvMixedCourse::riseAndForerunTellArrivalsFromNoise()
{
    const auto middle = [](const Setup& setup, const auto& measure) {
        std::vector<double> values;
        for (int row = 0; row < rowCount; ++row)
            values.push_back(measure(setup, row));
        return OvRank::median(values);
    };
    const auto riseAtWeak = [](const Setup& setup, int row) {
        return setup.mixed.riseAt(row, setup.weak(row));
    };
    const auto aheadOfStrong = [](const Setup& setup, int row) {
        return setup.mixed.forerunAt(setup.grid, row, setup.strong(row));
    };
    const auto aheadOfAll = [](const Setup& setup, int row) {
        return setup.mixed.forerunAt(setup.grid, row, -100.0);
    };
    Setup weak(0, rowCount);
    Setup noise(0, 0);
    QVERIFY(weak.run() && noise.run());
    QVERIFY(middle(weak, riseAtWeak) > 1.5 * middle(noise, riseAtWeak));
    QVERIFY(middle(noise, riseAtWeak) > 0.6 && middle(noise, riseAtWeak) < 1.5);
    QVERIFY(middle(weak, aheadOfStrong) > 1.3 * middle(noise, aheadOfStrong));
    QCOMPARE(middle(weak, aheadOfAll), 1.0);
}

void tst_OvMixedCourse::shortStretchesDoNotOverrule()
{
    Setup few(31, 35);
    QVERIFY(few.run());
    QCOMPARE(few.mixed.times(), few.guide.times());
    Setup many(20, 50);
    QVERIFY(many.run());
    const int moved = many.nearWeak(many.mixed.times());
    QVERIFY2(moved >= 20 && moved <= 36, qPrintable(told(moved)));
}

// Even a short stretch counts where nothing speaks for the course that was followed.
void tst_OvMixedCourse::weakMatchesLeaveItToTheSlopes()
{
    Setup setup(0, rowCount);
    QVERIFY(setup.follow());
    for (int row = 0; row < rowCount; ++row)
        setup.matches[at(row)] = {5.0 * (row % 7), 1.0F, 0.0F, 0.0F, 1.0F};
    QVERIFY(setup.mix());
    const int found = setup.nearWeak(setup.mixed.times());
    QVERIFY2(found >= 56, qPrintable(told(found)));
    // Mixed along what was found, not along the matches.
    std::vector<double> rises;
    for (int row = 0; row < rowCount; ++row)
        rises.push_back(setup.mixed.riseAt(row, setup.weak(row)));
    QVERIFY(OvRank::median(rises) > 1.5);
    // What a stretch of strong matches follows stays.
    for (int row = 0; row < 25; ++row)
        setup.matches[at(row)].strength = 5.0F;
    QVERIFY(setup.mix());
    for (int row = 0; row < 25; ++row)
        QCOMPARE(setup.mixed.times()[at(row)], setup.guide.times()[at(row)]);
    QVERIFY(setup.nearWeak(setup.mixed.times()) >= 30);
    for (int row = 0; row < rowCount; ++row)
        setup.matches[at(row)].strength = 5.0F;
    QVERIFY(setup.mix());
    QVERIFY(setup.nearWeak(setup.mixed.times()) < 50);
}

void tst_OvMixedCourse::mixingKeepsTheSizeOfNoise()
{
    Setup setup(0, 0);
    QVERIFY(setup.run());
    std::vector<double> sizes;
    for (int row = 0; row < rowCount; ++row)
        sizes.push_back(setup.mixedRms(row, 0.0, setup.strong(row) - 10.0));
    const double size = OvRank::median(sizes);
    QVERIFY2(std::abs(size - 1.0) < 0.15, qPrintable(QString::number(size)));
}

// Weights of 1, 2, 3, 4, 3, 2, 1 let what is alike grow by 16 / sqrt(44).
void tst_OvMixedCourse::mixingLetsTheWaveAddUp()
{
    Setup setup(0, rowCount);
    QVERIFY(setup.run());
    std::vector<double> gains;
    for (int row = 5; row < rowCount - 5; ++row) {
        const int from = static_cast<int>(setup.weak(row)) + 4;
        double own = 0.0;
        double mixed = 0.0;
        for (int i = from; i < from + 6; ++i) { // the first swing
            own += static_cast<double>(setup.guide.filtered(row)[i] / setup.guide.noise(row));
            mixed += static_cast<double>(setup.mixed.mixed(row)[i]);
        }
        gains.push_back(mixed / own);
    }
    const double gain = OvRank::median(gains);
    QVERIFY2(std::abs(gain - 16.0 / std::sqrt(44.0)) < 0.4, qPrintable(QString::number(gain)));
}

// Against the sums written out; near its ends a row has not all of its neighbours.
void tst_OvMixedCourse::rowsAreMixedToTheirEnds()
{
    Setup setup(0, rowCount);
    QVERIFY(setup.run());
    const int points = setup.grid.points();
    for (const int row : {0, 2, 30, rowCount - 1}) {
        const OvLinkRange near = setup.chain.neighbours(row, 3);
        float squares = 0.0F;
        for (int other = near.first; other < near.last; ++other)
            squares +=
                static_cast<float>((4 - std::abs(other - row)) * (4 - std::abs(other - row)));
        for (int i = 0; i < points; ++i) {
            float sum = 0.0F;
            for (int other = near.first; other < near.last; ++other) {
                const double apart = setup.matches[at(other)].time - setup.matches[at(row)].time;
                const int place = i + static_cast<int>(std::lround(apart));
                if (place < 0 || place >= points)
                    continue;
                const float value = setup.guide.filtered(other)[place] / setup.guide.noise(other);
                sum += static_cast<float>(4 - std::abs(other - row)) *
                       std::min(std::max(value, -4.0F), 4.0F);
            }
            QVERIFY(std::abs(setup.mixed.mixed(row)[i] - sum / std::sqrt(squares)) < 1e-3F);
        }
    }
}

// What is said of one cable does not change the mixed rows of the other.
void tst_OvMixedCourse::cablesAreNotMixed()
{
    Setup setup(0, rowCount);
    setup.chain.cables.assign(rowCount, 0);
    std::fill(setup.chain.cables.begin() + 30, setup.chain.cables.end(), 1);
    QVERIFY(setup.run());
    std::vector<std::vector<float>> before;
    for (int row = 0; row < rowCount; ++row)
        before.push_back(setup.mixedRow(row));
    for (int row = 30; row < rowCount; ++row)
        setup.matches[at(row)].time += row % 2 == 0 ? 9.0 : -6.0;
    QVERIFY(setup.mix());
    for (int row = 0; row < 30; ++row)
        QCOMPARE(setup.mixedRow(row), before[at(row)]);
    QVERIFY(setup.mixedRow(30) != before[30]);
    // On a single cable it does.
    setup.chain.cables.clear();
    QVERIFY(setup.mix());
    QVERIFY(setup.mixedRow(29) != before[29]);
}

void tst_OvMixedCourse::reversedTracesCountTurnedOver()
{
    Setup plain(0, rowCount);
    QVERIFY(plain.run());
    Setup turned(0, rowCount);
    for (const int row : {4, 21, 22, 40}) {
        turned.synthetic.scale(row, -1.0F);
        turned.matches[at(row)].sign = -1.0F;
    }
    turned.grid.load(turned.synthetic.gather, turned.chain, 1, 0.0);
    QVERIFY(turned.run());
    QCOMPARE(turned.mixed.times(), plain.mixed.times());
    for (int row = 0; row < rowCount; ++row)
        QCOMPARE(turned.mixedRow(row), plain.mixedRow(row));
    turned.matches[21].sign = 1.0F;
    QVERIFY(turned.mix());
    QVERIFY(turned.mixedRow(20) != plain.mixedRow(20));
}

void tst_OvMixedCourse::stopsWhenCancelled()
{
    Setup setup(0, rowCount);
    QVERIFY(setup.follow());
    const std::atomic<bool> cancel{true};
    QVERIFY(!setup.mix(&cancel));
    QVERIFY(setup.mix());
    QVERIFY(setup.nearWeak(setup.mixed.times()) >= 56);
}

QTEST_GUILESS_MAIN(tst_OvMixedCourse)
#include "tst_OvMixedCourse.moc"

#include "OvSeismic/picking/OvPicker.h"

#include "SyntheticGather.h"

#include <QtTest>

#include <functional>
#include <numeric>
#include <random>

/// The program's picker on spreads as they come from the field: several cables, gaps, channels in
/// no order, little or odd geometry.
class tst_OvSpreadPicking : public QObject
{
    Q_OBJECT

private slots:
    void cables_data();
    void cables();
    void cablesWithoutCoordinates();
    void severalShotsInOneRecord();
    void splitSpreadWithAGap();
    void noGeometryAtAll();
    void duplicateOffsets();
    void allDeadButTwo();
    void oneTrace();
    void auxiliaryChannelsBetween();
    void delaysOfTheirOwn();
    void tracesThatEndEarly();
    void tracesOfEveryLength();

private:
    OvPickResult pick(const SyntheticGather& made) const
    {
        return m_picker->pick(made.gather, {}, nullptr);
    }
    std::unique_ptr<OvPicker> m_picker = OvPicker::create();
};

namespace {

// Puts a receiver somewhere, the shot at the origin, and its arrival at a time of its own.
void place(SyntheticGather* made, int row, double x, double y, double extraMs)
{
    const auto at = static_cast<std::size_t>(row);
    OvTraceHeader& header = made->gather.headers[at];
    header.receiverX = x;
    header.receiverY = y;
    header.offset = static_cast<float>(std::hypot(x, y));
    made->silence(row);
    made->onsetsMs[at] = 60.0 + 0.4 * static_cast<double>(header.offset) + extraMs;
    made->add(row, made->onsetsMs[at], 1.0, 25.0);
}

// Cables of 40 stations 10 m apart, 50 m from each other, the shot between the first two; each with
// a static of its own, the second with a gap of six stations behind the shot.
SyntheticGather spreadOf(int cables, double noise)
{
    constexpr int stations = 40;
    const double statics[] = {0.0, 60.0, -25.0};
    SyntheticGather made(cables * stations);
    for (int row = 0; row < cables * stations; ++row) {
        const int cable = row / stations;
        const int station = row % stations;
        const double x = 10.0 * station - 145.0 + (cable == 1 && station > 24 ? 60.0 : 0.0);
        place(&made, row, x, 50.0 * cable - 20.0, statics[cable]);
    }
    made.addNoise(noise);
    return made;
}

SyntheticGather reordered(const SyntheticGather& made, const std::vector<int>& order, bool renumber)
{
    SyntheticGather result = made;
    for (std::size_t row = 0; row < order.size(); ++row) {
        const auto from = static_cast<std::size_t>(order[row]);
        result.gather.headers[row] = made.gather.headers[from];
        if (renumber)
            result.gather.headers[row].channel = static_cast<qint32>(row) + 1;
        result.onsetsMs[row] = made.onsetsMs[from];
        std::copy_n(made.gather.trace(order[row]), made.gather.sampleCount,
                    result.gather.trace(static_cast<int>(row)));
    }
    return result;
}

std::vector<int> upTo(int count)
{
    std::vector<int> order(static_cast<std::size_t>(count));
    std::iota(order.begin(), order.end(), 0);
    return order;
}

int within(const SyntheticGather& made, const OvPickResult& result, double toleranceMs)
{
    int count = 0;
    for (std::size_t i = 0; i < result.timesMs.size(); ++i)
        count += std::abs(static_cast<double>(result.timesMs[i]) - made.onsetsMs[i]) <= toleranceMs;
    return count;
}

} // namespace

void tst_OvSpreadPicking::cables_data()
{
    QTest::addColumn<int>("cables");
    QTest::addColumn<int>("laid");
    for (const int cables : {2, 3}) {
        const QString name = QString::number(cables) + QStringLiteral(" cables, %1");
        QTest::newRow(qPrintable(name.arg("in order"))) << cables << 0;
        QTest::newRow(qPrintable(name.arg("the second reversed"))) << cables << 1;
        QTest::newRow(qPrintable(name.arg("unsorted"))) << cables << 2;
    }
}

void tst_OvSpreadPicking::cables()
{
    QFETCH(int, cables);
    QFETCH(int, laid);
    std::vector<int> order = upTo(40 * cables);
    if (laid == 1)
        std::reverse(order.begin() + 40, order.begin() + 80);
    if (laid == 2)
        std::shuffle(order.begin(), order.end(), std::mt19937(5));
    for (const double noise : {0.03, 0.3}) {
        const SyntheticGather made = reordered(spreadOf(cables, noise), order, true);
        const int good = within(made, pick(made), 6.0);
        QVERIFY2(
            good >= static_cast<int>((noise > 0.1 ? 0.93 : 0.985) * 40 * cables),
            qPrintable(QStringLiteral("%1 of %2 at %3").arg(good).arg(40 * cables).arg(noise)));
    }
}

void tst_OvSpreadPicking::cablesWithoutCoordinates()
{
    SyntheticGather made = spreadOf(3, 0.2);
    for (OvTraceHeader& header : made.gather.headers)
        header.receiverX = header.receiverY = 0.0;
    const int good = within(made, pick(made), 6.0);
    QVERIFY2(good >= 112, qPrintable(QString::number(good)));
}

// As in files without field records: four shots into the same 30 receivers, delayed differently.
void tst_OvSpreadPicking::severalShotsInOneRecord()
{
    SyntheticGather made(120);
    for (int row = 0; row < 120; ++row) {
        const auto at = static_cast<std::size_t>(row);
        OvTraceHeader& header = made.gather.headers[at];
        header.channel = row % 30 + 1;
        header.sourceX = 85.0 * (row / 30);
        header.receiverX = 10.0 * (row % 30);
        header.offset = static_cast<float>(header.receiverX - header.sourceX);
        made.silence(row);
        made.onsetsMs[at] =
            50.0 + 35.0 * (row / 30 % 2) + 0.5 * std::abs(static_cast<double>(header.offset));
        made.add(row, made.onsetsMs[at], 1.0, 25.0);
    }
    made.addNoise(0.2);
    const int good = within(made, pick(made), 6.0);
    QVERIFY2(good >= 106, qPrintable(QString::number(good)));
}

void tst_OvSpreadPicking::splitSpreadWithAGap()
{
    SyntheticGather made(60);
    for (int row = 0; row < 60; ++row) {
        const double x = 10.0 * row - 300.0 + (row >= 40 ? 120.0 : 0.0);
        place(&made, row, x, 5.0, x < 0.0 ? 0.0 : 0.15 * x);
    }
    made.addNoise(0.1);
    QVERIFY2(within(made, pick(made), 6.0) >= 57,
             qPrintable(QString::number(within(made, pick(made), 6.0))));
}

void tst_OvSpreadPicking::noGeometryAtAll()
{
    for (const float offset : {std::numeric_limits<float>::quiet_NaN(), 0.0F}) {
        SyntheticGather made(40);
        made.addNoise(0.1);
        for (OvTraceHeader& header : made.gather.headers)
            header.offset = offset;
        QVERIFY2(within(made, pick(made), 6.0) >= 37,
                 qPrintable(QString::number(within(made, pick(made), 6.0))));
    }
}

void tst_OvSpreadPicking::duplicateOffsets()
{
    SyntheticGather made(48);
    for (int row = 0; row < 48; ++row) {
        place(&made, row, 20.0 * (row / 3), 0.0, 0.0);
        made.scale(row, row % 3 == 1 ? 0.2F : 1.0F);
    }
    made.addNoise(0.02);
    QVERIFY2(within(made, pick(made), 6.0) >= 46,
             qPrintable(QString::number(within(made, pick(made), 6.0))));
}

void tst_OvSpreadPicking::allDeadButTwo()
{
    SyntheticGather made(40);
    made.addNoise(0.02);
    for (int row = 0; row < 40; ++row) {
        if (row != 7 && row != 31)
            made.silence(row);
    }
    const OvPickResult result = pick(made);
    QCOMPARE(within(made, result, 6.0), 2);
    QCOMPARE(std::count_if(result.timesMs.begin(), result.timesMs.end(),
                           [](float time) { return std::isfinite(time); }),
             std::ptrdiff_t(2));
}

void tst_OvSpreadPicking::oneTrace()
{
    SyntheticGather made(1);
    made.addNoise(0.02);
    QCOMPARE(within(made, pick(made), 6.0), 1);
}

void tst_OvSpreadPicking::auxiliaryChannelsBetween()
{
    SyntheticGather made(44);
    for (int row = 0; row < 44; ++row) {
        made.gather.headers[static_cast<std::size_t>(row)].offset =
            row % 11 == 0 ? 0.0F : 10.0F * static_cast<float>(row - row / 11);
        made.silence(row);
        made.onsetsMs[static_cast<std::size_t>(row)] =
            row % 11 == 0 ? -1.0 : 30.0 + 5.0 * (row - row / 11);
        made.add(row, row % 11 == 0 ? 0.0 : made.onsetsMs[static_cast<std::size_t>(row)],
                 row % 11 == 0 ? 50.0 : 1.0, row % 11 == 0 ? 60.0 : 25.0);
        if (row % 11 == 0)
            made.gather.headers[static_cast<std::size_t>(row)].traceId = 4;
    }
    made.addNoise(0.05);
    const OvPickResult result = pick(made);
    for (int row = 0; row < 44; row += 11)
        QVERIFY(std::isnan(result.timesMs[static_cast<std::size_t>(row)]));
    QVERIFY2(within(made, result, 6.0) >= 38,
             qPrintable(QString::number(within(made, result, 6.0))));
}

void tst_OvSpreadPicking::delaysOfTheirOwn()
{
    SyntheticGather made(40);
    for (int row = 0; row < 40; ++row) {
        const auto at = static_cast<std::size_t>(row);
        made.gather.headers[at].delayMs = static_cast<float>(-50 + 7 * (row % 9));
        made.silence(row);
        made.add(row, made.onsetsMs[at], 1.0, 25.0);
    }
    made.addNoise(0.1);
    QVERIFY2(within(made, pick(made), 6.0) >= 37,
             qPrintable(QString::number(within(made, pick(made), 6.0))));
}

// A trace with fewer samples than the others is followed by zeros in memory.
void tst_OvSpreadPicking::tracesThatEndEarly()
{
    SyntheticGather whole(40);
    whole.addNoise(0.1);
    for (float& sample : whole.gather.samples)
        sample += 30.0F; // the recorder's own zero
    const int usual = within(whole, pick(whole), 6.0);
    SyntheticGather made = whole;
    for (int row = 0; row < 40; row += 3)
        std::fill(made.gather.trace(row) + 260, made.gather.trace(row) + 400, 0.0F);
    // One of them ends ahead of its arrival, at 220 ms.
    std::fill(made.gather.trace(38) + 100, made.gather.trace(38) + 400, 0.0F);
    const OvPickResult result = pick(made);
    QVERIFY2(within(made, result, 6.0) >= usual - 1,
             qPrintable(QString::number(within(made, result, 6.0))));
    QVERIFY2(std::isnan(result.timesMs[38]), qPrintable(QString::number(result.timesMs[38])));
}

void tst_OvSpreadPicking::tracesOfEveryLength()
{
    for (const double noise : {0.0, 0.1, 1.0}) {
        SyntheticGather made(60);
        made.addNoise(noise);
        for (int row = 0; row < 60; ++row) {
            const int length = row % 2 == 0 ? 400 : row < 30 ? row : 6 * row;
            std::fill(made.gather.trace(row) + length, made.gather.trace(row) + 400, 0.0F);
        }
        OvPickSettings settings;
        settings.minimumConfidence = 0.0;
        for (const bool coarse : {false, true}) {
            made.gather.intervalMs = coarse ? 2.0 : 0.25; // averaged, many samples a point
            const OvPickResult result = m_picker->pick(made.gather, settings, nullptr);
            QCOMPARE(int(result.timesMs.size()), 60);
            for (int row = 1; row < 60; row += 2) {
                const double length = row < 30 ? row : 6 * row;
                const auto time =
                    static_cast<double>(result.timesMs[static_cast<std::size_t>(row)]);
                QVERIFY2(!(time > made.gather.timeMs(row, length)),
                         qPrintable(QStringLiteral("row %1: %2").arg(row).arg(time)));
            }
        }
    }
}

QTEST_GUILESS_MAIN(tst_OvSpreadPicking)
#include "tst_OvSpreadPicking.moc"

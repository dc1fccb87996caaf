#include "OvSeismic/picking/OvPickRun.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "fixtures/SegyWriter.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <numeric>
#include <thread>

Q_DECLARE_METATYPE(std::vector<int>)

/// Works on a line of real SEG-Y shots.
class tst_OvPickRun : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void choosesGathers_data();
    void choosesGathers();
    void deliversInOrder_data();
    void deliversInOrder();
    void agreesWithThePicker();
    void picksChosenGathersOnly();
    void leavesOutWhatIsDone();
    void guidesByThePreviousGatherInOrder();
    void stopsWhenDeliveryFails();
    void stopsWhenReadingFails();
    void keepsFewGathersInFlight();
    void cancelsBeforeTheFirst();
    void cancelsSoon();
    void cancelsInsideALargeGather();
    void refusesBadParameters();

private:
    OvPickRun::Request request(int threads) const;

    QTemporaryDir m_folder;
    OvSegyFile m_file;
    OvSegyIndex m_index;
    static constexpr int shots = 24;
    static constexpr int channels = 30;
};

void tst_OvPickRun::initTestCase()
{
    SegyWriter writer;
    writer.sampleCount = 300;
    for (int shot = 0; shot < shots; ++shot)
        writer.addShot(100 + shot, 10.0 * shot, channels, 10.0);
    const QString path = m_folder.filePath("line.sgy");
    QVERIFY(writer.write(path));
    QVERIFY(m_file.open(path));
    QVERIFY(m_index.build(m_file));
    QCOMPARE(m_index.gatherCount(), shots);
}

OvPickRun::Request tst_OvPickRun::request(int threads) const
{
    OvPickRun::Request request;
    request.file = &m_file;
    request.index = &m_index;
    request.threads = threads;
    return request;
}

void tst_OvPickRun::choosesGathers_data()
{
    QTest::addColumn<int>("gathers");
    QTest::addColumn<int>("total");
    QTest::addColumn<int>("increment");
    QTest::addColumn<std::vector<int>>("chosen");
    QTest::newRow("all") << 4 << 0 << 1 << std::vector<int>{0, 1, 2, 3};
    QTest::newRow("first three") << 5 << 3 << 1 << std::vector<int>{0, 1, 2};
    QTest::newRow("every third") << 8 << 0 << 3 << std::vector<int>{0, 3, 6};
    QTest::newRow("two of every third") << 8 << 2 << 3 << std::vector<int>{0, 3};
    QTest::newRow("more than there are") << 3 << 9 << 2 << std::vector<int>{0, 2};
    QTest::newRow("steps beyond the end") << 3 << 0 << 9999 << std::vector<int>{0};
    QTest::newRow("no gathers") << 0 << 0 << 1 << std::vector<int>{};
}

void tst_OvPickRun::choosesGathers()
{
    QFETCH(int, gathers);
    QFETCH(int, total);
    QFETCH(int, increment);
    QFETCH(std::vector<int>, chosen);
    OvPickParameters parameters;
    parameters.totalShots = total;
    parameters.shotIncrement = increment;
    QVERIFY(OvPickRun::chosenGathers(gathers, parameters) == chosen);
}

void tst_OvPickRun::deliversInOrder_data()
{
    QTest::addColumn<int>("threads");
    QTest::newRow("one a core") << 0;
    QTest::newRow("one") << 1;
    QTest::newRow("four") << 4;
    QTest::newRow("more than gathers") << 40;
}

void tst_OvPickRun::deliversInOrder()
{
    QFETCH(int, threads);
    QVector<int> delivered;
    QVector<int> progress;
    const auto here = std::this_thread::get_id();
    const OvStatus status = OvPickRun::run(
        request(threads),
        [&](const OvGather& gather, const OvPickResult& result) {
            delivered.append(gather.ordinal);
            const bool whole =
                result.timesMs.size() == channels && result.confidences.size() == channels &&
                gather.traceCount() == channels && gather.fieldRecord == 100 + gather.ordinal &&
                std::this_thread::get_id() == here;
            return whole ? OvStatus::success() : OvStatus::failure("incomplete delivery");
        },
        [&](int done, int total) {
            progress.append(done);
            QCOMPARE(total, shots);
        },
        nullptr);
    QVERIFY2(status, qPrintable(status.message()));
    QVector<int> expected(shots);
    std::iota(expected.begin(), expected.end(), 0);
    QCOMPARE(delivered, expected);
    std::iota(expected.begin(), expected.end(), 1);
    QCOMPARE(progress, expected);
}

void tst_OvPickRun::agreesWithThePicker()
{
    const auto picker = OvPicker::create();
    int compared = 0;
    const OvStatus status = OvPickRun::run(
        request(3),
        [&](const OvGather& gather, const OvPickResult& result) {
            OvGather own;
            OvStatus read = m_index.readGather(m_file, gather.ordinal, &own);
            const OvPickResult alone = picker->pick(own, OvPickSettings(), nullptr);
            const auto same = [](float a, float b) {
                return a == b || (std::isnan(a) && std::isnan(b));
            };
            compared += std::equal(alone.timesMs.begin(), alone.timesMs.end(),
                                   result.timesMs.begin(), result.timesMs.end(), same);
            return read;
        },
        {}, nullptr);
    QVERIFY(status);
    QCOMPARE(compared, shots);
}

void tst_OvPickRun::picksChosenGathersOnly()
{
    OvPickRun::Request chosen = request(2);
    chosen.settings.parameters.shotIncrement = 5;
    chosen.settings.parameters.totalShots = 3;
    QVector<int> delivered;
    const auto note = [&](const OvGather& gather, const OvPickResult&) {
        delivered.append(gather.ordinal);
        return OvStatus::success();
    };
    QVERIFY(OvPickRun::run(chosen, note, {}, nullptr));
    QCOMPARE(delivered, (QVector<int>{0, 5, 10}));
}

void tst_OvPickRun::leavesOutWhatIsDone()
{
    OvPickRun::Request run = request(2);
    run.settings.parameters.shotIncrement = 2; // 0, 2, 4 ... 22
    run.done = {0, 1, 4, 22};
    std::vector<int> delivered;
    std::vector<int> told;
    const OvStatus status = OvPickRun::run(
        run,
        [&](const OvGather& gather, const OvPickResult&) {
            delivered.push_back(gather.ordinal);
            return OvStatus::success();
        },
        [&](int done, int total) {
            told.push_back(done);
            QCOMPARE(total, 12);
        },
        nullptr);
    QVERIFY(status);
    QCOMPARE(delivered, (std::vector<int>{2, 6, 8, 10, 12, 14, 16, 18, 20}));
    QCOMPARE(told.front(), 4);
    QCOMPARE(told.back(), 12);
}

void tst_OvPickRun::guidesByThePreviousGatherInOrder()
{
    OvPickRun::Request run = request(4);
    run.guidedByPrevious = true;
    const auto picker = OvPicker::create();
    OvPickSettings settings = run.settings;
    int gathers = 0;
    const OvStatus status = OvPickRun::run(
        run,
        [&](const OvGather& gather, const OvPickResult& result) {
            OvGather data;
            OvStatus read = m_index.readGather(m_file, gather.ordinal, &data);
            const OvPickResult expected = picker->pick(data, settings, nullptr);
            bool same = expected.timesMs.size() == result.timesMs.size();
            for (std::size_t i = 0; same && i < expected.timesMs.size(); ++i)
                same = std::isnan(expected.timesMs[i])
                           ? std::isnan(result.timesMs[i])
                           : !(expected.timesMs[i] < result.timesMs[i]) &&
                                 !(expected.timesMs[i] > result.timesMs[i]);
            if (!same)
                read = OvStatus::failure(QStringLiteral("gather %1").arg(gather.ordinal));
            const auto learned = OvPickRun::priorOf(gather, result);
            if (learned)
                settings.prior = learned;
            ++gathers;
            return read;
        },
        {}, nullptr);
    QVERIFY2(status, qPrintable(status.message()));
    QCOMPARE(gathers, int(shots));
    QVERIFY(settings.prior != nullptr);
}

void tst_OvPickRun::stopsWhenDeliveryFails()
{
    int calls = 0;
    const OvStatus status = OvPickRun::run(
        request(3),
        [&](const OvGather&, const OvPickResult&) {
            return ++calls == 4 ? OvStatus::failure("the disk is full") : OvStatus::success();
        },
        {}, nullptr);
    QCOMPARE(status.message(), QString("the disk is full"));
    QCOMPARE(calls, 4);
}

void tst_OvPickRun::stopsWhenReadingFails()
{
    const QString path = m_folder.filePath("shrinking.sgy");
    QVERIFY(QFile::copy(m_folder.filePath("line.sgy"), path));
    OvSegyFile file;
    OvSegyIndex index;
    QVERIFY(file.open(path));
    QVERIFY(index.build(file));
    QVERIFY(QFile::resize(path, QFileInfo(path).size() / 2));
    OvPickRun::Request cut;
    cut.file = &file;
    cut.index = &index;
    cut.threads = 2;
    int delivered = 0;
    const auto count = [&](const OvGather&, const OvPickResult&) {
        ++delivered;
        return OvStatus::success();
    };
    const OvStatus status = OvPickRun::run(cut, count, {}, nullptr);
    QVERIFY(!status);
    QVERIFY2(status.message().contains("shrinking.sgy"), qPrintable(status.message()));
    QCOMPARE(delivered, shots / 2 - 1);
}

void tst_OvPickRun::keepsFewGathersInFlight()
{
    // A slow caller must hold the workers back; a gather that was not taken yet keeps its place.
    // The workers can be seen from outside by the gathers that they read from a file that is gone
    // by then: whatever was in flight when the file shrank has been read already.
    const QString path = m_folder.filePath("held.sgy");
    QVERIFY(QFile::copy(m_folder.filePath("line.sgy"), path));
    OvSegyFile file;
    OvSegyIndex index;
    QVERIFY(file.open(path));
    QVERIFY(index.build(file));
    OvPickRun::Request held;
    held.file = &file;
    held.index = &index;
    held.threads = 2;
    int delivered = 0;
    const OvStatus status = OvPickRun::run(
        held,
        [&](const OvGather&, const OvPickResult&) {
            if (delivered++ == 0) {
                // Long enough for workers without a bound to read the whole line.
                std::this_thread::sleep_for(std::chrono::milliseconds(500));
                return QFile::resize(path, 3600) ? OvStatus::success()
                                                 : OvStatus::failure("resize");
            }
            return OvStatus::success();
        },
        {}, nullptr);
    QVERIFY(!status);
    QVERIFY2(delivered <= 1 + held.threads + 2, qPrintable(QString::number(delivered)));
}

void tst_OvPickRun::cancelsBeforeTheFirst()
{
    const std::atomic<bool> cancel{true};
    int calls = 0;
    const auto count = [&](const OvGather&, const OvPickResult&) {
        ++calls;
        return OvStatus::success();
    };
    QVERIFY(OvPickRun::run(request(2), count, {}, &cancel));
    QCOMPARE(calls, 0);
}

void tst_OvPickRun::cancelsSoon()
{
    std::atomic<bool> cancel{false};
    int calls = 0;
    const auto count = [&](const OvGather&, const OvPickResult&) {
        if (++calls == 3)
            cancel = true;
        return OvStatus::success();
    };
    QVERIFY(OvPickRun::run(request(2), count, {}, &cancel));
    QCOMPARE(calls, 3);
}

void tst_OvPickRun::cancelsInsideALargeGather()
{
    SegyWriter writer;
    writer.sampleCount = 2000;
    writer.addShot(1, 0.0, 1500, 1.0);
    const QString path = m_folder.filePath("large.sgy");
    QVERIFY(writer.write(path));
    OvSegyFile file;
    OvSegyIndex index;
    QVERIFY(file.open(path));
    QVERIFY(index.build(file));
    OvPickRun::Request large;
    large.file = &file;
    large.index = &index;
    int delivered = 0;
    const auto accept = [&](const OvGather&, const OvPickResult&) {
        ++delivered;
        return OvStatus::success();
    };
    QElapsedTimer clock;
    clock.start();
    QVERIFY(OvPickRun::run(large, accept, {}, nullptr));
    QCOMPARE(delivered, 1);
    const qint64 wholeMs = clock.elapsed();

    // The same run, cancelled early: it stops inside the gather, not behind it. Both are timed
    // here, so a slow machine slows both.
    std::atomic<bool> cancel{false};
    std::thread canceller([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(wholeMs / 10));
        cancel = true;
    });
    clock.restart();
    const OvStatus status = OvPickRun::run(large, accept, {}, &cancel);
    const qint64 cancelledMs = clock.elapsed();
    canceller.join();
    QVERIFY(status);
    QCOMPARE(delivered, 1);
    QVERIFY2(cancelledMs < wholeMs * 2 / 3,
             qPrintable(QString("%1 of %2 ms").arg(cancelledMs).arg(wholeMs)));
}

void tst_OvPickRun::refusesBadParameters()
{
    OvPickRun::Request bad = request(1);
    bad.settings.parameters.shotIncrement = 0;
    const auto never = [](const OvGather&, const OvPickResult&) {
        return OvStatus::failure("delivered");
    };
    QVERIFY(OvPickRun::run(bad, never, {}, nullptr).message().contains("shot_increment"));
}

QTEST_GUILESS_MAIN(tst_OvPickRun)
#include "tst_OvPickRun.moc"

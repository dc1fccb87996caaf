#include "OvGui/document/OvSegyDocument.h"

#include "Gathers.h"
#include "OvBase/OvAbstractJob.h"
#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvTaskManager.h"
#include "OvGui/document/OvPickHistory.h"
#include "OvSeismic/firstbreak/OvFirstBreakFile.h"
#include "PoolBlock.h"
#include "fixtures/OldFirstBreaks.h"
#include "fixtures/SegyFormWriter.h"
#include "fixtures/SegyWriter.h"
#include "fixtures/WarningTrap.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QSharedPointer<OvSegyDocument> open(const QString& path)
{
    OvStatus status;
    auto document = OvSegyDocument::open(path, &status);
    if (!status)
        qWarning("%s", qPrintable(status.message()));
    return document;
}

OvAbstractJob* indexJob()
{
    const QList<OvAbstractJob*> tasks = OvTaskManager::instance().tasks();
    return tasks.isEmpty() ? nullptr : tasks.last();
}

} // namespace

class tst_OvSegyDocument : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString path(const QString& name = "line.sgy") const { return m_folder->filePath(name); }

    QSharedPointer<OvSegyDocument> openComplete() const
    {
        auto document = open(path());
        QSignalSpy complete(document.data(), &OvSegyDocument::indexComplete);
        if (!document->isIndexComplete())
            complete.wait();
        return document;
    }

private slots:
    void init()
    {
        WarningTrap::start();
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(Gathers::writeLine(path(), 5));
    }

    void largeFileOpensFromItsKeptIndex()
    {
        QVERIFY(SegyWriter::ramps(12000, 2).write(path()));
        const QString folder = OvBaseUtil::cachePath() + "/segyindex";
        const int kept = QDir(folder).entryList(QDir::Files).size();
        QCOMPARE(openComplete()->gatherCount(), 3000);
        QCOMPARE(QDir(folder).entryList(QDir::Files).size(), kept + 1);

        const auto document = open(path());
        QSignalSpy complete(document.data(), &OvSegyDocument::indexComplete);
        QSignalSpy progress(document.data(), &OvSegyDocument::indexProgress);
        QTRY_COMPARE(complete.count(), 1);
        QCOMPARE(progress.count(), 0); // nothing was read anew
        QCOMPARE(document->gatherCount(), 3000);
        QSignalSpy loaded(document.data(), &OvSegyDocument::gatherLoaded);
        document->requestGather(2999);
        QTRY_COMPARE(loaded.count(), 1);
        QCOMPARE(document->cachedGather(2999)->trace(3)[1], SegyWriter::rampValue(11999, 1));
    }

    void cleanup() { QCOMPARE(WarningTrap::take(), QStringList()); }

    void oneDocumentAFile()
    {
        const auto first = open(path());
        QVERIFY(first);
        QCOMPARE(open(path()), first);
        QCOMPARE(
            open(m_folder->path() + "/../" + QFileInfo(m_folder->path()).fileName() + "/line.sgy"),
            first);
        QVERIFY(QFile::link(path(), path("link.sgy")));
        QCOMPARE(open(path("link.sgy")), first);
        QVERIFY(Gathers::writeLine(path("other.sgy"), 1));
        QVERIFY(open(path("other.sgy")) != first);
    }

    void aReleasedDocumentIsOpenedAnew()
    {
        auto document = open(path());
        const QPointer<OvSegyDocument> watched(document.data());
        document.reset();
        QVERIFY(watched.isNull());
        QVERIFY(open(path()));
    }

    void whatIsNoSegyIsRefusedWithAMessage_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("short") << QByteArray(100, 'x');
        QTest::newRow("text") << QByteArray("not seismic at all\n").repeated(1000);
    }

    void whatIsNoSegyIsRefusedWithAMessage()
    {
        QFETCH(QByteArray, content);
        QVERIFY(SegyWriter::writeBytes(path("odd.sgy"), content));
        OvStatus status;
        QVERIFY(OvSegyDocument::open(path("odd.sgy"), &status).isNull());
        QVERIFY(!status);
        QVERIFY(status.message().contains("odd.sgy"));
        QVERIFY(OvSegyDocument::open(path("missing.sgy"), &status).isNull());
        QVERIFY(status.message().contains("missing.sgy"));
    }

    void theFirstGatherComesBeforeTheIndex()
    {
        PoolBlock block(OvBackground::scanPool());
        const auto document = open(path());
        QSignalSpy ready(document.data(), &OvSegyDocument::firstGatherReady);
        QSignalSpy complete(document.data(), &OvSegyDocument::indexComplete);
        QVERIFY(ready.wait());
        QCOMPARE(document->gatherCount(), 1);
        QCOMPARE(document->index()->fieldRecord(0), 100);
        QVERIFY(document->isIndexing());
        QSignalSpy loaded(document.data(), &OvSegyDocument::gatherLoaded);
        document->requestGather(0);
        QVERIFY(loaded.wait());
        QVERIFY(loaded[0][1].value<std::shared_ptr<const OvGather>>() != nullptr);
        QVERIFY(complete.isEmpty());
        block.release();
        QVERIFY(complete.wait());
        QCOMPARE(document->gatherCount(), 5);
        QCOMPARE(document->index()->fieldRecord(4), 140);
        QCOMPARE(document->indexPercent(), 100);
        QVERIFY(!document->isIndexing());
    }

    void gathersAreReadAsWritten()
    {
        QVERIFY(SegyWriter::ramps(12, 50).write(path("ramps.sgy")));
        const auto document = open(path("ramps.sgy"));
        QSignalSpy complete(document.data(), &OvSegyDocument::indexComplete);
        QVERIFY(complete.wait());
        QSignalSpy loaded(document.data(), &OvSegyDocument::gatherLoaded);
        document->requestGather(2);
        QVERIFY(loaded.wait());
        QCOMPARE(loaded[0][0].toInt(), 2);
        const auto gather = loaded[0][1].value<std::shared_ptr<const OvGather>>();
        QVERIFY(gather);
        QCOMPARE(gather->traceCount(), 4);
        QCOMPARE(gather->trace(1)[7], SegyWriter::rampValue(9, 7));
        QCOMPARE(document->cachedGather(2), gather);
        QVERIFY(!document->cachedGather(1));
    }

    /// The traces have to be found first; a gather is as long as its longest trace, zeros follow.
    void tracesOfDifferentLength()
    {
        SegyFormWriter writer;
        writer.fixedLength = 0;
        writer.samplesStated = 40;
        for (int i = 0; i < 200; ++i) {
            writer.traces.emplace_back();
            writer.traces.back().samples = SegyFormWriter::ramp(i, 20 + i * 7 % 40);
        }
        QVERIFY(SegyWriter::writeBytes(path("variable.sgy"), writer.bytes()));
        auto document = open(path("variable.sgy"));
        QSignalSpy complete(document.data(), &OvSegyDocument::indexComplete);
        QVERIFY(complete.wait());
        QCOMPARE(document->gatherCount(), 50);
        QCOMPARE(document->file().info().traceCount, qint64(200));
        QSignalSpy loaded(document.data(), &OvSegyDocument::gatherLoaded);
        document->requestGather(49);
        QVERIFY(loaded.wait());
        const auto gather = loaded[0][1].value<std::shared_ptr<const OvGather>>();
        QVERIFY(gather);
        QCOMPARE(gather->traceCount(), 4);
        for (int row = 0; row < 4; ++row) {
            const auto& written = writer.traces[std::size_t(196 + row)].samples;
            QVERIFY(gather->sampleCount >= int(written.size()));
            for (int i = 0; i < gather->sampleCount; ++i) {
                const bool there = i < int(written.size());
                QCOMPARE(double(gather->trace(row)[i]), there ? written[std::size_t(i)] : 0.0);
            }
        }
        // The number of traces that the first-break file is kept for is the true one.
        OvFirstBreaks breaks;
        breaks.resize(4);
        breaks.timesMs[2] = 12.0F;
        QVERIFY(document->setFirstBreaks(49, breaks));
        document.reset();
        document = open(path("variable.sgy"));
        QSignalSpy again(document.data(), &OvSegyDocument::indexComplete);
        QVERIFY(again.wait());
        QCOMPARE(document->firstBreaks(49).timesMs.size(), std::size_t(4));
        QCOMPARE(document->firstBreaks(49).timesMs[2], 12.0F);
    }

    void requestsForTheSameGatherAreAnsweredOnce()
    {
        const auto document = openComplete();
        QSignalSpy loaded(document.data(), &OvSegyDocument::gatherLoaded);
        for (int i = 0; i < 5; ++i)
            document->requestGather(3);
        QTRY_VERIFY(!loaded.isEmpty());
        QTest::qWait(20);
        QCOMPARE(loaded.size(), 1);
        document->requestGather(3); // from memory: also answered, but not from within the request
        QCOMPARE(loaded.size(), 1);
        QTRY_COMPARE(loaded.size(), 2);
    }

    void aGatherThatIsNotThereIsAnsweredWithAMessage()
    {
        const auto document = openComplete();
        QSignalSpy loaded(document.data(), &OvSegyDocument::gatherLoaded);
        document->requestGather(17);
        document->requestGather(-1);
        QTRY_COMPARE(loaded.size(), 2);
        QVERIFY(!loaded[0][1].value<std::shared_ptr<const OvGather>>());
        QVERIFY(loaded[0][2].toString().contains("18"));
    }

    void aFileThatShrinksIsAnsweredWithAMessage()
    {
        const auto document = openComplete();
        QVERIFY(QFile::resize(path(), 4000));
        QSignalSpy loaded(document.data(), &OvSegyDocument::gatherLoaded);
        document->requestGather(4);
        QVERIFY(loaded.wait());
        QVERIFY(!loaded[0][1].value<std::shared_ptr<const OvGather>>());
        QVERIFY(loaded[0][2].toString().contains("line.sgy"));
    }

    void indexingIsAJobWhileItRuns()
    {
        PoolBlock block(OvBackground::scanPool());
        const auto document = open(path());
        const QPointer<OvAbstractJob> job(indexJob());
        QVERIFY(job);
        QCOMPARE(job->taskName(), QString("Indexing line.sgy"));
        QVERIFY(job->isRunning());
        block.release();
        QTRY_VERIFY(document->isIndexComplete());
        QTRY_VERIFY(job.isNull());
        QVERIFY(OvTaskManager::instance().tasks().isEmpty());
    }

    void cancelKeepsTheFirstGather()
    {
        PoolBlock block(OvBackground::scanPool());
        const auto document = open(path());
        QSignalSpy ready(document.data(), &OvSegyDocument::firstGatherReady);
        QVERIFY(ready.wait());
        QSignalSpy failed(document.data(), &OvSegyDocument::indexFailed);
        const QPointer<OvAbstractJob> job(indexJob());
        job->requestCancel();
        block.release();
        QVERIFY(failed.wait());
        QCOMPARE(job->state(), OvAbstractJob::Cancelled);
        QVERIFY(failed[0][0].toString().contains("cancelled"));
        QCOMPARE(document->indexMessage(), failed[0][0].toString());
        QCOMPARE(document->gatherCount(), 1);
        QVERIFY(!document->isIndexing());

        document->readIndex();
        QTRY_VERIFY(document->isIndexComplete());
        QCOMPARE(document->gatherCount(), 5);
        QCOMPARE(document->indexMessage(), QString());
    }

    void anIndexThatFailsSaysWhy()
    {
        PoolBlock block(OvBackground::scanPool());
        const auto document = open(path());
        QSignalSpy ready(document.data(), &OvSegyDocument::firstGatherReady);
        QVERIFY(ready.wait());
        QVERIFY(QFile::resize(path(), 20000));
        QSignalSpy failed(document.data(), &OvSegyDocument::indexFailed);
        const QPointer<OvAbstractJob> job(indexJob());
        block.release();
        QVERIFY(failed.wait());
        QVERIFY(failed[0][0].toString().contains("line.sgy"));
        QCOMPARE(job->state(), OvAbstractJob::Failed);
        QCOMPARE(document->gatherCount(), 1);
    }

    void deletionWhileWorkersRunIsSafe()
    {
        for (int round = 0; round < 20; ++round) {
            PoolBlock scans(OvBackground::scanPool());
            auto document = open(path());
            if (round % 2 == 1)
                document->requestGather(0);
            if (round % 3 == 1) {
                QSignalSpy ready(document.data(), &OvSegyDocument::firstGatherReady);
                QVERIFY(ready.wait());
                document->requestGather(0);
            }
            document.reset();
        }
        OvBackground::scanPool()->waitForDone();
        OvBackground::readPool()->waitForDone();
        QCoreApplication::processEvents();
        QVERIFY(OvTaskManager::instance().tasks().isEmpty());
    }

    void aListenerMayGiveUpTheDocument()
    {
        auto document = open(path());
        const QPointer<OvSegyDocument> watched(document.data());
        QObject::connect(document.data(), &OvSegyDocument::indexComplete, this,
                         [&document] { document.reset(); });
        QTRY_VERIFY(watched.isNull());
    }

    void firstBreaksAreDurableAndAnnounced()
    {
        auto document = openComplete();
        QVERIFY(document->firstBreaks(2).isEmpty());
        QVERIFY2(!QFile::exists(document->firstBreakPath()),
                 "looking at data leaves no file behind");
        QSignalSpy changed(document.data(), &OvSegyDocument::firstBreaksChanged);
        QVERIFY(document->setFirstBreaks(2, Gathers::breaksAt(24, 31.5F, OvPickState::Manual)));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed[0][0].toInt(), 2);
        QVERIFY(document->setFirstBreaks(
            {{0, Gathers::breaksAt(24, 10.0F)}, {4, Gathers::breaksAt(24, 40.0F)}}));
        QCOMPARE(changed.size(), 3);

        document.reset();
        document = openComplete();
        QCOMPARE(document->firstBreaks(2).timesMs, std::vector<float>(24, 31.5F));
        QCOMPARE(document->firstBreaks(2).states[7], OvPickState::Manual);
        QCOMPARE(document->firstBreaks(4).timesMs[0], 40.0F);
        QVERIFY(document->firstBreaks(1).isEmpty());
    }

    void firstBreaksOfAnotherLengthAreRefusedWhole()
    {
        const auto document = openComplete();
        QSignalSpy changed(document.data(), &OvSegyDocument::firstBreaksChanged);
        const OvStatus status = document->setFirstBreaks(
            {{0, Gathers::breaksAt(24, 10.0F)}, {1, Gathers::breaksAt(23, 10.0F)}});
        QVERIFY(!status);
        QVERIFY(status.message().contains("23"));
        QVERIFY(!document->setFirstBreaks(9, Gathers::breaksAt(24, 10.0F)));
        QVERIFY(changed.isEmpty());
        QVERIFY(document->firstBreaks(0).isEmpty());
    }

    void firstBreaksWaitForTheIndex()
    {
        PoolBlock block(OvBackground::scanPool());
        const auto document = open(path());
        const OvStatus status = document->setFirstBreaks(0, Gathers::breaksAt(24, 10.0F));
        QVERIFY(!status);
        QVERIFY(status.message().contains("headers"));
    }

    void picksBelongToTraces()
    {
        const auto document = openComplete();
        QVERIFY(document->setFirstBreaks(
            {{0, Gathers::breaksAt(24, 10.0F)}, {4, Gathers::breaksAt(24, 40.0F)}}));
        // A receiver gather: the third channel of each shot, the last shot first.
        const std::vector<qint64> receiver = {98, 74, 50, 26, 2};
        const OvFirstBreaks breaks = document->firstBreaksOf(receiver);
        QCOMPARE(breaks.size(), 5);
        QCOMPARE(breaks.timesMs[0], 40.0F);
        QCOMPARE(breaks.timesMs[4], 10.0F);
        QVERIFY(!breaks.hasPick(2));

        QSignalSpy changed(document.data(), &OvSegyDocument::firstBreaksChanged);
        QSignalSpy traces(document.data(), &OvSegyDocument::tracePicksChanged);
        QVERIFY(document->setFirstBreaksOf({50, 98}, Gathers::breaksAt(2, 7.0F)));
        QCOMPARE(changed.size(), 2);
        QCOMPARE(changed[0][0].toInt(), 2);
        QCOMPARE(changed[1][0].toInt(), 4);
        QCOMPARE(traces.size(), 1);
        QCOMPARE(traces[0][0].value<std::vector<qint64>>(), (std::vector<qint64>{50, 98}));
        QCOMPARE(document->firstBreaks(2).timesMs[2], 7.0F);
        QCOMPARE(document->firstBreaks(2).pickedCount(), 1);
        QCOMPARE(document->firstBreaks(4).timesMs[2], 7.0F);
        QCOMPARE(document->firstBreaks(4).timesMs[3], 40.0F);
        QVERIFY(!document->setFirstBreaksOf({120}, Gathers::breaksAt(1, 7.0F)));
        QVERIFY(document->firstBreaksOf({120}).isEmpty());
    }

    void aStepOfTheHistoryLeavesWhatAJobStoredMeanwhile()
    {
        const auto document = openComplete();
        QVERIFY(document->setFirstBreaks(1, Gathers::breaksAt(24, 10.0F)));
        QCOMPARE(document->firstBreaks(1).timesMs[5], 10.0F);
        OvFirstBreakFile job;
        QVERIFY(job.open(document->firstBreakPath(), document->file().info()));
        document->beginJobStorage();
        QVERIFY(job.write({24 + 5}, Gathers::breaksAt(1, 99.0F)));
        // The document has not heard of it yet.
        QVERIFY(document->pickHistory()->edit(1, {OvTracePick::manual(6, 20.0)}, "move"));
        document->endJobStorage();
        QCOMPARE(document->firstBreaks(1).timesMs[5], 99.0F);
        QCOMPARE(document->firstBreaks(1).timesMs[6], 20.0F);
        qint64 trace = -1;
        QVERIFY(document->pickHistory()->undo(&trace));
        QCOMPARE(trace, qint64(24 + 6));
        QCOMPARE(document->firstBreaks(1).timesMs[5], 99.0F);
        QCOMPARE(document->firstBreaks(1).timesMs[6], 10.0F);
    }

    void whatAJobStoredCanBeUndone()
    {
        const auto document = openComplete();
        QVERIFY(document->setFirstBreaks(3, Gathers::breaksAt(24, 10.0F)));
        const std::vector<qint64> traces{72, 73, 74};
        std::vector<OvFirstBreakUpdate> updates(1);
        updates[0].traces = traces;
        updates[0].breaks = Gathers::breaksAt(3, 33.0F);
        updates[0].breaks.timesMs[1] = 10.0F; // as before
        const OvFirstBreaks before = document->firstBreaksOf(traces);
        document->beginJobStorage();
        OvFirstBreakFile job;
        QVERIFY(job.open(document->firstBreakPath(), document->file().info()));
        QVERIFY(job.write(&updates));
        document->takeStored(updates);
        document->endJobStorage();
        QUndoStack* stack = document->pickHistory()->stack();
        document->pickHistory()->note(traces, before, before, "nothing new");
        QCOMPARE(stack->count(), 0);
        QSignalSpy changed(document.data(), &OvSegyDocument::tracePicksChanged);
        document->pickHistory()->note(traces, before, updates[0].breaks, "job");
        QCOMPARE(stack->undoText(), QStringLiteral("job"));
        QCOMPARE(changed.size(), 0); // nothing is stored twice
        qint64 trace = -1;
        QVERIFY(document->pickHistory()->undo(&trace));
        QCOMPARE(trace, qint64(72));
        QCOMPARE(document->firstBreaks(3).timesMs, Gathers::breaksAt(24, 10.0F).timesMs);
        QVERIFY(document->pickHistory()->redo(&trace));
        QCOMPARE(document->firstBreaksOf(traces).timesMs, updates[0].breaks.timesMs);
    }

    void whatAJobStoredIsShownAtOnce()
    {
        const auto document = openComplete();
        QVERIFY(document->firstBreaks(3).isEmpty());
        QVERIFY(document->firstBreakStatus());
        document->beginJobStorage();
        OvFirstBreakFile job;
        QVERIFY(job.open(document->firstBreakPath(), document->file().info()));
        std::vector<OvFirstBreakUpdate> updates(1);
        updates[0].traces = {72, 73};
        updates[0].breaks = Gathers::breaksAt(2, 33.0F);
        QVERIFY(job.write(&updates));
        QSignalSpy changed(document.data(), &OvSegyDocument::firstBreaksChanged);
        document->takeStored(updates);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed[0][0].toInt(), 3);
        QCOMPARE(document->firstBreaks(3).pickedCount(), 2);
        document->endJobStorage();
        QCOMPARE(document->firstBreaks(3).pickedCount(), 2);
    }

    void whatAnotherProgramStoredIsSeen()
    {
        const auto document = openComplete();
        QVERIFY(document->setFirstBreaks(1, Gathers::breaksAt(24, 10.0F)));
        QCOMPARE(document->firstBreaks(1).timesMs[0], 10.0F);
        OvFirstBreakFile other;
        QVERIFY(other.open(document->firstBreakPath(), document->file().info()));
        QVERIFY(other.write({24}, Gathers::breaksAt(1, 99.0F)));
        QCOMPARE(document->firstBreaks(1).timesMs[0], 99.0F);
        QCOMPARE(document->firstBreaks(1).timesMs[1], 10.0F);
    }

    void aFirstBreakFileOfTheOldFormIsBroughtUpToDate()
    {
        const QString breaksPath = open(path())->firstBreakPath();
        OldFirstBreaks old;
        old.traceCount = 120;
        old.records = {{120, QVector<float>(24, 55.0F)}};
        QVERIFY(old.write(breaksPath));
        auto document = openComplete();
        QCOMPARE(document->firstBreaks(2).timesMs, std::vector<float>(24, 55.0F));
        QVERIFY(document->firstBreaks(1).isEmpty());
        QVERIFY(document->setFirstBreaks(1, Gathers::breaksAt(24, 10.0F)));
        document.reset();

        QVERIFY(QFile::remove(breaksPath));
        old.records = {{7, QVector<float>(24, 55.0F)}};
        QVERIFY(old.write(breaksPath));
        document = openComplete();
        QVERIFY(document->firstBreaks(2).isEmpty());
        QVERIFY(!document->firstBreakStatus());
        QVERIFY(!document->setFirstBreaks(1, Gathers::breaksAt(24, 10.0F)));
    }

    void aLargeReceiverGatherIsReadInAFrame()
    {
        // 1000 shots of 256 channels: every trace of the gather is in a block of its own.
        constexpr qint64 shots = 1000;
        const OvSegyFileInfo info = [] {
            OvSegyFileInfo wide;
            wide.traceCount = shots * 256;
            return wide;
        }();
        OvFirstBreakFile file;
        QVERIFY(file.open(path("wide.fb"), info));
        std::vector<OvFirstBreakUpdate> updates(1);
        for (qint64 trace = 0; trace < info.traceCount; ++trace)
            updates[0].traces.push_back(trace);
        updates[0].breaks = Gathers::breaksAt(static_cast<int>(info.traceCount), 12.0F);
        QVERIFY(file.write(&updates));
        std::vector<qint64> receiver;
        for (qint64 shot = 0; shot < shots; ++shot)
            receiver.push_back(shot * 256 + 100);
        OvFirstBreaks breaks;
        QElapsedTimer clock;
        clock.start();
        QVERIFY(file.read(receiver, &breaks));
        const qint64 elapsed = clock.nsecsElapsed() / 1000;
        qInfo("read 1000 blocks in %lld us", elapsed);
        QCOMPARE(breaks.pickedCount(), int(shots));
    }

    void aDamagedFirstBreakFileIsLeftAlone()
    {
        const QString breaksPath = open(path())->firstBreakPath();
        const QByteArray garbage = QByteArray("garbage ").repeated(2000);
        QVERIFY(SegyWriter::writeBytes(breaksPath, garbage));
        const auto document = openComplete();
        QVERIFY(!document->firstBreakStatus());
        QVERIFY(document->firstBreakStatus().message().contains(QFileInfo(breaksPath).fileName()));
        QVERIFY(!document->setFirstBreaks(0, Gathers::breaksAt(24, 10.0F)));
        QVERIFY(document->firstBreaks(0).isEmpty());
        QFile file(breaksPath);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), garbage);
    }
};

QTEST_GUILESS_MAIN(tst_OvSegyDocument)
#include "tst_OvSegyDocument.moc"

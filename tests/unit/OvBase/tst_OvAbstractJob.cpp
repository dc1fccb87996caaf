#include "OvBase/OvAbstractJob.h"

#include <QSignalSpy>
#include <QtTest>

class tst_OvAbstractJob : public QObject
{
    Q_OBJECT

private slots:
    void startsReady();
    void announcesChangesOnce();
    void runsAndEnds_data();
    void runsAndEnds();
    void startClearsTheLastRun();
    void lateNewsAreIgnored();
    void progressIsBounded();
    void cancellingIsARequest();
    void cancellingNeedsARunningCancellableJob();
    void theClockStopsAtTheEnd();
    void anOwnerMayDeleteTheJobWhenItEnds();
};

void tst_OvAbstractJob::startsReady()
{
    const OvAbstractJob job;
    QCOMPARE(job.state(), OvAbstractJob::Ready);
    QCOMPARE(job.kind(), OvAbstractJob::Action);
    QCOMPARE(job.progress(), -1);
    QCOMPARE(job.elapsedMs(), qint64(0));
    QVERIFY(job.isEnabled());
    QVERIFY(job.isCancellable());
    QVERIFY(!job.isCancelRequested());
}

void tst_OvAbstractJob::announcesChangesOnce()
{
    OvAbstractJob job;
    QSignalSpy names(&job, &OvAbstractJob::changeTaskName);
    QSignalSpy enabled(&job, &OvAbstractJob::enabledChanged);
    QSignalSpy messages(&job, &OvAbstractJob::messageChanged);
    for (int i = 0; i < 2; ++i) {
        job.setTaskName(QStringLiteral("Pick 初至"));
        job.setEnabled(false);
        job.setMessage(QStringLiteral("half way"));
    }
    QCOMPARE(names.size(), 1);
    QCOMPARE(names.at(0).at(0).toString(), job.taskName());
    QCOMPARE(enabled.size(), 1);
    QCOMPARE(enabled.at(0).at(0).toBool(), false);
    QCOMPARE(messages.size(), 1);
}

void tst_OvAbstractJob::runsAndEnds_data()
{
    QTest::addColumn<OvAbstractJob::State>("outcome");
    QTest::addColumn<int>("progress");
    QTest::newRow("finished") << OvAbstractJob::Finished << 100;
    QTest::newRow("cancelled") << OvAbstractJob::Cancelled << 30;
    QTest::newRow("failed") << OvAbstractJob::Failed << 30;
    QTest::newRow("ready") << OvAbstractJob::Ready << 30;
}

void tst_OvAbstractJob::runsAndEnds()
{
    QFETCH(OvAbstractJob::State, outcome);
    QFETCH(int, progress);
    OvAbstractJob job;
    QSignalSpy states(&job, &OvAbstractJob::stateChanged);
    job.start();
    QVERIFY(job.isRunning());
    job.setProgress(30);
    job.setMessage(QStringLiteral("last words"));
    job.finish(outcome);
    QCOMPARE(job.state(), outcome);
    QCOMPARE(job.progress(), progress);
    QCOMPARE(job.message(), QStringLiteral("last words"));
    QCOMPARE(states.size(), 2);
    job.finish(OvAbstractJob::Failed, QStringLiteral("again"));
    QCOMPARE(job.state(), outcome);
    QCOMPARE(states.size(), 2);
}

void tst_OvAbstractJob::startClearsTheLastRun()
{
    OvAbstractJob job;
    job.start();
    job.requestCancel();
    job.finish(OvAbstractJob::Cancelled, QStringLiteral("stopped"));
    job.start();
    QVERIFY(!job.isCancelRequested());
    QCOMPARE(job.progress(), -1);
    QCOMPARE(job.message(), QString());
    job.setProgress(5);
    job.start();
    QCOMPARE(job.progress(), 5);
}

void tst_OvAbstractJob::lateNewsAreIgnored()
{
    OvAbstractJob job;
    job.setProgress(10);
    QCOMPARE(job.progress(), -1);
    job.start();
    job.finish(OvAbstractJob::Finished);
    job.setProgress(42);
    QCOMPARE(job.progress(), 100);
}

void tst_OvAbstractJob::progressIsBounded()
{
    OvAbstractJob job;
    job.start();
    QSignalSpy progress(&job, &OvAbstractJob::progressChanged);
    job.setProgress(1000);
    job.setProgress(101);
    job.setProgress(-50);
    QCOMPARE(progress.size(), 2);
    QCOMPARE(progress.at(0).at(0).toInt(), 100);
    QCOMPARE(progress.at(1).at(0).toInt(), -1);
}

void tst_OvAbstractJob::cancellingIsARequest()
{
    OvAbstractJob job;
    QSignalSpy requests(&job, &OvAbstractJob::cancelRequested);
    job.start();
    job.requestCancel();
    job.requestCancel();
    QCOMPARE(requests.size(), 1);
    QVERIFY(job.isRunning());
    QVERIFY(job.isCancelRequested());
}

void tst_OvAbstractJob::cancellingNeedsARunningCancellableJob()
{
    OvAbstractJob job;
    QSignalSpy requests(&job, &OvAbstractJob::cancelRequested);
    job.requestCancel();
    job.setCancellable(false);
    job.start();
    job.requestCancel();
    QCOMPARE(requests.size(), 0);
    job.setCancellable(true);
    job.requestCancel();
    QCOMPARE(requests.size(), 1);
}

void tst_OvAbstractJob::theClockStopsAtTheEnd()
{
    OvAbstractJob job;
    job.start();
    QTRY_VERIFY(job.elapsedMs() > 20);
    job.finish(OvAbstractJob::Finished);
    const qint64 end = job.elapsedMs();
    QVERIFY(end > 20);
    QElapsedTimer clock;
    clock.start();
    QTRY_VERIFY(clock.elapsed() > 20);
    QCOMPARE(job.elapsedMs(), end);
}

void tst_OvAbstractJob::anOwnerMayDeleteTheJobWhenItEnds()
{
    QPointer<OvAbstractJob> job = new OvAbstractJob;
    connect(job.data(), &OvAbstractJob::cancelRequested, this, [&] {
        job->finish(OvAbstractJob::Cancelled);
        delete job.data();
    });
    job->start();
    job->requestCancel();
    QVERIFY(job.isNull());
}

QTEST_MAIN(tst_OvAbstractJob)
#include "tst_OvAbstractJob.moc"

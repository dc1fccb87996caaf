#include "OvBase/OvTaskManager.h"

#include <QSignalSpy>
#include <QtTest>

class tst_OvTaskManager : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QVERIFY(m_manager.tasks().isEmpty()); }

    void keepsTheOrder();
    void ignoresNullAndKnownJobs();
    void aDeletedJobLeaves();
    void aRemovedJobLivesOn();
    void knowsWhetherSomethingRuns();
    void aRunningJobThatIsDeletedRunsNoLonger();
    void cancelsAllThatRuns();
    void cancellingMayDeleteOtherJobs();

private:
    OvTaskManager& m_manager = OvTaskManager::instance();
};

void tst_OvTaskManager::keepsTheOrder()
{
    OvAbstractJob a;
    OvAbstractJob b;
    QSignalSpy added(&m_manager, &OvTaskManager::taskAdded);
    m_manager.addTask(&b);
    m_manager.addTask(&a);
    QCOMPARE(m_manager.tasks(), (QList<OvAbstractJob*>{&b, &a}));
    QCOMPARE(added.size(), 2);
}

void tst_OvTaskManager::ignoresNullAndKnownJobs()
{
    OvAbstractJob job;
    QSignalSpy added(&m_manager, &OvTaskManager::taskAdded);
    m_manager.addTask(nullptr);
    m_manager.addTask(&job);
    m_manager.addTask(&job);
    QCOMPARE(added.size(), 1);
    QCOMPARE(m_manager.tasks().size(), 1);
}

void tst_OvTaskManager::aDeletedJobLeaves()
{
    auto* const job = new OvAbstractJob;
    m_manager.addTask(job);
    QSignalSpy removed(&m_manager, &OvTaskManager::taskRemoved);
    delete job;
    QVERIFY(m_manager.tasks().isEmpty());
    QCOMPARE(removed.size(), 1);
}

void tst_OvTaskManager::aRemovedJobLivesOn()
{
    OvAbstractJob job;
    job.start();
    m_manager.addTask(&job);
    QSignalSpy removed(&m_manager, &OvTaskManager::taskRemoved);
    m_manager.removeTask(&job);
    m_manager.removeTask(&job);
    QCOMPARE(removed.size(), 1);
    QVERIFY(job.isRunning());
    QVERIFY(!m_manager.hasRunningJob());
    m_manager.addTask(&job);
    QVERIFY(m_manager.hasRunningJob());
}

void tst_OvTaskManager::knowsWhetherSomethingRuns()
{
    OvAbstractJob job;
    OvAbstractJob idle;
    m_manager.addTask(&job);
    m_manager.addTask(&idle);
    QVERIFY(!m_manager.hasRunningJob());
    job.start();
    QVERIFY(m_manager.hasRunningJob());
    job.requestCancel();
    QVERIFY(m_manager.hasRunningJob());
    job.finish(OvAbstractJob::Cancelled);
    QVERIFY(!m_manager.hasRunningJob());
}

void tst_OvTaskManager::aRunningJobThatIsDeletedRunsNoLonger()
{
    auto job = std::make_unique<OvAbstractJob>();
    job->start();
    m_manager.addTask(job.get());
    bool ranWhileRemoved = true;
    const auto connection = connect(&m_manager, &OvTaskManager::taskRemoved, this,
                                    [&] { ranWhileRemoved = m_manager.hasRunningJob(); });
    job.reset();
    disconnect(connection);
    QVERIFY(!ranWhileRemoved);
}

void tst_OvTaskManager::cancelsAllThatRuns()
{
    OvAbstractJob running;
    OvAbstractJob idle;
    OvAbstractJob stubborn;
    stubborn.setCancellable(false);
    for (OvAbstractJob* job : {&running, &idle, &stubborn})
        m_manager.addTask(job);
    running.start();
    stubborn.start();
    m_manager.cancelAll();
    QVERIFY(running.isCancelRequested());
    QVERIFY(!idle.isCancelRequested());
    QVERIFY(!stubborn.isCancelRequested());
}

void tst_OvTaskManager::cancellingMayDeleteOtherJobs()
{
    auto* const first = new OvAbstractJob;
    QPointer<OvAbstractJob> second = new OvAbstractJob;
    m_manager.addTask(first);
    m_manager.addTask(second);
    first->start();
    second->start();
    connect(first, &OvAbstractJob::cancelRequested, this, [second] { delete second.data(); });
    m_manager.cancelAll();
    QVERIFY(second.isNull());
    delete first;
}

QTEST_MAIN(tst_OvTaskManager)
#include "tst_OvTaskManager.moc"

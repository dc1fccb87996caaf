#include "OvTarnpick/OvTarnpick.h"

#include "OvTarnpick/controller/OvMdiArea.h"

#include "OvBase/OvAbstractJob.h"
#include "OvBase/OvTaskManager.h"
#include "OvBase/OvTaskMonitor.h"
#include "OvGui/OvMultiPlaneViewController.h"

#include "ConsoleLines.h"
#include "TestSession.h"
#include "TestView.h"
#include "fixtures/ModalProbe.h"

#include <QAction>
#include <QMdiSubWindow>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

/// Closing the main window, refused and accepted. The tests are the steps of one window's end.
class tst_OvTarnpick_close : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void runningJobAsks_data();
    void runningJobAsks();
    void yesTearsDownInOrder();
    void doesNothingAfterClosing();
    void cleanupTestCase();

private:
    OvMdiArea* area() const { return qobject_cast<OvMdiArea*>(m_window->centralWidget()); }
    QAction* action(const char* name) const
    {
        return m_window->findChild<QAction*>(QString::fromLatin1(name));
    }

    std::unique_ptr<TestSession> m_session;
    std::unique_ptr<OvTarnpick> m_window;
    OvAbstractJob m_job;
    QPointer<TestView> m_view;
};

void tst_OvTarnpick_close::initTestCase()
{
    m_session = std::make_unique<TestSession>();
    QVERIFY(m_session->isReady());
    m_window = std::make_unique<OvTarnpick>();
    m_window->show();
    OvProjectManager::instance().openProject(m_session->addProject(QStringLiteral("P")));
    m_view = new TestView(QStringLiteral("A"));
    OvProjectManager::instance().addWorkspace(m_view);
    m_job.setTaskName(QStringLiteral("picking"));
    m_job.start();
    OvTaskManager::instance().addTask(QPointer<OvAbstractJob>(&m_job));
}

void tst_OvTarnpick_close::runningJobAsks_data()
{
    QTest::addColumn<bool>("byButton");
    QTest::newRow("No") << true;
    QTest::newRow("Escape") << false;
}

void tst_OvTarnpick_close::runningJobAsks()
{
    QFETCH(bool, byButton);
    ModalProbe probe;
    if (byButton)
        probe.nextBox(QMessageBox::No);
    else
        probe.next([](QWidget* window) { QTest::keyClick(window, Qt::Key_Escape); });
    QVERIFY(!m_window->close());
    QVERIFY2(probe.isDone(), qPrintable(probe.unexpected().join(QLatin1Char('\n'))));
    if (byButton) {
        const ModalProbe::Box& box = probe.boxes().front();
        QCOMPARE(box.title, QStringLiteral("Warning"));
        QCOMPARE(box.text, QStringLiteral("There are some jobs active, still want to close?"));
        QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(box.defaultButton, QMessageBox::No);
        QCOMPARE(box.icon, QMessageBox::Warning);
        QCOMPARE(box.parent, m_window.get());
    }
    QVERIFY(m_window->isVisible());
    QCOMPARE(OvProjectManager::instance().define().name, QStringLiteral("P"));
    QVERIFY(OvBaseUtil::isInitialized());
    QVERIFY(m_job.isRunning());
    QVERIFY(!m_job.isCancelRequested());
    // The controller works on.
    QVERIFY(m_view);
    QTest::keyClick(m_window.get(), Qt::Key_Space);
    QCOMPARE(m_view->keys.last(), int(Qt::Key_Space));
    m_view->keys.clear();
}

void tst_OvTarnpick_close::yesTearsDownInOrder()
{
    QStringList steps;
    connect(&OvProjectManager::instance(), &OvProjectManager::projectAboutToClose, this,
            [&] { steps.append(QStringLiteral("about to close")); });
    connect(&OvProjectManager::instance(), &OvProjectManager::projectChanged, this, [&] {
        steps.append(OvBaseUtil::isInitialized() ? QStringLiteral("closed")
                                                 : QStringLiteral("closed too late"));
    });
    connect(&m_job, &OvAbstractJob::cancelRequested, this,
            [&] { steps.append(QStringLiteral("finished")); });
    // What is on the area when the framework finishes goes with the controller.
    connect(&m_job, &OvAbstractJob::cancelRequested, this, [&] {
        auto* late = new TestView(QStringLiteral("late"));
        connect(late, &QObject::destroyed, this,
                [&] { steps.append(QStringLiteral("controller gone")); });
        OvProjectManager::instance().addWorkspace(late);
    });
    m_job.setCancellable(true);
    ModalProbe probe;
    probe.nextBox(QMessageBox::Yes);
    QVERIFY(m_window->close());
    QVERIFY(probe.isDone());
    QVERIFY(!m_window->isVisible());
    QCOMPARE(steps, (QStringList{QStringLiteral("about to close"), QStringLiteral("closed"),
                                 QStringLiteral("finished"), QStringLiteral("controller gone")}));
    QVERIFY(!m_view);
    QVERIFY(!OvBaseUtil::isInitialized());
    QVERIFY(!OvUserDefineNode::instance().isLoggedIn());
    QVERIFY(area()->subWindowList().isEmpty());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Maravel"));
}

void tst_OvTarnpick_close::doesNothingAfterClosing()
{
    auto view = std::make_unique<TestView>(QStringLiteral("B"));
    OvProjectManager::instance().addWorkspace(view.get());
    QVERIFY(area()->subWindowList().isEmpty());
    QTest::keyClick(m_window.get(), Qt::Key_PageDown);
    QCOMPARE(view->keys, QList<int>());
    for (const char* name : {"action_Manage_Project", "action_Clear_Menu", "actionLinkWindow",
                             "actionExport_to_Image", "actionTile", "actionCascade"})
        action(name)->trigger();
    QEvent language(QEvent::LanguageChange);
    QCoreApplication::sendEvent(m_window.get(), &language);
    m_job.finish(OvAbstractJob::Cancelled);
    QVERIFY(m_window->close());
}

void tst_OvTarnpick_close::cleanupTestCase()
{
    QCOMPARE(consoleWarnings(), QStringList());
    m_window.reset();
    m_session.reset();
}

QTEST_MAIN(tst_OvTarnpick_close)
#include "tst_OvTarnpick_close.moc"

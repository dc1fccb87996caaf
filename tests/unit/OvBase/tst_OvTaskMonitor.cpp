#include "OvBase/OvTaskMonitor.h"

#include "OvBase/OvTaskManager.h"
#include "OvBase/OvTranslator.h"
#include "OvBase/private/OvTaskView.h"
#include "unit/OvBase/LoginFixture.h"

#include <QMainWindow>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>

class tst_OvTaskMonitor : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(OvBaseUtil::initialize()); }
    void init();
    void cleanup();

    void isADockWithANameAndATitle();
    void goesWithItsWindow();
    void showsJobsThatWereThereBefore();
    void aRowFollowsItsJob();
    void workspacesAreReadyOrLoading();
    void unknownProgressIsBusy();
    void messagesAndNamesAreShownPlain();
    void progressIsShownAtMostTwentyTimesASecond();
    void theClockTicksOnlyWhileSomethingRuns();
    void elapsedTimeIsMinutesAndSeconds();
    void theCancelButtonAsksTheJob();
    void theCancelButtonIsReachedByKeyboard();
    void clickChoosesAJob();
    void keyboardChoosesAJob();
    void removingTheChosenRowChoosesNobody();
    void finishedJobsStayUntilCleared();
    void deletedJobsDisappear();
    void saysSoWhenThereIsNothing();
    void fitsALowDock();
    void speaksTheLanguage();
    void knowsWhetherSomethingRuns();
    void aThousandJobs();

private:
    OvAbstractJob* addJob(const QString& name, OvAbstractJob::Kind kind = OvAbstractJob::Action);
    OvTaskMonitor& monitor() const { return OvTaskMonitor::instance(); }
    OvTaskView* view() const { return monitor().findChild<OvTaskView*>(); }
    QString cell(int row, int column) const { return view()->topLevelItem(row)->text(column); }
    QVariant progress(int row) const
    {
        return view()->topLevelItem(row)->data(OvTaskView::ProgressColumn,
                                               OvTaskView::ProgressRole);
    }
    QToolButton* cancelButton(int row) const
    {
        return qobject_cast<QToolButton*>(
            view()->itemWidget(view()->topLevelItem(row), OvTaskView::CancelColumn));
    }
    QPoint center(int row) const
    {
        const QModelIndex index = view()->model()->index(row, OvTaskView::NameColumn);
        return view()->visualRect(index).center();
    }
    void chooseFromMenu(const QString& text);

    std::unique_ptr<QMainWindow> m_window;
    std::unique_ptr<QObject> m_owner;
    std::unique_ptr<WarningWatch> m_warnings;
};

void tst_OvTaskMonitor::init()
{
    m_warnings = std::make_unique<WarningWatch>();
    m_owner = std::make_unique<QObject>();
    m_window = std::make_unique<QMainWindow>();
    m_window->resize(900, 400);
    m_window->addDockWidget(Qt::BottomDockWidgetArea, &monitor());
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_OvTaskMonitor::cleanup()
{
    m_window.reset();
    m_owner.reset();
    QVERIFY(OvTaskManager::instance().tasks().isEmpty());
    const QString problems = m_warnings->problems();
    m_warnings.reset();
    QCOMPARE(problems, QString());
}

OvAbstractJob* tst_OvTaskMonitor::addJob(const QString& name, OvAbstractJob::Kind kind)
{
    auto* const job = new OvAbstractJob(m_owner.get());
    job->setTaskName(name);
    job->setKind(kind);
    OvTaskManager::instance().addTask(job);
    return job;
}

void tst_OvTaskMonitor::chooseFromMenu(const QString& text)
{
    bool found = false;
    QTimer::singleShot(0, this, [&] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        for (QAction* action : menu ? menu->actions() : QList<QAction*>()) {
            if (action->text() == text && action->isEnabled()) {
                found = true;
                action->trigger();
            }
        }
        if (menu)
            menu->close();
    });
    emit view()->customContextMenuRequested(center(0));
    QVERIFY2(found, qPrintable(text));
}

void tst_OvTaskMonitor::isADockWithANameAndATitle()
{
    QCOMPARE(monitor().objectName(), QStringLiteral("OvTaskMonitor"));
    QCOMPARE(monitor().windowTitle(), QStringLiteral("Task Monitor"));
    QCOMPARE(&OvTaskMonitor::instance(), &OvTaskMonitor::instance());
    QVERIFY(monitor().isVisible());
}

void tst_OvTaskMonitor::goesWithItsWindow()
{
    const QPointer<OvTaskMonitor> former = &monitor();
    m_window.reset();
    QVERIFY(former.isNull());
    OvAbstractJob* const job = addJob(QStringLiteral("after"));
    QCOMPARE(view()->topLevelItemCount(), 1);
    job->start();
    QVERIFY(monitor().hasRunningJob());
    delete &monitor();
}

void tst_OvTaskMonitor::showsJobsThatWereThereBefore()
{
    delete &monitor();
    addJob(QStringLiteral("early"));
    QCOMPARE(view()->topLevelItemCount(), 1);
    QCOMPARE(cell(0, OvTaskView::NameColumn), QStringLiteral("early"));
    delete &monitor();
}

void tst_OvTaskMonitor::aRowFollowsItsJob()
{
    OvAbstractJob* const job = addJob(QStringLiteral("Pick"));
    job->start();
    QCOMPARE(cell(0, OvTaskView::StateColumn), QStringLiteral("Running"));
    job->setProgress(40);
    job->setMessage(QStringLiteral("gather 4 of 10"));
    job->setTaskName(QStringLiteral("Pick line 7"));
    QTRY_COMPARE(progress(0), QVariant(40));
    QCOMPARE(cell(0, OvTaskView::ProgressColumn), QStringLiteral("40 %"));
    QCOMPARE(cell(0, OvTaskView::MessageColumn), QStringLiteral("gather 4 of 10"));
    QCOMPARE(cell(0, OvTaskView::NameColumn), QStringLiteral("Pick line 7"));
    QCOMPARE(cell(0, OvTaskView::ElapsedColumn), QStringLiteral("00:00"));
    QCOMPARE(cell(0, OvTaskView::RemainingColumn), QStringLiteral("00:00"));
    job->requestCancel();
    QCOMPARE(cell(0, OvTaskView::StateColumn), QStringLiteral("Cancelling"));
    job->finish(OvAbstractJob::Failed, QStringLiteral("disk full"));
    QCOMPARE(cell(0, OvTaskView::StateColumn), QStringLiteral("Failed"));
    QCOMPARE(cell(0, OvTaskView::MessageColumn), QStringLiteral("disk full"));
    QCOMPARE(cell(0, OvTaskView::RemainingColumn), QString());
}

void tst_OvTaskMonitor::workspacesAreReadyOrLoading()
{
    OvAbstractJob* const job = addJob(QStringLiteral("line.sgy"), OvAbstractJob::Workspace);
    QCOMPARE(cell(0, OvTaskView::StateColumn), QStringLiteral("Ready"));
    QVERIFY(!progress(0).isValid());
    job->start();
    QCOMPARE(cell(0, OvTaskView::StateColumn), QStringLiteral("Loading"));
    QVERIFY(progress(0).isValid());
    job->finish(OvAbstractJob::Ready);
    QCOMPARE(cell(0, OvTaskView::StateColumn), QStringLiteral("Ready"));
    QVERIFY(!progress(0).isValid());
}

void tst_OvTaskMonitor::unknownProgressIsBusy()
{
    OvAbstractJob* const job = addJob(QStringLiteral("Index"));
    job->start();
    QCOMPARE(progress(0), QVariant(-1));
    QCOMPARE(cell(0, OvTaskView::ProgressColumn), QString());
    job->setProgress(3);
    QTRY_COMPARE(progress(0), QVariant(3));
}

void tst_OvTaskMonitor::messagesAndNamesAreShownPlain()
{
    OvAbstractJob* const job = addJob(QStringLiteral("<b>bold</b>"));
    job->setMessage(QStringLiteral("line 1\nline <2>"));
    QTRY_COMPARE(cell(0, OvTaskView::MessageColumn), QStringLiteral("line 1 line <2>"));
    QVERIFY(view()
                ->topLevelItem(0)
                ->toolTip(OvTaskView::NameColumn)
                .contains(QStringLiteral("&lt;b&gt;")));
    QVERIFY(view()
                ->topLevelItem(0)
                ->toolTip(OvTaskView::MessageColumn)
                .contains(QStringLiteral("line &lt;2&gt;")));
}

void tst_OvTaskMonitor::progressIsShownAtMostTwentyTimesASecond()
{
    OvAbstractJob* const job = addJob(QStringLiteral("Fast"));
    job->start();
    // Value, text and tool tip.
    constexpr int ChangesOfAnUpdate = 3;
    int shown = 0;
    connect(view(), &QTreeWidget::itemChanged, m_owner.get(), [&](QTreeWidgetItem*, int column) {
        shown += column == OvTaskView::ProgressColumn ? 1 : 0;
    });
    QElapsedTimer clock;
    clock.start();
    int news = 0;
    while (clock.elapsed() < 300) {
        job->setProgress(news++ % 100);
        QCoreApplication::processEvents();
    }
    QVERIFY(news > 20);
    QVERIFY(shown > 0);
    QVERIFY2(shown <= ChangesOfAnUpdate * (1 + clock.elapsed() / 50),
             qPrintable(QString::number(shown)));
}

void tst_OvTaskMonitor::theClockTicksOnlyWhileSomethingRuns()
{
    OvAbstractJob* const job = addJob(QStringLiteral("Work"));
    job->start();
    QCOMPARE(cell(0, OvTaskView::ElapsedColumn), QStringLiteral("00:00"));
    QTRY_COMPARE(cell(0, OvTaskView::ElapsedColumn), QStringLiteral("00:01"));
    job->finish(OvAbstractJob::Finished);
    const QString end = cell(0, OvTaskView::ElapsedColumn);
    QSignalSpy changes(view()->model(), &QAbstractItemModel::dataChanged);
    QTest::qWait(1300);
    QCOMPARE(changes.size(), 0);
    QCOMPARE(cell(0, OvTaskView::ElapsedColumn), end);
}

void tst_OvTaskMonitor::elapsedTimeIsMinutesAndSeconds()
{
    addJob(QStringLiteral("Idle"));
    QCOMPARE(cell(0, OvTaskView::ElapsedColumn), QString());
}

void tst_OvTaskMonitor::theCancelButtonAsksTheJob()
{
    OvAbstractJob* const job = addJob(QStringLiteral("Pick"));
    QVERIFY(!cancelButton(0));
    job->start();
    QToolButton* const button = cancelButton(0);
    QVERIFY(button->isEnabled());
    QVERIFY(button->toolTip().contains(QStringLiteral("Cancel Pick")));
    QCOMPARE(button->accessibleName(), QStringLiteral("Cancel Pick"));
    QSignalSpy requests(job, &OvAbstractJob::cancelRequested);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(requests.size(), 1);
    QVERIFY(!button->isEnabled());
    job->finish(OvAbstractJob::Cancelled);
    QVERIFY(!cancelButton(0));
    job->setCancellable(false);
    job->start();
    QVERIFY(!cancelButton(0)->isEnabled());
}

void tst_OvTaskMonitor::theCancelButtonIsReachedByKeyboard()
{
    OvAbstractJob* const job = addJob(QStringLiteral("Pick"));
    job->start();
    QToolButton* const button = cancelButton(0);
    view()->setFocus();
    for (int i = 0; i < 5 && QApplication::focusWidget() != button; ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), button);
    QTest::keyClick(button, Qt::Key_Space);
    QVERIFY(job->isCancelRequested());
}

void tst_OvTaskMonitor::clickChoosesAJob()
{
    OvAbstractJob* const first = addJob(QStringLiteral("first"));
    OvAbstractJob* const second = addJob(QStringLiteral("second"));
    QSignalSpy chosen(&monitor(), &OvTaskMonitor::changeActiveJob);
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier, center(1));
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen.at(0).at(0).value<OvAbstractJob*>(), second);
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier, center(1));
    QCOMPARE(chosen.size(), 2);
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier, center(0));
    QCOMPARE(chosen.size(), 3);
    QCOMPARE(chosen.at(2).at(0).value<OvAbstractJob*>(), first);
}

void tst_OvTaskMonitor::keyboardChoosesAJob()
{
    addJob(QStringLiteral("first"));
    OvAbstractJob* const second = addJob(QStringLiteral("second"));
    QSignalSpy chosen(&monitor(), &OvTaskMonitor::changeActiveJob);
    view()->setFocus();
    QCOMPARE(chosen.size(), 0);
    QTest::keyClick(view(), Qt::Key_Home);
    QTest::keyClick(view(), Qt::Key_Down);
    QCOMPARE(chosen.constLast().at(0).value<OvAbstractJob*>(), second);
}

void tst_OvTaskMonitor::removingTheChosenRowChoosesNobody()
{
    OvAbstractJob* const first = addJob(QStringLiteral("first"));
    addJob(QStringLiteral("second"));
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier, center(0));
    QSignalSpy chosen(&monitor(), &OvTaskMonitor::changeActiveJob);
    delete first;
    QCoreApplication::processEvents();
    QCOMPARE(view()->topLevelItemCount(), 1);
    QCOMPARE(chosen.size(), 0);
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier, center(0));
    QCOMPARE(chosen.size(), 1);
}

void tst_OvTaskMonitor::finishedJobsStayUntilCleared()
{
    OvAbstractJob* const done = addJob(QStringLiteral("done"));
    OvAbstractJob* const running = addJob(QStringLiteral("running"));
    addJob(QStringLiteral("line.sgy"), OvAbstractJob::Workspace);
    done->start();
    running->start();
    done->finish(OvAbstractJob::Finished, QStringLiteral("12 gathers picked"));
    QCOMPARE(cell(0, OvTaskView::MessageColumn), QStringLiteral("12 gathers picked"));
    chooseFromMenu(QStringLiteral("Clear finished"));
    QCOMPARE(view()->topLevelItemCount(), 2);
    QCOMPARE(cell(0, OvTaskView::NameColumn), QStringLiteral("running"));
    QVERIFY(!OvTaskManager::instance().tasks().contains(done));
    chooseFromMenu(QStringLiteral("Cancel"));
    QVERIFY(running->isCancelRequested());
}

void tst_OvTaskMonitor::deletedJobsDisappear()
{
    OvAbstractJob* const job = addJob(QStringLiteral("short"));
    job->start();
    job->setProgress(5);
    delete job;
    QCOMPARE(view()->topLevelItemCount(), 0);
    QTest::qWait(80);
    QVERIFY(!monitor().hasRunningJob());
}

void tst_OvTaskMonitor::saysSoWhenThereIsNothing()
{
    const QImage empty = view()->viewport()->grab().toImage();
    bool isPlain = true;
    for (int y = 0; y < empty.height() && isPlain; ++y) {
        for (int x = 0; x < empty.width() && isPlain; ++x)
            isPlain = empty.pixel(x, y) == empty.pixel(0, 0);
    }
    QVERIFY2(!isPlain, "no placeholder is drawn");
}

void tst_OvTaskMonitor::fitsALowDock()
{
    OvAbstractJob* const job = addJob(QStringLiteral("Pick"));
    job->start();
    job->setProgress(40);
    for (int i = 0; i < 30; ++i)
        addJob(QStringLiteral("long name of a job %1").arg(i));
    m_window->resize(640, 400);
    monitor().setMaximumHeight(80);
    QCoreApplication::processEvents();
    QTRY_VERIFY(monitor().height() <= 80);
    const QRect row = view()->visualItemRect(view()->topLevelItem(0));
    QVERIFY2(view()->viewport()->height() >= row.height(), "not one row fits");
    QVERIFY(cancelButton(0)->height() <= row.height());
    QCOMPARE(view()->horizontalScrollBar()->maximum(), 0);
}

void tst_OvTaskMonitor::speaksTheLanguage()
{
    OvAbstractJob* const job = addJob(QStringLiteral("line.sgy"), OvAbstractJob::Workspace);
    OvTranslator::instance().setLanguageType(OvTranslator::Chinese);
    QTRY_COMPARE(monitor().windowTitle(), QStringLiteral("任务监视器"));
    QCOMPARE(view()->headerItem()->text(OvTaskView::StateColumn), QStringLiteral("状态"));
    QCOMPARE(cell(0, OvTaskView::StateColumn), QStringLiteral("就绪"));
    job->start();
    QCOMPARE(cancelButton(0)->accessibleName(), QStringLiteral("取消 line.sgy"));
    OvTranslator::instance().setLanguageType(OvTranslator::English);
    QTRY_COMPARE(monitor().windowTitle(), QStringLiteral("Task Monitor"));
    QCOMPARE(cell(0, OvTaskView::StateColumn), QStringLiteral("Loading"));
}

void tst_OvTaskMonitor::knowsWhetherSomethingRuns()
{
    OvAbstractJob* const job = addJob(QStringLiteral("Pick"));
    QVERIFY(!monitor().hasRunningJob());
    job->start();
    QVERIFY(monitor().hasRunningJob());
    job->finish(OvAbstractJob::Failed);
    QVERIFY(!monitor().hasRunningJob());
}

void tst_OvTaskMonitor::aThousandJobs()
{
    for (int i = 0; i < 1000; ++i)
        addJob(QStringLiteral("job %1").arg(i))->setProgress(i);
    addJob(QStringLiteral("last"))->start();
    QCoreApplication::processEvents();
    QCOMPARE(view()->topLevelItemCount(), 1001);
    m_owner.reset();
    QCOMPARE(view()->topLevelItemCount(), 0);
}

QTEST_MAIN(tst_OvTaskMonitor)
#include "tst_OvTaskMonitor.moc"

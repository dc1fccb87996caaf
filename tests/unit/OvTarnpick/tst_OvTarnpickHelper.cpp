#include "OvTarnpick/OvTarnpickHelper.h"

#include "OvTarnpick/controller/OvLinkWindowDlg.h"

#include "OvBase/OvTaskManager.h"
#include "OvBase/OvTaskMonitor.h"
#include "OvGui/OvMultiPlaneViewController.h"

#include "HelperWindow.h"
#include "TestSession.h"
#include "fixtures/ModalProbe.h"
#include "fixtures/WarningTrap.h"
#include "ui_OvTarnpick.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QToolBar>
#include <QtTest>

class tst_OvTarnpickHelper : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void declaresItsMethodsInOrder();
    void fillsTheToolBar();
    void doesWithoutAToolBar();
    void takesTheLastMainToolBar();

    void showsANewWorkspace();
    void activatesAWorkspaceAddedInTheBackground();
    void activatesTheParallelViewFromTheBackground();
    void retitlesWithTheTaskName();
    void refreshesWindowTitles();
    void closesTheSubWindowOfADeletedView();
    void closesAViewWithItsSubWindow();

    void showsTheFilesOfTheActiveWorkspace();
    void showsOnlyTheFirstBreakFile();
    void populatesFromTheActiveWorkspaceOnly();
    void clearsTheBillBoard();
    void infoStaysFiveSeconds();

    void activatesTheWorkspaceOfAJob();
    void relaysTheActiveWorkspace();
    void validProjectAnnouncesNoWorkspace();
    void closingTheProjectClosesAll();
    void eachClosingAddsADelivery();

    void capturesTheActiveWorkspace();
    void warnsWhenThereIsNothingToCapture();
    void forwardsKeysToTheActiveWorkspace();
    void selectsErrorsWhereTheViewCan();
    void newWindowIsReserved();
    void arrangesSubWindows();
    void collectsActionsDepthFirst();

    void linksNothing();
    void showsAParallelView();
    void rejectedLinkChangesNothing();
    void leavesOutViewsThatAreNotReady();
    void relinksTheSameParallelView();
    void unlinkingAllRemovesTheParallelView();
    void closingTheParallelViewTilesTheRest();
    void deletingALinkedViewIsSafe();
    void closesTheParallelViewFirst();
    void closesInTheOrderOfActivation();

    void managesProjects();
    void endsWithTheProjectClosed();

private:
    /// Opens the link dialog and lets act work on it; what the slot returned.
    bool link(const std::function<void(OvLinkWindowDlg*)>& act);
    bool linkAll();
    OvMultiPlaneViewController* parallelView() const;
    QString segyField() const;
    QString fbField() const;

    std::unique_ptr<TestSession> m_session;
    std::unique_ptr<HelperWindow> m_window;
    std::unique_ptr<WarningTrap> m_log;
};

namespace {

QString rows(const QDialog* dialog, const char* table)
{
    const auto* view = dialog->findChild<QTableView*>(QString::fromLatin1(table));
    QString names;
    for (int row = 0; row < view->model()->rowCount(); ++row)
        names += view->model()->index(row, 0).data().toString();
    return names;
}

void press(const QDialog* dialog, const char* button)
{
    dialog->findChild<QAbstractButton*>(QString::fromLatin1(button))->click();
}

} // namespace

void tst_OvTarnpickHelper::init()
{
    m_log = std::make_unique<WarningTrap>();
    m_session = std::make_unique<TestSession>();
    m_window = std::make_unique<HelperWindow>();
    QVERIFY(QTest::qWaitForWindowActive(&m_window->window));
}

void tst_OvTarnpickHelper::cleanup()
{
    m_window.reset();
    m_session.reset();
    const QStringList warnings = WarningTrap::take();
    m_log.reset();
    QCOMPARE(warnings, QStringList());
}

bool tst_OvTarnpickHelper::link(const std::function<void(OvLinkWindowDlg*)>& act)
{
    ModalProbe probe;
    probe.next([&](QWidget* window) {
        auto* dialog = qobject_cast<OvLinkWindowDlg*>(window);
        if (dialog)
            act(dialog);
        window->close();
    });
    const bool shown = m_window->helper->slotLinkWindow();
    if (!probe.isDone())
        QTest::qFail("The link dialog did not come.", __FILE__, __LINE__);
    return shown;
}

bool tst_OvTarnpickHelper::linkAll()
{
    return link([](OvLinkWindowDlg* dialog) {
        press(dialog, "selAllBtn");
        dialog->accept();
    });
}

OvMultiPlaneViewController* tst_OvTarnpickHelper::parallelView() const
{
    return m_window->area()->findChild<OvMultiPlaneViewController*>();
}

QString tst_OvTarnpickHelper::segyField() const
{
    return m_window->billBoard()->segyFile();
}

QString tst_OvTarnpickHelper::fbField() const
{
    return m_window->billBoard()->fbFile();
}

void tst_OvTarnpickHelper::declaresItsMethodsInOrder()
{
    const QStringList expected{
        QStringLiteral("activeWorkspace(OvAbstractViewController*)"),
        QStringLiteral("changeDisplayDefine()"),
        QStringLiteral("changeFitDisplayDefine()"),
        QStringLiteral("changeTraceHeaderDefine()"),
        QStringLiteral("processAutoSave()"),
        QStringLiteral("slotSelectErrorFB()"),
        QStringLiteral("slotLinkWindow()"),
        QStringLiteral("slotCascadeSubWindows()"),
        QStringLiteral("slotTileSubWindows()"),
        QStringLiteral("slotTileSubWindowsVertically()"),
        QStringLiteral("slotTileSubWindowsHorizontally()"),
        QStringLiteral("slotRecentlyProject()"),
        QStringLiteral("slotProjectChanged(OvProjectDefine)"),
        QStringLiteral("slotProjectAboutToClose(OvProjectDefine)"),
        QStringLiteral("slotNew3DWindow()"),
        QStringLiteral("outputInfo(QString)"),
        QStringLiteral("populate()"),
        QStringLiteral("slotActiveJobChanged(OvAbstractJob*)"),
        QStringLiteral("slotWorkspaceActivated(OvAbstractViewController*)"),
        QStringLiteral("slotAboutToAddWorkspace(OvAbstractViewController*)"),
    };
    const QMetaObject& metaObject = OvTarnpickHelper::staticMetaObject;
    QCOMPARE(ownMethods(metaObject), expected);
    QCOMPARE(metaObject.method(metaObject.methodOffset()).methodType(), QMetaMethod::Signal);
    QCOMPARE(metaObject.method(metaObject.methodOffset() + 6).typeName(), "bool");
}

void tst_OvTarnpickHelper::fillsTheToolBar()
{
    const QToolBar* toolBar = m_window->form.mainToolBar;
    QCOMPARE(toolBar->actions().size(), 2);
    QCOMPARE(toolBar->actions().first()->objectName(), QStringLiteral("spacer"));
    const QWidget* spacer = toolBar->widgetForAction(toolBar->actions().first());
    QCOMPARE(spacer->metaObject()->className(), "QWidget");
    QCOMPARE(spacer->sizePolicy(), QWidget().sizePolicy());
    QCOMPARE(toolBar->widgetForAction(toolBar->actions().last()), m_window->billBoard());
    QVERIFY(!m_window->billBoard()->isEnabled());
}

void tst_OvTarnpickHelper::doesWithoutAToolBar()
{
    QMainWindow bare;
    OvTarnpickHelper helper(&bare, nullptr);
    QVERIFY(qobject_cast<OvMdiArea*>(bare.centralWidget()));
    QVERIFY(!bare.findChild<OvMainBillBoard*>());
    helper.clearBillBoard();
    auto* view = new TestView(QStringLiteral("A"));
    view->setProperty("SegyFile", QStringLiteral("a.sgy"));
    helper.slotAboutToAddWorkspace(view);
    emit view->populate();
    QCOMPARE(qobject_cast<OvMdiArea*>(bare.centralWidget())->subWindowList().size(), 1);
}

void tst_OvTarnpickHelper::takesTheLastMainToolBar()
{
    QMainWindow two;
    QToolBar* bars[2];
    for (QToolBar*& bar : bars) {
        bar = two.addToolBar(QStringLiteral("bar"));
        bar->setObjectName(QStringLiteral("mainToolBar"));
    }
    const OvTarnpickHelper helper(&two, nullptr);
    QVERIFY(bars[0]->actions().isEmpty());
    QCOMPARE(bars[1]->actions().size(), 2);
}

void tst_OvTarnpickHelper::showsANewWorkspace()
{
    QSignalSpy added(&OvTaskManager::instance(), &OvTaskManager::taskAdded);
    TestView* view = m_window->add(QStringLiteral("Gather 1"));
    QCOMPARE(m_window->subWindows().size(), 1);
    const QMdiSubWindow* subWindow = m_window->subWindows().first();
    QCOMPARE(subWindow->widget(), view);
    QCOMPARE(subWindow->windowTitle(), QStringLiteral("Gather 1"));
    QVERIFY(subWindow->isMaximized());
    QVERIFY(subWindow->testAttribute(Qt::WA_DeleteOnClose));
    QCOMPARE(added.count(), 1);
    QVERIFY(OvTaskManager::instance().tasks().contains(view->delegateJob()));
    QCOMPARE(m_window->area()->activeWorkspace(), view);
}

void tst_OvTarnpickHelper::activatesAWorkspaceAddedInTheBackground()
{
    m_window->add(QStringLiteral("A"));
    // As after a file dialog: the window system hands the focus back later.
    QWidget dialog;
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QVERIFY(!m_window->window.isActiveWindow());
    TestView* second = m_window->add(QStringLiteral("B"));
    TestView* third = m_window->add(QStringLiteral("C"));
    TestView* closed = m_window->add(QStringLiteral("closed"));
    delete second->parentWidget();
    m_window->area()->removeSubWindow(closed->parentWidget());
    const std::unique_ptr<QWidget> removed(closed->parentWidget());
    m_window->window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_window->window));
    QCOMPARE(m_window->area()->activeWorkspace(), third);
    QCOMPARE(m_window->area()->activeSubWindow(), third->parentWidget());
    // Only once.
    TestView* fourth = m_window->add(QStringLiteral("D"));
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    m_window->window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_window->window));
    QCOMPARE(m_window->area()->activeWorkspace(), fourth);
}

void tst_OvTarnpickHelper::activatesTheParallelViewFromTheBackground()
{
    TestView* first = m_window->add(QStringLiteral("A"));
    QVERIFY(linkAll());
    m_window->activate(first);
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(link([&](OvLinkWindowDlg* dialog) {
        dialog->accept();
        other.activateWindow();
    }));
    QVERIFY(!m_window->window.isActiveWindow());
    m_window->window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_window->window));
    QCOMPARE(m_window->area()->activeWorkspace(), parallelView());
}

void tst_OvTarnpickHelper::retitlesWithTheTaskName()
{
    TestView* view = m_window->add(QStringLiteral("Gather 1"));
    view->delegateJob()->setTaskName(QStringLiteral("Line 7, gather 12"));
    QCOMPARE(m_window->subWindows().first()->windowTitle(), QStringLiteral("Line 7, gather 12"));
}

void tst_OvTarnpickHelper::refreshesWindowTitles()
{
    TestView* first = m_window->add(QStringLiteral("Gather 1"));
    m_window->area()->addSubWindow(new QWidget)->setWindowTitle(QStringLiteral("other"));
    TestView* second = m_window->add(QStringLiteral("Gather 2"));
    first->name = QStringLiteral("道集 1");
    second->name = QStringLiteral("道集 2");
    m_window->helper->refreshWindowTitles();
    QStringList titles;
    for (const QMdiSubWindow* subWindow : m_window->subWindows())
        titles.append(subWindow->windowTitle());
    QCOMPARE(titles, (QStringList{first->name, QStringLiteral("other"), second->name}));
    QCOMPARE(first->delegateJob()->taskName(), first->name);
    QCOMPARE(second->delegateJob()->taskName(), second->name);
}

void tst_OvTarnpickHelper::closesTheSubWindowOfADeletedView()
{
    TestView* view = m_window->add(QStringLiteral("A"));
    delete view;
    QTRY_VERIFY(m_window->subWindows().isEmpty());
    QVERIFY(OvTaskManager::instance().tasks().isEmpty());
}

void tst_OvTarnpickHelper::closesAViewWithItsSubWindow()
{
    const QPointer<TestView> view = m_window->add(QStringLiteral("A"));
    m_window->subWindows().first()->close();
    QTRY_VERIFY(!view);
    QVERIFY(m_window->subWindows().isEmpty());
    QVERIFY(!m_window->billBoard()->isEnabled());
}

void tst_OvTarnpickHelper::showsTheFilesOfTheActiveWorkspace()
{
    auto* first = new TestView(QStringLiteral("A"));
    first->setProperty("SegyFile", QStringLiteral("a.sgy"));
    first->setProperty("FBFile", QStringLiteral("a.fb"));
    m_window->show(first);
    QVERIFY(m_window->billBoard()->isEnabled());
    QCOMPARE(segyField(), QStringLiteral("a.sgy"));
    QCOMPARE(fbField(), QStringLiteral("a.fb"));

    m_window->add(QStringLiteral("B"));
    QVERIFY(!m_window->billBoard()->isEnabled());
    QCOMPARE(segyField(), QString());
    QCOMPARE(fbField(), QString());

    m_window->activate(first);
    QCOMPARE(segyField(), QStringLiteral("a.sgy"));
}

void tst_OvTarnpickHelper::showsOnlyTheFirstBreakFile()
{
    auto* view = new TestView(QStringLiteral("A"));
    view->setProperty("FBFile", QStringLiteral("a.fb"));
    m_window->show(view);
    QVERIFY(m_window->billBoard()->isEnabled());
    QCOMPARE(segyField(), QString());
    QCOMPARE(fbField(), QStringLiteral("a.fb"));
}

void tst_OvTarnpickHelper::populatesFromTheActiveWorkspaceOnly()
{
    TestView* first = m_window->add(QStringLiteral("A"));
    TestView* second = m_window->add(QStringLiteral("B"));
    first->setProperty("SegyFile", QStringLiteral("a.sgy"));
    emit first->populate();
    QVERIFY(!m_window->billBoard()->isEnabled());
    QCOMPARE(segyField(), QString());
    second->setProperty("SegyFile", QStringLiteral("b.sgy"));
    emit second->populate();
    QVERIFY(m_window->billBoard()->isEnabled());
    QCOMPARE(segyField(), QStringLiteral("b.sgy"));
    // Nobody sends this one.
    second->setProperty("SegyFile", QStringLiteral("c.sgy"));
    m_window->helper->populate();
    QCOMPARE(segyField(), QStringLiteral("b.sgy"));
}

void tst_OvTarnpickHelper::clearsTheBillBoard()
{
    auto* view = new TestView(QStringLiteral("A"));
    view->setProperty("SegyFile", QStringLiteral("a.sgy"));
    m_window->show(view);
    m_window->helper->clearBillBoard();
    QVERIFY(!m_window->billBoard()->isEnabled());
    QCOMPARE(segyField(), QString());
}

void tst_OvTarnpickHelper::infoStaysFiveSeconds()
{
    TestView* view = m_window->add(QStringLiteral("A"));
    const QStatusBar* bar = m_window->form.statusBar;
    QElapsedTimer clock;
    clock.start();
    emit view->outputInfo(QStringLiteral("t = 312 ms"));
    QCOMPARE(bar->currentMessage(), QStringLiteral("t = 312 ms"));
    QSignalSpy changed(bar, &QStatusBar::messageChanged);
    QVERIFY(changed.wait(8000));
    QCOMPARE(bar->currentMessage(), QString());
    QVERIFY2(clock.elapsed() > 4700, qPrintable(QString::number(clock.elapsed())));
}

void tst_OvTarnpickHelper::activatesTheWorkspaceOfAJob()
{
    TestView* first = m_window->add(QStringLiteral("A"));
    TestView* second = m_window->add(QStringLiteral("B"));
    emit OvTaskMonitor::instance().changeActiveJob(first->delegateJob());
    QCOMPARE(m_window->area()->activeWorkspace(), first);
    OvAbstractJob unknown;
    m_window->activate(second);
    emit OvTaskMonitor::instance().changeActiveJob(&unknown);
    emit OvTaskMonitor::instance().changeActiveJob(nullptr);
    QCOMPARE(m_window->area()->activeWorkspace(), second);
}

void tst_OvTarnpickHelper::relaysTheActiveWorkspace()
{
    QSignalSpy spy(&OvProjectManager::instance(), &OvProjectManager::activeWorkspace);
    TestView* first = m_window->add(QStringLiteral("A"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.last().first().value<OvAbstractViewController*>(), first);
    QCOMPARE(OvProjectManager::instance().currentWorkspace(), first);
}

void tst_OvTarnpickHelper::validProjectAnnouncesNoWorkspace()
{
    m_window->add(QStringLiteral("A"));
    QSignalSpy spy(m_window->helper.get(), &OvTarnpickHelper::activeWorkspace);
    OvProjectManager::instance().openProject(m_session->addProject(QStringLiteral("P")));
    QCOMPARE(spy.count(), 1);
    QVERIFY(!spy.first().first().value<OvAbstractViewController*>());
    QCOMPARE(m_window->subWindows().size(), 1);
}

void tst_OvTarnpickHelper::closingTheProjectClosesAll()
{
    OvProjectManager::instance().openProject(m_session->addProject(QStringLiteral("P")));
    const QPointer<TestView> first = m_window->add(QStringLiteral("A"));
    m_window->add(QStringLiteral("B"));
    m_window->area()->addSubWindow(new QWidget)->show();
    OvProjectManager::instance().closeProject();
    QVERIFY(m_window->subWindows().isEmpty());
    QVERIFY(!first);
    QVERIFY(!m_window->area()->activeWorkspace());
    QVERIFY(OvTaskManager::instance().tasks().isEmpty());
}

void tst_OvTarnpickHelper::eachClosingAddsADelivery()
{
    m_window->helper->slotProjectChanged(OvProjectDefine());
    m_window->helper->slotProjectChanged(OvProjectDefine());
    TestView* first = m_window->add(QStringLiteral("A"));
    m_window->add(QStringLiteral("B"));
    QSignalSpy announced(m_window->area(), &OvMdiArea::workspaceActivated);
    QSignalSpy spy(m_window->helper.get(), &OvTarnpickHelper::activeWorkspace);
    m_window->activate(first);
    QCOMPARE(announced.count(), 1);
    QCOMPARE(spy.count(), 3);
    for (const QList<QVariant>& arguments : qAsConst(spy))
        QCOMPARE(arguments.first().value<OvAbstractViewController*>(), first);
}

void tst_OvTarnpickHelper::capturesTheActiveWorkspace()
{
    TestView* first = m_window->add(QStringLiteral("A"));
    TestView* second = m_window->add(QStringLiteral("B"));
    m_window->helper->captureActiveWorkspace();
    QCOMPARE(first->captures, 0);
    QCOMPARE(second->captures, 1);
}

void tst_OvTarnpickHelper::warnsWhenThereIsNothingToCapture()
{
    ModalProbe probe;
    probe.nextBox(QMessageBox::Ok);
    m_window->helper->captureActiveWorkspace();
    QVERIFY(probe.isDone());
    const ModalProbe::Box& box = probe.boxes().front();
    QCOMPARE(box.title, QStringLiteral("Warning"));
    QCOMPARE(box.text, QStringLiteral("Nothing to capture!"));
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.parent, &m_window->window);
}

void tst_OvTarnpickHelper::forwardsKeysToTheActiveWorkspace()
{
    QKeyEvent event(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
    m_window->helper->forwardKeyEvent(&event);
    TestView* first = m_window->add(QStringLiteral("A"));
    TestView* second = m_window->add(QStringLiteral("B"));
    m_window->helper->forwardKeyEvent(&event);
    QCOMPARE(first->keys, QList<int>());
    QCOMPARE(second->keys, QList<int>{Qt::Key_PageDown});
}

void tst_OvTarnpickHelper::selectsErrorsWhereTheViewCan()
{
    m_window->helper->slotSelectErrorFB();
    m_window->add(QStringLiteral("plain"));
    m_window->helper->slotSelectErrorFB();
    auto* picks = m_window->add<TestPickView>(QStringLiteral("picks"));
    m_window->helper->slotSelectErrorFB();
    QCOMPARE(picks->classified, 1);
    QCOMPARE(WarningTrap::take(), QStringList());
}

void tst_OvTarnpickHelper::newWindowIsReserved()
{
    m_window->helper->slotNew3DWindow();
    QVERIFY(m_window->subWindows().isEmpty());
}

void tst_OvTarnpickHelper::arrangesSubWindows()
{
    for (const char* name : {"A", "B"})
        m_window->add(QString::fromLatin1(name));
    const QSize size = m_window->area()->size();
    const QWidget* first = m_window->subWindows().first();
    const QWidget* second = m_window->subWindows().last();
    m_window->helper->slotTileSubWindowsHorizontally();
    QCOMPARE(first->geometry(), QRect(0, 0, size.width() / 2, size.height()));
    m_window->helper->slotTileSubWindowsVertically();
    QCOMPARE(second->geometry(), QRect(0, size.height() / 2, size.width(), size.height() / 2));
    m_window->helper->slotCascadeSubWindows();
    QVERIFY(first->geometry().intersects(second->geometry()));
    QVERIFY(first->pos() != second->pos());
    m_window->helper->slotTileSubWindows();
    QVERIFY(!first->geometry().intersects(second->geometry()));
}

void tst_OvTarnpickHelper::collectsActionsDepthFirst()
{
    QMenu menu;
    QAction* first = menu.addAction(QStringLiteral("first"));
    QMenu* inner = menu.addMenu(QStringLiteral("inner"));
    QAction* deep = inner->addAction(QStringLiteral("deep"));
    inner->addAction(first);
    QAction* line = menu.addSeparator();
    QList<QAction*> list;
    OvTarnpickHelper::collectActions(nullptr, list);
    QVERIFY(list.isEmpty());
    OvTarnpickHelper::collectActions(menu.menuAction(), list);
    const QList<QAction*> expected{menu.menuAction(), first, inner->menuAction(), deep, line};
    QCOMPARE(list, expected);
    OvTarnpickHelper::collectActions(first, list);
    QCOMPARE(list, expected);
}

void tst_OvTarnpickHelper::linksNothing()
{
    bool empty = false;
    const bool shown = link([&](OvLinkWindowDlg* dialog) {
        empty = rows(dialog, "aViewControllers").isEmpty() &&
                rows(dialog, "sViewControllers").isEmpty() && !dialog->parentWidget();
        dialog->accept();
    });
    QVERIFY(!shown);
    QVERIFY(empty);
    QVERIFY(m_window->subWindows().isEmpty());
}

void tst_OvTarnpickHelper::showsAParallelView()
{
    TestView* first = m_window->add(QStringLiteral("A"));
    TestView* second = m_window->add(QStringLiteral("B"));
    QSignalSpy added(&OvTaskManager::instance(), &OvTaskManager::taskAdded);
    QVERIFY(linkAll());
    OvMultiPlaneViewController* parallel = parallelView();
    QVERIFY(parallel);
    QCOMPARE(parallel->usedViewControllers(), (QList<OvPlaneViewController*>{second, first}));
    auto* subWindow = qobject_cast<QMdiSubWindow*>(parallel->parentWidget());
    QVERIFY(subWindow->isMaximized());
    QVERIFY(!subWindow->testAttribute(Qt::WA_DeleteOnClose));
    QCOMPARE(subWindow->windowTitle(), parallel->description());
    QCOMPARE(added.count(), 1);
    QCOMPARE(m_window->area()->activeWorkspace(), parallel);
    QCOMPARE(m_window->subWindows().size(), 3);
}

void tst_OvTarnpickHelper::rejectedLinkChangesNothing()
{
    m_window->add(QStringLiteral("A"));
    QVERIFY(!link([](OvLinkWindowDlg* dialog) {
        press(dialog, "selAllBtn");
        dialog->reject();
    }));
    QVERIFY(!parallelView());
    QVERIFY(linkAll());
    OvMultiPlaneViewController* parallel = parallelView();
    QVERIFY(!link([](OvLinkWindowDlg* dialog) {
        press(dialog, "resetBtn");
        dialog->reject();
    }));
    QCOMPARE(parallelView(), parallel);
    QCOMPARE(parallel->usedViewControllers().size(), 1);
}

void tst_OvTarnpickHelper::leavesOutViewsThatAreNotReady()
{
    m_window->add(QStringLiteral("A"));
    m_window->add(QStringLiteral("B"))->delegateJob()->setEnabled(false);
    m_window->area()->addSubWindow(new QWidget)->show();
    m_window->add(QStringLiteral("C"));
    QString offered;
    link([&](OvLinkWindowDlg* dialog) { offered = rows(dialog, "aViewControllers"); });
    QCOMPARE(offered, QStringLiteral("AC"));
}

void tst_OvTarnpickHelper::relinksTheSameParallelView()
{
    m_window->add(QStringLiteral("A"));
    TestView* second = m_window->add(QStringLiteral("B"));
    QVERIFY(linkAll());
    const QPointer<OvMultiPlaneViewController> parallel = parallelView();
    m_window->add(QStringLiteral("C"));
    parallel->parentWidget()->showMinimized();

    QString available;
    QString chosen;
    const bool shown = link([&](OvLinkWindowDlg* dialog) {
        available = rows(dialog, "aViewControllers");
        chosen = rows(dialog, "sViewControllers");
        dialog->findChild<QTableView*>(QStringLiteral("sViewControllers"))->selectRow(1);
        press(dialog, "unselectBtn");
        dialog->accept();
    });
    QVERIFY(shown);
    QCOMPARE(available, QStringLiteral("C"));
    QCOMPARE(chosen, QStringLiteral("BA"));
    QVERIFY(parallel);
    QCOMPARE(parallelView(), parallel.data());
    QCOMPARE(parallel->usedViewControllers(), QList<OvPlaneViewController*>{second});
    QVERIFY(parallel->parentWidget()->isMaximized());
    QCOMPARE(m_window->subWindows().size(), 4);
}

void tst_OvTarnpickHelper::unlinkingAllRemovesTheParallelView()
{
    m_window->add(QStringLiteral("A"));
    QVERIFY(linkAll());
    const QPointer<OvMultiPlaneViewController> parallel = parallelView();
    const QPointer<QWidget> subWindow = parallel->parentWidget();
    const bool shown = link([](OvLinkWindowDlg* dialog) {
        press(dialog, "resetBtn");
        dialog->accept();
    });
    QVERIFY(!shown);
    QVERIFY(!parallel);
    QCOMPARE(m_window->subWindows().size(), 1);
    QTRY_VERIFY(!subWindow);
}

void tst_OvTarnpickHelper::closingTheParallelViewTilesTheRest()
{
    m_window->add(QStringLiteral("A"));
    m_window->add(QStringLiteral("B"));
    QVERIFY(linkAll());
    const QPointer<OvMultiPlaneViewController> parallel = parallelView();
    const QPointer<QWidget> subWindow = parallel->parentWidget();
    subWindow->close();
    QVERIFY(!parallel);
    QTRY_VERIFY(!subWindow);
    QCOMPARE(m_window->subWindows().size(), 2);
    const QSize size = m_window->area()->size();
    QList<QRect> places;
    for (const QMdiSubWindow* rest : m_window->area()->subWindowList(QMdiArea::StackingOrder))
        places.append(rest->geometry());
    const QRect cell(0, 0, size.width(), size.height() / 2);
    QCOMPARE(places, (QList<QRect>{cell, cell.translated(0, cell.height())}));
    QVERIFY(m_window->window.isVisible());
}

void tst_OvTarnpickHelper::deletingALinkedViewIsSafe()
{
    m_window->add(QStringLiteral("A"));
    TestView* second = m_window->add(QStringLiteral("B"));
    QVERIFY(linkAll());
    qobject_cast<QMdiSubWindow*>(second->parentWidget())->close();
    QTRY_COMPARE(parallelView()->usedViewControllers().size(), 1);
    QCOMPARE(m_window->subWindows().size(), 2);
}

void tst_OvTarnpickHelper::closesTheParallelViewFirst()
{
    OvProjectManager::instance().openProject(m_session->addProject(QStringLiteral("P")));
    QStringList gone;
    const auto note = [this, &gone](const QObject* view, const QString& name) {
        connect(view, &QObject::destroyed, this, [&gone, name] { gone.append(name); });
    };
    for (const char* name : {"A", "B"})
        note(m_window->add(QString::fromLatin1(name)), QString::fromLatin1(name));
    QVERIFY(linkAll());
    note(parallelView(), QStringLiteral("parallel"));
    note(m_window->add(QStringLiteral("C")), QStringLiteral("C"));
    OvProjectManager::instance().closeProject();
    QVERIFY(m_window->subWindows().isEmpty());
    QCOMPARE(gone.size(), 4);
    QCOMPARE(gone.first(), QStringLiteral("parallel"));
}

void tst_OvTarnpickHelper::closesInTheOrderOfActivation()
{
    OvProjectManager::instance().openProject(m_session->addProject(QStringLiteral("P")));
    QStringList gone;
    TestView* first = nullptr;
    for (const char* name : {"A", "B", "C"}) {
        TestView* view = m_window->add(QString::fromLatin1(name));
        connect(view, &QObject::destroyed, this, [&gone, name] { gone.append(name); });
        first = first ? first : view;
    }
    m_window->activate(first);
    QStringList expected;
    for (const auto* sub : m_window->area()->subWindowList(QMdiArea::ActivationHistoryOrder))
        expected.append(sub->windowTitle());
    QVERIFY(expected !=
            (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
    OvProjectManager::instance().closeProject();
    QCOMPARE(gone, expected);
}

void tst_OvTarnpickHelper::managesProjects()
{
    m_session->visitProject(QStringLiteral("P"));
    const QMenu* menu = m_window->form.menuRecently_Projects;
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("P"));
    OvProjectDefineNode().removeProject(OvProjectDefineNode().projectByName(QStringLiteral("P")));
    QString title;
    const auto manage = [&](int result) {
        ModalProbe probe;
        probe.next([&](QWidget* window) {
            title = window->windowTitle();
            qobject_cast<QDialog*>(window)->done(result);
        });
        m_window->helper->manageProjects();
        return probe.isDone();
    };
    QVERIFY(manage(QDialog::Rejected));
    QCOMPARE(title, QStringLiteral("Project Management"));
    QVERIFY(menu->isEnabled());
    QVERIFY(manage(QDialog::Accepted));
    QVERIFY(!menu->isEnabled());
}

void tst_OvTarnpickHelper::endsWithTheProjectClosed()
{
    OvProjectManager::instance().openProject(m_session->addProject(QStringLiteral("P")));
    const QPointer<TestView> view = m_window->add(QStringLiteral("A"));
    m_window->add(QStringLiteral("B"));
    QVERIFY(linkAll());
    m_window->helper.reset();
    QVERIFY(!view);
    QVERIFY(m_window->subWindows().isEmpty());
    QVERIFY(!OvProjectManager::instance().define().isValid());
    QCOMPARE(OvBaseUtil::globalValue(QStringLiteral("recentFileList")).toString(),
             QStringLiteral("P"));
}

QTEST_MAIN(tst_OvTarnpickHelper)
#include "tst_OvTarnpickHelper.moc"

#include "OvTarnpick/OvTarnpick.h"

#include "OvTarnpick/controller/OvMdiArea.h"

#include "OvGui/OvMultiPlaneViewController.h"

#include "ConsoleLines.h"
#include "TestSession.h"
#include "TestView.h"
#include "fixtures/ModalProbe.h"

#include <QAction>
#include <QDialog>
#include <QPushButton>
#include <QtTest>

#include <memory>

/// The end of a main window that nobody closed.
class tst_OvTarnpick_destroy : public QObject
{
    Q_OBJECT

private slots:
    void takesItsControllerAlong();
};

void tst_OvTarnpick_destroy::takesItsControllerAlong()
{
    TestSession session;
    QVERIFY(session.isReady());
    auto window = std::make_unique<OvTarnpick>();
    window->show();
    OvProjectManager::instance().openProject(session.addProject(QStringLiteral("P")));
    const QPointer<TestView> view = new TestView(QStringLiteral("A"));
    OvProjectManager::instance().addWorkspace(view);
    ModalProbe probe;
    probe.next([](QWidget* dialog) {
        dialog->findChild<QPushButton*>(QStringLiteral("selAllBtn"))->click();
        qobject_cast<QDialog*>(dialog)->accept();
    });
    window->findChild<QAction*>(QStringLiteral("actionLinkWindow"))->trigger();
    QVERIFY(probe.isDone());
    const QPointer<QWidget> parallel = window->findChild<OvMultiPlaneViewController*>();
    QVERIFY(parallel);
    QCOMPARE(consoleWarnings(), QStringList());

    window.reset();
    QVERIFY(!view);
    QVERIFY(!parallel);
    QVERIFY(!OvProjectManager::instance().define().isValid());
    QCOMPARE(OvBaseUtil::globalValue(QStringLiteral("recentFileList")).toString(),
             QStringLiteral("P"));
    // Nobody listens any more.
    OvProjectManager::instance().openProject(
        OvProjectDefineNode().projectByName(QStringLiteral("P")));
    TestView unheard(QStringLiteral("B"));
    OvProjectManager::instance().addWorkspace(&unheard);
    emit OvProjectManager::instance().timeout();
    QCOMPARE(unheard.saves, 0);
    QVERIFY(!unheard.parentWidget());
}

QTEST_MAIN(tst_OvTarnpick_destroy)
#include "tst_OvTarnpick_destroy.moc"

#include "OvTarnpick/OvTarnpickHelper.h"

#include "OvBase/OvDisplayDefine.h"
#include "OvBase/OvDisplayDefineNode.h"
#include "OvBase/OvTaskManager.h"
#include "OvGui/OvGatherViewController.h"
#include "OvGui/OvMultiPlaneViewController.h"

#include "HelperWindow.h"
#include "TestSession.h"
#include "fixtures/ModalProbe.h"
#include "fixtures/SegyWriter.h"
#include "fixtures/WarningTrap.h"
#include "ui_OvTarnpick.h"

#include <QPushButton>
#include <QtTest>

/// The controller with the views that the program has, on a SEG-Y file.
class tst_OvTarnpickHelper_views : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void showsAGather();
    void sharesTheDisplaySettings();
    void linksTwoGathers();
    void closesEverythingWhileLoading();

private:
    OvGatherViewController* open();
    bool linkAll();

    std::unique_ptr<WarningTrap> m_log;
    std::unique_ptr<TestSession> m_session;
    std::unique_ptr<HelperWindow> m_window;
    QString m_file;
};

void tst_OvTarnpickHelper_views::init()
{
    m_log = std::make_unique<WarningTrap>();
    m_session = std::make_unique<TestSession>();
    m_window = std::make_unique<HelperWindow>();
    QVERIFY(QTest::qWaitForWindowActive(&m_window->window));
    SegyWriter writer;
    writer.sampleCount = 500;
    for (int shot = 0; shot < 3; ++shot)
        writer.addShot(1001 + shot, 50.0 * shot, 24, 10.0);
    m_file = m_session->filePath(QStringLiteral("line.sgy"));
    QVERIFY(writer.write(m_file));
    OvProjectManager::instance().openProject(m_session->addProject(QStringLiteral("P")));
}

void tst_OvTarnpickHelper_views::cleanup()
{
    m_window.reset();
    m_session.reset();
    const QStringList warnings = WarningTrap::take();
    m_log.reset();
    QCOMPARE(warnings, QStringList());
}

OvGatherViewController* tst_OvTarnpickHelper_views::open()
{
    OvStatus status;
    const auto document = OvSegyDocument::open(m_file, &status);
    if (!document)
        qFatal("%s", qPrintable(status.message()));
    return m_window->show(new OvGatherViewController(document));
}

bool tst_OvTarnpickHelper_views::linkAll()
{
    ModalProbe probe;
    probe.next([](QWidget* dialog) {
        dialog->findChild<QPushButton*>(QStringLiteral("selAllBtn"))->click();
        qobject_cast<QDialog*>(dialog)->accept();
    });
    return m_window->helper->slotLinkWindow() && probe.isDone();
}

void tst_OvTarnpickHelper_views::showsAGather()
{
    OvGatherViewController* view = open();
    QTRY_VERIFY(view->isShowingData());
    QCOMPARE(m_window->subWindows().first()->windowTitle(), view->description());
    QCOMPARE(m_window->billBoard()->segyFile(), view->property("SegyFile").toString());
    QVERIFY(m_window->billBoard()->segyFile().contains(QStringLiteral("line.sgy")));
    QTRY_COMPARE(view->gatherCount(), 3);
    const int first = view->currentGather();
    QKeyEvent next(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
    m_window->helper->forwardKeyEvent(&next);
    QVERIFY(view->currentGather() != first);
}

void tst_OvTarnpickHelper_views::sharesTheDisplaySettings()
{
    OvGatherViewController* first = open();
    OvGatherViewController* second = open();
    for (const char* property : {"DisplayDefine", "FitDisplayDefine", "TraceHeaderDefine"})
        QVERIFY2(OvBaseUtil::hasProperty(first, property), property);
    OvDisplayDefine define = OvDisplayDefineNode().define();
    define.gainDb += 6.0;
    OvDisplayDefineNode().setDefine(define);
    QCOMPARE(second->property("DisplayDefine").value<OvDisplayDefine>().gainDb, define.gainDb);
    QCOMPARE(first->property("DisplayDefine").value<OvDisplayDefine>().gainDb, 0.0);
    m_window->activate(first);
    QCOMPARE(OvDisplayDefineNode().define().gainDb, 0.0);
}

void tst_OvTarnpickHelper_views::linksTwoGathers()
{
    OvGatherViewController* first = open();
    QTRY_VERIFY(first->delegateJob()->isEnabled());
    OvGatherViewController* second = open();
    QTRY_VERIFY(second->delegateJob()->isEnabled());
    QVERIFY(linkAll());
    auto* parallel = m_window->area()->findChild<OvMultiPlaneViewController*>();
    QVERIFY(parallel);
    QCOMPARE(parallel->usedViewControllers(), (QList<OvPlaneViewController*>{second, first}));
    QVERIFY(parallel->isVisible());
    const QPointer<QWidget> subWindow = parallel->parentWidget();
    subWindow->close();
    QTRY_VERIFY(!subWindow);
    QCOMPARE(m_window->subWindows().size(), 2);
    QCOMPARE(OvTaskManager::instance().tasks().size(), 2);
}

void tst_OvTarnpickHelper_views::closesEverythingWhileLoading()
{
    const QPointer<OvGatherViewController> first = open();
    QTRY_VERIFY(first->delegateJob()->isEnabled());
    QVERIFY(linkAll());
    QVERIFY(!open()->isShowingData());
    OvProjectManager::instance().closeProject();
    QVERIFY(!first);
    QVERIFY(m_window->subWindows().isEmpty());
    QVERIFY(OvTaskManager::instance().tasks().isEmpty());
}

QTEST_MAIN(tst_OvTarnpickHelper_views)
#include "tst_OvTarnpickHelper_views.moc"

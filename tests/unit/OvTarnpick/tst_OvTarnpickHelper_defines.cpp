#include "OvTarnpick/OvTarnpickHelper.h"

#include "OvBase/OvDisplayDefine.h"
#include "OvBase/OvDisplayDefineNode.h"

#include "HelperWindow.h"
#include "TestSession.h"
#include "fixtures/WarningTrap.h"
#include "ui_OvTarnpick.h"

#include <QSignalSpy>
#include <QtTest>

/// The display settings of a project and of its workspaces, and the auto-save.
class tst_OvTarnpickHelper_defines : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void stampsANewWorkspace();
    void leavesOthersAlone();
    void takesPartByProperty();
    void activationSetsTheGlobalValues();
    void changeReachesTheActiveWorkspaceOnly();
    void keepsTheWorkspaceFlag();
    void keepsTheFitFlagOnAChange();
    void changeWithoutAWorkspaceDoesNothing();
    void savesWhatIsSaveable();

private:
    TestView* makeView(const QString& name) const;
    static OvDisplayDefine display(const QObject* view);
    static OvFitDisplayDefine fit(const QObject* view);
    static OvTraceHeaderDefine header(const QObject* view);

    std::unique_ptr<TestSession> m_session;
    std::unique_ptr<HelperWindow> m_window;
    std::unique_ptr<WarningTrap> m_log;
};

void tst_OvTarnpickHelper_defines::init()
{
    m_log = std::make_unique<WarningTrap>();
    m_session = std::make_unique<TestSession>();
    m_window = std::make_unique<HelperWindow>();
    QVERIFY(QTest::qWaitForWindowActive(&m_window->window));
    OvProjectManager::instance().openProject(m_session->addProject(QStringLiteral("P")));
}

void tst_OvTarnpickHelper_defines::cleanup()
{
    m_window.reset();
    m_session.reset();
    const QStringList warnings = WarningTrap::take();
    m_log.reset();
    QCOMPARE(warnings, QStringList());
}

/// A view that takes part in all three records.
TestView* tst_OvTarnpickHelper_defines::makeView(const QString& name) const
{
    auto* view = new TestView(name);
    view->setProperty("DisplayDefine", QVariant::fromValue(OvDisplayDefine()));
    view->setProperty("FitDisplayDefine", QVariant::fromValue(OvFitDisplayDefine()));
    view->setProperty("TraceHeaderDefine", QVariant::fromValue(OvTraceHeaderDefine()));
    return view;
}

OvDisplayDefine tst_OvTarnpickHelper_defines::display(const QObject* view)
{
    return view->property("DisplayDefine").value<OvDisplayDefine>();
}

OvFitDisplayDefine tst_OvTarnpickHelper_defines::fit(const QObject* view)
{
    return view->property("FitDisplayDefine").value<OvFitDisplayDefine>();
}

OvTraceHeaderDefine tst_OvTarnpickHelper_defines::header(const QObject* view)
{
    return view->property("TraceHeaderDefine").value<OvTraceHeaderDefine>();
}

void tst_OvTarnpickHelper_defines::stampsANewWorkspace()
{
    OvDisplayDefine global;
    global.gainDb = 6.0;
    global.showPicks = true;
    OvDisplayDefineNode().setDefine(global);
    OvFitDisplayDefine globalFit;
    globalFit.fitted = true;
    globalFit.traceSpacing = 3.5;
    OvFitDisplayDefineNode().setDefine(globalFit);
    OvTraceHeaderDefine globalHeader;
    globalHeader.axisWord = OvTraceHeaderDefine::Offset;
    OvTraceHeaderDefineNode().setDefine(globalHeader);

    TestView* view = makeView(QStringLiteral("A"));
    OvDisplayDefine own;
    own.gainDb = -3.0;
    own.showPicks = false;
    view->setProperty("DisplayDefine", QVariant::fromValue(own));
    m_window->show(view);
    QCOMPARE(display(view).gainDb, 6.0);
    QCOMPARE(display(view).showPicks, false);
    QCOMPARE(fit(view).traceSpacing, 3.5);
    QCOMPARE(fit(view).fitted, false);
    QCOMPARE(header(view).axisWord, int(OvTraceHeaderDefine::Offset));
}

void tst_OvTarnpickHelper_defines::leavesOthersAlone()
{
    OvDisplayDefine global;
    global.gainDb = 6.0;
    OvDisplayDefineNode().setDefine(global);
    TestView* view = m_window->add(QStringLiteral("plain"));
    TestView* other = m_window->add(QStringLiteral("other"));
    m_window->activate(view);
    global.gainDb = 9.0;
    OvDisplayDefineNode().setDefine(global);
    OvFitDisplayDefine globalFit;
    globalFit.traceSpacing = 2.0;
    OvFitDisplayDefineNode().setDefine(globalFit);
    OvTraceHeaderDefineNode().setDefine({OvTraceHeaderDefine::Cdp, {}});
    m_window->activate(other);
    QVERIFY(view->dynamicPropertyNames().isEmpty());
    QCOMPARE(OvDisplayDefineNode().define().gainDb, 9.0);
    QCOMPARE(OvFitDisplayDefineNode().define().traceSpacing, 2.0);
}

void tst_OvTarnpickHelper_defines::takesPartByProperty()
{
    auto* view = new TestView(QStringLiteral("A"));
    view->setProperty("TraceHeaderDefine", QVariant::fromValue(OvTraceHeaderDefine()));
    m_window->show(view);
    OvDisplayDefine global;
    global.gainDb = 6.0;
    OvDisplayDefineNode().setDefine(global);
    OvTraceHeaderDefineNode().setDefine({OvTraceHeaderDefine::Cdp, {}});
    QCOMPARE(view->dynamicPropertyNames(), QList<QByteArray>{"TraceHeaderDefine"});
    QCOMPARE(header(view).axisWord, int(OvTraceHeaderDefine::Cdp));
}

void tst_OvTarnpickHelper_defines::activationSetsTheGlobalValues()
{
    TestView* first = m_window->show(makeView(QStringLiteral("A")));
    TestView* second = m_window->show(makeView(QStringLiteral("B")));
    const OvDisplayDefine before = display(second);
    m_window->activate(first);
    OvDisplayDefine changed = before;
    changed.gainDb = 12.0;
    OvDisplayDefineNode().setDefine(changed);
    QCOMPARE(display(first).gainDb, 12.0);
    m_window->activate(second);
    QCOMPARE(OvDisplayDefineNode().define(), before);
    QCOMPARE(display(first).gainDb, 12.0);
    QCOMPARE(display(second), before);
    m_window->activate(first);
    QCOMPARE(OvDisplayDefineNode().define().gainDb, 12.0);
}

void tst_OvTarnpickHelper_defines::changeReachesTheActiveWorkspaceOnly()
{
    TestView* first = m_window->show(makeView(QStringLiteral("A")));
    TestView* second = m_window->show(makeView(QStringLiteral("B")));
    OvFitDisplayDefine changedFit;
    changedFit.pixelsPerSecond = 250.0;
    OvFitDisplayDefineNode().setDefine(changedFit);
    OvTraceHeaderDefineNode().setDefine({OvTraceHeaderDefine::ReceiverX, {}});
    QCOMPARE(fit(second).pixelsPerSecond, 250.0);
    QCOMPARE(header(second).axisWord, int(OvTraceHeaderDefine::ReceiverX));
    QCOMPARE(fit(first), OvFitDisplayDefine());
    QCOMPARE(header(first), OvTraceHeaderDefine());
}

void tst_OvTarnpickHelper_defines::keepsTheWorkspaceFlag()
{
    TestView* view = m_window->show(makeView(QStringLiteral("A")));
    OvDisplayDefine own = display(view);
    own.showPicks = false;
    view->setProperty("DisplayDefine", QVariant::fromValue(own));
    for (const double gain : {3.0, 6.0, 9.0}) {
        OvDisplayDefine global;
        global.gainDb = gain;
        global.showPicks = true;
        OvDisplayDefineNode().setDefine(global);
        QCOMPARE(display(view).gainDb, gain);
        QCOMPARE(display(view).showPicks, false);
    }
}

void tst_OvTarnpickHelper_defines::keepsTheFitFlagOnAChange()
{
    TestView* view = m_window->show(makeView(QStringLiteral("A")));
    OvFitDisplayDefine global;
    global.fitted = true;
    OvFitDisplayDefineNode().setDefine(global);
    QCOMPARE(fit(view).fitted, true);
}

void tst_OvTarnpickHelper_defines::changeWithoutAWorkspaceDoesNothing()
{
    m_window->helper->changeDisplayDefine();
    m_window->helper->changeFitDisplayDefine();
    m_window->helper->changeTraceHeaderDefine();
    OvDisplayDefine global;
    global.gainDb = 6.0;
    QVERIFY(OvDisplayDefineNode().setDefine(global));
    QCOMPARE(OvDisplayDefineNode().define().gainDb, 6.0);
}

void tst_OvTarnpickHelper_defines::savesWhatIsSaveable()
{
    TestView* first = m_window->add(QStringLiteral("A"));
    TestView* fixed = m_window->add(QStringLiteral("B"));
    TestView* third = m_window->add(QStringLiteral("C"));
    m_window->area()->addSubWindow(new QWidget)->show();
    fixed->canSave = false;
    emit OvProjectManager::instance().timeout();
    QCOMPARE(first->saves, 1);
    QCOMPARE(fixed->saves, 0);
    QCOMPARE(third->saves, 1);
    m_window->subWindows().first()->close();
    emit OvProjectManager::instance().timeout();
    QCOMPARE(third->saves, 2);
}

QTEST_MAIN(tst_OvTarnpickHelper_defines)
#include "tst_OvTarnpickHelper_defines.moc"

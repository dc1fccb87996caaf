#include "OvBase/OvProjectManager.h"

#include "OvBase/OvProjectDefineNode.h"
#include "unit/OvBase/LoginFixture.h"

#include <QSignalSpy>
#include <QTimer>

namespace {

OvAbstractViewController* fakeView(int* place)
{
    // Only the address counts here; the class belongs to the library above.
    return reinterpret_cast<OvAbstractViewController*>(place);
}

} // namespace

class tst_OvProjectManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<void*>("OvAbstractViewController*"); }
    void init();
    void cleanup();

    void nothingIsOpenAtFirst();
    void openingAnnouncesAndNotesTheTime();
    void openingClosesTheFormer();
    void openingItsOwnRecordWorks();
    void invalidRecordsAreRefused();
    void closingAnnouncesInOrder();
    void closingTwiceIsHarmless();
    void closingFromAListenerIsHarmless();
    void openingFromAListenerIsRefused();
    void aRecordThatIsNotInTheTableOpens();
    void theAutoSaveClockTicks();
    void theClockStopsAndStarts();
    void theIntervalIsSixtySecondsOrChosen_data();
    void theIntervalIsSixtySecondsOrChosen();
    void viewsAreAnnounced();
    void theCurrentViewNeverDangles();

private:
    OvProjectDefine stored(const QString& name);
    void record();

    OvProjectManager& m_manager = OvProjectManager::instance();
    std::unique_ptr<LoginFixture> m_fixture;
    std::unique_ptr<QObject> m_listener;
    QStringList m_events;
};

void tst_OvProjectManager::init()
{
    m_fixture = std::make_unique<LoginFixture>();
    QVERIFY(m_fixture->login());
    m_listener = std::make_unique<QObject>();
    m_events.clear();
}

void tst_OvProjectManager::cleanup()
{
    m_listener.reset();
    const QString problems = m_fixture->warnings.problems();
    m_fixture.reset();
    QCOMPARE(problems, QString());
}

OvProjectDefine tst_OvProjectManager::stored(const QString& name)
{
    OvProjectDefine define;
    define.name = name;
    define.dataPath = QStringLiteral("/data");
    define.id = OvProjectDefineNode().insertProject(define);
    return define;
}

void tst_OvProjectManager::record()
{
    connect(&m_manager, &OvProjectManager::projectAboutToClose, m_listener.get(),
            [this](const OvProjectDefine& define) {
                m_events.append(QStringLiteral("closing ") + define.name + QStringLiteral(" of ") +
                                m_manager.define().name);
            });
    connect(&m_manager, &OvProjectManager::projectChanged, m_listener.get(),
            [this](const OvProjectDefine& define) {
                m_events.append(QStringLiteral("changed ") + define.name +
                                (define.isValid() == m_manager.define().isValid()
                                     ? QString()
                                     : QStringLiteral("!")));
            });
}

void tst_OvProjectManager::nothingIsOpenAtFirst()
{
    QVERIFY(!m_manager.define().isValid());
    QCOMPARE(m_manager.define().name, QString());
}

void tst_OvProjectManager::openingAnnouncesAndNotesTheTime()
{
    record();
    const QDateTime before = QDateTime::currentDateTime();
    QVERIFY(m_manager.openProject(stored(QStringLiteral("a"))));
    QCOMPARE(m_events, QStringList{QStringLiteral("changed a")});
    QCOMPARE(m_manager.define().name, QStringLiteral("a"));
    QVERIFY(m_manager.define().openTime >= before);
    QCOMPARE(OvProjectDefineNode().projectByName(QStringLiteral("a")).openTime,
             m_manager.define().openTime);
}

void tst_OvProjectManager::openingClosesTheFormer()
{
    const OvProjectDefine second = stored(QStringLiteral("b"));
    QVERIFY(m_manager.openProject(stored(QStringLiteral("a"))));
    record();
    QVERIFY(m_manager.openProject(second));
    QCOMPARE(m_events, (QStringList{QStringLiteral("closing a of a"), QStringLiteral("changed "),
                                    QStringLiteral("changed b")}));
}

void tst_OvProjectManager::openingItsOwnRecordWorks()
{
    QVERIFY(m_manager.openProject(stored(QStringLiteral("a"))));
    QVERIFY(m_manager.openProject(m_manager.define()));
    QCOMPARE(m_manager.define().name, QStringLiteral("a"));
}

void tst_OvProjectManager::invalidRecordsAreRefused()
{
    QVERIFY(m_manager.openProject(stored(QStringLiteral("a"))));
    record();
    OvProjectDefine nameless;
    nameless.id = 1;
    OvProjectDefine keyless;
    keyless.name = QStringLiteral("b");
    for (const OvProjectDefine& define : {OvProjectDefine(), nameless, keyless})
        QVERIFY(!m_manager.openProject(define));
    QCOMPARE(m_events, QStringList());
    QCOMPARE(m_manager.define().name, QStringLiteral("a"));
}

void tst_OvProjectManager::closingAnnouncesInOrder()
{
    QVERIFY(m_manager.openProject(stored(QStringLiteral("a"))));
    record();
    m_manager.closeProject();
    QCOMPARE(m_events, (QStringList{QStringLiteral("closing a of a"), QStringLiteral("changed ")}));
    QVERIFY(!m_manager.define().isValid());
}

void tst_OvProjectManager::closingTwiceIsHarmless()
{
    record();
    m_manager.closeProject();
    QCOMPARE(m_events, QStringList());
}

void tst_OvProjectManager::closingFromAListenerIsHarmless()
{
    QVERIFY(m_manager.openProject(stored(QStringLiteral("a"))));
    record();
    connect(&m_manager, &OvProjectManager::projectAboutToClose, m_listener.get(),
            [this] { m_manager.closeProject(); });
    connect(&m_manager, &OvProjectManager::projectChanged, m_listener.get(),
            [this] { m_manager.closeProject(); });
    m_manager.closeProject();
    QCOMPARE(m_events.size(), 2);
}

void tst_OvProjectManager::openingFromAListenerIsRefused()
{
    const OvProjectDefine a = stored(QStringLiteral("a"));
    const OvProjectDefine b = stored(QStringLiteral("b"));
    QVERIFY(m_manager.openProject(a));
    bool wasOpened = false;
    connect(&m_manager, &OvProjectManager::projectAboutToClose, m_listener.get(),
            [&] { wasOpened = wasOpened || m_manager.openProject(a); });
    QVERIFY(m_manager.openProject(b));
    QVERIFY(!wasOpened);
    QCOMPARE(m_manager.define().name, QStringLiteral("b"));
}

void tst_OvProjectManager::aRecordThatIsNotInTheTableOpens()
{
    OvProjectDefine define;
    define.id = 4711;
    define.name = QStringLiteral("gone");
    QVERIFY(m_manager.openProject(define));
    QCOMPARE(m_manager.define().id, 4711);
}

void tst_OvProjectManager::theAutoSaveClockTicks()
{
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("autoSaveInterval"), 1));
    QSignalSpy ticks(&m_manager, &OvProjectManager::timeout);
    m_manager.init();
    QTRY_COMPARE(ticks.size(), 1);
    // A longer interval holds from the next tick on.
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("autoSaveInterval"), 3600));
    QTRY_COMPARE(ticks.size(), 2);
    m_manager.finish();
}

void tst_OvProjectManager::theClockStopsAndStarts()
{
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("autoSaveInterval"), 1));
    QSignalSpy ticks(&m_manager, &OvProjectManager::timeout);
    m_manager.init();
    m_manager.init();
    m_manager.finish();
    m_manager.finish();
    QTest::qWait(1200);
    QCOMPARE(ticks.size(), 0);
    m_manager.init();
    QTRY_COMPARE(ticks.size(), 1);
    m_manager.finish();
}

void tst_OvProjectManager::theIntervalIsSixtySecondsOrChosen_data()
{
    QTest::addColumn<QVariant>("interval");
    QTest::addColumn<int>("milliseconds");
    QTest::newRow("none") << QVariant() << 60000;
    QTest::newRow("text") << QVariant(QStringLiteral("soon")) << 60000;
    QTest::newRow("zero") << QVariant(0) << 60000;
    QTest::newRow("negative") << QVariant(-1) << 60000;
    QTest::newRow("huge") << QVariant(std::numeric_limits<int>::max()) << 24 * 3600 * 1000;
    QTest::newRow("ten minutes") << QVariant(600) << 600000;
}

void tst_OvProjectManager::theIntervalIsSixtySecondsOrChosen()
{
    QFETCH(QVariant, interval);
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("autoSaveInterval"), interval));
    QSignalSpy ticks(&m_manager, &OvProjectManager::timeout);
    m_manager.init();
    const auto* clock = m_manager.findChild<QTimer*>();
    QVERIFY(clock && clock->isActive() && !clock->isSingleShot());
    QTEST(clock->interval(), "milliseconds");
    QCOMPARE(ticks.size(), 0);
    m_manager.finish();
    QVERIFY(!m_manager.findChild<QTimer*>());
}

void tst_OvProjectManager::viewsAreAnnounced()
{
    int place = 0;
    // By name: typed connections need the complete class of the view.
    QSignalSpy added(&m_manager, SIGNAL(aboutToAddWorkspace(OvAbstractViewController*)));
    m_manager.addWorkspace(fakeView(&place));
    QCOMPARE(added.size(), 1);
    m_manager.addWorkspace(nullptr);
    QCOMPARE(added.size(), 1);
}

void tst_OvProjectManager::theCurrentViewNeverDangles()
{
    int first = 0;
    int second = 0;
    QSignalSpy active(&m_manager, SIGNAL(activeWorkspace(OvAbstractViewController*)));
    QVERIFY(!m_manager.currentWorkspace());
    emit m_manager.activeWorkspace(fakeView(&first));
    QCOMPARE(m_manager.currentWorkspace(), fakeView(&first));
    m_manager.forgetWorkspace(fakeView(&second));
    QCOMPARE(m_manager.currentWorkspace(), fakeView(&first));
    m_manager.forgetWorkspace(fakeView(&first));
    QVERIFY(!m_manager.currentWorkspace());
    QCOMPARE(active.size(), 2);
    m_manager.forgetWorkspace(nullptr);
    QCOMPARE(active.size(), 2);
}

QTEST_MAIN(tst_OvProjectManager)
#include "tst_OvProjectManager.moc"

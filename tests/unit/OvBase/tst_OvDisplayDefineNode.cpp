#include "OvBase/OvDisplayDefineNode.h"

#include "OvBase/OvProjectDefineNode.h"
#include "OvBase/OvProjectManager.h"
#include "unit/OvBase/LoginFixture.h"

#include <QSignalSpy>

#include <cmath>

class tst_OvDisplayDefineNode : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aNewProjectHasTheDefaults();
    void eachProjectKeepsItsOwn();
    void onlyAChangeIsAnnounced();
    void eachRecordHasItsOwnSignal();
    void withoutAProjectTheValueIsInMemory();
    void notANumberDoesNotChangeForEver();
    void settingFromTheSignalEnds();
    void aValueThatCannotBeStoredIsNotAnnounced();

private:
    bool open(const QString& name);

    OvProjectManager& m_manager = OvProjectManager::instance();
    std::unique_ptr<LoginFixture> m_fixture;
};

void tst_OvDisplayDefineNode::init()
{
    m_fixture = std::make_unique<LoginFixture>();
    QVERIFY(m_fixture->login());
    for (const char* name : {"a", "b"}) {
        OvProjectDefine define;
        define.name = QLatin1String(name);
        QVERIFY(OvProjectDefineNode().insertProject(define) >= 0);
    }
}

void tst_OvDisplayDefineNode::cleanup()
{
    const QString problems = m_fixture->warnings.problems();
    m_fixture.reset();
    QCOMPARE(problems, QString());
}

bool tst_OvDisplayDefineNode::open(const QString& name)
{
    return m_manager.openProject(OvProjectDefineNode().projectByName(name));
}

void tst_OvDisplayDefineNode::aNewProjectHasTheDefaults()
{
    QVERIFY(open(QStringLiteral("a")));
    QVERIFY(OvDisplayDefineNode().define() == OvDisplayDefine());
    QVERIFY(OvFitDisplayDefineNode().define() == OvFitDisplayDefine());
    QVERIFY(OvTraceHeaderDefineNode().define() == OvTraceHeaderDefine());
}

void tst_OvDisplayDefineNode::eachProjectKeepsItsOwn()
{
    OvDisplayDefine define;
    define.gainDb = 0.1 + 0.2;
    QVERIFY(open(QStringLiteral("a")));
    QVERIFY(OvDisplayDefineNode().setDefine(define));
    QVERIFY(open(QStringLiteral("b")));
    QVERIFY(OvDisplayDefineNode().define() == OvDisplayDefine());
    QVERIFY(m_fixture->login());
    QVERIFY(open(QStringLiteral("a")));
    QVERIFY(OvDisplayDefineNode().define() == define);
}

void tst_OvDisplayDefineNode::onlyAChangeIsAnnounced()
{
    QVERIFY(open(QStringLiteral("a")));
    QSignalSpy changes(&m_manager, &OvProjectManager::displayDefineChanged);
    OvDisplayDefine define;
    QVERIFY(OvDisplayDefineNode().setDefine(define));
    QCOMPARE(changes.size(), 0);
    define.clip = 2.0;
    QVERIFY(OvDisplayDefineNode().setDefine(define));
    QVERIFY(OvDisplayDefineNode().setDefine(define));
    QCOMPARE(changes.size(), 1);
}

void tst_OvDisplayDefineNode::eachRecordHasItsOwnSignal()
{
    QVERIFY(open(QStringLiteral("a")));
    QSignalSpy display(&m_manager, &OvProjectManager::displayDefineChanged);
    QSignalSpy fit(&m_manager, &OvProjectManager::fitDisplayDefineChanged);
    QSignalSpy header(&m_manager, &OvProjectManager::traceHeaderDefineChanged);
    OvFitDisplayDefine scale;
    scale.traceSpacing = 3.0;
    QVERIFY(OvFitDisplayDefineNode().setDefine(scale));
    QCOMPARE(display.size() * 100 + fit.size() * 10 + header.size(), 10);
    OvTraceHeaderDefine words;
    words.axisWord = OvTraceHeaderDefine::Offset;
    words.mapping = OvTraceHeaderMapping::preset(OvTraceHeaderMapping::InlineCrossline);
    QVERIFY(OvTraceHeaderDefineNode().setDefine(words));
    QCOMPARE(display.size() * 100 + fit.size() * 10 + header.size(), 11);
    QVERIFY(OvFitDisplayDefineNode().define() == scale);
    QVERIFY(OvTraceHeaderDefineNode().define() == words);
}

void tst_OvDisplayDefineNode::withoutAProjectTheValueIsInMemory()
{
    OvTraceHeaderDefine words;
    words.axisWord = OvTraceHeaderDefine::ReceiverX;
    QSignalSpy changes(&m_manager, &OvProjectManager::traceHeaderDefineChanged);
    QVERIFY(OvTraceHeaderDefineNode().setDefine(words));
    QCOMPARE(changes.size(), 1);
    QVERIFY(OvTraceHeaderDefineNode().define() == words);
    QVERIFY(open(QStringLiteral("a")));
    QVERIFY(OvTraceHeaderDefineNode().define() == OvTraceHeaderDefine());
    m_manager.closeProject();
    QVERIFY(OvTraceHeaderDefineNode().setDefine(OvTraceHeaderDefine()));
}

void tst_OvDisplayDefineNode::notANumberDoesNotChangeForEver()
{
    QVERIFY(open(QStringLiteral("a")));
    QSignalSpy changes(&m_manager, &OvProjectManager::displayDefineChanged);
    OvDisplayDefine define;
    define.gainDb = std::nan("");
    QVERIFY(OvDisplayDefineNode().setDefine(define));
    QVERIFY(OvDisplayDefineNode().setDefine(define));
    QCOMPARE(changes.size(), 0);
    QVERIFY(OvDisplayDefineNode().define() == OvDisplayDefine());
}

void tst_OvDisplayDefineNode::settingFromTheSignalEnds()
{
    QVERIFY(open(QStringLiteral("a")));
    QObject listener;
    int heard = 0;
    connect(&m_manager, &OvProjectManager::displayDefineChanged, &listener, [&] {
        ++heard;
        QVERIFY(OvDisplayDefineNode().setDefine(OvDisplayDefineNode().define()));
    });
    OvDisplayDefine define;
    define.agcWindowMs = 500;
    QVERIFY(OvDisplayDefineNode().setDefine(define));
    QCOMPARE(heard, 1);
}

void tst_OvDisplayDefineNode::aValueThatCannotBeStoredIsNotAnnounced()
{
    QVERIFY(open(QStringLiteral("a")));
    QVERIFY(OvProjectDefineNode().removeProject(m_manager.define()));
    QSignalSpy changes(&m_manager, &OvProjectManager::displayDefineChanged);
    m_fixture->warnings.expect(QStringLiteral("cannot be written"));
    OvDisplayDefine define;
    define.agcWindowMs = 500;
    QVERIFY(!OvDisplayDefineNode().setDefine(define));
    QCOMPARE(changes.size(), 0);
}

QTEST_MAIN(tst_OvDisplayDefineNode)
#include "tst_OvDisplayDefineNode.moc"

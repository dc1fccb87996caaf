#include "Walker.h"

#include <QtTest>

/// Gathers by other keys and the header mapping, on the built program, with mouse and keys. Each
/// step goes on where the one before stopped.
class tst_GatherKeys : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void opensALine();
    void gathersByReceiver();
    void readsTheHeadersByAnotherMapping();
    void keepsTheMappingInChinese();

private:
    bool enter(const QStringList& arguments = {});
    bool openLine();
    bool gathersAre(int count);

    Walker m_walker;
    bool m_broken = false;
};

namespace {

constexpr int shots = 6;

} // namespace

void tst_GatherKeys::initTestCase()
{
    QVERIFY2(m_walker.startScreen(), "no virtual screen");
    QCOMPARE(QProcess::execute(qEnvironmentVariable("TARNPICK_BUILD_DIR") + "/bin/tarnpick-demo",
                               {m_walker.home() + "/survey", "--shots", QString::number(shots)}),
             0);
}

void tst_GatherKeys::init()
{
    if (m_broken)
        QSKIP("an earlier step failed");
}

void tst_GatherKeys::cleanup()
{
    m_walker.picture(QTest::currentTestFunction());
    if (!QTest::currentTestFailed())
        return;
    m_broken = true;
    qWarning().noquote() << m_walker.ask("window");
    qWarning().noquote() << m_walker.programOutput();
}

bool tst_GatherKeys::enter(const QStringList& arguments)
{
    if (!m_walker.startProgram(arguments) || m_walker.waitForWindow().isEmpty())
        return false;
    m_walker.key("Return");
    return m_walker.waitForMainWindow();
}

bool tst_GatherKeys::openLine()
{
    return m_walker.clickMenu({"menu_Data", "menuSegy_Files", "=demo_line.sgy"}) &&
           Walker::waitFor(
               [this] {
                   const QJsonObject view = m_walker.ask("view");
                   return view["complete"].toBool() && view["shown"].toBool();
               },
               30000);
}

bool tst_GatherKeys::gathersAre(int count)
{
    return Walker::waitFor([&] {
        const QJsonObject view = m_walker.ask("view");
        return view["gathers"].toInt() == count && view["shown"].toBool();
    });
}

void tst_GatherKeys::opensALine()
{
    QVERIFY(enter());
    m_walker.key("alt+f");
    m_walker.key("n");
    QVERIFY(m_walker.waitForDialog("OvProjectCreateDlg"));
    m_walker.type("Keys");
    m_walker.key("Tab");
    m_walker.key("ctrl+a");
    m_walker.type(m_walker.home() + "/survey");
    QVERIFY(Walker::waitFor([this] {
        return m_walker.ask("widget", "txtDataPath")["text"].toString() ==
               m_walker.home() + "/survey";
    }));
    QVERIFY(m_walker.clickWidget("btnOk"));
    QVERIFY(m_walker.waitForNoDialog());
    QVERIFY(openLine());
    QVERIFY(gathersAre(shots));
}

void tst_GatherKeys::gathersByReceiver()
{
    m_walker.key("ctrl+3");
    QVERIFY(Walker::waitFor([this] {
        const QJsonObject view = m_walker.ask("view");
        return view["gathers"].toInt() > shots && view["shown"].toBool();
    }));
    m_walker.picture("byReceiver");
    QVERIFY(m_walker.clickMenu({"menu_Data", "menuGather_Order", "actionGathers_By_field_record"}));
    QVERIFY(gathersAre(shots));
}

void tst_GatherKeys::readsTheHeadersByAnotherMapping()
{
    m_walker.key("ctrl+h");
    QVERIFY(m_walker.waitForDialog("OvHeaderMappingDlg"));
    // The byte of the field record is the current cell: the number of the trace in the file makes
    // every trace a record of its own, which is one gather.
    m_walker.type("5");
    m_walker.key("Return");
    m_walker.picture("mapping");
    m_walker.key("Return");
    QVERIFY(m_walker.waitForNoDialog());
    QVERIFY(gathersAre(1));
    m_walker.key("alt+q");
    QCOMPARE(m_walker.waitForEnd(), 0);
}

void tst_GatherKeys::keepsTheMappingInChinese()
{
    QVERIFY(enter({"--lang", "zh"}));
    QVERIFY(m_walker.clickMenu({"menu_File", "menuRecently_Projects", "=Keys"}));
    QTRY_VERIFY(m_walker.ask("window")["title"].toString().startsWith("Keys - "));
    QVERIFY(openLine());
    QVERIFY(gathersAre(1));
    m_walker.key("ctrl+h");
    QVERIFY(m_walker.waitForDialog("OvHeaderMappingDlg"));
    m_walker.picture("mapping_zh");
    m_walker.key("Escape");
    QVERIFY(m_walker.waitForNoDialog());
    m_walker.key("alt+q");
    QCOMPARE(m_walker.waitForEnd(), 0);
}

QTEST_GUILESS_MAIN(tst_GatherKeys)
#include "tst_GatherKeys.moc"

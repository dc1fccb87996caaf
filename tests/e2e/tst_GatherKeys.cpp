#include "WalkTest.h"

#include <QtTest>

/// Gathers by other keys and the header mapping, on the built program, with mouse and keys. Each
/// step goes on where the one before stopped.
class tst_GatherKeys : public WalkTest
{
    Q_OBJECT

private slots:
    void opensALine();
    void gathersByReceiver();
    void readsTheHeadersByAnotherMapping();
    void keepsTheMappingInChinese();

private:
    bool gathersAre(int count);
};

namespace {

constexpr int shots = 6;

} // namespace

bool tst_GatherKeys::gathersAre(int count)
{
    return Walker::waitFor([&] {
        const QJsonObject view = m_walker.ask("view");
        return view["gathers"].toInt() == count && view["shown"].toBool();
    });
}

void tst_GatherKeys::opensALine()
{
    QVERIFY(makeLine(shots));
    QVERIFY(enter());
    QVERIFY(makeProject("Keys", surveyFolder()));
    QVERIFY(openFile("demo_line.sgy"));
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
    QVERIFY(leave());
}

void tst_GatherKeys::keepsTheMappingInChinese()
{
    QVERIFY(enter({"--lang", "zh"}));
    QVERIFY(m_walker.clickMenu({"menu_File", "menuRecently_Projects", "=Keys"}));
    QTRY_VERIFY(m_walker.ask("window")["title"].toString().startsWith("Keys - "));
    QVERIFY(openFile("demo_line.sgy"));
    QVERIFY(gathersAre(1));
    m_walker.key("ctrl+h");
    QVERIFY(m_walker.waitForDialog("OvHeaderMappingDlg"));
    m_walker.picture("mapping_zh");
    m_walker.key("Escape");
    QVERIFY(m_walker.waitForNoDialog());
    QVERIFY(leave());
}

QTEST_GUILESS_MAIN(tst_GatherKeys)
#include "tst_GatherKeys.moc"

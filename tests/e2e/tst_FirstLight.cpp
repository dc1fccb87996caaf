#include "WalkTest.h"

#include <QDir>
#include <QRegularExpression>
#include <QtTest>

/// The whole path of a first session and a second one, on the built program, with mouse and keys.
/// Each step goes on where the one before stopped.
class tst_FirstLight : public WalkTest
{
    Q_OBJECT

private slots:
    void logsIn();
    void makesAProjectByKeyboard();
    void opensAFileByMouse();
    void pagesThroughTheGathers();
    void picksAutomatically();
    void exportsTheTimes();
    void closesByKey();
    void findsThePicksAgain();
    void speaksChinese();
    void picksARecordedLine();

private:
    bool pickAll();

    int m_truePicks = 0;
    int m_picks = 0;
};

namespace {

constexpr int shots = 12;

QByteArrayList linesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().split('\n') : QByteArrayList();
}

/// Rows of a table of first breaks that have a time.
int timesIn(const QString& path)
{
    const QByteArrayList lines = linesOf(path).mid(1);
    return static_cast<int>(std::count_if(lines.begin(), lines.end(), [](const QByteArray& line) {
        return !line.split(',').value(4).trimmed().isEmpty();
    }));
}

} // namespace

bool tst_FirstLight::pickAll()
{
    if (!m_walker.clickMenu({"menu_FirstBreak", "actionAuto_Pick"}) ||
        !m_walker.waitForDialog("OvPickDlg"))
        return false;
    m_walker.key("Return");
    return m_walker.waitForNoDialog() && Walker::waitFor(
                                             [this] {
                                                 return m_walker.ask("view")["picks"].toInt() > 0 &&
                                                        !m_walker.ask("tasks")["running"].toBool();
                                             },
                                             120000);
}

void tst_FirstLight::logsIn()
{
    QVERIFY(enter());
    QCOMPARE(m_walker.ask("window")["title"].toString(), QString("Maravel"));
    QVERIFY(QFile::exists(m_walker.home() + "/home/Tarnpick.db"));
    QVERIFY(!m_walker.ask("action", "action_Close_Project")["enabled"].toBool());
}

void tst_FirstLight::makesAProjectByKeyboard()
{
    QVERIFY(makeLine(shots));
    m_truePicks = timesIn(surveyFolder() + "/demo_line_truth.csv");
    QVERIFY(m_truePicks > 1000);
    QVERIFY(makeProject("First Light", surveyFolder()));
    QTRY_COMPARE(m_walker.ask("window")["title"].toString(), "First Light - " + surveyFolder());
    QVERIFY(m_walker.ask("action", "action_Close_Project")["enabled"].toBool());
}

void tst_FirstLight::opensAFileByMouse()
{
    QVERIFY(openFile("demo_line.sgy"));
    const QJsonObject view = m_walker.ask("view");
    QCOMPARE(view["file"].toString(), linePath());
    QCOMPARE(view["gathers"].toInt(), shots);
    QCOMPARE(view["picks"].toInt(), 0);
    QVERIFY(Walker::rectOf(view).width() > 200);
}

void tst_FirstLight::pagesThroughTheGathers()
{
    m_walker.click(Walker::rectOf(m_walker.ask("view")));
    m_walker.key("Page_Down");
    QTRY_COMPARE(m_walker.ask("view")["gather"].toInt(), 1);
    QTRY_VERIFY(m_walker.ask("view")["shown"].toBool());
    m_walker.key("Page_Up");
    QTRY_COMPARE(m_walker.ask("view")["gather"].toInt(), 0);
}

void tst_FirstLight::picksAutomatically()
{
    QVERIFY(pickAll());
    const QJsonObject view = m_walker.ask("view");
    m_picks = view["picks"].toInt();
    QVERIFY2(m_picks > m_truePicks * 9 / 10, qPrintable(QString::number(m_picks)));
    // They are on the disk while the program still runs.
    QCOMPARE(view["firstBreakFile"].toString(), linePath() + ".fb");
    QCOMPARE(storedBreaks(linePath()).pickedCount(), m_picks);
}

void tst_FirstLight::exportsTheTimes()
{
    const QString ours = m_walker.home() + "/times.csv";
    QVERIFY(m_walker.clickMenu({"menu_FirstBreak", "actionFirstBreak_Output"}));
    QVERIFY(m_walker.waitForDialog("QFileDialog"));
    m_walker.key("ctrl+a");
    m_walker.type(ours);
    m_walker.key("Return");
    QVERIFY(m_walker.waitForNoDialog());
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(ours), 30000);
    QCOMPARE(timesIn(ours), m_picks);

    const QString theirs = m_walker.home() + "/batch.csv";
    QCOMPARE(run("tarnpick-batch", {"pick", linePath(), "--out", theirs}), 0);
    QCOMPARE(linesOf(ours), linesOf(theirs));
}

void tst_FirstLight::closesByKey()
{
    QVERIFY(leave());
}

void tst_FirstLight::findsThePicksAgain()
{
    QVERIFY(enter());
    QVERIFY(m_walker.clickMenu({"menu_File", "menuRecently_Projects", "=First Light"}));
    QTRY_VERIFY(m_walker.ask("window")["title"].toString().startsWith("First Light - "));
    QVERIFY(openFile("demo_line.sgy"));
    QTRY_COMPARE(m_walker.ask("view")["picks"].toInt(), m_picks);
    QVERIFY(leave());
}

void tst_FirstLight::speaksChinese()
{
    QVERIFY(enter({"--lang", "zh"}));
    const QRegularExpression chinese("[\\x{4e00}-\\x{9fff}]");
    for (const char* menu : {"menu_File", "menuTool", "menu_Window", "menu_Help", "menu_Data",
                             "menu_FirstBreak", "action_New_Project", "actionAuto_Pick"}) {
        const QString text = m_walker.ask("action", menu)["text"].toString();
        QVERIFY2(text.contains(chinese), qPrintable(QString(menu) + ": " + text));
    }
    QVERIFY(m_walker.clickMenu({"menuTool", "menu_Language", "actionEnglish"}));
    QTRY_COMPARE(m_walker.ask("action", "menu_File")["text"].toString(), QString("&File"));
    QVERIFY(!m_walker.ask("action", "menu_FirstBreak")["text"].toString().contains(chinese));
    QVERIFY(leave());
}

void tst_FirstLight::picksARecordedLine()
{
    const QDir recordings(qEnvironmentVariable("TARNPICK_TEST_DATA") + "/gathers/refr_line_A");
    const QStringList files = recordings.entryList({"*.sgy"}, QDir::Files);
    if (files.isEmpty())
        QSKIP("TARNPICK_TEST_DATA names no folder with recordings");
    // A copy: first breaks are kept beside the file.
    const QString folder = m_walker.home() + "/line_a";
    QVERIFY(QDir().mkpath(folder));
    QVERIFY(QFile::copy(recordings.filePath(files.first()), folder + "/line_a.sgy"));
    QVERIFY(enter());
    QVERIFY(makeProject("Line A", folder));
    QVERIFY(openFile("line_a.sgy"));
    QCOMPARE(m_walker.ask("view")["picks"].toInt(), 0);
    QVERIFY(pickAll());
    QVERIFY(QFile::exists(folder + "/line_a.sgy.fb"));
    QVERIFY(leave());
}

QTEST_GUILESS_MAIN(tst_FirstLight)
#include "tst_FirstLight.moc"

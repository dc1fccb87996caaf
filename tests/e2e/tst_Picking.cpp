#include "WalkTest.h"

#include <QFile>
#include <QRegularExpression>
#include <QtEndian>
#include <QtTest>

#include <algorithm>

/// Automatic picking as an interpreter uses it: previewed, cancelled, gone on with after the
/// program was killed, and never over what was picked by hand. Each step needs the one before it.
class tst_Picking : public WalkTest
{
    Q_OBJECT

private slots:
    void opensALine();
    void previewsWithoutStoring();
    void keepsWhatACancelledRunFound();
    void goesOnAfterItWasKilled();
    void finishesTheRun();
    void keepsAManualPick();
    void speaksChinese();

private:
    bool openDialog();
    bool waitForJobs(int timeoutMs = 180000);
    int picks() { return m_walker.ask("view")["picks"].toInt(); }

    int m_found = 0;
};

namespace {

constexpr int madeShots = 240;
constexpr int repeats = 6; // of the line, with other field records: some seconds of work
constexpr int shots = repeats * madeShots;
constexpr int channels = 120;

bool repeatLine(const QString& path)
{
    constexpr int fileHeaders = 3600;
    constexpr int fieldRecord = 8; // of a trace header
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) || file.read(fileHeaders).size() != fileHeaders)
        return false;
    QByteArray traces = file.readAll();
    const int length = traces.size() / (madeShots * channels);
    for (int repeat = 1; repeat < repeats; ++repeat) {
        for (int at = 0; at < traces.size(); at += length) {
            char* record = traces.data() + at + fieldRecord;
            qToBigEndian(qFromBigEndian<qint32>(record) + madeShots, record);
        }
        if (file.write(traces) != traces.size())
            return false;
    }
    return true;
}

} // namespace

bool tst_Picking::openDialog()
{
    return m_walker.clickMenu({"menu_FirstBreak", "actionAuto_Pick"}) &&
           m_walker.waitForDialog("OvPickDlg");
}

bool tst_Picking::waitForJobs(int timeoutMs)
{
    return Walker::waitFor([this] { return !m_walker.ask("tasks")["running"].toBool(); },
                           timeoutMs);
}

void tst_Picking::opensALine()
{
    QVERIFY(makeLine(madeShots));
    QVERIFY(repeatLine(linePath()));
    QVERIFY(enter());
    QVERIFY(makeProject("Picking", surveyFolder()));
    QVERIFY(openFile("demo_line.sgy"));
}

void tst_Picking::previewsWithoutStoring()
{
    QVERIFY(openDialog());
    QVERIFY(m_walker.clickWidget("preview"));
    QTRY_VERIFY_WITH_TIMEOUT(m_walker.ask("view")["preview"].toInt() > channels / 2, 30000);
    m_walker.picture("picking-preview");
    // No trace is nearer than that.
    m_walker.click(Walker::rectOf(m_walker.ask("widget", "sbMaxOff")));
    m_walker.key("ctrl+a");
    m_walker.type("1");
    QTRY_VERIFY_WITH_TIMEOUT(m_walker.ask("view")["preview"].toInt() < channels / 2, 30000);
    m_walker.key("Escape");
    QVERIFY(m_walker.waitForNoDialog());
    QTRY_COMPARE(m_walker.ask("view")["preview"].toInt(), 0);
    QCOMPARE(picks(), 0);
    QVERIFY(!QFile::exists(linePath() + ".fb"));
}

void tst_Picking::keepsWhatACancelledRunFound()
{
    QVERIFY(openDialog());
    // Each gather waits for the one before it, so that there is time to cancel.
    m_walker.key("alt+g");
    for (int i = 0; i < 3; ++i)
        m_walker.key("Down");
    QTRY_COMPARE(m_walker.ask("widget", "guide")["text"].toString(), QString("Previous gather"));
    QVERIFY(m_walker.clickWidget("btnSave"));
    m_walker.key("Return");
    QVERIFY(m_walker.waitForNoDialog());
    QTRY_VERIFY_WITH_TIMEOUT(picks() > 0, 60000);
    QVERIFY(m_walker.clickWidget("cancelTask"));
    QVERIFY(waitForJobs());
    m_found = picks();
    QVERIFY2(m_found < shots * channels * 9 / 10, qPrintable(QString::number(m_found)));
    QCOMPARE(storedBreaks(linePath()).pickedCount(), m_found);
}

void tst_Picking::goesOnAfterItWasKilled()
{
    QVERIFY(openDialog());
    QVERIFY(m_walker.ask("widget", "continueButton")["visible"].toBool());
    QVERIFY(m_walker.clickWidget("continueButton") && m_walker.waitForNoDialog());
    QTRY_VERIFY_WITH_TIMEOUT(picks() > m_found, 60000);
    m_found = picks();
    m_walker.killProgram();
    QVERIFY(storedBreaks(linePath()).pickedCount() >= m_found);
}

void tst_Picking::finishesTheRun()
{
    QVERIFY(m_walker.startProgram({"--project", "Picking"}) && m_walker.waitForMainWindow());
    QVERIFY(openFile("demo_line.sgy"));
    QTRY_VERIFY(picks() >= m_found);
    QVERIFY(openDialog());
    m_walker.picture("picking-continue");
    QVERIFY(m_walker.ask("widget", "continueButton")["visible"].toBool());
    m_walker.key("Return");
    QVERIFY(m_walker.waitForNoDialog());
    QVERIFY(waitForJobs());
    QTRY_VERIFY2(picks() > shots * channels * 8 / 10, qPrintable(QString::number(picks())));
    QVERIFY(openDialog());
    QVERIFY(!m_walker.ask("widget", "continueButton")["visible"].toBool());
    m_walker.key("Escape");
    QVERIFY(m_walker.waitForNoDialog());
}

void tst_Picking::keepsAManualPick()
{
    const auto manual = [this] {
        const OvFirstBreaks breaks = storedBreaks(linePath());
        return std::count(breaks.states.begin(), breaks.states.end(), OvPickState::Manual);
    };
    m_walker.key("ctrl+e");
    const QRect view = Walker::rectOf(m_walker.ask("view"));
    m_walker.click(view);
    QTRY_COMPARE(manual(), 1);
    m_walker.key("ctrl+shift+p");
    m_walker.key("ctrl+e");
    QVERIFY(openDialog());
    m_walker.key("Return");
    QVERIFY(m_walker.waitForNoDialog());
    QVERIFY(waitForJobs());
    QCOMPARE(manual(), 1);
    QVERIFY(leave());
}

void tst_Picking::speaksChinese()
{
    QVERIFY(m_walker.startProgram({"--lang", "zh", "--project", "Picking"}) &&
            m_walker.waitForMainWindow());
    QVERIFY(openFile("demo_line.sgy"));
    QVERIFY(openDialog());
    const QRegularExpression chinese("[\\x{4e00}-\\x{9fff}]");
    for (const char* name : {"label_phase", "label_guide", "label_velocity", "label_intercept",
                             "label_min_confidence", "preview", "keepManualPicks", "guide"}) {
        const QString text = m_walker.ask("widget", name)["text"].toString();
        QVERIFY2(text.contains(chinese), qPrintable(QString(name) + ": " + text));
    }
    m_walker.picture("picking-chinese");
    QVERIFY2(m_walker.ask("action", "actionEdit_Picks")["enabled"].toBool(),
             qPrintable(m_walker.ask("action", "actionEdit_Picks")["toolTip"].toString()));
    QVERIFY(picks() > shots * channels * 8 / 10);
    m_walker.key("Escape");
    QVERIFY(m_walker.waitForNoDialog());
    QVERIFY(leave());
}

QTEST_GUILESS_MAIN(tst_Picking)
#include "tst_Picking.moc"

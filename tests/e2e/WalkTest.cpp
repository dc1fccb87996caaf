#include "WalkTest.h"

#include "OvSeismic/firstbreak/OvFirstBreakFile.h"
#include "OvSeismic/segy/OvSegyFile.h"

#include <QtTest>

#include <numeric>

namespace {

constexpr int openingTimeoutMs = 30000;

QString pictureName(const QObject* test)
{
    const QStringList parts{test->metaObject()->className(), QTest::currentTestFunction(),
                            QTest::currentDataTag()};
    return parts.filter(QRegularExpression(".")).join('-');
}

} // namespace

void WalkTest::initTestCase()
{
    QVERIFY2(m_walker.startScreen(), "no virtual screen");
}

void WalkTest::init()
{
    if (m_broken)
        QSKIP("an earlier step failed");
}

void WalkTest::cleanup()
{
    m_walker.picture(pictureName(this));
    if (!QTest::currentTestFailed())
        return;
    m_broken = m_steps == Steps::InARow;
    qWarning().noquote() << m_walker.ask("window");
    qWarning().noquote() << m_walker.programOutput();
}

int WalkTest::run(const QString& program, const QStringList& arguments)
{
    return QProcess::execute(qEnvironmentVariable("TARNPICK_BUILD_DIR") + "/bin/" + program,
                             arguments);
}

bool WalkTest::makeLine(int shots)
{
    return run("tarnpick-demo", {surveyFolder(), "--shots", QString::number(shots)}) == 0;
}

bool WalkTest::enter(const QStringList& arguments)
{
    return m_walker.startProgram(arguments) && m_walker.logIn();
}

bool WalkTest::leave()
{
    m_walker.key("alt+q");
    return m_walker.waitForEnd() == 0;
}

bool WalkTest::openProjectDialog()
{
    m_walker.key("alt+f");
    m_walker.key("n");
    return m_walker.waitForDialog("OvProjectCreateDlg");
}

bool WalkTest::makeProject(const QString& name, const QString& folder)
{
    if (!openProjectDialog())
        return false;
    m_walker.type(name);
    m_walker.key("Tab");
    m_walker.key("ctrl+a");
    m_walker.type(folder);
    return waitForText("txtProjectName", name) && waitForText("txtDataPath", folder) &&
           m_walker.clickWidget("btnOk") && m_walker.waitForNoDialog();
}

bool WalkTest::openFile(const QString& name)
{
    const auto isOpen = [this] {
        const QJsonObject view = m_walker.ask("view");
        return view["complete"].toBool() && view["shown"].toBool();
    };
    return m_walker.clickMenu({"menu_Data", "menuSegy_Files", '=' + name}) &&
           Walker::waitFor(isOpen, openingTimeoutMs);
}

OvFirstBreaks WalkTest::storedBreaks(const QString& segyPath)
{
    OvSegyFile segy;
    OvFirstBreakFile file;
    OvFirstBreaks breaks;
    if (!segy.open(segyPath) || !file.open(segyPath + ".fb", segy.info()))
        return {};
    std::vector<qint64> traces(static_cast<std::size_t>(segy.info().traceCount), 0);
    std::iota(traces.begin(), traces.end(), 0);
    return file.read(traces, &breaks) ? breaks : OvFirstBreaks();
}

bool WalkTest::waitForText(const QString& widget, const QString& text)
{
    return Walker::waitFor(
        [&] { return m_walker.ask("widget", widget)["text"].toString() == text; });
}

#include "Walker.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QtTest>

namespace {

constexpr int toolTimeoutMs = 20000;
constexpr int probeTimeoutMs = 5000;
constexpr int screenAttempts = 3;
constexpr int loginAttempts = 3;
constexpr int loginPatienceMs = 10000;

QString buildFolder()
{
    return qEnvironmentVariable("TARNPICK_BUILD_DIR");
}

} // namespace

Walker::Walker()
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    const QString folder = m_folder.path();
    for (const char* name :
         {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY", "XAUTHORITY", "QT_LOGGING_RULES"})
        m_environment.remove(name);
    QDir(folder).mkpath("runtime");
    QFile::setPermissions(folder + "/runtime",
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment.insert("HOME", folder);
    m_environment.insert("XDG_RUNTIME_DIR", folder + "/runtime");
    m_environment.insert("XDG_CONFIG_HOME", folder + "/config");
    m_environment.insert("XDG_CACHE_HOME", folder + "/cache");
    m_environment.insert("XDG_DATA_HOME", folder + "/data");
    m_environment.insert("TARNPICK_HOME", folder + "/home");
    m_environment.insert("TARNPICK_PLUGIN_PATH", buildFolder() + "/tests/e2e/plugins");
}

Walker::~Walker()
{
    killProgram();
    endScreen();
}

bool Walker::startScreen()
{
    for (int attempt = 0; attempt < screenAttempts; ++attempt) {
        if (startServer() && startManager())
            return true;
        qWarning("The virtual screen did not start: %s",
                 m_screen.readAllStandardError().constData());
        endScreen();
    }
    return false;
}

// The server chooses a free display and prints its number. It must not begin anew each time that
// the last of its clients leaves: who comes in that moment is turned away.
bool Walker::startServer()
{
    m_screen.setProcessEnvironment(m_environment);
    m_screen.start("Xvfb", {"-displayfd", "1", "-noreset", "-screen", "0", "1600x1000x24",
                            "-nolisten", "tcp"});
    QByteArray number;
    const bool answered = waitFor([&] {
        m_screen.waitForReadyRead(100);
        number += m_screen.readAllStandardOutput();
        return number.endsWith('\n') || m_screen.state() == QProcess::NotRunning;
    });
    if (!answered || !number.endsWith('\n'))
        return false;
    m_environment.insert("DISPLAY", ':' + QString::fromLatin1(number.trimmed()));
    return waitFor([this] { return !tool("xdotool", {"getdisplaygeometry"}).trimmed().isEmpty(); });
}

bool Walker::startManager()
{
    m_manager.setProcessEnvironment(m_environment);
    m_manager.setProcessChannelMode(QProcess::MergedChannels);
    m_manager.start("openbox", QStringList());
    return m_manager.waitForStarted() &&
           waitFor([this] { return !tool("xdotool", {"get_num_desktops"}).trimmed().isEmpty(); });
}

void Walker::endScreen()
{
    for (QProcess* process : {&m_manager, &m_screen}) {
        process->terminate();
        if (process->state() != QProcess::NotRunning && !process->waitForFinished()) {
            process->kill();
            process->waitForFinished();
        }
    }
}

bool Walker::startProgram(const QStringList& arguments)
{
    killProgram();
    m_output.clear();
    m_socket = QStringLiteral("%1/runtime/probe%2").arg(m_folder.path()).arg(++m_starts);
    m_environment.insert("TARNPICK_PROBE", m_socket);
    m_program.setProcessEnvironment(m_environment);
    m_program.setProcessChannelMode(QProcess::MergedChannels);
    m_program.setWorkingDirectory(m_folder.path());
    m_program.start(buildFolder() + "/bin/tarnpick", arguments);
    return m_program.waitForStarted();
}

bool Walker::programRuns() const
{
    return m_program.state() == QProcess::Running;
}

int Walker::waitForEnd(int timeoutMs)
{
    if (programRuns() && !m_program.waitForFinished(timeoutMs))
        return -1;
    return m_program.exitStatus() == QProcess::NormalExit ? m_program.exitCode() : -1;
}

QString Walker::programOutput()
{
    m_output += QString::fromLocal8Bit(m_program.readAll());
    return m_output;
}

void Walker::killProgram()
{
    if (!programRuns())
        return;
    m_program.kill();
    m_program.waitForFinished();
}

QByteArray Walker::tool(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(program, arguments);
    if (!process.waitForFinished(toolTimeoutMs)) {
        process.kill();
        process.waitForFinished();
    }
    return process.readAllStandardOutput();
}

QString Walker::waitForWindow(int timeoutMs)
{
    QByteArray windows;
    const QString pid = QString::number(m_program.processId());
    waitFor(
        [&] {
            windows = tool("xdotool", {"search", "--onlyvisible", "--pid", pid}).trimmed();
            return !windows.isEmpty();
        },
        timeoutMs);
    const QString first = QString::fromLatin1(windows.split('\n').last());
    if (first.isEmpty())
        return first;
    tool("xdotool", {"windowactivate", "--sync", first});
    // The program takes the focus by itself, some time after the window manager has offered it;
    // keys before that are lost.
    const bool focused = waitFor([&] {
        return tool("xdotool", {"getwindowfocus", "-f"}).trimmed() == first.toLatin1();
    });
    return focused ? first : QString();
}

bool Walker::logIn()
{
    for (int attempt = 1; attempt <= loginAttempts; ++attempt) {
        if (waitForWindow().isEmpty())
            return false;
        key("Return");
        if (waitFor([this] { return !ask("window").isEmpty(); }, loginPatienceMs))
            return waitForMainWindow();
        qWarning().noquote() << "Return number" << attempt << "had no effect." << programOutput();
    }
    return false;
}

void Walker::key(const QString& keys)
{
    tool("xdotool", {"key", "--clearmodifiers", keys});
}

void Walker::type(const QString& text)
{
    tool("xdotool", {"type", "--delay", "4", "--", text});
}

void Walker::moveTo(const QPoint& point)
{
    if (point == m_pointer) // there is no movement that could be waited for
        return;
    m_pointer = point;
    tool("xdotool",
         {"mousemove", "--sync", QString::number(point.x()), QString::number(point.y())});
}

void Walker::click(const QRect& rect)
{
    moveTo(rect.center());
    tool("xdotool", {"click", "1"});
}

void Walker::doubleClick(const QRect& rect)
{
    moveTo(rect.center());
    tool("xdotool", {"click", "--repeat", "2", "--delay", "40", "1"});
}

bool Walker::probe(const QByteArray& question, QByteArray* answer)
{
    QLocalSocket socket;
    socket.connectToServer(m_socket);
    if (!socket.waitForConnected(probeTimeoutMs))
        return false;
    socket.write(question + '\n');
    while (!answer->endsWith('\n')) {
        if (!socket.waitForReadyRead(probeTimeoutMs))
            return false;
        *answer += socket.readAll();
    }
    return true;
}

QJsonObject Walker::ask(const QString& what, const QString& name, QJsonObject more)
{
    more["what"] = what;
    more["name"] = name;
    QByteArray answer;
    if (!probe(QJsonDocument(more).toJson(QJsonDocument::Compact), &answer))
        return {};
    return QJsonDocument::fromJson(answer).object();
}

QRect Walker::rectOf(const QJsonObject& answer)
{
    const QJsonArray rect = answer["rect"].toArray();
    return {rect.at(0).toInt(), rect.at(1).toInt(), rect.at(2).toInt(), rect.at(3).toInt()};
}

bool Walker::waitFor(const std::function<bool()>& condition, int timeoutMs)
{
    return QTest::qWaitFor(condition, timeoutMs);
}

bool Walker::waitForMainWindow()
{
    // The window manager still moves a window after its first appearance.
    QRect before;
    int still = 0;
    return waitFor(
        [&] {
            const QJsonObject window = ask("window");
            const QRect now = rectOf(window);
            still = window["active"].toBool() && now.isValid() && now == before ? still + 1 : 0;
            before = now;
            return still > 5;
        },
        30000);
}

bool Walker::waitForDialog(const QString& name)
{
    // Keys are lost before it has the focus, and the mouse misses while it is still being placed.
    QJsonValue before;
    return waitFor([&] {
        const QJsonObject window = ask("window");
        const QString modal = window["modalClass"].toString();
        const QJsonValue now = window["modalRect"];
        const bool isStill = now == before;
        before = now;
        return isStill && window["modalActive"].toBool() && !modal.isEmpty() &&
               (name.isEmpty() || modal == name || window["modal"] == name);
    });
}

bool Walker::waitForNoDialog()
{
    return waitFor([this] {
        const QJsonObject window = ask("window");
        return !window.isEmpty() && window["modalClass"].toString().isEmpty();
    });
}

bool Walker::clickWidget(const QString& name)
{
    QJsonObject widget;
    const bool there = waitFor([&] {
        widget = ask("widget", name);
        return widget["visible"].toBool() && widget["enabled"].toBool();
    });
    if (there)
        click(rectOf(widget));
    return there;
}

bool Walker::clickEntry(const QString& entry)
{
    QJsonObject action;
    const bool there = waitFor([&] {
        action = entry.startsWith('=') ? ask("action", {}, {{"text", entry.mid(1)}})
                                       : ask("action", entry);
        return action["visible"].toBool() && action["enabled"].toBool();
    });
    if (there)
        click(rectOf(action));
    else
        qWarning().noquote() << entry << "cannot be clicked:" << action;
    return there;
}

bool Walker::clickMenu(const QStringList& path)
{
    return std::all_of(path.begin(), path.end(),
                       [this](const QString& entry) { return clickEntry(entry); });
}

void Walker::picture(const QString& name)
{
    const QString folder = qEnvironmentVariable("TARNPICK_E2E_PICTURES");
    if (!folder.isEmpty())
        ask("picture", folder + '/' + name + ".png");
}

#include "Figure.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>

// Start of the program up to its main window on the screen, against a bare window of the toolkit.
// Both leave as soon as they have painted, without tidying up: what is measured is the start. The
// program leaves by a plug-in that is there for nothing else.

namespace {

constexpr int rounds = 15;
constexpr double goal = 3.0;

QProcessEnvironment environment(const QString& home)
{
    QProcessEnvironment result = QProcessEnvironment::systemEnvironment();
    result.insert("QT_QPA_PLATFORM", "offscreen");
    result.insert("TARNPICK_HOME", home);
    result.insert("TARNPICK_PLUGIN_PATH", BENCH_PLUGINS);
    return result;
}

/// Milliseconds from start to end; NaN when the program failed.
double startTime(const QString& program, const QStringList& arguments, const QString& home)
{
    QProcess process;
    process.setProcessEnvironment(environment(home));
    bool ended = false;
    const double time = Figure::timed([&] {
        process.start(program, arguments);
        ended = process.waitForFinished(60000);
    });
    if (ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return time;
    QTextStream(stderr) << "bench_start: " << program << " did not come up\n";
    return std::nan("");
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir home;
    const QString folder = QCoreApplication::applicationDirPath();
    Figure::race(
        "start", rounds, goal,
        [&] { return startTime(folder + "/../bin/tarnpick", {"--login"}, home.path()); },
        [&] { return startTime(folder + "/bare_window", {}, home.path()); });
    return 0;
}

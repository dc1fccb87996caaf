#include "Figure.h"

#include <QCoreApplication>
#include <QElapsedTimer>
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

/// Milliseconds from start to end; negative when the program failed.
double timed(const QString& program, const QStringList& arguments, const QString& home)
{
    QProcess process;
    process.setProcessEnvironment(environment(home));
    QElapsedTimer clock;
    clock.start();
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        return -1.0;
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir home;
    const QString folder = QCoreApplication::applicationDirPath();
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = -1; round < rounds; ++round) {
        const double program = timed(folder + "/../bin/tarnpick", {"--login"}, home.path());
        const double bare = timed(folder + "/bare_window", {}, home.path());
        if (program < 0.0 || bare < 0.0) {
            QTextStream(stderr) << "bench_start: a program did not come up\n";
            return 1;
        }
        if (round < 0) // both are in the page cache now
            continue;
        ours.push_back(program);
        theirs.push_back(bare);
    }
    Figure::report("start", Figure::median(ours), Figure::median(theirs), goal);
    return 0;
}

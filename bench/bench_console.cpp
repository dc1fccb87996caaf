#include "Figure.h"

#include "OvBase/OvBaseUtil.h"
#include "OvTarnpick/utility/OvConsole.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

#include <atomic>
#include <thread>

// Lines a second that one thread logs into the console shown, against a bare text area that appends
// the same lines; and the longest silence of the event loop while eight threads log.

namespace {

constexpr int rounds = 7;
constexpr int lines = 20000;
constexpr double goal = 1 / 0.7; // at least 0.7 of the bare lines a second
constexpr int threads = 8;
constexpr int loadLines = 200000;
constexpr double silenceGoalMs = 250.0;

double ms(const QElapsedTimer& clock)
{
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

QString lineOf(int number)
{
    return QStringLiteral("Gather %1 of the line has been picked").arg(number);
}

void present(QWidget* widget)
{
    widget->show();
    QCoreApplication::processEvents();
}

double timeConsole(CustomTextEdit* area)
{
    area->clear();
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < lines; ++i)
        qInfo("%s", lineOf(i).toLatin1().constData());
    QCoreApplication::processEvents();
    return ms(clock);
}

double timeBare(QTextEdit* area)
{
    area->clear();
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < lines; ++i)
        area->append(lineOf(i));
    QCoreApplication::processEvents();
    return ms(clock);
}

void benchLines(CustomTextEdit* area)
{
    QTextEdit bare;
    bare.setFont(area->font());
    bare.setReadOnly(true);
    bare.resize(area->size());
    present(&bare);
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = -1; round < rounds; ++round) {
        const double console = timeConsole(area);
        const double plain = timeBare(&bare);
        if (round < 0)
            continue;
        ours.push_back(console);
        theirs.push_back(plain);
    }
    Figure::report("console_lines", Figure::median(ours), Figure::median(theirs), goal);
}

/// The longest time between two turns of the event loop while eight threads log.
double longestSilence(const CustomTextEdit* area)
{
    QElapsedTimer clock;
    double longest = 0.0;
    std::atomic<int> running{threads};
    QTimer pulse;
    QObject::connect(&pulse, &QTimer::timeout, [&] {
        longest = std::max(longest, ms(clock));
        clock.start();
    });
    pulse.start(0);
    clock.start();
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&running] {
            for (int i = 0; i < loadLines / threads; ++i)
                qInfo("Gather %d of the line has been picked", i);
            --running;
        });
    }
    while (running > 0 || area->document()->blockCount() < loadLines)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (std::thread& worker : workers)
        worker.join();
    return longest;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    OvBaseUtil::setLocalPath(folder.path());
    if (!OvBaseUtil::initialize().ok()) {
        QTextStream(stderr) << "bench_console: no folder for the data\n";
        return 1;
    }
    OvConsole& console = OvConsole::instance();
    auto* area = dynamic_cast<CustomTextEdit*>(console.widget());
    present(&console);
    benchLines(area);
    area->clear();
    Figure::report("console_silence", longestSilence(area), silenceGoalMs, 1.0);
    delete &console;
    OvBaseUtil::finish();
    return 0;
}

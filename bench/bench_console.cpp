#include "BenchProgram.h"
#include "Figure.h"

#include "OvTarnpick/utility/OvConsole.h"

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

QString lineOf(int number)
{
    return QStringLiteral("Gather %1 of the line has been picked").arg(number);
}

void present(QWidget* widget)
{
    widget->show();
    QCoreApplication::processEvents();
}

/// Milliseconds that write(line) takes for all lines, until they are shown.
template <typename Write>
double linesTime(QTextEdit* area, const Write& write)
{
    area->clear();
    return Figure::timed([&] {
        for (int i = 0; i < lines; ++i)
            write(lineOf(i));
        QCoreApplication::processEvents();
    });
}

void benchLines(CustomTextEdit* area)
{
    QTextEdit bare;
    bare.setFont(area->font());
    bare.setReadOnly(true);
    bare.resize(area->size());
    present(&bare);
    const auto console = [&] {
        return linesTime(area, [](const QString& line) { qInfo("%s", qUtf8Printable(line)); });
    };
    const auto plain = [&] {
        return linesTime(&bare, [&bare](const QString& line) { bare.append(line); });
    };
    Figure::race("console_lines", rounds, goal, console, plain);
}

/// The longest time between two turns of the event loop while eight threads log.
double longestSilence(const CustomTextEdit* area)
{
    QElapsedTimer clock;
    double longest = 0.0;
    std::atomic<int> running{threads};
    QTimer pulse;
    QObject::connect(&pulse, &QTimer::timeout, [&] {
        longest = std::max(longest, Figure::milliseconds(clock));
        clock.start();
    });
    pulse.start(0);
    clock.start();
    std::vector<std::thread> workers;
    workers.reserve(threads);
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
    const BenchProgram program(argc, argv);
    if (!OvBaseUtil::initialize())
        return BenchProgram::fail("no folder for the data");
    OvConsole& console = OvConsole::instance();
    auto* area = dynamic_cast<CustomTextEdit*>(console.widget());
    present(&console);
    benchLines(area);
    area->clear();
    Figure::report("console_silence", longestSilence(area), silenceGoalMs, 1.0);
    delete &console;
    return 0;
}

#include "BenchProgram.h"
#include "BenchSegy.h"
#include "Figure.h"

#include "OvGui/OvGatherViewController.h"

#include <QEventLoop>
#include <QTimer>

// From the choice of a file to its first gather on the screen: a million traces against a thousand,
// the same gather in both. No index is cached: each measurement has a folder of its own.

namespace {

constexpr int rounds = 5;
constexpr double goal = 3.0;
constexpr int smallFile = 1000;
constexpr int largeFile = 1000000;

bool write(const QString& path, int traces)
{
    BenchSegy file;
    file.traces = traces;
    return file.write(path);
}

/// Milliseconds; NaN when no gather came.
double firstGather(const QString& path)
{
    const QTemporaryDir home;
    OvBaseUtil::setLocalPath(home.path());
    qputenv("XDG_CACHE_HOME", home.path().toLocal8Bit());
    QElapsedTimer clock;
    clock.start();
    OvStatus status;
    const auto document = OvSegyDocument::open(path, &status);
    if (!document) {
        QTextStream(stderr) << status.message() << '\n';
        return std::nan("");
    }
    OvGatherViewController view(document);
    QEventLoop loop;
    double elapsed = std::nan("");
    QObject::connect(&view, &OvGatherViewController::gatherShown, &loop, [&] {
        elapsed = Figure::milliseconds(clock);
        loop.quit();
    });
    QTimer::singleShot(60000, &loop, &QEventLoop::quit);
    view.resize(900, 600);
    view.show();
    loop.exec();
    return elapsed;
}

} // namespace

int main(int argc, char** argv)
{
    const BenchProgram program(argc, argv);
    const QString small = program.path("small.sgy");
    const QString large = program.path("large.sgy");
    if (!write(small, smallFile) || !write(large, largeFile) || !OvBaseUtil::initialize())
        return BenchProgram::fail("cannot write the files");
    Figure::race(
        "first_gather", rounds, goal, [&] { return firstGather(large); },
        [&] { return firstGather(small); });
    return 0;
}

#include "BenchSegy.h"
#include "Figure.h"

#include "OvBase/OvBaseUtil.h"
#include "OvGui/OvGatherViewController.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

#include <memory>

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
        elapsed = static_cast<double>(clock.nsecsElapsed()) / 1e6;
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
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString small = folder.filePath("small.sgy");
    const QString large = folder.filePath("large.sgy");
    if (!write(small, smallFile) || !write(large, largeFile) || !OvBaseUtil::initialize()) {
        QTextStream(stderr) << "bench_first_gather: cannot write the files\n";
        return 1;
    }
    firstGather(small); // fonts and libraries are loaded now
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = 0; round < rounds; ++round) {
        theirs.push_back(firstGather(small));
        ours.push_back(firstGather(large));
    }
    Figure::report("first_gather", Figure::median(ours), Figure::median(theirs), goal);
    OvBaseUtil::finish();
    return 0;
}

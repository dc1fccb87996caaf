#include "BenchProgram.h"
#include "BenchSegy.h"
#include "Figure.h"
#include "Process.h"

#include "OvGui/document/OvSegyDocument.h"
#include "OvSeismic/segy/OvSegyIndexCache.h"
#include "OvTarnpick/OvTarnpickUtil.h"

#include <QEventLoop>
#include <QTimer>
#include <QWidget>

// Work on whole surveys: opening a file of ten million traces again, paging through 20 GiB, the
// summary of a file of 500 GB. The two large files are sparse.

namespace {

constexpr int rounds = 5;
constexpr double againstIndexing = 0.05;
constexpr double againstSmallFile = 1.5;
constexpr double mostMebibytes = 300.0;
constexpr double mebibyte = 1024.0 * 1024.0;

bool write(const BenchSegy& segy, const QString& path)
{
    if (segy.write(path))
        return true;
    QTextStream(stderr) << "bench_segy_survey: cannot write " << path << '\n';
    return false;
}

/// Milliseconds until the index is there.
double obtainTime(const QString& path, const OvSegyIndexCache& cache, OvSegyIndex* index)
{
    QElapsedTimer clock;
    clock.start();
    OvSegyFile file;
    OvStatus status = file.open(path);
    if (status)
        status = cache.obtain(file, {}, {}, index);
    return status ? Figure::milliseconds(clock) : std::nan("");
}

void reopening(const QString& folder)
{
    const QString path = folder + "/traces.sgy";
    BenchSegy segy;
    segy.traces = 10000000;
    segy.samples = 1000;
    segy.format = 5;
    // Each header that is there takes a page of the disk: so many that the words of a block vary as
    // much as if all were there.
    segy.headerEvery = 16;
    if (!write(segy, path))
        return;
    const OvSegyIndexCache cache(folder + "/cache");
    OvSegyFile file;
    OvSegyIndex index;
    QElapsedTimer clock;
    clock.start();
    const bool built = file.open(path).ok() && index.build(file).ok();
    const double first = built ? Figure::milliseconds(clock) : std::nan("");
    if (!cache.save(file, index))
        return;
    const double again = Figure::medianOf(rounds, [&] { return obtainTime(path, cache, &index); });
    const bool complete = index.traceCount() == segy.traces;
    Figure::report("index_again", complete ? again : std::nan(""), first, againstIndexing);
    QFile::remove(path);
}

void pageThrough(OvSegyDocument* document)
{
    QEventLoop loop;
    const auto next = std::make_shared<int>(0);
    QObject::connect(document, &OvSegyDocument::gatherLoaded, &loop,
                     [document, next, wait = &loop](int, const auto& data) {
                         if (!data || ++*next >= document->gatherCount())
                             wait->quit();
                         else
                             document->requestGather(*next);
                     });
    document->requestGather(*next);
    loop.exec();
    if (*next < document->gatherCount())
        QTextStream(stderr) << "bench_segy_survey: gather " << *next << " did not come\n";
}

void paging(const QString& folder)
{
    const QString path = folder + "/survey.sgy";
    BenchSegy segy;
    segy.samples = 32767;
    segy.format = 5;
    segy.tracesPerGather = 48;
    segy.traces = (20LL << 30) / segy.traceBytes();
    segy.headerEvery = 1;
    if (!write(segy, path))
        return;
    OvStatus status;
    const auto document = OvSegyDocument::open(path, &status);
    QEventLoop loop;
    QObject::connect(document.data(), &OvSegyDocument::indexComplete, &loop, &QEventLoop::quit);
    if (!document->isIndexComplete())
        loop.exec();
    const qint64 before = Process::tidyAnonymousBytes();
    const qint64 more = Process::peakOf([&] { pageThrough(document.data()); });
    Figure::report("paging_memory", static_cast<double>(before + more) / mebibyte, mostMebibytes,
                   1.0, "MiB");
    QFile::remove(path);
}

double summaryTime(const QString& path)
{
    QElapsedTimer clock;
    clock.start();
    bool shown = false;
    QTimer close;
    QObject::connect(&close, &QTimer::timeout, &close, [&] {
        if (QWidget* box = QApplication::activeModalWidget()) {
            shown = true;
            box->close();
        }
    });
    close.start(0);
    OvTarnpickUtil::displaySegyInfo(path, nullptr);
    return shown ? Figure::milliseconds(clock) : std::nan("");
}

void summary(const QString& folder)
{
    const QString small = folder + "/small.sgy";
    const QString huge = folder + "/huge.sgy";
    BenchSegy segy;
    segy.samples = 2000;
    segy.format = 5;
    segy.traces = 100;
    if (!write(segy, small) || !write(segy, huge) ||
        !QFile::resize(huge, 3600 + segy.traceBytes() * (500000000000LL / segy.traceBytes())))
        return;
    Figure::race(
        "summary_500_gb", 3 * rounds, againstSmallFile, [&] { return summaryTime(huge); },
        [&] { return summaryTime(small); });
}

} // namespace

int main(int argc, char** argv)
{
    const BenchProgram program(argc, argv);
    if (!OvBaseUtil::initialize())
        return BenchProgram::fail("no folder for the data");
    reopening(program.folder());
    paging(program.folder());
    summary(program.folder());
    return 0;
}

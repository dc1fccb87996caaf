#include "fuzz/Entry.h"

#include "OvSeismic/firstbreak/OvFirstBreakFile.h"
#include "OvSeismic/segy/OvGather.h"
#include "OvSeismic/segy/OvSegyDoctor.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "OvSeismic/segy/OvTraceLocator.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

void require(bool held, const char* what)
{
    if (held)
        return;
    fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

#define REQUIRE(condition) require(condition, #condition)

/// Bytes in a file of their own; one for the whole run.
QString fileWith(const QByteArray& bytes, const char* name)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QLatin1String(name));
    QFile file(path);
    REQUIRE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    REQUIRE(file.write(bytes) == bytes.size());
    return path;
}

/// The database driver is a plug-in, which an application object finds.
void needApplication()
{
    static int count = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    if (!QCoreApplication::instance())
        static const QCoreApplication application(count, arguments);
}

void requireSense(const OvSegyFileInfo& info)
{
    REQUIRE(info.traceCount > 0 && info.sampleCount > 0);
    REQUIRE(info.intervalUs > 0.0 && info.metresPerUnit > 0.0);
    REQUIRE(info.firstTraceOffset >= info.labelBytes + 3600);
    REQUIRE(info.firstTraceOffset < info.tracesEnd && info.tracesEnd <= info.fileSize);
    REQUIRE(info.revisionMajor >= 0 && info.revisionMajor <= 2);
}

/// What a walk over the headers finds can be kept and taken again.
void requireLocation(const QString& path, const OvSegyFile& file)
{
    const qint64 last = file.info().traceCount - 1;
    REQUIRE(file.position(last + 1) == -1 && file.position(-1) == -1);
    REQUIRE(file.position(0) == file.info().firstTraceOffset);
    REQUIRE(file.position(last) < file.info().tracesEnd);
    if (file.hasFixedLength())
        return;
    OvSegyFile again;
    REQUIRE(again.open(path).ok() && again.restoreLocator(file.savedLocator()));
    REQUIRE(again.position(last) == file.position(last));
    REQUIRE(again.sampleCount(last) == file.sampleCount(last));
}

void readGathers(const OvSegyFile& file)
{
    OvSegyIndex index;
    REQUIRE(index.build(file).ok());
    REQUIRE(index.traceCount() == file.info().traceCount);
    REQUIRE(index.gatherCount() > 0);
    for (const int gather : {0, index.gatherCount() - 1}) {
        OvGather read;
        REQUIRE(index.readGather(file, gather, &read).ok());
        REQUIRE(read.traceCount() > 0 && read.sampleCount > 0);
        REQUIRE(read.samples.size() == read.headers.size() * std::size_t(read.sampleCount));
    }
}

} // namespace

void Fuzz::segy(const QByteArray& bytes)
{
    const QString path = fileWith(bytes, "line.sgy");
    OvSegyFile file;
    const OvStatus status = file.open(path);
    REQUIRE(status.ok() == file.isOpen() && status.ok() == status.message().isEmpty());
    if (!status)
        return;
    requireSense(file.info());
    REQUIRE(file.textHeader().size() == 40);
    OvSegyIndex first;
    REQUIRE(first.buildFirstGather(file).ok() && first.gatherCount() > 0);
    const bool located = file.locate().ok() && file.locatedCount() > 0;
    REQUIRE(located);
    requireSense(file.info());
    requireLocation(path, file);
    readGathers(file);
    for (const auto depth : {OvSegyDoctor::Depth::Quick, OvSegyDoctor::Depth::Full}) {
        std::vector<OvSegyFinding> findings;
        REQUIRE(OvSegyDoctor::examine(file, depth, &findings).ok() && !findings.empty());
    }
}

void Fuzz::firstBreaks(const QByteArray& bytes)
{
    needApplication();
    const QString path = fileWith(bytes, "line.sgy.fb");
    for (const char* left : {"-wal", "-shm", "-journal"})
        QFile::remove(path + QLatin1String(left));
    OvSegyFileInfo segy;
    segy.path = QStringLiteral("line.sgy");
    segy.traceCount = 100;
    segy.fileSize = 3600 + 100 * 640;
    OvFirstBreakFile file;
    const OvStatus status = file.open(path, segy);
    REQUIRE(status.ok() == file.isOpen());
    if (!status || file.needsUpgrade())
        return;
    const std::vector<qint64> traces = {0, 1, 2, 50, 99};
    OvFirstBreaks breaks;
    // Whether damaged rows can be read is not for sure, that what is read has its size is.
    if (file.read(traces, &breaks))
        REQUIRE(breaks.timesMs.empty() || breaks.timesMs.size() == traces.size());
    breaks.resize(int(traces.size()));
    breaks.timesMs[0] = 12.5F;
    breaks.states[0] = OvPickState(1);
    if (file.write(traces, breaks)) {
        OvFirstBreaks back;
        REQUIRE(file.read(traces, &back).ok() && back.timesMs.size() == traces.size());
        REQUIRE(back.timesMs[0] == 12.5F);
    }
}

void Fuzz::locator(const QByteArray& bytes)
{
    constexpr qint64 fileSize = 1 << 20;
    OvTraceLocator locator;
    if (!OvTraceLocator::restore(bytes, fileSize, &locator))
        return;
    REQUIRE(locator.end() <= fileSize);
    qint64 position = locator.count() > 0 ? locator.position(0) : 0;
    REQUIRE(position >= 0);
    for (qint64 trace = 0; trace < locator.count(); ++trace) {
        REQUIRE(locator.position(trace) >= position);
        position = locator.position(trace);
        REQUIRE(locator.shape(trace).samples <= locator.longest());
    }
    OvTraceLocator again;
    REQUIRE(OvTraceLocator::restore(locator.save(), fileSize, &again));
    REQUIRE(again.count() == locator.count() && again.end() == locator.end());
}

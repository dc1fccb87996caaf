#include "fuzz/Entry.h"

#include "OvSeismic/firstbreak/OvFirstBreakFile.h"
#include "OvSeismic/segy/OvGather.h"
#include "OvSeismic/segy/OvSegyDoctor.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "OvSeismic/segy/OvSegyIndexCache.h"
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
    QString path = folder.filePath(QLatin1String(name));
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

OvSegyFileInfo someSegy()
{
    OvSegyFileInfo segy;
    segy.path = QStringLiteral("line.sgy");
    segy.traceCount = 100;
    segy.fileSize = 3600 + 100 * 640;
    return segy;
}

OvSegyIndexCache::Key someKey()
{
    OvSegyIndexCache::Key key;
    key.text = "key";
    return key;
}

/// A file of 60 traces with one sample of 4 bytes each, in three field records.
QByteArray smallSegy()
{
    constexpr int traces = 60;
    QByteArray bytes(3600 + traces * 244, '\0');
    for (const int place : {3221, 3225, 3217})
        bytes[place] = static_cast<char>(place == 3225 ? 5 : 1);
    for (int trace = 0; trace < traces; ++trace) {
        const int header = 3600 + trace * 244;
        bytes[header + 11] = static_cast<char>(1 + trace / 20);
        bytes[header + 15] = static_cast<char>(1 + trace % 20);
        bytes[header + 39] = static_cast<char>(trace);
        bytes[header + 115] = 1;
    }
    return bytes;
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
    OvFirstBreakFile file;
    const OvStatus status = file.open(path, someSegy());
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

void Fuzz::index(const QByteArray& bytes)
{
    OvSegyIndex index;
    QByteArray locator;
    if (!OvSegyIndexCache::decode(bytes.constData(), bytes.size(), someKey(), &index, &locator))
        return;
    REQUIRE(index.traceCount() > 0 && index.gatherCount() > 0);
    qint64 traces = 0;
    for (int gather = 0; gather < index.gatherCount(); ++gather)
        traces += index.gatherTraceCount(gather);
    REQUIRE(traces == index.traceCount());
    for (const qint64 trace : {qint64(0), traces / 2, traces - 1}) {
        const int gather = index.gatherOfTrace(trace);
        REQUIRE(gather >= 0 && gather < index.gatherCount());
    }
    const std::vector<char> again = OvSegyIndexCache::encode(index, someKey(), locator);
    REQUIRE(!again.empty());
}

QByteArray Fuzz::firstBreaksSeed()
{
    needApplication();
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("seed.fb"));
    OvFirstBreaks breaks;
    breaks.resize(1);
    breaks.timesMs[0] = 5.0F;
    OvFirstBreakFile file;
    REQUIRE(file.open(path, someSegy()).ok() && file.write({7}, breaks).ok());
    file.close();
    QFile seed(path);
    REQUIRE(seed.open(QIODevice::ReadOnly));
    return seed.readAll();
}

QByteArray Fuzz::locatorSeed()
{
    OvTraceLocator locator(3600, 4);
    for (int i = 0; i < 300; ++i)
        locator.append({i * 7 % 50, i % 3});
    return locator.save();
}

QByteArray Fuzz::indexSeed()
{
    OvSegyFile file;
    OvSegyIndex index;
    REQUIRE(file.open(fileWith(smallSegy(), "seed.sgy")).ok() && index.build(file).ok());
    const std::vector<char> bytes = OvSegyIndexCache::encode(index, someKey(), {});
    return {bytes.data(), static_cast<int>(bytes.size())};
}

#include "OvSeismic/firstbreak/OvFirstBreakFile.h"

#include "OvSeismic/firstbreak/OvFirstBreakConnection.h"
#include "OvSeismic/firstbreak/OvFirstBreakRows.h"
#include "OvSeismic/firstbreak/OvFirstBreakSchema.h"
#include "OvSeismic/segy/OvGatherOrder.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QTemporaryFile>

#include <atomic>
#include <functional>
#include <mutex>
#include <set>

struct OvFirstBreakFile::Private
{
    Q_DECLARE_TR_FUNCTIONS(OvFirstBreakFile)

public:
    OvStatus notOpen() const { return OvStatus::failure(tr("No first-break file is open.")); }
    OvStatus readable() const;
    OvStatus writable() const;
    OvStatus connect();
    OvStatus inTransaction(const std::function<OvStatus()>& work) const;
    OvStatus check(const OvFirstBreakUpdate& update) const;
    OvStatus store(std::vector<OvFirstBreakUpdate>* updates) const;
    OvStatus markDone(const std::vector<OvFirstBreakUpdate>& updates) const;
    OvStatus convert(const OvSegyIndex& index);
    OvStatus storeRun(const QString& settings, int gathers) const;
    OvStatus followGrowth(const OvSegyFileInfo& segy) const;

    OvStatus claim(const OvSegyFileInfo& segy);
    void release();

    OvFirstBreakConnection file;
    QString claimed; // the file's place among those that are open in this process
    qint64 traceCount = 0;
    bool byRecord = false;
    // The picks of an old file that cannot be written.
    std::unique_ptr<OvFirstBreakBlocks> converted;
};

namespace {

constexpr char mappingKey[] = "header_mapping";
constexpr char runSettingsKey[] = "run_settings";
constexpr char runGathersKey[] = "run_gathers";

QString newConnectionName()
{
    static std::atomic<int> counter{0};
    return QStringLiteral("OvFirstBreakFile-%1").arg(++counter);
}

bool isWritableFolder(const QString& folder)
{
    // Permission bits do not tell on network shares and under access lists; a file does.
    QTemporaryFile probe(folder + QLatin1String("/.ov-fb-XXXXXX"));
    return probe.open();
}

QString shortHash(const QString& path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    const QByteArray name = (canonical.isEmpty() ? path : canonical).toUtf8();
    const QByteArray hash = QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex();
    return QString::fromLatin1(hash.left(10));
}

// The files that this process has open. While one is, nobody here may open and close it but SQLite:
// closing a file drops all POSIX locks that the process has on it, and another program would then
// take away the log that is still in use.
struct OpenFiles
{
    std::mutex mutex;
    std::multiset<QString> paths;
};

OpenFiles& openFiles()
{
    static OpenFiles files;
    return files;
}

// Traces that have a manual pick in present keep it.
void keepManual(const OvFirstBreaks& present, OvFirstBreaks* breaks)
{
    for (std::size_t i = 0; i < present.states.size(); ++i) {
        if (present.states[i] != OvPickState::Manual)
            continue;
        breaks->timesMs[i] = present.timesMs[i];
        breaks->states[i] = present.states[i];
        breaks->confidences[i] = present.confidences[i];
    }
}

} // namespace

OvStatus OvFirstBreakFile::Private::claim(const OvSegyFileInfo& segy)
{
    OpenFiles& files = openFiles();
    const std::lock_guard<std::mutex> lock(files.mutex);
    OvStatus status;
    if (!QFileInfo::exists(file.path))
        status = OvFirstBreakSchema::create(file.path, segy);
    const QString place = QFileInfo(file.path).canonicalFilePath();
    if (status && files.paths.count(place) == 0)
        status = OvFirstBreakSchema::checkKind(file.path);
    if (status) {
        files.paths.insert(place);
        claimed = place;
    }
    return status;
}

void OvFirstBreakFile::Private::release()
{
    OpenFiles& files = openFiles();
    const std::lock_guard<std::mutex> lock(files.mutex);
    const auto place = files.paths.find(claimed);
    if (place != files.paths.end())
        files.paths.erase(place);
    claimed.clear();
}

OvStatus OvFirstBreakFile::Private::readable() const
{
    if (file.name.isEmpty())
        return notOpen();
    if (byRecord && !converted)
        return file.failure(tr("it is of an older version; it can be used once all traces of the "
                               "SEG-Y file are known."));
    return {};
}

OvStatus OvFirstBreakFile::Private::writable() const
{
    if (file.name.isEmpty())
        return notOpen();
    if (file.readOnly)
        return file.failure(tr("it is read-only; the first breaks cannot be saved."));
    // Writes to a deleted file would succeed and be lost.
    if (!QFileInfo::exists(file.path))
        return file.failure(tr("it was removed or renamed while it was open."));
    return readable();
}

OvStatus OvFirstBreakFile::Private::connect()
{
    file.name = newConnectionName();
    OvStatus status = OvFirstBreakSchema::connect(file);
    if (status && !file.readOnly)
        status = OvFirstBreakSchema::makeDurable(file);
    return status;
}

OvStatus OvFirstBreakFile::Private::inTransaction(const std::function<OvStatus()>& work) const
{
    OvFirstBreakTransaction transaction(file);
    OvStatus status = transaction.begin();
    if (status)
        status = work();
    return status ? transaction.commit() : status;
}

OvStatus OvFirstBreakFile::Private::check(const OvFirstBreakUpdate& update) const
{
    const OvFirstBreaks& breaks = update.breaks;
    if (breaks.timesMs.size() != update.traces.size() ||
        breaks.states.size() != update.traces.size() ||
        breaks.confidences.size() != update.traces.size())
        return file.failure(
            tr("the first breaks of %1 traces are incomplete.").arg(update.traces.size()));
    if (!OvFirstBreakBlocks(traceCount).fits(update.traces))
        return file.failure(tr("the SEG-Y file has no such trace; it has %1.").arg(traceCount));
    return {};
}

OvStatus OvFirstBreakFile::Private::store(std::vector<OvFirstBreakUpdate>* updates) const
{
    std::vector<qint64> traces;
    for (const OvFirstBreakUpdate& update : *updates)
        traces.insert(traces.end(), update.traces.begin(), update.traces.end());
    OvFirstBreakBlocks blocks(traceCount);
    OvStatus status = OvFirstBreakRows::read(file, OvFirstBreakBlocks::numbersOf(traces), &blocks);
    if (!status)
        return status;
    for (OvFirstBreakUpdate& update : *updates) {
        if (update.keepManual)
            keepManual(blocks.read(update.traces), &update.breaks);
        if (update.wantsBefore)
            update.before = blocks.read(update.traces);
        blocks.write(update.traces, update.breaks);
    }
    status = OvFirstBreakRows::write(file, blocks);
    return status ? markDone(*updates) : status;
}

OvStatus OvFirstBreakFile::Private::markDone(const std::vector<OvFirstBreakUpdate>& updates) const
{
    OvStatus status;
    for (const OvFirstBreakUpdate& update : updates) {
        if (status && update.doneGather >= 0)
            status = file.execute(QStringLiteral("INSERT OR IGNORE INTO run_gather VALUES (%1)")
                                      .arg(update.doneGather));
    }
    return status;
}

OvStatus OvFirstBreakFile::Private::convert(const OvSegyIndex& index)
{
    auto blocks = std::make_unique<OvFirstBreakBlocks>(traceCount);
    OvStatus status;
    if (file.readOnly) {
        status = OvFirstBreakRows::readRecords(file, index, blocks.get());
        if (status)
            converted = std::move(blocks);
        return status;
    }
    status = inTransaction([&] {
        // Another program may have been faster.
        if (OvFirstBreakSchema::versionOf(file) != OvFirstBreakSchema::versionByRecord)
            return OvStatus::success();
        OvStatus done = OvFirstBreakRows::readRecords(file, index, blocks.get());
        if (done)
            done = OvFirstBreakSchema::replaceOldTables(file);
        return done ? OvFirstBreakRows::write(file, *blocks) : done;
    });
    byRecord = !status.ok();
    return status;
}

OvStatus OvFirstBreakFile::Private::storeRun(const QString& settings, int gathers) const
{
    OvStatus status = file.execute(QStringLiteral("DELETE FROM run_gather"));
    if (status)
        status = file.setMetaValue(runSettingsKey, settings);
    return status ? file.setMetaValue(runGathersKey, QString::number(gathers)) : status;
}

// A run ends with it: what was the last gather may have more traces now.
OvStatus OvFirstBreakFile::Private::followGrowth(const OvSegyFileInfo& segy) const
{
    return inTransaction([&] {
        const OvStatus status = OvFirstBreakSchema::followGrowth(file, segy);
        return status ? storeRun({}, 0) : status;
    });
}

OvFirstBreakFile::OvFirstBreakFile()
    : d(std::make_unique<Private>())
{
}

OvFirstBreakFile::~OvFirstBreakFile()
{
    close();
}

QString OvFirstBreakFile::pathFor(const QString& segyPath, const QString& fallbackFolder)
{
    const QFileInfo segy(segyPath);
    QString beside = segy.absoluteFilePath() + QLatin1String(".fb");
    const QString name =
        QStringLiteral("%1-%2.fb").arg(segy.fileName(), shortHash(segy.absoluteFilePath()));
    QString fallback = QDir(fallbackFolder).absoluteFilePath(name);
    if (QFileInfo(beside).isWritable())
        return beside;
    // What was picked while the folder could not be written to must not be lost from sight.
    if (QFileInfo::exists(fallback))
        return fallback;
    if (QFileInfo::exists(beside) || isWritableFolder(segy.absolutePath()))
        return beside;
    return fallback;
}

OvStatus OvFirstBreakFile::open(const QString& path, const OvSegyFileInfo& segy)
{
    close();
    d->file.path = QFileInfo(path).absoluteFilePath();
    d->traceCount = segy.traceCount;
    OvStatus status = d->claim(segy);
    if (status) {
        d->file.readOnly = !QFileInfo(d->file.path).isWritable() ||
                           !isWritableFolder(QFileInfo(d->file.path).absolutePath());
        status = d->connect();
    }
    if (status)
        status = OvFirstBreakSchema::check(d->file, segy);
    if (status && !d->file.readOnly && OvFirstBreakSchema::hasGrown(d->file, segy))
        status = d->followGrowth(segy);
    if (status)
        d->byRecord = OvFirstBreakSchema::versionOf(d->file) == OvFirstBreakSchema::versionByRecord;
    else
        close();
    return status;
}

void OvFirstBreakFile::close()
{
    if (isOpen())
        OvFirstBreakSchema::disconnect(d->file);
    if (!d->claimed.isEmpty())
        d->release();
    d = std::make_unique<Private>();
}

bool OvFirstBreakFile::isOpen() const
{
    return !d->file.name.isEmpty();
}

QString OvFirstBreakFile::path() const
{
    return d->file.path;
}

bool OvFirstBreakFile::needsUpgrade() const
{
    return d->byRecord && !d->converted;
}

OvStatus OvFirstBreakFile::upgrade(const OvSegyFile& segy, const OvSegyIndex& index)
{
    if (!needsUpgrade())
        return OvStatus::success();
    if (index.mapping().isDefault() && index.order() == OvGatherOrder())
        return d->convert(index);
    OvSegyIndex byRecord;
    OvStatus status = byRecord.build(segy);
    return status ? d->convert(byRecord) : status;
}

OvStatus OvFirstBreakFile::noteMapping(const QString& text)
{
    OvStatus status = d->writable();
    if (!status || d->file.metaValue(mappingKey) == text)
        return status;
    return d->file.setMetaValue(mappingKey, text);
}

OvStatus OvFirstBreakFile::relaxDurability()
{
    OvStatus status = d->writable();
    return status ? d->file.execute(QStringLiteral("PRAGMA synchronous = NORMAL")) : status;
}

std::vector<qint64> OvFirstBreakFile::blocks() const
{
    std::vector<qint64> numbers;
    if (!d->readable())
        return numbers;
    if (d->converted) {
        for (const auto& block : d->converted->all())
            numbers.push_back(block.first);
        return numbers;
    }
    QSqlQuery query(d->file.database());
    query.setForwardOnly(true);
    query.exec(QStringLiteral("SELECT first_trace FROM trace_block ORDER BY first_trace"));
    while (query.next())
        numbers.push_back(query.value(0).toLongLong() / OvFirstBreakBlocks::size);
    return numbers;
}

OvStatus OvFirstBreakFile::readBlocks(const std::vector<qint64>& numbers,
                                      OvFirstBreakBlocks* blocks) const
{
    OvStatus status = d->readable();
    if (!status || !d->converted)
        return status ? OvFirstBreakRows::read(d->file, numbers, blocks) : status;
    for (const qint64 number : numbers) {
        const auto found = d->converted->all().find(number);
        blocks->insert(number,
                       found == d->converted->all().end() ? OvFirstBreaks() : found->second);
    }
    return status;
}

OvStatus OvFirstBreakFile::read(const std::vector<qint64>& traces, OvFirstBreaks* breaks) const
{
    *breaks = {};
    OvFirstBreakBlocks blocks(d->traceCount);
    OvStatus status = readBlocks(OvFirstBreakBlocks::numbersOf(traces), &blocks);
    if (status)
        *breaks = blocks.read(traces);
    return status;
}

OvStatus OvFirstBreakFile::write(const std::vector<qint64>& traces, const OvFirstBreaks& breaks)
{
    std::vector<OvFirstBreakUpdate> updates(1);
    updates[0].traces = traces;
    updates[0].breaks = breaks;
    return write(&updates);
}

OvStatus OvFirstBreakFile::write(std::vector<OvFirstBreakUpdate>* updates)
{
    OvStatus status = d->writable();
    for (const OvFirstBreakUpdate& update : *updates) {
        if (status)
            status = d->check(update);
    }
    return status ? d->inTransaction([&] { return d->store(updates); }) : status;
}

OvStatus OvFirstBreakFile::readRun(OvFirstBreakRun* run) const
{
    *run = {};
    OvStatus status = d->readable();
    if (!status || d->converted)
        return status;
    run->settings = d->file.metaValue(runSettingsKey);
    run->gathers = d->file.metaValue(runGathersKey).toInt();
    QSqlQuery query(d->file.database());
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("SELECT gather FROM run_gather ORDER BY gather")))
        return d->file.failure(query);
    while (query.next())
        run->done.push_back(query.value(0).toInt());
    return status;
}

OvStatus OvFirstBreakFile::beginRun(const QString& settings, int gathers)
{
    OvStatus ready = d->writable();
    if (!ready)
        return ready;
    return d->inTransaction([&] { return d->storeRun(settings, gathers); });
}

OvStatus OvFirstBreakFile::endRun()
{
    return beginRun({}, 0);
}

qint64 OvFirstBreakFile::dataVersion() const
{
    return isOpen() ? d->file.ask(QStringLiteral("PRAGMA data_version")).toLongLong() : -1;
}

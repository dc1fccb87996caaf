#include "OvGui/document/OvSegyDocument.h"

#include "OvBase/OvProjectManager.h"
#include "OvGui/document/OvFirstBreakStore.h"
#include "OvGui/document/OvGatherReader.h"
#include "OvGui/document/OvIndexLoader.h"
#include "OvGui/document/OvPickHistory.h"
#include "OvGui/document/OvProjectMapping.h"
#include "OvGui/document/OvSegyWatch.h"
#include "OvGui/document/OvTracePick.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>

#include <set>

namespace {

using Registry = QHash<QString, QWeakPointer<OvSegyDocument>>;

Registry& registry()
{
    static Registry documents;
    return documents;
}

QString keyOf(const QString& path)
{
    const QFileInfo file(path);
    const QString canonical = file.canonicalFilePath();
    return canonical.isEmpty() ? file.absoluteFilePath() : canonical;
}

} // namespace

struct OvSegyDocument::Private
{
    Q_DECLARE_TR_FUNCTIONS(OvSegyDocument)

public:
    QString key;
    // Shared with the workers, which may outlive the document.
    std::shared_ptr<OvSegyFile> file = std::make_shared<OvSegyFile>();
    std::unique_ptr<OvFirstBreakStore> store;
    std::unique_ptr<OvIndexLoader> loader;
    std::unique_ptr<OvGatherReader> reader;
    std::unique_ptr<OvPickHistory> history;
    OvSegyWatch watch;
    std::vector<std::shared_ptr<OvSegyFile>> former; // jobs may still read them
    int storingJobs = 0;
    QWeakPointer<OvSegyDocument> me;

    QSharedPointer<OvSegyDocument> self() const { return me.toStrongRef(); }
    void start(OvSegyDocument* q);
    void read(OvSegyDocument* q);
    OvTraceHeaderMapping usableMapping(OvStatus* status) const;
    void connectLoader(OvSegyDocument* q);
    std::vector<qint64> tracesOf(int gather) const;
    OvStatus check(int gather, int breaks) const;
    OvStatus write(OvSegyDocument* q, std::vector<OvFirstBreakUpdate>* updates);
    void announce(OvSegyDocument* q, const std::vector<OvFirstBreakUpdate>& stored);
};

void OvSegyDocument::Private::start(OvSegyDocument* q)
{
    history = std::make_unique<OvPickHistory>(q);
    QObject::connect(&watch, &OvSegyWatch::stateChanged, q, &OvSegyDocument::fileStateChanged);
    QObject::connect(&OvProjectManager::instance(), &OvProjectManager::traceHeaderDefineChanged, q,
                     [this] {
                         const auto keep = self();
                         loader->setMapping(usableMapping(nullptr));
                     });
    read(q);
}

void OvSegyDocument::Private::read(OvSegyDocument* q)
{
    store = std::make_unique<OvFirstBreakStore>(file->info());
    loader = std::make_unique<OvIndexLoader>(file, usableMapping(nullptr));
    reader = std::make_unique<OvGatherReader>(file);
    connectLoader(q);
    // Whoever hears a signal may give up the last reference to the document in it.
    QObject::connect(
        reader.get(), &OvGatherReader::loaded, q,
        [this, q](int gather, const std::shared_ptr<const OvGather>& data, const QString& message) {
            const auto keep = self();
            emit q->gatherLoaded(gather, data, message);
        });
    watch.start(key, file->info().fileSize);
    loader->start();
}

OvTraceHeaderMapping OvSegyDocument::Private::usableMapping(OvStatus* status) const
{
    const OvTraceHeaderMapping mapping = OvProjectMapping::mapping();
    const OvStatus usable = mapping.validate(file->info().traceHeaderBytes());
    if (status)
        *status = usable;
    return usable ? mapping : OvTraceHeaderMapping();
}

void OvSegyDocument::Private::connectLoader(OvSegyDocument* q)
{
    const auto takeIndex = [this] { reader->setIndex(loader->index()); };
    QObject::connect(loader.get(), &OvIndexLoader::firstGatherReady, q, [this, q, takeIndex] {
        const auto keep = self();
        takeIndex();
        emit q->firstGatherReady();
    });
    QObject::connect(loader.get(), &OvIndexLoader::completed, q, [this, q, takeIndex] {
        const auto keep = self();
        takeIndex();
        store->upgrade(*file, *loader->index());
        emit q->indexComplete();
    });
    QObject::connect(loader.get(), &OvIndexLoader::progress, q, &OvSegyDocument::indexProgress);
    QObject::connect(loader.get(), &OvIndexLoader::failed, q, [this, q](const QString& message) {
        const auto keep = self();
        emit q->indexFailed(message);
    });
}

std::vector<qint64> OvSegyDocument::Private::tracesOf(int gather) const
{
    return loader->index()->gatherTraces(gather);
}

OvStatus OvSegyDocument::Private::check(int gather, int breaks) const
{
    const auto index = loader->index();
    if (gather < 0 || gather >= index->gatherCount())
        return OvStatus::failure(tr("%1 has no gather %2.").arg(key).arg(gather + 1));
    const int traces = index->gatherTraceCount(gather);
    if (breaks == traces)
        return OvStatus::success();
    return OvStatus::failure(tr("Gather %1 of %2 has %3 traces, but %4 first breaks were given.")
                                 .arg(gather + 1)
                                 .arg(key)
                                 .arg(traces)
                                 .arg(breaks));
}

OvStatus OvSegyDocument::Private::write(OvSegyDocument* q, std::vector<OvFirstBreakUpdate>* updates)
{
    if (!loader->isComplete())
        return OvStatus::failure(
            tr("First breaks of %1 can be stored once all its headers are read.").arg(key));
    OvStatus status = store->write(updates);
    if (status)
        announce(q, *updates);
    return status;
}

void OvSegyDocument::Private::announce(OvSegyDocument* q,
                                       const std::vector<OvFirstBreakUpdate>& stored)
{
    // Whoever hears a signal may give up the last reference to the document in it.
    const auto keep = self();
    const auto index = loader->index();
    std::vector<qint64> traces;
    std::set<int> gathers;
    for (const OvFirstBreakUpdate& update : stored) {
        traces.insert(traces.end(), update.traces.begin(), update.traces.end());
        for (const qint64 trace : update.traces)
            gathers.insert(index->gatherOfTrace(trace));
    }
    emit q->tracePicksChanged(traces);
    for (const int gather : gathers)
        emit q->firstBreaksChanged(gather);
}

OvSegyDocument::OvSegyDocument()
    : d(std::make_unique<Private>())
{
    qRegisterMetaType<std::shared_ptr<const OvGather>>("std::shared_ptr<const OvGather>");
    qRegisterMetaType<std::vector<qint64>>("std::vector<qint64>");
}

OvSegyDocument::~OvSegyDocument()
{
    registry().remove(d->key);
}

QSharedPointer<OvSegyDocument> OvSegyDocument::open(const QString& path, OvStatus* status)
{
    const QString key = keyOf(path);
    QSharedPointer<OvSegyDocument> known = registry().value(key).toStrongRef();
    if (known) {
        known->d->loader->setMapping(known->d->usableMapping(nullptr)); // of another project
        *status = OvStatus::success();
        return known;
    }
    QSharedPointer<OvSegyDocument> document(new OvSegyDocument);
    *status = document->d->file->open(key);
    if (!*status)
        return {};
    document->d->key = key;
    document->d->me = document;
    registry().insert(key, document);
    document->d->start(document.data());
    return document;
}

QString OvSegyDocument::segyPath() const
{
    return d->key;
}

QString OvSegyDocument::firstBreakPath() const
{
    return d->store->path();
}

const OvSegyFile& OvSegyDocument::file() const
{
    return *d->file;
}

std::shared_ptr<const OvSegyFile> OvSegyDocument::sharedFile() const
{
    return d->file;
}

QString OvSegyDocument::fileMessage() const
{
    return d->watch.message();
}

void OvSegyDocument::checkFile()
{
    d->watch.check();
}

OvStatus OvSegyDocument::reload()
{
    if (d->storingJobs > 0)
        return OvStatus::failure(
            tr("A job is working on %1. Wait for its end or cancel it, then reload the file.")
                .arg(QFileInfo(d->key).fileName()));
    const auto fresh = std::make_shared<OvSegyFile>();
    OvStatus status = fresh->open(d->key);
    if (!status)
        return status;
    d->former.push_back(d->file);
    d->file = fresh;
    d->history->stack()->clear();
    d->read(this);
    return status;
}

bool OvSegyDocument::isIndexComplete() const
{
    return d->loader->isComplete();
}

bool OvSegyDocument::isIndexStale() const
{
    return d->loader->isStale();
}

OvTraceHeaderMapping OvSegyDocument::mapping(OvStatus* status) const
{
    return d->usableMapping(status);
}

bool OvSegyDocument::isIndexing() const
{
    return d->loader->isRunning();
}

int OvSegyDocument::indexPercent() const
{
    return d->loader->percent();
}

QString OvSegyDocument::indexMessage() const
{
    return d->loader->message();
}

void OvSegyDocument::retranslate()
{
    d->loader->retranslate();
}

void OvSegyDocument::readIndex()
{
    d->loader->start();
}

std::shared_ptr<const OvSegyIndex> OvSegyDocument::index() const
{
    return d->loader->index();
}

int OvSegyDocument::gatherCount() const
{
    return index()->gatherCount();
}

void OvSegyDocument::requestGather(int gather)
{
    d->reader->request(gather);
}

std::shared_ptr<const OvGather> OvSegyDocument::cachedGather(int gather)
{
    return d->reader->cached(gather);
}

OvStatus OvSegyDocument::firstBreakStatus() const
{
    return d->store->status();
}

OvFirstBreaks OvSegyDocument::firstBreaks(int gather) const
{
    return firstBreaksOf(d->tracesOf(gather));
}

OvFirstBreaks OvSegyDocument::firstBreaksOf(const std::vector<qint64>& traces) const
{
    // Before the index is complete the first gather may be cut short, and a file of an older
    // version cannot be read.
    return isIndexComplete() ? d->store->read(traces) : OvFirstBreaks();
}

OvStatus OvSegyDocument::setFirstBreaks(int gather, const OvFirstBreaks& breaks)
{
    return setFirstBreaks({{gather, breaks}});
}

OvStatus OvSegyDocument::setFirstBreaks(const QVector<QPair<int, OvFirstBreaks>>& breaks)
{
    std::vector<OvFirstBreakUpdate> updates;
    for (const auto& row : breaks) {
        OvStatus fits = isIndexComplete() ? d->check(row.first, row.second.size()) : OvStatus();
        if (!fits)
            return fits;
        OvFirstBreakUpdate update;
        update.traces = d->tracesOf(row.first);
        update.breaks = row.second;
        updates.push_back(std::move(update));
    }
    return d->write(this, &updates);
}

OvStatus OvSegyDocument::setPicks(int gather, const QVector<OvTracePick>& picks)
{
    const std::vector<qint64> traces = d->tracesOf(gather);
    std::vector<qint64> picked;
    for (const OvTracePick& pick : picks)
        picked.push_back(traces.at(static_cast<std::size_t>(pick.row)));
    return setPicksOf(picked, picks);
}

OvStatus OvSegyDocument::setFirstBreaksOf(const std::vector<qint64>& traces,
                                          const OvFirstBreaks& breaks)
{
    std::vector<OvFirstBreakUpdate> updates(1);
    updates[0].traces = traces;
    updates[0].breaks = breaks;
    return d->write(this, &updates);
}

OvFirstBreakRun OvSegyDocument::unfinishedRun() const
{
    return isIndexComplete() ? d->store->unfinishedRun() : OvFirstBreakRun();
}

void OvSegyDocument::beginJobStorage()
{
    ++d->storingJobs;
    d->store->beginFollowing();
}

void OvSegyDocument::takeStored(const std::vector<OvFirstBreakUpdate>& stored)
{
    d->store->take(stored);
    d->announce(this, stored);
}

void OvSegyDocument::endJobStorage()
{
    --d->storingJobs;
    d->store->endFollowing();
}

OvStatus OvSegyDocument::setPicksOf(const std::vector<qint64>& traces,
                                    const QVector<OvTracePick>& picks)
{
    OvFirstBreaks breaks;
    breaks.resize(picks.size());
    for (int i = 0; i < picks.size(); ++i) {
        OvTracePick pick = picks.at(i);
        pick.row = i;
        pick.putInto(&breaks);
    }
    return setFirstBreaksOf(traces, breaks);
}

OvPickHistory* OvSegyDocument::pickHistory() const
{
    return d->history.get();
}

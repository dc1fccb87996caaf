#include "OvGui/document/OvSegyDocument.h"

#include "OvGui/document/OvFirstBreakStore.h"
#include "OvGui/document/OvGatherReader.h"
#include "OvGui/document/OvIndexLoader.h"
#include "OvGui/document/OvPickHistory.h"

#include <QFileInfo>
#include <QHash>

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
    QString key;
    // Shared with the workers, which may outlive the document.
    std::shared_ptr<OvSegyFile> file = std::make_shared<OvSegyFile>();
    std::unique_ptr<OvFirstBreakStore> store;
    std::unique_ptr<OvIndexLoader> loader;
    std::unique_ptr<OvGatherReader> reader;
    std::unique_ptr<OvPickHistory> history;

    QSharedPointer<OvSegyDocument> self() const { return registry().value(key).toStrongRef(); }
    void start(OvSegyDocument* q);
    void connectLoader(OvSegyDocument* q);
};

void OvSegyDocument::Private::start(OvSegyDocument* q)
{
    store = std::make_unique<OvFirstBreakStore>(file->info());
    loader = std::make_unique<OvIndexLoader>(file);
    reader = std::make_unique<OvGatherReader>(file);
    history = std::make_unique<OvPickHistory>(q);
    connectLoader(q);
    // Whoever hears a signal may give up the last reference to the document in it.
    QObject::connect(
        reader.get(), &OvGatherReader::loaded, q,
        [this, q](int gather, const std::shared_ptr<const OvGather>& data, const QString& message) {
            const auto keep = self();
            emit q->gatherLoaded(gather, data, message);
        });
    loader->start();
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
        emit q->indexComplete();
    });
    QObject::connect(loader.get(), &OvIndexLoader::progress, q, &OvSegyDocument::indexProgress);
    QObject::connect(loader.get(), &OvIndexLoader::failed, q, [this, q](const QString& message) {
        const auto keep = self();
        emit q->indexFailed(message);
    });
}

OvSegyDocument::OvSegyDocument()
    : d(std::make_unique<Private>())
{
    qRegisterMetaType<std::shared_ptr<const OvGather>>("std::shared_ptr<const OvGather>");
}

OvSegyDocument::~OvSegyDocument()
{
    registry().remove(d->key);
}

QSharedPointer<OvSegyDocument> OvSegyDocument::open(const QString& path, OvStatus* status)
{
    const QString key = keyOf(path);
    const QSharedPointer<OvSegyDocument> known = registry().value(key).toStrongRef();
    if (known) {
        *status = OvStatus::success();
        return known;
    }
    QSharedPointer<OvSegyDocument> document(new OvSegyDocument);
    *status = document->d->file->open(key);
    if (!*status)
        return {};
    document->d->key = key;
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

bool OvSegyDocument::isIndexComplete() const
{
    return d->loader->isComplete();
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
    // Before the index is complete the first gather may be cut short, and its row would not fit.
    return isIndexComplete() ? d->store->read(*index(), gather) : OvFirstBreaks();
}

OvStatus OvSegyDocument::setFirstBreaks(int gather, const OvFirstBreaks& breaks)
{
    return setFirstBreaks({{gather, breaks}});
}

OvStatus OvSegyDocument::setFirstBreaks(const QVector<QPair<int, OvFirstBreaks>>& breaks)
{
    if (!isIndexComplete())
        return OvStatus::failure(
            tr("First breaks of %1 can be stored once all its headers are read.").arg(d->key));
    const OvStatus status = d->store->write(*index(), breaks);
    if (!status)
        return status;
    const auto keep = d->self();
    for (const auto& row : breaks)
        emit firstBreaksChanged(row.first);
    return status;
}

OvPickHistory* OvSegyDocument::pickHistory() const
{
    return d->history.get();
}

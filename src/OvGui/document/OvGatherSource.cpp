#include "OvGui/document/OvGatherSource.h"

#include "OvGui/document/OvGatherReader.h"

#include <algorithm>

OvGatherSource::OvGatherSource(QSharedPointer<OvSegyDocument> document, QObject* parent)
    : QObject(parent)
    , m_document(std::move(document))
    , m_background(OvBackground::readPool())
{
    const OvSegyDocument* source = m_document.data();
    connect(source, &OvSegyDocument::firstGatherReady, this, &OvGatherSource::followDocument);
    connect(source, &OvSegyDocument::indexComplete, this, &OvGatherSource::followDocument);
    connect(
        source, &OvSegyDocument::gatherLoaded, this,
        [this](int gather, const std::shared_ptr<const OvGather>& data, const QString& message) {
            if (!isOwn())
                emit gatherLoaded(gather, data, message);
        });
}

OvGatherSource::~OvGatherSource() = default;

// Of its own for each order: the file may have been read anew meanwhile.
void OvGatherSource::makeReader()
{
    m_reader = std::make_unique<OvGatherReader>(m_document->sharedFile());
    connect(
        m_reader.get(), &OvGatherReader::loaded, this,
        [this](int gather, const std::shared_ptr<const OvGather>& data, const QString& message) {
            if (isOwn())
                emit gatherLoaded(gather, data, message);
        });
}

void OvGatherSource::setOrder(const OvGatherOrder& order)
{
    if (order == m_order)
        return;
    m_order = order;
    if (!m_document->isIndexComplete())
        return;
    if (!order.isDefault()) {
        regroup();
        return;
    }
    m_ordered.reset();
    emit indexChanged();
}

bool OvGatherSource::isOrdering() const
{
    return index()->order() != m_order;
}

void OvGatherSource::followDocument()
{
    if (!m_document->isIndexComplete()) {
        m_ordered.reset();
        emit indexChanged();
    } else if (m_order.isDefault()) {
        emit indexChanged();
    } else {
        regroup();
    }
}

void OvGatherSource::regroup()
{
    const std::shared_ptr<const OvSegyIndex> base = m_document->index();
    m_background.run([this, base, order = m_order](const OvBackground::Post& post) {
        const auto ordered = std::make_shared<const OvSegyIndex>(base->regrouped(order));
        post([this, base, ordered] { takeOrdered(base, ordered); });
    });
}

void OvGatherSource::takeOrdered(const std::shared_ptr<const OvSegyIndex>& base,
                                 const std::shared_ptr<const OvSegyIndex>& ordered)
{
    // Another order may have been asked for meanwhile, or the headers read anew.
    if (ordered->order() != m_order || base != m_document->index())
        return;
    m_ordered = ordered;
    makeReader();
    m_reader->setIndex(ordered);
    emit indexChanged();
}

std::shared_ptr<const OvSegyIndex> OvGatherSource::index() const
{
    return isOwn() ? m_ordered : m_document->index();
}

void OvGatherSource::requestGather(int gather)
{
    if (isOwn())
        m_reader->request(gather);
    else
        m_document->requestGather(gather);
}

std::shared_ptr<const OvGather> OvGatherSource::cachedGather(int gather)
{
    return isOwn() ? m_reader->cached(gather) : m_document->cachedGather(gather);
}

OvFirstBreaks OvGatherSource::firstBreaks(int gather) const
{
    return isOwn() ? m_document->firstBreaksOf(m_ordered->gatherTraces(gather))
                   : m_document->firstBreaks(gather);
}

bool OvGatherSource::holdsAny(int gather, const std::vector<qint64>& traces) const
{
    const auto grouping = index();
    return std::any_of(traces.begin(), traces.end(),
                       [&](qint64 trace) { return grouping->gatherOfTrace(trace) == gather; });
}

#include "OvGui/view/OvGatherPane.h"

#include "OvGui/canvas/OvGatherCanvas.h"
#include "OvGui/document/OvTracePick.h"

#include <QFileInfo>

#include <algorithm>

namespace {

constexpr int patienceMs = 200;

} // namespace

OvGatherPane::OvGatherPane(QSharedPointer<OvSegyDocument> document, OvGatherCanvas* canvas)
    : QObject(canvas)
    , m_document(std::move(document))
    , m_canvas(canvas)
{
    m_patience.setSingleShot(true);
    m_patience.start(patienceMs);
    connect(&m_patience, &QTimer::timeout, this, &OvGatherPane::updateMessage);
    connect(canvas, &OvGatherCanvas::gatherPainted, this, [this] {
        m_painted = m_onCanvas == m_current;
        emit showingChanged();
        if (m_painted)
            emit gatherShown(m_current);
        reportFirstBreaks();
    });
    if (m_document)
        connectDocument();
    load();
}

OvGatherPane::~OvGatherPane() = default;

void OvGatherPane::connectDocument()
{
    m_source = new OvGatherSource(m_document, this);
    connect(m_source, &OvGatherSource::gatherLoaded, this, &OvGatherPane::takeLoaded);
    connect(m_source, &OvGatherSource::indexChanged, this, &OvGatherPane::takeIndex);
    const OvSegyDocument* document = m_document.data();
    connect(document, &OvSegyDocument::indexFailed, this, &OvGatherPane::updateMessage);
    connect(document, &OvSegyDocument::indexProgress, this, &OvGatherPane::updateMessage);
    connect(document, &OvSegyDocument::tracePicksChanged, this,
            [this](const std::vector<qint64>& traces) {
                if (m_onCanvas >= 0 && m_source->holdsAny(m_onCanvas, traces))
                    updateBreaks();
            });
}

void OvGatherPane::reportFirstBreaks()
{
    if (m_firstBreaksReported || !m_document)
        return;
    m_firstBreaksReported = true;
    const OvStatus status = m_document->firstBreakStatus();
    if (!status)
        emit info(status.message());
}

int OvGatherPane::gatherCount() const
{
    return m_source ? m_source->gatherCount() : 0;
}

QString OvGatherPane::nameOf(int gather) const
{
    if (gather >= gatherCount())
        return {};
    const auto index = m_source->index();
    return QStringLiteral("%1 %2").arg(OvGatherOrder::name(index->order().key),
                                       index->gatherLabel(gather));
}

void OvGatherPane::showTrace(qint64 trace)
{
    const int gather = m_source ? m_source->index()->gatherOfTrace(trace) : -1;
    if (gather >= 0)
        setCurrentGather(gather);
}

void OvGatherPane::setOrder(const OvGatherOrder& order)
{
    if (m_source)
        m_source->setOrder(order);
    updateMessage();
}

void OvGatherPane::setCurrentGather(int gather)
{
    const int bounded = std::max(0, std::min(gather, gatherCount() - 1));
    if (bounded == m_current)
        return;
    m_current = bounded;
    m_anchor = -1;
    m_error.clear();
    m_painted = false;
    load();
    emit currentGatherChanged(m_current);
    emit showingChanged();
}

bool OvGatherPane::isOnCanvas() const
{
    return m_onCanvas == m_current && m_canvas->gather();
}

bool OvGatherPane::isShowing() const
{
    return m_painted && isOnCanvas();
}

void OvGatherPane::load()
{
    updateMessage();
    if (m_current >= gatherCount() || m_onCanvas == m_current)
        return;
    const auto data = m_source->cachedGather(m_current);
    if (data) {
        show(data);
        return;
    }
    if (m_requested >= 0) // one at a time: whoever leafs quickly wants the last, not all
        return;
    m_requested = m_current;
    m_patience.start(patienceMs);
    m_document->checkFile();
    m_source->requestGather(m_current);
}

void OvGatherPane::takeLoaded(int gather, const std::shared_ptr<const OvGather>& data,
                              const QString& message)
{
    if (gather == m_requested)
        m_requested = -1;
    if (gather != m_current || m_onCanvas == m_current) {
        if (m_onCanvas != m_current && m_error.isEmpty())
            load();
        return;
    }
    if (data) {
        show(data);
        return;
    }
    m_error = message;
    m_onCanvas = -1;
    m_canvas->setGather(nullptr);
    m_document->checkFile(); // which may be why
    updateTitle();
    updateMessage();
    emit showingChanged();
}

void OvGatherPane::show(const std::shared_ptr<const OvGather>& data)
{
    m_onCanvas = m_current;
    m_shownOrder = m_source->index()->order();
    m_shownMapping = m_source->index()->mapping();
    m_shownFile = m_document->sharedFile();
    m_error.clear();
    m_painted = false;
    m_canvas->setGather(data);
    updateBreaks();
    updateTitle();
    updateMessage();
    prefetch();
    emit showingChanged();
}

bool OvGatherPane::isSame(const OvGather& shown) const
{
    const auto index = m_source->index();
    return m_onCanvas == m_current && shown.traceCount() == index->gatherTraceCount(m_current) &&
           m_shownOrder == index->order() && m_shownMapping == index->mapping() &&
           m_shownFile == m_document->sharedFile();
}

void OvGatherPane::takeIndex()
{
    const int before = m_current;
    const auto shown = m_canvas->gather();
    // What stands in for a gather that the first headers did not reach is not what was in view.
    const bool same = m_anchor < 0 && shown && m_current < gatherCount() && isSame(*shown);
    if (!same) {
        // The same traces stay in view, whatever gather they are in now.
        if (m_anchor < 0 && shown && shown->traceCount() > 0)
            m_anchor = shown->headers.front().traceIndex;
        const int gather = m_source->index()->gatherOfTrace(m_anchor);
        if (gather >= 0 || m_document->isIndexComplete())
            m_anchor = -1;
        m_current = gather >= 0 ? gather : std::max(0, std::min(m_current, gatherCount() - 1));
        m_onCanvas = -1;
    }
    m_requested = -1;
    m_error.clear();
    load();
    updateBreaks();
    updateTitle();
    if (same)
        prefetch();
    emit gatherCountChanged();
    if (m_current != before)
        emit currentGatherChanged(m_current);
}

void OvGatherPane::prefetch()
{
    for (const int gather : {m_current - 1, m_current + 1})
        if (gather >= 0 && gather < gatherCount() && !m_source->cachedGather(gather))
            m_source->requestGather(gather);
}

void OvGatherPane::updateBreaks()
{
    if (m_onCanvas >= 0)
        m_canvas->setFirstBreaks(m_source->firstBreaks(m_onCanvas));
    m_canvas->setPreviewPicks(previewPicks());
}

OvFirstBreaks OvGatherPane::previewPicks() const
{
    const auto gather = m_canvas->gather();
    OvFirstBreaks picks;
    for (int row = 0; gather && !m_preview.isEmpty() && row < gather->traceCount(); ++row) {
        const auto known =
            m_previewRows.find(gather->headers[static_cast<std::size_t>(row)].traceIndex);
        if (known == m_previewRows.end())
            continue;
        picks.resize(gather->traceCount());
        OvTracePick pick = OvTracePick::of(m_preview, known->second);
        pick.row = row;
        pick.putInto(&picks);
    }
    return picks;
}

void OvGatherPane::setPreviewPicks(const std::vector<qint64>& traces, const OvFirstBreaks& breaks)
{
    m_preview = breaks;
    m_previewRows.clear();
    for (int row = 0; row < breaks.size(); ++row)
        m_previewRows.emplace(traces[static_cast<std::size_t>(row)], row);
    updateBreaks();
}

void OvGatherPane::updateTitle()
{
    if (!m_document)
        return;
    const auto gather = m_canvas->gather();
    QString place;
    if (gather && m_onCanvas >= 0)
        place = tr("%1 - gather %2 of %3")
                    .arg(nameOf(m_onCanvas), QString::number(m_onCanvas + 1),
                         QString::number(gatherCount()));
    m_canvas->setTitle(QFileInfo(m_document->segyPath()).fileName(), place);
}

void OvGatherPane::updateMessage()
{
    const QString text = message();
    m_canvas->setMessage(text);
    // The status bar hears of it once, not at every per cent.
    const bool counting = m_document && m_document->isIndexing() && m_canvas->gather();
    const QString once = counting && !text.isEmpty() ? tr("Reading headers…") : text;
    if (once == m_lastInfo)
        return;
    m_lastInfo = once;
    emit info(once);
}

QString OvGatherPane::message() const
{
    if (!m_document)
        return tr("There is nothing to show. Open a SEG-Y file.");
    if (!m_error.isEmpty())
        return m_error;
    if (m_document->isIndexing())
        return indexingMessage();
    if (!m_document->indexMessage().isEmpty())
        return m_document->indexMessage();
    if (m_source->isOrdering() && m_document->isIndexComplete())
        return tr("Ordering the traces…");
    if (gatherCount() == 0)
        return tr("%1 holds no traces.").arg(QFileInfo(m_document->segyPath()).fileName());
    if (m_onCanvas == m_current || (m_canvas->gather() && m_patience.isActive()))
        return {};
    return tr("Loading…");
}

QString OvGatherPane::indexingMessage() const
{
    if (!m_canvas->gather())
        return tr("Loading…");
    if (m_patience.isActive())
        return {};
    if (m_document->isIndexComplete())
        return tr("Reading headers by the new mapping… %1 %").arg(m_document->indexPercent());
    return tr("Reading headers… %1 %; showing the first gather").arg(m_document->indexPercent());
}

void OvGatherPane::retranslate()
{
    if (m_document)
        m_document->retranslate();
    updateTitle();
    m_lastInfo = message();
    m_canvas->setMessage(m_lastInfo);
    m_canvas->update();
}

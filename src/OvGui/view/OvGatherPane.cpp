#include "OvGui/view/OvGatherPane.h"

#include "OvGui/canvas/OvGatherCanvas.h"

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
    if (m_document) {
        const OvSegyDocument* source = m_document.data();
        connect(source, &OvSegyDocument::gatherLoaded, this, &OvGatherPane::takeLoaded);
        connect(source, &OvSegyDocument::firstGatherReady, this, &OvGatherPane::takeIndex);
        connect(source, &OvSegyDocument::indexComplete, this, &OvGatherPane::takeIndex);
        connect(source, &OvSegyDocument::indexFailed, this, &OvGatherPane::updateMessage);
        connect(source, &OvSegyDocument::indexProgress, this, &OvGatherPane::updateMessage);
        connect(source, &OvSegyDocument::firstBreaksChanged, this, [this](int gather) {
            if (gather == m_onCanvas)
                updateBreaks();
        });
    }
    load();
}

OvGatherPane::~OvGatherPane() = default;

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
    return m_document ? m_document->gatherCount() : 0;
}

qint32 OvGatherPane::fieldRecord() const
{
    return m_current < gatherCount() ? m_document->index()->fieldRecord(m_current) : 0;
}

void OvGatherPane::setCurrentGather(int gather)
{
    const int bounded = std::max(0, std::min(gather, gatherCount() - 1));
    if (bounded == m_current)
        return;
    m_current = bounded;
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
    const auto data = m_document->cachedGather(m_current);
    if (data) {
        show(data);
        return;
    }
    if (m_requested >= 0) // one at a time: whoever leafs quickly wants the last, not all
        return;
    m_requested = m_current;
    m_patience.start(patienceMs);
    m_document->requestGather(m_current);
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
    updateTitle();
    updateMessage();
    emit showingChanged();
}

void OvGatherPane::show(const std::shared_ptr<const OvGather>& data)
{
    m_onCanvas = m_current;
    m_error.clear();
    m_painted = false;
    m_canvas->setGather(data);
    updateBreaks();
    updateTitle();
    updateMessage();
    prefetch();
    emit showingChanged();
}

void OvGatherPane::takeIndex()
{
    const auto shown = m_canvas->gather();
    const bool same = shown && m_current < gatherCount() &&
                      shown->traceCount() == m_document->index()->gatherTraceCount(m_current);
    if (!same)
        m_onCanvas = -1;
    m_requested = -1;
    m_error.clear();
    load();
    updateBreaks();
    updateTitle();
    if (same)
        prefetch();
    emit gatherCountChanged();
}

void OvGatherPane::prefetch()
{
    for (const int gather : {m_current - 1, m_current + 1})
        if (gather >= 0 && gather < gatherCount() && !m_document->cachedGather(gather))
            m_document->requestGather(gather);
}

void OvGatherPane::updateBreaks()
{
    if (m_onCanvas >= 0)
        m_canvas->setFirstBreaks(m_document->firstBreaks(m_onCanvas));
    m_canvas->setPreviewPicks(m_previewGather == m_onCanvas ? m_preview : OvFirstBreaks());
}

void OvGatherPane::setPreviewPicks(int gather, const OvFirstBreaks& breaks)
{
    m_previewGather = breaks.isEmpty() ? -1 : gather;
    m_preview = breaks;
    updateBreaks();
}

void OvGatherPane::updateTitle()
{
    if (!m_document)
        return;
    const auto gather = m_canvas->gather();
    QString place;
    if (gather && m_onCanvas >= 0)
        place = tr("field record %1 - gather %2 of %3")
                    .arg(gather->fieldRecord)
                    .arg(m_onCanvas + 1)
                    .arg(gatherCount());
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
    if (!once.isEmpty())
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

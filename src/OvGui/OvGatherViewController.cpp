#include "OvGui/OvGatherViewController.h"

#include "OvBase/OvAbstractJob.h"
#include "OvBase/OvDisplayDefineNode.h"
#include "OvBase/OvProjectManager.h"
#include "OvGui/canvas/OvGatherCanvas.h"
#include "OvGui/document/OvPickHistory.h"
#include "OvGui/tools/OvPanTool.h"
#include "OvGui/tools/OvPickTool.h"
#include "OvGui/tools/OvReadoutTool.h"
#include "OvGui/tools/OvZoomTool.h"
#include "OvGui/view/OvBanner.h"
#include "OvGui/view/OvGatherPane.h"
#include "OvGui/view/OvPagingBar.h"
#include "OvGui/view/OvPickDesk.h"
#include "OvGui/view/OvPictureFile.h"
#include "OvGui/view/OvViewNotices.h"

#include <QDynamicPropertyChangeEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr double zoomStep = 1.25;
constexpr double scrollShare = 0.1; // of the view, for an arrow key
constexpr int shareScaleAfterMs = 400;

template <typename Define>
Define defineOf(const QObject* view, const char* name)
{
    return qvariant_cast<Define>(view->property(name));
}

} // namespace

struct OvGatherViewController::Private
{
    Private(OvGatherViewController* view, const QSharedPointer<OvSegyDocument>& document);

    OvGatherViewController* q;
    OvGatherCanvas* canvas;
    OvGatherPane* pane;
    OvPagingBar* bar;
    OvBanner* banner;
    OvViewNotices* notices = nullptr; // a child of the banner; null without a document
    OvPickDesk* desk;                 // a child of the canvas
    OvFitDisplayDefine scale;         // as applied
    QTimer shareScale; // the project learns of a new scale when the wheel has come to rest

    void connectPane();
    void connectBar();
    void setProperties();
    void applyProperty(const QByteArray& name);
    void applyScale();
    void takeScaleFromCanvas();
    void updateBar();
    void takeMapping();
    void updateFirstBreakFile();
    void goToKey(int value);
    bool handleKey(int key, Qt::KeyboardModifiers modifiers);
    bool handlePageKey(int key);
    bool handleScrollKey(int key);
    void retranslate();
};

OvGatherViewController::Private::Private(OvGatherViewController* view,
                                         const QSharedPointer<OvSegyDocument>& document)
    : q(view)
    , canvas(new OvGatherCanvas(view))
    , pane(new OvGatherPane(document, canvas))
    , bar(new OvPagingBar(view))
    , banner(new OvBanner(view))
{
    auto* layout = new QVBoxLayout(q);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(banner);
    layout->addWidget(canvas, 1);
    layout->addWidget(bar);
    q->setFocusProxy(canvas);
    new OvPanTool(canvas);
    new OvZoomTool(canvas);
    auto* readout = new OvReadoutTool(canvas);
    connect(readout, &OvReadoutTool::textChanged, bar, &OvPagingBar::setReadout);
    connect(readout, &OvReadoutTool::textChanged, q, &OvAbstractViewController::outputInfo);
    desk = new OvPickDesk(pane, canvas);
    connect(desk, &OvPickDesk::info, q, &OvAbstractViewController::outputInfo);
    connect(desk, &OvPickDesk::editingChanged, q, &OvGatherViewController::editingChanged);
    shareScale.setSingleShot(true);
    shareScale.setInterval(shareScaleAfterMs);
    connect(&shareScale, &QTimer::timeout, q, [this] {
        if (OvProjectManager::instance().currentWorkspace() == q)
            OvFitDisplayDefineNode().setDefine(scale);
    });
    connect(canvas, &OvGatherCanvas::scaleChosen, q, [this] { takeScaleFromCanvas(); });
    connectPane();
    connectBar();
}

void OvGatherViewController::Private::connectPane()
{
    connect(pane, &OvGatherPane::info, q, &OvAbstractViewController::outputInfo);
    connect(pane, &OvGatherPane::gatherShown, q, &OvGatherViewController::gatherShown);
    connect(pane, &OvGatherPane::gatherCountChanged, q, [this] { updateBar(); });
    connect(pane, &OvGatherPane::currentGatherChanged, q, [this](int gather) {
        updateBar();
        emit q->currentGatherChanged(gather);
    });
    connect(pane, &OvGatherPane::showingChanged, q,
            [this] { q->delegateJob()->setEnabled(pane->isShowing()); });
    if (!pane->document())
        return;
    notices = new OvViewNotices(pane->document(), banner);
    connect(notices, &OvViewNotices::info, q, &OvAbstractViewController::outputInfo);
    connect(banner, &OvBanner::detailsChosen, q, &OvGatherViewController::detailsRequested);
    // The view announces its own end by this signal, when the private part is gone.
    connect(&OvProjectManager::instance(), &OvProjectManager::activeWorkspace, pane,
            [view = q, shown = pane](const OvAbstractViewController* active) {
                if (active == view)
                    shown->document()->checkFile();
            });
    const OvSegyDocument* document = pane->document().data();
    connect(document, &OvSegyDocument::firstBreaksChanged, q, [this] { updateFirstBreakFile(); });
    connect(document, &OvSegyDocument::indexFailed, q, [this] { updateBar(); });
    connect(bar, &OvPagingBar::indexChosen, q, [this] {
        pane->document()->readIndex();
        updateBar();
    });
}

void OvGatherViewController::Private::connectBar()
{
    connect(bar, &OvPagingBar::gatherChosen, pane, &OvGatherPane::setCurrentGather);
    connect(bar, &OvPagingBar::keyChosen, q, [this](int value) { goToKey(value); });
    connect(bar, &OvPagingBar::zoomInChosen, q, &OvGatherViewController::zoomIn);
    connect(bar, &OvPagingBar::zoomOutChosen, q, &OvGatherViewController::zoomOut);
    connect(bar, &OvPagingBar::fitChosen, q, &OvGatherViewController::zoomToFit);
}

void OvGatherViewController::Private::setProperties()
{
    q->setProperty("DisplayDefine", QVariant::fromValue(OvDisplayDefineNode().define()));
    q->setProperty("FitDisplayDefine", QVariant::fromValue(OvFitDisplayDefineNode().define()));
    q->setProperty("TraceHeaderDefine", QVariant::fromValue(OvTraceHeaderDefineNode().define()));
    connect(&OvProjectManager::instance(), &OvProjectManager::traceHeaderDefineChanged, q,
            [this] { takeMapping(); });
    if (!pane->document())
        return;
    q->setProperty("SegyFile", pane->document()->segyPath());
    q->setProperty("FBFile", QString());
    updateFirstBreakFile();
}

// A window that kept an old mapping would hand it back to the project when it becomes active.
void OvGatherViewController::Private::takeMapping()
{
    auto define = defineOf<OvTraceHeaderDefine>(q, "TraceHeaderDefine");
    define.mapping = OvTraceHeaderDefineNode().define().mapping;
    q->setProperty("TraceHeaderDefine", QVariant::fromValue(define));
}

void OvGatherViewController::Private::updateFirstBreakFile()
{
    const QString path = pane->document()->firstBreakPath();
    if (q->property("FBFile").toString() != path && QFileInfo::exists(path))
        q->setProperty("FBFile", path);
}

void OvGatherViewController::Private::applyProperty(const QByteArray& name)
{
    if (name == "DisplayDefine")
        canvas->setDisplayDefine(defineOf<OvDisplayDefine>(q, name));
    else if (name == "FitDisplayDefine")
        applyScale();
    else if (name == "TraceHeaderDefine")
        canvas->setTraceHeaderDefine(q->traceLabels());
    else if (name == "SegyFile" || name == "FBFile")
        emit q->populate();
}

void OvGatherViewController::Private::applyScale()
{
    const auto wanted = defineOf<OvFitDisplayDefine>(q, "FitDisplayDefine");
    if (wanted == scale)
        return;
    scale = wanted;
    if (wanted.fitted)
        canvas->fit();
    else
        canvas->setScale(wanted.traceSpacing, wanted.pixelsPerSecond / 1000.0);
}

void OvGatherViewController::Private::takeScaleFromCanvas()
{
    const OvViewState& state = canvas->viewState();
    OvFitDisplayDefine chosen;
    chosen.fitted = state.isFitted();
    chosen.traceSpacing = state.traceSpacing();
    chosen.pixelsPerSecond = state.pixelsPerMs() * 1000.0;
    if (chosen == scale || (chosen.fitted && scale.fitted))
        return;
    scale = chosen;
    q->setProperty("FitDisplayDefine", QVariant::fromValue(chosen));
    shareScale.start();
}

void OvGatherViewController::Private::updateBar()
{
    const auto index = q->gatherIndex();
    bar->setGather(pane->currentGather(), pane->gatherCount(), index->order().key,
                   pane->gatherCount() > 0 ? index->keyValue(pane->currentGather()) : 0.0);
    const auto document = pane->document();
    bar->setIndexOffered(document && !document->isIndexing() &&
                         (!document->isIndexComplete() || document->isIndexStale()));
}

void OvGatherViewController::Private::goToKey(int value)
{
    const auto index = q->gatherIndex();
    const int gather = index->gatherOfKey(value);
    if (gather >= 0)
        pane->setCurrentGather(gather);
    else
        emit q->outputInfo(
            OvGatherViewController::tr("%1 %2 does not exist.")
                .arg(OvGatherOrder::name(index->order().key), QString::number(value)));
    updateBar();
}

OvGatherViewController::OvGatherViewController(const QSharedPointer<OvSegyDocument>& document,
                                               QWidget* parent)
    : OvPlaneViewController(parent)
    , d(std::make_unique<Private>(this, document))
{
    delegateJob()->setEnabled(false);
    delegateJob()->setTaskName(OvGatherViewController::description());
    d->setProperties();
    if (d->scale == OvFitDisplayDefine()) // the project's scale was never chosen
        d->canvas->openFitted();
    d->updateBar();
    d->retranslate();
}

OvGatherViewController::~OvGatherViewController()
{
    // The children tell of their end to the private part, which is gone by the time QObject deletes
    // them.
    delete d->canvas;
}

QSharedPointer<OvSegyDocument> OvGatherViewController::document() const
{
    return d->pane->document();
}

QString OvGatherViewController::description() const
{
    return document() ? QFileInfo(document()->segyPath()).fileName() : tr("No data");
}

bool OvGatherViewController::editable() const
{
    return document() && document()->firstBreakStatus();
}

QWidget* OvGatherViewController::canvas() const
{
    return d->canvas;
}

int OvGatherViewController::currentGather() const
{
    return d->pane->currentGather();
}

int OvGatherViewController::gatherCount() const
{
    return d->pane->gatherCount();
}

std::shared_ptr<const OvSegyIndex> OvGatherViewController::gatherIndex() const
{
    const OvGatherSource* source = d->pane->source();
    return source ? source->index() : std::make_shared<const OvSegyIndex>();
}

OvGatherOrder OvGatherViewController::gatherOrder() const
{
    const OvGatherSource* source = d->pane->source();
    return source ? source->order() : OvGatherOrder();
}

void OvGatherViewController::setGatherOrder(const OvGatherOrder& order)
{
    if (order == gatherOrder())
        return;
    d->pane->setOrder(order);
    d->canvas->setTraceHeaderDefine(traceLabels());
    emit gatherOrderChanged();
}

OvTraceHeaderDefine OvGatherViewController::traceLabels() const
{
    auto define = defineOf<OvTraceHeaderDefine>(this, "TraceHeaderDefine");
    switch (gatherOrder().sort) {
    case OvGatherSort::Offset:
    case OvGatherSort::AbsoluteOffset:
        define.axisWord = OvTraceHeaderDefine::Offset;
        break;
    case OvGatherSort::Channel:
        define.axisWord = OvTraceHeaderDefine::Channel;
        break;
    case OvGatherSort::Cdp:
        define.axisWord = OvTraceHeaderDefine::Cdp;
        break;
    case OvGatherSort::ReceiverX:
        define.axisWord = OvTraceHeaderDefine::ReceiverX;
        break;
    default:
        break;
    }
    return define;
}

void OvGatherViewController::setCurrentGather(int gather)
{
    d->pane->setCurrentGather(gather);
}

bool OvGatherViewController::isShowingData() const
{
    return d->pane->isShowing();
}

bool OvGatherViewController::Private::handlePageKey(int key)
{
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_PageUp:
        pane->setCurrentGather(pane->currentGather() - 1);
        return true;
    case Qt::Key_Right:
    case Qt::Key_PageDown:
        pane->setCurrentGather(pane->currentGather() + 1);
        return true;
    case Qt::Key_Home:
        pane->setCurrentGather(0);
        return true;
    case Qt::Key_End:
        pane->setCurrentGather(pane->gatherCount() - 1);
        return true;
    default:
        return false;
    }
}

bool OvGatherViewController::Private::handleScrollKey(int key)
{
    const QSizeF step = canvas->viewState().viewSize() * scrollShare;
    switch (key) {
    case Qt::Key_Up:
        canvas->panBy({0.0, step.height()});
        return true;
    case Qt::Key_Down:
        canvas->panBy({0.0, -step.height()});
        return true;
    case Qt::Key_Left:
        canvas->panBy({step.width(), 0.0});
        return true;
    case Qt::Key_Right:
        canvas->panBy({-step.width(), 0.0});
        return true;
    default:
        return false;
    }
}

bool OvGatherViewController::Private::handleKey(int key, Qt::KeyboardModifiers modifiers)
{
    const bool scrolls = modifiers & Qt::ControlModifier;
    if (scrolls || key == Qt::Key_Up || key == Qt::Key_Down)
        return handleScrollKey(key);
    switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        q->zoomIn();
        return true;
    case Qt::Key_Minus:
        q->zoomOut();
        return true;
    case Qt::Key_0:
        q->zoomToFit();
        return true;
    case Qt::Key_E:
        q->setEditing(!q->isEditing());
        return true;
    default:
        return handlePageKey(key);
    }
}

void OvGatherViewController::handleKeyEvent(QKeyEvent* event)
{
    event->setAccepted(d->desk->tool()->keyPress(event) ||
                       d->handleKey(event->key(), event->modifiers()));
}

void OvGatherViewController::keyPressEvent(QKeyEvent* event)
{
    handleKeyEvent(event);
}

void OvGatherViewController::captureScreenshot()
{
    const QString name = QFileInfo(description()).completeBaseName() + '_' +
                         gatherIndex()->gatherLabel(currentGather());
    const QString path = OvPictureFile::askAndSave(this, name, picture());
    if (!path.isEmpty())
        emit outputInfo(tr("Picture written to %1.").arg(path));
}

OvStatus OvGatherViewController::savePicture(const QString& path)
{
    return OvPictureFile::save(picture(), path);
}

QImage OvGatherViewController::picture()
{
    return d->canvas->picture();
}

void OvGatherViewController::zoomIn()
{
    d->canvas->zoomBy(zoomStep);
}

void OvGatherViewController::zoomOut()
{
    d->canvas->zoomBy(1.0 / zoomStep);
}

void OvGatherViewController::zoomToFit()
{
    d->canvas->fit();
}

QString OvGatherViewController::editObstacle() const
{
    return d->desk->obstacle();
}

bool OvGatherViewController::isEditing() const
{
    return d->desk->isEditing();
}

QUndoStack* OvGatherViewController::undoStack() const
{
    return document() ? document()->pickHistory()->stack() : nullptr;
}

void OvGatherViewController::setEditing(bool editing)
{
    d->desk->setEditing(editing);
}

void OvGatherViewController::setPreviewPicks(const std::vector<qint64>& traces,
                                             const OvFirstBreaks& breaks)
{
    d->pane->setPreviewPicks(traces, breaks);
}

void OvGatherViewController::setSnapWindow(int windowMs)
{
    d->desk->tool()->setSnapWindow(windowMs);
}

void OvGatherViewController::undoPickEdit()
{
    d->desk->undo();
}

void OvGatherViewController::redoPickEdit()
{
    d->desk->redo();
}

void OvGatherViewController::toggleRejectedPick()
{
    d->desk->toggleRejected();
}

void OvGatherViewController::classifyFB()
{
    d->desk->classify();
}

void OvGatherViewController::Private::retranslate()
{
    bar->retranslate();
    banner->retranslate();
    if (notices)
        notices->update();
    pane->retranslate();
    canvas->setWhatsThis(OvGatherViewController::tr(
        "The wheel zooms at the mouse, with Ctrl the time only, with "
        "Shift the traces only. Drag to "
        "move; drag with the right button, or with Shift, to zoom to a "
        "rectangle; double-click to see "
        "the whole gather. Left and Right, Page Up and Page Down leaf "
        "through the gathers, Up and Down "
        "scroll, + - and 0 zoom. E turns the editing of picks on and "
        "off: then click or drag "
        "to set picks, with Shift or the right button to remove, with "
        "Ctrl to reject them; Ctrl+Left "
        "and Ctrl+Right choose a trace, Up and Down move its pick, Space "
        "sets, Delete removes, R rejects "
        "it."));
    q->delegateJob()->setTaskName(q->description());
}

void OvGatherViewController::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        d->retranslate();
    OvPlaneViewController::changeEvent(event);
}

bool OvGatherViewController::event(QEvent* event)
{
    if (event->type() == QEvent::DynamicPropertyChange)
        d->applyProperty(static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName());
    return OvPlaneViewController::event(event);
}

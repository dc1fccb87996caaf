#include "OvGui/canvas/OvGatherCanvas.h"

#include "OvGui/canvas/OvCanvasLayout.h"
#include "OvGui/canvas/OvCanvasTool.h"
#include "OvGui/canvas/OvGatherPicture.h"
#include "OvGui/canvas/OvMessagePainter.h"
#include "OvGui/canvas/OvPickPainter.h"
#include "OvGui/canvas/OvTimeAxis.h"
#include "OvGui/canvas/OvTraceAxis.h"

#include <QEvent>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <QWheelEvent>

#include <cmath>
#include <functional>

namespace {

constexpr int titlePadding = 4;
constexpr int gridAlpha = 40;

} // namespace

struct OvGatherCanvas::Private
{
    explicit Private(OvGatherCanvas* canvas);

    OvGatherCanvas* q;
    OvGatherPicture picture;
    OvViewState state;
    OvGatherExtent leastTimes;
    std::shared_ptr<const OvGather> gather;
    OvFirstBreaks breaks;
    OvDisplayDefine define;
    OvTraceHeaderDefine headerDefine;
    OvTraceAxis traceAxis;
    QString title;
    QString message;
    bool timeAxisVisible = true;
    bool paintedOnce = false;
    OvCanvasLayout layout;
    QScrollBar* horizontal;
    QScrollBar* vertical;
    QVector<QPointer<OvCanvasTool>> tools; // asked first: the first
    QPointer<OvCanvasTool> grabber;

    void arrange();
    void updateExtent();
    void applyState();
    void updateBars();
    void scrollToBars();
    template <typename Change>
    void changeView(Change change);
    void paintAll(QPainter* painter, const std::function<void(QPainter*)>& paintTraces);
    void paintAxes(QPainter* painter);
    void paintData(QPainter* painter, const std::function<void(QPainter*)>& paintTraces);
    void paintGrid(QPainter* painter) const;
    void announcePainted();
    template <typename Handler>
    bool offer(Handler handler);
};

OvGatherCanvas::Private::Private(OvGatherCanvas* canvas)
    : q(canvas)
    , horizontal(new QScrollBar(Qt::Horizontal, canvas))
    , vertical(new QScrollBar(Qt::Vertical, canvas))
{
    connect(&picture, &OvGatherPicture::updated, q, QOverload<>::of(&QWidget::update));
    for (QScrollBar* bar : {horizontal, vertical}) {
        bar->setFocusPolicy(Qt::NoFocus);
        bar->setCursor(Qt::ArrowCursor);
        connect(bar, &QScrollBar::valueChanged, q, [this] { scrollToBars(); });
    }
}

void OvGatherCanvas::Private::arrange()
{
    const QFontMetrics metrics = q->fontMetrics();
    OvCanvasLayout::Sizes sizes{};
    sizes.title = metrics.height() + 2 * titlePadding;
    sizes.traceAxis = OvTraceAxis::height(metrics);
    sizes.timeAxis = timeAxisVisible ? OvTimeAxis::width(state, metrics) : titlePadding;
    sizes.bar = q->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, q);
    layout = OvCanvasLayout::of(q->size(), sizes);
    horizontal->setGeometry(layout.horizontalBar);
    vertical->setGeometry(layout.verticalBar);
    state.setViewSize(layout.data.size());
}

void OvGatherCanvas::Private::updateExtent()
{
    OvGatherExtent extent = OvGatherExtent::of(*gather);
    if (!extent.isEmpty())
        extent.uniteTimes(leastTimes);
    state.setExtent(extent);
}

void OvGatherCanvas::Private::applyState()
{
    arrange();
    picture.setView(state, q->devicePixelRatioF());
    updateBars();
    q->update();
}

void OvGatherCanvas::Private::updateBars()
{
    const auto set = [](QScrollBar* bar, double range, double page, double value) {
        const QSignalBlocker blocker(bar);
        bar->setRange(0, static_cast<int>(std::ceil(range)));
        bar->setPageStep(static_cast<int>(page));
        bar->setSingleStep(std::max(1, static_cast<int>(page / 10.0)));
        bar->setValue(static_cast<int>(std::lround(value)));
        bar->setVisible(range >= 1.0);
    };
    const double spacing = state.traceSpacing();
    set(horizontal, (state.maximumLeft() - state.minimumLeft()) * spacing, state.viewSize().width(),
        (state.left() - state.minimumLeft()) * spacing);
    const double start = state.extent().startMs;
    set(vertical, (state.maximumTopMs() - start) * state.pixelsPerMs(), state.viewSize().height(),
        (state.topMs() - start) * state.pixelsPerMs());
}

void OvGatherCanvas::Private::scrollToBars()
{
    changeView([this] {
        state.scrollTo(state.minimumLeft() + horizontal->value() / state.traceSpacing(),
                       state.extent().startMs + vertical->value() / state.pixelsPerMs());
    });
}

template <typename Change>
void OvGatherCanvas::Private::changeView(Change change)
{
    const OvViewState before = state;
    change();
    if (state == before)
        return;
    applyState();
    emit q->viewChanged();
}

OvGatherCanvas::OvGatherCanvas(QWidget* parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
    setObjectName(QStringLiteral("gatherCanvas"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setMinimumSize(160, 120);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

OvGatherCanvas::~OvGatherCanvas()
{
    // Tools are children and may look at the canvas while they go.
    qDeleteAll(findChildren<OvCanvasTool*>(QString(), Qt::FindDirectChildrenOnly));
}

void OvGatherCanvas::setGather(const std::shared_ptr<const OvGather>& gather)
{
    if (gather == d->gather)
        return;
    d->gather = gather;
    d->breaks = {};
    d->paintedOnce = false;
    d->traceAxis = OvTraceAxis(gather, d->headerDefine.axisWord);
    d->picture.setContent(gather, d->define);
    for (const auto& tool : d->tools)
        if (tool)
            tool->leave();
    if (!gather) {
        update();
        return;
    }
    d->updateExtent();
    d->applyState();
    emit viewChanged();
}

std::shared_ptr<const OvGather> OvGatherCanvas::gather() const
{
    return d->gather;
}

void OvGatherCanvas::setFirstBreaks(const OvFirstBreaks& breaks)
{
    d->breaks = breaks;
    update();
}

const OvFirstBreaks& OvGatherCanvas::firstBreaks() const
{
    return d->breaks;
}

void OvGatherCanvas::setDisplayDefine(const OvDisplayDefine& define)
{
    OvDisplayDefine same = d->define;
    same.showPicks = define.showPicks;
    const bool tracesChange = same != define;
    d->define = define;
    if (tracesChange && d->gather)
        d->picture.setContent(d->gather, define);
    update();
}

const OvDisplayDefine& OvGatherCanvas::displayDefine() const
{
    return d->define;
}

void OvGatherCanvas::setTraceHeaderDefine(const OvTraceHeaderDefine& define)
{
    d->headerDefine = define;
    d->traceAxis = OvTraceAxis(d->gather, define.axisWord);
    update();
}

void OvGatherCanvas::setTitle(const QString& title)
{
    d->title = title;
    update();
}

QString OvGatherCanvas::title() const
{
    return d->title;
}

void OvGatherCanvas::setMessage(const QString& message)
{
    if (message == d->message)
        return;
    d->message = message;
    update();
}

QString OvGatherCanvas::message() const
{
    return d->message;
}

void OvGatherCanvas::setTimeAxisVisible(bool visible)
{
    d->timeAxisVisible = visible;
    d->applyState();
}

void OvGatherCanvas::setLeastTimes(const OvGatherExtent& times)
{
    d->leastTimes = times;
    if (d->gather)
        d->changeView([this] { d->updateExtent(); });
}

const OvViewState& OvGatherCanvas::viewState() const
{
    return d->state;
}

void OvGatherCanvas::followView(const OvViewState& other)
{
    d->changeView([this, &other] {
        if (other.isFitted()) {
            d->state.fit();
            return;
        }
        d->state.setScale(other.traceSpacing(), other.pixelsPerMs());
        d->state.scrollTo(other.left(), other.topMs());
    });
}

void OvGatherCanvas::setScale(double traceSpacing, double pixelsPerMs)
{
    d->changeView([=] { d->state.setScale(traceSpacing, pixelsPerMs); });
}

void OvGatherCanvas::fit()
{
    d->changeView([this] { d->state.fit(); });
    emit scaleChosen();
}

void OvGatherCanvas::zoomAt(const QPointF& widgetPoint, double traceFactor, double timeFactor)
{
    const QPointF point = widgetPoint - d->layout.data.topLeft();
    d->changeView([&] { d->state.zoomAt(point, traceFactor, timeFactor); });
    emit scaleChosen();
}

void OvGatherCanvas::zoomBy(double factor)
{
    zoomAt(QRectF(d->layout.data).center(), factor, factor);
}

void OvGatherCanvas::zoomTo(const QRectF& widgetRect)
{
    const QRectF rect = widgetRect.translated(-d->layout.data.topLeft());
    d->changeView([&] { d->state.zoomTo(rect); });
    emit scaleChosen();
}

void OvGatherCanvas::panBy(const QPointF& pixels)
{
    d->changeView([&] { d->state.panBy(pixels); });
}

QRect OvGatherCanvas::dataRect() const
{
    return d->layout.data;
}

QPointF OvGatherCanvas::pointOf(int row, double timeMs) const
{
    return QPointF(d->layout.data.topLeft()) + QPointF(d->state.xOfRow(row), d->state.yOf(timeMs));
}

int OvGatherCanvas::rowAt(const QPointF& widgetPoint) const
{
    const QRectF area(d->layout.data);
    return d->gather && area.contains(widgetPoint) ? d->state.rowAt(widgetPoint.x() - area.left())
                                                   : -1;
}

double OvGatherCanvas::timeAt(const QPointF& widgetPoint) const
{
    return d->state.timeAt(widgetPoint.y() - d->layout.data.top());
}

void OvGatherCanvas::addTool(OvCanvasTool* tool)
{
    d->tools.prepend(tool);
    connect(tool, &QObject::destroyed, this, [this] {
        d->tools.removeAll(nullptr);
        update();
    });
}

bool OvGatherCanvas::isComplete() const
{
    return d->gather && d->picture.isComplete();
}

QImage OvGatherCanvas::picture() const
{
    const double ratio = devicePixelRatioF();
    QImage image((QSizeF(size()) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(palette().color(QPalette::Window));
    QPainter painter(&image);
    painter.setFont(font());
    d->paintAll(&painter, [this](QPainter* p) {
        const QImage traces = d->picture.renderNow();
        p->drawImage(QRectF(QPointF(), d->state.viewSize()), traces);
    });
    return image;
}

QSize OvGatherCanvas::sizeHint() const
{
    return {800, 600};
}

void OvGatherCanvas::Private::paintAll(QPainter* painter,
                                       const std::function<void(QPainter*)>& paintTraces)
{
    paintAxes(painter);
    painter->save();
    painter->setClipRect(layout.data);
    paintData(painter, paintTraces);
    painter->restore();
    painter->setPen(q->palette().color(QPalette::Mid));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(layout.data.adjusted(-1, -1, 0, 0));
}

void OvGatherCanvas::Private::paintAxes(QPainter* painter)
{
    painter->setPen(q->palette().color(QPalette::WindowText));
    const QString shown = painter->fontMetrics().elidedText(
        title, Qt::ElideMiddle, layout.title.width() - 2 * titlePadding);
    QFont bold = painter->font();
    bold.setBold(true);
    const QFont plain = painter->font();
    painter->setFont(bold);
    painter->drawText(layout.title, Qt::AlignCenter, shown);
    painter->setFont(plain);
    if (!gather)
        return;
    traceAxis.paint(painter, layout.traceAxis, state);
    if (timeAxisVisible)
        OvTimeAxis::paint(painter, layout.timeAxis, state);
}

void OvGatherCanvas::Private::paintData(QPainter* painter,
                                        const std::function<void(QPainter*)>& paintTraces)
{
    painter->fillRect(layout.data, Qt::white);
    if (gather) {
        painter->save();
        painter->translate(layout.data.topLeft());
        paintTraces(painter);
        painter->restore();
        paintGrid(painter);
        if (define.showPicks)
            OvPickPainter::paint(painter, layout.data, state, breaks);
        for (const auto& tool : tools)
            if (tool)
                tool->paint(painter);
    }
    OvMessagePainter::paint(painter, layout.data, message, gather != nullptr);
}

void OvGatherCanvas::Private::paintGrid(QPainter* painter) const
{
    painter->setPen(QColor(0, 60, 160, gridAlpha));
    const double apart = 2.6 * painter->fontMetrics().height();
    for (const OvTimeAxis::Tick& tick : OvTimeAxis::ticks(state, apart)) {
        const int y = layout.data.top() + static_cast<int>(std::lround(state.yOf(tick.timeMs)));
        if (tick.major)
            painter->drawLine(layout.data.left(), y, layout.data.right(), y);
    }
}

void OvGatherCanvas::Private::announcePainted()
{
    if (paintedOnce || !q->isComplete())
        return;
    paintedOnce = true;
    // Not from within the paint event: whoever hears it may change the canvas.
    QMetaObject::invokeMethod(q, "gatherPainted", Qt::QueuedConnection);
}

void OvGatherCanvas::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    d->paintAll(&painter, [this](QPainter* p) { d->picture.paint(p); });
    d->announcePainted();
}

void OvGatherCanvas::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    d->applyState();
    emit viewChanged();
}

void OvGatherCanvas::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        d->applyState();
    update();
}

template <typename Handler>
bool OvGatherCanvas::Private::offer(Handler handler)
{
    const auto asked = tools; // a handler may add or delete tools
    for (const auto& tool : asked) {
        if (!tool || !handler(tool.data()))
            continue;
        grabber = tool;
        return true;
    }
    return false;
}

void OvGatherCanvas::mousePressEvent(QMouseEvent* event)
{
    if (d->grabber) {
        d->grabber->mousePress(event);
        return;
    }
    event->setAccepted(d->offer([event](OvCanvasTool* tool) { return tool->mousePress(event); }));
}

void OvGatherCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (d->grabber && event->buttons() != Qt::NoButton) {
        d->grabber->mouseMove(event);
        return;
    }
    d->offer([event](OvCanvasTool* tool) { return tool->mouseMove(event); });
    d->grabber.clear();
}

void OvGatherCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (d->grabber)
        d->grabber->mouseRelease(event);
    if (event->buttons() == Qt::NoButton)
        d->grabber.clear();
}

void OvGatherCanvas::mouseDoubleClickEvent(QMouseEvent* event)
{
    d->offer([event](OvCanvasTool* tool) { return tool->mouseDoubleClick(event); });
}

void OvGatherCanvas::wheelEvent(QWheelEvent* event)
{
    const QPointer<OvCanvasTool> before = d->grabber;
    event->setAccepted(d->offer([event](OvCanvasTool* tool) { return tool->wheel(event); }));
    d->grabber = before;
}

void OvGatherCanvas::keyPressEvent(QKeyEvent* event)
{
    const QPointer<OvCanvasTool> before = d->grabber;
    event->setAccepted(d->offer([event](OvCanvasTool* tool) { return tool->keyPress(event); }));
    d->grabber = before;
}

void OvGatherCanvas::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    for (const auto& tool : d->tools)
        if (tool)
            tool->leave();
}

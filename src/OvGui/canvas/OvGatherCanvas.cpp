#include "OvGui/canvas/OvGatherCanvas.h"

#include "OvGui/canvas/OvCanvasBars.h"
#include "OvGui/canvas/OvCanvasScene.h"
#include "OvGui/canvas/OvCanvasTool.h"
#include "OvGui/canvas/OvCanvasTools.h"
#include "OvGui/canvas/OvGatherPicture.h"
#include "OvGui/canvas/OvTimeAxis.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int padding = 4;

} // namespace

struct OvGatherCanvas::Private
{
    explicit Private(OvGatherCanvas* canvas);

    OvGatherCanvas* q;
    OvGatherPicture picture;
    OvCanvasScene scene;
    OvCanvasBars* bars; // a child of the canvas
    OvCanvasTools tools;
    OvGatherExtent leastTimes;
    bool paintedOnce = false;

    void arrange();
    void updateExtent();
    void applyState();
    template <typename Change>
    void changeView(Change change);
    void announcePainted();
};

OvGatherCanvas::Private::Private(OvGatherCanvas* canvas)
    : q(canvas)
    , bars(new OvCanvasBars(canvas))
{
    connect(&picture, &OvGatherPicture::updated, q, QOverload<>::of(&QWidget::update));
    connect(bars, &OvCanvasBars::moved, q,
            [this] { changeView([this] { bars->scroll(&scene.state); }); });
}

void OvGatherCanvas::Private::arrange()
{
    const QFontMetrics metrics = q->fontMetrics();
    OvCanvasLayout::Sizes sizes{};
    sizes.title = metrics.height() + 2 * padding;
    sizes.traceAxis = OvTraceAxis::height(metrics);
    sizes.timeAxis = scene.timeAxisVisible ? OvTimeAxis::width(scene.state, metrics) : padding;
    sizes.bar = q->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, q);
    scene.layout = OvCanvasLayout::of(q->size(), sizes);
    bars->place(scene.layout.horizontalBar, scene.layout.verticalBar);
    scene.state.setViewSize(scene.layout.data.size());
}

void OvGatherCanvas::Private::updateExtent()
{
    OvGatherExtent extent = OvGatherExtent::of(*scene.gather);
    if (!extent.isEmpty())
        extent.uniteTimes(leastTimes);
    scene.state.setExtent(extent);
}

void OvGatherCanvas::Private::applyState()
{
    arrange();
    picture.setView(scene.state, q->devicePixelRatioF());
    bars->show(scene.state);
    q->update();
}

template <typename Change>
void OvGatherCanvas::Private::changeView(Change change)
{
    const OvViewState before = scene.state;
    change();
    if (scene.state == before)
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
    if (gather == d->scene.gather)
        return;
    d->scene.gather = gather;
    d->scene.breaks = {};
    d->paintedOnce = false;
    d->scene.traceAxis = OvTraceAxis(gather, d->scene.headerDefine.axisWord);
    d->picture.setContent(gather, d->scene.define);
    d->tools.leave();
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
    return d->scene.gather;
}

void OvGatherCanvas::setFirstBreaks(const OvFirstBreaks& breaks)
{
    d->scene.breaks = breaks;
    update();
}

const OvFirstBreaks& OvGatherCanvas::firstBreaks() const
{
    return d->scene.breaks;
}

void OvGatherCanvas::setPreviewPicks(const OvFirstBreaks& breaks)
{
    d->scene.preview = breaks;
    update();
}

const OvFirstBreaks& OvGatherCanvas::previewPicks() const
{
    return d->scene.preview;
}

void OvGatherCanvas::setDisplayDefine(const OvDisplayDefine& define)
{
    OvDisplayDefine same = d->scene.define;
    same.showPicks = define.showPicks;
    const bool tracesChange = same != define;
    d->scene.define = define;
    if (tracesChange && d->scene.gather)
        d->picture.setContent(d->scene.gather, define);
    update();
}

const OvDisplayDefine& OvGatherCanvas::displayDefine() const
{
    return d->scene.define;
}

void OvGatherCanvas::setTraceHeaderDefine(const OvTraceHeaderDefine& define)
{
    d->scene.headerDefine = define;
    d->scene.traceAxis = OvTraceAxis(d->scene.gather, define.axisWord);
    update();
}

void OvGatherCanvas::setTitle(const QString& name, const QString& place)
{
    d->scene.titleName = name;
    d->scene.titlePlace = place;
    update();
}

QString OvGatherCanvas::title() const
{
    return d->scene.title();
}

void OvGatherCanvas::setMessage(const QString& message)
{
    if (message == d->scene.message)
        return;
    d->scene.message = message;
    update();
}

QString OvGatherCanvas::message() const
{
    return d->scene.message;
}

void OvGatherCanvas::setTimeAxisVisible(bool visible)
{
    d->scene.timeAxisVisible = visible;
    d->applyState();
}

void OvGatherCanvas::setLeastTimes(const OvGatherExtent& times)
{
    d->leastTimes = times;
    if (d->scene.gather)
        d->changeView([this] { d->updateExtent(); });
}

const OvViewState& OvGatherCanvas::viewState() const
{
    return d->scene.state;
}

void OvGatherCanvas::followView(const OvViewState& other)
{
    d->changeView([this, &other] {
        if (other.isFitted()) {
            d->scene.state.fit();
            return;
        }
        d->scene.state.setScale(other.traceSpacing(), other.pixelsPerMs());
        d->scene.state.scrollTo(other.left(), other.topMs());
    });
}

void OvGatherCanvas::setScale(double traceSpacing, double pixelsPerMs)
{
    d->changeView([=] { d->scene.state.setScale(traceSpacing, pixelsPerMs); });
}

void OvGatherCanvas::fit()
{
    d->changeView([this] { d->scene.state.fit(); });
    emit scaleChosen();
}

void OvGatherCanvas::openFitted()
{
    d->changeView([this] { d->scene.state.open(); });
}

void OvGatherCanvas::zoomAt(const QPointF& widgetPoint, double traceFactor, double timeFactor)
{
    const QPointF point = widgetPoint - d->scene.layout.data.topLeft();
    d->changeView([&] { d->scene.state.zoomAt(point, traceFactor, timeFactor); });
    emit scaleChosen();
}

void OvGatherCanvas::zoomBy(double factor)
{
    zoomAt(QRectF(d->scene.layout.data).center(), factor, factor);
}

void OvGatherCanvas::zoomTo(const QRectF& widgetRect)
{
    const QRectF rect = widgetRect.translated(-d->scene.layout.data.topLeft());
    d->changeView([&] { d->scene.state.zoomTo(rect); });
    emit scaleChosen();
}

void OvGatherCanvas::panBy(const QPointF& pixels)
{
    d->changeView([&] { d->scene.state.panBy(pixels); });
}

QRect OvGatherCanvas::dataRect() const
{
    return d->scene.layout.data;
}

QPointF OvGatherCanvas::pointOf(int row, double timeMs) const
{
    return QPointF(d->scene.layout.data.topLeft()) +
           QPointF(d->scene.state.xOfRow(row), d->scene.state.yOf(timeMs));
}

int OvGatherCanvas::rowAt(const QPointF& widgetPoint) const
{
    const QRectF area(d->scene.layout.data);
    return d->scene.gather && area.contains(widgetPoint)
               ? d->scene.state.rowAt(widgetPoint.x() - area.left())
               : -1;
}

double OvGatherCanvas::timeAt(const QPointF& widgetPoint) const
{
    return d->scene.state.timeAt(widgetPoint.y() - d->scene.layout.data.top());
}

void OvGatherCanvas::addTool(OvCanvasTool* tool)
{
    d->tools.add(tool);
    connect(tool, &QObject::destroyed, this, [this] {
        d->tools.tidy();
        update();
    });
}

bool OvGatherCanvas::isComplete() const
{
    return d->scene.gather && d->picture.isComplete();
}

QImage OvGatherCanvas::picture() const
{
    const double ratio = devicePixelRatioF();
    QImage image((QSizeF(size()) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(palette().color(QPalette::Window));
    QPainter painter(&image);
    painter.setFont(font());
    const QImage traces = d->picture.renderNow();
    d->scene.paint(
        &painter, palette(),
        [&](QPainter* p) { p->drawImage(QRectF(QPointF(), d->scene.state.viewSize()), traces); },
        [this](QPainter* p) { d->tools.paint(p); });
    return image;
}

QSize OvGatherCanvas::sizeHint() const
{
    return {800, 600};
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
    d->scene.paint(
        &painter, palette(), [this](QPainter* p) { d->picture.paint(p); },
        [this](QPainter* p) { d->tools.paint(p); });
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

void OvGatherCanvas::mousePressEvent(QMouseEvent* event)
{
    d->tools.press(event);
}

void OvGatherCanvas::mouseMoveEvent(QMouseEvent* event)
{
    d->tools.move(event);
}

void OvGatherCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    d->tools.release(event);
}

void OvGatherCanvas::mouseDoubleClickEvent(QMouseEvent* event)
{
    d->tools.doubleClick(event);
}

void OvGatherCanvas::wheelEvent(QWheelEvent* event)
{
    d->tools.wheel(event);
}

void OvGatherCanvas::keyPressEvent(QKeyEvent* event)
{
    d->tools.key(event);
}

void OvGatherCanvas::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    d->tools.leave();
}

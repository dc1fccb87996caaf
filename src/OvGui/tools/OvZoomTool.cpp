#include "OvGui/tools/OvZoomTool.h"

#include "OvGui/canvas/OvGatherCanvas.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace {

constexpr double notch = 120.0; // wheel units
constexpr double factorPerNotch = 1.25;
constexpr double smallestBand = 6.0; // pixels; less is a slip of the hand

} // namespace

bool OvZoomTool::mousePress(QMouseEvent* event)
{
    const bool shifted =
        event->button() == Qt::LeftButton && (event->modifiers() & Qt::ShiftModifier);
    if (!shifted && event->button() != Qt::RightButton)
        return m_dragging;
    if (!canvas()->dataRect().contains(event->pos()))
        return false;
    m_dragging = true;
    m_from = m_to = event->localPos();
    canvas()->setCursor(Qt::CrossCursor);
    return true;
}

bool OvZoomTool::mouseMove(QMouseEvent* event)
{
    if (!m_dragging)
        return false;
    m_to = event->localPos();
    canvas()->update();
    return true;
}

bool OvZoomTool::mouseRelease(QMouseEvent* event)
{
    if (!m_dragging)
        return false;
    m_to = event->localPos();
    const QRectF area = band();
    stop();
    if (area.width() >= smallestBand && area.height() >= smallestBand)
        canvas()->zoomTo(area);
    return true;
}

bool OvZoomTool::mouseDoubleClick(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !canvas()->dataRect().contains(event->pos()))
        return false;
    canvas()->fit();
    return true;
}

bool OvZoomTool::wheel(QWheelEvent* event)
{
    const QPointF at = event->posF();
    if (!QRectF(canvas()->dataRect()).contains(at))
        return false;
    // Some desktops turn the wheel sideways while a modifier is held.
    const int turn =
        event->angleDelta().y() != 0 ? event->angleDelta().y() : event->angleDelta().x();
    const double factor = std::pow(factorPerNotch, turn / notch);
    const bool timeOnly = event->modifiers() & Qt::ControlModifier;
    const bool tracesOnly = event->modifiers() & Qt::ShiftModifier;
    canvas()->zoomAt(at, timeOnly ? 1.0 : factor, tracesOnly ? 1.0 : factor);
    return true;
}

bool OvZoomTool::keyPress(QKeyEvent* event)
{
    if (!m_dragging || event->key() != Qt::Key_Escape)
        return false;
    stop();
    return true;
}

QRectF OvZoomTool::band() const
{
    return QRectF(m_from, m_to).normalized() & QRectF(canvas()->dataRect());
}

void OvZoomTool::stop()
{
    m_dragging = false;
    canvas()->unsetCursor();
    canvas()->update();
}

void OvZoomTool::paint(QPainter* painter)
{
    if (!m_dragging)
        return;
    painter->setPen(QPen(QColor(20, 90, 200), 1.0));
    painter->setBrush(QColor(20, 90, 200, 40));
    painter->drawRect(band());
}

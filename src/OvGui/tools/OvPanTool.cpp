#include "OvGui/tools/OvPanTool.h"

#include "OvGui/canvas/OvGatherCanvas.h"

#include <QMouseEvent>

bool OvPanTool::mousePress(QMouseEvent* event)
{
    const bool wanted = event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton;
    if (!wanted || !canvas()->dataRect().contains(event->pos()))
        return false;
    m_dragging = true;
    m_last = event->localPos();
    canvas()->setCursor(Qt::ClosedHandCursor);
    return true;
}

bool OvPanTool::mouseMove(QMouseEvent* event)
{
    if (!m_dragging)
        return false;
    canvas()->panBy(event->localPos() - m_last);
    m_last = event->localPos();
    return true;
}

bool OvPanTool::mouseRelease(QMouseEvent* event)
{
    Q_UNUSED(event)
    m_dragging = false;
    canvas()->unsetCursor();
    return true;
}

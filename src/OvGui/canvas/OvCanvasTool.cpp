#include "OvGui/canvas/OvCanvasTool.h"

#include "OvGui/canvas/OvGatherCanvas.h"

OvCanvasTool::OvCanvasTool(OvGatherCanvas* canvas)
    : QObject(canvas)
    , m_canvas(canvas)
{
    canvas->addTool(this);
}

OvCanvasTool::~OvCanvasTool() = default;

bool OvCanvasTool::mousePress(QMouseEvent* event)
{
    Q_UNUSED(event)
    return false;
}

bool OvCanvasTool::mouseMove(QMouseEvent* event)
{
    Q_UNUSED(event)
    return false;
}

bool OvCanvasTool::mouseRelease(QMouseEvent* event)
{
    Q_UNUSED(event)
    return false;
}

bool OvCanvasTool::mouseDoubleClick(QMouseEvent* event)
{
    Q_UNUSED(event)
    return false;
}

bool OvCanvasTool::wheel(QWheelEvent* event)
{
    Q_UNUSED(event)
    return false;
}

bool OvCanvasTool::keyPress(QKeyEvent* event)
{
    Q_UNUSED(event)
    return false;
}

void OvCanvasTool::leave() {}

void OvCanvasTool::paint(QPainter* painter)
{
    Q_UNUSED(painter)
}

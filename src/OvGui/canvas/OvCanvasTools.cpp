#include "OvGui/canvas/OvCanvasTools.h"

#include "OvGui/canvas/OvCanvasTool.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

void OvCanvasTools::add(OvCanvasTool* tool)
{
    m_tools.prepend(tool);
}

void OvCanvasTools::tidy()
{
    m_tools.removeAll(nullptr);
}

template <typename Handler>
OvCanvasTool* OvCanvasTools::offer(Handler handler) const
{
    const auto asked = m_tools; // a handler may add or delete tools
    for (const auto& tool : asked)
        if (tool && handler(tool.data()))
            return tool.data();
    return nullptr;
}

void OvCanvasTools::press(QMouseEvent* event)
{
    const auto handler = [event](OvCanvasTool* tool) { return tool->mousePress(event); };
    if (m_grabber)
        handler(m_grabber.data());
    else
        m_grabber = offer(handler);
    event->setAccepted(!m_grabber.isNull());
}

void OvCanvasTools::move(QMouseEvent* event)
{
    if (m_grabber)
        m_grabber->mouseMove(event);
    else
        offer([event](OvCanvasTool* tool) { return tool->mouseMove(event); });
}

void OvCanvasTools::release(QMouseEvent* event)
{
    if (m_grabber)
        m_grabber->mouseRelease(event);
    if (event->buttons() == Qt::NoButton)
        m_grabber.clear();
}

void OvCanvasTools::doubleClick(QMouseEvent* event)
{
    offer([event](OvCanvasTool* tool) { return tool->mouseDoubleClick(event); });
}

void OvCanvasTools::wheel(QWheelEvent* event)
{
    event->setAccepted(offer([event](OvCanvasTool* tool) { return tool->wheel(event); }) !=
                       nullptr);
}

void OvCanvasTools::key(QKeyEvent* event)
{
    event->setAccepted(offer([event](OvCanvasTool* tool) { return tool->keyPress(event); }) !=
                       nullptr);
}

void OvCanvasTools::leave() const
{
    for (const auto& tool : m_tools)
        if (tool)
            tool->leave();
}

void OvCanvasTools::paint(QPainter* painter) const
{
    for (const auto& tool : m_tools)
        if (tool)
            tool->paint(painter);
}

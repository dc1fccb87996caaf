#pragma once

#include "OvGui/canvas/OvCanvasTool.h"

#include <QPointF>
#include <QRectF>

/// The wheel zooms at the mouse (with Ctrl the time only, with Shift the traces only); a right
/// drag, or a left one with Shift, zooms to a rectangle; a double click shows the whole gather.
class OVGUI_EXPORT OvZoomTool : public OvCanvasTool
{
    Q_OBJECT

public:
    using OvCanvasTool::OvCanvasTool;

    bool mousePress(QMouseEvent* event) override;
    bool mouseMove(QMouseEvent* event) override;
    bool mouseRelease(QMouseEvent* event) override;
    bool mouseDoubleClick(QMouseEvent* event) override;
    bool wheel(QWheelEvent* event) override;
    bool keyPress(QKeyEvent* event) override;
    void paint(QPainter* painter) override;

private:
    QRectF band() const;
    void stop();

    bool m_dragging = false;
    QPointF m_from;
    QPointF m_to;
};

#pragma once

#include "OvGui/canvas/OvCanvasTool.h"

#include <QPointF>

/// Left or middle drag moves the data with the mouse.
class OVGUI_EXPORT OvPanTool : public OvCanvasTool
{
    Q_OBJECT

public:
    using OvCanvasTool::OvCanvasTool;

    bool mousePress(QMouseEvent* event) override;
    bool mouseMove(QMouseEvent* event) override;
    bool mouseRelease(QMouseEvent* event) override;

private:
    bool m_dragging = false;
    QPointF m_last;
};

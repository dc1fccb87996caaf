#pragma once

#include "OvGui/OvGuiExport.h"

#include <QObject>

class OvGatherCanvas;
class QKeyEvent;
class QMouseEvent;
class QPainter;
class QWheelEvent;

/// One way of using the mouse on a canvas. Belongs to its canvas, which asks the tool added last
/// first; a tool that uses a press gets all events up to the release. GUI thread.
///
/// Positions of events are widget coordinates of the canvas. The handlers return whether they used
/// the event.
class OVGUI_EXPORT OvCanvasTool : public QObject
{
    Q_OBJECT

public:
    /// Adds itself to the canvas; deleting it takes it off again.
    explicit OvCanvasTool(OvGatherCanvas* canvas);
    ~OvCanvasTool() override;

    OvGatherCanvas* canvas() const { return m_canvas; }

    virtual bool mousePress(QMouseEvent* event);
    virtual bool mouseMove(QMouseEvent* event);
    virtual bool mouseRelease(QMouseEvent* event);
    virtual bool mouseDoubleClick(QMouseEvent* event);
    virtual bool wheel(QWheelEvent* event);
    virtual bool keyPress(QKeyEvent* event);
    /// The mouse has left the canvas, or the gather under it has changed.
    virtual void leave();
    /// Paints over the data, in widget coordinates, clipped to the data area.
    virtual void paint(QPainter* painter);

private:
    OvGatherCanvas* m_canvas;
};

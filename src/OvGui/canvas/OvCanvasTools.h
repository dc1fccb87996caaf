#pragma once

#include <QPointer>
#include <QVector>

class OvCanvasTool;
class QEvent;
class QKeyEvent;
class QMouseEvent;
class QPainter;
class QWheelEvent;

/// Hands the events of a canvas to its tools: the one added last first, and after a press only to
/// the tool that used it, until the release.
class OvCanvasTools
{
public:
    void add(OvCanvasTool* tool);
    /// Forgets tools that were deleted.
    void tidy();

    void press(QMouseEvent* event);
    void move(QMouseEvent* event);
    void release(QMouseEvent* event);
    void doubleClick(QMouseEvent* event);
    void wheel(QWheelEvent* event);
    void key(QKeyEvent* event);
    void leave() const;
    void paint(QPainter* painter) const;

private:
    /// The tool that used the event, or null.
    template <typename Handler>
    OvCanvasTool* offer(Handler handler) const;

    QVector<QPointer<OvCanvasTool>> m_tools; // asked first: the first
    QPointer<OvCanvasTool> m_grabber;
};

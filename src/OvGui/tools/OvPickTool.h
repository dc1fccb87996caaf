#pragma once

#include "OvGui/canvas/OvCanvasTool.h"
#include "OvGui/document/OvTracePick.h"

#include <QMap>
#include <QPointF>

#include <memory>

struct OvGather;

/// Corrects first breaks by hand. Knows only its canvas: it proposes edits, whoever owns the canvas
/// stores them.
///
/// While active: a left click sets or moves the pick of a trace, a left drag those of all traces on
/// its way; with Shift, or with the right button, picks are removed; with Ctrl they are rejected,
/// or restored as manual ones when the first one was rejected. The keys work on the trace cursor, a
/// marked trace that the last click chose: Ctrl+Left and Ctrl+Right move it, Up and Down move its
/// pick by a sample (ten with Shift), Space or Enter sets it, Delete removes it, R rejects and
/// restores it, Escape gives up a drag. New picks snap to arrivals (OvPickSnap).
class OVGUI_EXPORT OvPickTool : public OvCanvasTool
{
    Q_OBJECT

public:
    explicit OvPickTool(OvGatherCanvas* canvas);
    ~OvPickTool() override;

    bool isActive() const { return m_active; }
    void setActive(bool active);
    /// Milliseconds either side of a click; 0 picks exactly where clicked.
    void setSnapWindow(double windowMs) { m_snapMs = windowMs; }
    /// The row that the keys work on, -1 for none.
    int cursorRow() const { return m_cursorRow; }
    void setCursorRow(int row);
    /// The pick under the trace cursor: rejected, or restored. False when there is none.
    bool toggleRejected();

    bool mousePress(QMouseEvent* event) override;
    bool mouseMove(QMouseEvent* event) override;
    bool mouseRelease(QMouseEvent* event) override;
    bool mouseDoubleClick(QMouseEvent* event) override;
    bool keyPress(QKeyEvent* event) override;
    void leave() override;
    void paint(QPainter* painter) override;

signals:
    /// One step of editing; text names it.
    void edited(const QVector<OvTracePick>& picks, const QString& text);

private:
    enum class Stroke { None, Set, Remove, Reject };

    static Stroke strokeOf(const QMouseEvent& event);
    void extend(const QPointF& point);
    void take(int row, double timeMs);
    QVector<OvTracePick> picksOfStroke() const;
    OvTracePick pickOfStroke(int row, double timeMs) const;
    QString strokeText() const;
    void preview();
    void cancel();
    void hover(const QPointF& point);
    double snapped(int row, double timeMs) const;
    OvFirstBreaks breaks() const;
    bool isBusy() const { return m_stroke != Stroke::None; }

    bool moveCursor(int rows);
    bool handleKey(int key, bool many);
    bool nudge(int samples);
    bool setAtCursor();
    bool removeAtCursor();
    double guess(int row) const;
    bool hasCursor() const;

    bool m_active = false;
    double m_snapMs = 0.0;
    int m_cursorRow = -1;
    std::shared_ptr<const OvGather> m_gather; // that the stroke and the hover are on
    Stroke m_stroke = Stroke::None;
    bool m_restores = false;
    QMap<int, double> m_times; // of the stroke
    int m_lastRow = -1;
    double m_lastMs = 0.0;
    OvFirstBreaks m_base; // before the stroke
    int m_hoverRow = -1;
    double m_hoverMs = 0.0;
};

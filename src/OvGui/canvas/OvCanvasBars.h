#pragma once

#include <QObject>

class OvViewState;
class QRect;
class QScrollBar;
class QWidget;

/// The two scroll bars of a canvas; each shows only where there is something to scroll to.
class OvCanvasBars : public QObject
{
    Q_OBJECT

public:
    explicit OvCanvasBars(QWidget* canvas);

    void place(const QRect& horizontal, const QRect& vertical);
    /// Shows where the view stands. Emits nothing.
    void show(const OvViewState& state);
    /// Scrolls a view to where the bars stand.
    void scroll(OvViewState* state) const;

signals:
    void moved();

private:
    static void set(QScrollBar* bar, double range, double page, double value);

    QScrollBar* m_horizontal;
    QScrollBar* m_vertical;
};

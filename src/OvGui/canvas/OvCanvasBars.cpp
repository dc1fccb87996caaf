#include "OvGui/canvas/OvCanvasBars.h"

#include "OvGui/canvas/OvViewState.h"

#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

OvCanvasBars::OvCanvasBars(QWidget* canvas)
    : QObject(canvas)
    , m_horizontal(new QScrollBar(Qt::Horizontal, canvas))
    , m_vertical(new QScrollBar(Qt::Vertical, canvas))
{
    m_horizontal->setObjectName(QStringLiteral("horizontalBar"));
    m_vertical->setObjectName(QStringLiteral("verticalBar"));
    for (QScrollBar* bar : {m_horizontal, m_vertical}) {
        bar->setFocusPolicy(Qt::NoFocus);
        bar->setCursor(Qt::ArrowCursor);
        connect(bar, &QScrollBar::valueChanged, this, &OvCanvasBars::moved);
    }
}

void OvCanvasBars::place(const QRect& horizontal, const QRect& vertical)
{
    m_horizontal->setGeometry(horizontal);
    m_vertical->setGeometry(vertical);
}

void OvCanvasBars::set(QScrollBar* bar, double range, double page, double value)
{
    const QSignalBlocker blocker(bar);
    bar->setRange(0, static_cast<int>(std::ceil(range)));
    bar->setPageStep(static_cast<int>(page));
    bar->setSingleStep(std::max(1, static_cast<int>(page / 10.0)));
    bar->setValue(static_cast<int>(std::lround(value)));
    bar->setVisible(range >= 1.0);
}

void OvCanvasBars::show(const OvViewState& state)
{
    const double left = state.minimumLeft();
    set(m_horizontal, (state.maximumLeft() - left) * state.traceSpacing(), state.viewSize().width(),
        (state.left() - left) * state.traceSpacing());
    const double top = state.extent().startMs;
    set(m_vertical, (state.maximumTopMs() - top) * state.pixelsPerMs(), state.viewSize().height(),
        (state.topMs() - top) * state.pixelsPerMs());
}

void OvCanvasBars::scroll(OvViewState* state) const
{
    state->scrollTo(state->minimumLeft() + m_horizontal->value() / state->traceSpacing(),
                    state->extent().startMs + m_vertical->value() / state->pixelsPerMs());
}

#include "OvGui/tools/OvPickTool.h"

#include "OvGui/canvas/OvGatherCanvas.h"
#include "OvGui/canvas/OvPickPainter.h"
#include "OvSeismic/picking/OvPickSnap.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr int manySamples = 10;
const QColor cursorColor(20, 90, 200, 45);
const QColor cursorEdge(20, 90, 200, 150);

OvTracePick rejectedOrRestored(OvTracePick pick, bool restores)
{
    pick.state = restores ? OvPickState::Manual : OvPickState::Rejected;
    return pick;
}

bool isRejected(const OvFirstBreaks& breaks, int row)
{
    return breaks.states[static_cast<std::size_t>(row)] == OvPickState::Rejected;
}

} // namespace

OvPickTool::OvPickTool(OvGatherCanvas* canvas)
    : OvCanvasTool(canvas)
{
    qRegisterMetaType<QVector<OvTracePick>>();
}

OvPickTool::~OvPickTool() = default;

void OvPickTool::setActive(bool active)
{
    if (active == m_active)
        return;
    cancel();
    m_active = active;
    m_hoverRow = -1;
    if (active)
        canvas()->setCursor(Qt::CrossCursor);
    else
        canvas()->unsetCursor();
    canvas()->update();
}

OvFirstBreaks OvPickTool::breaks() const
{
    OvFirstBreaks complete = canvas()->firstBreaks();
    complete.resize(canvas()->gather() ? canvas()->gather()->traceCount() : 0);
    return complete;
}

double OvPickTool::snapped(int row, double timeMs) const
{
    return OvPickSnap::snap(*canvas()->gather(), row, timeMs, m_snapMs);
}

OvPickTool::Stroke OvPickTool::strokeOf(const QMouseEvent& event)
{
    if (event.button() == Qt::RightButton)
        return Stroke::Remove;
    if (event.button() != Qt::LeftButton)
        return Stroke::None;
    if (event.modifiers() & Qt::ShiftModifier)
        return Stroke::Remove;
    return event.modifiers() & Qt::ControlModifier ? Stroke::Reject : Stroke::Set;
}

bool OvPickTool::mousePress(QMouseEvent* event)
{
    if (isBusy()) { // a second button gives the stroke up
        cancel();
        return true;
    }
    const int row = m_active ? canvas()->rowAt(event->localPos()) : -1;
    const Stroke stroke = strokeOf(*event);
    if (row < 0 || stroke == Stroke::None)
        return false;
    m_gather = canvas()->gather();
    m_base = breaks();
    m_stroke = stroke;
    m_restores = isRejected(m_base, row);
    m_times.clear();
    m_lastRow = -1;
    setCursorRow(row);
    extend(event->localPos());
    return true;
}

bool OvPickTool::mouseMove(QMouseEvent* event)
{
    if (!m_active)
        return false;
    if (isBusy())
        extend(event->localPos());
    else
        hover(event->localPos());
    return isBusy();
}

bool OvPickTool::mouseRelease(QMouseEvent* event)
{
    if (!isBusy())
        return false;
    extend(event->localPos());
    const QVector<OvTracePick> picks = picksOfStroke();
    const QString text = strokeText();
    const int row = m_lastRow;
    cancel();
    setCursorRow(row);
    if (!picks.isEmpty())
        emit edited(picks, text);
    if (m_active) // whoever stores may have closed the editing
        hover(event->localPos());
    return true;
}

bool OvPickTool::mouseDoubleClick(QMouseEvent* event)
{
    // Clicks in quick succession are clicks.
    return mousePress(event) && mouseRelease(event);
}

void OvPickTool::extend(const QPointF& point)
{
    const QRectF area(canvas()->dataRect());
    const QPointF inside(std::clamp(point.x(), area.left(), area.right() - 1.0),
                         std::clamp(point.y(), area.top(), area.bottom() - 1.0));
    const int row = canvas()->rowAt(inside);
    if (row < 0)
        return;
    const double time = canvas()->timeAt(inside);
    const int from = m_lastRow < 0 ? row : m_lastRow;
    const int direction = row < from ? -1 : 1;
    // The mouse skips traces when it moves fast; the line between is meant.
    for (int at = from + (from == row ? 0 : direction); at != row + direction; at += direction) {
        const double share = row == from ? 1.0 : double(at - from) / (row - from);
        take(at, m_lastRow < 0 ? time : m_lastMs + share * (time - m_lastMs));
    }
    m_lastRow = row;
    m_lastMs = time;
    preview();
}

void OvPickTool::take(int row, double timeMs)
{
    m_times[row] = m_stroke == Stroke::Set ? snapped(row, timeMs) : timeMs;
}

OvTracePick OvPickTool::pickOfStroke(int row, double timeMs) const
{
    if (m_stroke == Stroke::Set)
        return OvTracePick::manual(row, timeMs);
    if (m_stroke == Stroke::Remove)
        return OvTracePick::none(row);
    const OvTracePick present = OvTracePick::of(m_base, row);
    return isRejected(m_base, row) == m_restores ? rejectedOrRestored(present, m_restores)
                                                 : present;
}

QVector<OvTracePick> OvPickTool::picksOfStroke() const
{
    QVector<OvTracePick> picks;
    for (auto at = m_times.begin(); at != m_times.end(); ++at)
        if (m_stroke == Stroke::Set || m_base.hasPick(at.key()))
            picks.append(pickOfStroke(at.key(), at.value()));
    return picks;
}

QString OvPickTool::strokeText() const
{
    switch (m_stroke) {
    case Stroke::Remove:
        return tr("Remove Picks");
    case Stroke::Reject:
        return m_restores ? tr("Restore Picks") : tr("Reject Picks");
    default:
        return tr("Set Picks");
    }
}

void OvPickTool::preview()
{
    OvFirstBreaks shown = m_base;
    const QVector<OvTracePick> picks = picksOfStroke();
    for (const OvTracePick& pick : picks)
        pick.putInto(&shown);
    canvas()->setFirstBreaks(shown);
}

void OvPickTool::cancel()
{
    if (!isBusy())
        return;
    m_stroke = Stroke::None;
    if (canvas()->gather() == m_gather)
        canvas()->setFirstBreaks(m_base);
    m_times.clear();
}

void OvPickTool::hover(const QPointF& point)
{
    const int row = canvas()->rowAt(point);
    if (canvas()->cursor().shape() != Qt::CrossCursor) // another tool has set its own
        canvas()->setCursor(Qt::CrossCursor);
    if (row < 0 && m_hoverRow < 0)
        return;
    m_hoverRow = row;
    if (row >= 0)
        m_hoverMs = snapped(row, canvas()->timeAt(point));
    canvas()->update();
}

void OvPickTool::leave()
{
    m_hoverRow = -1;
    if (canvas()->gather() != m_gather) {
        cancel();
        m_gather = canvas()->gather();
    }
    canvas()->update();
}

bool OvPickTool::hasCursor() const
{
    return canvas()->gather() && m_cursorRow >= 0 && m_cursorRow < canvas()->gather()->traceCount();
}

void OvPickTool::setCursorRow(int row)
{
    m_cursorRow = row;
    if (!m_active || !hasCursor())
        return;
    const QRect area = canvas()->dataRect();
    const double x = canvas()->pointOf(row, 0.0).x();
    const double left = area.left() - x;
    const double right = area.right() - x;
    if (left > 0.0 || right < 0.0)
        canvas()->panBy({area.center().x() - x, 0.0});
    canvas()->update();
}

bool OvPickTool::moveCursor(int rows)
{
    const auto gather = canvas()->gather();
    if (!gather || gather->traceCount() == 0)
        return false;
    const int middle = canvas()->rowAt(QRectF(canvas()->dataRect()).center());
    const int row = hasCursor() ? m_cursorRow + rows : std::max(0, middle);
    setCursorRow(std::clamp(row, 0, gather->traceCount() - 1));
    return true;
}

bool OvPickTool::keyPress(QKeyEvent* event)
{
    if (!m_active)
        return false;
    if (event->key() == Qt::Key_Escape && isBusy()) {
        cancel();
        return true;
    }
    if (isBusy())
        return false;
    if (event->modifiers() & Qt::ControlModifier) {
        if (event->key() != Qt::Key_Left && event->key() != Qt::Key_Right)
            return false;
        return moveCursor(event->key() == Qt::Key_Left ? -1 : 1);
    }
    return hasCursor() && handleKey(event->key(), event->modifiers() & Qt::ShiftModifier);
}

bool OvPickTool::handleKey(int key, bool many)
{
    const int samples = many ? manySamples : 1;
    switch (key) {
    case Qt::Key_Up:
        return nudge(-samples);
    case Qt::Key_Down:
        return nudge(samples);
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return setAtCursor();
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        return removeAtCursor();
    case Qt::Key_R:
        return toggleRejected();
    default:
        return false;
    }
}

bool OvPickTool::nudge(int samples)
{
    const OvTracePick pick = OvTracePick::of(breaks(), m_cursorRow);
    if (!pick.isPicked())
        return false;
    const OvGather& gather = *canvas()->gather();
    const double sample = gather.sampleAt(m_cursorRow, static_cast<double>(pick.timeMs)) + samples;
    const double bounded = std::clamp(sample, 0.0, double(gather.sampleCount - 1));
    emit edited({OvTracePick::manual(m_cursorRow, gather.timeMs(m_cursorRow, bounded))},
                tr("Move Pick"));
    return true;
}

// Where the picks beside a trace point to; the middle of the view without any.
double OvPickTool::guess(int row) const
{
    const OvFirstBreaks known = breaks();
    const auto next = [&known, row](int step) {
        int at = row + step;
        while (at >= 0 && at < known.size() && (!known.hasPick(at) || isRejected(known, at)))
            at += step;
        return at >= 0 && at < known.size() ? at : -1;
    };
    const auto time = [&known](int at) {
        return static_cast<double>(known.timesMs[static_cast<std::size_t>(at)]);
    };
    const int before = next(-1);
    const int after = next(1);
    if (before >= 0 && after >= 0)
        return time(before) + (time(after) - time(before)) * (row - before) / (after - before);
    if (before >= 0 || after >= 0)
        return time(std::max(before, after));
    return canvas()->timeAt(QRectF(canvas()->dataRect()).center());
}

bool OvPickTool::setAtCursor()
{
    const OvTracePick pick = OvTracePick::of(breaks(), m_cursorRow);
    const double from = pick.isPicked() ? static_cast<double>(pick.timeMs) : guess(m_cursorRow);
    emit edited({OvTracePick::manual(m_cursorRow, snapped(m_cursorRow, from))}, tr("Set Picks"));
    return true;
}

bool OvPickTool::removeAtCursor()
{
    emit edited({OvTracePick::none(m_cursorRow)}, tr("Remove Picks"));
    return true;
}

bool OvPickTool::toggleRejected()
{
    const OvFirstBreaks known = breaks();
    if (!m_active || !hasCursor() || !known.hasPick(m_cursorRow))
        return false;
    const bool restores = isRejected(known, m_cursorRow);
    emit edited({rejectedOrRestored(OvTracePick::of(known, m_cursorRow), restores)},
                restores ? tr("Restore Picks") : tr("Reject Picks"));
    return true;
}

void OvPickTool::paint(QPainter* painter)
{
    if (!m_active || !canvas()->gather())
        return;
    const QRectF area(canvas()->dataRect());
    if (hasCursor()) {
        const double width = std::max(3.0, canvas()->viewState().traceSpacing());
        const double x = canvas()->pointOf(m_cursorRow, 0.0).x();
        const QRectF strip(x - width / 2.0, area.top(), width, area.height());
        painter->fillRect(strip, cursorColor);
        painter->setPen(cursorEdge);
        painter->drawLine(strip.topLeft(), strip.bottomLeft());
        painter->drawLine(strip.topRight(), strip.bottomRight());
    }
    if (m_hoverRow < 0 || isBusy())
        return;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(Qt::white, 3.5));
    const QPointF at = canvas()->pointOf(m_hoverRow, m_hoverMs);
    painter->drawEllipse(at, 5.0, 5.0);
    painter->setPen(QPen(OvPickPainter::color(OvPickState::Manual).darker(130), 1.5));
    painter->drawEllipse(at, 5.0, 5.0);
}

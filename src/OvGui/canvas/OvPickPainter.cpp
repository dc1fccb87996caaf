#include "OvGui/canvas/OvPickPainter.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

const QColor outlineLight(255, 255, 255);
const QColor outlineDark(40, 40, 40);

double halfWidth(const OvViewState& state)
{
    return std::clamp(state.traceSpacing() * 0.45, 1.5, 7.0);
}

void paintBar(QPainter* painter, const QPointF& at, double half)
{
    // On whole pixels: a bar of two rows blurs away between them.
    const QRectF bar(std::round(at.x() - half), std::round(at.y()) - 1.0, std::round(2.0 * half),
                     2.0);
    painter->fillRect(bar.adjusted(-1.0, -1.0, 1.0, 1.0), outlineLight);
    painter->fillRect(bar, OvPickPainter::color(OvPickState::Automatic));
}

void paintDisc(QPainter* painter, const QPointF& at, double half)
{
    const double radius = std::clamp(half, 2.0, 4.5);
    painter->setPen(QPen(outlineDark, 1.2));
    painter->setBrush(OvPickPainter::color(OvPickState::Manual));
    painter->drawEllipse(at, radius, radius);
}

void paintCross(QPainter* painter, const QPointF& at, double half)
{
    const double arm = std::clamp(half, 2.0, 4.0);
    const QLineF lines[] = {{at.x() - arm, at.y() - arm, at.x() + arm, at.y() + arm},
                            {at.x() - arm, at.y() + arm, at.x() + arm, at.y() - arm}};
    painter->setPen(QPen(outlineLight, 4.0, Qt::SolidLine, Qt::RoundCap));
    painter->drawLines(lines, 2);
    painter->setPen(QPen(OvPickPainter::color(OvPickState::Rejected), 2.0));
    painter->drawLines(lines, 2);
}

void paintPick(QPainter* painter, OvPickState pick, const QPointF& at, double half)
{
    if (pick == OvPickState::Manual)
        paintDisc(painter, at, half);
    else if (pick == OvPickState::Rejected)
        paintCross(painter, at, half);
    else
        paintBar(painter, at, half);
}

void paintRing(QPainter* painter, const QPointF& at, double half)
{
    const double radius = std::clamp(half, 2.5, 5.0);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(outlineLight, 3.5));
    painter->drawEllipse(at, radius, radius);
    painter->setPen(QPen(OvPickPainter::previewColor(), 1.8));
    painter->drawEllipse(at, radius, radius);
}

using PaintOne = void (*)(QPainter* painter, OvPickState pick, const QPointF& at, double half);

void paintAll(QPainter* painter, const QRect& area, const OvViewState& state,
              const OvFirstBreaks& breaks, PaintOne paintOne)
{
    const int count = std::min(breaks.size(), state.extent().traceCount);
    const auto first = static_cast<int>(std::clamp(state.left() - 1.0, 0.0, double(count)));
    const auto end = static_cast<int>(
        std::clamp(state.left() + state.visibleTraces() + 1.0, 0.0, double(count)));
    const double half = halfWidth(state);
    painter->save();
    painter->setClipRect(area, Qt::IntersectClip);
    painter->setRenderHint(QPainter::Antialiasing);
    for (int row = first; row < end; ++row) {
        if (!breaks.hasPick(row))
            continue;
        const auto i = static_cast<std::size_t>(row);
        const double y = state.yOf(static_cast<double>(breaks.timesMs[i]));
        if (y < -half || y > area.height() + half)
            continue;
        paintOne(painter, breaks.states[i], QPointF(area.topLeft()) + QPointF(state.xOfRow(row), y),
                 half);
    }
    painter->restore();
}

} // namespace

QColor OvPickPainter::color(OvPickState state)
{
    switch (state) {
    case OvPickState::Manual:
        return {255, 200, 0};
    case OvPickState::Rejected:
        return {190, 0, 200};
    default:
        return {0, 160, 70};
    }
}

QColor OvPickPainter::previewColor()
{
    return {0, 105, 235};
}

void OvPickPainter::paint(QPainter* painter, const QRect& area, const OvViewState& state,
                          const OvFirstBreaks& breaks)
{
    paintAll(painter, area, state, breaks, paintPick);
}

void OvPickPainter::paintPreview(QPainter* painter, const QRect& area, const OvViewState& state,
                                 const OvFirstBreaks& breaks)
{
    paintAll(painter, area, state, breaks,
             [](QPainter* ring, OvPickState, const QPointF& at, double half) {
                 paintRing(ring, at, half);
             });
}

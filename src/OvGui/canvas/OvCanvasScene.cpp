#include "OvGui/canvas/OvCanvasScene.h"

#include "OvGui/canvas/OvMessagePainter.h"
#include "OvGui/canvas/OvPickPainter.h"
#include "OvGui/canvas/OvTimeAxis.h"

#include <QFontMetrics>
#include <QPainter>

#include <cmath>

namespace {

constexpr int titlePadding = 4;
const QColor gridColor(0, 60, 160, 40);

} // namespace

void OvCanvasScene::paint(QPainter* painter, const QPalette& palette, const Paint& paintTraces,
                          const Paint& paintTools) const
{
    painter->setPen(palette.color(QPalette::WindowText));
    paintTitle(painter);
    if (gather)
        paintAxes(painter);
    painter->save();
    painter->setClipRect(layout.data);
    paintData(painter, paintTraces, paintTools);
    painter->restore();
    painter->setPen(palette.color(QPalette::Mid));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(layout.data.adjusted(-1, -1, 0, 0));
}

QString OvCanvasScene::titleOf(const QString& name) const
{
    return titlePlace.isEmpty() ? name : name + QStringLiteral(" - ") + titlePlace;
}

void OvCanvasScene::paintTitle(QPainter* painter) const
{
    const QFont plain = painter->font();
    QFont bold = plain;
    bold.setBold(true);
    painter->setFont(bold);
    const QFontMetrics metrics = painter->fontMetrics();
    const int room = layout.title.width() - 2 * titlePadding;
    const int forName = room - OvTimeAxis::textWidth(metrics, titleOf(QString()));
    const QString name = metrics.elidedText(titleName, Qt::ElideMiddle, qMax(0, forName));
    painter->drawText(layout.title, Qt::AlignCenter,
                      metrics.elidedText(titleOf(name), Qt::ElideRight, room));
    painter->setFont(plain);
}

void OvCanvasScene::paintAxes(QPainter* painter) const
{
    traceAxis.paint(painter, layout.traceAxis, state);
    if (timeAxisVisible)
        OvTimeAxis::paint(painter, layout.timeAxis, state);
}

void OvCanvasScene::paintData(QPainter* painter, const Paint& paintTraces,
                              const Paint& paintTools) const
{
    painter->fillRect(layout.data, Qt::white);
    if (gather) {
        painter->save();
        painter->translate(layout.data.topLeft());
        paintTraces(painter);
        painter->restore();
        paintGrid(painter);
        if (define.showPicks)
            OvPickPainter::paint(painter, layout.data, state, breaks);
        OvPickPainter::paintPreview(painter, layout.data, state, preview);
        paintTools(painter);
    }
    OvMessagePainter::paint(painter, layout.data, message, gather != nullptr);
}

void OvCanvasScene::paintGrid(QPainter* painter) const
{
    painter->setPen(gridColor);
    const double apart = OvTimeAxis::labelDistance(painter->fontMetrics());
    const auto ticks = OvTimeAxis::ticks(state, apart);
    for (const OvTimeAxis::Tick& tick : ticks) {
        const int y = layout.data.top() + static_cast<int>(std::lround(state.yOf(tick.timeMs)));
        if (tick.major)
            painter->drawLine(layout.data.left(), y, layout.data.right(), y);
    }
}

#include "OvGui/canvas/OvMessagePainter.h"

#include <QPainter>

namespace {

constexpr int padding = 10;
constexpr int widestText = 560;
const QColor cardFill(246, 247, 249);
const QColor cardLine(190, 196, 204);
const QColor stripFill(30, 36, 44, 215);

QRect textRect(QPainter* painter, const QRect& area, const QString& text)
{
    const QRect room(0, 0, qMax(60, qMin(widestText, area.width() - 4 * padding)), area.height());
    return painter->boundingRect(room, Qt::AlignCenter | Qt::TextWordWrap, text);
}

void paintBox(QPainter* painter, const QRect& box, const QColor& fill, const QColor& line)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(line);
    painter->setBrush(fill);
    painter->drawRoundedRect(QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5), 6.0, 6.0);
}

} // namespace

void OvMessagePainter::paint(QPainter* painter, const QRect& area, const QString& text,
                             bool overData)
{
    if (text.isEmpty())
        return;
    painter->save();
    QRect rect = textRect(painter, area, text);
    if (overData) {
        rect.moveTo(area.left() + 2 * padding, area.bottom() - 2 * padding - rect.height());
        const int side = padding / 2;
        paintBox(painter, rect.adjusted(-padding, -side, padding, side), stripFill, stripFill);
        painter->setPen(Qt::white);
    } else {
        rect.moveCenter(area.center());
        paintBox(painter, rect.adjusted(-2 * padding, -padding, 2 * padding, padding), cardFill,
                 cardLine);
        painter->setPen(QColor(40, 44, 52));
    }
    painter->drawText(rect, Qt::AlignCenter | Qt::TextWordWrap, text);
    painter->restore();
}

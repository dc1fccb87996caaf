#include "host/OvMessageIcons.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int grid = 32; // the signs are described on a square of that many units

QPainterPath triangle()
{
    QPainterPath path(QPointF(16, 4));
    path.lineTo(29, 27);
    path.lineTo(3, 27);
    path.closeSubpath();
    return path;
}

QPainterPath disc()
{
    QPainterPath path;
    path.addEllipse(QPointF(16, 16), 14, 14);
    return path;
}

// Strokes, then a dot.
QPainterPath mark(QStyle::StandardPixmap sign)
{
    QPainterPath path;
    switch (sign) {
    case QStyle::SP_MessageBoxInformation:
        path.moveTo(16, 15);
        path.lineTo(16, 23);
        break;
    case QStyle::SP_MessageBoxWarning:
        path.moveTo(16, 12);
        path.lineTo(16, 18.5);
        break;
    case QStyle::SP_MessageBoxQuestion:
        path.moveTo(12, 12.5);
        path.arcTo(QRectF(12, 8, 8, 8), 170, -210);
        path.quadTo(16, 16, 16, 18.5);
        break;
    default:
        path.moveTo(11.5, 11.5);
        path.lineTo(20.5, 20.5);
        path.moveTo(20.5, 11.5);
        path.lineTo(11.5, 20.5);
    }
    return path;
}

QPointF dot(QStyle::StandardPixmap sign)
{
    switch (sign) {
    case QStyle::SP_MessageBoxInformation:
        return {16, 9.8};
    case QStyle::SP_MessageBoxWarning:
        return {16, 23};
    case QStyle::SP_MessageBoxQuestion:
        return {16, 23.4};
    default:
        return {};
    }
}

QColor ground(QStyle::StandardPixmap sign)
{
    if (sign == QStyle::SP_MessageBoxWarning)
        return QColor(0xf2, 0xa7, 0x1b);
    return sign == QStyle::SP_MessageBoxCritical ? QColor(0xcf, 0x3b, 0x3b)
                                                 : QColor(0x2f, 0x7f, 0xbf);
}

void paint(QPainter* painter, QStyle::StandardPixmap sign)
{
    const bool warns = sign == QStyle::SP_MessageBoxWarning;
    const QColor ink = warns ? QColor(0x3a, 0x2a, 0x05) : QColor(Qt::white);
    const QPen edge(ground(sign), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter->setPen(warns ? edge : QPen(Qt::NoPen));
    painter->setBrush(ground(sign));
    painter->drawPath(warns ? triangle() : disc());
    painter->setPen(QPen(ink, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawPath(mark(sign));
    if (!dot(sign).isNull())
        painter->drawPoint(dot(sign));
}

QPixmap pixmap(QStyle::StandardPixmap sign, int pixels)
{
    QPixmap picture(pixels, pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(static_cast<double>(pixels) / grid, static_cast<double>(pixels) / grid);
    paint(&painter, sign);
    return picture;
}

} // namespace

QIcon OvMessageIcons::icon(QStyle::StandardPixmap sign)
{
    QIcon icon;
    if (sign < QStyle::SP_MessageBoxInformation || sign > QStyle::SP_MessageBoxQuestion)
        return icon;
    for (const int pixels : {16, 24, 32, 48, 64, 96, 128})
        icon.addPixmap(pixmap(sign, pixels));
    return icon;
}

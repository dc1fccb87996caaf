#include "host/OvHostStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace {

QColor between(const QColor& a, const QColor& b)
{
    return QColor((a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2);
}

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

} // namespace

OvHostStyle::OvHostStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{
}

void OvHostStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isBox = element == PE_IndicatorCheckBox;
    if ((!isBox && element != PE_IndicatorRadioButton) || !isDark(option->palette))
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(between(option->palette.color(QPalette::Window),
                            option->palette.color(QPalette::WindowText)));
    const QRectF edge = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (isBox)
        painter->drawRoundedRect(edge, 2, 2);
    else
        painter->drawEllipse(edge);
    painter->restore();
}

#include "host/OvHostStyle.h"

#include "host/OvMessageIcons.h"

#include <QMdiArea>
#include <QPainter>
#include <QStyleOption>

namespace {

constexpr int titleLift = 3; // pixels
constexpr int buttonMargin = 12;

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

int OvHostStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* returned) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

QSize OvHostStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                    const QSize& contents, const QWidget* widget) const
{
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (type != CT_PushButton || !button || button->text.isEmpty())
        return size;
    // Fusion gives only short texts air.
    return QSize(qMax(size.width(), contents.width() + 2 * buttonMargin), size.height());
}

QRect OvHostStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                  SubControl subControl, const QWidget* widget) const
{
    const QRect rect = QProxyStyle::subControlRect(control, option, subControl, widget);
    // Chinese letters reach further down than Fusion reckons with.
    const bool isTitle = control == CC_GroupBox && subControl == SC_GroupBoxLabel;
    return isTitle ? rect.translated(0, -titleLift) : rect;
}

QIcon OvHostStyle::standardIcon(StandardPixmap sign, const QStyleOption* option,
                                const QWidget* widget) const
{
    const QIcon own = OvMessageIcons::icon(sign);
    return own.isNull() ? QProxyStyle::standardIcon(sign, option, widget) : own;
}

void OvHostStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    auto* area = qobject_cast<QMdiArea*>(widget);
    if (!area)
        return;
    const QPalette palette = area->palette();
    area->setBackground(palette.color(QPalette::Window).darker(isDark(palette) ? 150 : 107));
}

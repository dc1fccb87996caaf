#pragma once

#include <QProxyStyle>

/// The toolkit's Fusion style with the program's own touches: check boxes and radio buttons that
/// can be told from a dark window (Fusion draws their edge darker than what is around them), titles
/// of groups clear of the frame below, air beside long texts of buttons, none with pictures in
/// dialogs, signs of message boxes that are sharp on every screen, and a quiet ground behind the
/// sub-windows.
class OvHostStyle : public QProxyStyle
{
    Q_OBJECT

public:
    OvHostStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                         SubControl subControl, const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap sign, const QStyleOption* option,
                       const QWidget* widget) const override;
    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
};

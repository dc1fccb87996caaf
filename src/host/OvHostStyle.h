#pragma once

#include <QProxyStyle>

/// The toolkit's Fusion style, with check boxes and radio buttons that can be told from a dark
/// window: Fusion draws their edge darker than what is around them.
class OvHostStyle : public QProxyStyle
{
    Q_OBJECT

public:
    OvHostStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

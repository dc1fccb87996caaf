#include "OvGui/view/OvElidedLabel.h"

#include <QPainter>
#include <QStyle>

OvElidedLabel::OvElidedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setMinimumWidth(1);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void OvElidedLabel::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    const QRect area = contentsRect();
    style()->drawItemText(&painter, area, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                          fontMetrics().elidedText(text(), Qt::ElideRight, area.width()),
                          foregroundRole());
}

#pragma once

#include <QRect>
#include <QString>

class QPainter;

/// What a view has to say, painted where the user looks.
namespace OvMessagePainter {

/// A card in the middle of area, or with overData a strip at its lower edge. Nothing for an empty
/// text.
void paint(QPainter* painter, const QRect& area, const QString& text, bool overData);

} // namespace OvMessagePainter

#pragma once

#include <QIcon>
#include <QStyle>

/// The signs of message boxes, drawn for any size and screen: the toolkit's own are small bitmaps.
namespace OvMessageIcons {

/// Null for anything but information, question, warning and critical.
QIcon icon(QStyle::StandardPixmap sign);

} // namespace OvMessageIcons

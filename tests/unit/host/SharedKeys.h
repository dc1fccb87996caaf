#pragma once

#include <QStringList>
#include <QWidget>

/// Keys that mean two things at once, for which the toolkit does neither.
namespace SharedKeys {

/// "key: text, other text" for each underlined letter that two entries of one menu or two parts of
/// the window share, and each shortcut that two entries of its menus share. What is not visible and
/// what is in another document window counts for nothing.
QStringList of(QWidget* window);

} // namespace SharedKeys

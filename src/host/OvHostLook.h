#pragma once

#include <QPalette>

class QApplication;

/// The look of the program: style, colours, fonts. GUI thread.
namespace OvHostLook {

/// Sets all of it, following the light or dark palette that the desktop has given the application.
void apply(QApplication* application);

QPalette lightPalette();
QPalette darkPalette();
/// Lets the families that the forms name fall back to free ones, some of them with Chinese glyphs.
void substituteFonts();

} // namespace OvHostLook

#pragma once

#include "OvPlugins/OvPluginsExport.h"

#include <QString>

class QMainWindow;
class QWidget;

/// What plug-ins need of the main window, found by object name. GUI thread.
namespace OvPluginUtil {

/// The program's main window, a visible one before a hidden one; null when there is none.
OVPLUGINS_EXPORT QMainWindow* mainWindow();

/// Shows a line in the main window's status bar for five seconds; without a window only in the log.
OVPLUGINS_EXPORT void showStatus(const QString& text);

/// Shows a warning with an OK button over parent's window, or over the main window, and returns at
/// once. The text is shown as it stands, without markup.
OVPLUGINS_EXPORT void showWarning(const QString& text, QWidget* parent = nullptr);

} // namespace OvPluginUtil

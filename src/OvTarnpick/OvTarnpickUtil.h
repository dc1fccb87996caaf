#pragma once

#include "OvTarnpick/OvTarnpickExport.h"

class QString;
class QWidget;

namespace OvTarnpickUtil {

/// Shows a modal box with a summary of one SEG-Y file; returns when the user has closed it. A file
/// that does not exist shows nothing. GUI thread.
OVTARNPICK_EXPORT void displaySegyInfo(const QString& fileName, QWidget* parent);

} // namespace OvTarnpickUtil

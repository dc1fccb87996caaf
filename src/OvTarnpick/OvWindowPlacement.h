#pragma once

#include <QRect>

/// Where the main window stands on a desktop of that size: three fifths of it each way, a fifth
/// from the left and the top, truncated to whole pixels.
inline QRect placedMainWindow(const QSize& desktop)
{
    return {static_cast<int>(0.2 * desktop.width()), static_cast<int>(0.2 * desktop.height()),
            static_cast<int>(0.6 * desktop.width()), static_cast<int>(0.6 * desktop.height())};
}

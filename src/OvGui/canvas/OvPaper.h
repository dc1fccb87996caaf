#pragma once

#include <QRgb>

/// The look of the data area, the same in light and dark desktops.
namespace OvPaper {

constexpr QRgb white = 0xffffffffU;
constexpr QRgb dead = 0xffe2e2e2U;     ///< the strip of a dead trace
constexpr QRgb deadLine = 0xffc2c2c2U; ///< the hatching in it

/// A dead trace is hatched, so that it is told apart from a weak one in any colour map.
constexpr QRgb deadColor(int x, int y)
{
    return (x + y) % 6 == 0 ? deadLine : dead;
}

} // namespace OvPaper

#include "OvGui/canvas/OvColorMap.h"

#include "OvBase/OvDisplayDefine.h"

#include <QColor>

#include <cmath>

namespace {

struct Ramp
{
    QColor negative;
    QColor middle;
    QColor positive;
};

Ramp rampOf(int map)
{
    switch (map) {
    case OvDisplayDefine::BlackWhiteRed:
        return {QColor(0, 0, 0), QColor(255, 255, 255), QColor(200, 0, 0)};
    case OvDisplayDefine::BlueWhiteRed:
        return {QColor(20, 50, 180), QColor(255, 255, 255), QColor(190, 10, 30)};
    default:
        return {QColor(255, 255, 255), QColor(128, 128, 128), QColor(0, 0, 0)};
    }
}

int mix(int a, int b, double share)
{
    return static_cast<int>(std::lround(a + (b - a) * share));
}

QRgb mix(const QColor& a, const QColor& b, double share)
{
    return qRgb(mix(a.red(), b.red(), share), mix(a.green(), b.green(), share),
                mix(a.blue(), b.blue(), share));
}

} // namespace

OvColorMap::OvColorMap(int map)
{
    const Ramp ramp = rampOf(map);
    for (int i = 0; i <= 2 * zero; ++i) {
        const double share = static_cast<double>(i - zero) / zero;
        const QColor& end = share < 0.0 ? ramp.negative : ramp.positive;
        m_colors[static_cast<std::size_t>(i)] = mix(ramp.middle, end, std::abs(share));
    }
}

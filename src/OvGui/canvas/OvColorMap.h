#pragma once

#include "OvGui/OvGuiExport.h"

#include <QRgb>

#include <array>

/// The colours of variable density, by amplitude from -1 to 1.
class OVGUI_EXPORT OvColorMap
{
public:
    /// map is an OvDisplayDefine::ColorMap.
    explicit OvColorMap(int map);

    QRgb color(float amplitude) const { return m_colors[index(amplitude)]; }

private:
    static constexpr int zero = 127; // the middle: amplitude 0 has a colour of its own

    static std::size_t index(float amplitude)
    {
        const float bounded = amplitude < -1.0F ? -1.0F : amplitude > 1.0F ? 1.0F : amplitude;
        // Never negative, so cutting off rounds well, and one instruction does it for each pixel.
        const float position = static_cast<float>(zero) * (1.0F + bounded);
        return static_cast<std::size_t>(position + 0.5F); // NOLINT(bugprone-incorrect-roundings)
    }

    std::array<QRgb, 2 * zero + 1> m_colors;
};

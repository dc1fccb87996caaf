#pragma once

#include "OvGui/canvas/OvViewState.h"
#include "OvSeismic/segy/OvGather.h"

#include <QRectF>

#include <algorithm>
#include <cmath>

/// Which piece of a gather a picture shows, in physical pixels.
struct OvTileGeometry
{
    int width = 0; ///< physical pixels
    int height = 0;
    double left = 0.0;        ///< trace coordinate of the left edge
    double topMs = 0.0;       ///< time of the upper edge
    double spacing = 8.0;     ///< physical pixels from trace to trace
    double pixelsPerMs = 1.0; ///< physical pixels
    double penWidth = 1.0;    ///< physical pixels: the device pixel ratio

    /// The piece under a rectangle of view coordinates.
    static OvTileGeometry of(const OvViewState& state, const QRectF& rect, double ratio)
    {
        OvTileGeometry geometry;
        geometry.width = static_cast<int>(std::ceil(rect.width() * ratio));
        geometry.height = static_cast<int>(std::ceil(rect.height() * ratio));
        geometry.left = state.traceAt(rect.left());
        geometry.topMs = state.timeAt(rect.top());
        geometry.spacing = state.traceSpacing() * ratio;
        geometry.pixelsPerMs = state.pixelsPerMs() * ratio;
        geometry.penWidth = ratio;
        return geometry;
    }

    struct Lines
    {
        int first;
        int end; ///< one behind
    };
    /// The pixel rows in which a trace has samples.
    Lines linesOf(const OvGather& gather, int row) const
    {
        const double start =
            static_cast<double>(gather.headers[static_cast<std::size_t>(row)].delayMs);
        const double last = start + (gather.sampleCount - 1) * gather.intervalMs;
        return {static_cast<int>(std::clamp(std::floor(yOf(start)), 0.0, double(height))),
                static_cast<int>(std::clamp(std::ceil(yOf(last)), 0.0, double(height)))};
    }

    double traceAt(double x) const { return left + x / spacing; }
    double xOf(double traceCoordinate) const { return (traceCoordinate - left) * spacing; }
    double timeAt(double y) const { return topMs + y / pixelsPerMs; }
    double yOf(double timeMs) const { return (timeMs - topMs) * pixelsPerMs; }
};

#pragma once

#include "OvGui/OvGuiExport.h"
#include "OvGui/canvas/OvViewState.h"

#include <QCoreApplication>
#include <QRect>
#include <QString>
#include <QVector>

class QFontMetrics;
class QPainter;

/// The time axis, left of the data.
class OVGUI_EXPORT OvTimeAxis
{
    Q_DECLARE_TR_FUNCTIONS(OvTimeAxis)

public:
    struct Tick
    {
        double timeMs;
        bool major; ///< has a label
    };

    /// Least distance of two labels, pixels.
    static double labelDistance(const QFontMetrics& metrics);
    /// The step, 1, 2 or 5 times a power of ten, that keeps labels at least leastPixels apart.
    static double niceStep(double pixelsPerMs, double leastPixels);
    static QVector<Tick> ticks(const OvViewState& state, double leastPixels);
    static QString label(double timeMs, double step);

    static int textWidth(const QFontMetrics& metrics, const QString& text);
    static int width(const OvViewState& state, const QFontMetrics& metrics);
    /// Paints into area, whose upper edge is the upper edge of the data.
    static void paint(QPainter* painter, const QRect& area, const OvViewState& state);
};

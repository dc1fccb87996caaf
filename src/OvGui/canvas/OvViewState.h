#pragma once

#include "OvGui/OvGuiExport.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

struct OvGather;

/// The part of a gather that a view has: its traces and the time they span.
struct OVGUI_EXPORT OvGatherExtent
{
    int traceCount = 0;
    double startMs = 0.0; ///< earliest first sample
    double endMs = 0.0;   ///< latest last sample
    double intervalMs = 1.0;

    static OvGatherExtent of(const OvGather& gather);
    bool isEmpty() const { return traceCount == 0 || endMs <= startMs; }
    /// Takes in the times of another gather; the first one taken in gives the sample interval.
    void uniteTimes(const OvGatherExtent& other);
    double durationMs() const { return endMs - startMs; }
    bool operator==(const OvGatherExtent& other) const;
    bool operator!=(const OvGatherExtent& other) const { return !(*this == other); }
};

/// Where a view stands on a gather: scale and scroll. A value, no widget.
///
/// View coordinates are device-independent pixels from the upper left corner of the data area.
/// Trace coordinates count traces: row r is the strip [r, r + 1), drawn around r + 0.5. Half a
/// trace is kept free at either side.
class OVGUI_EXPORT OvViewState
{
public:
    const OvGatherExtent& extent() const { return m_extent; }
    /// Keeps scale and place as far as the new extent allows; a fitted view is fitted again.
    void setExtent(const OvGatherExtent& extent);
    QSizeF viewSize() const { return m_size; }
    void setViewSize(const QSizeF& size);

    double traceSpacing() const { return m_traceSpacing; }
    double pixelsPerMs() const { return m_pixelsPerMs; }
    /// A fitted view shows the whole gather and follows the size of its window.
    bool isFitted() const { return m_fitted; }
    void fit();
    /// The scale of a view that nobody has chosen one for: fitted, but never narrower than traces
    /// can be told apart. Follows window and gather until scale or scroll are set.
    void open();
    /// Sets the scale and leaves the fitted state; the upper left corner stays.
    void setScale(double traceSpacing, double pixelsPerMs);
    /// Zooms by factors; what lies under point stays there.
    void zoomAt(const QPointF& point, double traceFactor, double timeFactor);
    /// Makes the rectangle of view coordinates fill the view.
    void zoomTo(const QRectF& rect);
    void panBy(const QPointF& pixels);
    /// Sets trace coordinate and time of the upper left corner.
    void scrollTo(double left, double topMs);

    double left() const { return m_left; }
    double topMs() const { return m_topMs; }
    double visibleTraces() const { return m_size.width() / m_traceSpacing; }
    double visibleMs() const { return m_size.height() / m_pixelsPerMs; }
    double minimumLeft() const;
    double maximumLeft() const;
    double maximumTopMs() const;

    double xOf(double traceCoordinate) const { return (traceCoordinate - m_left) * m_traceSpacing; }
    double xOfRow(int row) const { return xOf(row + 0.5); }
    double yOf(double timeMs) const { return (timeMs - m_topMs) * m_pixelsPerMs; }
    double traceAt(double x) const { return m_left + x / m_traceSpacing; }
    double timeAt(double y) const { return m_topMs + y / m_pixelsPerMs; }
    /// The row under x, -1 beside the traces.
    int rowAt(double x) const;

    bool operator==(const OvViewState& other) const;
    bool operator!=(const OvViewState& other) const { return !(*this == other); }

private:
    double fitSpacing() const;
    double fitPixelsPerMs() const;
    void refit();
    void clampScale();
    void clampScroll();

    OvGatherExtent m_extent;
    QSizeF m_size{1.0, 1.0};
    double m_traceSpacing = 8.0;
    double m_pixelsPerMs = 0.6;
    double m_left = -0.5;
    double m_topMs = 0.0;
    bool m_fitted = false;
    bool m_opening = false;
};

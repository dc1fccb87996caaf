#include "OvGui/canvas/OvViewState.h"

#include "OvSeismic/segy/OvGather.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double sideMargin = 0.5;           // traces
constexpr double largestSpacing = 400.0;     // pixels a trace
constexpr double largestSamplePixels = 60.0; // pixels a sample
constexpr double readableSpacing = 4.0;      // pixels a trace; closer ones are drawn in part
constexpr double smallestShare = 0.25;       // of the scale that shows everything

bool isSame(double a, double b)
{
    return std::abs(a - b) <= 1e-9 * std::max({1.0, std::abs(a), std::abs(b)});
}

} // namespace

OvGatherExtent OvGatherExtent::of(const OvGather& gather)
{
    OvGatherExtent extent;
    extent.traceCount = gather.traceCount();
    if (gather.headers.empty() || gather.sampleCount < 1 || gather.intervalMs <= 0.0)
        return {};
    const auto earlier = [](const OvTraceHeader& a, const OvTraceHeader& b) {
        return a.delayMs < b.delayMs;
    };
    const auto ends = std::minmax_element(gather.headers.begin(), gather.headers.end(), earlier);
    extent.intervalMs = gather.intervalMs;
    extent.startMs = static_cast<double>(ends.first->delayMs);
    extent.endMs = static_cast<double>(ends.second->delayMs) +
                   std::max(1, gather.sampleCount - 1) * gather.intervalMs;
    return extent;
}

void OvGatherExtent::uniteTimes(const OvGatherExtent& other)
{
    if (other.endMs <= other.startMs)
        return;
    const bool isFirst = endMs <= startMs;
    startMs = isFirst ? other.startMs : std::min(startMs, other.startMs);
    endMs = isFirst ? other.endMs : std::max(endMs, other.endMs);
    intervalMs = isFirst ? other.intervalMs : intervalMs;
}

bool OvGatherExtent::operator==(const OvGatherExtent& other) const
{
    return traceCount == other.traceCount && isSame(startMs, other.startMs) &&
           isSame(endMs, other.endMs) && isSame(intervalMs, other.intervalMs);
}

void OvViewState::setExtent(const OvGatherExtent& extent)
{
    const bool wasEmpty = m_extent.isEmpty();
    m_extent = extent;
    if (wasEmpty && !m_fitted) {
        m_left = minimumLeft();
        m_topMs = extent.startMs;
    }
    refit();
    clampScale();
    clampScroll();
}

void OvViewState::setViewSize(const QSizeF& size)
{
    m_size = size.expandedTo(QSizeF(1.0, 1.0));
    refit();
    clampScale();
    clampScroll();
}

double OvViewState::fitSpacing() const
{
    return m_size.width() / (m_extent.traceCount + 2.0 * sideMargin);
}

double OvViewState::fitPixelsPerMs() const
{
    return m_size.height() / m_extent.durationMs();
}

void OvViewState::fit()
{
    m_fitted = true;
    m_opening = false;
    if (m_extent.isEmpty())
        return;
    m_traceSpacing = fitSpacing();
    m_pixelsPerMs = fitPixelsPerMs();
    m_left = minimumLeft();
    m_topMs = m_extent.startMs;
}

void OvViewState::open()
{
    m_opening = true;
    if (m_extent.isEmpty())
        return;
    m_fitted = fitSpacing() >= readableSpacing;
    if (m_fitted) {
        fit();
        m_opening = true;
        return;
    }
    m_traceSpacing = readableSpacing;
    m_pixelsPerMs = fitPixelsPerMs();
    m_left = minimumLeft();
    m_topMs = m_extent.startMs;
}

void OvViewState::refit()
{
    if (m_opening)
        open();
    else if (m_fitted)
        fit();
}

void OvViewState::setScale(double traceSpacing, double pixelsPerMs)
{
    m_fitted = m_opening = false;
    m_traceSpacing = traceSpacing;
    m_pixelsPerMs = pixelsPerMs;
    clampScale();
    clampScroll();
}

void OvViewState::zoomAt(const QPointF& point, double traceFactor, double timeFactor)
{
    if (m_extent.isEmpty())
        return;
    const double trace = traceAt(point.x());
    const double time = timeAt(point.y());
    m_fitted = m_opening = false;
    m_traceSpacing *= traceFactor;
    m_pixelsPerMs *= timeFactor;
    clampScale();
    m_left = trace - point.x() / m_traceSpacing;
    m_topMs = time - point.y() / m_pixelsPerMs;
    clampScroll();
}

void OvViewState::zoomTo(const QRectF& rect)
{
    const QRectF area = rect.normalized();
    if (m_extent.isEmpty() || area.width() < 1.0 || area.height() < 1.0)
        return;
    const double left = traceAt(area.left());
    const double top = timeAt(area.top());
    m_fitted = m_opening = false;
    m_traceSpacing *= m_size.width() / area.width();
    m_pixelsPerMs *= m_size.height() / area.height();
    clampScale();
    scrollTo(left, top);
}

void OvViewState::panBy(const QPointF& pixels)
{
    scrollTo(m_left - pixels.x() / m_traceSpacing, m_topMs - pixels.y() / m_pixelsPerMs);
}

void OvViewState::scrollTo(double left, double topMs)
{
    m_opening = false;
    m_left = left;
    m_topMs = topMs;
    clampScroll();
}

double OvViewState::minimumLeft() const
{
    return -sideMargin;
}

double OvViewState::maximumLeft() const
{
    return std::max(minimumLeft(), m_extent.traceCount + sideMargin - visibleTraces());
}

double OvViewState::maximumTopMs() const
{
    return std::max(m_extent.startMs, m_extent.endMs - visibleMs());
}

int OvViewState::rowAt(double x) const
{
    const double trace = std::floor(traceAt(x));
    return trace >= 0.0 && trace < m_extent.traceCount ? static_cast<int>(trace) : -1;
}

void OvViewState::clampScale()
{
    if (m_extent.isEmpty())
        return;
    const double spacing = std::min(fitSpacing(), largestSpacing);
    m_traceSpacing = std::clamp(m_traceSpacing, std::min(spacing * smallestShare, 8.0),
                                std::max(largestSpacing, fitSpacing()));
    const double finest = std::max(largestSamplePixels / m_extent.intervalMs, fitPixelsPerMs());
    m_pixelsPerMs = std::clamp(m_pixelsPerMs, fitPixelsPerMs() * smallestShare, finest);
}

void OvViewState::clampScroll()
{
    if (m_extent.isEmpty())
        return;
    m_left = std::clamp(m_left, minimumLeft(), maximumLeft());
    m_topMs = std::clamp(m_topMs, m_extent.startMs, maximumTopMs());
}

bool OvViewState::operator==(const OvViewState& other) const
{
    return m_extent == other.m_extent && m_size == other.m_size &&
           isSame(m_traceSpacing, other.m_traceSpacing) &&
           isSame(m_pixelsPerMs, other.m_pixelsPerMs) && isSame(m_left, other.m_left) &&
           isSame(m_topMs, other.m_topMs) && m_fitted == other.m_fitted;
}

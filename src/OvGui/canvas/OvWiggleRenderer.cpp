#include "OvGui/canvas/OvWiggleRenderer.h"

#include "OvGui/canvas/OvPaper.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int subRows = 4;
constexpr double closestTraces = 4.0; // pixels; closer ones run into one grey mass
constexpr double linePart = 0.15;     // of the trace spacing, where a whole pixel is too much
constexpr double thinnestLine = 0.5;  // pixels

} // namespace

OvWiggleRenderer::OvWiggleRenderer(const OvDrawnGather& gather, const OvDisplayDefine& define,
                                   const OvTileGeometry& geometry)
    : m_gather(gather)
    , m_geometry(geometry)
    , m_line(define.mode != OvDisplayDefine::VariableArea)
    , m_area(define.mode != OvDisplayDefine::Wiggle)
    , m_clip(static_cast<float>(std::max(0.1, define.clip)))
    , m_step(std::max(
          1, static_cast<int>(std::ceil(closestTraces * geometry.penWidth / geometry.spacing))))
    , m_excursion(geometry.spacing * m_step)
    , m_penWidth(
          std::clamp(m_excursion * linePart, thinnestLine * geometry.penWidth, geometry.penWidth))
    , m_reach(std::max(1, static_cast<int>(std::lround(m_penWidth * subRows * 0.35))))
    , m_spans(static_cast<std::size_t>(geometry.height * subRows + 2 * m_reach))
    , m_cover(static_cast<std::size_t>(geometry.width) + 1, 0.0F)
    , m_paper(static_cast<std::size_t>(geometry.width) * static_cast<std::size_t>(geometry.height),
              0xff)
{
}

QImage OvWiggleRenderer::render()
{
    const double reach = (static_cast<double>(m_clip) + 1.0) * m_step;
    const double count = m_gather.traceCount();
    const auto first = static_cast<int>(std::clamp(m_geometry.traceAt(0) - reach, 0.0, count));
    const auto end =
        static_cast<int>(std::clamp(m_geometry.traceAt(m_geometry.width) + reach, 0.0, count));
    const auto isDead = [this](int row) {
        return m_gather.gather().headers[static_cast<std::size_t>(row)].isDead();
    };
    for (int row = first; row < end; ++row)
        if (isDead(row))
            drawDead(row);
    for (int row = (first + m_step - 1) / m_step * m_step; row < end; row += m_step)
        if (!isDead(row))
            drawTrace(row);
    return picture();
}

quint8* OvWiggleRenderer::paperLine(int y)
{
    return m_paper.data() +
           static_cast<std::size_t>(y) * static_cast<std::size_t>(m_geometry.width);
}

void OvWiggleRenderer::drawDead(int row)
{
    const double width = m_geometry.width;
    const auto begin = static_cast<int>(std::clamp(std::round(m_geometry.xOf(row)), 0.0, width));
    const auto end = static_cast<int>(std::clamp(std::round(m_geometry.xOf(row + 1)), 0.0, width));
    const OvTileGeometry::Lines lines = m_geometry.linesOf(m_gather.gather(), row);
    for (int y = lines.first; y < lines.end; ++y) {
        quint8* line = paperLine(y);
        for (int x = begin; x < end; ++x)
            line[x] = static_cast<quint8>(qRed(OvPaper::deadColor(x, y)));
    }
}

void OvWiggleRenderer::drawTrace(int row)
{
    measure(row);
    const double center = m_geometry.xOf(row + 0.5);
    for (int y = 0; y < m_geometry.height; ++y)
        drawRow(y, center);
}

void OvWiggleRenderer::measure(int row)
{
    const OvGather& gather = m_gather.gather();
    const float* samples = m_gather.trace(row);
    const double step = 1.0 / (m_geometry.pixelsPerMs * gather.intervalMs * subRows);
    const double start = gather.sampleAt(row, m_geometry.topMs) - m_reach * step;
    for (std::size_t i = 0; i < m_spans.size(); ++i) {
        const double from = start + static_cast<double>(i) * step;
        m_spans[i] = extremes(samples, from, from + step);
    }
}

OvWiggleRenderer::Span OvWiggleRenderer::extremes(const float* samples, double from,
                                                  double to) const
{
    const double last = m_gather.sampleCount() - 1;
    if (to < 0.0 || from > last)
        return {1.0F, -1.0F};
    const auto at = [=](double position) {
        const double bounded = std::clamp(position, 0.0, last);
        const auto i = static_cast<int>(bounded);
        const int next = std::min(i + 1, static_cast<int>(last));
        return samples[i] + (samples[next] - samples[i]) * static_cast<float>(bounded - i);
    };
    const float a = at(from);
    const float b = at(to);
    Span span{std::min(a, b), std::max(a, b)};
    const auto end = static_cast<int>(std::min(std::floor(to), last));
    for (auto i = static_cast<int>(std::max(std::ceil(from), 0.0)); i <= end; ++i) {
        span.low = std::min(span.low, samples[i]);
        span.high = std::max(span.high, samples[i]);
    }
    return {std::clamp(span.low, -m_clip, m_clip), std::clamp(span.high, -m_clip, m_clip)};
}

OvWiggleRenderer::Span OvWiggleRenderer::ink(int subRow) const
{
    Span span{1e9F, -1e9F};
    for (int i = subRow; i <= subRow + 2 * m_reach; ++i) {
        const Span& part = m_spans[static_cast<std::size_t>(i)];
        if (part.low > part.high)
            continue;
        span.low = std::min(span.low, part.low);
        span.high = std::max(span.high, part.high);
    }
    return span;
}

void OvWiggleRenderer::drawRow(int y, double center)
{
    const double half = m_penWidth * 0.5;
    m_coverBegin = m_geometry.width;
    m_coverEnd = 0;
    for (int subRow = y * subRows; subRow < (y + 1) * subRows; ++subRow) {
        const Span line = ink(subRow);
        const Span& here =
            m_spans[static_cast<std::size_t>(subRow) + static_cast<std::size_t>(m_reach)];
        const bool filled = m_area && here.low <= here.high && here.high > 0.0F;
        const bool lined = m_line && line.low <= line.high;
        if (!filled && !lined)
            continue;
        double from = center;
        double to = center + (filled ? static_cast<double>(here.high) * m_excursion : 0.0);
        if (lined) {
            const double low = center + static_cast<double>(line.low) * m_excursion - half;
            const double high = center + static_cast<double>(line.high) * m_excursion + half;
            from = filled ? std::min(from, low) : low;
            to = filled ? std::max(to, high) : high;
        }
        cover(from, to);
    }
    blend(y);
}

void OvWiggleRenderer::cover(double from, double to)
{
    constexpr float share = 1.0F / subRows;
    const double begin = std::clamp(from, 0.0, double(m_geometry.width));
    const double end = std::clamp(to, 0.0, double(m_geometry.width));
    if (begin >= end)
        return;
    const auto first = static_cast<int>(begin);
    const auto last = static_cast<int>(end);
    for (int x = first; x <= last; ++x) {
        const double part = std::min(end, x + 1.0) - std::max(begin, double(x));
        m_cover[static_cast<std::size_t>(x)] += static_cast<float>(part) * share;
    }
    m_coverBegin = std::min(m_coverBegin, first);
    m_coverEnd = std::max(m_coverEnd, last + 1);
}

void OvWiggleRenderer::blend(int y)
{
    const int end = std::min(m_coverEnd, m_geometry.width);
    quint8* line = paperLine(y);
    for (int x = m_coverBegin; x < end; ++x) {
        const float ink = std::min(1.0F, m_cover[static_cast<std::size_t>(x)]);
        const float shade = static_cast<float>(line[x]) * (1.0F - ink);
        // Never negative, so cutting off rounds well, several pixels at a time.
        line[x] = static_cast<quint8>(shade + 0.5F); // NOLINT(bugprone-incorrect-roundings)
    }
    std::fill(m_cover.begin() + std::min(m_coverBegin, m_coverEnd), m_cover.begin() + m_coverEnd,
              0.0F);
}

QImage OvWiggleRenderer::picture() const
{
    QImage image(m_geometry.width, m_geometry.height, QImage::Format_RGB32);
    for (int y = 0; y < m_geometry.height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        const quint8* paper = m_paper.data() + static_cast<std::size_t>(y) *
                                                   static_cast<std::size_t>(m_geometry.width);
        std::transform(paper, paper + m_geometry.width, line,
                       [](quint8 grey) { return qRgb(grey, grey, grey); });
    }
    return image;
}

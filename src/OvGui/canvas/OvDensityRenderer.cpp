#include "OvGui/canvas/OvDensityRenderer.h"

#include "OvGui/canvas/OvPaper.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float outside = std::numeric_limits<float>::quiet_NaN();

} // namespace

OvDensityRenderer::OvDensityRenderer(const OvDrawnGather& gather, const OvDisplayDefine& define,
                                     const OvTileGeometry& geometry)
    : m_gather(gather)
    , m_geometry(geometry)
    , m_colors(define.colorMap)
    , m_image(geometry.width, geometry.height, QImage::Format_RGB32)
    , m_column(static_cast<std::size_t>(std::max(0, geometry.height)))
{
}

QImage OvDensityRenderer::render()
{
    m_image.fill(OvPaper::white);
    Rows last{-1, -1};
    for (int x = 0; x < m_geometry.width; ++x) {
        const Rows rows = rowsAt(x);
        if (rows.first >= rows.end)
            continue;
        if (rows.first == last.first && rows.end == last.end && !m_lastWasDead)
            copyColumn(x - 1, x);
        else
            fill(x, rows);
        last = rows;
    }
    return m_image;
}

OvDensityRenderer::Rows OvDensityRenderer::rowsAt(int x) const
{
    const int count = m_gather.traceCount();
    if (m_geometry.spacing >= 1.0) {
        const double row = std::floor(m_geometry.traceAt(x + 0.5));
        const bool inside = row >= 0.0 && row < count;
        return inside ? Rows{static_cast<int>(row), static_cast<int>(row) + 1} : Rows{0, 0};
    }
    const double first = std::floor(m_geometry.traceAt(x));
    const double end = std::floor(m_geometry.traceAt(x + 1));
    return {static_cast<int>(std::clamp(first, 0.0, double(count))),
            static_cast<int>(std::clamp(end, 0.0, double(count)))};
}

const std::vector<float>& OvDensityRenderer::column(int row)
{
    if (row == m_columnRow)
        return m_column;
    m_columnRow = row;
    const OvGather& gather = m_gather.gather();
    const double step = 1.0 / (m_geometry.pixelsPerMs * gather.intervalMs);
    for (int y = 0; y < m_geometry.height; ++y) {
        const double sample = gather.sampleAt(row, m_geometry.timeAt(y + 0.5));
        m_column[static_cast<std::size_t>(y)] = amplitude(row, sample, step);
    }
    return m_column;
}

float OvDensityRenderer::amplitude(int row, double sample, double samplesPerPixel) const
{
    const int last = m_gather.sampleCount() - 1;
    if (sample < -0.5 || sample > last + 0.5)
        return outside;
    const float* samples = m_gather.trace(row);
    if (samplesPerPixel <= 1.0) {
        const double bounded = std::clamp(sample, 0.0, double(last));
        const int i = std::min(static_cast<int>(bounded), std::max(0, last - 1));
        const auto share = static_cast<float>(bounded - i);
        return samples[i] + (samples[std::min(i + 1, last)] - samples[i]) * share;
    }
    const int begin =
        std::clamp(static_cast<int>(std::ceil(sample - samplesPerPixel / 2)), 0, last);
    const int end =
        std::clamp(static_cast<int>(std::ceil(sample + samplesPerPixel / 2)), begin + 1, last + 1);
    float sum = 0.0F;
    for (int i = begin; i < end; ++i)
        sum += samples[i];
    return sum / static_cast<float>(end - begin);
}

void OvDensityRenderer::fill(int x, const Rows& rows)
{
    std::vector<float> sums(m_column.size(), 0.0F);
    int alive = 0;
    for (int row = rows.first; row < rows.end; ++row) {
        if (m_gather.gather().headers[static_cast<std::size_t>(row)].isDead())
            continue;
        ++alive;
        const std::vector<float>& values = column(row);
        std::transform(sums.begin(), sums.end(), values.begin(), sums.begin(), std::plus<>());
    }
    m_lastWasDead = alive == 0;
    if (m_lastWasDead) {
        hatch(x, rows.first);
        return;
    }
    for (int y = 0; y < m_geometry.height; ++y) {
        const float sum = sums[static_cast<std::size_t>(y)];
        if (!std::isnan(sum))
            reinterpret_cast<QRgb*>(m_image.scanLine(y))[x] =
                m_colors.color(sum / static_cast<float>(alive));
    }
}

void OvDensityRenderer::hatch(int x, int row)
{
    const OvTileGeometry::Lines lines = m_geometry.linesOf(m_gather.gather(), row);
    for (int y = lines.first; y < lines.end; ++y)
        reinterpret_cast<QRgb*>(m_image.scanLine(y))[x] = OvPaper::deadColor(x, y);
}

void OvDensityRenderer::copyColumn(int from, int to)
{
    for (int y = 0; y < m_geometry.height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(m_image.scanLine(y));
        line[to] = line[from];
    }
}

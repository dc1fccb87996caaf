#include "OvGui/canvas/OvTraceAxis.h"

#include "OvBase/OvDisplayDefine.h"
#include "OvGui/canvas/OvTimeAxis.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int tickLength = 6;
constexpr int gap = 3;
constexpr double leastTickPixels = 5.0; // closer ticks of single traces are left out

bool isWhole(double value)
{
    return std::isnan(value) || std::abs(value - std::round(value)) < 0.05;
}

} // namespace

OvTraceAxis::OvTraceAxis(std::shared_ptr<const OvGather> gather, int word)
    : m_gather(std::move(gather))
    , m_word(word)
{
    for (int row = 0; m_gather && row < m_gather->traceCount() && m_decimals == 0; ++row)
        m_decimals = isWhole(value(row)) ? 0 : 1;
    m_known = hasValues();
    m_counting = isCounting();
    m_longestLabel = longestLabel();
}

QString OvTraceAxis::title() const
{
    switch (m_word) {
    case OvTraceHeaderDefine::Offset:
        return m_known ? tr("Offset (m)") : tr("Offset (m), not in the file");
    case OvTraceHeaderDefine::ReceiverX:
        return tr("Receiver X");
    case OvTraceHeaderDefine::TraceNumber:
        return tr("Trace number");
    case OvTraceHeaderDefine::Cdp:
        return tr("CDP");
    default:
        return tr("Channel");
    }
}

double OvTraceAxis::value(int row) const
{
    const OvTraceHeader& header = m_gather->headers[static_cast<std::size_t>(row)];
    switch (m_word) {
    case OvTraceHeaderDefine::Offset:
        return static_cast<double>(header.offset);
    case OvTraceHeaderDefine::ReceiverX:
        return header.receiverX;
    case OvTraceHeaderDefine::TraceNumber:
        return static_cast<double>(header.traceIndex + 1);
    case OvTraceHeaderDefine::Cdp:
        return header.cdp;
    default:
        return header.channel;
    }
}

QString OvTraceAxis::label(int row) const
{
    const double number = value(row);
    return std::isnan(number) ? QString() : QString::number(number, 'f', m_decimals);
}

bool OvTraceAxis::hasValues() const
{
    if (!m_gather || m_gather->headers.empty())
        return true;
    for (int row = 0; row < m_gather->traceCount(); ++row)
        if (!std::isnan(value(row)))
            return true;
    return false;
}

bool OvTraceAxis::isCounting() const
{
    if (!m_gather || m_gather->traceCount() < 2)
        return false;
    const double step = value(1) - value(0);
    bool counting = std::abs(step) == 1.0;
    for (int row = 1; counting && row < m_gather->traceCount(); ++row)
        counting = value(row) - value(row - 1) == step;
    return counting;
}

int OvTraceAxis::longestLabel() const
{
    int longest = 1;
    for (int row = 0; m_gather && row < m_gather->traceCount(); ++row)
        longest = std::max(longest, label(row).size());
    return longest;
}

QVector<OvTraceAxis::Tick> OvTraceAxis::ticks(const OvViewState& state,
                                              const QFontMetrics& metrics) const
{
    QVector<Tick> result;
    if (!m_gather || m_gather->traceCount() == 0)
        return result;
    const QString widest(m_longestLabel + 2, QLatin1Char('0'));
    const double room = OvTimeAxis::textWidth(metrics, widest);
    const auto step =
        static_cast<int>(std::max(1.0, OvTimeAxis::niceStep(state.traceSpacing(), room)));
    const int count = m_gather->traceCount();
    const auto first = static_cast<int>(std::clamp(std::floor(state.left()), 0.0, double(count)));
    const auto end = static_cast<int>(
        std::clamp(std::ceil(state.left() + state.visibleTraces()), 0.0, double(count)));
    for (int row = first; row < end; ++row) {
        const double place = m_counting ? value(row) : row;
        if (std::fmod(place, step) == 0.0)
            result.append({row, label(row)});
    }
    return result;
}

int OvTraceAxis::height(const QFontMetrics& metrics)
{
    return 2 * metrics.height() + tickLength + 2 * gap;
}

void OvTraceAxis::paint(QPainter* painter, const QRect& area, const OvViewState& state) const
{
    const QFontMetrics metrics(painter->font());
    const auto xOf = [&](int row) {
        return area.left() + static_cast<int>(std::lround(state.xOfRow(row)));
    };
    const int count = m_gather ? m_gather->traceCount() : 0;
    if (state.traceSpacing() >= leastTickPixels)
        for (int row = std::max(0, static_cast<int>(state.left()));
             row < count && xOf(row) <= area.right(); ++row)
            if (xOf(row) >= area.left())
                painter->drawLine(xOf(row), area.bottom() - tickLength / 2, xOf(row),
                                  area.bottom());
    const int textTop = area.bottom() - tickLength - metrics.height();
    const auto drawn = ticks(state, metrics);
    for (const Tick& tick : drawn) {
        const int x = xOf(tick.row);
        if (x < area.left() || x > area.right())
            continue;
        painter->drawLine(x, area.bottom() - tickLength, x, area.bottom());
        const int width = OvTimeAxis::textWidth(metrics, tick.label);
        const int left = std::clamp(x - width / 2, area.left() - width / 2,
                                    std::max(area.left(), area.right() + 1 - width));
        painter->drawText(QRect(left, textTop, width + 1, metrics.height()), Qt::AlignLeft,
                          tick.label);
    }
    painter->drawText(QRect(area.left(), area.top(), area.width(), metrics.height()),
                      Qt::AlignCenter, title());
}

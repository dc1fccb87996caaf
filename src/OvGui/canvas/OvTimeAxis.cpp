#include "OvGui/canvas/OvTimeAxis.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int tickLength = 6;
constexpr int gap = 4;
constexpr int minorTicks = 5;
constexpr double labelLines = 2.6; // distance of labels, in lines of text

int labelWidth(const OvViewState& state, const QFontMetrics& metrics)
{
    const double step =
        OvTimeAxis::niceStep(state.pixelsPerMs(), OvTimeAxis::labelDistance(metrics));
    // The ends of the data, not of the view, so that scrolling does not move the data area.
    return std::max(
        {OvTimeAxis::textWidth(metrics, OvTimeAxis::label(state.extent().startMs, step)),
         OvTimeAxis::textWidth(metrics, OvTimeAxis::label(state.extent().endMs, step)),
         OvTimeAxis::textWidth(metrics, QStringLiteral("0000"))});
}

} // namespace

int OvTimeAxis::textWidth(const QFontMetrics& metrics, const QString& text)
{
    return metrics.size(Qt::TextSingleLine, text).width();
}

double OvTimeAxis::labelDistance(const QFontMetrics& metrics)
{
    return metrics.height() * labelLines;
}

double OvTimeAxis::niceStep(double pixelsPerMs, double leastPixels)
{
    const double least = leastPixels / pixelsPerMs;
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= least * (1.0 - 1e-9))
            return factor * power;
    return 10.0 * power;
}

QVector<OvTimeAxis::Tick> OvTimeAxis::ticks(const OvViewState& state, double leastPixels)
{
    QVector<Tick> result;
    if (state.extent().isEmpty())
        return result;
    const double step = niceStep(state.pixelsPerMs(), leastPixels) / minorTicks;
    const double end = std::min(state.extent().endMs, state.topMs() + state.visibleMs());
    for (double i = std::ceil(state.topMs() / step - 1e-6); i * step <= end + 1e-6 * step; ++i)
        result.append({i * step, std::fmod(i, minorTicks) == 0.0});
    return result;
}

QString OvTimeAxis::label(double timeMs, double step)
{
    const int decimals = std::clamp(static_cast<int>(-std::floor(std::log10(step) + 1e-9)), 0, 4);
    const double rounded = std::abs(timeMs) < step * 1e-6 ? 0.0 : timeMs; // no minus zero
    return QString::number(rounded, 'f', decimals);
}

int OvTimeAxis::width(const OvViewState& state, const QFontMetrics& metrics)
{
    return labelWidth(state, metrics) + metrics.height() + tickLength + 4 * gap;
}

void OvTimeAxis::paint(QPainter* painter, const QRect& area, const OvViewState& state)
{
    const QFontMetrics metrics(painter->font());
    const double step = niceStep(state.pixelsPerMs(), labelDistance(metrics));
    const auto drawn = ticks(state, labelDistance(metrics));
    for (const Tick& tick : drawn) {
        const int y = area.top() + static_cast<int>(std::lround(state.yOf(tick.timeMs)));
        const int length = tick.major ? tickLength : tickLength / 2;
        painter->drawLine(area.right() - length, y, area.right(), y);
        if (!tick.major)
            continue;
        // At the ends the label moves inwards instead of being cut.
        const int top = std::clamp(y - metrics.height() / 2, area.top() - metrics.height() / 2,
                                   area.bottom() + 1 - metrics.height());
        painter->drawText(
            QRect(area.left(), top, area.width() - tickLength - gap, metrics.height()),
            Qt::AlignRight | Qt::AlignVCenter, label(tick.timeMs, step));
    }
    painter->save();
    painter->translate(area.left() + gap, area.center().y());
    painter->rotate(-90.0);
    painter->drawText(QRect(-area.height() / 2, 0, area.height(), metrics.height()),
                      Qt::AlignCenter, tr("Time (ms)"));
    painter->restore();
}

#include "OvGui/tools/OvReadoutTool.h"

#include "OvGui/canvas/OvGatherCanvas.h"

#include <QMouseEvent>
#include <QStringList>

#include <cmath>

bool OvReadoutTool::mouseMove(QMouseEvent* event)
{
    setText(textAt(event->localPos()));
    return false;
}

void OvReadoutTool::leave()
{
    setText({});
}

void OvReadoutTool::setText(const QString& text)
{
    if (text == m_text)
        return;
    m_text = text;
    emit textChanged(text);
}

QString OvReadoutTool::amplitudeAt(int row, double timeMs) const
{
    const OvGather& gather = *canvas()->gather();
    const double sample = std::round(gather.sampleAt(row, timeMs));
    if (sample < 0.0 || sample >= gather.sampleCount)
        return {};
    return QString::number(static_cast<double>(gather.trace(row)[static_cast<int>(sample)]), 'g',
                           4);
}

QString OvReadoutTool::pickOf(int row) const
{
    const OvFirstBreaks& breaks = canvas()->firstBreaks();
    if (row >= breaks.size() || !breaks.hasPick(row))
        return {};
    const auto i = static_cast<std::size_t>(row);
    const auto time = static_cast<double>(breaks.timesMs[i]);
    const bool rejected = breaks.states[i] == OvPickState::Rejected;
    return (rejected ? tr("First break %1 ms, rejected") : tr("First break %1 ms"))
        .arg(time, 0, 'f', 1);
}

QString OvReadoutTool::textAt(const QPointF& widgetPoint) const
{
    const int row = canvas()->rowAt(widgetPoint);
    if (row < 0)
        return {};
    const OvTraceHeader& header = canvas()->gather()->headers[static_cast<std::size_t>(row)];
    const double time = canvas()->timeAt(widgetPoint);
    QStringList parts{tr("Time %1 ms").arg(time, 0, 'f', 1), tr("Channel %1").arg(header.channel),
                      tr("Trace %1").arg(header.traceIndex + 1)};
    if (!std::isnan(header.offset))
        parts.append(tr("Offset %1 m").arg(static_cast<double>(header.offset), 0, 'f', 1));
    const QString amplitude = amplitudeAt(row, time);
    if (header.isDead())
        parts.append(tr("Dead trace"));
    else if (!amplitude.isEmpty())
        parts.append(tr("Amplitude %1").arg(amplitude));
    const QString pick = pickOf(row);
    if (!pick.isEmpty())
        parts.append(pick);
    return parts.join(QStringLiteral("   "));
}

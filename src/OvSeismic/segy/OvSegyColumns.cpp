#include "OvSeismic/segy/OvSegyColumns.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// No shot is heard this far away, m: where the nearest receiver is farther, the file has the
// coordinates of one side only (of a stacked section, say) and zeros for the other.
constexpr float farthestNearOffset = 100000.0F;

} // namespace

void OvSegyColumns::reserve(qint64 traces)
{
    for (auto* column : {&m_fieldRecord, &m_channel, &m_cdp, &m_sourceX, &m_sourceY, &m_receiverX,
                         &m_receiverY, &m_sourceElevation, &m_receiverElevation})
        column->reserve(at(traces));
    for (auto* column :
         {&m_coordinateScalar, &m_elevationScalar, &m_delay, &m_timeScalar, &m_traceId})
        column->reserve(at(traces));
    m_offset.reserve(at(traces));
}

void OvSegyColumns::append(const OvSegyTraceWords& words)
{
    m_fieldRecord.push_back(words.fieldRecord);
    m_channel.push_back(words.channel);
    m_cdp.push_back(words.cdp);
    m_offset.push_back(static_cast<float>(words.offset * m_metresPerUnit));
    m_sourceX.push_back(words.sourceX);
    m_sourceY.push_back(words.sourceY);
    m_receiverX.push_back(words.receiverX);
    m_receiverY.push_back(words.receiverY);
    m_sourceElevation.push_back(words.sourceElevation);
    m_receiverElevation.push_back(words.receiverElevation);
    m_coordinateScalar.push_back(words.coordinateScalar);
    m_elevationScalar.push_back(words.elevationScalar);
    m_delay.push_back(words.delay);
    m_timeScalar.push_back(words.timeScalar);
    m_traceId.push_back(words.traceId);
    m_hasChannels = m_hasChannels || words.channel != 0;
    m_hasOffsets = m_hasOffsets || words.offset != 0;
    // Degrees and seconds of arc give no distance.
    const bool length = words.coordinateUnits == 0 || words.coordinateUnits == 1;
    const bool apart = words.sourceX != words.receiverX || words.sourceY != words.receiverY;
    m_hasCoordinates = m_hasCoordinates || (length && apart);
}

void OvSegyColumns::finish()
{
    if (offsetsAreComputed()) {
        computeOffsets();
        m_hasCoordinates = areOffsetsBelievable();
    }
    if (offsetsAreUnknown())
        m_offset.assign(m_offset.size(), std::numeric_limits<float>::quiet_NaN());
}

void OvSegyColumns::computeOffsets()
{
    for (std::size_t i = 0; i < m_offset.size(); ++i) {
        const double dx = double(m_receiverX[i]) - m_sourceX[i];
        const double dy = double(m_receiverY[i]) - m_sourceY[i];
        const double factor = OvSegyTraceWords::factor(m_coordinateScalar[i]) * m_metresPerUnit;
        m_offset[i] = static_cast<float>(std::hypot(dx, dy) * factor);
    }
}

bool OvSegyColumns::areOffsetsBelievable() const
{
    return *std::min_element(m_offset.begin(), m_offset.end()) < farthestNearOffset;
}

OvTraceHeader OvSegyColumns::header(qint64 trace) const
{
    const std::size_t i = at(trace);
    OvSegyTraceWords words;
    words.fieldRecord = m_fieldRecord[i];
    words.channel = m_channel[i];
    words.cdp = m_cdp[i];
    words.sourceX = m_sourceX[i];
    words.sourceY = m_sourceY[i];
    words.receiverX = m_receiverX[i];
    words.receiverY = m_receiverY[i];
    words.sourceElevation = m_sourceElevation[i];
    words.receiverElevation = m_receiverElevation[i];
    words.coordinateScalar = m_coordinateScalar[i];
    words.elevationScalar = m_elevationScalar[i];
    words.delay = m_delay[i];
    words.timeScalar = m_timeScalar[i];
    words.traceId = m_traceId[i];
    OvTraceHeader header = words.toHeader(trace, m_metresPerUnit);
    header.offset = m_offset[i];
    return header;
}

#pragma once

#include "OvSeismic/segy/OvSegyTraceWords.h"

#include <vector>

/// The header words of all traces, one column a word: 52 bytes a trace.
class OvSegyColumns
{
public:
    explicit OvSegyColumns(double metresPerUnit = 1.0)
        : m_metresPerUnit(metresPerUnit)
    {
    }

    void reserve(qint64 traces);
    void append(const OvSegyTraceWords& words);
    /// Applies the rules that look at all traces: distances from the coordinates when no trace has
    /// an offset word, NaN when there are no believable coordinates either.
    void finish();

    qint64 size() const { return static_cast<qint64>(m_fieldRecord.size()); }
    qint32 fieldRecord(qint64 trace) const { return m_fieldRecord[at(trace)]; }
    float offset(qint64 trace) const { return m_offset[at(trace)]; }
    bool hasChannels() const { return m_hasChannels; }
    bool offsetsAreComputed() const { return !m_hasOffsets && m_hasCoordinates; }
    bool offsetsAreUnknown() const { return !m_hasOffsets && !m_hasCoordinates; }
    OvTraceHeader header(qint64 trace) const;

private:
    static std::size_t at(qint64 trace) { return static_cast<std::size_t>(trace); }
    void computeOffsets();
    bool areOffsetsBelievable() const;

    std::vector<qint32> m_fieldRecord;
    std::vector<qint32> m_channel;
    std::vector<qint32> m_cdp;
    std::vector<float> m_offset;
    std::vector<qint32> m_sourceX;
    std::vector<qint32> m_sourceY;
    std::vector<qint32> m_receiverX;
    std::vector<qint32> m_receiverY;
    std::vector<qint32> m_sourceElevation;
    std::vector<qint32> m_receiverElevation;
    std::vector<qint16> m_coordinateScalar;
    std::vector<qint16> m_elevationScalar;
    std::vector<qint16> m_delay;
    std::vector<qint16> m_timeScalar;
    std::vector<qint16> m_traceId;
    double m_metresPerUnit;
    bool m_hasChannels = false;
    bool m_hasOffsets = false;
    bool m_hasCoordinates = false;
};

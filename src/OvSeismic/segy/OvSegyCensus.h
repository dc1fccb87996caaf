#pragma once

#include "OvSeismic/segy/OvSegyTraceKeys.h"
#include "OvSeismic/segy/OvTraceHeaderMapping.h"

/// Counts what the doctor wants to know of the traces that it is shown.
class OvSegyCensus
{
public:
    /// How many times something was seen, and in which trace first.
    struct Tally
    {
        qint64 count = 0;
        qint64 firstTrace = -1;

        void see(qint64 trace, qint64 times = 1)
        {
            if (times > 0 && count == 0)
                firstTrace = trace;
            count += times;
        }
    };

    /// All headers of one trace as they stand in the file.
    struct Header
    {
        const char* bytes;
        qint64 size;
    };

    /// What the file as a whole says, and where the words of its trace headers lie.
    OvSegyCensus(OvByteOrder order, double intervalUs, const OvTraceHeaderMapping& mapping)
        : m_order(order)
        , m_intervalUs(intervalUs)
        , m_mapping(mapping)
        , m_extent(mapping.extent())
    {
    }

    /// samples: sampleCount values.
    void add(qint64 trace, const Header& header, const float* samples, int sampleCount);
    void finish() { m_keys.sort(); }

    qint64 traces() const { return m_traces; }
    const OvSegyTraceKeys& keys() const { return m_keys; }

    Tally fieldRecords; ///< traces in which the word is not 0
    Tally channels;
    Tally cdps;
    Tally offsets;
    Tally sourcePositions;
    Tally receiverPositions;
    Tally elevations;
    Tally markedDead;      ///< by the trace identification code
    Tally silent;          ///< all samples alike, and not marked as dead
    Tally notFinite;       ///< traces with a sample that is NaN or infinite
    Tally notFiniteSample; ///< the samples themselves
    Tally huge;            ///< traces with a sample beyond what any recorder or filter gives
    Tally otherCount;      ///< headers that state another number of samples
    Tally otherInterval;   ///< headers that state another sample interval
    Tally oddScalars;      ///< coordinate or elevation scalars that are no power of ten

private:
    void addWords(qint64 trace, const OvTraceHeader& words);
    void addScalars(qint64 trace, const OvTraceHeaderMapping& mapping, const char* header);
    void addStated(qint64 trace, const char* header, int sampleCount);
    void addSamples(qint64 trace, const float* samples, int sampleCount, bool dead);

    OvByteOrder m_order;
    double m_intervalUs;
    OvTraceHeaderMapping m_mapping;
    int m_extent;
    qint64 m_traces = 0;
    OvSegyTraceKeys m_keys;
};

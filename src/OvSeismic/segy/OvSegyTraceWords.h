#pragma once

#include "OvSeismic/segy/OvSegyTypes.h"

/// The words of one 240-byte trace header as they stand in the file.
struct OvSegyTraceWords
{
    qint32 fieldRecord = 0;
    qint32 channel = 0;
    qint32 cdp = 0;
    qint32 offset = 0;
    qint32 receiverElevation = 0;
    qint32 sourceElevation = 0;
    qint32 sourceX = 0;
    qint32 sourceY = 0;
    qint32 receiverX = 0;
    qint32 receiverY = 0;
    qint16 traceId = 0;
    qint16 elevationScalar = 0;
    qint16 coordinateScalar = 0;
    qint16 coordinateUnits = 0;
    qint16 delay = 0;
    qint16 timeScalar = 0;

    static OvSegyTraceWords decode(const char* header, OvByteOrder order);
    /// The factor that a scalar word stands for: a negative one divides, zero is one.
    static double factor(qint16 scalar);
    /// Scalars applied; offset and elevations in metres, coordinates in the file's unit. The offset
    /// and the channel are 0 where the file has none.
    OvTraceHeader toHeader(qint64 traceIndex, double metresPerUnit) const;
};

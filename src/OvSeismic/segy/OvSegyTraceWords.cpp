#include "OvSeismic/segy/OvSegyTraceWords.h"

#include "OvSeismic/segy/OvSegyWords.h"

#include <segyio/segy.h>

OvSegyTraceWords OvSegyTraceWords::decode(const char* header, OvByteOrder order)
{
    const OvSegyWords in(header, 1, order);
    OvSegyTraceWords words;
    words.fieldRecord = in.int32(SEGY_TR_FIELD_RECORD);
    words.channel = in.int32(SEGY_TR_NUMBER_ORIG_FIELD);
    words.cdp = in.int32(SEGY_TR_ENSEMBLE);
    words.offset = in.int32(SEGY_TR_OFFSET);
    words.receiverElevation = in.int32(SEGY_TR_RECV_GROUP_ELEV);
    words.sourceElevation = in.int32(SEGY_TR_SOURCE_SURF_ELEV);
    words.sourceX = in.int32(SEGY_TR_SOURCE_X);
    words.sourceY = in.int32(SEGY_TR_SOURCE_Y);
    words.receiverX = in.int32(SEGY_TR_GROUP_X);
    words.receiverY = in.int32(SEGY_TR_GROUP_Y);
    words.traceId = in.int16(SEGY_TR_TRACE_ID);
    words.elevationScalar = in.int16(SEGY_TR_ELEV_SCALAR);
    words.coordinateScalar = in.int16(SEGY_TR_SOURCE_GROUP_SCALAR);
    words.coordinateUnits = in.int16(SEGY_TR_COORD_UNITS);
    words.delay = in.int16(SEGY_TR_DELAY_REC_TIME);
    words.timeScalar = in.int16(SEGY_TR_SCALAR_TRACE_HEADER);
    return words;
}

double OvSegyTraceWords::factor(qint16 scalar)
{
    if (scalar == 0)
        return 1.0;
    return scalar < 0 ? -1.0 / scalar : scalar;
}

OvTraceHeader OvSegyTraceWords::toHeader(qint64 traceIndex, double metresPerUnit) const
{
    const double coordinate = factor(coordinateScalar);
    const double elevation = factor(elevationScalar) * metresPerUnit;
    OvTraceHeader header;
    header.traceIndex = traceIndex;
    header.fieldRecord = fieldRecord;
    header.channel = channel;
    header.cdp = cdp;
    header.offset = static_cast<float>(offset * metresPerUnit);
    header.sourceX = sourceX * coordinate;
    header.sourceY = sourceY * coordinate;
    header.receiverX = receiverX * coordinate;
    header.receiverY = receiverY * coordinate;
    header.sourceElevation = static_cast<float>(sourceElevation * elevation);
    header.receiverElevation = static_cast<float>(receiverElevation * elevation);
    header.delayMs = static_cast<float>(delay * factor(timeScalar));
    header.traceId = traceId;
    return header;
}

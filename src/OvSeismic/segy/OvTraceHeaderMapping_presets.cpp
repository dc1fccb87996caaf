#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <segyio/segy.h>

#include <QCoreApplication>

namespace {

using Mapping = OvTraceHeaderMapping;

// The first extension header lies behind the 240 bytes of the standard one.
constexpr int extension = 240;

OvHeaderWord int16At(int position)
{
    return {position, OvHeaderType::Int16, OvHeaderOrder::File};
}

OvHeaderWord int32At(int position)
{
    return {position, OvHeaderType::Int32, OvHeaderOrder::File};
}

// Revision 2 keeps the long forms of numbers, coordinates and distances in its first extension
// header, as integers of 64 bits and IEEE numbers in the unit itself.
void useExtension(Mapping* mapping)
{
    const auto put = [mapping](Mapping::Quantity quantity, int byte, OvHeaderType type) {
        mapping->setWord(quantity, {extension + byte, type, OvHeaderOrder::File});
    };
    put(Mapping::FieldRecord, 17, OvHeaderType::Int64);
    put(Mapping::Cdp, 25, OvHeaderType::Int64);
    put(Mapping::ReceiverElevation, 33, OvHeaderType::Float64);
    put(Mapping::SourceElevation, 49, OvHeaderType::Float64);
    put(Mapping::SourceDepth, 57, OvHeaderType::Float64);
    put(Mapping::ReceiverDatum, 65, OvHeaderType::Float64);
    put(Mapping::SourceDatum, 73, OvHeaderType::Float64);
    put(Mapping::SourceX, 97, OvHeaderType::Float64);
    put(Mapping::SourceY, 105, OvHeaderType::Float64);
    put(Mapping::ReceiverX, 113, OvHeaderType::Float64);
    put(Mapping::ReceiverY, 121, OvHeaderType::Float64);
    put(Mapping::Offset, 129, OvHeaderType::Float64);
    mapping->setWord(Mapping::CoordinateScalar, int16At(0));
    mapping->setWord(Mapping::ElevationScalar, int16At(0));
}

void useFloats(Mapping* mapping, std::initializer_list<Mapping::Quantity> quantities)
{
    for (const Mapping::Quantity quantity : quantities) {
        OvHeaderWord word = mapping->word(quantity);
        word.type = OvHeaderType::Float32;
        mapping->setWord(quantity, word);
    }
}

} // namespace

OvTraceHeaderMapping::OvTraceHeaderMapping()
{
    m_words[FieldRecord] = int32At(SEGY_TR_FIELD_RECORD);
    m_words[Channel] = int32At(SEGY_TR_NUMBER_ORIG_FIELD);
    m_words[SourcePoint] = int32At(SEGY_TR_ENERGY_SOURCE_POINT);
    m_words[ReceiverPoint] = int32At(0);
    m_words[Cdp] = int32At(SEGY_TR_ENSEMBLE);
    m_words[Offset] = int32At(SEGY_TR_OFFSET);
    m_words[SourceX] = int32At(SEGY_TR_SOURCE_X);
    m_words[SourceY] = int32At(SEGY_TR_SOURCE_Y);
    m_words[ReceiverX] = int32At(SEGY_TR_GROUP_X);
    m_words[ReceiverY] = int32At(SEGY_TR_GROUP_Y);
    m_words[CoordinateScalar] = int16At(SEGY_TR_SOURCE_GROUP_SCALAR);
    m_words[CoordinateUnits] = int16At(SEGY_TR_COORD_UNITS);
    m_words[SourceElevation] = int32At(SEGY_TR_SOURCE_SURF_ELEV);
    m_words[ReceiverElevation] = int32At(SEGY_TR_RECV_GROUP_ELEV);
    m_words[SourceDepth] = int32At(SEGY_TR_SOURCE_DEPTH);
    m_words[SourceDatum] = int32At(SEGY_TR_SOURCE_DATUM_ELEV);
    m_words[ReceiverDatum] = int32At(SEGY_TR_RECV_DATUM_ELEV);
    m_words[ElevationScalar] = int16At(SEGY_TR_ELEV_SCALAR);
    m_words[Delay] = int16At(SEGY_TR_DELAY_REC_TIME);
    m_words[TimeScalar] = int16At(SEGY_TR_SCALAR_TRACE_HEADER);
    m_words[TraceId] = int16At(SEGY_TR_TRACE_ID);
}

OvTraceHeaderMapping OvTraceHeaderMapping::preset(Preset preset)
{
    OvTraceHeaderMapping mapping;
    switch (preset) {
    case Revision1:
        break;
    case Revision2:
        useExtension(&mapping);
        break;
    case InlineCrossline:
        mapping.setWord(FieldRecord, int32At(SEGY_TR_INLINE));
        mapping.setWord(Channel, int32At(SEGY_TR_CROSSLINE));
        mapping.setWord(Cdp, int32At(SEGY_TR_CROSSLINE));
        break;
    case SourceAndReceiver:
        mapping.setWord(FieldRecord, int32At(SEGY_TR_ENERGY_SOURCE_POINT));
        mapping.setWord(ReceiverPoint, int32At(SEGY_TR_NUM_IN_ENSEMBLE));
        break;
    case FloatingPointOffset:
        useFloats(&mapping, {Offset});
        break;
    case FloatingPointGeometry:
        useFloats(&mapping, {Offset, SourceX, SourceY, ReceiverX, ReceiverY, SourceElevation,
                             ReceiverElevation, SourceDepth, SourceDatum, ReceiverDatum});
        mapping.setWord(CoordinateScalar, int16At(0));
        mapping.setWord(ElevationScalar, int16At(0));
        break;
    }
    return mapping;
}

QString OvTraceHeaderMapping::presetName(Preset preset)
{
    static const std::array<const char*, presetCount> names{{
        QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "SEG-Y revision 0 or 1"),
        QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "SEG-Y revision 2 with extension header"),
        QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Inline and crossline (189, 193)"),
        QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Source point (17) and receiver station (25)"),
        QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Offset in floating point"),
        QT_TRANSLATE_NOOP("OvTraceHeaderMapping", "Geometry in floating point, no scalars"),
    }};
    return QCoreApplication::translate("OvTraceHeaderMapping", names[preset]);
}

#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include "OvSeismic/segy/OvSegyTraceWords.h"
#include "OvSeismic/segy/OvSegyWords.h"

#include <cmath>
#include <limits>

namespace {

template <typename Float, typename Bits>
double floatOf(Bits bits)
{
    Float value = 0;
    static_assert(sizeof(value) == sizeof(bits), "a float of that many bits");
    std::memcpy(&value, &bits, sizeof(value));
    return static_cast<double>(value);
}

double ibmFloat(quint32 bits)
{
    const double fraction = bits & 0xFFFFFFU;
    const int exponent = static_cast<int>((bits >> 24U) & 0x7FU) - 64;
    const double magnitude = std::ldexp(fraction, 4 * exponent - 24);
    return (bits >> 31U) != 0 ? -magnitude : magnitude;
}

OvByteOrder resolve(OvHeaderOrder order, OvByteOrder fileOrder)
{
    switch (order) {
    case OvHeaderOrder::Big:
        return OvByteOrder::BigEndian;
    case OvHeaderOrder::Little:
        return OvByteOrder::LittleEndian;
    case OvHeaderOrder::File:
        break;
    }
    return fileOrder;
}

/// The nearest whole number that the type holds; 0 for what is no number.
template <typename Integer>
Integer rounded(double value)
{
    using Limits = std::numeric_limits<Integer>;
    if (std::isnan(value))
        return 0;
    const double inside = std::min(std::max(value, double(Limits::min())), double(Limits::max()));
    return static_cast<Integer>(std::llround(inside));
}

} // namespace

int OvHeaderWord::bytes(OvHeaderType type)
{
    switch (type) {
    case OvHeaderType::Int8:
    case OvHeaderType::UInt8:
        return 1;
    case OvHeaderType::Int16:
    case OvHeaderType::UInt16:
        return 2;
    case OvHeaderType::Int64:
    case OvHeaderType::Float64:
        return 8;
    default:
        return 4;
    }
}

bool OvHeaderWord::isFloatingPoint(OvHeaderType type)
{
    return type == OvHeaderType::Float32 || type == OvHeaderType::IbmFloat32 ||
           type == OvHeaderType::Float64;
}

double OvHeaderWord::value(const char* header, OvByteOrder fileOrder) const
{
    return number(type, bits(header, fileOrder));
}

qint64 OvHeaderWord::bits(const char* header, OvByteOrder fileOrder) const
{
    if (!exists())
        return 0;
    const OvSegyWords in(header, 1, resolve(order, fileOrder));
    switch (type) {
    case OvHeaderType::Int8:
        return static_cast<qint8>(in.byte(position));
    case OvHeaderType::UInt8:
        return in.byte(position);
    case OvHeaderType::Int16:
        return in.int16(position);
    case OvHeaderType::UInt16:
        return in.uint16(position);
    case OvHeaderType::UInt32:
        return static_cast<quint32>(in.int32(position));
    case OvHeaderType::Int64:
    case OvHeaderType::Float64:
        return in.int64(position);
    default:
        return in.int32(position);
    }
}

double OvHeaderWord::number(OvHeaderType type, qint64 bits)
{
    switch (type) {
    case OvHeaderType::Float32:
        return floatOf<float>(static_cast<qint32>(bits));
    case OvHeaderType::IbmFloat32:
        return ibmFloat(static_cast<quint32>(bits));
    case OvHeaderType::Float64:
        return floatOf<double>(bits);
    default:
        return static_cast<double>(bits);
    }
}

OvTraceHeader OvTraceHeaderMapping::decode(const char* header, OvByteOrder fileOrder,
                                           qint64 traceIndex, double metresPerUnit) const
{
    const auto get = [&](Quantity quantity) { return word(quantity).value(header, fileOrder); };
    const auto factor = [&](Quantity quantity) {
        return OvSegyTraceWords::factor(rounded<qint16>(get(quantity)));
    };
    const double coordinate = factor(CoordinateScalar);
    const double elevation = factor(ElevationScalar) * metresPerUnit;
    OvTraceHeader result;
    result.traceIndex = traceIndex;
    result.fieldRecord = rounded<qint32>(get(FieldRecord));
    result.channel = rounded<qint32>(get(Channel));
    result.cdp = rounded<qint32>(get(Cdp));
    result.offset = static_cast<float>(get(Offset) * metresPerUnit);
    result.sourceX = get(SourceX) * coordinate;
    result.sourceY = get(SourceY) * coordinate;
    result.receiverX = get(ReceiverX) * coordinate;
    result.receiverY = get(ReceiverY) * coordinate;
    result.sourceElevation = static_cast<float>(get(SourceElevation) * elevation);
    result.receiverElevation = static_cast<float>(get(ReceiverElevation) * elevation);
    result.delayMs = static_cast<float>(get(Delay) * factor(TimeScalar));
    result.traceId = rounded<qint16>(get(TraceId));
    return result;
}

int OvTraceHeaderMapping::extent() const
{
    int last = 0;
    for (const OvHeaderWord& word : m_words)
        last = std::max(last, word.exists() ? word.end() : 0);
    return last;
}

OvStatus OvTraceHeaderMapping::validate(int headerBytes) const
{
    const QVector<Problem> found = problems(headerBytes);
    for (const Problem& problem : found) {
        if (problem.severity == Problem::Error)
            return OvStatus::failure(problem.message);
    }
    return OvStatus::success();
}

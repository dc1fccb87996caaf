#include "OvSeismic/segy/OvSegySamples.h"

#include <segyio/segy.h>

#include <QtEndian>

#include <cstring>

namespace {

template <typename Word>
Word wordAt(const char* in, qint64 i, bool big)
{
    Word raw;
    std::memcpy(&raw, in + i * qint64(sizeof(Word)), sizeof(Word));
    return big ? qFromBigEndian(raw) : qFromLittleEndian(raw);
}

template <typename Integer>
void integersToFloat(bool big, const char* in, qint64 count, float* out)
{
    for (qint64 i = 0; i < count; ++i)
        out[i] = static_cast<float>(wordAt<Integer>(in, i, big));
}

/// (-1)^sign * 0.fraction * 16^(exponent - 64). libsegyio 1.8 gives far too large values where the
/// fraction is not normalised, which some recorders write, and NaN where float32 overflows.
float ibmValue(quint32 word)
{
    const auto exponent = static_cast<qint32>((word >> 24) & 0x7F);
    const auto fraction = static_cast<double>(static_cast<qint32>(word & 0xFFFFFF));
    // 2^(4 * (exponent - 64) - 24), put together from the bits of a double; the sign comes along.
    const quint64 scaleBits = (static_cast<quint64>(4 * exponent - 280 + 1023) << 52) |
                              (static_cast<quint64>(word >> 31) << 63);
    double scale = 0.0;
    std::memcpy(&scale, &scaleBits, sizeof(scale));
    return static_cast<float>(fraction * scale);
}

void ibmToFloat(bool big, const char* in, qint64 count, float* out)
{
    for (qint64 i = 0; i < count; ++i)
        out[i] = ibmValue(wordAt<quint32>(in, i, big));
}

void ieeeToFloat(bool big, const char* in, qint64 count, float* out)
{
    const auto bytes = static_cast<std::size_t>(count) * sizeof(float);
    if (big) {
        std::memcpy(out, in, bytes);
        segy_to_native(SEGY_IEEE_FLOAT_4_BYTE, count, out);
        return;
    }
    // libsegyio's conversion takes the big-endian layout only.
    for (qint64 i = 0; i < count; ++i) {
        const auto bits = wordAt<quint32>(in, i, false);
        std::memcpy(out + i, &bits, sizeof(bits));
    }
}

} // namespace

void OvSegySamples::toFloat(int formatCode, OvByteOrder order, const char* in, qint64 count,
                            float* out)
{
    const bool big = order == OvByteOrder::BigEndian;
    switch (formatCode) {
    case SEGY_IBM_FLOAT_4_BYTE:
        return ibmToFloat(big, in, count, out);
    case SEGY_SIGNED_INTEGER_4_BYTE:
        return integersToFloat<qint32>(big, in, count, out);
    case SEGY_SIGNED_SHORT_2_BYTE:
        return integersToFloat<qint16>(big, in, count, out);
    case SEGY_SIGNED_CHAR_1_BYTE:
        return integersToFloat<qint8>(big, in, count, out);
    default:
        return ieeeToFloat(big, in, count, out);
    }
}

#include "OvSeismic/segy/OvSegySamples.h"

#include <segyio/segy.h>

#include <QtEndian>

#include <cstring>

namespace {

template <typename Integer>
void integersToFloat(OvByteOrder order, const char* in, qint64 count, float* out)
{
    const bool big = order == OvByteOrder::BigEndian;
    for (qint64 i = 0; i < count; ++i) {
        Integer raw;
        std::memcpy(&raw, in + i * qint64(sizeof(Integer)), sizeof(Integer));
        out[i] = static_cast<float>(big ? qFromBigEndian(raw) : qFromLittleEndian(raw));
    }
}

/// Copies 4-byte words, reversing each when the file is little-endian: libsegyio's conversion takes
/// the big-endian layout only.
void copyAsBigEndian(OvByteOrder order, const char* in, qint64 count, float* out)
{
    if (order == OvByteOrder::BigEndian) {
        std::memcpy(out, in, static_cast<std::size_t>(count) * sizeof(float));
        return;
    }
    for (qint64 i = 0; i < count; ++i) {
        quint32 word;
        std::memcpy(&word, in + i * 4, sizeof(word));
        word = qbswap(word);
        std::memcpy(out + i, &word, sizeof(word));
    }
}

} // namespace

void OvSegySamples::toFloat(int formatCode, OvByteOrder order, const char* in, qint64 count,
                            float* out)
{
    switch (formatCode) {
    case SEGY_SIGNED_INTEGER_4_BYTE:
        return integersToFloat<qint32>(order, in, count, out);
    case SEGY_SIGNED_SHORT_2_BYTE:
        return integersToFloat<qint16>(order, in, count, out);
    case SEGY_SIGNED_CHAR_1_BYTE:
        return integersToFloat<qint8>(order, in, count, out);
    default:
        copyAsBigEndian(order, in, count, out);
        segy_to_native(formatCode, count, out);
    }
}

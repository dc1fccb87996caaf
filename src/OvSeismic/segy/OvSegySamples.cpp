#include "OvSeismic/segy/OvSegySamples.h"

#include "OvSeismic/dsp/OvVectorClones.h"
#include "OvSeismic/segy/OvSegySampleFormat.h"

#include <QtEndian>

#include <cstring>

// The loops below are plain so that the compiler turns them into vector instructions. libsegyio
// converts in place from the big-endian layout only, a word at a time, gives far too large values
// for IBM floats whose fraction is not normalised, which some recorders write, and NaN where
// float32 overflows.

#ifdef __GNUC__
// Only what is inlined into a clone is compiled for its instructions.
#define OV_INLINE inline __attribute__((always_inline))
#else
#define OV_INLINE inline
#endif

namespace {

template <typename To, typename From>
OV_INLINE To sameBits(From from)
{
    static_assert(sizeof(To) == sizeof(From), "only the type may change");
    To to;
    std::memcpy(&to, &from, sizeof(to));
    return to;
}

struct BigEndian
{
    template <typename Word>
    static OV_INLINE Word fix(Word raw)
    {
        return qFromBigEndian(raw);
    }
    static OV_INLINE quint32 join3(const uchar* in)
    {
        return quint32(in[0]) << 16 | quint32(in[1]) << 8 | in[2];
    }
};

struct LittleEndian
{
    template <typename Word>
    static OV_INLINE Word fix(Word raw)
    {
        return qFromLittleEndian(raw);
    }
    static OV_INLINE quint32 join3(const uchar* in)
    {
        return quint32(in[2]) << 16 | quint32(in[1]) << 8 | in[0];
    }
};

struct PairSwapped : BigEndian
{
    template <typename Word>
    static OV_INLINE Word fix(Word raw)
    {
        constexpr auto even = static_cast<Word>(0x00FF00FF00FF00FF);
        const Word swapped = static_cast<Word>((raw & even) << 8 | ((raw >> 8) & even));
        return sizeof(Word) == 1 ? raw : qFromBigEndian(swapped);
    }
};

template <typename Order, typename Word>
OV_INLINE Word wordAt(const char* in, qint64 i)
{
    Word raw;
    std::memcpy(&raw, in + i * qint64(sizeof(Word)), sizeof(Word));
    return Order::fix(raw);
}

/// (-1)^sign * 0.fraction * 16^(exponent - 64), that is fraction * 2^(4 * exponent - 280), applied
/// as two equal powers: the first product is exact or already too large, so that only the second
/// rounds. The power 2^(2 * exponent - 140) needs no more than the exponent's bits as they stand,
/// moved by the two excesses. Below 2^-90 nothing is left of any fraction.
OV_INLINE float ibmValue(quint32 word)
{
    constexpr qint32 excess = (140 - 127) << 23;
    constexpr qint32 least = (127 - 90) << 23;
    const qint32 wanted = static_cast<qint32>(word & 0x7F000000U) - excess;
    const qint32 power = wanted > least ? wanted : least;
    const auto fraction = static_cast<float>(static_cast<qint32>(word & 0x00FFFFFFU));
    const quint32 withSign = static_cast<quint32>(power) | (word & 0x80000000U);
    return fraction * sameBits<float>(power) * sameBits<float>(withSign);
}

template <typename Order>
OV_INLINE void ibmToFloat(const char* in, qint64 count, float* out)
{
    for (qint64 i = 0; i < count; ++i)
        out[i] = ibmValue(wordAt<Order, quint32>(in, i));
}

template <typename Order>
OV_INLINE void ieeeToFloat(const char* in, qint64 count, float* out)
{
    for (qint64 i = 0; i < count; ++i) {
        // As bits: a value that passes through a float may lose what tells one NaN from another.
        const auto bits = wordAt<Order, quint32>(in, i);
        std::memcpy(out + i, &bits, sizeof(bits));
    }
}

template <typename Order>
OV_INLINE void doublesToFloat(const char* in, qint64 count, float* out)
{
    for (qint64 i = 0; i < count; ++i)
        out[i] = static_cast<float>(sameBits<double>(wordAt<Order, quint64>(in, i)));
}

template <typename Order, typename Word, typename Integer>
OV_INLINE void integersToFloat(const char* in, qint64 count, float* out)
{
    for (qint64 i = 0; i < count; ++i)
        out[i] = static_cast<float>(static_cast<Integer>(wordAt<Order, Word>(in, i)));
}

template <typename Order>
OV_INLINE void signed24ToFloat(const char* in, qint64 count, float* out)
{
    const auto* bytes = reinterpret_cast<const uchar*>(in);
    for (qint64 i = 0; i < count; ++i) {
        const auto high = static_cast<qint32>(Order::join3(bytes + 3 * i) << 8);
        out[i] = static_cast<float>(high >> 8);
    }
}

template <typename Order>
OV_INLINE void unsigned24ToFloat(const char* in, qint64 count, float* out)
{
    const auto* bytes = reinterpret_cast<const uchar*>(in);
    for (qint64 i = 0; i < count; ++i)
        out[i] = static_cast<float>(static_cast<qint32>(Order::join3(bytes + 3 * i)));
}

template <typename Order>
OV_INLINE void convert(int formatCode, const char* in, qint64 count, float* out)
{
    switch (formatCode) {
    case OvSegyFormat::Ibm:
        return ibmToFloat<Order>(in, count, out);
    case OvSegyFormat::Int32:
        return integersToFloat<Order, quint32, qint32>(in, count, out);
    case OvSegyFormat::Int16:
        return integersToFloat<Order, quint16, qint16>(in, count, out);
    case OvSegyFormat::Double:
        return doublesToFloat<Order>(in, count, out);
    case OvSegyFormat::Int24:
        return signed24ToFloat<Order>(in, count, out);
    case OvSegyFormat::Int8:
        return integersToFloat<Order, quint8, qint8>(in, count, out);
    case OvSegyFormat::Int64:
        return integersToFloat<Order, quint64, qint64>(in, count, out);
    case OvSegyFormat::UInt32:
        return integersToFloat<Order, quint32, quint32>(in, count, out);
    case OvSegyFormat::UInt16:
        return integersToFloat<Order, quint16, quint16>(in, count, out);
    case OvSegyFormat::UInt64:
        return integersToFloat<Order, quint64, quint64>(in, count, out);
    case OvSegyFormat::UInt24:
        return unsigned24ToFloat<Order>(in, count, out);
    case OvSegyFormat::UInt8:
        return integersToFloat<Order, quint8, quint8>(in, count, out);
    default:
        return ieeeToFloat<Order>(in, count, out);
    }
}

OV_VECTOR_CLONES void convertBig(int formatCode, const char* in, qint64 count, float* out)
{
    convert<BigEndian>(formatCode, in, count, out);
}

OV_VECTOR_CLONES void convertLittle(int formatCode, const char* in, qint64 count, float* out)
{
    convert<LittleEndian>(formatCode, in, count, out);
}

OV_VECTOR_CLONES void convertPairs(int formatCode, const char* in, qint64 count, float* out)
{
    convert<PairSwapped>(formatCode, in, count, out);
}

} // namespace

void OvSegySamples::toFloat(int formatCode, OvByteOrder order, const char* in, qint64 count,
                            float* out)
{
    if (order == OvByteOrder::BigEndian)
        convertBig(formatCode, in, count, out);
    else if (order == OvByteOrder::LittleEndian)
        convertLittle(formatCode, in, count, out);
    else
        convertPairs(formatCode, in, count, out);
}

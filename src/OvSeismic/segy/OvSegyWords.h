#pragma once

#include "OvSeismic/segy/OvSegyTypes.h"

#include <QtEndian>

#include <cstring>

/// Reads header words by the byte numbers of the SEG-Y standard, counted from 1, in the file's byte
/// order. libsegyio's own field readers know the big-endian order and the words of revision 1 only.
class OvSegyWords
{
public:
    /// data holds the byte number firstByte and what follows it.
    OvSegyWords(const char* data, int firstByte, OvByteOrder order)
        : m_data(data)
        , m_firstByte(firstByte)
        , m_order(order)
    {
    }

    quint8 byte(int number) const { return static_cast<quint8>(m_data[number - m_firstByte]); }
    qint16 int16(int number) const { return get<qint16>(number); }
    quint16 uint16(int number) const { return get<quint16>(number); }
    qint32 int32(int number) const { return get<qint32>(number); }
    quint32 uint32(int number) const { return get<quint32>(number); }
    qint64 int64(int number) const { return get<qint64>(number); }
    double float64(int number) const
    {
        const auto bits = get<quint64>(number);
        double value = 0.0;
        std::memcpy(&value, &bits, sizeof(value));
        return value;
    }

private:
    template <typename T>
    T get(int number) const
    {
        const char* at = m_data + (number - m_firstByte);
        if (m_order == OvByteOrder::LittleEndian)
            return qFromLittleEndian<T>(at);
        const T value = qFromBigEndian<T>(at);
        return m_order == OvByteOrder::BigEndian ? value : exchangePairs(value);
    }
    template <typename T>
    static T exchangePairs(T value)
    {
        constexpr auto evenBytes = static_cast<quint64>(0x00FF00FF00FF00FF);
        const auto bits = static_cast<quint64>(value);
        return static_cast<T>(((bits & evenBytes) << 8) | ((bits >> 8) & evenBytes));
    }

    const char* m_data;
    int m_firstByte;
    OvByteOrder m_order;
};

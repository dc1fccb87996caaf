#pragma once

#include <QFile>
#include <QString>
#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <vector>

/// SEG-Y files for the benchmarks, big-endian, revision 0.
struct BenchSegy
{
    qint64 traces = 0;
    int tracesPerGather = 100;
    int samples = 100;
    qint16 format = 8;   ///< 1, 5 or 8
    int headerEvery = 0; ///< makes a sparse file: only the header of every so many traces is there

    int sampleBytes() const { return format == 8 ? 1 : 4; }
    qint64 traceBytes() const { return 240 + qint64(samples) * sampleBytes(); }
    qint64 fileBytes() const { return 3600 + traces * traceBytes(); }
    bool write(const QString& path) const;

private:
    template <typename T>
    static void put(char* record, int byte, T value)
    {
        qToBigEndian<T>(value, record + byte - 1);
    }
    std::vector<char> fileHeader() const;
    void putHeader(qint64 number, char* trace) const;
    void putSamples(qint64 number, char* out) const;
    bool writeHeaders(QFile* file) const;
    bool writeTraces(QFile* file) const;
};

inline std::vector<char> BenchSegy::fileHeader() const
{
    std::vector<char> bytes(3600);
    std::fill_n(bytes.begin(), 3200, ' ');
    put<qint16>(bytes.data() + 3200, 17, 2000); // sample interval, us
    put<qint16>(bytes.data() + 3200, 21, static_cast<qint16>(samples));
    put<qint16>(bytes.data() + 3200, 25, format);
    return bytes;
}

inline void BenchSegy::putHeader(qint64 number, char* trace) const
{
    const auto gather = static_cast<qint32>(number / tracesPerGather);
    const auto channel = static_cast<qint32>(number % tracesPerGather);
    put<qint32>(trace, 1, static_cast<qint32>(number + 1));
    put<qint32>(trace, 9, 1 + gather);            // field record
    put<qint32>(trace, 13, 1 + channel);          // channel
    put<qint32>(trace, 21, 2 * gather + channel); // CDP
    put<qint16>(trace, 29, 1);
    put<qint32>(trace, 37, 5 * channel); // offset, m
    put<qint32>(trace, 41, 31200 + (gather + channel) % 977);
    put<qint32>(trace, 45, 31000 + gather % 911);
    put<qint16>(trace, 69, -100);
    put<qint16>(trace, 71, -10);
    put<qint32>(trace, 73, 4500000 + 250 * (gather % 500));
    put<qint32>(trace, 77, 60000000 + 400 * (gather / 500));
    put<qint32>(trace, 81, 4500000 + 250 * (gather % 500) + 50 * channel);
    put<qint32>(trace, 85, 60000000 + 400 * (gather / 500));
    put<qint16>(trace, 115, static_cast<qint16>(samples));
    put<qint16>(trace, 117, 2000);
}

inline void BenchSegy::putSamples(qint64 number, char* out) const
{
    for (qint64 sample = 0; sample < samples; ++sample) {
        const auto value = static_cast<int>((sample * 37 + number * 11) % 101 - 50);
        if (format == 8) {
            out[sample] = static_cast<char>(value);
        } else if (format == 5) {
            const auto real = static_cast<float>(value);
            quint32 bits = 0;
            std::memcpy(&bits, &real, sizeof(bits));
            qToBigEndian(bits, out + 4 * sample);
        } else { // |value| / 256 with the exponent of 256
            const quint32 sign = value < 0 ? 0x80000000U : 0U;
            const auto size = static_cast<quint32>(value < 0 ? -value : value);
            qToBigEndian(sign | (0x42U << 24U) | (size << 16U), out + 4 * sample);
        }
    }
}

inline bool BenchSegy::writeHeaders(QFile* file) const
{
    std::vector<char> header(240);
    bool good = file->resize(fileBytes());
    for (qint64 number = 0; number < traces && good; number += headerEvery) {
        putHeader(number, header.data());
        good = file->seek(3600 + number * traceBytes()) && file->write(header.data(), 240) == 240;
    }
    return good;
}

inline bool BenchSegy::writeTraces(QFile* file) const
{
    constexpr qint64 atOnce = 1024;
    std::vector<char> block(static_cast<std::size_t>(atOnce * traceBytes()));
    bool good = true;
    for (qint64 first = 0; first < traces && good; first += atOnce) {
        const qint64 count = qMin(atOnce, traces - first);
        for (qint64 i = 0; i < count; ++i) {
            char* trace = block.data() + i * traceBytes();
            putHeader(first + i, trace);
            putSamples(first + i, trace + 240);
        }
        good = file->write(block.data(), count * traceBytes()) == count * traceBytes();
    }
    return good;
}

inline bool BenchSegy::write(const QString& path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadWrite | QIODevice::Truncate | QIODevice::Unbuffered) &&
           file.write(fileHeader().data(), 3600) == 3600 &&
           (headerEvery > 0 ? writeHeaders(&file) : writeTraces(&file)) && file.flush();
}

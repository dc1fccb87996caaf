#pragma once

#include "OvSeismic/OvSeismicExport.h"

#include <QByteArray>
#include <QtGlobal>

#include <unordered_map>
#include <vector>

/// Where each trace of a file lies whose traces differ in length. About four bytes a trace: a
/// number for the trace's shape, and a position for every 64th trace. A value; const use from any
/// thread.
class OVSEISMIC_EXPORT OvTraceLocator
{
public:
    struct Shape
    {
        qint32 samples = 0;
        qint32 extraHeaders = 0; ///< 240-byte headers behind the first

        qint64 headerBytes() const { return 240 * (1 + qint64(extraHeaders)); }
        bool operator==(const Shape& other) const
        {
            return samples == other.samples && extraHeaders == other.extraHeaders;
        }
    };

    OvTraceLocator() = default;
    /// firstTrace: byte position of the first trace header, from 0. sampleBytes: bytes a sample.
    OvTraceLocator(qint64 firstTrace, int sampleBytes);

    void append(const Shape& shape);

    qint64 count() const { return static_cast<qint64>(m_shapeOfTrace.size()); }
    /// Byte position of the header of a trace, or behind the last for count().
    qint64 position(qint64 trace) const;
    const Shape& shape(qint64 trace) const
    {
        return m_shapes[m_shapeOfTrace[static_cast<std::size_t>(trace)]];
    }
    qint64 end() const { return m_end; }
    /// Samples of the longest trace.
    int longest() const { return m_longest; }

    /// For keeping beside the index of the file.
    QByteArray save() const;
    /// Takes what save() gave; false, with *locator untouched, for anything else and for traces
    /// that would end behind fileSize.
    static bool restore(const QByteArray& bytes, qint64 fileSize, OvTraceLocator* locator);

private:
    qint64 bytesOf(const Shape& shape) const
    {
        return shape.headerBytes() + qint64(shape.samples) * m_sampleBytes;
    }
    quint32 numberOf(const Shape& shape);

    qint64 m_end = 0;
    int m_sampleBytes = 4;
    int m_longest = 0;
    std::vector<Shape> m_shapes;
    std::vector<quint32> m_shapeOfTrace;
    std::vector<qint64> m_marks;                    ///< positions of the traces 0, 64, 128, ...
    std::unordered_map<quint64, quint32> m_numbers; ///< of m_shapes, while traces are appended
};

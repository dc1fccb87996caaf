#include "OvSeismic/segy/OvTraceLocator.h"

#include <QDataStream>

namespace {

constexpr qint64 tracesAMark = 64;
constexpr quint32 magic = 0x4F76544C;
constexpr quint32 version = 1;

std::size_t at(qint64 i)
{
    return static_cast<std::size_t>(i);
}

bool isPossible(const OvTraceLocator::Shape& shape)
{
    return shape.samples >= 0 && shape.extraHeaders >= 0;
}

} // namespace

OvTraceLocator::OvTraceLocator(qint64 firstTrace, int sampleBytes)
    : m_end(firstTrace)
    , m_sampleBytes(sampleBytes)
{
}

quint32 OvTraceLocator::numberOf(const Shape& shape)
{
    if (!m_shapeOfTrace.empty() && m_shapes[m_shapeOfTrace.back()] == shape)
        return m_shapeOfTrace.back();
    const quint64 key = quint64(static_cast<quint32>(shape.samples)) << 32 |
                        static_cast<quint32>(shape.extraHeaders);
    const auto added = m_numbers.emplace(key, static_cast<quint32>(m_shapes.size()));
    if (added.second)
        m_shapes.push_back(shape);
    return added.first->second;
}

void OvTraceLocator::append(const Shape& shape)
{
    if (count() % tracesAMark == 0)
        m_marks.push_back(m_end);
    m_shapeOfTrace.push_back(numberOf(shape));
    m_longest = qMax(m_longest, shape.samples);
    m_end += bytesOf(shape);
}

qint64 OvTraceLocator::position(qint64 trace) const
{
    if (trace == count())
        return m_end;
    const qint64 mark = trace / tracesAMark;
    qint64 position = m_marks[at(mark)];
    for (qint64 i = mark * tracesAMark; i < trace; ++i)
        position += bytesOf(shape(i));
    return position;
}

QByteArray OvTraceLocator::save() const
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    const qint64 first = m_marks.empty() ? m_end : m_marks.front();
    out << magic << version << first << qint32(m_sampleBytes);
    out << quint32(m_shapes.size()) << quint32(m_shapeOfTrace.size());
    for (const Shape& shape : m_shapes)
        out << shape.samples << shape.extraHeaders;
    for (const quint32 number : m_shapeOfTrace)
        out << number;
    return bytes;
}

bool OvTraceLocator::restore(const QByteArray& bytes, qint64 fileSize, OvTraceLocator* locator)
{
    QDataStream in(bytes);
    quint32 start[2] = {};
    qint64 first = 0;
    qint32 sampleBytes = 0;
    quint32 shapes = 0;
    quint32 traces = 0;
    in >> start[0] >> start[1] >> first >> sampleBytes >> shapes >> traces;
    constexpr qint64 headerBytes = 28;
    const bool whole = in.status() == QDataStream::Ok && start[0] == magic && start[1] == version &&
                       bytes.size() == headerBytes + qint64(shapes) * 8 + qint64(traces) * 4;
    if (!whole || first < 0 || sampleBytes < 1 || sampleBytes > 8)
        return false;
    std::vector<Shape> known(shapes);
    for (Shape& shape : known) {
        in >> shape.samples >> shape.extraHeaders;
        if (!isPossible(shape))
            return false;
    }
    OvTraceLocator result(first, sampleBytes);
    for (quint32 i = 0; i < traces; ++i) {
        quint32 number = 0;
        in >> number;
        if (number >= shapes || result.m_end > fileSize)
            return false;
        result.append(known[number]);
    }
    if (result.m_end > fileSize)
        return false;
    *locator = std::move(result);
    return true;
}

#include "OvSeismic/segy/OvSegyTraceProbe.h"

#include "OvSeismic/segy/OvPositionalFile.h"
#include "OvSeismic/segy/OvSegyLayout.h"
#include "OvSeismic/segy/OvSegySampleFormat.h"
#include "OvSeismic/segy/OvSegyWords.h"

#include <segyio/segy.h>

#include <cstdlib>

namespace {

// Words of the first additional trace header, which starts at byte 241.
constexpr int byteExtendedSamples = 240 + 137;
constexpr int byteExtraTraceHeaders = 240 + 157;
constexpr int byteExtensionName = 240 + 233;

constexpr int headerBytes = OvSegyLayout::traceHeaderSize;
// Where headers stand closer together than this, reading what lies between them costs less than
// asking for each.
constexpr qint64 closeBytes = 4096;
constexpr int windowBytes = 256 * 1024;

bool isScalar(int word)
{
    const int size = std::abs(word);
    return size <= 1 || size == 10 || size == 100 || size == 1000 || size == 10000;
}

} // namespace

struct OvSegyTraceProbe::Words
{
    int samples;
    int interval;
    int traceId;
    int elevationScalar;
    int coordinateScalar;
    int coordinateUnits;
};

OvSegyTraceProbe::OvSegyTraceProbe(const OvPositionalFile& file, const OvSegyFileInfo& info)
    : m_file(file)
    , m_info(info)
{
    if (read(info.firstTraceOffset))
        m_first = m_header;
}

OvSegyTraceProbe::Words OvSegyTraceProbe::decode(const char* header, OvByteOrder order)
{
    const OvSegyWords words(header, 1, order);
    return {words.uint16(SEGY_TR_SAMPLE_COUNT),
            words.uint16(SEGY_TR_SAMPLE_INTER),
            words.int16(SEGY_TR_TRACE_ID),
            words.int16(SEGY_TR_ELEV_SCALAR),
            words.int16(SEGY_TR_SOURCE_GROUP_SCALAR),
            words.int16(SEGY_TR_COORD_UNITS)};
}

bool OvSegyTraceProbe::window(qint64 position, qint64 bytes)
{
    const qint64 offset = position - m_windowStart;
    if (offset >= 0 && offset + bytes <= m_window.size())
        return true;
    const bool close =
        m_lastPosition >= 0 && position > m_lastPosition && position - m_lastPosition < closeBytes;
    const qint64 wanted = close ? qMin<qint64>(windowBytes, m_file.size() - position) : bytes;
    m_window.resize(static_cast<int>(wanted));
    m_windowStart = position;
    m_status = m_file.read(position, m_window.data(), wanted);
    if (!m_status)
        m_window.clear();
    return m_status.ok();
}

bool OvSegyTraceProbe::read(qint64 position)
{
    const qint64 room = m_file.size() - position;
    if (position < 0 || room < headerBytes)
        return false;
    const bool extended = m_info.extraTraceHeaders > 0 && room >= qint64(2) * headerBytes;
    const int bytes = extended ? 2 * headerBytes : headerBytes;
    if (!window(position, bytes))
        return false;
    m_header = m_window.mid(static_cast<int>(position - m_windowStart), bytes);
    m_lastPosition = position;
    return true;
}

bool OvSegyTraceProbe::isPlausible() const
{
    if (m_first.isEmpty() || m_header.count('\0') == m_header.size())
        return false;
    const Words first = decode(m_first.constData(), m_info.byteOrder);
    const Words here = decode(m_header.constData(), m_info.byteOrder);
    const auto scalarFits = [](int word, int usual) { return word == usual || isScalar(word); };
    constexpr int lastTraceId = 60;
    constexpr int lastUnit = 4;
    const bool kindFits =
        here.traceId == first.traceId || (here.traceId >= -1 && here.traceId <= lastTraceId);
    const bool unitsFit = here.coordinateUnits == first.coordinateUnits ||
                          (here.coordinateUnits >= 0 && here.coordinateUnits <= lastUnit);
    return kindFits && unitsFit && scalarFits(here.elevationScalar, first.elevationScalar) &&
           scalarFits(here.coordinateScalar, first.coordinateScalar) &&
           (here.interval == first.interval || here.samples == first.samples);
}

/// Where the binary header is wrong about additional headers, samples stand in their place.
bool OvSegyTraceProbe::hasExtension() const
{
    if (m_header.size() <= headerBytes)
        return false;
    const OvSegyWords words(m_header.constData(), 1, m_info.byteOrder);
    const QByteArray name = m_header.mid(byteExtensionName - 1, 4);
    const int narrow = words.uint16(SEGY_TR_SAMPLE_COUNT);
    const qint32 wide = words.int32(byteExtendedSamples);
    return name == "SEG0" || name == "\xE2\xC5\xC7\xF0" || wide == narrow ||
           (narrow == 0 && wide > 0);
}

OvTraceLocator::Shape OvSegyTraceProbe::shape() const
{
    const OvSegyWords words(m_header.constData(), 1, m_info.byteOrder);
    OvTraceLocator::Shape shape = {words.uint16(SEGY_TR_SAMPLE_COUNT), m_info.extraTraceHeaders};
    if (hasExtension()) {
        const qint32 samples = words.int32(byteExtendedSamples);
        const int extra = words.uint16(byteExtraTraceHeaders);
        shape.samples = samples > 0 ? samples : shape.samples;
        if (extra > 0 && extra < m_info.extraTraceHeaders)
            shape.extraHeaders = extra;
    }
    if (shape.samples == 0)
        shape.samples = m_info.sampleCount;
    return shape;
}

qint64 OvSegyTraceProbe::traceBytes() const
{
    const OvTraceLocator::Shape here = shape();
    return here.headerBytes() + qint64(here.samples) * ovSegySampleFormat(m_info.formatCode).bytes;
}

#include "OvSeismic/segy/OvSegyColumns.h"

#include "OvSeismic/segy/OvSegyTraceWords.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

// No shot is heard this far away, m: where the nearest receiver is farther, the file has the
// coordinates of one side only (of a stacked section, say) and zeros for the other.
constexpr float farthestNearOffset = 100000.0F;

} // namespace

OvSegyColumns::OvSegyColumns(const OvTraceHeaderMapping& mapping, double metresPerUnit)
    : m_metresPerUnit(metresPerUnit)
{
    for (int column = 0; column < columnCount; ++column) {
        const auto i = static_cast<std::size_t>(column);
        m_types[i] = mapping.word(quantity(column)).type;
        m_isWhole[i] = !OvHeaderWord::isFloatingPoint(m_types[i]);
    }
}

OvTraceHeaderMapping::Quantity OvSegyColumns::quantity(Column column)
{
    using Mapping = OvTraceHeaderMapping;
    static constexpr std::array<Mapping::Quantity, columnCount> quantities = {
        Mapping::FieldRecord,
        Mapping::Channel,
        Mapping::Cdp,
        Mapping::Offset,
        Mapping::SourceX,
        Mapping::SourceY,
        Mapping::ReceiverX,
        Mapping::ReceiverY,
        Mapping::SourceElevation,
        Mapping::ReceiverElevation,
        Mapping::CoordinateScalar,
        Mapping::ElevationScalar,
        Mapping::Delay,
        Mapping::TimeScalar,
        Mapping::TraceId,
        Mapping::CoordinateUnits,
    };
    return quantities[column];
}

void OvSegyColumns::append(const Block<qint32>& block)
{
    appendBlock(block);
}

void OvSegyColumns::append(const Block<qint64>& block)
{
    appendBlock(block);
}

template <typename Word>
void OvSegyColumns::appendBlock(const Block<Word>& block)
{
    for (std::size_t column = 0; column < keptCount; ++column)
        m_columns[column].append(block.words[column].data(), block.count);
    const auto any = [&](Column column) {
        return !m_columns[column].isConstantAround(size() - 1) || block.words[column][0] != 0;
    };
    m_facts.hasChannels = m_facts.hasChannels || any(Channel);
    m_facts.hasOffsets = m_facts.hasOffsets || any(Offset);
    if (m_facts.hasOffsets)
        lookAtOffsets(block);
    else
        lookAtCoordinates(block);
}

template <typename Word>
void OvSegyColumns::lookAtOffsets(const Block<Word>& block)
{
    // Blocks without offsets before the first with some are known to be zero.
    if (size() > block.count && !(m_facts.offsets.most >= 0.0F))
        m_facts.offsets.add(0.0F, 0.0F);
    Range range;
    for (std::size_t i = 0; i < static_cast<std::size_t>(block.count); ++i) {
        const double metres = number(Offset, block.words[Offset][i]) * m_metresPerUnit;
        const float offset = std::abs(static_cast<float>(metres));
        range.add(offset, offset);
    }
    m_facts.offsets.add(range.least, range.most);
}

template <typename Word>
void OvSegyColumns::lookAtCoordinates(const Block<Word>& block)
{
    const auto& words = block.words;
    const auto count = static_cast<std::size_t>(block.count);
    bool apart = m_facts.hasCoordinates;
    for (std::size_t i = 0; i < count && !apart; ++i) {
        // Degrees and seconds of arc give no distance.
        const bool length = words[CoordinateUnits][i] == 0 || words[CoordinateUnits][i] == 1;
        apart = length && (words[SourceX][i] != words[ReceiverX][i] ||
                           words[SourceY][i] != words[ReceiverY][i]);
    }
    m_facts.hasCoordinates = apart;
    Range range;
    double toMetres = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        if (i == 0 || words[CoordinateScalar][i] != words[CoordinateScalar][i - 1])
            toMetres = factor(CoordinateScalar, words[CoordinateScalar][i]) * m_metresPerUnit;
        const double dx =
            number(ReceiverX, words[ReceiverX][i]) - number(SourceX, words[SourceX][i]);
        const double dy =
            number(ReceiverY, words[ReceiverY][i]) - number(SourceY, words[SourceY][i]);
        const auto metres = static_cast<float>(std::sqrt(dx * dx + dy * dy) * toMetres);
        range.add(metres, metres);
    }
    m_facts.distances.add(range.least, range.most);
}

void OvSegyColumns::append(const OvSegyColumns& other)
{
    if (other.size() == 0)
        return;
    const bool zerosBefore = size() > 0 && !m_facts.hasOffsets;
    const bool zerosBehind = !other.m_facts.hasOffsets;
    for (std::size_t column = 0; column < keptCount; ++column)
        m_columns[column].append(other.m_columns[column]);
    m_facts.hasChannels = m_facts.hasChannels || other.m_facts.hasChannels;
    m_facts.hasOffsets = m_facts.hasOffsets || other.m_facts.hasOffsets;
    m_facts.hasCoordinates = m_facts.hasCoordinates || other.m_facts.hasCoordinates;
    m_facts.offsets.add(other.m_facts.offsets.least, other.m_facts.offsets.most);
    m_facts.distances.add(other.m_facts.distances.least, other.m_facts.distances.most);
    if (m_facts.hasOffsets && (zerosBefore || zerosBehind))
        m_facts.offsets.add(0.0F, 0.0F);
}

void OvSegyColumns::finish()
{
    for (OvPackedColumn& column : m_columns)
        column.shrink();
    if (offsetsAreComputed())
        m_facts.hasCoordinates = m_facts.distances.least < farthestNearOffset;
}

qint32 OvSegyColumns::whole(Column column, qint64 bits) const
{
    using Limits = std::numeric_limits<qint32>;
    if (m_isWhole[column])
        return static_cast<qint32>(qBound<qint64>(Limits::min(), bits, Limits::max()));
    const double real = number(column, bits);
    if (std::isnan(real))
        return 0;
    return static_cast<qint32>(
        std::lround(std::min(std::max(real, double(Limits::min())), double(Limits::max()))));
}

double OvSegyColumns::factor(Column scalar, qint64 bits) const
{
    using Limits = std::numeric_limits<qint16>;
    return OvSegyTraceWords::factor(
        static_cast<qint16>(qBound<qint32>(Limits::min(), whole(scalar, bits), Limits::max())));
}

double OvSegyColumns::coordinate(Column column, qint64 trace) const
{
    return value(column, trace) * factorAt(CoordinateScalar, trace);
}

float OvSegyColumns::distance(qint64 trace) const
{
    const double dx = value(ReceiverX, trace) - value(SourceX, trace);
    const double dy = value(ReceiverY, trace) - value(SourceY, trace);
    const double toMetres = factorAt(CoordinateScalar, trace) * m_metresPerUnit;
    return static_cast<float>(std::sqrt(dx * dx + dy * dy) * toMetres);
}

float OvSegyColumns::offset(qint64 trace) const
{
    if (m_facts.hasOffsets)
        return static_cast<float>(value(Offset, trace) * m_metresPerUnit);
    return m_facts.hasCoordinates ? distance(trace) : std::numeric_limits<float>::quiet_NaN();
}

float OvSegyColumns::minimumOffset() const
{
    return offsetsAreUnknown() || range().most < range().least
               ? std::numeric_limits<float>::quiet_NaN()
               : range().least;
}

float OvSegyColumns::maximumOffset() const
{
    return offsetsAreUnknown() || range().most < range().least
               ? std::numeric_limits<float>::quiet_NaN()
               : range().most;
}

qint64 OvSegyColumns::bytes() const
{
    qint64 sum = 0;
    for (const OvPackedColumn& column : m_columns)
        sum += column.bytes();
    return sum;
}

OvTraceHeader OvSegyColumns::header(qint64 trace) const
{
    const double coordinate = factorAt(CoordinateScalar, trace);
    const double elevation = factorAt(ElevationScalar, trace) * m_metresPerUnit;
    OvTraceHeader header;
    header.traceIndex = trace;
    header.fieldRecord = fieldRecord(trace);
    header.channel = wholeAt(Channel, trace);
    header.cdp = cdp(trace);
    header.offset = offset(trace);
    header.sourceX = value(SourceX, trace) * coordinate;
    header.sourceY = value(SourceY, trace) * coordinate;
    header.receiverX = value(ReceiverX, trace) * coordinate;
    header.receiverY = value(ReceiverY, trace) * coordinate;
    header.sourceElevation = static_cast<float>(value(SourceElevation, trace) * elevation);
    header.receiverElevation = static_cast<float>(value(ReceiverElevation, trace) * elevation);
    header.delayMs = static_cast<float>(value(Delay, trace) * factorAt(TimeScalar, trace));
    header.traceId = static_cast<qint16>(wholeAt(TraceId, trace));
    return header;
}

void OvSegyColumns::save(std::vector<char>* out) const
{
    const std::array<float, 4> ranges = {m_facts.offsets.least, m_facts.offsets.most,
                                         m_facts.distances.least, m_facts.distances.most};
    const auto* bytes = reinterpret_cast<const char*>(ranges.data());
    out->insert(out->end(), bytes, bytes + sizeof(ranges));
    for (const bool flag : {m_facts.hasChannels, m_facts.hasOffsets, m_facts.hasCoordinates})
        out->push_back(flag ? 1 : 0);
    for (const OvPackedColumn& column : m_columns)
        column.save(out);
}

bool OvSegyColumns::load(const char** bytes, const char* end, qint64 size)
{
    std::array<float, 4> ranges{};
    constexpr std::ptrdiff_t flagCount = 3;
    if (end - *bytes < static_cast<std::ptrdiff_t>(sizeof(ranges)) + flagCount)
        return false;
    std::memcpy(ranges.data(), *bytes, sizeof(ranges));
    const char* flags = *bytes + sizeof(ranges);
    m_facts.offsets = {ranges[0], ranges[1]};
    m_facts.distances = {ranges[2], ranges[3]};
    m_facts.hasChannels = flags[0] != 0;
    m_facts.hasOffsets = flags[1] != 0;
    m_facts.hasCoordinates = flags[2] != 0;
    *bytes = flags + flagCount;
    bool good = true;
    for (OvPackedColumn& column : m_columns)
        good = good && column.load(bytes, end, size);
    if (!good)
        m_columns = {};
    return good;
}

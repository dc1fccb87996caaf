#pragma once

#include "OvSeismic/segy/OvPackedColumn.h"
#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <array>
#include <limits>

/// The header words of all traces as they stand in the file, one packed column a word.
class OvSegyColumns
{
public:
    enum Column {
        FieldRecord,
        Channel,
        Cdp,
        Offset,
        SourceX,
        SourceY,
        ReceiverX,
        ReceiverY,
        SourceElevation,
        ReceiverElevation,
        CoordinateScalar,
        ElevationScalar,
        Delay,
        TimeScalar,
        TraceId,
        CoordinateUnits, ///< looked at, but not kept
    };
    static constexpr int keptCount = TraceId + 1;
    static constexpr int columnCount = CoordinateUnits + 1;
    static constexpr int blockSize = OvPackedColumn::blockSize;

    /// The words (OvHeaderWord::bits) of up to blockSize traces.
    template <typename Word>
    struct Block
    {
        std::array<std::array<Word, blockSize>, columnCount> words;
        int count = 0;
    };

    OvSegyColumns() = default;
    explicit OvSegyColumns(const OvTraceHeaderMapping& mapping, double metresPerUnit);

    /// Which word of the header a column holds.
    static OvTraceHeaderMapping::Quantity quantity(Column column);
    static OvTraceHeaderMapping::Quantity quantity(int column) { return quantity(Column(column)); }

    /// Every block but the last is full.
    void append(const Block<qint32>& block);
    void append(const Block<qint64>& block);
    /// The columns of the traces that follow this one's, whose count is a multiple of blockSize.
    void append(const OvSegyColumns& other);
    /// Applies the rules that look at all traces: distances from the coordinates when no trace has
    /// an offset word, unknown when there are no believable coordinates either.
    void finish();

    qint64 size() const { return m_columns[FieldRecord].size(); }
    const OvPackedColumn& column(Column column) const { return m_columns[column]; }
    qint32 fieldRecord(qint64 trace) const { return wholeAt(FieldRecord, trace); }
    qint32 cdp(qint64 trace) const { return wholeAt(Cdp, trace); }
    /// m; NaN unknown.
    float offset(qint64 trace) const;
    /// In the file's unit, scalar applied.
    double coordinate(Column column, qint64 trace) const;
    OvTraceHeader header(qint64 trace) const;

    bool hasChannels() const { return m_facts.hasChannels; }
    bool offsetsAreComputed() const { return !m_facts.hasOffsets && m_facts.hasCoordinates; }
    bool offsetsAreUnknown() const { return !m_facts.hasOffsets && !m_facts.hasCoordinates; }
    /// Smallest and largest absolute offset, m; NaN when no trace has one.
    float minimumOffset() const;
    float maximumOffset() const;
    /// Bytes that the columns take.
    qint64 bytes() const;

    /// The form in files, without the mapping. load() trusts nothing; false, with these columns
    /// empty, when *bytes are no columns of size traces.
    void save(std::vector<char>* out) const;
    bool load(const char** bytes, const char* end, qint64 size);

private:
    /// Least and most of what has been looked at.
    struct Range
    {
        float least = std::numeric_limits<float>::infinity();
        float most = -std::numeric_limits<float>::infinity();
        void add(float low, float high)
        {
            least = low < least ? low : least;
            most = high > most ? high : most;
        }
    };
    struct Facts
    {
        Range offsets = {};   ///< absolute values of the offset words, m
        Range distances = {}; ///< from source to receiver, m
        bool hasChannels = false;
        bool hasOffsets = false;
        bool hasCoordinates = false;
    };

    template <typename Word>
    void appendBlock(const Block<Word>& block);
    template <typename Word>
    void lookAtOffsets(const Block<Word>& block);
    template <typename Word>
    void lookAtCoordinates(const Block<Word>& block);
    double number(Column column, qint64 bits) const
    {
        return m_isWhole[column] ? static_cast<double>(bits)
                                 : OvHeaderWord::number(m_types[column], bits);
    }
    double value(Column column, qint64 trace) const
    {
        return number(column, m_columns[column].at(trace));
    }
    qint32 whole(Column column, qint64 bits) const;
    qint32 wholeAt(Column column, qint64 trace) const
    {
        return whole(column, m_columns[column].at(trace));
    }
    /// What a scalar word stands for.
    double factor(Column scalar, qint64 bits) const;
    double factorAt(Column scalar, qint64 trace) const
    {
        return factor(scalar, m_columns[scalar].at(trace));
    }
    float distance(qint64 trace) const;
    const Range& range() const { return m_facts.hasOffsets ? m_facts.offsets : m_facts.distances; }

    std::array<OvPackedColumn, keptCount> m_columns;
    std::array<OvHeaderType, columnCount> m_types{};
    std::array<bool, columnCount> m_isWhole{};
    double m_metresPerUnit = 1.0;
    Facts m_facts;
};

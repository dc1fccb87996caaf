#pragma once

#include "OvSeismic/OvSeismicExport.h"
#include "OvSeismic/firstbreak/OvFirstBreaks.h"

#include <map>
#include <vector>

/// First breaks by trace, kept in blocks of consecutive traces in file order: block n holds the
/// traces from n * size on, the last block those that are left.
///
/// A block that is known to hold nothing is there and empty; one that is not there is not known.
class OVSEISMIC_EXPORT OvFirstBreakBlocks
{
public:
    static constexpr int size = 256;

    explicit OvFirstBreakBlocks(qint64 traceCount = 0);

    /// Blocks that traces lie in, ascending, each once.
    static std::vector<qint64> numbersOf(const std::vector<qint64>& traces);

    qint64 traceCount() const { return m_traceCount; }
    qint64 blockCount() const { return (m_traceCount + size - 1) / size; }
    /// Traces of a block.
    int tracesIn(qint64 number) const;
    /// Whether every trace is one of the file's.
    bool fits(const std::vector<qint64>& traces) const;

    std::size_t count() const { return m_blocks.size(); }
    bool contains(qint64 number) const { return m_blocks.count(number) > 0; }
    const std::map<qint64, OvFirstBreaks>& all() const { return m_blocks; }
    /// Replaces a block; breaks are empty or one for each of its traces.
    void insert(qint64 number, OvFirstBreaks breaks) { m_blocks[number] = std::move(breaks); }
    void clear() { m_blocks.clear(); }

    /// One entry a trace, in the order of traces; empty when none of them has anything. Traces of
    /// blocks that are not known have nothing.
    OvFirstBreaks read(const std::vector<qint64>& traces) const;
    /// Replaces the entries of traces; breaks has one a trace. Makes the blocks that it needs.
    void write(const std::vector<qint64>& traces, const OvFirstBreaks& breaks);
    /// The same for traces of known blocks; the others are left out.
    void writeKnown(const std::vector<qint64>& traces, const OvFirstBreaks& breaks);

private:
    qint64 m_traceCount;
    std::map<qint64, OvFirstBreaks> m_blocks;
};

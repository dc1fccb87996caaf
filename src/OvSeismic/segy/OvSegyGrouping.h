#pragma once

#include "OvSeismic/segy/OvGatherOrder.h"
#include "OvSeismic/segy/OvPackedColumn.h"

#include <vector>

class OvSegyColumns;
class OvSegyGroupingBuilder;

/// Which traces form which gather. Knows the traces by number only; the columns that it was made of
/// are handed to it where it needs their words.
class OvSegyGrouping
{
public:
    enum class Rule {
        ByKey,        ///< one gather a value of the key
        NoKeys,       ///< every trace has the same key, which says nothing: one gather
        SingleTraces, ///< every field record has one trace: one gather
    };

    OvSegyGrouping() = default;
    OvSegyGrouping(const OvSegyColumns& columns, const OvGatherOrder& order);

    Rule rule() const { return m_rule; }
    int gatherCount() const { return static_cast<int>(m_starts.size()); }
    int traceCount(int gather) const { return static_cast<int>(end(gather) - start(gather)); }
    /// -1 when there is none.
    int gatherOfFieldRecord(const OvSegyColumns& columns, qint32 fieldRecord) const;
    int gatherOfTrace(qint64 trace) const;
    /// A trace of a gather, in file order.
    qint64 trace(int gather, int position) const
    {
        const qint64 place = start(gather) + position;
        return m_traces.size() == 0 ? place : m_traces.at(place);
    }
    /// Gathers of one key lie in the order of their keys, where it has one (CDP, OffsetBin).
    static bool isSorted(OvGatherKey key)
    {
        return key == OvGatherKey::Cdp || key == OvGatherKey::OffsetBin;
    }
    /// The width that the order asks for, or the default where it makes no sense.
    static double binWidth(const OvGatherOrder& order);
    /// The number of the bin that an offset falls in; the largest number for an unknown one.
    static qint64 binOf(float offset, double width);
    qint64 bytes() const;

private:
    static std::size_t at(qint64 i) { return static_cast<std::size_t>(i); }
    qint64 start(int gather) const { return m_starts[at(gather)]; }
    qint64 end(int gather) const
    {
        return gather + 1 < gatherCount() ? m_starts[at(gather + 1)] : m_size;
    }
    void take(OvSegyGroupingBuilder* builder, const OvSegyColumns& columns, OvGatherKey key);
    void sortByRecord(const OvSegyColumns& columns);

    Rule m_rule = Rule::ByKey;
    qint64 m_size = 0;
    // Where each gather's traces begin: in m_traces or, where that is empty because the traces of
    // every gather lie side by side, in the file.
    std::vector<quint32> m_starts;
    OvPackedColumn m_traces;
    OvPackedColumn m_gathers; // of each trace, where m_traces is not empty
    // Gathers by ascending field record, where that is not their order anyway.
    std::vector<quint32> m_byRecord;
};

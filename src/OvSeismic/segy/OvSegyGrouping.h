#pragma once

#include <QtGlobal>

#include <unordered_map>
#include <vector>

class OvSegyColumns;

/// Which traces form which gather.
class OvSegyGrouping
{
public:
    enum class Rule {
        FieldRecord,  ///< one gather a field record
        NoRecords,    ///< every field record is 0: one gather
        SingleTraces, ///< every field record has one trace: one gather
    };

    OvSegyGrouping() = default;
    explicit OvSegyGrouping(const OvSegyColumns& columns);

    Rule rule() const { return m_rule; }
    int gatherCount() const { return static_cast<int>(m_gathers.size()); }
    qint32 fieldRecord(int gather) const { return m_gathers[at(gather)].fieldRecord; }
    int traceCount(int gather) const { return static_cast<int>(m_gathers[at(gather)].count); }
    /// -1 when there is none.
    int gatherOfFieldRecord(qint32 fieldRecord) const;
    int gatherOfTrace(qint64 trace) const;
    /// The trace in a row of a gather.
    qint64 trace(int gather, int row) const;

private:
    struct Gather
    {
        qint32 fieldRecord;
        qint64 start; ///< first trace, or position in m_order
        qint64 count;
    };

    static std::size_t at(qint64 i) { return static_cast<std::size_t>(i); }
    void countTraces(const OvSegyColumns& columns);
    void joinAll(Rule rule, const OvSegyColumns& columns);
    void sortOut(const OvSegyColumns& columns);

    Rule m_rule = Rule::FieldRecord;
    std::vector<Gather> m_gathers;
    std::unordered_map<qint32, int> m_byRecord;
    // Only where the traces of some record are not side by side in the file.
    std::vector<quint32> m_order;
    std::vector<qint32> m_gatherOfTrace;
};

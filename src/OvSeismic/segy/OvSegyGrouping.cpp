#include "OvSeismic/segy/OvSegyGrouping.h"

#include "OvSeismic/segy/OvSegyColumns.h"

#include <algorithm>

OvSegyGrouping::OvSegyGrouping(const OvSegyColumns& columns)
{
    const qint64 traces = columns.size();
    if (traces == 0)
        return;
    countTraces(columns);
    if (m_gathers.size() == 1 && m_gathers[0].fieldRecord == 0)
        joinAll(Rule::NoRecords, columns);
    else if (traces > 1 && static_cast<qint64>(m_gathers.size()) == traces)
        joinAll(Rule::SingleTraces, columns);
    else
        sortOut(columns);
}

void OvSegyGrouping::countTraces(const OvSegyColumns& columns)
{
    int gather = -1;
    for (qint64 trace = 0; trace < columns.size(); ++trace) {
        const qint32 record = columns.fieldRecord(trace);
        if (gather < 0 || m_gathers[at(gather)].fieldRecord != record) {
            const auto added = m_byRecord.emplace(record, gatherCount());
            gather = added.first->second;
            if (added.second)
                m_gathers.push_back({record, trace, 0});
        }
        ++m_gathers[at(gather)].count;
    }
}

void OvSegyGrouping::joinAll(Rule rule, const OvSegyColumns& columns)
{
    m_rule = rule;
    m_gathers = {{columns.fieldRecord(0), 0, columns.size()}};
    m_byRecord = {{columns.fieldRecord(0), 0}};
}

void OvSegyGrouping::sortOut(const OvSegyColumns& columns)
{
    qint64 start = 0;
    bool contiguous = true;
    for (const Gather& gather : m_gathers) {
        contiguous = contiguous && gather.start == start;
        start += gather.count;
    }
    // Counts and first traces alone do not show a record that comes back later.
    for (qint64 trace = 1, changes = 0; trace < columns.size() && contiguous; ++trace) {
        changes += columns.fieldRecord(trace) != columns.fieldRecord(trace - 1) ? 1 : 0;
        contiguous = changes < gatherCount();
    }
    if (contiguous)
        return;
    m_order.resize(at(columns.size()));
    m_gatherOfTrace.resize(at(columns.size()));
    std::vector<qint64> next;
    start = 0;
    for (Gather& gather : m_gathers) {
        gather.start = start;
        next.push_back(start);
        start += gather.count;
    }
    for (qint64 trace = 0; trace < columns.size(); ++trace) {
        const int gather = m_byRecord.find(columns.fieldRecord(trace))->second;
        m_gatherOfTrace[at(trace)] = gather;
        m_order[at(next[at(gather)]++)] = static_cast<quint32>(trace);
    }
}

int OvSegyGrouping::gatherOfFieldRecord(qint32 fieldRecord) const
{
    const auto found = m_byRecord.find(fieldRecord);
    return found == m_byRecord.end() ? -1 : found->second;
}

int OvSegyGrouping::gatherOfTrace(qint64 trace) const
{
    if (!m_gatherOfTrace.empty())
        return m_gatherOfTrace[at(trace)];
    const auto after =
        std::upper_bound(m_gathers.begin(), m_gathers.end(), trace,
                         [](qint64 value, const Gather& gather) { return value < gather.start; });
    return static_cast<int>(after - m_gathers.begin()) - 1;
}

qint64 OvSegyGrouping::trace(int gather, int row) const
{
    const qint64 position = m_gathers[at(gather)].start + row;
    return m_order.empty() ? position : m_order[at(position)];
}

#pragma once

#include "OvSeismic/segy/OvPackedColumn.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>
#include <vector>

/// Sorts the traces of a file into gathers by a key. Takes some 20 bytes a trace at the worst,
/// while it exists.
class OvSegyGroupingBuilder
{
public:
    using Position = std::pair<double, double>;

    explicit OvSegyGroupingBuilder(qint64 traces)
        : m_size(traces)
    {
    }

    /// keyOf(trace) is a qint64 or a Position. Gathers come in the order of their keys when sorted,
    /// else in the order of their first traces.
    template <typename KeyOf>
    void build(const KeyOf& keyOf, bool sorted)
    {
        findRuns(keyOf);
        if (sorted)
            sortKeys(keyOf);
        m_saysNothing = saysNothing(keyOf(0));
    }
    qint64 gatherCount() const { return static_cast<qint64>(m_firsts.size()); }
    /// Whether the key of the first trace is one that stands where nothing is known.
    bool saysNothing() const { return m_saysNothing; }
    /// The gathers' first places; the traces by place and the gather of each trace, both empty
    /// where the gathers follow each other in the file.
    void layOut(std::vector<quint32>* starts, OvPackedColumn* traces, OvPackedColumn* gathers);

private:
    /// Traces of one key that follow each other in the file.
    struct Run
    {
        quint32 start;
        quint32 gather;
    };
    static constexpr quint32 none = std::numeric_limits<quint32>::max();

    static quint64 mixed(quint64 bits);
    static quint64 hashOf(qint64 key);
    static quint64 hashOf(const Position& key);
    static bool saysNothing(qint64 key);
    static bool saysNothing(const Position& key);

    template <typename KeyOf>
    void findRuns(const KeyOf& keyOf)
    {
        m_table.assign(smallestTable, none);
        auto key = keyOf(0);
        addRun(0, key, keyOf);
        for (qint64 trace = 1; trace < m_size; ++trace) {
            const auto next = keyOf(trace);
            if (next == key)
                continue;
            key = next;
            addRun(trace, key, keyOf);
        }
        m_table = {};
    }
    template <typename Key, typename KeyOf>
    void addRun(qint64 trace, const Key& key, const KeyOf& keyOf)
    {
        const auto start = static_cast<quint32>(trace);
        quint32* const place = find(key, keyOf);
        m_runs.push_back({start, *place == none ? static_cast<quint32>(m_firsts.size()) : *place});
        if (*place != none)
            return;
        *place = m_runs.back().gather;
        m_firsts.push_back(start);
        if (m_firsts.size() > m_table.size() / 2)
            grow(keyOf);
    }
    /// Where the gather of a key stands in the table, or would stand.
    template <typename Key, typename KeyOf>
    quint32* find(const Key& key, const KeyOf& keyOf)
    {
        const std::size_t mask = m_table.size() - 1;
        std::size_t slot = static_cast<std::size_t>(hashOf(key)) & mask;
        while (m_table[slot] != none && keyOf(m_firsts[m_table[slot]]) != key)
            slot = (slot + 1) & mask;
        return &m_table[slot];
    }
    template <typename KeyOf>
    void grow(const KeyOf& keyOf)
    {
        m_table.assign(m_table.size() * 2, none);
        for (std::size_t gather = 0; gather < m_firsts.size(); ++gather)
            *find(keyOf(m_firsts[gather]), keyOf) = static_cast<quint32>(gather);
    }
    template <typename KeyOf>
    void sortKeys(const KeyOf& keyOf)
    {
        std::vector<quint32> byKey(m_firsts.size());
        std::iota(byKey.begin(), byKey.end(), 0U);
        std::sort(byKey.begin(), byKey.end(),
                  [&](quint32 a, quint32 b) { return keyOf(m_firsts[a]) < keyOf(m_firsts[b]); });
        renumber(byKey);
    }

    void renumber(const std::vector<quint32>& byKey);
    std::vector<quint32> countTraces() const;
    bool isContiguous() const;
    qint64 endOf(std::size_t run) const
    {
        return run + 1 < m_runs.size() ? qint64(m_runs[run + 1].start) : m_size;
    }
    void scatter(std::vector<quint32> next, OvPackedColumn* traces) const;
    void noteGathers(OvPackedColumn* gathers) const;

    static constexpr std::size_t smallestTable = 1024;
    qint64 m_size;
    bool m_saysNothing = false;
    std::vector<Run> m_runs;
    std::vector<quint32> m_firsts; // the first trace of each gather
    std::vector<quint32> m_table;  // gathers by the hash of their keys; its size is a power of two
};

#include "OvSeismic/segy/OvSegyGroupingBuilder.h"

#include <array>
#include <cmath>
#include <cstring>

quint64 OvSegyGroupingBuilder::mixed(quint64 bits)
{
    // The finalizer of splitmix64 spreads neighbouring keys over the table.
    bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
    return bits ^ (bits >> 31U);
}

quint64 OvSegyGroupingBuilder::hashOf(qint64 key)
{
    return mixed(static_cast<quint64>(key));
}

quint64 OvSegyGroupingBuilder::hashOf(const Position& key)
{
    // Adding zero makes the negative zero, which equals it, the positive one.
    const std::array<double, 2> numbers = {key.first + 0.0, key.second + 0.0};
    std::array<quint64, 2> bits{};
    std::memcpy(bits.data(), numbers.data(), sizeof(bits));
    return mixed(mixed(bits[0]) + bits[1]);
}

bool OvSegyGroupingBuilder::saysNothing(qint64 key)
{
    return key == 0 || key == std::numeric_limits<qint64>::max();
}

bool OvSegyGroupingBuilder::saysNothing(const Position& key)
{
    return std::fpclassify(key.first) == FP_ZERO && std::fpclassify(key.second) == FP_ZERO;
}

void OvSegyGroupingBuilder::renumber(const std::vector<quint32>& byKey)
{
    std::vector<quint32> firsts;
    std::vector<quint32> numbers(byKey.size());
    firsts.reserve(byKey.size());
    for (const quint32 old : byKey) {
        numbers[old] = static_cast<quint32>(firsts.size());
        firsts.push_back(m_firsts[old]);
    }
    m_firsts = std::move(firsts);
    for (Run& run : m_runs)
        run.gather = numbers[run.gather];
}

std::vector<quint32> OvSegyGroupingBuilder::countTraces() const
{
    std::vector<quint32> counts(m_firsts.size());
    for (std::size_t run = 0; run < m_runs.size(); ++run)
        counts[m_runs[run].gather] += static_cast<quint32>(endOf(run) - m_runs[run].start);
    return counts;
}

bool OvSegyGroupingBuilder::isContiguous() const
{
    return m_runs.size() == m_firsts.size() && std::is_sorted(m_firsts.begin(), m_firsts.end());
}

void OvSegyGroupingBuilder::layOut(std::vector<quint32>* starts, OvPackedColumn* traces,
                                   OvPackedColumn* gathers)
{
    if (isContiguous()) {
        *starts = std::move(m_firsts);
        starts->shrink_to_fit();
        return;
    }
    *starts = countTraces();
    quint32 place = 0;
    for (quint32& start : *starts)
        place += std::exchange(start, place);
    noteGathers(gathers);
    scatter(*starts, traces);
}

void OvSegyGroupingBuilder::scatter(std::vector<quint32> next, OvPackedColumn* traces) const
{
    std::vector<qint32> byPlace(static_cast<std::size_t>(m_size));
    for (std::size_t run = 0; run < m_runs.size(); ++run) {
        quint32& place = next[m_runs[run].gather];
        for (qint64 trace = m_runs[run].start; trace < endOf(run); ++trace)
            byPlace[place++] = static_cast<qint32>(trace);
    }
    for (qint64 first = 0; first < m_size; first += OvPackedColumn::blockSize) {
        const qint64 count = qMin<qint64>(OvPackedColumn::blockSize, m_size - first);
        traces->append(byPlace.data() + first, static_cast<int>(count));
    }
    traces->shrink();
}

void OvSegyGroupingBuilder::noteGathers(OvPackedColumn* gathers) const
{
    std::array<qint32, OvPackedColumn::blockSize> block{};
    std::size_t filled = 0;
    for (std::size_t run = 0; run < m_runs.size(); ++run) {
        for (qint64 trace = m_runs[run].start; trace < endOf(run); ++trace) {
            block[filled++] = static_cast<qint32>(m_runs[run].gather);
            if (filled < block.size())
                continue;
            gathers->append(block.data(), static_cast<int>(filled));
            filled = 0;
        }
    }
    if (filled > 0)
        gathers->append(block.data(), static_cast<int>(filled));
    gathers->shrink();
}

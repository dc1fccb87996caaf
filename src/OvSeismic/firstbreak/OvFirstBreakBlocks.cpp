#include "OvSeismic/firstbreak/OvFirstBreakBlocks.h"

#include <algorithm>

namespace {

void copyEntry(const OvFirstBreaks& from, std::size_t source, OvFirstBreaks* to, std::size_t target)
{
    to->timesMs[target] = from.timesMs[source];
    to->states[target] = from.states[source];
    to->confidences[target] = from.confidences[source];
}

std::size_t placeOf(qint64 trace)
{
    return static_cast<std::size_t>(trace % OvFirstBreakBlocks::size);
}

} // namespace

OvFirstBreakBlocks::OvFirstBreakBlocks(qint64 traceCount)
    : m_traceCount(traceCount)
{
}

std::vector<qint64> OvFirstBreakBlocks::numbersOf(const std::vector<qint64>& traces)
{
    std::vector<qint64> numbers;
    for (const qint64 trace : traces) {
        if (numbers.empty() || numbers.back() != trace / size)
            numbers.push_back(trace / size);
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

int OvFirstBreakBlocks::tracesIn(qint64 number) const
{
    return static_cast<int>(std::clamp<qint64>(m_traceCount - number * size, 0, size));
}

bool OvFirstBreakBlocks::fits(const std::vector<qint64>& traces) const
{
    return std::all_of(traces.begin(), traces.end(),
                       [this](qint64 trace) { return trace >= 0 && trace < m_traceCount; });
}

OvFirstBreaks OvFirstBreakBlocks::read(const std::vector<qint64>& traces) const
{
    OvFirstBreaks breaks;
    breaks.resize(static_cast<int>(traces.size()));
    bool any = false;
    auto block = m_blocks.end();
    for (std::size_t i = 0; i < traces.size(); ++i) {
        const qint64 number = traces[i] / size;
        if (block == m_blocks.end() || block->first != number)
            block = m_blocks.find(number);
        if (block == m_blocks.end() || block->second.isEmpty())
            continue;
        copyEntry(block->second, placeOf(traces[i]), &breaks, i);
        any = any || breaks.states[i] != OvPickState::None || !std::isnan(breaks.timesMs[i]);
    }
    return any ? breaks : OvFirstBreaks();
}

void OvFirstBreakBlocks::write(const std::vector<qint64>& traces, const OvFirstBreaks& breaks)
{
    for (const qint64 number : numbersOf(traces))
        m_blocks[number];
    writeKnown(traces, breaks);
}

void OvFirstBreakBlocks::writeKnown(const std::vector<qint64>& traces, const OvFirstBreaks& breaks)
{
    auto block = m_blocks.end();
    for (std::size_t i = 0; i < traces.size(); ++i) {
        const qint64 number = traces[i] / size;
        if (block == m_blocks.end() || block->first != number)
            block = m_blocks.find(number);
        if (block == m_blocks.end())
            continue;
        block->second.resize(tracesIn(number));
        copyEntry(breaks, i, &block->second, placeOf(traces[i]));
    }
}

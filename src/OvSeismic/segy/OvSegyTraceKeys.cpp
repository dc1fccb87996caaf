#include "OvSeismic/segy/OvSegyTraceKeys.h"

#include <algorithm>
#include <map>

namespace {

// So that the unsigned keys sort as the signed numbers do.
constexpr quint32 signBit = 0x80000000U;

/// The distance that most neighbours have.
qint64 usualStep(const std::vector<qint32>& numbers)
{
    std::map<qint64, qint64> counts;
    for (std::size_t i = 1; i < numbers.size(); ++i)
        ++counts[qint64(numbers[i]) - numbers[i - 1]];
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](auto a, auto b) { return a.second < b.second; });
    return most == counts.end() ? 0 : most->first;
}

} // namespace

void OvSegyTraceKeys::add(qint32 record, qint32 channel)
{
    const auto high = static_cast<quint32>(record) ^ signBit;
    const auto low = static_cast<quint32>(channel) ^ signBit;
    m_keys.push_back(quint64(high) << 32 | low);
}

qint32 OvSegyTraceKeys::recordOf(quint64 key)
{
    return static_cast<qint32>(static_cast<quint32>(key >> 32) ^ signBit);
}

qint32 OvSegyTraceKeys::channelOf(quint64 key)
{
    return static_cast<qint32>(static_cast<quint32>(key) ^ signBit);
}

void OvSegyTraceKeys::sort()
{
    std::sort(m_keys.begin(), m_keys.end());
}

OvSegyTraceKeys::Duplicates OvSegyTraceKeys::duplicates() const
{
    Duplicates result;
    for (std::size_t i = 1; i < m_keys.size(); ++i) {
        if (m_keys[i] != m_keys[i - 1])
            continue;
        if (result.count++ == 0) {
            result.record = recordOf(m_keys[i]);
            result.channel = channelOf(m_keys[i]);
        }
    }
    return result;
}

OvSegyTraceKeys::MissingChannels OvSegyTraceKeys::missingChannels() const
{
    MissingChannels result;
    // The last record counted, so that a record with several holes counts once.
    bool counted = false;
    for (std::size_t i = 1; i < m_keys.size(); ++i) {
        const bool sameRecord = recordOf(m_keys[i]) == recordOf(m_keys[i - 1]);
        counted = counted && sameRecord;
        const qint64 step = qint64(channelOf(m_keys[i])) - channelOf(m_keys[i - 1]);
        if (!sameRecord || counted || step <= 1)
            continue;
        counted = true;
        if (result.records++ == 0) {
            result.record = recordOf(m_keys[i]);
            result.channel = channelOf(m_keys[i - 1]) + 1;
        }
    }
    return result;
}

std::vector<qint32> OvSegyTraceKeys::records() const
{
    std::vector<qint32> numbers;
    for (const quint64 key : m_keys) {
        if (numbers.empty() || numbers.back() != recordOf(key))
            numbers.push_back(recordOf(key));
    }
    return numbers;
}

OvSegyTraceKeys::MissingRecords OvSegyTraceKeys::missingRecords() const
{
    MissingRecords result;
    const std::vector<qint32> numbers = records();
    const qint64 step = usualStep(numbers);
    if (step == 0)
        return result;
    result.from = numbers.front();
    result.to = numbers.back();
    for (std::size_t i = 1; i < numbers.size(); ++i) {
        const qint64 missing = (qint64(numbers[i]) - numbers[i - 1]) / step - 1;
        if (missing <= 0)
            continue;
        if (result.count == 0)
            result.first = static_cast<qint32>(numbers[i - 1] + step);
        result.count += missing;
    }
    return result;
}

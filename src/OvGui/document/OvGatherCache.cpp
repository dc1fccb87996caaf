#include "OvGui/document/OvGatherCache.h"

namespace {

std::size_t bytesOf(const OvGather& gather)
{
    return sizeof(OvGather) + gather.headers.size() * sizeof(OvTraceHeader) +
           gather.samples.size() * sizeof(float);
}

} // namespace

OvGatherCache::OvGatherCache(std::size_t maximumBytes)
    : m_maximumBytes(maximumBytes)
{
}

std::shared_ptr<const OvGather> OvGatherCache::find(int gather)
{
    const auto place = m_places.find(gather);
    if (place == m_places.end())
        return nullptr;
    m_entries.splice(m_entries.begin(), m_entries, place->second);
    return place->second->data;
}

void OvGatherCache::insert(int gather, std::shared_ptr<const OvGather> data)
{
    remove(gather);
    const std::size_t bytes = bytesOf(*data);
    m_entries.push_front({gather, std::move(data), bytes});
    m_places[gather] = m_entries.begin();
    m_bytes += bytes;
    while (m_bytes > m_maximumBytes && m_entries.size() > 1)
        remove(m_entries.back().gather);
}

void OvGatherCache::clear()
{
    m_entries.clear();
    m_places.clear();
    m_bytes = 0;
}

void OvGatherCache::remove(int gather)
{
    const auto place = m_places.find(gather);
    if (place == m_places.end())
        return;
    m_bytes -= place->second->bytes;
    m_entries.erase(place->second);
    m_places.erase(place);
}

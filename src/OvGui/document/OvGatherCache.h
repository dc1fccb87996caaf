#pragma once

#include "OvGui/OvGuiExport.h"
#include "OvSeismic/segy/OvGather.h"

#include <list>
#include <memory>
#include <unordered_map>

/// The gathers read last, up to a number of bytes. GUI thread.
class OVGUI_EXPORT OvGatherCache
{
public:
    explicit OvGatherCache(std::size_t maximumBytes);

    /// Null when it is not held. Counts as a use.
    std::shared_ptr<const OvGather> find(int gather);
    /// Drops what was used longest ago until the rest fits. The gather just inserted always stays.
    void insert(int gather, std::shared_ptr<const OvGather> data);
    void clear();
    std::size_t bytes() const { return m_bytes; }

private:
    struct Entry
    {
        int gather;
        std::shared_ptr<const OvGather> data;
        std::size_t bytes;
    };
    void remove(int gather);

    std::size_t m_maximumBytes;
    std::size_t m_bytes = 0;
    std::list<Entry> m_entries; // last used first
    std::unordered_map<int, std::list<Entry>::iterator> m_places;
};

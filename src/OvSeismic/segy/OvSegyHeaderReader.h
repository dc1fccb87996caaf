#pragma once

#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyColumns.h"

#include <atomic>
#include <memory>

class OvPositionalFile;
class OvSegyFile;

/// Takes the header words of a file's traces, a block at a time. One thread; several readers may
/// work on one file.
class OvSegyHeaderReader
{
public:
    /// A reader outlives neither the file nor *stop, which ends read() early without a failure.
    OvSegyHeaderReader(const OvSegyFile& file, const OvTraceHeaderMapping& mapping,
                       const std::atomic<bool>* stop = nullptr);
    ~OvSegyHeaderReader();

    /// Appends the words of count traces from first, at most OvSegyColumns::blockSize.
    OvStatus read(qint64 first, int count, OvSegyColumns* columns);

private:
    using Positions = std::array<qint64, OvSegyColumns::blockSize>;
    template <typename Word>
    struct Work;

    /// Fills m_positions; a failure where a header is too short for the mapping.
    OvStatus findHeaders(qint64 first);
    template <typename Word>
    OvStatus readAs(Work<Word>* work, OvSegyColumns* columns);
    template <typename Word>
    bool fromMap(Work<Word>* work);
    template <typename Word>
    OvStatus fromOneRead(Work<Word>* work);
    template <typename Word>
    OvStatus fromManyReads(Work<Word>* work);
    /// bytes is where the header of trace begin of the block lies.
    template <typename Word>
    void decode(const char* bytes, std::size_t begin, std::size_t end, Work<Word>* work) const;
    qint64 span() const { return m_positions[m_count - 1] + m_extent - m_positions[0]; }
    bool isStopped() const { return m_stop && m_stop->load(std::memory_order_relaxed); }

    const OvSegyFile& m_file;
    const OvPositionalFile& m_bytes;
    OvTraceHeaderMapping m_mapping;
    const std::atomic<bool>* m_stop;
    int m_extent;      // bytes of a header that are looked at
    bool m_isStandard; // 32-bit words at the usual places in a usual order
    std::size_t m_count = 0;
    Positions m_positions{};
    std::vector<char> m_buffer;
    std::unique_ptr<Work<qint32>> m_narrow;
    std::unique_ptr<Work<qint64>> m_wide;
};

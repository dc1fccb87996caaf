#pragma once

#include "OvSeismic/OvStatus.h"
#include "OvSeismic/segy/OvSegyColumns.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

class OvSegyFile;
class OvSegyHeaderReader;

/// Collects the header words of all traces of a file, on two threads where there is enough to do.
class OvSegyHeaderScan
{
public:
    /// As OvSegyIndex::Progress.
    using Progress = std::function<bool(qint64 done, qint64 total)>;
    enum class Outcome { Done, Cancelled, Failed };

    OvSegyHeaderScan(const OvSegyFile& file, const OvTraceHeaderMapping& mapping);

    /// May throw std::bad_alloc. On failure status() says why.
    Outcome run(const Progress& progress, OvSegyColumns* columns);
    OvStatus status() const { return m_status; }
    /// Only the first traces, up to count, of one field record; while no record has shown two
    /// traces, the file may be one gather of single-trace records. In the calling thread.
    OvStatus readFirstGather(qint64 count, OvSegyColumns* columns);

private:
    /// Called now and then by the thread that runs run().
    using Pulse = std::function<void()>;

    qint64 chunkCount() const;
    OvStatus readUpTo(qint64 end, OvSegyColumns* columns);
    /// Where the first gather ends; -1 when it goes on behind these traces.
    static qint64 endOfFirstGather(const OvSegyColumns& columns);
    std::thread startHelper();
    void work(const Pulse& pulse);
    void waitForHelper(std::thread* helper, const Pulse& pulse);
    void scanChunk(qint64 chunk, OvSegyHeaderReader* reader, const Pulse& pulse);
    void deliver(qint64 chunk, std::unique_ptr<OvSegyColumns> piece);
    void fail(const OvStatus& status);

    const OvSegyFile& m_file;
    OvTraceHeaderMapping m_mapping;
    qint64 m_total;
    std::atomic<qint64> m_nextChunk{0};
    std::atomic<qint64> m_done{0};
    std::atomic<bool> m_stop{false};

    std::mutex m_mutex; // guards what follows
    std::condition_variable m_helperEnded;
    std::vector<std::unique_ptr<OvSegyColumns>> m_early; // by chunk, until its turn has come
    std::size_t m_delivered = 0;
    OvSegyColumns* m_columns = nullptr;
    OvStatus m_status;
    bool m_outOfMemory = false;
    int m_ended = 0;
};

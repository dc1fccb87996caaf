#include "OvSeismic/segy/OvSegyHeaderScan.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyHeaderReader.h"

#include <QElapsedTimer>

#include <chrono>
#include <new>
#include <system_error>
#include <thread>

namespace {

constexpr qint64 progressIntervalMs = 50;
constexpr int blockSize = OvSegyColumns::blockSize;
// A thread reads that many traces in a row, so that the disk sees few places at a time.
constexpr qint64 chunkTraces = 32LL * blockSize;

} // namespace

OvSegyHeaderScan::OvSegyHeaderScan(const OvSegyFile& file, const OvTraceHeaderMapping& mapping)
    : m_file(file)
    , m_mapping(mapping)
    , m_total(file.locatedCount())
{
}

qint64 OvSegyHeaderScan::chunkCount() const
{
    return (m_total + chunkTraces - 1) / chunkTraces;
}

OvStatus OvSegyHeaderScan::readFirstGather(qint64 count, OvSegyColumns* columns)
{
    const qint64 most = qMin(count, m_total);
    const qint64 all = -1;
    qint64 end = all;
    OvStatus status;
    while (status && end == all && columns->size() < most) {
        const qint64 known = columns->size();
        status = readUpTo(qMin(most, known + blockSize), columns);
        end = endOfFirstGather(*columns);
    }
    if (!status || end == all || end == columns->size())
        return status;
    *columns = OvSegyColumns(m_mapping, m_file.info().metresPerUnit);
    return readUpTo(end, columns);
}

qint64 OvSegyHeaderScan::endOfFirstGather(const OvSegyColumns& columns)
{
    bool single = true;
    for (qint64 trace = 1; trace < columns.size(); ++trace) {
        const bool same = columns.fieldRecord(trace) == columns.fieldRecord(0);
        single = single && !same;
        if (!same && !single)
            return trace;
    }
    return -1;
}

OvStatus OvSegyHeaderScan::readUpTo(qint64 end, OvSegyColumns* columns)
{
    OvSegyHeaderReader reader(m_file, m_mapping);
    OvStatus status;
    while (status && columns->size() < end) {
        const qint64 count = qMin<qint64>(blockSize, end - columns->size());
        status = reader.read(columns->size(), static_cast<int>(count), columns);
    }
    return status;
}

OvSegyHeaderScan::Outcome OvSegyHeaderScan::run(const Progress& progress, OvSegyColumns* columns)
{
    m_columns = columns;
    m_early.resize(static_cast<std::size_t>(chunkCount()));
    QElapsedTimer sinceProgress;
    sinceProgress.start();
    bool cancelled = false;
    const Pulse pulse = [&] {
        if (!progress || cancelled || sinceProgress.elapsed() < progressIntervalMs)
            return;
        sinceProgress.restart();
        cancelled = !progress(m_done, m_total);
        m_stop = m_stop || cancelled;
    };
    std::thread helper = startHelper();
    work(pulse);
    waitForHelper(&helper, pulse);
    if (m_outOfMemory)
        throw std::bad_alloc();
    if (!cancelled && m_status && progress)
        cancelled = !progress(m_total, m_total);
    return cancelled ? Outcome::Cancelled : m_status ? Outcome::Done : Outcome::Failed;
}

std::thread OvSegyHeaderScan::startHelper()
{
    try {
        if (chunkCount() > 1 && std::thread::hardware_concurrency() > 1)
            return std::thread([this] { work({}); });
    } catch (const std::system_error&) {
        // Where no thread is to be had, one does all the work.
    }
    return {};
}

void OvSegyHeaderScan::waitForHelper(std::thread* helper, const Pulse& pulse)
{
    if (!helper->joinable())
        return;
    for (;;) {
        std::unique_lock<std::mutex> lock(m_mutex);
        const auto until =
            std::chrono::system_clock::now() + std::chrono::milliseconds(progressIntervalMs);
        if (m_helperEnded.wait_until(lock, until, [this] { return m_ended == 2; }))
            break;
        lock.unlock();
        pulse();
    }
    helper->join();
}

void OvSegyHeaderScan::work(const Pulse& pulse)
{
    try {
        OvSegyHeaderReader reader(m_file, m_mapping, &m_stop);
        for (qint64 chunk = m_nextChunk++; chunk < chunkCount() && !m_stop; chunk = m_nextChunk++)
            scanChunk(chunk, &reader, pulse);
    } catch (const std::bad_alloc&) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_outOfMemory = true;
        m_stop = true;
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    ++m_ended;
    m_helperEnded.notify_all();
}

void OvSegyHeaderScan::scanChunk(qint64 chunk, OvSegyHeaderReader* reader, const Pulse& pulse)
{
    auto piece = std::make_unique<OvSegyColumns>(m_mapping, m_file.info().metresPerUnit);
    const qint64 begin = chunk * chunkTraces;
    const qint64 end = qMin(m_total, begin + chunkTraces);
    for (qint64 first = begin; first < end && !m_stop; first += blockSize) {
        const int count = static_cast<int>(qMin<qint64>(blockSize, end - first));
        const OvStatus status = reader->read(first, count, piece.get());
        if (!status) {
            fail(status);
            return;
        }
        m_done += count;
        if (pulse)
            pulse();
    }
    if (!m_stop)
        deliver(chunk, std::move(piece));
}

void OvSegyHeaderScan::fail(const OvStatus& status)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_stop = true;
    if (m_status)
        m_status = status;
}

void OvSegyHeaderScan::deliver(qint64 chunk, std::unique_ptr<OvSegyColumns> piece)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_early[static_cast<std::size_t>(chunk)] = std::move(piece);
    while (m_delivered < m_early.size() && m_early[m_delivered]) {
        m_columns->append(*m_early[m_delivered]);
        m_early[m_delivered++].reset();
    }
}

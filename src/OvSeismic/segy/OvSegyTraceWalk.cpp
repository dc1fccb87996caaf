#include "OvSeismic/segy/OvSegyTraceWalk.h"

#include "OvSeismic/segy/OvPositionalFile.h"
#include "OvSeismic/segy/OvSegySampleFormat.h"
#include "OvSeismic/segy/OvSegyTraceProbe.h"

#include <QCoreApplication>
#include <QElapsedTimer>

namespace {

constexpr qint64 progressIntervalMs = 50;
// How many headers pass between two looks at the clock.
constexpr qint64 progressStride = 64;

class Walker
{
    Q_DECLARE_TR_FUNCTIONS(OvSegyFile)

public:
    Walker(const OvPositionalFile& file, const OvSegyFileInfo& info, OvSegyTraceWalk* walk)
        : m_probe(file, info)
        , m_info(info)
        , m_walk(walk)
    {
    }

    OvStatus run(qint64 maxTraces, const std::function<bool(qint64, qint64)>& progress);

private:
    /// One trace further; false at the end.
    bool step();
    void warnOfEnd(qint64 position);

    OvSegyTraceProbe m_probe;
    const OvSegyFileInfo& m_info;
    OvSegyTraceWalk* m_walk;
};

bool Walker::step()
{
    const qint64 position = m_walk->locator.end();
    const bool there = position < m_info.tracesEnd && m_probe.read(position);
    const bool whole =
        there && m_probe.isPlausible() && position + m_probe.traceBytes() <= m_info.tracesEnd;
    if (whole)
        m_walk->locator.append(m_probe.shape());
    else
        warnOfEnd(position);
    return whole;
}

void Walker::warnOfEnd(qint64 position)
{
    m_walk->complete = true;
    const qint64 rest = m_info.tracesEnd - position;
    // What follows the traces where the number of trailing records is unknown are these records.
    if (rest == 0 || m_info.trailerRecords < 0)
        return;
    m_walk->warnings += tr("The file ends in the middle of a trace or is damaged. Whole traces "
                           "that are read: %1; bytes behind them that are left out: %2.")
                            .arg(m_walk->locator.count())
                            .arg(rest);
}

OvStatus Walker::run(qint64 maxTraces, const std::function<bool(qint64, qint64)>& progress)
{
    QElapsedTimer sinceProgress;
    sinceProgress.start();
    const OvTraceLocator& locator = m_walk->locator;
    while (locator.count() < maxTraces && step()) {
        if (!progress || locator.count() % progressStride != 0 ||
            sinceProgress.elapsed() < progressIntervalMs)
            continue;
        sinceProgress.restart();
        if (!progress(locator.end(), m_info.tracesEnd))
            return OvStatus::failure(tr("Cancelled."));
    }
    return m_probe.status();
}

} // namespace

OvStatus OvSegyTraceWalk::run(const OvPositionalFile& file, const OvSegyFileInfo& info,
                              qint64 maxTraces,
                              const std::function<bool(qint64 done, qint64 total)>& progress)
{
    locator = OvTraceLocator(info.firstTraceOffset, ovSegySampleFormat(info.formatCode).bytes);
    return Walker(file, info, this).run(maxTraces, progress);
}

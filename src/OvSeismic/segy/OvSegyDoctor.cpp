#include "OvSeismic/segy/OvSegyDoctor.h"

#include "OvSeismic/segy/OvSegyCensus.h"
#include "OvSeismic/segy/OvSegyDiagnosis.h"
#include "OvSeismic/segy/OvSegyFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>

#include <limits>
#include <new>

namespace {

// A quick examination looks at the traces at the start, which show how channels are numbered, and
// at others spread over the file, together no more than so many bytes.
constexpr qint64 leadingTraces = 512;
constexpr qint64 spreadTraces = 128;
constexpr qint64 quickBytes = 64 << 20;
constexpr qint64 progressIntervalMs = 50;

class Examination
{
    Q_DECLARE_TR_FUNCTIONS(OvSegyDoctor)

public:
    Examination(const OvSegyFile& file, const OvSegyDoctor::Progress& progress,
                const OvTraceHeaderMapping& mapping)
        : m_file(file)
        , m_progress(progress)
        , m_census(file.info().byteOrder, file.info().intervalUs, mapping)
    {
        m_sinceProgress.start();
    }

    OvStatus run(OvSegyDoctor::Depth depth);
    const OvSegyCensus& census() const { return m_census; }
    bool isComplete() const { return m_census.traces() == m_traces; }

private:
    OvStatus lookAt(qint64 first, qint64 count);
    OvStatus lookAround();
    bool report();

    const OvSegyFile& m_file;
    const OvSegyDoctor::Progress& m_progress;
    OvSegyCensus m_census;
    QElapsedTimer m_sinceProgress;
    qint64 m_traces = 0;
    qint64 m_planned = 0;
    bool m_go = true;
};

bool Examination::report()
{
    if (!m_progress || m_sinceProgress.elapsed() < progressIntervalMs)
        return true;
    m_sinceProgress.restart();
    return m_progress(m_census.traces(), m_planned);
}

OvStatus Examination::lookAt(qint64 first, qint64 count)
{
    qint64 trace = first;
    return m_file.scanTraces(first, count, [&](const char* header, const float* samples, int size) {
        m_census.add(trace, {header, m_file.headerBytes(trace)}, samples, size);
        ++trace;
        m_go = report();
        return m_go;
    });
}

OvStatus Examination::lookAround()
{
    const qint64 traceBytes = qMax<qint64>(1, m_file.info().fileSize / qMax<qint64>(1, m_traces));
    const qint64 most = qMax<qint64>(2, quickBytes / traceBytes);
    if (m_traces <= qMin(most, leadingTraces + spreadTraces)) {
        m_planned = m_traces;
        return lookAt(0, m_traces);
    }
    const qint64 leading = qMin(leadingTraces, most / 2);
    const qint64 spread = qMin(spreadTraces, most - leading);
    m_planned = leading + spread;
    OvStatus status = lookAt(0, leading);
    for (qint64 i = 1; i <= spread && status && m_go; ++i)
        status = lookAt(leading - 1 + (m_traces - leading) * i / spread, 1);
    return status;
}

OvStatus Examination::run(OvSegyDoctor::Depth depth)
{
    const bool full = depth == OvSegyDoctor::Depth::Full;
    // Where traces differ in length, those behind the ones located cannot be found in bounded time.
    OvStatus status = m_file.locate(m_progress, full ? std::numeric_limits<qint64>::max()
                                                     : leadingTraces + spreadTraces);
    if (!status)
        return status;
    m_traces = m_file.locatedCount();
    m_planned = m_traces;
    status = full ? lookAt(0, m_traces) : lookAround();
    if (status && m_go && m_progress)
        m_go = m_progress(m_planned, m_planned);
    if (status && !m_go)
        return OvStatus::failure(tr("Cancelled."));
    m_census.finish();
    return status;
}

} // namespace

OvStatus OvSegyDoctor::examine(const OvSegyFile& file, Depth depth,
                               std::vector<OvSegyFinding>* findings, const Progress& progress,
                               const OvTraceHeaderMapping& mapping)
{
    findings->clear();
    try {
        Examination examination(file, progress, mapping);
        OvStatus status = examination.run(depth);
        if (status)
            *findings = OvSegyDiagnosis(file.info(), examination.census(), mapping).findings();
        return status;
    } catch (const std::bad_alloc&) {
        return OvStatus::failure(
            QCoreApplication::translate("OvSegyDoctor", "There is not enough memory to examine %1.")
                .arg(QDir::toNativeSeparators(file.info().path)));
    }
}

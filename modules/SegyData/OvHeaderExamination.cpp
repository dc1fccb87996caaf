#include "OvHeaderExamination.h"

#include "OvSeismic/segy/OvSegyFile.h"

#include <limits>

namespace {

constexpr qint64 spreadTraces = 20000;

int percentOf(qint64 done, qint64 total)
{
    return total > 0 ? static_cast<int>(done * 100 / total) : 0;
}

OvStatus readHeaders(const OvSegyFile& file, qint64 traces, int bytesEach, QByteArray* headers)
{
    headers->resize(static_cast<int>(traces) * bytesEach);
    OvStatus status;
    for (qint64 trace = 0; trace < traces && status; ++trace)
        status = file.readHeaderBytes(trace, bytesEach,
                                      headers->data() + static_cast<int>(trace) * bytesEach);
    return status;
}

} // namespace

OvHeaderExamination::OvHeaderExamination(std::shared_ptr<const OvSegyFile> file, QObject* parent)
    : QObject(parent)
    , m_file(std::move(file))
    , m_reads(OvBackground::readPool())
    , m_scans(OvBackground::scanPool())
{
}

OvHeaderExamination::~OvHeaderExamination()
{
    if (m_cancel)
        m_cancel->store(true);
}

void OvHeaderExamination::readFirst(int traces, int bytesEach)
{
    const qint64 count = qMin<qint64>(traces, m_file->info().traceCount);
    m_reads.run([this, count, bytesEach, file = m_file](const OvBackground::Post& post) {
        QByteArray headers;
        const OvStatus status = readHeaders(*file, count, bytesEach, &headers);
        post([this, status, headers] {
            if (status)
                emit headersRead(headers);
            else
                emit failed(status.message());
        });
    });
}

void OvHeaderExamination::survey(const OvTraceHeaderMapping& mapping, bool wholeFile)
{
    if (m_cancel)
        m_cancel->store(true);
    m_cancel = std::make_shared<std::atomic<bool>>(false);
    const qint64 most = wholeFile ? std::numeric_limits<qint64>::max() : spreadTraces;
    OvBackground& background = wholeFile ? m_scans : m_reads;
    background.run([this, mapping, most, file = m_file,
                    cancel = m_cancel](const OvBackground::Post& post) {
        OvHeaderSurvey survey;
        const OvStatus status = survey.run(*file, mapping, most, [&](qint64 done, qint64 total) {
            post([this, cancel, percent = percentOf(done, total)] {
                if (cancel == m_cancel)
                    emit progress(percent);
            });
            return !cancel->load();
        });
        post([this, cancel, status, survey] { take(cancel, status, survey); });
    });
}

void OvHeaderExamination::take(const std::shared_ptr<std::atomic<bool>>& cancel,
                               const OvStatus& status, const OvHeaderSurvey& survey)
{
    if (cancel != m_cancel)
        return;
    m_cancel.reset();
    if (status)
        emit surveyed(survey);
    else
        emit failed(status.message());
}

void OvHeaderExamination::cancel()
{
    if (m_cancel)
        m_cancel->store(true);
}

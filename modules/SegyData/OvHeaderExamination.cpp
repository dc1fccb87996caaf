#include "OvHeaderExamination.h"

#include "OvSeismic/segy/OvSegyFile.h"

#include <limits>

namespace {

constexpr qint64 spreadTraces = 20000;

OvStatus readHeaders(const OvSegyFile& file, qint64 traces, int bytesEach, QByteArray* headers)
{
    headers->resize(static_cast<int>(traces) * bytesEach);
    OvStatus status;
    for (qint64 trace = 0; trace < traces && status; ++trace)
        status = file.readHeaderBytes(trace, bytesEach, headers->data() + trace * bytesEach);
    return status;
}

} // namespace

OvHeaderExamination::OvHeaderExamination(std::shared_ptr<const OvSegyFile> file, QObject* parent)
    : QObject(parent)
    , m_file(std::move(file))
    , m_reads(OvBackground::readPool())
{
    connect(&m_survey, &OvLatestWork::progress, this, &OvHeaderExamination::progress);
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
    const qint64 most = wholeFile ? std::numeric_limits<qint64>::max() : spreadTraces;
    m_survey.start(wholeFile ? OvLatestWork::Long : OvLatestWork::Short,
                   [this, mapping, most, file = m_file](const OvLatestWork::Progress& report) {
                       OvHeaderSurvey survey;
                       const OvStatus status = survey.run(*file, mapping, most, report);
                       return [this, status, survey] {
                           if (status)
                               emit surveyed(survey);
                           else
                               emit failed(status.message());
                       };
                   });
}

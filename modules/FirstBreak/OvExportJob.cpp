#include "OvExportJob.h"

#include "OvSeismic/firstbreak/OvFirstBreakFile.h"
#include "OvSeismic/firstbreak/OvFirstBreakText.h"

#include <QDir>
#include <QFileInfo>

namespace {

qint64 exportedPicks(const OvFirstBreaks& breaks)
{
    qint64 count = 0;
    for (int row = 0; row < breaks.size(); ++row) {
        const OvPickState state = breaks.states[static_cast<std::size_t>(row)];
        count += breaks.hasPick(row) && state != OvPickState::Rejected ? 1 : 0;
    }
    return count;
}

} // namespace

OvExportJob::OvExportJob(const QSharedPointer<OvSegyDocument>& document, const QString& outPath,
                         QObject* parent)
    : OvDocumentJob(document, parent)
    , m_outPath(outPath)
{
}

OvExportJob::~OvExportJob() = default;

QString OvExportJob::title() const
{
    return tr("Exporting first breaks to %1").arg(QFileInfo(m_outPath).fileName());
}

OvDocumentJob::Work OvExportJob::makeWork()
{
    const OvSegyFile* file = &document()->file();
    return [file, index = document()->index(), path = document()->firstBreakPath(),
            outPath = m_outPath, shared = shared(), picks = m_picks] {
        // The document's own access to the first breaks belongs to the GUI thread.
        OvFirstBreakFile firstBreaks;
        if (QFileInfo::exists(path)) {
            OvStatus status = firstBreaks.open(path, file->info());
            if (status)
                status = firstBreaks.upgrade(*file, *index);
            if (!status)
                return status;
        }
        const auto breaksOf = [&](int gather, OvFirstBreaks* breaks) {
            if (!firstBreaks.isOpen())
                return OvStatus::success();
            OvStatus status = firstBreaks.read(index->gatherTraces(gather), breaks);
            *picks += exportedPicks(*breaks);
            return status;
        };
        const auto progress = [&shared](int done, int total) {
            shared->total = total;
            shared->done = done;
            return !shared->cancel;
        };
        return OvFirstBreakText::exportCsv(*file, *index, breaksOf, outPath, progress);
    };
}

QString OvExportJob::summary() const
{
    if (isCancelRequested())
        return tr("\"%1\" was left as it was.").arg(QDir::toNativeSeparators(m_outPath));
    return tr("%1 first breaks exported to \"%2\".")
        .arg(m_picks->load())
        .arg(QDir::toNativeSeparators(m_outPath));
}

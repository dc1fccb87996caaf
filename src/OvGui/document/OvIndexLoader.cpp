#include "OvGui/document/OvIndexLoader.h"

#include "OvBase/OvAbstractJob.h"
#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvTaskManager.h"
#include "OvSeismic/segy/OvSegyIndexCache.h"

#include <QFileInfo>

namespace {

int percentOf(qint64 done, qint64 total)
{
    return total > 0 ? static_cast<int>(done * 100 / total) : 0;
}

} // namespace

OvIndexLoader::OvIndexLoader(std::shared_ptr<const OvSegyFile> file,
                             const OvTraceHeaderMapping& mapping, QObject* parent)
    : QObject(parent)
    , m_file(std::move(file))
    , m_mapping(mapping)
    , m_index(std::make_shared<const OvSegyIndex>())
    , m_reads(OvBackground::readPool())
    , m_scans(OvBackground::scanPool())
{
}

OvIndexLoader::~OvIndexLoader()
{
    if (m_cancel)
        m_cancel->store(true);
}

void OvIndexLoader::start()
{
    if (m_running || (m_complete && !isStale()))
        return;
    m_running = true;
    m_percent = 0;
    m_cancelled = false;
    m_message.clear();
    m_cancel = std::make_shared<std::atomic<bool>>(false);
    makeJob();
    if (m_index->gatherCount() > 0) {
        startScan();
        return;
    }
    m_reads.run([this, file = m_file, mapping = m_mapping,
                 cancel = m_cancel](const OvBackground::Post& post) {
        auto index = std::make_shared<OvSegyIndex>();
        const OvStatus status = index->buildFirstGather(*file, mapping);
        post([this, status, index, cancel] {
            if (cancel == m_cancel)
                takeFirst(status, index);
        });
    });
}

void OvIndexLoader::setMapping(const OvTraceHeaderMapping& mapping)
{
    if (mapping == m_mapping)
        return;
    m_mapping = mapping;
    if (m_running) {
        m_cancel->store(true);
        m_running = false;
    }
    if (!m_complete)
        m_index = std::make_shared<const OvSegyIndex>();
    start();
    if (!m_running)
        settle();
}

// Back to the mapping of the index that is there.
void OvIndexLoader::settle()
{
    m_cancel.reset();
    m_message.clear();
    m_cancelled = false;
    m_percent = 100;
    finishJob(true);
    emit completed();
}

void OvIndexLoader::makeJob()
{
    delete m_job;
    m_job = new OvAbstractJob(this);
    retranslate();
    m_job->setCancellable(true);
    connect(m_job, &OvAbstractJob::cancelRequested, this, [this] { m_cancel->store(true); });
    OvTaskManager::instance().addTask(m_job);
    m_job->start();
}

void OvIndexLoader::takeFirst(const OvStatus& status, const std::shared_ptr<OvSegyIndex>& index)
{
    // A failure here comes again, with its message, from the scan of the whole file.
    startScan();
    if (!status)
        return;
    m_index = index;
    emit firstGatherReady();
}

void OvIndexLoader::startScan()
{
    const OvSegyIndexCache cache(OvBaseUtil::cachePath() + QStringLiteral("/segyindex"));
    m_scans.run([this, cache, file = m_file, mapping = m_mapping,
                 cancel = m_cancel](const OvBackground::Post& post) {
        auto index = std::make_shared<OvSegyIndex>();
        const auto tell = [&](qint64 done, qint64 total) {
            post([this, cancel, percent = percentOf(done, total)] {
                if (cancel == m_cancel)
                    takeProgress(percent);
            });
            return !cancel->load();
        };
        const OvStatus status = cache.obtain(*file, mapping, tell, index.get());
        post([this, status, index, cancel] {
            if (cancel == m_cancel)
                takeAll(status, index, cancel->load());
        });
    });
}

void OvIndexLoader::takeProgress(int percent)
{
    if (percent == m_percent)
        return;
    m_percent = percent;
    if (m_job)
        m_job->setProgress(percent);
    emit progress(percent);
}

void OvIndexLoader::takeAll(const OvStatus& status, const std::shared_ptr<OvSegyIndex>& index,
                            bool cancelled)
{
    m_running = false;
    const bool done = status.ok() && index->traceCount() == m_file->info().traceCount;
    if (done) {
        m_complete = true;
        m_index = index;
        m_percent = 100;
    } else {
        m_cancelled = cancelled;
        m_message = status.message();
    }
    finishJob(done);
    if (done)
        emit completed();
    else
        emit failed(message());
}

QString OvIndexLoader::cancelledMessage() const
{
    if (isStale())
        return tr("Reading the headers of %1 by the new mapping was cancelled; the gathers are "
                  "those of the mapping before. Read the headers to see the new ones.")
            .arg(QFileInfo(m_file->info().path).fileName());
    return tr("Reading the headers of %1 was cancelled; only the first gather is "
              "shown. Read the headers to see all gathers.")
        .arg(QFileInfo(m_file->info().path).fileName());
}

void OvIndexLoader::retranslate()
{
    if (!m_job)
        return;
    m_job->setTaskName(tr("Indexing %1").arg(QFileInfo(m_file->info().path).fileName()));
    if (m_cancelled)
        m_job->setMessage(cancelledMessage());
}

void OvIndexLoader::finishJob(bool done)
{
    if (!m_job)
        return;
    if (!done) {
        m_job->finish(m_cancelled ? OvAbstractJob::Cancelled : OvAbstractJob::Failed, message());
        return;
    }
    m_job->finish(OvAbstractJob::Finished);
    OvTaskManager::instance().removeTask(m_job);
    m_job->deleteLater();
}

#include "OvDocumentJob.h"

#include "OvBase/OvTaskManager.h"

#include <QThreadPool>
#include <QtConcurrent>

#include <exception>

namespace {

constexpr int deliveryIntervalMs = 100;

// The worker mostly waits for threads of its own: meanwhile the pool may start another task.
class PoolPlace
{
public:
    PoolPlace() { QThreadPool::globalInstance()->releaseThread(); }
    ~PoolPlace() { QThreadPool::globalInstance()->reserveThread(); }
    Q_DISABLE_COPY(PoolPlace)
};

} // namespace

OvDocumentJob::OvDocumentJob(const QSharedPointer<OvSegyDocument>& document, QObject* parent)
    : OvAbstractJob(parent)
    , m_document(document)
{
    setCancellable(true);
    m_clock.setInterval(deliveryIntervalMs);
    m_next.setSingleShot(true);
    connect(&m_clock, &QTimer::timeout, this, &OvDocumentJob::poll);
    connect(&m_next, &QTimer::timeout, this, &OvDocumentJob::poll);
    connect(&m_watcher, &QFutureWatcherBase::finished, this, &OvDocumentJob::poll);
    connect(this, &OvAbstractJob::cancelRequested, this, &OvDocumentJob::stop);
}

OvDocumentJob::~OvDocumentJob()
{
    m_shared->cancel = true;
    m_watcher.waitForFinished();
}

void OvDocumentJob::launch()
{
    retranslate();
    OvTaskManager::instance().addTask(this);
    start();
    if (m_document->isIndexComplete()) {
        begin();
        return;
    }
    setMessage(tr("Waiting for the trace headers to be read..."));
    connect(m_document.data(), &OvSegyDocument::indexComplete, this, &OvDocumentJob::begin);
    connect(m_document.data(), &OvSegyDocument::indexFailed, this, &OvDocumentJob::failBeforeWork);
}

void OvDocumentJob::begin()
{
    if (m_begun || !isRunning())
        return;
    m_begun = true;
    setMessage(QString());
    setProgress(0);
    const Work work = makeWork();
    m_watcher.setFuture(QtConcurrent::run([work] { return guarded(work); }));
    m_clock.start();
}

OvStatus OvDocumentJob::guarded(const Work& work)
{
    const PoolPlace place;
    try {
        return work();
    } catch (const std::exception& exception) {
        return OvStatus::failure(
            tr("The work was broken off: %1. Close other windows or programs and "
               "try again.")
                .arg(QString::fromLocal8Bit(exception.what())));
    }
}

void OvDocumentJob::stop()
{
    m_shared->cancel = true;
    if (!m_begun)
        finish(Cancelled, tr("Cancelled"));
}

void OvDocumentJob::fail(const QString& message)
{
    m_failure = message;
    m_shared->cancel = true;
}

void OvDocumentJob::failBeforeWork(const QString& message)
{
    if (!m_begun && isRunning())
        finish(Failed, message);
}

void OvDocumentJob::poll()
{
    if (!isRunning())
        return;
    const bool ended = m_watcher.isFinished();
    const bool more = m_failure.isEmpty() && takeResults();
    showProgress();
    if (more)
        // In a turn of its own, so that the window stays alive.
        m_next.start(0);
    else if (ended)
        conclude();
}

void OvDocumentJob::showProgress()
{
    const int total = m_shared->total;
    const int done = m_shared->done;
    if (total <= 0)
        return;
    setProgress(static_cast<int>(qint64(100) * done / total));
    setMessage(tr("Gather %1 of %2").arg(done).arg(total));
}

void OvDocumentJob::conclude()
{
    m_clock.stop();
    m_next.stop();
    const OvStatus status = m_watcher.result();
    if (m_failure.isEmpty() && !status)
        m_failure = status.message();
    if (!m_failure.isEmpty())
        finish(Failed, m_failure);
    else if (isCancelRequested())
        finish(Cancelled, tr("Cancelled. %1").arg(summary()));
    else
        finish(Finished, summary());
}

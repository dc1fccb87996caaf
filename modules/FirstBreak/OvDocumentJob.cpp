#include "OvDocumentJob.h"

#include "OvBase/OvTaskManager.h"

#include <QThreadPool>

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

void OvDocumentJob::Shared::begin()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_ended = false;
}

void OvDocumentJob::Shared::end(const OvStatus& outcome)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_outcome = outcome;
    m_ended = true;
    m_changed.notify_all();
}

bool OvDocumentJob::Shared::hasEnded(OvStatus* outcome)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    *outcome = m_outcome;
    return m_ended;
}

void OvDocumentJob::Shared::waitForEnd()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_ended; });
}

OvDocumentJob::OvDocumentJob(const QSharedPointer<OvSegyDocument>& document, QObject* parent)
    : OvAbstractJob(parent)
    , m_document(document)
    , m_background(QThreadPool::globalInstance())
{
    setCancellable(true);
    m_clock.setInterval(deliveryIntervalMs);
    m_next.setSingleShot(true);
    connect(&m_clock, &QTimer::timeout, this, &OvDocumentJob::poll);
    connect(&m_next, &QTimer::timeout, this, &OvDocumentJob::poll);
    connect(this, &OvAbstractJob::cancelRequested, this, &OvDocumentJob::stop);
}

OvDocumentJob::~OvDocumentJob()
{
    m_shared->cancel = true;
    m_shared->waitForEnd();
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
    // In case they were given up: nobody else would start again.
    m_document->readIndex();
    connect(m_document.data(), &OvSegyDocument::indexComplete, this, &OvDocumentJob::begin);
    connect(m_document.data(), &OvSegyDocument::indexFailed, this, &OvDocumentJob::failBeforeWork);
}

void OvDocumentJob::retranslate()
{
    setTaskName(title());
    if (state() == Finished)
        setMessage(summary());
    else if (state() == Cancelled)
        setMessage(cancelledMessage());
}

void OvDocumentJob::begin()
{
    if (m_begun || !isRunning())
        return;
    m_begun = true;
    setMessage(QString());
    setProgress(0);
    m_shared->begin();
    m_background.run([this, work = makeWork(), shared = m_shared](const OvBackground::Post& post) {
        shared->end(shared->cancel ? OvStatus::success() : guarded(work));
        post([this] { poll(); });
    });
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
        finish(Cancelled, cancelledMessage());
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
    OvStatus outcome;
    const bool ended = m_shared->hasEnded(&outcome);
    const bool more = takeResults();
    showProgress();
    if (more)
        // In a turn of its own, so that the window stays alive.
        m_next.start(0);
    else if (ended)
        conclude(outcome);
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

void OvDocumentJob::conclude(const OvStatus& outcome)
{
    m_clock.stop();
    m_next.stop();
    if (!outcome)
        finish(Failed, outcome.message());
    else if (isCancelRequested())
        finish(Cancelled, cancelledMessage());
    else
        finish(Finished, summary());
}

QString OvDocumentJob::cancelledMessage() const
{
    return m_begun ? tr("Cancelled. %1").arg(summary()) : tr("Cancelled");
}

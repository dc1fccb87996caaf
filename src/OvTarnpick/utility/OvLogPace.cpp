#include "OvTarnpick/utility/OvLogPace.h"

#include <QObject>
#include <QThread>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

namespace {

constexpr int batch = 32;
constexpr std::chrono::milliseconds patience(500);

/// Queued behind a batch; what comes before it has been read when it has passed.
struct Marker
{
    std::mutex mutex;
    std::condition_variable passed;
    bool isQueued = false;

    bool waitUntilPassed(std::chrono::milliseconds limit)
    {
        std::unique_lock<std::mutex> lock(mutex);
        return passed.wait_for(lock, limit, [this] { return !isQueued; });
    }
    void setQueued(bool queued)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isQueued = queued;
        passed.notify_all();
    }
};

/// Of one logging thread.
struct Pace
{
    int messages = 0;
    bool hasGivenUp = false;
    std::shared_ptr<Marker> marker = std::make_shared<Marker>();
};

} // namespace

void OvLogPace::keep(QObject* reader)
{
    if (reader->thread() == QThread::currentThread())
        return;
    thread_local Pace pace;
    if (++pace.messages < batch)
        return;
    pace.messages = 0;
    const auto limit = pace.hasGivenUp ? std::chrono::milliseconds(0) : patience;
    pace.hasGivenUp = !pace.marker->waitUntilPassed(limit);
    if (pace.hasGivenUp)
        return;
    pace.marker->setQueued(true);
    QMetaObject::invokeMethod(
        reader, [marker = pace.marker] { marker->setQueued(false); }, Qt::QueuedConnection);
}

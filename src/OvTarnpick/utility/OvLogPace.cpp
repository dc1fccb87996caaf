#include "OvTarnpick/utility/OvLogPace.h"

#include <QCoreApplication>
#include <QEvent>
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

/// Frees its marker when it has been delivered, or dropped with its receiver.
class Passing : public QEvent
{
public:
    explicit Passing(std::shared_ptr<Marker> marker)
        : QEvent(QEvent::User)
        , m_marker(std::move(marker))
    {
    }
    ~Passing() override { m_marker->setQueued(false); }

private:
    std::shared_ptr<Marker> m_marker;
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
    QCoreApplication::postEvent(reader, new Passing(pace.marker));
}

#include "OvGui/document/OvBackground.h"

#include <QCoreApplication>
#include <QEvent>
#include <QRunnable>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <deque>
#include <mutex>

struct OvBackground::Mailbox
{
    std::mutex mutex;
    QObject* owner = nullptr; // null once the owner is gone
    std::deque<Outcome> outcomes;

    void post(Outcome outcome)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (owner == nullptr)
            return;
        outcomes.push_back(std::move(outcome));
        if (outcomes.size() == 1)
            QCoreApplication::postEvent(owner, new QEvent(QEvent::User));
    }

    void settle() { const std::lock_guard<std::mutex> lock(mutex); }

    std::deque<Outcome> take()
    {
        std::deque<Outcome> taken;
        const std::lock_guard<std::mutex> lock(mutex);
        taken.swap(outcomes);
        return taken;
    }
};

namespace {

class Task : public QRunnable
{
public:
    Task(OvBackground::Work work, OvBackground::Post post)
        : m_work(std::move(work))
        , m_post(std::move(post))
    {
        m_ready.store(true, std::memory_order_release);
    }

    void run() override
    {
        // Pairs with the constructor, in terms that the thread sanitizer can see.
        if (m_ready.load(std::memory_order_acquire))
            m_work(m_post);
    }

private:
    OvBackground::Work m_work;
    OvBackground::Post m_post;
    std::atomic<bool> m_ready{false};
};

class Pool : public QThreadPool
{
public:
    explicit Pool(int threads) { setMaxThreadCount(threads); }
};

} // namespace

OvBackground::OvBackground(QThreadPool* pool, QObject* parent)
    : QObject(parent)
    , m_pool(pool)
    , m_mailbox(std::make_shared<Mailbox>())
{
    m_mailbox->owner = this;
}

OvBackground::~OvBackground()
{
    std::deque<Outcome> dropped;
    const std::lock_guard<std::mutex> lock(m_mailbox->mutex);
    m_mailbox->owner = nullptr;
    dropped.swap(m_mailbox->outcomes);
}

void OvBackground::run(Work work)
{
    m_pool->start(new Task(std::move(work), poster()));
}

OvBackground::Post OvBackground::poster() const
{
    return [mailbox = m_mailbox](Outcome outcome) { mailbox->post(std::move(outcome)); };
}

bool OvBackground::event(QEvent* event)
{
    // An outcome may delete this object: everything it needs is local from here.
    const auto mailbox = m_mailbox;
    // A worker made the event under this lock, so it is looked at only after that lock was held
    // here.
    mailbox->settle();
    if (event->type() != QEvent::User)
        return QObject::event(event);
    for (Outcome& outcome : mailbox->take()) {
        outcome();
        if (mailbox->owner == nullptr)
            break;
    }
    return true;
}

QThreadPool* OvBackground::scanPool()
{
    static Pool pool(2);
    return &pool;
}

QThreadPool* OvBackground::readPool()
{
    static Pool pool(2);
    return &pool;
}

QThreadPool* OvBackground::paintPool()
{
    static Pool pool(std::max(2, QThread::idealThreadCount()));
    return &pool;
}

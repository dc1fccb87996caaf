#pragma once

#include "OvGui/document/OvBackground.h"

#include <QThreadPool>

#include <condition_variable>
#include <memory>
#include <mutex>

/// Keeps a pool of workers busy from its construction to release(), so that a test can look at what
/// happens while work waits.
class PoolBlock
{
public:
    explicit PoolBlock(QThreadPool* pool)
    {
        OvBackground background(pool);
        for (int i = 0; i < pool->maxThreadCount(); ++i)
            background.run([gate = m_gate](const OvBackground::Post&) {
                std::unique_lock<std::mutex> lock(gate->mutex);
                gate->changed.wait(lock, [&gate] { return gate->open; });
            });
    }
    ~PoolBlock() { release(); }
    Q_DISABLE_COPY(PoolBlock)

    void release()
    {
        const std::lock_guard<std::mutex> lock(m_gate->mutex);
        m_gate->open = true;
        m_gate->changed.notify_all();
    }

private:
    struct Gate
    {
        std::mutex mutex;
        std::condition_variable changed;
        bool open = false;
    };

    std::shared_ptr<Gate> m_gate = std::make_shared<Gate>();
};

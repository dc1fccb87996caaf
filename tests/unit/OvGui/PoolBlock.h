#pragma once

#include "OvGui/document/OvBackground.h"

#include <QRunnable>
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
        for (int i = 0; i < pool->maxThreadCount(); ++i)
            pool->start(new Wait(m_gate));
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

    class Wait : public QRunnable
    {
    public:
        explicit Wait(std::shared_ptr<Gate> gate)
            : m_gate(std::move(gate))
        {
        }
        void run() override
        {
            std::unique_lock<std::mutex> lock(m_gate->mutex);
            m_gate->changed.wait(lock, [this] { return m_gate->open; });
        }

    private:
        std::shared_ptr<Gate> m_gate;
    };

    std::shared_ptr<Gate> m_gate = std::make_shared<Gate>();
};

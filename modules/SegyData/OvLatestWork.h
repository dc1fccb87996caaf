#pragma once

#include "OvGui/document/OvBackground.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <memory>

/// One piece of work in a worker thread, with progress and cancel; a new one takes the place of the
/// old, which is stopped and not heard of again. GUI thread.
class OvLatestWork : public QObject
{
    Q_OBJECT

public:
    /// Reports how far the work is; false asks it to stop.
    using Progress = std::function<bool(qint64 done, qint64 total)>;
    /// Hands over the outcome, on the GUI thread.
    using Take = std::function<void()>;
    /// Runs in the worker, so it owns all that it uses.
    using Work = std::function<Take(const Progress& progress)>;

    /// Long work does not hold up the reading of gathers.
    enum Length { Short, Long };

    explicit OvLatestWork(QObject* parent = nullptr);
    /// Stops what still runs, without waiting for it.
    ~OvLatestWork() override;

    void start(Length length, const Work& work);
    /// Asks the work to stop; it still hands over its outcome.
    void cancel();
    bool isRunning() const { return m_cancel != nullptr; }

signals:
    /// Per cent.
    void progress(int percent);

private:
    using Flag = std::shared_ptr<std::atomic<bool>>;
    void finish(const Flag& cancel, const Take& take);

    Flag m_cancel; // of the work that runs
    OvBackground m_short;
    OvBackground m_long;
};

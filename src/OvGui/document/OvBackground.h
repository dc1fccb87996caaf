#pragma once

#include "OvGui/OvGuiExport.h"

#include <QObject>

#include <functional>
#include <memory>

class QThreadPool;

/// Runs work in worker threads and takes its outcomes back on the thread that owns this object.
///
/// Work owns all that it uses (values, shared pointers) and may outlive this object; what it posts
/// after that is dropped. Outcomes arrive in the order posted.
class OVGUI_EXPORT OvBackground : public QObject
{
public:
    using Outcome = std::function<void()>;
    /// Callable from any thread; the outcome runs on the owner's thread.
    using Post = std::function<void(Outcome)>;
    using Work = std::function<void(const Post& post)>;

    explicit OvBackground(QThreadPool* pool, QObject* parent = nullptr);
    ~OvBackground() override;

    void run(Work work);
    /// For work that runs elsewhere.
    Post poster() const;

    /// One pool each, so that a long scan never holds up the screen.
    static QThreadPool* scanPool();
    static QThreadPool* readPool();
    static QThreadPool* paintPool();

protected:
    bool event(QEvent* event) override;

private:
    struct Mailbox;
    QThreadPool* m_pool;
    std::shared_ptr<Mailbox> m_mailbox;
};

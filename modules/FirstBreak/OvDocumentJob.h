#pragma once

#include "OvBase/OvAbstractJob.h"
#include "OvGui/document/OvBackground.h"
#include "OvGui/document/OvSegyDocument.h"

#include <QTimer>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

/// A long action on one SEG-Y document: waits for the document's index, works in a thread of the
/// global pool, and hands what was found to the GUI thread ten times a second.
///
/// Lives on the GUI thread. Deleting it cancels the work and waits for the worker, which answers a
/// cancel within 200 ms.
class OvDocumentJob : public OvAbstractJob
{
    Q_OBJECT

public:
    OvDocumentJob(const QSharedPointer<OvSegyDocument>& document, QObject* parent);
    ~OvDocumentJob() override;

    QSharedPointer<OvSegyDocument> document() const { return m_document; }
    /// Starts the job and enters it in the task list.
    void launch();
    /// Sets the name in the task list, and the last message of a job that has ended, anew in the
    /// present language. Why a job failed stays as it was said.
    void retranslate();

protected:
    /// What the worker and the job share: nothing else of a job is touched by both.
    struct Shared
    {
        std::atomic<bool> cancel{false};
        std::atomic<int> done{0};
        std::atomic<int> total{0};

        void begin();
        void end(const OvStatus& outcome);
        /// Whether no worker is at it; *outcome is its last word.
        bool hasEnded(OvStatus* outcome);
        void waitForEnd();

    private:
        std::mutex m_mutex;
        std::condition_variable m_changed;
        bool m_ended = true;
        OvStatus m_outcome;
    };
    using Work = std::function<OvStatus()>;

    /// The work. Made on the GUI thread when the index is complete, called in a worker. It may read
    /// the document's file and index, which stay until the worker has ended, and must look at
    /// shared().cancel.
    virtual Work makeWork() = 0;
    /// Takes over a part of what the worker has delivered. False when nothing is left.
    virtual bool takeResults() { return false; }
    /// The name in the task list.
    virtual QString title() const = 0;
    /// The last message of a job that ended well or was cancelled.
    virtual QString summary() const = 0;

    const std::shared_ptr<Shared>& shared() const { return m_shared; }

private:
    void begin();
    void stop();
    void failBeforeWork(const QString& message);
    void poll();
    void showProgress();
    void conclude(const OvStatus& outcome);
    QString cancelledMessage() const;
    static OvStatus guarded(const Work& work);

    QSharedPointer<OvSegyDocument> m_document;
    std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
    OvBackground m_background;
    QTimer m_clock;
    QTimer m_next; ///< the next part of a backlog
    bool m_begun = false;
};

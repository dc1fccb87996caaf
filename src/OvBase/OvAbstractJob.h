#pragma once

#include "OvBase/OvBaseExport.h"

#include <QObject>

#include <memory>

/// One entry of the task list: a workspace, or a long action.
///
/// Lives on the GUI thread; workers hand it news by queued calls. Cancelling is a request: the
/// owner of the work hears cancelRequested(), stops, and ends the job with finish().
class OVBASE_EXPORT OvAbstractJob : public QObject
{
    Q_OBJECT

public:
    enum State {
        Ready, ///< not working: a workspace that shows its data
        Running,
        Finished,
        Cancelled,
        Failed,
    };
    Q_ENUM(State)

    enum Kind {
        Action,    ///< work with an end: listed with its outcome until it is cleared
        Workspace, ///< stands for a view: loads (Running), then shows its data (Ready)
    };
    Q_ENUM(Kind)

    explicit OvAbstractJob(QObject* parent = nullptr);
    ~OvAbstractJob() override;

    QString taskName() const;
    void setTaskName(const QString& name);

    /// Action unless set otherwise.
    Kind kind() const;
    void setKind(Kind kind);

    State state() const;
    bool isRunning() const { return state() == Running; }
    /// Whether what the job stands for can be used, for example linked into a parallel view.
    bool isEnabled() const;
    void setEnabled(bool enabled);

    /// Per cent, 0 to 100; -1 when unknown.
    int progress() const;
    /// The last message, translated.
    QString message() const;
    /// Milliseconds from start() to now, or to the end.
    qint64 elapsedMs() const;
    /// True unless set otherwise.
    bool isCancellable() const;
    void setCancellable(bool cancellable);
    bool isCancelRequested() const;

    /// Running, from time zero, without progress, message or request to cancel. Ignored while
    /// running.
    void start();
    /// Ignored unless running: news that a worker queued may arrive after the end.
    void setProgress(int percent);
    void setMessage(const QString& message);
    /// Ends a running job; outcome is Finished, Cancelled, Failed, or Ready for a workspace. An
    /// empty message keeps the last one. Ignored unless running.
    void finish(State outcome, const QString& message = {});

    /// Asks the owner to stop. Ignored unless running and cancellable.
    Q_SLOT void requestCancel();

signals:
    void changeTaskName(const QString& name);
    void stateChanged();
    void enabledChanged(bool enabled);
    void progressChanged(int percent);
    void messageChanged(const QString& message);
    void cancelRequested();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

#include "OvBase/OvAbstractJob.h"

#include <QElapsedTimer>

struct OvAbstractJob::Private
{
    QString taskName;
    QString message;
    QElapsedTimer clock;
    qint64 endedAfterMs = 0;
    State state = Ready;
    Kind kind = Action;
    int progress = -1;
    bool enabled = true;
    bool cancellable = true;
    bool cancelRequested = false;
};

OvAbstractJob::OvAbstractJob(QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
}

OvAbstractJob::~OvAbstractJob() = default;

QString OvAbstractJob::taskName() const
{
    return d->taskName;
}

void OvAbstractJob::setTaskName(const QString& name)
{
    if (d->taskName == name)
        return;
    d->taskName = name;
    emit changeTaskName(name);
}

OvAbstractJob::Kind OvAbstractJob::kind() const
{
    return d->kind;
}

void OvAbstractJob::setKind(Kind kind)
{
    if (d->kind == kind)
        return;
    d->kind = kind;
    emit stateChanged();
}

OvAbstractJob::State OvAbstractJob::state() const
{
    return d->state;
}

bool OvAbstractJob::isEnabled() const
{
    return d->enabled;
}

void OvAbstractJob::setEnabled(bool enabled)
{
    if (d->enabled == enabled)
        return;
    d->enabled = enabled;
    emit enabledChanged(enabled);
}

int OvAbstractJob::progress() const
{
    return d->progress;
}

QString OvAbstractJob::message() const
{
    return d->message;
}

qint64 OvAbstractJob::elapsedMs() const
{
    return isRunning() ? d->clock.elapsed() : d->endedAfterMs;
}

bool OvAbstractJob::isCancellable() const
{
    return d->cancellable;
}

void OvAbstractJob::setCancellable(bool cancellable)
{
    if (d->cancellable == cancellable)
        return;
    d->cancellable = cancellable;
    emit stateChanged();
}

bool OvAbstractJob::isCancelRequested() const
{
    return d->cancelRequested;
}

void OvAbstractJob::start()
{
    if (isRunning())
        return;
    d->state = Running;
    d->cancelRequested = false;
    d->clock.start();
    setMessage({});
    setProgress(-1);
    emit stateChanged();
}

void OvAbstractJob::setProgress(int percent)
{
    const int bounded = qBound(-1, percent, 100);
    if (!isRunning() || d->progress == bounded)
        return;
    d->progress = bounded;
    emit progressChanged(bounded);
}

void OvAbstractJob::setMessage(const QString& message)
{
    if (d->message == message)
        return;
    d->message = message;
    emit messageChanged(message);
}

void OvAbstractJob::finish(State outcome, const QString& message)
{
    Q_ASSERT(outcome != Running);
    if (!isRunning())
        return;
    if (!message.isEmpty())
        setMessage(message);
    if (outcome == Finished)
        setProgress(100);
    d->endedAfterMs = d->clock.elapsed();
    d->state = outcome;
    emit stateChanged();
}

void OvAbstractJob::requestCancel()
{
    if (!isRunning() || !d->cancellable || d->cancelRequested)
        return;
    d->cancelRequested = true;
    emit stateChanged();
    emit cancelRequested();
}

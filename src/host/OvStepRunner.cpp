#include "host/OvStepRunner.h"

namespace {
constexpr int pollIntervalMs = 10;
}

OvStepRunner::OvStepRunner(QObject* parent)
    : QObject(parent)
{
    timer.setInterval(pollIntervalMs);
    connect(&timer, &QTimer::timeout, this, &OvStepRunner::poll);
}

void OvStepRunner::add(Step step)
{
    steps.push_back(std::move(step));
}

void OvStepRunner::start()
{
    proceed();
    // The first step is often ready at once: the start of the program does not wait a tick for it.
    QTimer::singleShot(0, this, [this] {
        if (timer.isActive())
            poll();
    });
}

void OvStepRunner::proceed()
{
    waiting.start();
    timer.start();
}

void OvStepRunner::poll()
{
    if (steps.empty()) {
        end(true, {});
        return;
    }
    const Step& next = steps.front();
    if (!next.ready || next.ready())
        takeNext();
    else if (next.timeoutMs > 0 && waiting.hasExpired(next.timeoutMs))
        end(false, tr("The step \"%1\" was not reached in time.").arg(next.name));
}

void OvStepRunner::takeNext()
{
    const Step step = steps.front();
    steps.pop_front();
    // A timer does not fire again inside its own slot, and the action may run a dialog's event
    // loop.
    timer.stop();
    QTimer::singleShot(0, this, [this, step] { run(step); });
}

void OvStepRunner::run(const Step& step)
{
    proceed();
    if (step.act && !step.act())
        end(false, tr("The step \"%1\" failed.").arg(step.name));
}

void OvStepRunner::end(bool succeeded, const QString& message)
{
    timer.stop();
    steps.clear();
    emit finished(succeeded, message);
}

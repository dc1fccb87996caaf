#include "OvBase/OvTaskManager.h"

#include <algorithm>

struct OvTaskManager::Private
{
    QList<OvAbstractJob*> jobs;
};

OvTaskManager& OvTaskManager::instance()
{
    static OvTaskManager manager;
    return manager;
}

OvTaskManager::OvTaskManager()
    : d(std::make_unique<Private>())
{
}

OvTaskManager::~OvTaskManager() = default;

void OvTaskManager::addTask(const QPointer<OvAbstractJob>& job)
{
    OvAbstractJob* const added = job.data();
    if (!added || d->jobs.contains(added))
        return;
    d->jobs.append(added);
    connect(added, &QObject::destroyed, this, [this, added] { removeTask(added); });
    emit taskAdded(added);
}

void OvTaskManager::removeTask(OvAbstractJob* job)
{
    if (!d->jobs.removeOne(job))
        return;
    QObject::disconnect(job, &QObject::destroyed, this, nullptr);
    emit taskRemoved(job);
}

QList<OvAbstractJob*> OvTaskManager::tasks() const
{
    return d->jobs;
}

bool OvTaskManager::hasRunningJob() const
{
    return std::any_of(d->jobs.cbegin(), d->jobs.cend(),
                       [](const OvAbstractJob* job) { return job->isRunning(); });
}

void OvTaskManager::cancelAll()
{
    // An owner that ends or deletes its job at once changes the list under the loop.
    QList<QPointer<OvAbstractJob>> jobs;
    for (OvAbstractJob* job : qAsConst(d->jobs))
        jobs.append(job);
    for (const QPointer<OvAbstractJob>& job : qAsConst(jobs)) {
        if (job)
            job->requestCancel();
    }
}

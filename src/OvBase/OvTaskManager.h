#pragma once

#include "OvBase/OvAbstractJob.h"

#include <QList>
#include <QPointer>

/// The registry of jobs. Does not own them: a deleted job leaves the list by itself. GUI thread.
class OVBASE_EXPORT OvTaskManager : public QObject
{
    Q_OBJECT

public:
    static OvTaskManager& instance();
    ~OvTaskManager() override;

    /// Adds a job; a null or known one is ignored.
    void addTask(const QPointer<OvAbstractJob>& job);
    /// Takes a job off the list without touching it.
    void removeTask(OvAbstractJob* job);
    /// In the order added.
    QList<OvAbstractJob*> tasks() const;
    bool hasRunningJob() const;
    /// Requests cancel of every running job.
    void cancelAll();

signals:
    void taskAdded(OvAbstractJob* job);
    /// job is being destroyed or taken off: compare the address only.
    void taskRemoved(OvAbstractJob* job);

private:
    OvTaskManager();
    struct Private;
    std::unique_ptr<Private> d;
};

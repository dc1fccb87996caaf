#pragma once

#include "OvBase/OvBaseExport.h"

#include <QDockWidget>

#include <memory>

class OvAbstractJob;

/// The docked task list: one row a job with name, state, progress, elapsed time and cancel.
///
/// One a process. It is created on the first call of instance() and goes with the window that docks
/// it; after that the next call makes a new one. GUI thread.
class OVBASE_EXPORT OvTaskMonitor : public QDockWidget
{
    Q_OBJECT

public:
    static OvTaskMonitor& instance();
    ~OvTaskMonitor() override;

    bool hasRunningJob() const;

signals:
    /// The user chose the row of a job.
    void changeActiveJob(OvAbstractJob* job);

protected:
    void changeEvent(QEvent* event) override;

private:
    OvTaskMonitor();
    struct Private;
    std::unique_ptr<Private> d;
};

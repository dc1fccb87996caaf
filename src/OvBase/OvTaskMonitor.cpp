#include "OvBase/OvTaskMonitor.h"

#include "OvBase/OvTaskManager.h"
#include "OvBase/private/OvTaskRow.h"
#include "OvBase/private/OvTaskView.h"

#include <QEvent>
#include <QMenu>
#include <QSet>
#include <QTimer>

#include <algorithm>
#include <vector>

namespace {

/// 20 updates a second: what the eye follows, and no more than the GUI thread should spend.
constexpr int UpdateIntervalMs = 50;
constexpr int ClockIntervalMs = 1000;

OvTaskMonitor* current = nullptr;

bool hasEnded(const OvAbstractJob& job)
{
    return job.state() == OvAbstractJob::Finished || job.state() == OvAbstractJob::Cancelled ||
           job.state() == OvAbstractJob::Failed;
}

void clearFinished()
{
    const QList<OvAbstractJob*> jobs = OvTaskManager::instance().tasks();
    for (OvAbstractJob* job : jobs) {
        if (hasEnded(*job))
            OvTaskManager::instance().removeTask(job);
    }
}

bool hasFinishedJob()
{
    const QList<OvAbstractJob*> jobs = OvTaskManager::instance().tasks();
    return std::any_of(jobs.cbegin(), jobs.cend(),
                       [](const OvAbstractJob* job) { return hasEnded(*job); });
}

} // namespace

struct OvTaskMonitor::Private
{
    OvTaskMonitor* q = nullptr;
    OvTaskView* view = nullptr;
    QTimer updateTimer;
    QTimer clockTimer;
    QSet<const OvAbstractJob*> pending; ///< jobs with news that are not shown yet
    std::vector<std::unique_ptr<OvTaskRow>> rows;

    void init();
    void addRow(OvAbstractJob* job);
    void removeRow(const OvAbstractJob* job);
    void postpone(const OvAbstractJob* job);
    void showPending();
    void showState(const OvAbstractJob* job);
    void tick();
    void showMenu(const QPoint& position);
    OvTaskRow* row(const OvAbstractJob* job) const;
    OvTaskRow* row(const QTreeWidgetItem* item) const;
    void retranslate();
};

void OvTaskMonitor::Private::init()
{
    view = new OvTaskView(q);
    q->setWidget(view);
    updateTimer.setSingleShot(true);
    updateTimer.setInterval(UpdateIntervalMs);
    clockTimer.setInterval(ClockIntervalMs);
    QObject::connect(&updateTimer, &QTimer::timeout, q, [this] { showPending(); });
    QObject::connect(&clockTimer, &QTimer::timeout, q, [this] { tick(); });
    QObject::connect(view, &OvTaskView::rowChosen, q, [this](QTreeWidgetItem* item) {
        const OvTaskRow* const chosen = row(item);
        if (chosen && chosen->job())
            emit q->changeActiveJob(chosen->job());
    });
    QObject::connect(view, &QWidget::customContextMenuRequested, q,
                     [this](const QPoint& position) { showMenu(position); });
    OvTaskManager& manager = OvTaskManager::instance();
    QObject::connect(&manager, &OvTaskManager::taskAdded, q,
                     [this](OvAbstractJob* job) { addRow(job); });
    QObject::connect(&manager, &OvTaskManager::taskRemoved, q,
                     [this](OvAbstractJob* job) { removeRow(job); });
    const QList<OvAbstractJob*> jobs = manager.tasks();
    for (OvAbstractJob* job : jobs)
        addRow(job);
    retranslate();
}

void OvTaskMonitor::Private::addRow(OvAbstractJob* job)
{
    rows.push_back(std::make_unique<OvTaskRow>(job, view));
    OvTaskRow* const added = rows.back().get();
    const auto later = [this, job] { postpone(job); };
    // The row is the context: its connections go with it.
    QObject::connect(job, &OvAbstractJob::stateChanged, added, [this, job] { showState(job); });
    QObject::connect(job, &OvAbstractJob::progressChanged, added, later);
    QObject::connect(job, &OvAbstractJob::messageChanged, added, later);
    QObject::connect(job, &OvAbstractJob::changeTaskName, added, later);
    showState(job);
}

void OvTaskMonitor::Private::removeRow(const OvAbstractJob* job)
{
    pending.remove(job);
    // The view chooses another row for the user when the chosen one goes: nobody asked for that.
    const QSignalBlocker blocker(view);
    rows.erase(std::remove_if(rows.begin(), rows.end(),
                              [job](const auto& candidate) { return candidate->key() == job; }),
               rows.end());
    view->viewport()->update();
}

OvTaskRow* OvTaskMonitor::Private::row(const OvAbstractJob* job) const
{
    const auto found = std::find_if(rows.cbegin(), rows.cend(), [job](const auto& candidate) {
        return candidate->key() == job;
    });
    return found == rows.cend() ? nullptr : found->get();
}

OvTaskRow* OvTaskMonitor::Private::row(const QTreeWidgetItem* item) const
{
    const auto found = std::find_if(rows.cbegin(), rows.cend(), [item](const auto& candidate) {
        return candidate->item() == item;
    });
    return found == rows.cend() ? nullptr : found->get();
}

void OvTaskMonitor::Private::postpone(const OvAbstractJob* job)
{
    pending.insert(job);
    if (!updateTimer.isActive())
        updateTimer.start();
}

void OvTaskMonitor::Private::showPending()
{
    for (const auto& shown : rows) {
        if (pending.contains(shown->key()))
            shown->refresh();
    }
    pending.clear();
}

void OvTaskMonitor::Private::showState(const OvAbstractJob* job)
{
    pending.remove(job);
    if (OvTaskRow* const shown = row(job))
        shown->refresh();
    if (q->hasRunningJob() && !clockTimer.isActive())
        clockTimer.start();
}

void OvTaskMonitor::Private::tick()
{
    for (const auto& shown : rows)
        shown->refreshClock();
    if (!q->hasRunningJob())
        clockTimer.stop();
}

void OvTaskMonitor::Private::showMenu(const QPoint& position)
{
    QMenu menu;
    const OvTaskRow* const target = row(view->itemAt(position));
    OvAbstractJob* const job = target ? target->job() : nullptr;
    QAction* const cancel = menu.addAction(OvTaskMonitor::tr("Cancel"));
    cancel->setEnabled(job && job->isRunning() && job->isCancellable());
    if (job)
        QObject::connect(cancel, &QAction::triggered, job, &OvAbstractJob::requestCancel);
    menu.addSeparator();
    QAction* const clear = menu.addAction(OvTaskMonitor::tr("Clear finished"));
    clear->setEnabled(hasFinishedJob());
    QObject::connect(clear, &QAction::triggered, clear, [] { clearFinished(); });
    menu.exec(view->viewport()->mapToGlobal(position));
}

void OvTaskMonitor::Private::retranslate()
{
    q->setWindowTitle(OvTaskMonitor::tr("Task Monitor"));
    view->retranslate();
    for (const auto& shown : rows)
        shown->refresh();
}

OvTaskMonitor& OvTaskMonitor::instance()
{
    if (!current)
        current = new OvTaskMonitor;
    return *current;
}

OvTaskMonitor::OvTaskMonitor()
    : d(std::make_unique<Private>())
{
    d->q = this;
    setObjectName(QStringLiteral("OvTaskMonitor"));
    d->init();
}

OvTaskMonitor::~OvTaskMonitor()
{
    current = nullptr;
}

bool OvTaskMonitor::hasRunningJob() const
{
    return OvTaskManager::instance().hasRunningJob();
}

void OvTaskMonitor::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        d->retranslate();
    QDockWidget::changeEvent(event);
}

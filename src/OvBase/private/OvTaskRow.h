#pragma once

#include <QObject>
#include <QPointer>

class OvAbstractJob;
class OvTaskView;
class QToolButton;
class QTreeWidgetItem;

/// One row of the task monitor. Shows its job when refresh() is called; goes before the view does.
class OvTaskRow : public QObject
{
    Q_OBJECT

public:
    OvTaskRow(OvAbstractJob* job, OvTaskView* view);
    ~OvTaskRow() override;

    /// Null once the job is gone.
    OvAbstractJob* job() const { return m_job; }
    /// The address of the job, also when it is gone.
    const OvAbstractJob* key() const { return m_key; }
    QTreeWidgetItem* item() const { return m_item; }
    /// Shows everything that the job tells.
    void refresh();
    /// Shows the elapsed and the remaining time.
    void refreshClock();

private:
    void refreshState();
    void refreshProgress();
    void refreshCancel();
    QToolButton* makeCancelButton();

    QPointer<OvAbstractJob> m_job;
    const OvAbstractJob* m_key;
    OvTaskView* m_view;
    QTreeWidgetItem* m_item;
    QToolButton* m_cancel = nullptr; ///< only while the job runs; a child of the view
};

#include "OvBase/private/OvTaskRow.h"

#include "OvBase/OvAbstractJob.h"
#include "OvBase/private/OvTaskView.h"

#include <QProgressBar>
#include <QStyle>
#include <QToolButton>

namespace {

QString stateText(const OvAbstractJob& job)
{
    switch (job.state()) {
    case OvAbstractJob::Ready:
        return OvTaskRow::tr("Ready");
    case OvAbstractJob::Running:
        if (job.isCancelRequested())
            return OvTaskRow::tr("Cancelling");
        return job.kind() == OvAbstractJob::Workspace ? OvTaskRow::tr("Loading")
                                                      : OvTaskRow::tr("Running");
    case OvAbstractJob::Finished:
        return OvTaskRow::tr("Finished");
    case OvAbstractJob::Cancelled:
        return OvTaskRow::tr("Cancelled");
    case OvAbstractJob::Failed:
        return OvTaskRow::tr("Failed");
    }
    return {};
}

QString clockText(qint64 milliseconds)
{
    const qint64 seconds = milliseconds / 1000;
    return QStringLiteral("%1:%2")
        .arg(seconds / 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

QString remainingText(const OvAbstractJob& job)
{
    if (!job.isRunning() || job.progress() < 1)
        return {};
    return clockText(job.elapsedMs() * (100 - job.progress()) / job.progress());
}

/// Names come from files and users: never read as rich text.
QString toolTip(const QString& text)
{
    return text.isEmpty() ? QString() : QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped());
}

void setCell(QTreeWidgetItem* item, int column, const QString& text)
{
    const QString line = text.simplified();
    if (item->text(column) == line)
        return;
    item->setText(column, line);
    item->setToolTip(column, toolTip(text));
}

} // namespace

OvTaskRow::OvTaskRow(OvAbstractJob* job, OvTaskView* view)
    : m_job(job)
    , m_key(job)
    , m_view(view)
    , m_item(new QTreeWidgetItem(view))
    , m_progress(new QProgressBar)
    , m_cancel(new QToolButton)
{
    m_item->setTextAlignment(OvTaskView::ElapsedColumn, Qt::AlignRight | Qt::AlignVCenter);
    m_item->setTextAlignment(OvTaskView::RemainingColumn, Qt::AlignRight | Qt::AlignVCenter);
    const int height = view->fontMetrics().height();
    m_progress->setMaximumHeight(height + 2);
    m_progress->setAlignment(Qt::AlignCenter);
    m_cancel->setIcon(view->style()->standardIcon(QStyle::SP_BrowserStop));
    m_cancel->setIconSize(QSize(height, height));
    m_cancel->setAutoRaise(true);
    m_cancel->setFocusPolicy(Qt::StrongFocus);
    m_cancel->setMaximumHeight(height + 4);
    view->setItemWidget(m_item, OvTaskView::ProgressColumn, m_progress);
    view->setItemWidget(m_item, OvTaskView::CancelColumn, m_cancel);
    connect(m_cancel, &QToolButton::clicked, job, &OvAbstractJob::requestCancel);
    refresh();
}

OvTaskRow::~OvTaskRow()
{
    delete m_item;
}

void OvTaskRow::refresh()
{
    if (!m_job)
        return;
    setCell(m_item, OvTaskView::NameColumn, m_job->taskName());
    setCell(m_item, OvTaskView::MessageColumn, m_job->message());
    refreshState();
    refreshProgress();
    refreshCancel();
    refreshClock();
}

void OvTaskRow::refreshClock()
{
    if (!m_job)
        return;
    const bool hasWorked = m_job->isRunning() || m_job->elapsedMs() > 0;
    setCell(m_item, OvTaskView::ElapsedColumn,
            hasWorked ? clockText(m_job->elapsedMs()) : QString());
    setCell(m_item, OvTaskView::RemainingColumn, remainingText(*m_job));
}

void OvTaskRow::refreshState()
{
    const bool failed = m_job->state() == OvAbstractJob::Failed;
    setCell(m_item, OvTaskView::StateColumn, stateText(*m_job));
    QFont font = m_view->font();
    font.setBold(failed);
    m_item->setFont(OvTaskView::StateColumn, font);
}

void OvTaskRow::refreshProgress()
{
    const bool isUnknown = m_job->isRunning() && m_job->progress() < 0;
    m_progress->setRange(0, isUnknown ? 0 : 100);
    m_progress->setValue(qMax(0, m_job->progress()));
    m_progress->setVisible(m_job->isRunning() ||
                           (m_job->kind() == OvAbstractJob::Action && m_job->progress() >= 0));
    m_progress->setAccessibleName(tr("Progress of %1").arg(m_job->taskName()));
}

void OvTaskRow::refreshCancel()
{
    const QString text = tr("Cancel %1").arg(m_job->taskName());
    m_cancel->setEnabled(m_job->isRunning() && m_job->isCancellable() &&
                         !m_job->isCancelRequested());
    m_cancel->setVisible(m_job->isRunning());
    m_cancel->setToolTip(toolTip(text));
    m_cancel->setAccessibleName(text);
}

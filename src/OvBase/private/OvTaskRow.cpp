#include "OvBase/private/OvTaskRow.h"

#include "OvBase/OvAbstractJob.h"
#include "OvBase/private/OvTaskView.h"

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

QIcon stateIcon(OvAbstractJob::State state, const QStyle* style)
{
    switch (state) {
    case OvAbstractJob::Finished:
        return style->standardIcon(QStyle::SP_DialogApplyButton);
    case OvAbstractJob::Cancelled:
        return style->standardIcon(QStyle::SP_MessageBoxWarning);
    case OvAbstractJob::Failed:
        return style->standardIcon(QStyle::SP_MessageBoxCritical);
    default:
        return {};
    }
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
{
    m_item->setTextAlignment(OvTaskView::ElapsedColumn, Qt::AlignRight | Qt::AlignVCenter);
    m_item->setTextAlignment(OvTaskView::RemainingColumn, Qt::AlignRight | Qt::AlignVCenter);
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
    const QString text = stateText(*m_job);
    if (m_item->text(OvTaskView::StateColumn) == text)
        return;
    setCell(m_item, OvTaskView::StateColumn, text);
    m_item->setIcon(OvTaskView::StateColumn, stateIcon(m_job->state(), m_view->style()));
}

void OvTaskRow::refreshProgress()
{
    const bool isShown =
        m_job->isRunning() || (m_job->kind() == OvAbstractJob::Action && m_job->progress() >= 0);
    const QVariant progress = isShown ? QVariant(m_job->progress()) : QVariant();
    if (m_item->data(OvTaskView::ProgressColumn, OvTaskView::ProgressRole) != progress)
        m_item->setData(OvTaskView::ProgressColumn, OvTaskView::ProgressRole, progress);
    setCell(m_item, OvTaskView::ProgressColumn,
            isShown && m_job->progress() >= 0 ? tr("%1 %").arg(m_job->progress()) : QString());
}

// Widgets in a table are slow, so only the rows that need a button have one.
void OvTaskRow::refreshCancel()
{
    if (!m_job->isRunning()) {
        m_view->setItemWidget(m_item, OvTaskView::CancelColumn, nullptr);
        m_cancel = nullptr;
        return;
    }
    if (!m_cancel)
        m_cancel = makeCancelButton();
    const QString text = tr("Cancel %1").arg(m_job->taskName());
    m_cancel->setEnabled(m_job->isCancellable() && !m_job->isCancelRequested());
    m_cancel->setToolTip(toolTip(text));
    m_cancel->setAccessibleName(text);
}

QToolButton* OvTaskRow::makeCancelButton()
{
    const int height = m_view->fontMetrics().height();
    auto* const button = new QToolButton;
    button->setObjectName(QStringLiteral("cancelTask"));
    button->setIcon(m_view->style()->standardIcon(QStyle::SP_BrowserStop));
    button->setIconSize(QSize(height, height));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setMaximumHeight(height + 4);
    connect(button, &QToolButton::clicked, m_job.data(), &OvAbstractJob::requestCancel);
    m_view->setItemWidget(m_item, OvTaskView::CancelColumn, button);
    return button;
}

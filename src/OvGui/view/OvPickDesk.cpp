#include "OvGui/view/OvPickDesk.h"

#include "OvGui/canvas/OvGatherCanvas.h"
#include "OvGui/document/OvPickHistory.h"
#include "OvGui/tools/OvPickTool.h"
#include "OvGui/view/OvGatherPane.h"
#include "OvSeismic/picking/OvErrorPicks.h"

OvPickDesk::OvPickDesk(OvGatherPane* pane, OvGatherCanvas* canvas)
    : QObject(canvas)
    , m_pane(pane)
    , m_canvas(canvas)
    , m_tool(new OvPickTool(canvas))
{
    connect(m_tool, &OvPickTool::edited, this, &OvPickDesk::store);
}

QString OvPickDesk::obstacle() const
{
    if (!m_pane->document())
        return tr("There is nothing to pick.");
    const OvStatus status = m_pane->document()->firstBreakStatus();
    return status ? QString() : status.message();
}

bool OvPickDesk::isEditing() const
{
    return m_tool->isActive();
}

void OvPickDesk::setEditing(bool editing)
{
    const QString reason = editing ? obstacle() : QString();
    if (!reason.isEmpty())
        emit info(reason);
    const bool possible = editing && reason.isEmpty();
    if (possible == m_tool->isActive())
        return;
    m_tool->setActive(possible);
    emit editingChanged(possible);
}

void OvPickDesk::store(const QVector<OvTracePick>& picks, const QString& text)
{
    // Whoever hears of the change may close the view.
    const auto document = m_pane->document();
    if (!document || !m_pane->isOnCanvas())
        return;
    const OvStatus status = edit(picks, text);
    if (!status)
        emit info(status.message());
}

OvStatus OvPickDesk::edit(const QVector<OvTracePick>& picks, const QString& text)
{
    const auto gather = m_canvas->gather();
    std::vector<qint64> traces;
    for (const OvTracePick& pick : picks)
        traces.push_back(gather->headers.at(static_cast<std::size_t>(pick.row)).traceIndex);
    return m_pane->document()->pickHistory()->edit(traces, picks, text);
}

void OvPickDesk::showOutcome(const OvStatus& status, qint64 trace)
{
    if (!status)
        emit info(status.message());
    else if (trace >= 0)
        m_pane->showTrace(trace);
}

void OvPickDesk::undo()
{
    const auto document = m_pane->document();
    if (!document)
        return;
    qint64 trace = -1;
    const OvStatus status = document->pickHistory()->undo(&trace);
    showOutcome(status, trace);
}

void OvPickDesk::redo()
{
    const auto document = m_pane->document();
    if (!document)
        return;
    qint64 trace = -1;
    const OvStatus status = document->pickHistory()->redo(&trace);
    showOutcome(status, trace);
}

void OvPickDesk::toggleRejected()
{
    if (m_tool->toggleRejected())
        return;
    emit info(isEditing()
                  ? tr("No pick is marked. Click a trace, or press Ctrl+Left or Ctrl+Right.")
                  : tr("Picks are rejected while they are edited. Choose Edit Picks first."));
}

QString OvPickDesk::summary(int wrong, int picked) const
{
    const QString name = m_pane->gatherName();
    if (picked == 0)
        return tr("%1 has no picks to classify.").arg(name);
    return tr("%1, picks rejected because they look wrong: %2 of %3.")
        .arg(name, QString::number(wrong), QString::number(picked));
}

void OvPickDesk::classify()
{
    const QString reason = obstacle();
    if (!reason.isEmpty() || !m_pane->isOnCanvas()) {
        emit info(reason.isEmpty() ? tr("The gather is not there yet.") : reason);
        return;
    }
    const OvFirstBreaks breaks = m_canvas->firstBreaks();
    QVector<OvTracePick> picks;
    for (const int row : OvErrorPicks::find(*m_canvas->gather(), breaks)) {
        OvTracePick pick = OvTracePick::of(breaks, row);
        pick.state = OvPickState::Rejected;
        picks.append(pick);
    }
    const auto document = m_pane->document();
    const OvStatus status = edit(picks, tr("Classify Error Picks"));
    emit info(status ? summary(picks.size(), breaks.pickedCount()) : status.message());
}

#include "OvGui/document/OvPickHistory.h"

#include "OvGui/document/OvSegyDocument.h"

#include <algorithm>

namespace {

constexpr int mostSteps = 1000;

QVector<OvTracePick> picksOf(const OvFirstBreaks& breaks, const QVector<OvTracePick>& like)
{
    QVector<OvTracePick> picks;
    picks.reserve(like.size());
    for (const OvTracePick& pick : like)
        picks.append(OvTracePick::of(breaks, pick.row));
    return picks;
}

OvFirstBreaks completeBreaks(const OvSegyDocument& document, int gather)
{
    OvFirstBreaks breaks = document.firstBreaks(gather);
    breaks.resize(document.index()->gatherTraceCount(gather));
    return breaks;
}

} // namespace

class OvPickHistory::Step : public QUndoCommand
{
public:
    Step(OvPickHistory* history, int gather, QVector<OvTracePick> before,
         QVector<OvTracePick> after, const QString& text)
        : QUndoCommand(text)
        , m_history(history)
        , m_gather(gather)
        , m_before(std::move(before))
        , m_after(std::move(after))
    {
    }

    void undo() override { store(m_before); }
    void redo() override { store(m_after); }

private:
    void store(const QVector<OvTracePick>& picks)
    {
        m_history->m_gather = m_gather;
        m_history->m_outcome = m_history->m_document->setPicks(m_gather, picks);
        // A step that could not be taken must not be taken back.
        setObsolete(!m_history->m_outcome);
    }

    OvPickHistory* m_history;
    int m_gather;
    QVector<OvTracePick> m_before;
    QVector<OvTracePick> m_after;
};

OvPickHistory::OvPickHistory(OvSegyDocument* document)
    : m_document(document)
{
    m_stack.setUndoLimit(mostSteps);
}

OvPickHistory::~OvPickHistory() = default;

OvStatus OvPickHistory::edit(int gather, const QVector<OvTracePick>& picks, const QString& text)
{
    const OvStatus writable = m_document->firstBreakStatus();
    if (!writable || gather < 0 || gather >= m_document->gatherCount())
        return writable;
    const OvFirstBreaks breaks = completeBreaks(*m_document, gather);
    QVector<OvTracePick> after;
    for (const OvTracePick& pick : picks)
        if (pick.row >= 0 && pick.row < breaks.size() &&
            !pick.isSame(OvTracePick::of(breaks, pick.row)))
            after.append(pick);
    if (after.isEmpty())
        return OvStatus::success();
    m_stack.push(new Step(this, gather, picksOf(breaks, after), after, text));
    return m_outcome;
}

template <typename Move>
OvStatus OvPickHistory::move(bool possible, Move how, int* gather)
{
    *gather = -1;
    const OvStatus writable = m_document->firstBreakStatus();
    if (!possible || !writable)
        return writable;
    how();
    *gather = m_gather;
    return m_outcome;
}

OvStatus OvPickHistory::undo(int* gather)
{
    return move(
        m_stack.canUndo(), [this] { m_stack.undo(); }, gather);
}

OvStatus OvPickHistory::redo(int* gather)
{
    return move(
        m_stack.canRedo(), [this] { m_stack.redo(); }, gather);
}

#include "OvGui/document/OvPickHistory.h"

#include "OvGui/document/OvSegyDocument.h"

#include <memory>

namespace {

constexpr int mostSteps = 1000;

} // namespace

class OvPickHistory::Step : public QUndoCommand
{
public:
    Step(OvPickHistory* history, const QString& text)
        : QUndoCommand(text)
        , m_history(history)
    {
    }

    void add(qint64 trace, const OvTracePick& before, const OvTracePick& after)
    {
        m_traces.push_back(trace);
        m_before.append(before);
        m_after.append(after);
    }
    bool isEmpty() const { return m_traces.empty(); }

    void undo() override { store(m_before); }
    void redo() override { store(m_after); }

private:
    void store(const QVector<OvTracePick>& picks)
    {
        m_history->m_trace = m_traces.front();
        m_history->m_outcome = m_history->m_document->setPicksOf(m_traces, picks);
        // A step that could not be taken must not be taken back.
        setObsolete(!m_history->m_outcome);
    }

    OvPickHistory* m_history;
    std::vector<qint64> m_traces;
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
    const auto index = m_document->index();
    if (gather < 0 || gather >= index->gatherCount())
        return m_document->firstBreakStatus();
    const std::vector<qint64> all = index->gatherTraces(gather);
    std::vector<qint64> traces;
    QVector<OvTracePick> fitting;
    for (const OvTracePick& pick : picks) {
        if (pick.row < 0 || pick.row >= static_cast<int>(all.size()))
            continue;
        traces.push_back(all[static_cast<std::size_t>(pick.row)]);
        fitting.append(pick);
    }
    return edit(traces, fitting, text);
}

OvStatus OvPickHistory::edit(const std::vector<qint64>& traces, const QVector<OvTracePick>& picks,
                             const QString& text)
{
    const OvStatus writable = m_document->firstBreakStatus();
    if (!writable)
        return writable;
    OvFirstBreaks breaks = m_document->firstBreaksOf(traces);
    breaks.resize(picks.size());
    auto step = std::make_unique<Step>(this, text);
    for (int i = 0; i < picks.size(); ++i) {
        OvTracePick after = picks.at(i);
        after.row = i;
        const OvTracePick before = OvTracePick::of(breaks, i);
        if (!after.isSame(before))
            step->add(traces[static_cast<std::size_t>(i)], before, after);
    }
    if (step->isEmpty())
        return OvStatus::success();
    m_stack.push(step.release());
    return m_outcome;
}

template <typename Move>
OvStatus OvPickHistory::move(bool possible, Move how, qint64* trace)
{
    *trace = -1;
    const OvStatus writable = m_document->firstBreakStatus();
    if (!possible || !writable)
        return writable;
    how();
    *trace = m_trace;
    return m_outcome;
}

OvStatus OvPickHistory::undo(qint64* trace)
{
    return move(
        m_stack.canUndo(), [this] { m_stack.undo(); }, trace);
}

OvStatus OvPickHistory::redo(qint64* trace)
{
    return move(
        m_stack.canRedo(), [this] { m_stack.redo(); }, trace);
}

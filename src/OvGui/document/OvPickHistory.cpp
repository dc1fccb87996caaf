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

    // When it is pushed there is nothing left to do.
    void setStored() { m_isStored = true; }

    void add(qint64 trace, const OvTracePick& before, const OvTracePick& after)
    {
        m_traces.push_back(trace);
        m_before.append(before);
        m_after.append(after);
    }
    bool isEmpty() const { return m_traces.empty(); }

    void undo() override { store(m_before); }
    void redo() override
    {
        if (!m_isStored)
            store(m_after);
        m_isStored = false;
    }

private:
    void store(const QVector<OvTracePick>& picks)
    {
        m_history->m_trace = m_traces.front();
        m_history->m_outcome = m_history->m_document->setPicksOf(m_traces, picks);
        // A step that could not be taken must not be taken back.
        setObsolete(!m_history->m_outcome);
    }

    OvPickHistory* m_history;
    bool m_isStored = false;
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
    OvStatus writable = m_document->firstBreakStatus();
    if (!writable)
        return writable;
    OvFirstBreaks after;
    after.resize(picks.size());
    for (int i = 0; i < picks.size(); ++i) {
        OvTracePick pick = picks.at(i);
        pick.row = i;
        pick.putInto(&after);
    }
    m_outcome = OvStatus::success();
    push(traces, m_document->firstBreaksOf(traces), after, std::make_unique<Step>(this, text));
    return m_outcome;
}

void OvPickHistory::note(const std::vector<qint64>& traces, const OvFirstBreaks& before,
                         const OvFirstBreaks& after, const QString& text)
{
    auto step = std::make_unique<Step>(this, text);
    step->setStored();
    push(traces, before, after, std::move(step));
}

void OvPickHistory::push(const std::vector<qint64>& traces, OvFirstBreaks before,
                         const OvFirstBreaks& after, std::unique_ptr<Step> step)
{
    before.resize(after.size());
    for (int i = 0; i < after.size(); ++i) {
        const OvTracePick from = OvTracePick::of(before, i);
        const OvTracePick to = OvTracePick::of(after, i);
        if (!to.isSame(from))
            step->add(traces[static_cast<std::size_t>(i)], from, to);
    }
    if (!step->isEmpty())
        m_stack.push(step.release());
}

template <typename Move>
OvStatus OvPickHistory::move(bool possible, Move how, qint64* trace)
{
    *trace = -1;
    OvStatus writable = m_document->firstBreakStatus();
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

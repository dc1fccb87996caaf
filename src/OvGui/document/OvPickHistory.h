#pragma once

#include "OvGui/OvGuiExport.h"
#include "OvGui/document/OvTracePick.h"
#include "OvSeismic/OvStatus.h"

#include <QObject>
#include <QUndoStack>

#include <memory>

class OvSegyDocument;

/// The edits by hand of one document's first breaks, to be undone and redone. Every step is stored
/// durably when it is made.
///
/// A step remembers only the traces that it changed, so that undoing it leaves alone what a job has
/// picked elsewhere since. Lives in the document; GUI thread.
class OVGUI_EXPORT OvPickHistory : public QObject
{
    Q_OBJECT

public:
    explicit OvPickHistory(OvSegyDocument* document);
    ~OvPickHistory() override;

    /// Stores picks of a gather as one step. Nothing happens when all are as they were. text names
    /// the step.
    OvStatus edit(int gather, const QVector<OvTracePick>& picks, const QString& text);
    /// The same for traces by their position in the file, one pick for each; the rows of the picks
    /// mean nothing.
    OvStatus edit(const std::vector<qint64>& traces, const QVector<OvTracePick>& picks,
                  const QString& text);
    /// Takes up as a step what somebody else has stored: what the traces had before (may be empty)
    /// and have now.
    void note(const std::vector<qint64>& traces, const OvFirstBreaks& before,
              const OvFirstBreaks& after, const QString& text);
    /// *trace receives the first trace that was changed, -1 when there was nothing to undo. After a
    /// failure the picks are as they were.
    OvStatus undo(qint64* trace);
    OvStatus redo(qint64* trace);
    /// For actions that follow it; step back and forth with undo() and redo() above.
    QUndoStack* stack() { return &m_stack; }

private:
    class Step;
    void push(const std::vector<qint64>& traces, OvFirstBreaks before, const OvFirstBreaks& after,
              std::unique_ptr<Step> step);
    template <typename Move>
    OvStatus move(bool possible, Move how, qint64* trace);

    OvSegyDocument* m_document;
    QUndoStack m_stack;
    qint64 m_trace = -1; // the first that was stored last
    OvStatus m_outcome;
};

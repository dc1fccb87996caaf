#pragma once

#include "OvGui/document/OvTracePick.h"
#include "OvSeismic/OvStatus.h"

#include <QObject>

class OvGatherCanvas;
class OvGatherPane;
class OvPickTool;

/// Where the edits of a gather view are made: takes those of its pick tool to the document, undoes
/// and redoes them, and lets wrong picks be found. GUI thread.
class OvPickDesk : public QObject
{
    Q_OBJECT

public:
    OvPickDesk(OvGatherPane* pane, OvGatherCanvas* canvas);

    OvPickTool* tool() const { return m_tool; }
    /// Why picks cannot be edited, for the user; empty when they can.
    QString obstacle() const;
    bool isEditing() const;
    /// Stays off where there is an obstacle.
    void setEditing(bool editing);
    void undo();
    void redo();
    /// Rejects the automatic picks of the gather that are probably wrong, and says how many.
    void classify();
    /// Rejects or restores the pick of the marked trace; says why when there is none.
    void toggleRejected();

signals:
    void editingChanged(bool editing);
    /// A line for the status bar.
    void info(const QString& text);

private:
    void store(const QVector<OvTracePick>& picks, const QString& text);
    OvStatus edit(const QVector<OvTracePick>& picks, const QString& text);
    void showOutcome(const OvStatus& status, qint64 trace);
    QString summary(int wrong, int picked) const;

    OvGatherPane* m_pane;
    OvGatherCanvas* m_canvas;
    OvPickTool* m_tool;
};

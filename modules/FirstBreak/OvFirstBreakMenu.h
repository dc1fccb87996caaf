#pragma once

#include <QAction>
#include <QMenu>
#include <QPointer>

class QMainWindow;

/// The First Break menu: automatic picking, and the main window's own export actions.
///
/// The window creates the export actions and leaves them without a place; adoptWindowActions()
/// looks them up by object name and takes them in. They remain the window's.
class OvFirstBreakMenu : public QMenu
{
    Q_OBJECT

public:
    explicit OvFirstBreakMenu(QWidget* parent = nullptr);
    ~OvFirstBreakMenu() override;

    void retranslate();
    /// Takes in the actions of the newest main window; harmless when it was done before, or when
    /// there is no window.
    void adoptWindowActions();
    /// Whether the active view shows something to pick and to export.
    void setUsable(bool usable);
    /// Why the picks of the active view cannot be edited; empty when they can.
    void setEditObstacle(const QString& obstacle);

    /// For the tool bar. Checkable; toggled() is the user's wish or the state of the active view.
    QAction* editAction() const { return m_edit; }
    QAction* undoAction() const { return m_undo; }
    QAction* redoAction() const { return m_redo; }

signals:
    void pickRequested();
    void pickGatherRequested();
    void exportRequested();
    void rejectRequested();
    void classifyRequested();

private:
    QMainWindow* windowToAdopt() const;
    void adoptExport(QAction* action);
    void adoptHeaderExport(QAction* action);
    void dropActions();

    void makeEditActions();
    QAction* makeAction(const char* name, const QList<QKeySequence>& keys);
    void retranslateEdit();
    void relabel(QAction* action, const QString& text, const QString& toolTip);

    QAction* m_pick = nullptr;
    QAction* m_pickGather = nullptr;
    QAction* m_edit = nullptr;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QAction* m_reject = nullptr;
    QAction* m_classify = nullptr;
    QString m_obstacle;
    QPointer<QAction> m_export;
    QPointer<QAction> m_headerExport;
    bool m_usable = false;
};

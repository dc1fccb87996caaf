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

signals:
    void pickRequested();
    void exportRequested();

private:
    QMainWindow* windowToAdopt() const;
    void adoptExport(QAction* action);
    void adoptHeaderExport(QAction* action);
    void dropActions();

    QAction* m_pick = nullptr;
    QPointer<QAction> m_export;
    QPointer<QAction> m_headerExport;
    bool m_usable = false;
};

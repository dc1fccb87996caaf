#pragma once

#include <QWidget>

class OvSensitivityEditor;
class QAction;
class QGridLayout;
class QLabel;

/// The editing of picks in two rows of a tool bar: the window within which a pick snaps to an
/// arrival, and buttons for actions that others own.
class OvFirstBreakBar : public QWidget
{
    Q_OBJECT

public:
    OvFirstBreakBar(QAction* edit, QAction* undo, QAction* redo, QWidget* parent = nullptr);
    ~OvFirstBreakBar() override;

    /// Milliseconds either side of a click.
    int snapWindow() const;
    /// Asks for the state of the active view to be shown.
    Q_INVOKABLE void reset();

signals:
    void snapWindowChanged(int windowMs);
    void resetRequested();

protected:
    void changeEvent(QEvent* event) override;

private:
    void addButton(QGridLayout* grid, QAction* action, int column);
    void retranslate();

    QLabel* m_label;
    OvSensitivityEditor* m_editor;
};

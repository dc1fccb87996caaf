#pragma once

#include <QList>
#include <QScopedPointer>
#include <QWidget>

class QAction;
class OvMainGadgetPrivate;

/// A compact block of icon buttons for the tool bar: two rows, filled column after column.
///
/// The gadget takes a say in the life of its actions: one that a later, non-empty setActions() no
/// longer names is deleted, at that call or a following one. GUI thread.
class OvMainGadget : public QWidget
{
    Q_OBJECT

public:
    explicit OvMainGadget(QWidget* parent = nullptr);
    ~OvMainGadget() override;

    /// Rebuilds the buttons, one an action, in the order given. An empty list removes the buttons
    /// and leaves every action alone. Always true.
    bool setActions(const QList<QAction*>& actions);
    void clearButtons();

protected:
    void changeEvent(QEvent* event) override;

private:
    QScopedPointer<OvMainGadgetPrivate> d;
};

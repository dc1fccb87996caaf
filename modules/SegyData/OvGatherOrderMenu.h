#pragma once

#include "OvSeismic/segy/OvGatherOrder.h"

#include <QMenu>
#include <QPointer>

class OvAbstractViewController;
class OvGatherViewController;
class QActionGroup;

/// Chooses which traces form a gather in the active window, and in which order. Disabled without a
/// gather window.
class OvGatherOrderMenu : public QMenu
{
    Q_OBJECT

public:
    explicit OvGatherOrderMenu(QWidget* parent = nullptr);

    void retranslate();

private:
    void makeKeys();
    void makeSorts();
    void followView(OvAbstractViewController* active);
    /// Checks what the active window has.
    void showOrder();
    void setKey(OvGatherKey key);
    void setSort(OvGatherSort sort);
    void setDescending(bool descending);
    void askBinWidth();
    template <typename Change>
    void change(Change change);

    QPointer<OvGatherViewController> m_view;
    // Plain on purpose: a view that is being destroyed is no gather view any more.
    QPointer<QObject> m_followed;
    QActionGroup* m_keys;
    QActionGroup* m_sorts;
    QMenu* m_sortMenu = nullptr;
    QAction* m_descending = nullptr;
    QAction* m_binWidth = nullptr;
};

#pragma once

#include <QStyledItemDelegate>

/// Draws OvTaskView::ProgressRole as a bar of the desktop's style.
class OvProgressDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

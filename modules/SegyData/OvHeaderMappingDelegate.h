#pragma once

#include <QStyledItemDelegate>

/// Edits the rows of an OvHeaderMappingModel: a number for the byte, lists for type and order. What
/// is chosen from a list counts at once.
class OvHeaderMappingDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

private:
    void take(QWidget* editor);
};

#pragma once

#include <QItemDelegate>

/// Draws the name of a project in red when the project's data folder does not exist.
class ProjectNameDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    using QItemDelegate::QItemDelegate;

protected:
    void drawDisplay(QPainter* painter, const QStyleOptionViewItem& option, const QRect& rect,
                     const QString& text) const override;
};

#include "OvBase/private/OvProgressDelegate.h"

#include "OvBase/private/OvTaskView.h"

#include <QApplication>
#include <QPainter>

namespace {

QStyleOptionProgressBar barOption(const QStyleOptionViewItem& cell, int progress)
{
    QStyleOptionProgressBar bar;
    bar.rect = cell.rect.adjusted(2, 2, -2, -2);
    bar.palette = cell.palette;
    bar.fontMetrics = cell.fontMetrics;
    bar.direction = cell.direction;
    bar.state = (cell.state & QStyle::State_Enabled) | QStyle::State_Horizontal;
    bar.orientation = Qt::Horizontal;
    bar.minimum = 0;
    // A bar without a range is how styles show work of unknown length.
    bar.maximum = progress < 0 ? 0 : 100;
    bar.progress = qMax(0, progress);
    bar.textAlignment = Qt::AlignCenter;
    return bar;
}

} // namespace

void OvProgressDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    const QVariant progress = index.data(OvTaskView::ProgressRole);
    if (!progress.isValid()) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem background = option;
    initStyleOption(&background, index);
    background.text.clear();
    const QStyle* const style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &background, painter, option.widget);
    QStyleOptionProgressBar bar = barOption(option, progress.toInt());
    bar.text = index.data(Qt::DisplayRole).toString();
    bar.textVisible = !bar.text.isEmpty();
    style->drawControl(QStyle::CE_ProgressBar, &bar, painter, option.widget);
}

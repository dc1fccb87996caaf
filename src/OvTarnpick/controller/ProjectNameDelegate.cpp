#include "OvTarnpick/controller/ProjectNameDelegate.h"

#include "OvBase/OvProjectDefineNode.h"

#include <QDir>

// A name that the table does not know has an empty path, which is the working directory: not red.
void ProjectNameDelegate::drawDisplay(QPainter* painter, const QStyleOptionViewItem& option,
                                      const QRect& rect, const QString& text) const
{
    QStyleOptionViewItem coloured = option;
    if (!QDir(OvProjectDefineNode().projectByName(text).dataPath).exists())
        coloured.palette.setColor(QPalette::Text, Qt::red);
    QItemDelegate::drawDisplay(painter, coloured, rect, text);
}

#include "OvBase/private/OvTaskView.h"

#include <QHeaderView>
#include <QPainter>

OvTaskView::OvTaskView(QWidget* parent)
    : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("taskView"));
    setColumnCount(ColumnCount);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(SingleSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setFrameShape(NoFrame);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(true);
    header()->setMinimumSectionSize(24);
    connect(this, &QTreeWidget::itemSelectionChanged, this, [this] {
        if (!selectedItems().isEmpty())
            choose(selectedItems().constFirst());
    });
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        if (!m_chosenSincePress)
            choose(item);
    });
    retranslate();
}

void OvTaskView::retranslate()
{
    setHeaderLabels({tr("Task"), tr("State"), tr("Progress"), QString(), tr("Elapsed"),
                     tr("Remaining"), tr("Message")});
    headerItem()->setToolTip(CancelColumn, tr("Cancel"));
    setAccessibleName(tr("Task list"));
    const int letter = fontMetrics().averageCharWidth();
    const int widths[] = {letter * 34, letter * 14, letter * 22, 28, letter * 11, letter * 11};
    for (int column = NameColumn; column < MessageColumn; ++column)
        setColumnWidth(column, widths[column]);
    header()->setSectionResizeMode(CancelColumn, QHeaderView::Fixed);
    viewport()->update();
}

QSize OvTaskView::sizeHint() const
{
    return {600, 90};
}

QSize OvTaskView::minimumSizeHint() const
{
    return {120, 40};
}

void OvTaskView::choose(QTreeWidgetItem* item)
{
    m_chosenSincePress = true;
    emit rowChosen(item);
}

void OvTaskView::mousePressEvent(QMouseEvent* event)
{
    m_chosenSincePress = false;
    QTreeWidget::mousePressEvent(event);
}

void OvTaskView::paintEvent(QPaintEvent* event)
{
    QTreeWidget::paintEvent(event);
    if (topLevelItemCount() > 0)
        return;
    QPainter painter(viewport());
    QColor pale = palette().color(QPalette::Text);
    pale.setAlphaF(0.55);
    painter.setPen(pale);
    painter.drawText(viewport()->rect(), Qt::AlignCenter, tr("No jobs"));
}

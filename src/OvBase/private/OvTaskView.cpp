#include "OvBase/private/OvTaskView.h"

#include "OvBase/private/OvProgressDelegate.h"

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
    setItemDelegateForColumn(ProgressColumn, new OvProgressDelegate(this));
    header()->setSectionsMovable(false);
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
    sizeColumns();
}

// Name and message share what the short columns leave, so that a narrow dock needs no scroll bar.
void OvTaskView::sizeColumns()
{
    header()->setSectionResizeMode(QHeaderView::Stretch);
    const int letter = fontMetrics().averageCharWidth();
    const QVector<QPair<Column, int>> widths = {{StateColumn, letter * 11},
                                                {ProgressColumn, letter * 13},
                                                {CancelColumn, fontMetrics().height() + 12},
                                                {ElapsedColumn, letter * 9},
                                                {RemainingColumn, letter * 11}};
    for (const auto& width : widths) {
        header()->setSectionResizeMode(width.first, QHeaderView::Interactive);
        header()->resizeSection(width.first, width.second);
    }
}

void OvTaskView::retranslate()
{
    setHeaderLabels({tr("Task"), tr("State"), tr("Progress"), QString(), tr("Elapsed"),
                     tr("Remaining"), tr("Message")});
    headerItem()->setToolTip(CancelColumn, tr("Cancel"));
    setAccessibleName(tr("Task list"));
    viewport()->update();
}

void OvTaskView::resizeEvent(QResizeEvent* event)
{
    QTreeWidget::resizeEvent(event);
    // Where there is no room for everything, names and messages tell more than clocks.
    const int letters = viewport()->width() / fontMetrics().averageCharWidth();
    setColumnHidden(RemainingColumn, letters < 84);
    setColumnHidden(ElapsedColumn, letters < 70);
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

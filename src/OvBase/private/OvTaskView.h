#pragma once

#include "OvBase/OvBaseExport.h"

#include <QTreeWidget>

/// The table of the task monitor: says so when it is empty, and tells when the user chooses a row.
class OVBASE_EXPORT OvTaskView : public QTreeWidget
{
    Q_OBJECT

public:
    enum Column {
        NameColumn,
        StateColumn,
        ProgressColumn,
        CancelColumn,
        ElapsedColumn,
        RemainingColumn,
        MessageColumn,
        ColumnCount
    };

    /// Data of the progress column: per cent, -1 for unknown; no data for no bar.
    static constexpr int ProgressRole = Qt::UserRole;

    explicit OvTaskView(QWidget* parent = nullptr);

    void retranslate();
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// By click or keyboard; also for a click on the row that is the chosen one already.
    void rowChosen(QTreeWidgetItem* item);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void choose(QTreeWidgetItem* item);
    void sizeColumns();

    bool m_chosenSincePress = false;
};

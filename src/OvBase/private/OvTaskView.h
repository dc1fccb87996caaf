#pragma once

#include <QTreeWidget>

/// The table of the task monitor: says so when it is empty, and tells when the user chooses a row.
class OvTaskView : public QTreeWidget
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

private:
    void choose(QTreeWidgetItem* item);

    bool m_chosenSincePress = false;
};

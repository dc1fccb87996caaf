#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class QLabel;
class QSpinBox;

/// Edits the open project's display settings in two rows of a tool bar; disabled without a project.
class OvSegyDisplayBar : public QWidget
{
    Q_OBJECT

public:
    explicit OvSegyDisplayBar(QWidget* parent = nullptr);
    ~OvSegyDisplayBar() override;

    void retranslate();
    /// Shows the open project's settings, whatever the fields held.
    Q_INVOKABLE void reset();

protected:
    void changeEvent(QEvent* event) override;

private:
    void makeFields();
    void connectFields();
    void placeFields();
    QLabel* addLabel(QGridLayout* grid, int row, int column, QWidget* field);
    void retranslateLists();
    void retranslateToolTips();
    void store();

    QComboBox* m_mode = nullptr;
    QComboBox* m_scaling = nullptr;
    QComboBox* m_colors = nullptr;
    QDoubleSpinBox* m_gain = nullptr;
    QSpinBox* m_agc = nullptr;
    QCheckBox* m_reverse = nullptr;
    QList<QLabel*> m_labels;
};

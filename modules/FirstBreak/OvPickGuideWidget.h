#pragma once

#include "OvSeismic/picking/OvPickDefine.h"

#include <QWidget>

class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class QLabel;

/// What is picked, how sure a pick must be, and what guides the search: the fields of OvPickDefine
/// beyond the ten parameters. The fields bear the parameters' names.
class OvPickGuideWidget : public QWidget
{
    Q_OBJECT

public:
    explicit OvPickGuideWidget(QWidget* parent = nullptr);
    ~OvPickGuideWidget() override;

    void showValues(const OvPickDefine& define);
    void readValues(OvPickDefine* define) const;

protected:
    void changeEvent(QEvent* event) override;

private:
    template <typename Field>
    Field* addField(QGridLayout* grid, const char* name, int row, int column);
    void makeRanges();
    void retranslate();
    void label(QWidget* field, const QString& text, const QString& toolTip);
    void enableFields();

    QComboBox* m_phase = nullptr;
    QComboBox* m_guide = nullptr;
    QDoubleSpinBox* m_confidence = nullptr;
    QDoubleSpinBox* m_velocity = nullptr;
    QDoubleSpinBox* m_intercept = nullptr;
};

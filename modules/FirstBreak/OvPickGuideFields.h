#pragma once

#include "OvSeismic/picking/OvPickDefine.h"

#include <QObject>

class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class QLabel;
class QWidget;

/// What is picked, how sure a pick must be, and what guides the search: the fields of OvPickDefine
/// beyond the ten parameters. The fields bear the parameters' names.
class OvPickGuideFields : public QObject
{
    Q_OBJECT

public:
    /// Puts the fields below the rows of the parameter panel, in its columns.
    explicit OvPickGuideFields(QGridLayout* grid, QObject* parent = nullptr);
    ~OvPickGuideFields() override;

    void showValues(const OvPickDefine& define);
    void readValues(OvPickDefine* define) const;
    void retranslate();
    /// Makes the choices equally wide again, after a change of font.
    void fitWidths();

private:
    enum class Side { Left, Right };
    template <typename Field>
    Field* addField(const char* name, int row, Side side);
    void makeRanges();
    void label(QWidget* field, const QString& text, const QString& toolTip);
    void enableFields();

    QGridLayout* m_grid;
    QComboBox* m_phase = nullptr;
    QComboBox* m_guide = nullptr;
    QDoubleSpinBox* m_confidence = nullptr;
    QDoubleSpinBox* m_velocity = nullptr;
    QDoubleSpinBox* m_intercept = nullptr;
};

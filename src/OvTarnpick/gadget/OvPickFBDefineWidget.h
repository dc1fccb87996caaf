#pragma once

#include <QScopedPointer>
#include <QWidget>

class QAbstractButton;
class QGridLayout;

namespace Ui {
class OvPickFBDefineWidget;
}

/// What the panel asks for, field by field, in the panel's own units.
struct OvPickFBDefine
{
    bool positivePolarity = true;
    int processingLengthMs = 0;
    int quickSearchWindowMs = 0;
    int tuningSearchWindowMs = 0;
    int minimumOffsetM = 0;
    int maximumOffsetM = 0;
    double amplitudeThreshold = 0.001;
    double snrThreshold = 0.0;
    int totalShots = 0; ///< 0 stands for all
    int shotIncrement = 1;
};

/// The parameter panel of automatic first-break picking.
///
/// Only fields: it checks nothing beyond the range of each field, keeps nothing, and gives its two
/// buttons no meaning. The code that embeds it connects them. GUI thread.
class OvPickFBDefineWidget : public QWidget
{
    Q_OBJECT

public:
    explicit OvPickFBDefineWidget(QWidget* parent = nullptr);
    ~OvPickFBDefineWidget() override;

    OvPickFBDefine define() const;
    /// A value out of its field's range becomes the nearest one that fits.
    void setDefine(const OvPickFBDefine& define);

    QAbstractButton* defaultButton() const;
    QAbstractButton* saveButton() const;
    /// For rows of other fields below its own: on the left labels, fields and units stand in the
    /// columns 0, 1 and 2, on the right in 4 and 5, 6 and 7, 8 and 9.
    QGridLayout* grid() const;

private:
    QScopedPointer<Ui::OvPickFBDefineWidget> ui;
};

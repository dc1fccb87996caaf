#include "OvGui/view/OvFieldRecordBox.h"

#include <limits>

OvFieldRecordBox::OvFieldRecordBox(QWidget* parent)
    : QSpinBox(parent)
{
    setKeyboardTracking(false);
    setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
}

QSize OvFieldRecordBox::sizeHint() const
{
    QSpinBox model;
    model.setFont(font());
    model.setRange(0, 9999999);
    return model.sizeHint();
}

void OvFieldRecordBox::stepBy(int steps)
{
    emit stepped(steps);
}

QAbstractSpinBox::StepEnabled OvFieldRecordBox::stepEnabled() const
{
    return StepUpEnabled | StepDownEnabled;
}

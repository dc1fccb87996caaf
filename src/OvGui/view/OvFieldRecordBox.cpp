#include "OvGui/view/OvFieldRecordBox.h"

#include <limits>

OvFieldRecordBox::OvFieldRecordBox(QWidget* parent)
    : QSpinBox(parent)
{
    setKeyboardTracking(false);
    setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
}

void OvFieldRecordBox::stepBy(int steps)
{
    emit stepped(steps);
}

QAbstractSpinBox::StepEnabled OvFieldRecordBox::stepEnabled() const
{
    return StepUpEnabled | StepDownEnabled;
}

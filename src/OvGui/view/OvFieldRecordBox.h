#pragma once

#include <QSpinBox>

/// Takes the number of a field record; its arrows and keys step to the neighbouring gathers,
/// whatever their numbers.
class OvFieldRecordBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit OvFieldRecordBox(QWidget* parent = nullptr);

    void stepBy(int steps) override;

signals:
    void stepped(int steps);

protected:
    StepEnabled stepEnabled() const override;
};

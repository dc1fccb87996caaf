#pragma once

#include <QSpinBox>

/// Takes the number of a field record, or the key of gathers of another kind; its arrows and keys
/// step to the neighbouring gathers, whatever their numbers.
class OvFieldRecordBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit OvFieldRecordBox(QWidget* parent = nullptr);

    void stepBy(int steps) override;
    /// Room for the numbers that files have, not for all that fit the type.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void stepped(int steps);

protected:
    StepEnabled stepEnabled() const override;
};

#pragma once

#include "OvBase/OvAbstractGadget.h"

#include <QScopedPointer>

class OvSensitivityEditorPrivate;

/// A spin box for the sensitivity, in milliseconds, that outlives the run: it is read from the
/// default settings store (key "Sensitivity") when constructed and written there when destroyed.
/// GUI thread.
class OvSensitivityEditor : public OvAbstractGadget
{
    Q_OBJECT

public:
    explicit OvSensitivityEditor(QWidget* parent = nullptr);
    ~OvSensitivityEditor() override;

    /// Milliseconds, 0 to 9999.
    int value() const;
    /// Clamped to the range of value().
    void setValue(int value);

    void notifyValue() override;

signals:
    void valueChanged(int value);

protected:
    void changeEvent(QEvent* event) override;

private:
    QScopedPointer<OvSensitivityEditorPrivate> d;
};

#pragma once

#include "OvBase/OvBaseExport.h"

#include <QWidget>

/// Base of small value editors that sit in tool bars and docks.
class OVBASE_EXPORT OvAbstractGadget : public QWidget
{
    Q_OBJECT

public:
    explicit OvAbstractGadget(QWidget* parent = nullptr);
    ~OvAbstractGadget() override;

    /// Announces the current value again.
    virtual void notifyValue() = 0;
};

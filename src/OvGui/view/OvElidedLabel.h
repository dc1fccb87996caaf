#pragma once

#include "OvGui/OvGuiExport.h"

#include <QLabel>

/// A line of plain text that ends in an ellipsis where it does not fit; text() is all of it.
class OVGUI_EXPORT OvElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit OvElidedLabel(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

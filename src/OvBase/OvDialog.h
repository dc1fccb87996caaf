#pragma once

#include "OvBase/OvBaseExport.h"

#include <QDialog>

/// Base of the program's dialogs: no question-mark button, and F1 opens the dialog's help page.
class OVBASE_EXPORT OvDialog : public QDialog
{
    Q_OBJECT

public:
    explicit OvDialog(QWidget* parent = nullptr);
    ~OvDialog() override;

    /// File name of the dialog's page in the manual; empty for none.
    virtual QString helpPage() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

#pragma once

#include "OvTarnpick/OvTarnpickExport.h"

#include <QScopedPointer>
#include <QWidget>

class OvLoginDlgPrivate;

/// The first window: places the user database, logs in and opens the main window.
class OVTARNPICK_EXPORT OvLoginDlg : public QWidget
{
    Q_OBJECT

public:
    explicit OvLoginDlg(QWidget* parent = nullptr);
    ~OvLoginDlg() override;

    /// The login sequence; true when the main window has been shown.
    bool login();

private slots:
    void on_loginBtn_clicked();
    /// Outcome of a verification made elsewhere: 20000000 verified, 20000001 refused.
    void slotVerify(unsigned int code);

private:
    QScopedPointer<OvLoginDlgPrivate> d;
};

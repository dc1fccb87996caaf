#pragma once

#include "OvTarnpick/OvTarnpickExport.h"

#include <QScopedPointer>
#include <QWidget>

class OvLoginDlgPrivate;

/// The first window: places the user database, logs in and opens the main window.
///
/// A main window that still lives is deleted with the login window. GUI thread.
class OVTARNPICK_EXPORT OvLoginDlg : public QWidget
{
    Q_OBJECT

public:
    explicit OvLoginDlg(QWidget* parent = nullptr);
    ~OvLoginDlg() override;

    /// The login sequence; true when the main window has been shown. On failure the reason stands
    /// in the window and in the log; only a database that cannot be placed opens a message box.
    bool login();

private slots:
    void on_loginBtn_clicked();

public slots:
    /// Outcome of a verification made elsewhere: 20000000 verified, 20000001 refused.
    void slotVerify(unsigned int code);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QScopedPointer<OvLoginDlgPrivate> d;
};

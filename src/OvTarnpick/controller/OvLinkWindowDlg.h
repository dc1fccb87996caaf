#pragma once

#include "OvBase/OvDialog.h"

#include <QList>
#include <QScopedPointer>

class OvLinkWindowDlgPrivate;
class OvPlaneViewController;

/// Chooses which plane views a parallel view shows, and in which order.
///
/// The views must outlive the dialog. Only views that agree on being editable are accepted
/// together; choosing none is accepted too.
class OvLinkWindowDlg : public OvDialog
{
    Q_OBJECT

public:
    OvLinkWindowDlg(const QList<OvPlaneViewController*>& available,
                    const QList<OvPlaneViewController*>& linked, QWidget* parent);
    ~OvLinkWindowDlg() override;

    /// The chosen views in the order in which to show them.
    QList<OvPlaneViewController*> chosenViewControllers() const;
    QString helpPage() const override;

private slots:
    void on_selAllBtn_clicked();
    void on_selectBtn_clicked();
    void on_unselectBtn_clicked();
    void on_resetBtn_clicked();
    void on_moveUpButton_clicked();
    void on_moveDownButton_clicked();

public slots:
    void accept() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    QScopedPointer<OvLinkWindowDlgPrivate> d;
};

#pragma once

#include "OvBase/OvDialog.h"
#include "OvBase/OvProjectDefine.h"

#include <QScopedPointer>

class OvProjectCreateDlgPrivate;

/// Asks for a name, a data folder and a description, and adds the project to the table. GUI thread.
class OvProjectCreateDlg : public OvDialog
{
    Q_OBJECT

public:
    explicit OvProjectCreateDlg(QWidget* parent = nullptr);
    ~OvProjectCreateDlg() override;

    /// Accepts only when the table has taken the project; else the user is told and the dialog
    /// stays.
    void accept() override;
    /// The new project, with its key, once the dialog has been accepted.
    const OvProjectDefine& projectDefine() const;
    QString helpPage() const override;

private slots:
    void on_txtProjectName_textChanged(const QString& text);
    void on_btnPathSelect_clicked(bool checked);
    void slotSettingChanged();

protected:
    void changeEvent(QEvent* event) override;

private:
    QScopedPointer<OvProjectCreateDlgPrivate> d;
};

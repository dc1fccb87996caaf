#pragma once

#include "OvBase/OvDialog.h"
#include "OvBase/OvProjectDefine.h"

#include <QScopedPointer>

class OvProjectManageDlgPrivate;
class QModelIndex;

/// Lists the projects, without the open one: to open one of them, or to edit and delete. GUI
/// thread.
///
/// Updates are written when the user presses Update; deletions when the dialog is accepted. The
/// data folders themselves are never touched.
class OvProjectManageDlg : public OvDialog
{
    Q_OBJECT

public:
    enum ManageMode { OpenProject = 0, ManageProjects = 1 };

    explicit OvProjectManageDlg(int manageMode, QWidget* parent = nullptr);
    ~OvProjectManageDlg() override;

    /// The project of the list's current row; a default record when there is none.
    const OvProjectDefine& projectDefine() const;
    QString helpPage() const override;

public slots:
    void accept() override;

private slots:
    void on_btnFileSelect_clicked(bool checked);
    void on_btnDelete_clicked(bool checked);
    void on_btnUpdate_clicked(bool checked);
    void on_description_textChanged();
    void on_dataPath_textChanged(const QString& text);
    void on_projectList_doubleClicked(const QModelIndex& index);
    void slotSelectionChanged(const QModelIndex& current, const QModelIndex& previous);

protected:
    void changeEvent(QEvent* event) override;

private:
    QScopedPointer<OvProjectManageDlgPrivate> d;
};

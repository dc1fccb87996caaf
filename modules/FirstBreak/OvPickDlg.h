#pragma once

#include "OvPickJob.h"

#include "OvBase/OvDialog.h"

class OvPickFBDefineWidget;
class QCheckBox;
class QDialogButtonBox;
class QRadioButton;

/// Asks for what automatic picking needs to know. Opens with the values saved for the project;
/// "Save" stores those shown, "Default" shows the program's. Accepted only with values that go
/// together.
class OvPickDlg : public OvDialog
{
    Q_OBJECT

public:
    /// gather is the one that "This gather" stands for; -1 when there is none.
    OvPickDlg(int projectId, int gather, QWidget* parent = nullptr);
    ~OvPickDlg() override;

    OvPickParameters parameters() const;
    OvPickJob::Options options() const;
    QString helpPage() const override;
    void accept() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void makeFields();
    void connectButtons();
    void retranslate();
    void showValues(const OvPickParameters& parameters);
    void saveValues();
    bool checkValues();

    int m_projectId;
    int m_gather;
    OvPickFBDefineWidget* m_panel = nullptr;
    QRadioButton* m_all = nullptr;
    QRadioButton* m_one = nullptr;
    QCheckBox* m_keepManual = nullptr;
    QDialogButtonBox* m_buttons = nullptr;
};

#pragma once

#include "OvPickJob.h"

#include "OvBase/OvDialog.h"

#include <QTimer>

class OvPickFBDefineWidget;
class OvPickGuideFields;
class QAbstractButton;
class QCheckBox;
class QDialogButtonBox;
class QPushButton;
class QRadioButton;

/// Asks for what automatic picking needs to know. Opens with the values saved for the project;
/// "Save" stores those shown, "Default" shows the program's. Accepted only with values that go
/// together.
///
/// Where a run with the values shown has stopped half-way, "Continue" goes on from there. While
/// "Preview" is checked every change asks for the picks that the values lead to.
class OvPickDlg : public OvDialog
{
    Q_OBJECT

public:
    /// gather is the one that "This gather" stands for; -1 when there is none.
    OvPickDlg(int projectId, int gather, QWidget* parent = nullptr);
    ~OvPickDlg() override;

    /// The values that are saved for a project.
    static OvPickDefine savedDefine(int projectId);

    OvPickDefine define() const;
    OvPickJob::Options options() const;
    /// The run that has not ended, of gathers that gatheringText tells (see OvPickWork).
    void setUnfinishedRun(const OvFirstBreakRun& run, const QString& gatheringText);
    QString helpPage() const override;
    void accept() override;
    void done(int result) override;

signals:
    /// Not more often than a picker can follow.
    void previewRequested(const OvPickDefine& define);
    void previewEnded();

protected:
    void changeEvent(QEvent* event) override;

private:
    void makeFields();
    void layOut();
    void connectButtons();
    void connectChanges();
    void retranslate();
    void showValues(const OvPickDefine& define);
    void saveValues();
    bool checkValues();
    void focusOn(const QString& parameter);
    bool canContinue() const;
    void followValues();
    void requestPreview();
    void setPreview(bool on);

    int m_projectId;
    int m_gather;
    OvFirstBreakRun m_run;
    QString m_gatheringText;
    bool m_resume = false;
    OvPickFBDefineWidget* m_panel = nullptr;
    OvPickGuideFields* m_guide = nullptr;
    QRadioButton* m_all = nullptr;
    QRadioButton* m_one = nullptr;
    QCheckBox* m_keepManual = nullptr;
    QCheckBox* m_preview = nullptr;
    QDialogButtonBox* m_buttons = nullptr;
    QPushButton* m_continue = nullptr;
    QTimer m_previewDelay;
};

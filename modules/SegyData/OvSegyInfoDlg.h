#pragma once

#include "OvSegyReport.h"

#include "OvBase/OvDialog.h"

class OvHeaderMappingModel;
class OvLatestWork;
class QDialogButtonBox;
class QFormLayout;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTableView;
class QTabWidget;

/// What is known of one SEG-Y file: its headers at once, its geometry as soon as the index is
/// complete, and what an examination finds: of a part of the traces when the dialog opens, of all
/// when asked. Text from the file is shown without markup.
class OvSegyInfoDlg : public OvDialog
{
    Q_OBJECT

public:
    explicit OvSegyInfoDlg(const QSharedPointer<OvSegyDocument>& document,
                           QWidget* parent = nullptr);
    ~OvSegyInfoDlg() override;

    QString helpPage() const override;
    /// Brings the remarks to the front.
    void showRemarks();

protected:
    void changeEvent(QEvent* event) override;

private:
    void makePages();
    QPlainTextEdit* makeTextView(const QString& objectName);
    QWidget* makeFactsPage();
    QTableView* makeWordTable();
    void makeButtons();
    void arrange();
    void connectAll();
    void retranslate();
    void examine(bool wholeFile);
    void toggleExamination();
    void takeFindings(const std::vector<OvSegyFinding>& findings, const OvHeaderSurvey& survey);
    void endExamination(const QString& note);
    void showFacts();
    void showFindings();
    void copyText();
    void saveText();

    QSharedPointer<OvSegyDocument> m_document;
    OvSegyReport m_report;
    OvLatestWork* m_examination;
    OvHeaderMappingModel* m_words;
    QFormLayout* m_facts = nullptr;
    QPlainTextEdit* m_textHeader = nullptr;
    QListWidget* m_findings = nullptr;
    QTableView* m_wordTable = nullptr;
    QTabWidget* m_tabs = nullptr;
    QLabel* m_note = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_examine = nullptr;
    QPushButton* m_copy = nullptr;
    QPushButton* m_save = nullptr;
    QDialogButtonBox* m_buttons = nullptr;
};

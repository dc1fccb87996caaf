#pragma once

#include "OvBase/OvDialog.h"
#include "OvGui/document/OvSegyDocument.h"
#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <QTimer>

class OvHeaderExamination;
class OvHeaderMappingModel;
class OvHeaderSurvey;
class OvHeaderValuesModel;
class QComboBox;
class QDialogButtonBox;
class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QSplitter;
class QTableView;

/// Edits a header mapping on the example of one file: beside the places of the words stands what
/// they hold in the first traces, below what speaks against them. Accepted only with a mapping that
/// the file can be read by.
class OvHeaderMappingDlg : public OvDialog
{
    Q_OBJECT

public:
    OvHeaderMappingDlg(const QSharedPointer<OvSegyDocument>& document,
                       const OvTraceHeaderMapping& mapping, QWidget* parent = nullptr);
    ~OvHeaderMappingDlg() override;

    OvTraceHeaderMapping mapping() const;
    QString helpPage() const override;
    void accept() override;
    /// Remembers the size for the next time.
    void done(int result) override;

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What is known of the mapping's words.
    enum class Finding { None, Sought, Found, Failed };

    void makeTables();
    void makeFields();
    void arrange();
    void connectFields();
    void connectExamination();
    void restorePlace();
    int widthOfWords() const;
    void retranslate();
    void retranslatePresets();
    void usePreset(int index);
    void followMapping();
    void startSurvey(bool wholeFile);
    void endSurvey(Finding finding);
    void showFinding();
    QString findingText() const;
    void showFound(const OvHeaderSurvey& survey);
    void showProblems();
    void goToProblem(int row);
    void goToColumnOf(int quantity);
    void toggleExamination();

    QSharedPointer<OvSegyDocument> m_document;
    OvHeaderMappingModel* m_model;
    OvHeaderValuesModel* m_values;
    OvHeaderExamination* m_examination;
    bool m_columnsFit = false;
    Finding m_finding = Finding::None;
    qint64 m_surveyed = 0; // traces
    QString m_failure;
    QTimer m_settle; // the mapping is surveyed when it has come to rest
    QLabel* m_presetLabel = nullptr;
    QComboBox* m_presets = nullptr;
    QLabel* m_file = nullptr;
    QLabel* m_tableLabel = nullptr;
    QLabel* m_valuesLabel = nullptr;
    QLabel* m_problemsLabel = nullptr;
    QSplitter* m_splitter = nullptr;
    QTableView* m_table = nullptr;
    QTableView* m_valueTable = nullptr;
    QListWidget* m_problems = nullptr;
    QLabel* m_found = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_examine = nullptr;
    QDialogButtonBox* m_buttons = nullptr;
};

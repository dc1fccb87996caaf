#pragma once

#include <QMenu>
#include <QPointer>

class OvSegyFolder;
class OvSegyInfoDlg;

/// The Data menu: the SEG-Y files of the open project's folder, opening and describing files.
class OvSegyDataMenu : public QMenu
{
    Q_OBJECT

public:
    explicit OvSegyDataMenu(QWidget* parent = nullptr);
    ~OvSegyDataMenu() override;

    void retranslate();
    /// Opens a new window on each file; what cannot be opened is named in one message.
    void openFiles(const QStringList& paths);

private:
    void followProject();
    void listFiles();
    void addFile(const QString& name);
    void addNote(const QString& text);
    void chooseFiles();
    void showInformation();
    QString activeFile() const;
    QString chooseFileToDescribe();

    OvSegyFolder* m_folder = nullptr;
    QMenu* m_files = nullptr;
    QAction* m_open = nullptr;
    QAction* m_information = nullptr;
    QPointer<OvSegyInfoDlg> m_dialog;
};

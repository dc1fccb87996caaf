#pragma once

#include <QMenu>
#include <QPointer>
#include <QSharedPointer>

class OvSegyFolder;
class OvAbstractViewController;
class OvGatherOrderMenu;
class OvSegyDocument;
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
    void describe(const QSharedPointer<OvSegyDocument>& document);
    void listenTo(OvAbstractViewController* workspace);
    void editMapping();
    QString activeFile() const;
    /// The active file, or one that is asked for; null when there is none.
    QSharedPointer<OvSegyDocument> documentFor(const QString& title);

    OvSegyFolder* m_folder = nullptr;
    QMenu* m_files = nullptr;
    QAction* m_open = nullptr;
    QAction* m_information = nullptr;
    QAction* m_mapping = nullptr;
    OvGatherOrderMenu* m_order = nullptr;
    QPointer<OvSegyInfoDlg> m_dialog;
};

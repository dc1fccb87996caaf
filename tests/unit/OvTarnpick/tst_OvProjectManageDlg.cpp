#include "OvTarnpick/controller/OvProjectManageDlg.h"

#include "OvBase/OvTranslator.h"
#include "OvTarnpick/controller/ProjectNameDelegate.h"
#include "fixtures/ModalProbe.h"
#include "fixtures/OddNames.h"
#include "fixtures/ShellSession.h"
#include "fixtures/WarningTrap.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMetaMethod>
#include <QPainter>
#include <QPushButton>
#include <QStringListModel>
#include <QTextEdit>
#include <QtTest>

#include <memory>

class tst_OvProjectManageDlg : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void listLeavesTheOpenProjectOut();
    void slotOrder();
    void formOfTheList();
    void openModeIsReadOnly();
    void doubleClickOpens();
    void doubleClickOpensAProjectWithoutAFolder();
    void doubleClickInManagementModeDoesNothing();
    void cancelRemovesNothing();
    void okRemovesWhatWasMarked();
    void openModeRemovesNothing();
    void okWithoutARowGivesADefaultRecord();
    void rowShowsItsRecord();
    void missingFolderDisablesOk();
    void blanksEnableUpdateButWriteNothing();
    void updateIsWrittenAtOnce();
    void removalClearsTheProjectsValues();
    void deletingWhileTheOpenProjectIsShown();
    void warningShowsANameAsItIs();
    void oddNamesAreListedAndOpened();
    void oddNamesAreEditedAndDeleted();
    void allOfManyAreDeletedAtOnce();
    void projectsOfAnotherProgramAreLeftAlone();
    void detailsStayAfterADeletion();
    void chooserStartsAtTheOpenProject();
    void cancelledChooserEmptiesTheFolder();
    void languageChangeKeepsTheMode();
    void delegatePaintsMissingFoldersRed_data();
    void delegatePaintsMissingFoldersRed();
    void closesCleanlyWithARowShown();

private:
    void open(int mode);
    QListView* list() const
    {
        return m_dialog->findChild<QListView*>(QStringLiteral("projectList"));
    }
    QLineEdit* dataPath() const
    {
        return m_dialog->findChild<QLineEdit*>(QStringLiteral("dataPath"));
    }
    QTextEdit* description() const
    {
        return m_dialog->findChild<QTextEdit*>(QStringLiteral("description"));
    }
    QPushButton* button(const char* name) const
    {
        return m_dialog->findChild<QPushButton*>(QLatin1String(name));
    }
    QWidget* widget(const char* name) const
    {
        return m_dialog->findChild<QWidget*>(QLatin1String(name));
    }
    QModelIndex row(int number) const { return list()->model()->index(number, 0); }
    QStringList shownNames() const;
    void choose(int number) { list()->setCurrentIndex(row(number)); }
    void doubleClick(int number);

    std::unique_ptr<ShellSession> m_session;
    std::unique_ptr<OvProjectManageDlg> m_dialog;
    QString m_folder;
};

// Three projects; the folder of the last one is missing.
void tst_OvProjectManageDlg::init()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_session = std::make_unique<ShellSession>();
    QVERIFY(m_session->isReady());
    m_folder = m_session->makeFolder(QStringLiteral("survey"));
    QVERIFY(
        ShellSession::addProject(QStringLiteral("A"), m_folder, QStringLiteral("north")).isValid());
    QVERIFY(
        ShellSession::addProject(QStringLiteral("B"), m_folder, QStringLiteral("south")).isValid());
    QVERIFY(
        ShellSession::addProject(QStringLiteral("C"), m_session->filePath(QStringLiteral("gone")))
            .isValid());
    WarningTrap::start();
}

void tst_OvProjectManageDlg::cleanup()
{
    m_dialog.reset();
    m_session.reset();
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    QCOMPARE(WarningTrap::take(), QStringList());
}

void tst_OvProjectManageDlg::open(int mode)
{
    m_dialog = std::make_unique<OvProjectManageDlg>(mode);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
}

QStringList tst_OvProjectManageDlg::shownNames() const
{
    QStringList names;
    for (int i = 0; i < list()->model()->rowCount(); ++i)
        names.append(row(i).data().toString());
    return names;
}

void tst_OvProjectManageDlg::doubleClick(int number)
{
    const QPoint position = list()->visualRect(row(number)).center();
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, position);
    QTest::mouseDClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, position);
}

void tst_OvProjectManageDlg::listLeavesTheOpenProjectOut()
{
    QVERIFY(OvProjectManager::instance().openProject(
        OvProjectDefineNode().projectByName(QStringLiteral("B"))));
    open(OvProjectManageDlg::OpenProject);
    QCOMPARE(shownNames(), QStringList({QStringLiteral("A"), QStringLiteral("C")}));
    QVERIFY(!list()->currentIndex().isValid());
    OvProjectManager::instance().closeProject();
    open(OvProjectManageDlg::ManageProjects);
    QCOMPARE(shownNames().size(), 3);
}

void tst_OvProjectManageDlg::slotOrder()
{
    const QMetaObject& meta = OvProjectManageDlg::staticMetaObject;
    QList<QByteArray> slotNames;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        slotNames.append(meta.method(i).methodSignature());
    QCOMPARE(slotNames,
             QList<QByteArray>({"accept()", "on_btnFileSelect_clicked(bool)",
                                "on_btnDelete_clicked(bool)", "on_btnUpdate_clicked(bool)",
                                "on_description_textChanged()", "on_dataPath_textChanged(QString)",
                                "on_projectList_doubleClicked(QModelIndex)",
                                "slotSelectionChanged(QModelIndex,QModelIndex)"}));
}

void tst_OvProjectManageDlg::formOfTheList()
{
    open(OvProjectManageDlg::ManageProjects);
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Project Management"));
    QCOMPARE(m_dialog->helpPage(), QStringLiteral("w_cover.html"));
    QCOMPARE(list()->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(list()->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(list()->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(list()->verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QVERIFY(qobject_cast<ProjectNameDelegate*>(list()->itemDelegate()));
    QVERIFY(!description()->acceptRichText());
    QVERIFY(button("btnOk")->autoDefault() && button("btnOk")->isEnabled());
    QVERIFY(!button("btnFileSelect")->autoDefault());
    QVERIFY(widget("deleteWidget")->isVisible() && widget("updateWidget")->isVisible());
    QVERIFY(!dataPath()->isReadOnly() && !description()->isReadOnly());
}

void tst_OvProjectManageDlg::openModeIsReadOnly()
{
    open(OvProjectManageDlg::OpenProject);
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Open Project"));
    QVERIFY(!button("btnDelete")->isVisible());
    QVERIFY(!button("btnFileSelect")->isVisible());
    QVERIFY(!button("btnUpdate")->isVisible());
    QVERIFY(widget("lineEdit")->isVisible());
    choose(0);
    QTest::keyClicks(dataPath(), QStringLiteral("x"));
    QTest::keyClicks(description(), QStringLiteral("x"));
    QCOMPARE(dataPath()->text(), m_folder);
    QCOMPARE(description()->toPlainText(), QStringLiteral("north"));
}

void tst_OvProjectManageDlg::doubleClickOpens()
{
    open(OvProjectManageDlg::OpenProject);
    doubleClick(1);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->projectDefine().name, QStringLiteral("B"));
}

void tst_OvProjectManageDlg::doubleClickOpensAProjectWithoutAFolder()
{
    open(OvProjectManageDlg::OpenProject);
    choose(2);
    QVERIFY(!button("btnOk")->isEnabled());
    doubleClick(2);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_dialog->projectDefine().name, QStringLiteral("C"));
}

void tst_OvProjectManageDlg::doubleClickInManagementModeDoesNothing()
{
    open(OvProjectManageDlg::ManageProjects);
    doubleClick(1);
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_dialog->projectDefine().name, QStringLiteral("B"));
}

void tst_OvProjectManageDlg::cancelRemovesNothing()
{
    open(OvProjectManageDlg::ManageProjects);
    choose(0);
    list()->selectionModel()->select(row(1), QItemSelectionModel::Select);
    button("btnDelete")->click();
    QCOMPARE(shownNames(), QStringList{QStringLiteral("C")});
    button("btnCancel")->click();
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(ShellSession::projectNames().size(), 3);
}

void tst_OvProjectManageDlg::okRemovesWhatWasMarked()
{
    open(OvProjectManageDlg::ManageProjects);
    choose(0);
    button("btnDelete")->click();
    choose(0);
    button("btnDelete")->click();
    QCOMPARE(shownNames(), QStringList{QStringLiteral("C")});
    QVERIFY(QDir(m_folder).exists());
    button("btnOk")->click();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(ShellSession::projectNames(), QStringList{QStringLiteral("C")});
    QVERIFY(QDir(m_folder).exists());
}

// The button is hidden in this mode, but code could still press it.
void tst_OvProjectManageDlg::openModeRemovesNothing()
{
    open(OvProjectManageDlg::OpenProject);
    choose(0);
    button("btnDelete")->click();
    m_dialog->accept();
    QCOMPARE(ShellSession::projectNames().size(), 3);
}

void tst_OvProjectManageDlg::okWithoutARowGivesADefaultRecord()
{
    open(OvProjectManageDlg::OpenProject);
    button("btnOk")->click();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QVERIFY(!m_dialog->projectDefine().isValid());
    QCOMPARE(m_dialog->projectDefine().id, -1);
    QVERIFY(m_dialog->projectDefine().name.isEmpty());
}

void tst_OvProjectManageDlg::rowShowsItsRecord()
{
    open(OvProjectManageDlg::ManageProjects);
    QVERIFY(dataPath()->text().isEmpty() && description()->toPlainText().isEmpty());
    choose(0);
    QCOMPARE(dataPath()->text(), m_folder);
    QCOMPARE(description()->toPlainText(), QStringLiteral("north"));
    QVERIFY(!button("btnUpdate")->isEnabled());
    QVERIFY(button("btnOk")->isEnabled());
    choose(1);
    QCOMPARE(description()->toPlainText(), QStringLiteral("south"));
    QVERIFY(!button("btnUpdate")->isEnabled());
}

void tst_OvProjectManageDlg::missingFolderDisablesOk()
{
    open(OvProjectManageDlg::ManageProjects);
    choose(2);
    QVERIFY(!button("btnOk")->isEnabled());
    QCOMPARE(dataPath()->palette().color(QPalette::Text), QColor(Qt::red));
    choose(0);
    QVERIFY(button("btnOk")->isEnabled());
    QCOMPARE(dataPath()->palette().color(QPalette::Text), QColor(Qt::black));
    dataPath()->setText(QStringLiteral("   "));
    QVERIFY(!button("btnOk")->isEnabled());
    QVERIFY(button("btnUpdate")->isEnabled());
}

void tst_OvProjectManageDlg::blanksEnableUpdateButWriteNothing()
{
    open(OvProjectManageDlg::ManageProjects);
    choose(0);
    description()->setPlainText(QStringLiteral(" north "));
    QVERIFY(button("btnUpdate")->isEnabled());
    button("btnUpdate")->click();
    QVERIFY(button("btnUpdate")->isEnabled());
    QCOMPARE(description()->toPlainText(), QStringLiteral(" north "));
    QCOMPARE(OvProjectDefineNode().projectByName(QStringLiteral("A")).description,
             QStringLiteral("north"));
}

void tst_OvProjectManageDlg::updateIsWrittenAtOnce()
{
    const QString other = m_session->makeFolder(QStringLiteral("other"));
    open(OvProjectManageDlg::ManageProjects);
    choose(0);
    dataPath()->setText(other);
    description()->setPlainText(QStringLiteral("west"));
    button("btnUpdate")->click();
    QVERIFY(!button("btnUpdate")->isEnabled());
    button("btnCancel")->click();
    const OvProjectDefine stored = OvProjectDefineNode().projectByName(QStringLiteral("A"));
    QCOMPARE(stored.dataPath, other);
    QCOMPARE(stored.description, QStringLiteral("west"));
    QCOMPARE(OvProjectDefineNode().projectByName(QStringLiteral("B")).dataPath, m_folder);
}

void tst_OvProjectManageDlg::removalClearsTheProjectsValues()
{
    const int id = OvProjectDefineNode().projectByName(QStringLiteral("A")).id;
    const int other = OvProjectDefineNode().projectByName(QStringLiteral("B")).id;
    QVERIFY(OvBaseUtil::setProjectValue(id, QStringLiteral("gain"), 3).ok());
    QVERIFY(OvBaseUtil::setProjectValue(other, QStringLiteral("gain"), 4).ok());
    open(OvProjectManageDlg::ManageProjects);
    choose(0);
    button("btnDelete")->click();
    QCOMPARE(OvBaseUtil::projectValue(id, QStringLiteral("gain")).toInt(), 3);
    m_dialog->accept();
    QVERIFY(!OvBaseUtil::projectValue(id, QStringLiteral("gain")).isValid());
    QCOMPARE(OvBaseUtil::projectValue(other, QStringLiteral("gain")).toInt(), 4);
}

// The project is opened while the dialog shows it, so that it is still in the list.
void tst_OvProjectManageDlg::deletingWhileTheOpenProjectIsShown()
{
    open(OvProjectManageDlg::ManageProjects);
    choose(0);
    list()->selectionModel()->select(row(1), QItemSelectionModel::Select);
    QVERIFY(OvProjectManager::instance().openProject(
        OvProjectDefineNode().projectByName(QStringLiteral("A"))));
    ModalProbe probe;
    probe.nextBox(QMessageBox::Ok);
    probe.nextBox(QMessageBox::Ok);
    button("btnDelete")->click();
    QVERIFY2(probe.isDone(), qPrintable(probe.unexpected().join(',')));
    QCOMPARE(probe.boxes().size(), size_t(2));
    for (const ModalProbe::Box& box : probe.boxes()) {
        QCOMPARE(box.title, QStringLiteral("Delete Project"));
        QCOMPARE(box.text, QStringLiteral("Cannot delete A, it is being opened!"));
        QCOMPARE(box.icon, QMessageBox::Warning);
        QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        QCOMPARE(box.parent, m_dialog.get());
    }
    QCOMPARE(shownNames().size(), 3);
    QVERIFY(!list()->selectionModel()->hasSelection());
    m_dialog->accept();
    QCOMPARE(ShellSession::projectNames().size(), 3);
}

void tst_OvProjectManageDlg::warningShowsANameAsItIs()
{
    const QString name = QStringLiteral("<b>%1</b> & more");
    const OvProjectDefine define = ShellSession::addProject(name, m_folder);
    open(OvProjectManageDlg::ManageProjects);
    choose(3);
    QVERIFY(OvProjectManager::instance().openProject(define));
    ModalProbe probe;
    Qt::TextFormat format = Qt::AutoText;
    QString text;
    probe.next([&](QWidget* window) {
        auto* box = qobject_cast<QMessageBox*>(window);
        format = box->textFormat();
        text = box->text();
        box->accept();
    });
    button("btnDelete")->click();
    QVERIFY(probe.isDone());
    QCOMPARE(format, Qt::PlainText);
    QCOMPARE(text, QStringLiteral("Cannot delete <b>%1</b> & more, it is being opened!"));
}

void tst_OvProjectManageDlg::oddNamesAreListedAndOpened()
{
    const QStringList names = oddNames();
    for (const QString& name : names)
        QVERIFY(ShellSession::addProject(name, m_folder, name).isValid());
    open(OvProjectManageDlg::OpenProject);
    QCOMPARE(shownNames().mid(3), names);
    QVERIFY(!m_dialog->grab().isNull());
    for (int i = 0; i < names.size(); ++i) {
        open(OvProjectManageDlg::OpenProject);
        choose(3 + i);
        QCOMPARE(description()->toPlainText(), names.at(i));
        button("btnOk")->click();
        QCOMPARE(m_dialog->projectDefine().name, names.at(i));
    }
}

void tst_OvProjectManageDlg::oddNamesAreEditedAndDeleted()
{
    const QStringList names = oddNames();
    for (const QString& name : names)
        QVERIFY(ShellSession::addProject(name, m_folder).isValid());
    open(OvProjectManageDlg::ManageProjects);
    for (int i = 0; i < names.size(); ++i) {
        choose(3 + i);
        description()->setPlainText(names.at(i));
        button("btnUpdate")->click();
        QCOMPARE(OvProjectDefineNode().projectByName(names.at(i)).description, names.at(i));
    }
    for (int i = 0; i < names.size(); ++i) {
        open(OvProjectManageDlg::ManageProjects);
        choose(3);
        button("btnDelete")->click();
        button("btnOk")->click();
        QCOMPARE(ShellSession::projectNames().mid(3), names.mid(i + 1));
    }
}

void tst_OvProjectManageDlg::allOfManyAreDeletedAtOnce()
{
    for (int i = 0; i < 60; ++i)
        QVERIFY(ShellSession::addProject(QString::number(i), m_folder).isValid());
    open(OvProjectManageDlg::ManageProjects);
    choose(0);
    list()->selectAll();
    button("btnDelete")->click();
    QCOMPARE(shownNames(), QStringList());
    QCOMPARE(ShellSession::projectNames().size(), 63);
    button("btnOk")->click();
    QCOMPARE(ShellSession::projectNames(), QStringList());
}

// What another program has deleted, and made anew under the same name, meanwhile.
void tst_OvProjectManageDlg::projectsOfAnotherProgramAreLeftAlone()
{
    open(OvProjectManageDlg::ManageProjects);
    choose(0);
    OvProjectDefineNode node;
    QVERIFY(node.removeProject(node.projectByName(QStringLiteral("A"))));
    QVERIFY(node.removeProject(node.projectByName(QStringLiteral("B"))));
    QVERIFY(
        ShellSession::addProject(QStringLiteral("A"), m_folder, QStringLiteral("new")).isValid());
    description()->setPlainText(QStringLiteral("edited"));
    button("btnUpdate")->click();
    QCOMPARE(node.projectByName(QStringLiteral("A")).description, QStringLiteral("new"));
    choose(1);
    QVERIFY(!m_dialog->projectDefine().isValid());
    QVERIFY(dataPath()->text().isEmpty());
    choose(2);
    list()->selectionModel()->select(row(1), QItemSelectionModel::Select);
    button("btnDelete")->click();
    m_dialog->accept();
    QCOMPARE(ShellSession::projectNames(), QStringList{QStringLiteral("A")});
}

void tst_OvProjectManageDlg::detailsStayAfterADeletion()
{
    open(OvProjectManageDlg::ManageProjects);
    choose(0);
    button("btnDelete")->click();
    QVERIFY(!list()->currentIndex().isValid());
    QCOMPARE(dataPath()->text(), m_folder);
    QCOMPARE(description()->toPlainText(), QStringLiteral("north"));
    // Nor does the focus choose another row.
    dataPath()->setFocus();
    list()->setFocus();
    QVERIFY(!list()->currentIndex().isValid());
    QCOMPARE(m_dialog->projectDefine().name, QStringLiteral("A"));
    QTest::keyClick(list(), Qt::Key_Down);
    QCOMPARE(m_dialog->projectDefine().name, QStringLiteral("B"));
}

void tst_OvProjectManageDlg::chooserStartsAtTheOpenProject()
{
    const QString other = m_session->makeFolder(QStringLiteral("other"));
    QVERIFY(OvProjectManager::instance().openProject(
        OvProjectDefineNode().projectByName(QStringLiteral("B"))));
    open(OvProjectManageDlg::ManageProjects);
    choose(1);
    ModalProbe probe;
    QString title, start;
    probe.next([&](QWidget* window) {
        auto* chooser = qobject_cast<QFileDialog*>(window);
        title = chooser->windowTitle();
        start = chooser->directory().absolutePath();
        chooser->selectFile(other);
        static_cast<QDialog*>(chooser)->accept();
    });
    button("btnFileSelect")->click();
    QVERIFY(probe.isDone());
    QCOMPARE(title, QStringLiteral("Select Folder."));
    QCOMPARE(start, m_folder);
    QCOMPARE(dataPath()->text(), other);
}

void tst_OvProjectManageDlg::cancelledChooserEmptiesTheFolder()
{
    open(OvProjectManageDlg::ManageProjects);
    choose(0);
    ModalProbe probe;
    probe.next([](QWidget* window) { qobject_cast<QDialog*>(window)->reject(); });
    button("btnFileSelect")->click();
    QVERIFY(probe.isDone());
    QCOMPARE(dataPath()->text(), QString());
    QVERIFY(!button("btnOk")->isEnabled());
}

void tst_OvProjectManageDlg::languageChangeKeepsTheMode()
{
    open(OvProjectManageDlg::OpenProject);
    choose(0);
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    QTRY_COMPARE(m_dialog->windowTitle(), QStringLiteral("打开项目"));
    QCOMPARE(dataPath()->text(), m_folder);
    QCOMPARE(description()->toPlainText(), QStringLiteral("north"));
    open(OvProjectManageDlg::ManageProjects);
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("项目管理"));
}

void tst_OvProjectManageDlg::delegatePaintsMissingFoldersRed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("red");
    QTest::newRow("folder exists") << QStringLiteral("A") << false << false;
    QTest::newRow("folder missing") << QStringLiteral("C") << false << true;
    QTest::newRow("missing but selected") << QStringLiteral("C") << true << false;
    QTest::newRow("unknown project") << QStringLiteral("Z") << false << false;
}

void tst_OvProjectManageDlg::delegatePaintsMissingFoldersRed()
{
    QFETCH(QString, name);
    QFETCH(bool, selected);
    QFETCH(bool, red);
    QStringListModel model({name});
    QImage image(60, 30, QImage::Format_RGB32);
    image.fill(Qt::white);
    QStyleOptionViewItem option;
    option.rect = image.rect();
    option.font.setPixelSize(24);
    option.palette.setColor(QPalette::Text, Qt::black);
    option.palette.setColor(QPalette::HighlightedText, Qt::black);
    option.palette.setColor(QPalette::Highlight, Qt::white);
    option.state = QStyle::State_Enabled | QStyle::State_Active;
    option.state.setFlag(QStyle::State_Selected, selected);
    const ProjectNameDelegate delegate;
    {
        QPainter painter(&image);
        delegate.paint(&painter, option, model.index(0, 0));
    }
    int redPixels = 0;
    int darkPixels = 0;
    for (int i = 0; i < image.width() * image.height(); ++i) {
        const QColor color = image.pixelColor(i % image.width(), i / image.width());
        redPixels += color.red() > 200 && color.green() < 60;
        darkPixels += color.red() < 60 && color.green() < 60;
    }
    QCOMPARE(redPixels > 0, red);
    QCOMPARE(darkPixels > 0, !red);
}

void tst_OvProjectManageDlg::closesCleanlyWithARowShown()
{
    open(OvProjectManageDlg::ManageProjects);
    choose(1);
    const QPointer<QAbstractItemDelegate> delegate = list()->itemDelegate();
    m_dialog.reset();
    QVERIFY(!delegate);
}

QTEST_MAIN(tst_OvProjectManageDlg)
#include "tst_OvProjectManageDlg.moc"

#include "OvTarnpick/controller/OvProjectCreateDlg.h"

#include "OvBase/OvTranslator.h"
#include "fixtures/ModalProbe.h"
#include "fixtures/OddNames.h"
#include "fixtures/ShellSession.h"
#include "fixtures/WarningTrap.h"

#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>

#include <memory>

class tst_OvProjectCreateDlg : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void startsDisabledAtHome();
    void formAndSlots();
    void tabOrder();
    void duplicateNamesAreRed_data();
    void duplicateNamesAreRed();
    void emptyTableTakesAnyName();
    void newNameEnablesOkWithoutAFolder();
    void missingFolderIsRed();
    void descriptionRunsTheFullCheck();
    void acceptedProjectIsStored();
    void oddNamesAreStoredAsTyped();
    void oddFolders_data();
    void oddFolders();
    void everyKeyIsQuickAmongManyProjects();
    void refusedProjectKeepsTheDialogOpen();
    void chooserSetsTheFolder();
    void cancelledChooserKeepsTheFolder();
    void cancelStoresNothing();
    void languageChangeKeepsTheInput();

private:
    QLineEdit* name() const
    {
        return m_dialog->findChild<QLineEdit*>(QStringLiteral("txtProjectName"));
    }
    QLineEdit* path() const
    {
        return m_dialog->findChild<QLineEdit*>(QStringLiteral("txtDataPath"));
    }
    QTextEdit* description() const
    {
        return m_dialog->findChild<QTextEdit*>(QStringLiteral("txtDescription"));
    }
    QPushButton* button(const char* objectName) const
    {
        return m_dialog->findChild<QPushButton*>(QLatin1String(objectName));
    }
    bool canAccept() const { return button("btnOk")->isEnabled(); }
    static QColor colorOf(const QLineEdit* edit)
    {
        return edit->palette().color(QPalette::Active, QPalette::Text);
    }

    std::unique_ptr<ShellSession> m_session;
    std::unique_ptr<OvProjectCreateDlg> m_dialog;
};

void tst_OvProjectCreateDlg::init()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_session = std::make_unique<ShellSession>();
    QVERIFY(m_session->isReady());
    m_dialog = std::make_unique<OvProjectCreateDlg>();
    WarningTrap::start();
}

void tst_OvProjectCreateDlg::cleanup()
{
    m_dialog.reset();
    m_session.reset();
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    QCOMPARE(WarningTrap::take(), QStringList());
}

void tst_OvProjectCreateDlg::startsDisabledAtHome()
{
    QVERIFY(!canAccept());
    QVERIFY(name()->text().isEmpty());
    QCOMPARE(path()->text(), QDir::home().path());
    QCOMPARE(colorOf(name()), QColor(Qt::black));
    QCOMPARE(colorOf(path()), QColor(Qt::black));
    QCOMPARE(m_dialog->projectDefine().id, -1);
}

void tst_OvProjectCreateDlg::formAndSlots()
{
    QCOMPARE(m_dialog->objectName(), QStringLiteral("OvProjectCreateDlg"));
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("New Project"));
    QCOMPARE(m_dialog->font().pointSize(), 9);
    QCOMPARE(m_dialog->helpPage(), QStringLiteral("w_cover.html"));
    QCOMPARE(m_dialog->findChild<QLabel*>(QStringLiteral("label_3"))->text(),
             QStringLiteral("Description: "));
    auto* note = m_dialog->findChild<QLineEdit*>(QStringLiteral("lineEdit"));
    QCOMPARE(note->text(), QStringLiteral("*If in red, the project name already exists."));
    QVERIFY(note->isReadOnly() && !note->hasFrame() && !note->dragEnabled());
    QCOMPARE(note->styleSheet(),
             QStringLiteral("color: rgb(170, 0, 0);\nbackground-color: rgb(240, 240, 240);"));
    const QMetaObject& meta = OvProjectCreateDlg::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 3);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(),
             QByteArray("on_txtProjectName_textChanged(QString)"));
    QCOMPARE(meta.method(meta.methodOffset() + 1).methodSignature(),
             QByteArray("on_btnPathSelect_clicked(bool)"));
    QCOMPARE(meta.method(meta.methodOffset() + 2).methodSignature(),
             QByteArray("slotSettingChanged()"));
}

void tst_OvProjectCreateDlg::tabOrder()
{
    QStringList order;
    for (QWidget* next = name(); order.size() < 20; next = next->nextInFocusChain()) {
        const bool isStop = (next->focusPolicy() & Qt::TabFocus) &&
                            !next->objectName().startsWith(QLatin1String("qt_"));
        if (isStop && order.contains(next->objectName()))
            break;
        if (isStop)
            order.append(next->objectName());
    }
    QCOMPARE(order, QStringList({QStringLiteral("txtProjectName"), QStringLiteral("txtDataPath"),
                                 QStringLiteral("txtDescription"), QStringLiteral("btnOk"),
                                 QStringLiteral("btnCancel"), QStringLiteral("btnPathSelect")}));
}

void tst_OvProjectCreateDlg::duplicateNamesAreRed_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("taken");
    QTest::newRow("same") << QStringLiteral("Line 7") << true;
    QTest::newRow("blanks around") << QStringLiteral("  Line 7 ") << true;
    QTest::newRow("other case") << QStringLiteral("line 7") << false;
    QTest::newRow("blank inside") << QStringLiteral("Line  7") << false;
}

void tst_OvProjectCreateDlg::duplicateNamesAreRed()
{
    QFETCH(QString, typed);
    QFETCH(bool, taken);
    QVERIFY(ShellSession::addProject(QStringLiteral("Line 6"), QDir::homePath()).isValid());
    QVERIFY(ShellSession::addProject(QStringLiteral("Line 7"), QDir::homePath()).isValid());
    QTest::keyClicks(name(), typed);
    QCOMPARE(colorOf(name()), QColor(taken ? Qt::red : Qt::black));
    QCOMPARE(canAccept(), !taken);
    path()->setText(m_session->makeFolder(QStringLiteral("survey")));
    QCOMPARE(colorOf(name()), QColor(taken ? Qt::red : Qt::black));
    QCOMPARE(canAccept(), !taken);
}

void tst_OvProjectCreateDlg::emptyTableTakesAnyName()
{
    QVERIFY(ShellSession::projectNames().isEmpty());
    QTest::keyClicks(name(), QStringLiteral("|"));
    QVERIFY(canAccept());
    name()->setText(QStringLiteral("   "));
    QVERIFY(!canAccept());
}

void tst_OvProjectCreateDlg::newNameEnablesOkWithoutAFolder()
{
    path()->clear();
    QCOMPARE(colorOf(path()), QColor(Qt::black));
    QTest::keyClicks(name(), QStringLiteral("Line 7"));
    QVERIFY(canAccept());
    QTest::mouseClick(button("btnOk"), Qt::LeftButton);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    const OvProjectDefine stored = OvProjectDefineNode().projectByName(QStringLiteral("Line 7"));
    QVERIFY(stored.isValid());
    QCOMPARE(stored.dataPath, QString());
}

void tst_OvProjectCreateDlg::missingFolderIsRed()
{
    path()->setText(m_session->filePath(QStringLiteral("gone")));
    QCOMPARE(colorOf(path()), QColor(Qt::red));
    // An edit of the name lets the name alone decide; the folder stays red.
    QTest::keyClicks(name(), QStringLiteral("Line 7"));
    QVERIFY(canAccept());
    QCOMPARE(colorOf(path()), QColor(Qt::red));
    path()->setText(QLatin1Char(' ') + m_session->makeFolder(QStringLiteral("there")) +
                    QLatin1Char(' '));
    QCOMPARE(colorOf(path()), QColor(Qt::black));
    QVERIFY(canAccept());
}

void tst_OvProjectCreateDlg::descriptionRunsTheFullCheck()
{
    path()->setText(m_session->filePath(QStringLiteral("gone")));
    name()->setText(QStringLiteral("Line 7"));
    QVERIFY(canAccept());
    QTest::keyClicks(description(), QStringLiteral("x"));
    QVERIFY(!canAccept());
    QVERIFY(!m_session->makeFolder(QStringLiteral("gone")).isEmpty());
    QTest::keyClicks(description(), QStringLiteral("y"));
    QVERIFY(canAccept());
}

void tst_OvProjectCreateDlg::acceptedProjectIsStored()
{
    const QString folder = m_session->makeFolder(QStringLiteral("survey"));
    const QDateTime before = QDateTime::currentDateTime();
    name()->setText(QStringLiteral(" Line 7 "));
    path()->setText(QLatin1Char(' ') + folder);
    description()->setPlainText(QStringLiteral(" two\nlines \n"));
    m_dialog->accept();
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    const OvProjectDefine& made = m_dialog->projectDefine();
    QVERIFY(made.id >= 0);
    const OvProjectDefine stored = OvProjectDefineNode().projectByName(QStringLiteral("Line 7"));
    QCOMPARE(stored.id, made.id);
    QCOMPARE(stored.dataPath, folder);
    QCOMPARE(stored.description, QStringLiteral("two\nlines"));
    QCOMPARE(stored.userId, qint32(OvUserDefineNode::instance().userID()));
    QVERIFY(OvUserDefineNode::instance().userID() >= 0);
    QVERIFY(made.createTime >= before && made.createTime <= QDateTime::currentDateTime());
    QVERIFY(!made.openTime.isValid());
}

void tst_OvProjectCreateDlg::oddNamesAreStoredAsTyped()
{
    const QStringList names = oddNames();
    for (const QString& text : names) {
        m_dialog = std::make_unique<OvProjectCreateDlg>();
        name()->setText(text);
        QVERIFY2(canAccept(), qPrintable(text.left(40)));
        button("btnOk")->click();
        QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
        QCOMPARE(m_dialog->projectDefine().name, text);
        QCOMPARE(OvProjectDefineNode().projectByName(text).id, m_dialog->projectDefine().id);
        m_dialog = std::make_unique<OvProjectCreateDlg>();
        name()->setText(text);
        QVERIFY(!canAccept());
        QCOMPARE(colorOf(name()), QColor(Qt::red));
    }
    QCOMPARE(ShellSession::projectNames(), names);
}

void tst_OvProjectCreateDlg::oddFolders_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("blanks") << QStringLiteral("my  line 7");
    QTest::newRow("chinese") << QStringLiteral("测线 七/初至");
    QTest::newRow("signs") << QStringLiteral("100%1 'a' \"b\" #c ?d & <e>");
}

void tst_OvProjectCreateDlg::oddFolders()
{
    QFETCH(QString, folder);
    const QString made = m_session->makeFolder(folder);
    name()->setText(QStringLiteral("Line 7"));
    path()->setText(made);
    QCOMPARE(colorOf(path()), QColor(Qt::black));
    QVERIFY(canAccept());
    m_dialog->accept();
    QCOMPARE(OvProjectDefineNode().projectByName(QStringLiteral("Line 7")).dataPath, made);
    QVERIFY(QDir(m_dialog->projectDefine().dataPath).exists());
}

// Each key reads all records; that is to stay far below what a user feels.
void tst_OvProjectCreateDlg::everyKeyIsQuickAmongManyProjects()
{
    for (int i = 0; i < 300; ++i)
        QVERIFY(ShellSession::addProject(QString::number(i), {}).isValid());
    const QList<OvProjectDefine> before = OvProjectDefineNode().projects();
    QTest::keyClicks(name(), QStringLiteral("Line 7"));
    QVERIFY(canAccept());
    QVERIFY(OvProjectDefineNode().projects().isSharedWith(before));
}

// Another program takes the name after the check.
void tst_OvProjectCreateDlg::refusedProjectKeepsTheDialogOpen()
{
    m_dialog->show();
    name()->setText(QStringLiteral("Line 7"));
    QVERIFY(canAccept());
    QVERIFY(ShellSession::addProject(QStringLiteral("Line 7"), QDir::homePath()).isValid());
    ModalProbe probe;
    probe.nextBox(QMessageBox::Ok);
    QTest::mouseClick(button("btnOk"), Qt::LeftButton);
    QVERIFY(probe.isDone());
    const ModalProbe::Box box = probe.boxes().front();
    QCOMPARE(box.title, QStringLiteral("Warning"));
    QCOMPARE(box.text, QStringLiteral("Cannot create new project!"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.defaultButton, QMessageBox::Ok);
    QCOMPARE(box.parent, m_dialog.get());
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(name()->text(), QStringLiteral("Line 7"));
    QCOMPARE(m_dialog->projectDefine().id, -1);
    QCOMPARE(m_dialog->projectDefine().name, QStringLiteral("Line 7"));
}

void tst_OvProjectCreateDlg::chooserSetsTheFolder()
{
    const QString folder = m_session->makeFolder(QStringLiteral("chosen"));
    path()->setText(m_session->filePath(QStringLiteral("gone")));
    ModalProbe probe;
    QString title, start;
    QFileDialog::Options options;
    QWidget* parent = nullptr;
    probe.next([&](QWidget* window) {
        auto* chooser = qobject_cast<QFileDialog*>(window);
        title = chooser->windowTitle();
        start = chooser->directory().absolutePath();
        options = chooser->options();
        parent = chooser->parentWidget();
        chooser->selectFile(folder);
        static_cast<QDialog*>(chooser)->accept();
    });
    button("btnPathSelect")->click();
    QVERIFY(probe.isDone());
    QCOMPARE(title, QStringLiteral("Select Data Path..."));
    QCOMPARE(start, QDir::homePath());
    QVERIFY(options & QFileDialog::ShowDirsOnly);
    QVERIFY(options & QFileDialog::DontResolveSymlinks);
    QCOMPARE(parent, m_dialog.get());
    QCOMPARE(path()->text(), folder);
    QVERIFY(!path()->text().contains('\\'));
    QCOMPARE(colorOf(path()), QColor(Qt::black));
}

void tst_OvProjectCreateDlg::cancelledChooserKeepsTheFolder()
{
    path()->setText(QStringLiteral("/somewhere"));
    ModalProbe probe;
    probe.next([](QWidget* window) { qobject_cast<QDialog*>(window)->reject(); });
    button("btnPathSelect")->click();
    QVERIFY(probe.isDone());
    QCOMPARE(path()->text(), QStringLiteral("/somewhere"));
}

void tst_OvProjectCreateDlg::cancelStoresNothing()
{
    name()->setText(QStringLiteral("Line 7"));
    m_dialog->show();
    QTest::mouseClick(button("btnCancel"), Qt::LeftButton);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QVERIFY(ShellSession::projectNames().isEmpty());
}

void tst_OvProjectCreateDlg::languageChangeKeepsTheInput()
{
    name()->setText(QStringLiteral("Line 7"));
    description()->setPlainText(QStringLiteral("north"));
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    QTRY_COMPARE(m_dialog->windowTitle(), QStringLiteral("新建项目"));
    QCOMPARE(name()->text(), QStringLiteral("Line 7"));
    QCOMPARE(path()->text(), QDir::home().path());
    QCOMPARE(description()->toPlainText(), QStringLiteral("north"));
}

QTEST_MAIN(tst_OvProjectCreateDlg)
#include "tst_OvProjectCreateDlg.moc"

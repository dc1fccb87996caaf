#include "OvTarnpick/OvLoginDlg.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvTranslator.h"
#include "OvBase/OvUserDefineNode.h"
#include "OvTarnpick/OvTarnpick.h"
#include "OvTarnpick/OvWindowPlacement.h"
#include "OvTarnpick/utility/OvConsole.h"
#include "fixtures/ModalProbe.h"
#include "fixtures/ProtectedFolder.h"
#include "fixtures/WarningTrap.h"

#include <QDesktopWidget>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPushButton>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class tst_OvLoginDlg : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void formIsBuilt();
    void slotOrder();
    void presentDatabaseIsNotReplaced();
    void missingDatabaseIsCopied();
    void copyOfAReadOnlyTemplateIsWritable();
    void missingTemplateIsReported();
    void withoutALocalFolder();
    void refusedDatabaseIsExplained();
    void everyRefusalIsExplainedInTheWindow_data();
    void everyRefusalIsExplainedInTheWindow();
    void unwritableFolderWithADatabaseIsExplained();
    void unwritableFolderTakesNoCopy();
    void errorGoesWithTheNextTry();
    void returnKeyPressesLogin_data();
    void returnKeyPressesLogin();
    void mainWindowStandsInTheMiddle();
    void placement_data();
    void placement();
    void verifiedTwiceMakesOneWindow();
    void loginTwiceMakesTwo();
    void refusalIsReported();
    void otherCodesAreIgnored();
    void languageChangeKeepsTheShortcut();

private:
    static QString templatePath()
    {
        return QCoreApplication::applicationDirPath() + QStringLiteral("/Tarnpick.db");
    }
    /// Changes the database file: to one that ends too early, one that is protected, or by a
    /// statement.
    bool spoil(const QString& change) const;
    QString database() const { return m_folder->filePath(QStringLiteral("Tarnpick.db")); }
    static QByteArray contentOf(const QString& path);
    static bool write(const QString& path, const QByteArray& content);
    static QList<OvTarnpick*> mainWindows();
    // The console goes with its window, and a process has only one.
    static void keepConsole() { OvConsole::instance().setParent(nullptr); }
    QLabel* error() const { return m_dialog->findChild<QLabel*>(QStringLiteral("errorLabel")); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<OvLoginDlg> m_dialog;
};

// A template of no bytes: the user service makes a new database of it.
void tst_OvLoginDlg::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    OvBaseUtil::setLocalPath(m_folder->path());
    QVERIFY(OvBaseUtil::initialize().ok());
    QVERIFY(write(templatePath(), QByteArray()));
    m_dialog = std::make_unique<OvLoginDlg>();
    WarningTrap::start();
}

void tst_OvLoginDlg::cleanup()
{
    keepConsole();
    m_dialog.reset();
    qDeleteAll(mainWindows());
    QFile::setPermissions(templatePath(), QFile::ReadOwner | QFile::WriteOwner);
    QFile::remove(templatePath());
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    OvBaseUtil::finish();
    OvBaseUtil::setLocalPath({});
    m_folder.reset();
    QCOMPARE(WarningTrap::take(), QStringList());
}

QByteArray tst_OvLoginDlg::contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

bool tst_OvLoginDlg::write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QList<OvTarnpick*> tst_OvLoginDlg::mainWindows()
{
    QList<OvTarnpick*> windows;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* window = qobject_cast<OvTarnpick*>(widget))
            windows.append(window);
    }
    return windows;
}

void tst_OvLoginDlg::formIsBuilt()
{
    QCOMPARE(m_dialog->objectName(), QStringLiteral("OvLoginDlg"));
    QCOMPARE(m_dialog->windowTitle(), QString());
    QCOMPARE(m_dialog->minimumSize(), QSize(530, 358));
    QCOMPARE(m_dialog->maximumSize(), QSize(530, 358));
    QVERIFY(m_dialog->isWindow());
    auto* password = m_dialog->findChild<QLineEdit*>(QStringLiteral("password"));
    QCOMPARE(password->echoMode(), QLineEdit::Password);
    QCOMPARE(password->placeholderText(), QStringLiteral("password"));
    auto* user = m_dialog->findChild<QLineEdit*>(QStringLiteral("username"));
    QVERIFY(user->placeholderText().contains('@'));
    auto* button = m_dialog->findChild<QPushButton*>(QStringLiteral("loginBtn"));
    QCOMPARE(button->text(), QStringLiteral("&Login"));
    QVERIFY(button->isFlat() && button->isDefault() && button->autoDefault());
    QCOMPARE(button->shortcut(), QKeySequence(Qt::Key_Return));
    auto* registering = m_dialog->findChild<QLabel*>(QStringLiteral("label"));
    QCOMPARE(registering->text(), QStringLiteral("Register"));
    QCOMPARE(registering->styleSheet(), QStringLiteral("color: rgb(0, 85, 255);"));
    QCOMPARE(registering->font().pointSize(), 12);
    QCOMPARE(m_dialog->findChild<QLabel*>(QStringLiteral("label_2"))->text(),
             QStringLiteral("Retrieve"));
    QVERIFY(error()->isHidden());
}

void tst_OvLoginDlg::slotOrder()
{
    const QMetaObject& meta = OvLoginDlg::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(),
             QByteArray("on_loginBtn_clicked()"));
    QCOMPARE(meta.method(meta.methodOffset() + 1).methodSignature(),
             QByteArray("slotVerify(uint)"));
}

void tst_OvLoginDlg::presentDatabaseIsNotReplaced()
{
    QVERIFY(OvUserDefineNode::instance().login(database()));
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("mark"), 7).ok());
    OvUserDefineNode::instance().logout();
    // Neither read nor copied: it is no database at all.
    QVERIFY(write(templatePath(), "no database"));
    QVERIFY(m_dialog->login());
    QCOMPARE(OvBaseUtil::globalValue(QStringLiteral("mark")).toInt(), 7);
    QCOMPARE(contentOf(templatePath()), QByteArray("no database"));
}

void tst_OvLoginDlg::missingDatabaseIsCopied()
{
    QVERIFY(!QFile::exists(database()));
    m_dialog->show();
    QVERIFY(m_dialog->login());
    QVERIFY(QFile::exists(database()));
    QVERIFY(OvUserDefineNode::instance().userID() >= 0);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(mainWindows().size(), 1);
    QVERIFY(mainWindows().first()->isVisible());
    QVERIFY(mainWindows().first()->testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(contentOf(templatePath()).isEmpty());
}

void tst_OvLoginDlg::copyOfAReadOnlyTemplateIsWritable()
{
    QVERIFY(QFile::setPermissions(templatePath(), QFile::ReadOwner));
    QVERIFY(m_dialog->login());
    QVERIFY(QFile::permissions(database()) & QFile::WriteOwner);
}

void tst_OvLoginDlg::missingTemplateIsReported()
{
    QVERIFY(QFile::remove(templatePath()));
    m_dialog->show();
    ModalProbe probe;
    probe.nextBox(QMessageBox::Ok);
    QVERIFY(!m_dialog->login());
    QVERIFY(probe.isDone());
    const ModalProbe::Box box = probe.boxes().front();
    QCOMPARE(box.title, QStringLiteral("Warning"));
    QCOMPARE(box.text, templatePath() + QStringLiteral(" -> ") + database());
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QVERIFY(!box.parent);
    QVERIFY(m_dialog->isVisible());
    QVERIFY(mainWindows().isEmpty());
}

// A file stands where the folder should be.
void tst_OvLoginDlg::withoutALocalFolder()
{
    const QString file = m_folder->filePath(QStringLiteral("file"));
    QVERIFY(write(file, "x"));
    OvBaseUtil::setLocalPath(file + QStringLiteral("/below"));
    m_dialog->show();
    ModalProbe probe;
    QVERIFY(!m_dialog->login());
    QVERIFY(probe.isDone());
    QVERIFY(m_dialog->isVisible());
    QVERIFY(error()->isVisible());
    QVERIFY(error()->text().contains(QLatin1String("TARNPICK_HOME")));
    QCOMPARE(WarningTrap::take().size(), 1);
}

void tst_OvLoginDlg::refusedDatabaseIsExplained()
{
    QVERIFY(write(database(), "this is no database, whatever its name says"));
    m_dialog->show();
    ModalProbe probe;
    QVERIFY(!m_dialog->login());
    QVERIFY(probe.isDone());
    QVERIFY(error()->isVisible());
    const QString reason = OvUserDefineNode::instance().lastError();
    QVERIFY(!reason.isEmpty());
    QCOMPARE(error()->text().remove(QChar(0x200b)), reason);
    QVERIFY(WarningTrap::take().contains(reason));
    // The whole text is readable inside the fixed window.
    QVERIFY(error()->heightForWidth(error()->width()) <= error()->height());
    QVERIFY(m_dialog->rect().contains(
        QRect(error()->mapTo(m_dialog.get(), QPoint()), error()->size())));
    QVERIFY(mainWindows().isEmpty());
}

void tst_OvLoginDlg::everyRefusalIsExplainedInTheWindow_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("reason");
    QTest::newRow("cut off") << "cut off"
                             << "damaged";
    QTest::newRow("newer") << "PRAGMA user_version = 99"
                           << "newer version";
    QTest::newRow("another program's") << "PRAGMA application_id = 7"
                                       << "another program";
    QTest::newRow("read-only") << "read-only"
                               << "read-only";
}

void tst_OvLoginDlg::everyRefusalIsExplainedInTheWindow()
{
    QFETCH(QString, change);
    QFETCH(QString, reason);
    QVERIFY(OvUserDefineNode::instance().login(database()));
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("mark"), 7).ok());
    OvUserDefineNode::instance().logout();
    QVERIFY(spoil(change));
    const QByteArray before = contentOf(database());
    m_dialog->show();
    ModalProbe probe;
    QVERIFY(!m_dialog->login());
    QVERIFY(probe.isDone());
    QVERIFY(mainWindows().isEmpty());
    const QString shown = error()->text().remove(QChar(0x200b));
    QVERIFY(error()->isVisible());
    QVERIFY2(shown.contains(database()) && shown.contains(reason), qPrintable(shown));
    QVERIFY(contentOf(database()) == before);
    // The user service and the window both log it.
    QStringList warnings = WarningTrap::take();
    warnings.removeDuplicates();
    QCOMPARE(warnings, QStringList{shown});
}

bool tst_OvLoginDlg::spoil(const QString& change) const
{
    if (change == QLatin1String("read-only"))
        return QFile::setPermissions(database(), QFile::ReadOwner);
    if (change == QLatin1String("cut off"))
        return QFile::resize(database(), QFileInfo(database()).size() - 4096);
    bool done = false;
    {
        QSqlDatabase other =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("spoil"));
        other.setDatabaseName(database());
        done = other.open() && QSqlQuery(other).exec(change) &&
               QSqlQuery(other).exec(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("spoil"));
    return done;
}

void tst_OvLoginDlg::unwritableFolderWithADatabaseIsExplained()
{
    QVERIFY(OvUserDefineNode::instance().login(database()));
    OvUserDefineNode::instance().logout();
    m_dialog->show();
    const ProtectedFolder folder(m_folder->path());
    if (!folder.isProtected())
        QSKIP("this account can write to every folder");
    ModalProbe probe;
    QVERIFY(!m_dialog->login());
    QVERIFY(probe.isDone());
    const QString shown = error()->text().remove(QChar(0x200b));
    QVERIFY2(shown.contains(database()) && shown.contains(QStringLiteral("its folder")),
             qPrintable(shown));
    // The user service and the window both log it.
    QStringList warnings = WarningTrap::take();
    warnings.removeDuplicates();
    QCOMPARE(warnings, QStringList{shown});
}

void tst_OvLoginDlg::unwritableFolderTakesNoCopy()
{
    m_dialog->show();
    const ProtectedFolder folder(m_folder->path());
    if (!folder.isProtected())
        QSKIP("this account can write to every folder");
    ModalProbe probe;
    probe.nextBox(QMessageBox::Ok);
    QVERIFY(!m_dialog->login());
    QVERIFY(probe.isDone());
    QCOMPARE(probe.boxes().front().text, templatePath() + QStringLiteral(" -> ") + database());
    QVERIFY(QDir(m_folder->path()).isEmpty());
    QVERIFY(m_dialog->isVisible());
}

void tst_OvLoginDlg::errorGoesWithTheNextTry()
{
    QVERIFY(write(database(), "this is no database, whatever its name says"));
    m_dialog->show();
    QVERIFY(!m_dialog->login());
    WarningTrap::take();
    QVERIFY(error()->isVisible());
    QVERIFY(QFile::remove(database()));
    QVERIFY(m_dialog->login());
    QVERIFY(error()->isHidden());
}

void tst_OvLoginDlg::returnKeyPressesLogin_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("key");
    QTest::newRow("user name") << QStringLiteral("username") << int(Qt::Key_Return);
    QTest::newRow("password") << QStringLiteral("password") << int(Qt::Key_Return);
    QTest::newRow("keypad") << QStringLiteral("password") << int(Qt::Key_Enter);
}

void tst_OvLoginDlg::returnKeyPressesLogin()
{
    QFETCH(QString, field);
    QFETCH(int, key);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    auto* edit = m_dialog->findChild<QLineEdit*>(field);
    edit->setFocus();
    QTest::keyClick(edit, static_cast<Qt::Key>(key));
    QTRY_COMPARE(mainWindows().size(), 1);
    QVERIFY(!m_dialog->isVisible());
}

void tst_OvLoginDlg::mainWindowStandsInTheMiddle()
{
    QVERIFY(m_dialog->login());
    const QRect place = placedMainWindow(QApplication::desktop()->size());
    const OvTarnpick* window = mainWindows().first();
    QCOMPARE(window->pos(), place.topLeft());
    QCOMPARE(window->size(), place.size().expandedTo(window->minimumSizeHint()));
}

void tst_OvLoginDlg::placement_data()
{
    QTest::addColumn<QSize>("desktop");
    QTest::addColumn<QRect>("window");
    QTest::newRow("2560 x 1440") << QSize(2560, 1440) << QRect(512, 288, 1536, 864);
    QTest::newRow("1920 x 1080") << QSize(1920, 1080) << QRect(384, 216, 1152, 648);
    QTest::newRow("truncated") << QSize(1366, 768) << QRect(273, 153, 819, 460);
}

void tst_OvLoginDlg::placement()
{
    QFETCH(QSize, desktop);
    QTEST(placedMainWindow(desktop), "window");
}

void tst_OvLoginDlg::verifiedTwiceMakesOneWindow()
{
    QVERIFY(QMetaObject::invokeMethod(m_dialog.get(), "slotVerify", Q_ARG(uint, 20000000)));
    QCOMPARE(mainWindows().size(), 1);
    OvTarnpick* window = mainWindows().first();
    QVERIFY(window->isVisible());
    QVERIFY(!window->testAttribute(Qt::WA_DeleteOnClose));
    m_dialog->slotVerify(20000000);
    QCOMPARE(mainWindows(), QList<OvTarnpick*>{window});
    // It outlives its closing, and goes with the login window.
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(mainWindows().size(), 1);
    keepConsole();
    m_dialog.reset();
    QVERIFY(mainWindows().isEmpty());
}

void tst_OvLoginDlg::loginTwiceMakesTwo()
{
    QVERIFY(m_dialog->login());
    OvTarnpick* first = mainWindows().first();
    QVERIFY(m_dialog->login());
    QCOMPARE(mainWindows().size(), 2);
    // Only the second one goes with the login window.
    keepConsole();
    m_dialog.reset();
    QCOMPARE(mainWindows(), QList<OvTarnpick*>{first});
}

void tst_OvLoginDlg::refusalIsReported()
{
    m_dialog->show();
    ModalProbe probe;
    probe.nextBox(QMessageBox::Ok);
    m_dialog->slotVerify(20000001);
    QVERIFY(probe.isDone());
    const ModalProbe::Box box = probe.boxes().front();
    QCOMPARE(box.title, QStringLiteral("Tarnpick"));
    QCOMPARE(box.text, QStringLiteral("Login failed!"));
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, m_dialog.get());
    QVERIFY(m_dialog->isVisible());
    QVERIFY(mainWindows().isEmpty());
}

void tst_OvLoginDlg::otherCodesAreIgnored()
{
    m_dialog->show();
    ModalProbe probe;
    for (const unsigned int code : {0u, 19999999u, 20000002u})
        m_dialog->slotVerify(code);
    QVERIFY(probe.isDone());
    QVERIFY(m_dialog->isVisible());
    QVERIFY(mainWindows().isEmpty());
}

void tst_OvLoginDlg::languageChangeKeepsTheShortcut()
{
    auto* button = m_dialog->findChild<QPushButton*>(QStringLiteral("loginBtn"));
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    QTRY_COMPARE(button->text(), QStringLiteral("登录(&L)"));
    QCOMPARE(button->shortcut(), QKeySequence(Qt::Key_Return));
}

QTEST_MAIN(tst_OvLoginDlg)
#include "tst_OvLoginDlg.moc"

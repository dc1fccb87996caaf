#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvProjectManager.h"
#include "OvBase/OvTaskManager.h"
#include "OvBase/OvTaskMonitor.h"
#include "OvBase/OvTranslator.h"
#include "OvBase/OvUserDefineNode.h"
#include "OvGui/OvGatherViewController.h"
#include "OvGui/OvMultiPlaneViewController.h"
#include "OvTarnpick/OvLoginDlg.h"
#include "OvTarnpick/OvTarnpickUtil.h"
#include "host/OvHostLook.h"

#include "SharedKeys.h"
#include "ShownTexts.h"
#include "fixtures/ModalProbe.h"
#include "fixtures/SegyWriter.h"
#include "fixtures/ShellSession.h"
#include "unit/OvGui/PoolBlock.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTextEdit>
#include <QtTest>

#include <memory>

// QCOMPARE cuts long texts short.
#define NOTHING_WRONG(found)                                                                       \
    do {                                                                                           \
        const QStringList& problems = (found);                                                     \
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));                \
    } while (false)

/// Walks through the whole program, with its real plug-ins and a real file, and reads everything
/// that it says: no English word in Chinese, no Chinese one in English.
class tst_TwoLanguages : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void loginWindowFollows();
    void mainWindowFollows();
    void readingHeadersFollows();
    void startsInTheRememberedLanguage();
    void dialogs_data();
    void dialogs();
    void openDialogsFollow_data();
    void openDialogsFollow();
    void informationDialogFollows();
    void informationBox_data();
    void informationBox();
    void chooserOfFiles_data();
    void chooserOfFiles();
    void standardButtons();
    void contextMenus();
    void jobsThatEndInChinese();
    void aStrayEnglishWordIsFound();
    void sharedKeysAreFound();

private:
    using Choice = OvTranslator::LanguageType;

    static void choose(Choice language);
    QMainWindow* window() const;
    QAction* action(const QString& name) const;
    QStringList wrong(QWidget* shown) const;
    QStringList wrongInBoth(QWidget* shown) const;
    /// Triggers the action and waits for all the dialogs that were expected.
    bool trigger(const QString& name);
    void readFreshDialog();
    bool openView();
    bool showView();
    bool linkViews();
    bool runPicking();
    static QString lines(const QStringList& found) { return found.join(QLatin1Char('\n')); }
    /// Each action that opens a dialog of this program.
    static void addDialogs();

    std::unique_ptr<ShellSession> m_session;
    std::unique_ptr<OvLoginDlg> m_login;
    std::unique_ptr<ModalProbe> m_probe;
    QStringList m_names;
    QString m_file;
};

void tst_TwoLanguages::choose(Choice language)
{
    OvTranslator::instance().setLanguageType(language);
    QCoreApplication::processEvents();
}

QMainWindow* tst_TwoLanguages::window() const
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("OvTarnpick"))
            return qobject_cast<QMainWindow*>(widget);
    }
    return nullptr;
}

/// Of the menus, those of plug-ins included.
QAction* tst_TwoLanguages::action(const QString& name) const
{
    QList<QAction*> actions = window()->menuBar()->actions();
    for (int i = 0; i < actions.size(); ++i) {
        if (actions.at(i)->objectName() == name)
            return actions.at(i);
        if (actions.at(i)->menu())
            actions += actions.at(i)->menu()->actions();
    }
    qFatal("There is no action %s", qPrintable(name));
}

QStringList tst_TwoLanguages::wrong(QWidget* shown) const
{
    const auto texts = ShownTexts::of(shown);
    if (texts.empty())
        return {QStringLiteral("nothing is shown")};
    return OvTranslator::instance().languageType() == OvTranslator::Chinese
               ? ShownTexts::withEnglish(texts, m_names)
               : ShownTexts::withChinese(texts);
}

/// Of a window that stays while the language changes.
QStringList tst_TwoLanguages::wrongInBoth(QWidget* shown) const
{
    QStringList found;
    for (const Choice language : {OvTranslator::Chinese, OvTranslator::English}) {
        choose(language);
        if (window()) // what the status bar says goes by itself after some seconds
            window()->statusBar()->clearMessage();
        // The task list shows news some times a second.
        if (!QTest::qWaitFor([&] { return wrong(shown).isEmpty(); }, 1000))
            found += wrong(shown);
        found += SharedKeys::of(shown);
    }
    choose(OvTranslator::English);
    return found;
}

bool tst_TwoLanguages::trigger(const QString& name)
{
    QAction* triggered = action(name);
    if (!triggered->isEnabled())
        return false;
    triggered->trigger();
    return QTest::qWaitFor([this] { return m_probe->isDone(); });
}

bool tst_TwoLanguages::openView()
{
    OvStatus status;
    const auto document = OvSegyDocument::open(m_file, &status);
    if (!document)
        return false;
    auto* view = new OvGatherViewController(document);
    OvProjectManager::instance().addWorkspace(view);
    return QTest::qWaitFor([&] { return document->isIndexComplete() && view->isShowingData(); },
                           30000);
}

/// Brings a view of the file to the front: the actions that work on one are enabled then.
bool tst_TwoLanguages::showView()
{
    auto* area = window()->findChild<QMdiArea*>();
    for (QMdiSubWindow* subWindow : area->subWindowList()) {
        if (qobject_cast<OvGatherViewController*>(subWindow->widget()))
            area->setActiveSubWindow(subWindow);
    }
    return action(QStringLiteral("actionAuto_Pick"))->isEnabled();
}

bool tst_TwoLanguages::linkViews()
{
    m_probe->next([](QWidget* dialog) {
        dialog->findChild<QAbstractButton*>(QStringLiteral("selAllBtn"))->click();
        qobject_cast<QDialog*>(dialog)->accept();
    });
    return trigger(QStringLiteral("actionLinkWindow")) &&
           window()->findChild<OvMultiPlaneViewController*>() != nullptr;
}

bool tst_TwoLanguages::runPicking()
{
    m_probe->next([](QWidget* dialog) { qobject_cast<QDialog*>(dialog)->accept(); });
    const QSignalSpy added(&OvTaskManager::instance(), &OvTaskManager::taskAdded);
    const auto isDone = [&added] {
        return !added.isEmpty() && !OvTaskManager::instance().hasRunningJob();
    };
    return trigger(QStringLiteral("actionAuto_Pick")) && QTest::qWaitFor(isDone, 60000);
}

void tst_TwoLanguages::initTestCase()
{
    qputenv("TARNPICK_PLUGIN_PATH", qgetenv("TARNPICK_BUILD_DIR") + "/bin/plugins");
    OvHostLook::apply(qApp);
    m_session = std::make_unique<ShellSession>();
    QVERIFY(m_session->isReady());
    const QString folder = m_session->makeFolder(QStringLiteral("41"));
    m_file = folder + QStringLiteral("/L7.sgy");
    SegyWriter writer;
    writer.sampleCount = 500;
    for (int shot = 0; shot < 3; ++shot)
        writer.addShot(100 + shot, shot * 20.0, 24, 10.0);
    QVERIFY(writer.write(m_file));
    m_names = QStringList{m_file,
                          folder,
                          QDir::homePath(),
                          QStringLiteral("L7.sgy"),
                          QStringLiteral("English"),
                          QStringLiteral("(build 20230303)"),
                          QStringLiteral("https://tarnpick.example.org")};
    m_login = std::make_unique<OvLoginDlg>();
    m_login->show();
}

void tst_TwoLanguages::init()
{
    m_probe = std::make_unique<ModalProbe>();
}

void tst_TwoLanguages::cleanup()
{
    QVERIFY2(m_probe->isDone(), qPrintable(lines(m_probe->unexpected())));
    m_probe.reset();
    choose(OvTranslator::English);
}

void tst_TwoLanguages::cleanupTestCase()
{
    OvProjectManager::instance().closeProject();
    m_login.reset();
    m_session.reset();
}

void tst_TwoLanguages::loginWindowFollows()
{
    m_names.append(QStringLiteral("name@example.com"));
    NOTHING_WRONG(wrongInBoth(m_login.get()));
    QVERIFY(m_login->login());
    QVERIFY(window());
    window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window()));
    NOTHING_WRONG(wrongInBoth(window()));
}

void tst_TwoLanguages::mainWindowFollows()
{
    const OvProjectDefine project = ShellSession::addProject(
        QStringLiteral("17"), QFileInfo(m_file).path(), QStringLiteral("2026"));
    QVERIFY(ShellSession::addProject(QStringLiteral("18"), QFileInfo(m_file).path()).isValid());
    QVERIFY(OvProjectManager::instance().openProject(project));
    QVERIFY(openView());
    QVERIFY(openView());
    QVERIFY(runPicking());
    OvAbstractJob running;
    running.setTaskName(QStringLiteral("1"));
    OvTaskManager::instance().addTask(&running);
    running.start();
    QVERIFY(linkViews());
    for (QDockWidget* dock : window()->findChildren<QDockWidget*>())
        dock->show();
    window()->findChild<QMdiArea*>()->tileSubWindows();
    QCoreApplication::processEvents();
    NOTHING_WRONG(wrongInBoth(window()));
    running.finish(OvAbstractJob::Failed);
}

void tst_TwoLanguages::readingHeadersFollows()
{
    const QString copy = QFileInfo(m_file).path() + QStringLiteral("/L8.sgy");
    m_names.append(QStringLiteral("L8.sgy"));
    QVERIFY(QFile::copy(m_file, copy));
    PoolBlock block(OvBackground::scanPool());
    OvStatus status;
    const auto document = OvSegyDocument::open(copy, &status);
    QVERIFY(document);
    const QPointer<OvAbstractJob> job = OvTaskManager::instance().tasks().constLast();
    QVERIFY(job->isRunning());
    auto* view = new OvGatherViewController(document);
    OvProjectManager::instance().addWorkspace(view);
    NOTHING_WRONG(wrongInBoth(window()));
    job->requestCancel();
    block.release();
    QTRY_VERIFY(!document->indexMessage().isEmpty());
    NOTHING_WRONG(wrongInBoth(window()));
    delete view->parentWidget();
}

void tst_TwoLanguages::startsInTheRememberedLanguage()
{
    choose(OvTranslator::Chinese);
    QCOMPARE(OvBaseUtil::globalValue(QStringLiteral("language")).toInt(), 1);
    // What a login does at the next start.
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    OvTranslator::instance().setLanguageType(OvTranslator::Chinese);
    OvTranslator::instance().restore();
    QCOMPARE(OvTranslator::instance().languageType(), OvTranslator::Chinese);
    QVERIFY(action(QStringLiteral("actionChinese")));
}

void tst_TwoLanguages::addDialogs()
{
    QTest::addColumn<QString>("name");
    for (const char* name :
         {"action_New_Project", "action_Open_Project", "action_Manage_Project",
          "actionAbout_Tarnpick", "actionLinkWindow", "actionAuto_Pick", "actionHeader_Mapping"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_TwoLanguages::dialogs_data()
{
    addDialogs();
}

void tst_TwoLanguages::readFreshDialog()
{
    QFETCH(QString, name);
    QVERIFY(showView());
    for (const Choice language : {OvTranslator::Chinese, OvTranslator::English}) {
        choose(language);
        QString found = QStringLiteral("no dialog");
        m_probe->next([&](QWidget* dialog) {
            found = lines(wrong(dialog));
            if (!qobject_cast<QFileDialog*>(dialog)) // the toolkit's own
                found += lines(SharedKeys::of(dialog));
            qobject_cast<QDialog*>(dialog)->reject();
        });
        QVERIFY(trigger(name));
        QVERIFY2(found.isEmpty(), qPrintable(found));
    }
}

void tst_TwoLanguages::dialogs()
{
    readFreshDialog();
}

void tst_TwoLanguages::openDialogsFollow_data()
{
    addDialogs();
}

void tst_TwoLanguages::openDialogsFollow()
{
    QFETCH(QString, name);
    // This panel keeps the language in which it was made.
    const QString panel = QStringLiteral("OvPickFBDefineWidget");
    QVERIFY(showView());
    QStringList found(QStringLiteral("no dialog"));
    m_probe->next([&](QWidget* dialog) {
        found = wrongInBoth(dialog);
        qobject_cast<QDialog*>(dialog)->reject();
    });
    QVERIFY(trigger(name));
    const QStringList ofPanel = found.filter(panel);
    QCOMPARE(!ofPanel.isEmpty(), name == QLatin1String("actionAuto_Pick"));
    for (const QString& text : ofPanel)
        found.removeAll(text);
    NOTHING_WRONG(found);
}

void tst_TwoLanguages::informationDialogFollows()
{
    QVERIFY(showView());
    action(QStringLiteral("actionSegy_Information"))->trigger();
    auto* dialog = window()->findChild<QDialog*>(QStringLiteral("OvSegyInfoDlg"));
    QVERIFY(dialog);
    NOTHING_WRONG(wrongInBoth(dialog));
    // What the examination finds comes a moment later, in the new language.
    const auto* findings = dialog->findChild<QListWidget*>(QStringLiteral("remarks"));
    for (const Choice language : {OvTranslator::Chinese, OvTranslator::English}) {
        choose(language);
        QTRY_VERIFY(findings->count() > 0);
        NOTHING_WRONG(wrong(dialog));
    }
    dialog->close();
}

void tst_TwoLanguages::informationBox_data()
{
    QTest::addColumn<int>("language");
    QTest::newRow("Chinese") << 1;
    QTest::newRow("English") << 0;
}

void tst_TwoLanguages::informationBox()
{
    QFETCH(int, language);
    choose(static_cast<Choice>(language));
    QString found = QStringLiteral("no box");
    m_probe->next([&](QWidget* box) {
        found = lines(wrong(box));
        qobject_cast<QDialog*>(box)->reject();
    });
    OvTarnpickUtil::displaySegyInfo(m_file, window());
    QVERIFY2(found.isEmpty(), qPrintable(found));
}

void tst_TwoLanguages::chooserOfFiles_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"actionOpen_Segy", "actionFirstBreak_Output", "actionExport_to_Image"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_TwoLanguages::chooserOfFiles()
{
    readFreshDialog();
}

void tst_TwoLanguages::standardButtons()
{
    for (const Choice language : {OvTranslator::Chinese, OvTranslator::English}) {
        choose(language);
        QDialogButtonBox box;
        for (int bit = QDialogButtonBox::FirstButton; bit <= QDialogButtonBox::LastButton; bit *= 2)
            box.addButton(static_cast<QDialogButtonBox::StandardButton>(bit));
        QCOMPARE(box.buttons().size(), 18);
        NOTHING_WRONG(wrong(&box));
    }
}

void tst_TwoLanguages::contextMenus()
{
    for (const Choice language : {OvTranslator::Chinese, OvTranslator::English}) {
        choose(language);
        QLineEdit line(QStringLiteral("7"));
        QTextEdit text(QStringLiteral("7"));
        auto* subWindow = window()->findChild<QMdiSubWindow*>();
        for (QMenu* menu : {line.createStandardContextMenu(), text.createStandardContextMenu(),
                            window()->createPopupMenu(), subWindow->systemMenu()}) {
            QVERIFY(menu);
            NOTHING_WRONG(wrong(menu));
        }
    }
}

void tst_TwoLanguages::jobsThatEndInChinese()
{
    choose(OvTranslator::Chinese);
    QVERIFY(showView());
    QVERIFY(runPicking());
    NOTHING_WRONG(wrong(&OvTaskMonitor::instance()));
    QVERIFY(!window()->statusBar()->currentMessage().isEmpty());
    NOTHING_WRONG(wrong(window()->statusBar()));
}

void tst_TwoLanguages::aStrayEnglishWordIsFound()
{
    QWidget stray;
    stray.setToolTip(QStringLiteral("道集 of 3"));
    QCOMPARE(ShownTexts::withEnglish(ShownTexts::of(&stray), {}).size(), 1);
    stray.setToolTip(QStringLiteral("SEG-Y 文件(&F) 3 ms"));
    QCOMPARE(ShownTexts::withEnglish(ShownTexts::of(&stray), {}), QStringList());
    QCOMPARE(ShownTexts::withChinese(ShownTexts::of(&stray)).size(), 1);
}

void tst_TwoLanguages::sharedKeysAreFound()
{
    QMainWindow stray;
    QMenu* menu = stray.menuBar()->addMenu(QStringLiteral("&File"));
    menu->addAction(QStringLiteral("&Open"))->setShortcut(QStringLiteral("Ctrl+O"));
    QAction* print = menu->addAction(QStringLiteral("&Print"));
    auto* button = new QPushButton(QStringLiteral("&Open"), &stray);
    stray.show();
    QCOMPARE(SharedKeys::of(&stray), QStringList());
    print->setText(QStringLiteral("&Over"));
    QCOMPARE(SharedKeys::of(&stray), QStringList("Alt+O: &Open, &Over"));
    print->setText(QStringLiteral("&Print"));
    print->setShortcut(QStringLiteral("Ctrl+O"));
    QCOMPARE(SharedKeys::of(&stray), QStringList("Ctrl+O: &Open, &Print"));
    print->setShortcut({});
    button->setText(QStringLiteral("Fi&x &File"));
    QCOMPARE(SharedKeys::of(&stray), QStringList());
    button->setText(QStringLiteral("Fix &File"));
    QCOMPARE(SharedKeys::of(&stray), QStringList("Alt+F: &File, Fix &File"));
}

QTEST_MAIN(tst_TwoLanguages)
#include "tst_TwoLanguages.moc"

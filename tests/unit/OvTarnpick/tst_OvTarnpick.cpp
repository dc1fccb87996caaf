#include "OvTarnpick/OvTarnpick.h"

#include "OvTarnpick/OvAboutDialog.h"
#include "OvTarnpick/controller/OvLinkWindowDlg.h"
#include "OvTarnpick/controller/OvMdiArea.h"
#include "OvTarnpick/controller/OvProjectCreateDlg.h"
#include "OvTarnpick/controller/OvProjectManageDlg.h"
#include "OvTarnpick/gadget/OvMainBillBoard.h"
#include "OvTarnpick/gadget/OvMainGadget.h"

#include "OvBase/OvTaskMonitor.h"
#include "OvBase/OvTranslator.h"

#include "ConsoleLines.h"
#include "TestSession.h"
#include "TestView.h"
#include "fixtures/ModalProbe.h"

#include <QActionGroup>
#include <QDesktopServices>
#include <QLineEdit>
#include <QListView>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include <memory>

/// The main window without plug-ins. One window lives through all tests: the console goes with it.
class tst_OvTarnpick : public QObject
{
    Q_OBJECT

public slots:
    void noteUrl(const QUrl& url) { m_urls.append(url); }

private slots:
    void initTestCase();
    void cleanup();
    void cleanupTestCase();

    void holdsTheDocksLowUntilShown();
    void docksConsoleAndTaskMonitor();
    void theConsoleGetsHalfOfItsRowAtFirst();
    void fillsTheToolBarWithoutPlugins();
    void startsWithoutAProject();
    void neverShowsTheReservedEntries();

    void titleFollowsTheProject();
    void titleSurvivesMaximizedWorkspaces();
    void makesANewProject();
    void cancelledNewProjectDoesNothing();
    void opensAChosenProject();
    void managesProjects();
    void clearsTheRecentMenu();
    void capturesOnlyWithAProject();
    void explorerOpensTheDataFolder();
    void explorerOpensFoldersWithOddNames();
    void explorerOpensTheCurrentFolder();
    void arrangesWindows();
    void forwardsKeys();
    void populateIsHarmless();
    void parallelViewOfNothingLeavesTheDocks();
    void parallelViewMakesRoom();

    void helpOpensTheManual();
    void helpKeyWorksFromEverywhere();
    void aboutIsModal();
    void choosingTheSameLanguageKeepsTheMark();
    void switchesToChineseAndBack();

    void secondWindowKeepsItsDocksLow();

private:
    QAction* action(const char* name) const;
    QMenu* menu(const char* name) const;
    OvMdiArea* area() const { return qobject_cast<OvMdiArea*>(m_window->centralWidget()); }
    TestView* addView(const QString& name) const;
    void openProject(const QString& name) const;

    std::unique_ptr<TestSession> m_session;
    std::unique_ptr<OvTarnpick> m_window;
    std::unique_ptr<OvTarnpick> m_second;
    QList<QUrl> m_urls;
};

void tst_OvTarnpick::initTestCase()
{
    for (const char* scheme : {"file", "http"})
        QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "noteUrl");
    m_session = std::make_unique<TestSession>();
    QVERIFY(m_session->isReady());
    m_window = std::make_unique<OvTarnpick>();
}

void tst_OvTarnpick::cleanup()
{
    OvProjectManager::instance().closeProject();
    for (QMdiSubWindow* subWindow : area()->subWindowList())
        delete subWindow;
    m_urls.clear();
    QCOMPARE(consoleWarnings(), QStringList());
}

void tst_OvTarnpick::cleanupTestCase()
{
    m_second.reset();
    m_window.reset();
    m_session.reset();
}

QAction* tst_OvTarnpick::action(const char* name) const
{
    return m_window->findChild<QAction*>(QString::fromLatin1(name));
}

QMenu* tst_OvTarnpick::menu(const char* name) const
{
    return m_window->findChild<QMenu*>(QString::fromLatin1(name));
}

TestView* tst_OvTarnpick::addView(const QString& name) const
{
    auto* view = new TestView(name);
    OvProjectManager::instance().addWorkspace(view);
    return view;
}

void tst_OvTarnpick::openProject(const QString& name) const
{
    OvProjectManager::instance().openProject(m_session->addProject(name));
}

void tst_OvTarnpick::holdsTheDocksLowUntilShown()
{
    QCOMPARE(OvConsole::instance().maximumHeight(), 120);
    QCOMPARE(OvTaskMonitor::instance().maximumHeight(), 120);
    m_window->resize(1000, 700);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QCOMPARE(OvConsole::instance().maximumHeight(), 16777215);
    // The layout of a visible dock has a limit of its own, just as far away.
    QVERIFY(OvTaskMonitor::instance().maximumHeight() > 100000);
    QTRY_VERIFY(OvTaskMonitor::instance().height() > 0);
}

void tst_OvTarnpick::docksConsoleAndTaskMonitor()
{
    QCOMPARE(m_window->dockWidgetArea(&OvConsole::instance()), Qt::BottomDockWidgetArea);
    QCOMPARE(m_window->dockWidgetArea(&OvTaskMonitor::instance()), Qt::BottomDockWidgetArea);
    QVERIFY(OvConsole::instance().isHidden());
    QVERIFY(OvTaskMonitor::instance().isVisible());
    const QList<QAction*> entries = menu("menu_Window")->actions();
    QCOMPARE(entries.size(), 10);
    QVERIFY(entries.at(7)->isSeparator());
    QCOMPARE(entries.at(8), OvConsole::instance().toggleViewAction());
    QCOMPARE(entries.at(9), OvTaskMonitor::instance().toggleViewAction());
    entries.at(8)->trigger();
    QVERIFY(OvConsole::instance().isVisible());
    entries.at(8)->trigger();
    QVERIFY(!OvConsole::instance().isVisible());
}

void tst_OvTarnpick::theConsoleGetsHalfOfItsRowAtFirst()
{
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    const int third = m_window->width() / 3;
    OvConsole::instance().show();
    QTRY_VERIFY(OvConsole::instance().width() > third && OvTaskMonitor::instance().width() > third);
    // What the user makes of it later stays.
    constexpr int chosen = 300;
    m_window->resizeDocks({&OvConsole::instance(), &OvTaskMonitor::instance()},
                          {chosen, m_window->width() - chosen}, Qt::Horizontal);
    QTRY_VERIFY(qAbs(OvConsole::instance().width() - chosen) < 10);
    OvConsole::instance().close();
    OvConsole::instance().show();
    QTRY_VERIFY(qAbs(OvConsole::instance().width() - chosen) < 10);
    OvConsole::instance().close();
}

void tst_OvTarnpick::fillsTheToolBarWithoutPlugins()
{
    const auto* toolBar = m_window->findChild<QToolBar*>(QStringLiteral("mainToolBar"));
    const QList<QAction*> entries = toolBar->actions();
    QCOMPARE(entries.size(), 4);
    QVERIFY(qobject_cast<OvMainGadget*>(toolBar->widgetForAction(entries.at(0))));
    QVERIFY(entries.at(1)->isSeparator());
    QCOMPARE(entries.at(2)->objectName(), QStringLiteral("spacer"));
    QVERIFY(qobject_cast<OvMainBillBoard*>(toolBar->widgetForAction(entries.at(3))));
    QList<QAction*> buttons;
    for (const auto* button : m_window->findChild<OvMainGadget*>()->findChildren<QToolButton*>())
        buttons.append(button->defaultAction());
    QCOMPARE(buttons, (QList<QAction*>{action("actionExport_to_Image"), action("actionExplorer")}));
    QCOMPARE(action("actionExport_to_Image")->data(), QVariant(90));
    QCOMPARE(action("actionExplorer")->data(), QVariant(110));
    QCOMPARE(action("actionFB_to_SEGY_Header")->data(), QVariant(120));
    QCOMPARE(m_window->menuBar()->actions().size(), 4);
}

void tst_OvTarnpick::startsWithoutAProject()
{
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Maravel"));
    QVERIFY(!action("action_Close_Project")->isEnabled());
    for (const QAction* entry : m_window->findChildren<QAction*>(
             QRegularExpression(QStringLiteral("^action")), Qt::FindDirectChildrenOnly)) {
        if (entry->isVisible() && entry != action("action_Close_Project"))
            QVERIFY2(entry->isEnabled(), qPrintable(entry->objectName()));
    }
}

void tst_OvTarnpick::neverShowsTheReservedEntries()
{
    const QList<QAction*> hidden{action("actionTechnel_Support"), action("actionReport_Bug"),
                                 menu("menu_New_Window")->menuAction()};
    const auto areHidden = [&] {
        return std::none_of(hidden.begin(), hidden.end(),
                            [](const QAction* entry) { return entry->isVisible(); });
    };
    QVERIFY(areHidden());
    openProject(QStringLiteral("reserved"));
    QVERIFY(areHidden());
    OvTranslator::instance().setLanguageType(OvTranslator::Chinese);
    QTRY_COMPARE(hidden.at(0)->text(), QStringLiteral("技术支持"));
    QVERIFY(areHidden());
    OvTranslator::instance().setLanguageType(OvTranslator::English);
    QTRY_COMPARE(hidden.at(0)->text(), QStringLiteral("Technical Support"));
}

void tst_OvTarnpick::titleFollowsTheProject()
{
    openProject(QStringLiteral("Line 7"));
    const QString dataPath = OvProjectManager::instance().define().dataPath;
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Line 7 - ") + dataPath);
    QVERIFY(action("action_Close_Project")->isEnabled());
    action("action_Close_Project")->trigger();
    QVERIFY(!OvProjectManager::instance().define().isValid());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Maravel"));
    QVERIFY(!action("action_Close_Project")->isEnabled());
}

void tst_OvTarnpick::titleSurvivesMaximizedWorkspaces()
{
    openProject(QStringLiteral("first"));
    addView(QStringLiteral("Gather 1"));
    QVERIFY(m_window->windowTitle().startsWith(QStringLiteral("first - ")));
    QVERIFY(m_window->windowTitle().endsWith(QStringLiteral("[Gather 1]")));
    openProject(QStringLiteral("second"));
    const QString dataPath = OvProjectManager::instance().define().dataPath;
    QCOMPARE(m_window->windowTitle(), QStringLiteral("second - ") + dataPath);
    addView(QStringLiteral("Gather 2"));
    action("action_Close_Project")->trigger();
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Maravel"));
}

void tst_OvTarnpick::makesANewProject()
{
    const QString folder = m_session->makeFolder(QStringLiteral("fresh"));
    ModalProbe probe;
    probe.next([&](QWidget* window) {
        QVERIFY(qobject_cast<OvProjectCreateDlg*>(window));
        QVERIFY(!window->parentWidget());
        window->findChild<QLineEdit*>(QStringLiteral("txtDataPath"))->setText(folder);
        window->findChild<QLineEdit*>(QStringLiteral("txtProjectName"))
            ->setText(QStringLiteral("Fresh"));
        window->findChild<QPushButton*>(QStringLiteral("btnOk"))->click();
    });
    action("action_New_Project")->trigger();
    QVERIFY2(probe.isDone(), qPrintable(probe.unexpected().join(QLatin1Char('\n'))));
    QCOMPARE(OvProjectManager::instance().define().name, QStringLiteral("Fresh"));
    QVERIFY(OvProjectManager::instance().define().id >= 0);
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Fresh - ") + folder);
}

void tst_OvTarnpick::cancelledNewProjectDoesNothing()
{
    openProject(QStringLiteral("stays"));
    ModalProbe probe;
    for (const char* name : {"action_New_Project", "action_Open_Project"}) {
        probe.next([](QWidget* window) {
            window->findChild<QPushButton*>(QStringLiteral("btnCancel"))->click();
        });
        action(name)->trigger();
    }
    QVERIFY(probe.isDone());
    QCOMPARE(OvProjectManager::instance().define().name, QStringLiteral("stays"));
}

void tst_OvTarnpick::opensAChosenProject()
{
    m_session->addProject(QStringLiteral("chosen"));
    QString title;
    ModalProbe probe;
    probe.next([&](QWidget* window) {
        QVERIFY(!window->parentWidget());
        title = window->windowTitle();
        auto* list = window->findChild<QListView*>(QStringLiteral("projectList"));
        for (int row = 0; row < list->model()->rowCount(); ++row) {
            const QModelIndex index = list->model()->index(row, 0);
            if (index.data().toString() == QLatin1String("chosen"))
                list->setCurrentIndex(index);
        }
        window->findChild<QPushButton*>(QStringLiteral("btnOk"))->click();
    });
    action("action_Open_Project")->trigger();
    QVERIFY(probe.isDone());
    QCOMPARE(title, QStringLiteral("Open Project"));
    QCOMPARE(OvProjectManager::instance().define().name, QStringLiteral("chosen"));
}

void tst_OvTarnpick::managesProjects()
{
    QString title;
    ModalProbe probe;
    probe.next([&](QWidget* window) {
        title = window->windowTitle();
        qobject_cast<QDialog*>(window)->reject();
    });
    action("action_Manage_Project")->trigger();
    QVERIFY(probe.isDone());
    QCOMPARE(title, QStringLiteral("Project Management"));
}

void tst_OvTarnpick::clearsTheRecentMenu()
{
    m_session->visitProject(QStringLiteral("recent"));
    QVERIFY(menu("menuRecently_Projects")->isEnabled());
    action("action_Clear_Menu")->trigger();
    QVERIFY(!menu("menuRecently_Projects")->isEnabled());
    QVERIFY(!OvBaseUtil::globalValue(QStringLiteral("recentFileList")).isValid());
}

void tst_OvTarnpick::capturesOnlyWithAProject()
{
    ModalProbe probe;
    const TestView* view = addView(QStringLiteral("A"));
    action("actionExport_to_Image")->trigger();
    QCOMPARE(view->captures, 0);
    openProject(QStringLiteral("capture"));
    action("actionExport_to_Image")->trigger();
    QCOMPARE(view->captures, 1);
    QVERIFY(probe.isDone());
    delete area()->subWindowList().first();
    probe.nextBox(QMessageBox::Ok);
    action("actionExport_to_Image")->trigger();
    QVERIFY(probe.isDone());
    QCOMPARE(probe.boxes().front().text, QStringLiteral("Nothing to capture!"));
}

void tst_OvTarnpick::explorerOpensTheDataFolder()
{
    openProject(QStringLiteral("folder"));
    const QString dataPath = OvProjectManager::instance().define().dataPath;
    action("actionExplorer")->trigger();
    QCOMPARE(m_urls, QList<QUrl>{QUrl(QStringLiteral("file:///") + dataPath)});
    QCOMPARE(QDir(m_urls.first().toLocalFile()).canonicalPath(), QDir(dataPath).canonicalPath());
}

void tst_OvTarnpick::explorerOpensFoldersWithOddNames()
{
    openProject(QStringLiteral("50% of #7? 塔里木"));
    const QString dataPath = OvProjectManager::instance().define().dataPath;
    action("actionExplorer")->trigger();
    QCOMPARE(m_urls.size(), 1);
    QVERIFY(QDir(m_urls.first().toLocalFile()).exists());
    QCOMPARE(QDir(m_urls.first().toLocalFile()).canonicalPath(), QDir(dataPath).canonicalPath());
}

void tst_OvTarnpick::explorerOpensTheCurrentFolder()
{
    action("actionExplorer")->trigger();
    QCOMPARE(m_urls, QList<QUrl>{QUrl(QStringLiteral("file:///") + QDir::currentPath())});
}

void tst_OvTarnpick::arrangesWindows()
{
    addView(QStringLiteral("A"));
    addView(QStringLiteral("B"));
    const QMdiSubWindow* first = area()->subWindowList().first();
    const QSize size = area()->size();
    action("actionTileHorizontally")->trigger();
    QCOMPARE(first->size(), QSize(size.width() / 2, size.height()));
    action("actionTileVertically")->trigger();
    QCOMPARE(first->size(), QSize(size.width(), size.height() / 2));
    action("actionCascade")->trigger();
    QVERIFY(first->geometry().intersects(area()->subWindowList().last()->geometry()));
    action("actionTile")->trigger();
    QVERIFY(!first->geometry().intersects(area()->subWindowList().last()->geometry()));
}

void tst_OvTarnpick::forwardsKeys()
{
    QTest::keyClick(m_window.get(), Qt::Key_PageUp);
    const TestView* view = addView(QStringLiteral("A"));
    QTest::keyClick(m_window.get(), Qt::Key_PageDown);
    QCOMPARE(view->keys, QList<int>{Qt::Key_PageDown});
}

void tst_OvTarnpick::populateIsHarmless()
{
    TestView* view = addView(QStringLiteral("A"));
    m_window->populate(nullptr);
    m_window->populate(view);
    QCOMPARE(area()->activeWorkspace(), view);
    QCOMPARE(view->dynamicPropertyNames(), QList<QByteArray>());
}

void tst_OvTarnpick::parallelViewOfNothingLeavesTheDocks()
{
    OvConsole::instance().show();
    ModalProbe probe;
    probe.next([](QWidget* window) { qobject_cast<QDialog*>(window)->accept(); });
    action("actionLinkWindow")->trigger();
    QVERIFY(probe.isDone());
    QVERIFY(OvConsole::instance().isVisible());
    QVERIFY(OvTaskMonitor::instance().isVisible());
    OvConsole::instance().close();
    probe.next([](QWidget* window) { qobject_cast<QDialog*>(window)->accept(); });
    action("actionLinkWindow")->trigger();
    QVERIFY(!OvConsole::instance().isVisible());
    QVERIFY(OvTaskMonitor::instance().isVisible());
}

void tst_OvTarnpick::parallelViewMakesRoom()
{
    OvConsole::instance().show();
    addView(QStringLiteral("A"));
    ModalProbe probe;
    probe.next([](QWidget* window) {
        window->findChild<QPushButton*>(QStringLiteral("selAllBtn"))->click();
        qobject_cast<QDialog*>(window)->accept();
    });
    action("actionLinkWindow")->trigger();
    QVERIFY(probe.isDone());
    QVERIFY(OvConsole::instance().isHidden());
    QVERIFY(OvTaskMonitor::instance().isHidden());
    QCOMPARE(area()->subWindowList().size(), 2);
    OvTaskMonitor::instance().show();
}

void tst_OvTarnpick::helpOpensTheManual()
{
    action("actionContent")->trigger();
    QCOMPARE(m_urls, QList<QUrl>{QUrl(QStringLiteral(
                         "http://127.0.0.1:8642/ManualWeb/onlinehelp/en/w_cover.html"))});
}

void tst_OvTarnpick::helpKeyWorksFromEverywhere()
{
    TestView* view = addView(QStringLiteral("A"));
    auto* field = new QLineEdit(view);
    field->show();
    OvConsole::instance().show();
    auto* consoleText = OvConsole::instance().findChild<QTextEdit*>();
    int expected = 0;
    for (QWidget* widget : {static_cast<QWidget*>(field), static_cast<QWidget*>(consoleText)}) {
        widget->setFocus();
        QTRY_VERIFY(widget->hasFocus());
        QTest::keyClick(widget, Qt::Key_F1);
        QCOMPARE(m_urls.size(), ++expected);
        QVERIFY(m_urls.last().path().endsWith(QLatin1String("/en/w_cover.html")));
    }
    OvConsole::instance().close();
}

void tst_OvTarnpick::aboutIsModal()
{
    bool isChild = false;
    ModalProbe probe;
    probe.next([&](QWidget* window) {
        isChild = qobject_cast<OvAboutDialog*>(window) && window->parentWidget() == m_window.get();
        window->close();
    });
    action("actionAbout_Tarnpick")->trigger();
    QVERIFY(probe.isDone());
    QVERIFY(isChild);
    QVERIFY(!m_window->findChild<OvAboutDialog*>());
}

void tst_OvTarnpick::choosingTheSameLanguageKeepsTheMark()
{
    const QAction* english = action("actionEnglish");
    const QAction* chinese = action("actionChinese");
    QVERIFY(english->isChecked());
    QVERIFY(english->actionGroup()->isExclusive());
    QCOMPARE(english->actionGroup()->parent(), m_window.get());
    const QString key = QStringLiteral("language");
    QVERIFY(OvBaseUtil::setGlobalValue(key, QVariant()).ok());
    action("actionEnglish")->trigger();
    QVERIFY(english->isChecked());
    QVERIFY(!chinese->isChecked());
    // The translator remembers what it was told, so it was told.
    QCOMPARE(OvBaseUtil::globalValue(key), QVariant(int(OvTranslator::English)));
}

void tst_OvTarnpick::switchesToChineseAndBack()
{
    openProject(QStringLiteral("多语"));
    const QString title = m_window->windowTitle();
    QCOMPARE(title, QStringLiteral("多语 - ") + OvProjectManager::instance().define().dataPath);
    TestView* view = addView(QStringLiteral("Gather 1"));
    view->parentWidget()->showNormal();
    view->name = QStringLiteral("道集 1");
    action("actionChinese")->trigger();
    QCOMPARE(OvTranslator::instance().languageType(), OvTranslator::Chinese);
    QTRY_COMPARE(menu("menu_File")->title(), QStringLiteral("文件(&F)"));
    QCOMPARE(action("actionLinkWindow")->text(), QStringLiteral("并列显示"));
    QVERIFY(action("actionChinese")->isChecked());
    QVERIFY(!action("actionEnglish")->isChecked());
    QCOMPARE(m_window->windowTitle(), title);
    QCOMPARE(area()->subWindowList().first()->windowTitle(), QStringLiteral("道集 1"));
    QVERIFY(action("action_Close_Project")->isEnabled());
    QCOMPARE(m_window->findChild<OvMainGadget*>()->findChildren<QToolButton*>().size(), 2);
    action("actionContent")->trigger();
    QVERIFY(m_urls.last().path().endsWith(QLatin1String("/zh/w_cover.html")));

    action("actionEnglish")->trigger();
    QTRY_COMPARE(menu("menu_File")->title(), QStringLiteral("&File"));
    QVERIFY(action("actionEnglish")->isChecked());
    QVERIFY(!action("actionChinese")->isChecked());
    QCOMPARE(m_window->windowTitle(), title);
}

void tst_OvTarnpick::secondWindowKeepsItsDocksLow()
{
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    m_second = std::make_unique<OvTarnpick>();
    QCOMPARE(OvConsole::instance().parentWidget(), m_second.get());
    QCOMPARE(OvConsole::instance().maximumHeight(), 120);
    m_second->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_second.get()));
    QCOMPARE(OvConsole::instance().maximumHeight(), 120);
    QCOMPARE(OvTaskMonitor::instance().maximumHeight(), 120);
    QVERIFY(m_second->findChild<QAction*>(QStringLiteral("actionChinese"))->isChecked());
    QVERIFY(!m_second->findChild<QAction*>(QStringLiteral("actionEnglish"))->isChecked());
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
}

QTEST_MAIN(tst_OvTarnpick)
#include "tst_OvTarnpick.moc"

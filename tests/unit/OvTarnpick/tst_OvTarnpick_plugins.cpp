#include "OvTarnpick/OvTarnpick.h"

#include "OvTarnpick/gadget/OvMainGadget.h"

#include "OvBase/OvTranslator.h"

#include "ConsoleLines.h"
#include "TestSession.h"
#include "TestView.h"

#include <QGridLayout>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include <memory>

/// The main window with two modules and two extensions.
class tst_OvTarnpick_plugins : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void cleanupTestCase();

    void logsEachPluginOnce();
    void modulesStandBeforeTools();
    void extensionsStandAboveASeparator();
    void toolBarTakesTheWidgetsIn();
    void resetsTheWidgetsAtStart();
    void populateResetsTheWidgets();
    void extensionFollowsTheProject();
    void gadgetOrdersByData();
    void hiddenHeaderActionJoinsWithAMenu();
    void languageMakesExtensionsAnew();

private:
    QToolBar* toolBar() const
    {
        return m_window->findChild<QToolBar*>(QStringLiteral("mainToolBar"));
    }
    QMenu* tools() const { return m_window->findChild<QMenu*>(QStringLiteral("menuTool")); }
    QWidget* moduleWidget() const
    {
        return m_window->findChild<QWidget*>(QStringLiteral("ShellModuleWidget"));
    }
    QAction* extension(const char* name) const;
    QStringList gadget() const;

    std::unique_ptr<TestSession> m_session;
    std::unique_ptr<OvTarnpick> m_window;
};

void tst_OvTarnpick_plugins::initTestCase()
{
    qputenv("TARNPICK_PLUGIN_PATH", qgetenv("TARNPICK_BUILD_DIR") + "/tests/shellplugins");
    m_session = std::make_unique<TestSession>();
    QVERIFY(m_session->isReady());
    m_window = std::make_unique<OvTarnpick>();
    m_window->show();
}

void tst_OvTarnpick_plugins::cleanup()
{
    OvProjectManager::instance().closeProject();
    QCOMPARE(consoleWarnings(), QStringList());
}

void tst_OvTarnpick_plugins::cleanupTestCase()
{
    m_window.reset();
    m_session.reset();
}

QAction* tst_OvTarnpick_plugins::extension(const char* name) const
{
    for (QAction* action : tools()->actions()) {
        if (action->objectName() == QLatin1String(name))
            return action;
    }
    return nullptr;
}

/// The names of the gadget's actions, column by column.
QStringList tst_OvTarnpick_plugins::gadget() const
{
    const auto* grid =
        m_window->findChild<OvMainGadget*>()->findChild<QGridLayout*>(QStringLiteral("gridLayout"));
    QStringList names;
    for (int column = 1; column < grid->columnCount(); ++column) {
        for (int row = 0; row < 2; ++row) {
            QLayoutItem* item = grid->itemAtPosition(row, column);
            const auto* button = item ? qobject_cast<QToolButton*>(item->widget()) : nullptr;
            if (button)
                names.append(button->defaultAction()->objectName());
        }
    }
    return names;
}

void tst_OvTarnpick_plugins::logsEachPluginOnce()
{
    QCOMPARE(consoleLines().filter(QStringLiteral("Import")),
             (QStringList{QStringLiteral("Import module [ShellModuleFirst] successfully."),
                          QStringLiteral("Import module [ShellModuleSecond] successfully."),
                          QStringLiteral("Import extension [ShellExtensionProject] successfully."),
                          QStringLiteral("Import extension [ShellExtensionFree] successfully.")}));
}

void tst_OvTarnpick_plugins::modulesStandBeforeTools()
{
    QStringList bar;
    for (const QAction* action : m_window->menuBar()->actions())
        bar.append(action->menu()->objectName());
    QCOMPARE(bar, (QStringList{"menu_File", "ShellModuleFirst", "ShellModuleSecond", "menuTool",
                               "menu_Window", "menu_Help"}));
}

void tst_OvTarnpick_plugins::extensionsStandAboveASeparator()
{
    const QList<QAction*> entries = tools()->actions();
    QCOMPARE(entries.size(), 8);
    QCOMPARE(entries.at(0)->objectName(), QStringLiteral("ShellExtensionProject"));
    QCOMPARE(entries.at(1)->objectName(), QStringLiteral("ShellExtensionFree"));
    QVERIFY(entries.at(2)->isSeparator());
    QCOMPARE(entries.at(3)->objectName(), QStringLiteral("actionExplorer"));
}

void tst_OvTarnpick_plugins::toolBarTakesTheWidgetsIn()
{
    const QList<QAction*> entries = toolBar()->actions();
    QCOMPARE(entries.size(), 6);
    QVERIFY(qobject_cast<OvMainGadget*>(toolBar()->widgetForAction(entries.at(0))));
    QVERIFY(entries.at(1)->isSeparator());
    QVERIFY(moduleWidget());
    QCOMPARE(toolBar()->widgetForAction(entries.at(2)), moduleWidget());
    QVERIFY(entries.at(3)->isSeparator());
    QCOMPARE(entries.at(4)->objectName(), QStringLiteral("spacer"));
}

void tst_OvTarnpick_plugins::resetsTheWidgetsAtStart()
{
    QCOMPARE(moduleWidget()->property("resets").toInt(), 1);
}

void tst_OvTarnpick_plugins::populateResetsTheWidgets()
{
    const int before = moduleWidget()->property("resets").toInt();
    const TestView view(QStringLiteral("A"));
    m_window->populate(nullptr);
    m_window->populate(const_cast<TestView*>(&view));
    QCOMPARE(moduleWidget()->property("resets").toInt(), before + 2);
}

void tst_OvTarnpick_plugins::extensionFollowsTheProject()
{
    QVERIFY(!extension("ShellExtensionProject")->isEnabled());
    QVERIFY(extension("ShellExtensionFree")->isEnabled());
    OvProjectManager::instance().openProject(m_session->addProject(QStringLiteral("P")));
    QVERIFY(extension("ShellExtensionProject")->isEnabled());
    QVERIFY(extension("ShellExtensionFree")->isEnabled());
    extension("ShellExtensionFree")->setEnabled(false);
    OvProjectManager::instance().closeProject();
    QVERIFY(!extension("ShellExtensionProject")->isEnabled());
    QVERIFY(!extension("ShellExtensionFree")->isEnabled());
}

void tst_OvTarnpick_plugins::gadgetOrdersByData()
{
    QCOMPARE(gadget(), (QStringList{"actionExport_to_Image", "pick", "actionExplorer"}));
}

void tst_OvTarnpick_plugins::hiddenHeaderActionJoinsWithAMenu()
{
    auto* header = m_window->findChild<QAction*>(QStringLiteral("actionFB_to_SEGY_Header"));
    QMenu* menu = m_window->menuBar()->actions().at(1)->menu();
    menu->addAction(header);
    QEvent language(QEvent::LanguageChange);
    QCoreApplication::sendEvent(m_window.get(), &language);
    QCOMPARE(gadget(), (QStringList{"actionExport_to_Image", "pick", "actionExplorer",
                                    "actionFB_to_SEGY_Header"}));
}

void tst_OvTarnpick_plugins::languageMakesExtensionsAnew()
{
    OvProjectManager::instance().openProject(m_session->addProject(QStringLiteral("Q")));
    const QPointer<QAction> former = extension("ShellExtensionProject");
    const QStringList lines = consoleLines();
    OvTranslator::instance().setLanguageType(OvTranslator::Chinese);
    QTRY_VERIFY(!former);
    QCOMPARE(extension("ShellExtensionProject")->text(),
             QStringLiteral("扩展 ShellExtensionProject"));
    QVERIFY(extension("ShellExtensionProject")->isEnabled());
    QVERIFY(extension("ShellExtensionFree")->isEnabled());
    QMenu* module = m_window->menuBar()->actions().at(1)->menu();
    QCOMPARE(module->title(), QStringLiteral("模块 ShellModuleFirst"));
    QVERIFY(module->property("changes").toInt() >= 1);
    QCOMPARE(tools()->actions().size(), 8);
    QVERIFY(tools()->actions().at(2)->isSeparator());
    QVERIFY(!tools()->actions().at(3)->isSeparator());
    QCOMPARE(toolBar()->actions().size(), 6);
    OvProjectManager::instance().closeProject();
    QVERIFY(!extension("ShellExtensionProject")->isEnabled());
    OvTranslator::instance().setLanguageType(OvTranslator::English);
    QTRY_COMPARE(extension("ShellExtensionProject")->text(),
                 QStringLiteral("ShellExtensionProject"));
    QVERIFY(!extension("ShellExtensionProject")->isEnabled());
    QCOMPARE(consoleLines(), lines);
}

QTEST_MAIN(tst_OvTarnpick_plugins)
#include "tst_OvTarnpick_plugins.moc"

#include "OvTarnpick/OvTarnpick.h"

#include "TestSession.h"
#include "ui_OvTarnpick.h"

#include <QtTest>

/// The main window's form by itself.
class tst_OvTarnpick_form : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void declaresItsSlotsInOrder();
    void setsTheWindow();
    void keepsAGivenObjectName();
    void makesItsActionsInOrder();
    void makesItsWidgets();
    void usesTheFonts();
    void checksEnglish();
    void setsNoData();
    void buildsTheMenuTree();
    void showsIconsInThreeStates_data();
    void showsIconsInThreeStates();
    void exitClosesTheWindow();
    void retranslatesEverything();

private:
    static QStringList entries(const QMenu* menu);

    std::unique_ptr<QMainWindow> m_window;
    Ui::OvTarnpick m_form;
};

namespace {

struct ActionRow
{
    const char* name;
    const char* text;
    const char* shortcut;
    const char* chinese;
};

constexpr ActionRow actionRows[] = {
    {"action_New_Project", "&New Project", "", "新建项目(&N)"},
    {"action_Open_Project", "&Open Project", "", "打开项目(&O)"},
    {"action_Close_Project", "&Close Project", "", "关闭项目(&C)"},
    {"actionE_xit", "E&xit", "Alt+Q", "退出(&X)"},
    {"actionContent", "Maravel Help", "F1", "Maravel 帮助"},
    {"actionTechnel_Support", "Technical Support", "", "技术支持"},
    {"actionReport_Bug", "Report Bug...", "", "报告问题..."},
    {"actionAbout_Tarnpick", "About Maravel", "", "关于 Maravel"},
    {"actionExport_to_Image", "Snapshot", "", "截图"},
    {"action_Clear_Menu", "Clear Menu", "", "清空列表"},
    {"action_Manage_Project", "&Manage Project", "", "管理项目(&M)"},
    {"actionFirstBreak_Output", "Export FB to Text File", "", "导出初至到文本文件"},
    {"actionEnglish", "English", "", "English"},
    {"actionChinese", "简体中文", "", "简体中文"},
    {"actionIndex_Browser", "&Index Browser", "", "索引浏览器(&I)"},
    {"actionFB_to_SEGY_Header", "FB to SEGY Header", "", "初至写入 SEGY 道头"},
    {"actionExplorer", "Open Project Data Folder", "", "打开项目数据文件夹"},
    {"actionNew_3D_Window", "New &3D Window", "", "新建三维窗口(&3)"},
    {"actionTileHorizontally", "Tile &Horizontally", "", "横向平铺(&H)"},
    {"actionCascade", "&Cascade", "", "层叠(&C)"},
    {"actionTileVertically", "Tile &Vertically", "", "纵向平铺(&V)"},
    {"actionTile", "&Tile", "", "平铺(&T)"},
    {"actionLinkWindow", "Parallel View", "", "并列显示"},
    {"actiontes", "tes", "", "tes"},
};

QList<QAction*> formActions(const QMainWindow& window)
{
    return window.findChildren<QAction*>(QRegularExpression(QStringLiteral("^action")),
                                         Qt::FindDirectChildrenOnly);
}

} // namespace

void tst_OvTarnpick_form::init()
{
    m_window = std::make_unique<QMainWindow>();
    m_form.setupUi(m_window.get());
}

void tst_OvTarnpick_form::cleanup()
{
    m_window.reset();
}

void tst_OvTarnpick_form::declaresItsSlotsInOrder()
{
    const QStringList expected{
        QStringLiteral("on_action_New_Project_triggered(bool)"),
        QStringLiteral("on_action_Open_Project_triggered(bool)"),
        QStringLiteral("on_action_Manage_Project_triggered(bool)"),
        QStringLiteral("on_action_Close_Project_triggered(bool)"),
        QStringLiteral("on_action_Clear_Menu_triggered(bool)"),
        QStringLiteral("on_actionExport_to_Image_triggered(bool)"),
        QStringLiteral("on_actionExplorer_triggered(bool)"),
        QStringLiteral("on_actionLinkWindow_triggered(bool)"),
        QStringLiteral("on_actionEnglish_triggered(bool)"),
        QStringLiteral("on_actionChinese_triggered(bool)"),
        QStringLiteral("on_actionContent_triggered(bool)"),
        QStringLiteral("on_actionAbout_Tarnpick_triggered(bool)"),
        QStringLiteral("slotProjectChanged(OvProjectDefine)"),
    };
    QCOMPARE(ownMethods(OvTarnpick::staticMetaObject), expected);
    const QMetaObject& metaObject = OvTarnpick::staticMetaObject;
    const QMetaMethod last = metaObject.method(metaObject.methodCount() - 1);
    QCOMPARE(QMetaType::typeName(last.parameterType(0)), "OvProjectDefine");
}

void tst_OvTarnpick_form::setsTheWindow()
{
    QCOMPARE(m_window->objectName(), QStringLiteral("OvTarnpick"));
    QCOMPARE(m_window->size(), QSize(900, 600));
    QCOMPARE(m_window->focusPolicy(), Qt::NoFocus);
    QCOMPARE(m_window->styleSheet(), QString());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Maravel"));
    QVERIFY(!m_window->windowIcon().pixmap(32, 32).isNull());
    QCOMPARE(m_window->centralWidget(), m_form.centralWidget);
    QVERIFY(QFile::exists(QStringLiteral(":/resource/images/logo.ico")));
}

void tst_OvTarnpick_form::keepsAGivenObjectName()
{
    QMainWindow named;
    named.setObjectName(QStringLiteral("mine"));
    Ui::OvTarnpick().setupUi(&named);
    QCOMPARE(named.objectName(), QStringLiteral("mine"));
}

void tst_OvTarnpick_form::makesItsActionsInOrder()
{
    const QList<QAction*> actions = formActions(*m_window);
    QCOMPARE(actions.size(), int(std::size(actionRows)));
    for (int i = 0; i < actions.size(); ++i) {
        const ActionRow& row = actionRows[i];
        QCOMPARE(actions.at(i)->objectName(), QString::fromUtf8(row.name));
        QCOMPARE(actions.at(i)->text(), QString::fromUtf8(row.text));
        QCOMPARE(actions.at(i)->shortcut().toString(), QString::fromUtf8(row.shortcut));
        QCOMPARE(actions.at(i)->isEnabled(), actions.at(i) != m_form.action_Close_Project);
    }
}

void tst_OvTarnpick_form::makesItsWidgets()
{
    QCOMPARE(m_form.mainToolBar->windowTitle(), QStringLiteral("ToolBar"));
    QVERIFY(!m_form.mainToolBar->isMovable());
    QCOMPARE(m_form.mainToolBar->iconSize(), QSize(24, 24));
    QCOMPARE(m_window->toolBarArea(m_form.mainToolBar), Qt::TopToolBarArea);
    QVERIFY(m_form.mainToolBar->actions().isEmpty());
    QCOMPARE(m_window->statusBar(), m_form.statusBar);
    QCOMPARE(m_window->menuBar(), m_form.menuBar);
    QCOMPARE(m_form.menuBar->geometry(), QRect(0, 0, 900, 23));
    QCOMPARE(m_form.menuRecently_Projects->parent(), m_form.menu_File);
    QCOMPARE(m_form.menuRecently_Projects->objectName(), QStringLiteral("menuRecently_Projects"));
    QCOMPARE(m_form.menu_File->objectName(), QStringLiteral("menu_File"));
    QCOMPARE(m_form.mainToolBar->objectName(), QStringLiteral("mainToolBar"));
}

void tst_OvTarnpick_form::usesTheFonts()
{
    const QFont ui(QStringLiteral("Segoe UI"), 10);
    QCOMPARE(m_window->font().family(), ui.family());
    QCOMPARE(m_window->font().pointSize(), 10);
    const QStringList plain{
        QStringLiteral("actionReport_Bug"),    QStringLiteral("actionFirstBreak_Output"),
        QStringLiteral("actionIndex_Browser"), QStringLiteral("actionFB_to_SEGY_Header"),
        QStringLiteral("actionNew_3D_Window"), QStringLiteral("actiontes")};
    for (const QAction* action : formActions(*m_window)) {
        const bool isSet =
            action->font().family() == ui.family() && action->font().pointSize() == 10;
        QVERIFY2(isSet != plain.contains(action->objectName()), qPrintable(action->objectName()));
    }
    QCOMPARE(m_form.actionNew_3D_Window->font().family(), ui.family());
    for (const QMenu* menu : {m_form.menuRecently_Projects, m_form.menu_New_Window})
        QCOMPARE(menu->font().family(), ui.family());
    QCOMPARE(m_form.menu_Language->font().family(), QStringLiteral("Arial"));
    QCOMPARE(m_form.menu_Language->font().pointSize(), 10);
}

void tst_OvTarnpick_form::checksEnglish()
{
    for (const QAction* action : formActions(*m_window)) {
        const bool checkable = action == m_form.actionEnglish || action == m_form.actionChinese;
        QCOMPARE(action->isCheckable(), checkable);
        QCOMPARE(action->isChecked(), action == m_form.actionEnglish);
    }
}

void tst_OvTarnpick_form::setsNoData()
{
    for (const QAction* action : formActions(*m_window))
        QVERIFY2(!action->data().isValid(), qPrintable(action->objectName()));
}

/// Object names; a submenu's is that of the menu, a separator's a dash.
QStringList tst_OvTarnpick_form::entries(const QMenu* menu)
{
    QStringList list;
    for (const QAction* action : menu->actions())
        list.append(action->isSeparator() ? QStringLiteral("-")
                    : action->menu()      ? action->menu()->objectName()
                                          : action->objectName());
    return list;
}

void tst_OvTarnpick_form::buildsTheMenuTree()
{
    const auto tree = [](const char* line) {
        return QString::fromLatin1(line).split(QLatin1Char(' '));
    };
    QStringList bar;
    for (const QAction* action : m_form.menuBar->actions())
        bar.append(action->menu()->objectName());
    QCOMPARE(bar, tree("menu_File menuTool menu_Window menu_Help"));
    QCOMPARE(entries(m_form.menu_File),
             tree("action_New_Project action_Open_Project action_Manage_Project "
                  "action_Close_Project - menuRecently_Projects - actionE_xit"));
    QCOMPARE(entries(m_form.menuRecently_Projects), tree("- action_Clear_Menu"));
    QCOMPARE(entries(m_form.menuTool),
             tree("actionExplorer actionExport_to_Image - menu_Language -"));
    QCOMPARE(entries(m_form.menu_Language), tree("actionEnglish actionChinese"));
    QCOMPARE(entries(m_form.menu_Window),
             tree("menu_New_Window actionLinkWindow - actionTile actionTileVertically "
                  "actionTileHorizontally actionCascade -"));
    QCOMPARE(entries(m_form.menu_New_Window), tree("actionNew_3D_Window"));
    QCOMPARE(entries(m_form.menu_Help),
             tree("actionContent - actionTechnel_Support actionReport_Bug - actionAbout_Tarnpick"));
}

void tst_OvTarnpick_form::showsIconsInThreeStates_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("stem");
    QTest::newRow("camera") << "actionExport_to_Image"
                            << "camera_%1_24x24";
    QTest::newRow("export") << "actionFirstBreak_Output"
                            << "export_%1_24x24";
    QTest::newRow("header") << "actionFB_to_SEGY_Header"
                            << "fb_to_header_%1_24X24";
    QTest::newRow("folder") << "actionExplorer"
                            << "Open_folder_%1_24X24";
}

void tst_OvTarnpick_form::showsIconsInThreeStates()
{
    QFETCH(QString, action);
    QFETCH(QString, stem);
    const QIcon icon = m_window->findChild<QAction*>(action)->icon();
    const auto image = [&](int number) {
        return QImage(QStringLiteral(":/resource/images/") + stem.arg(number) +
                      QStringLiteral(".png"))
            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    };
    const std::pair<QIcon::Mode, int> modes[] = {
        {QIcon::Normal, 1}, {QIcon::Disabled, 0}, {QIcon::Active, 2}, {QIcon::Selected, 2}};
    for (const auto& [mode, number] : modes) {
        QCOMPARE(image(number).size(), QSize(24, 24));
        for (const QIcon::State state : {QIcon::Off, QIcon::On}) {
            const QImage shown = icon.pixmap(QSize(24, 24), mode, state)
                                     .toImage()
                                     .convertToFormat(QImage::Format_ARGB32_Premultiplied);
            QCOMPARE(shown, image(number));
        }
    }
    QVERIFY(image(0) != image(1));
    QVERIFY(image(1) != image(2));
}

void tst_OvTarnpick_form::exitClosesTheWindow()
{
    m_window->show();
    m_form.actionE_xit->trigger();
    QVERIFY(!m_window->isVisible());
}

void tst_OvTarnpick_form::retranslatesEverything()
{
    QTranslator chinese;
    QVERIFY(chinese.load(QStringLiteral("Tarnpick_cn"), QStringLiteral(":/resource/translations")));
    QCoreApplication::installTranslator(&chinese);
    m_form.retranslateUi(m_window.get());
    for (const ActionRow& row : actionRows)
        QCOMPARE(m_window->findChild<QAction*>(QString::fromUtf8(row.name))->text(),
                 QString::fromUtf8(row.chinese));
    QCOMPARE(m_form.actionContent->shortcut(), QKeySequence(Qt::Key_F1));
    QStringList titles;
    for (const QMenu* menu :
         {m_form.menu_File, m_form.menuRecently_Projects, m_form.menu_Help, m_form.menuTool,
          m_form.menu_Language, m_form.menu_Window, m_form.menu_New_Window})
        titles.append(menu->title());
    QCOMPARE(titles, (QStringList{"文件(&F)", "最近打开的项目", "帮助(&H)", "工具(&T)", "语言(&L)",
                                  "窗口(&W)", "新建窗口(&N)"}));
    QCOMPARE(m_form.mainToolBar->windowTitle(), QStringLiteral("工具栏"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Maravel"));
    QCoreApplication::removeTranslator(&chinese);
}

QTEST_MAIN(tst_OvTarnpick_form)
#include "tst_OvTarnpick_form.moc"

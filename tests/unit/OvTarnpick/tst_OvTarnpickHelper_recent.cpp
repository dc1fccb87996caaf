#include "OvTarnpick/OvTarnpickHelper.h"

#include "HelperWindow.h"
#include "TestSession.h"
#include "fixtures/ModalProbe.h"
#include "fixtures/OddNames.h"
#include "fixtures/WarningTrap.h"
#include "ui_OvTarnpick.h"

#include <QMenuBar>
#include <QScreen>
#include <QSignalSpy>
#include <QtTest>

/// The recent-projects list and its menu.
class tst_OvTarnpickHelper_recent : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsWithTheStoredList();
    void startsDisabledWithoutAList();
    void closedProjectMovesToTheFront();
    void keepsFiveNames();
    void dropsEmptyParts();
    void keepsNamesOfAnyScript();
    void aBarInANameCorruptsNothing();
    void oddNamesAreOpenedFromTheMenu();
    void openingWritesNothing();
    void invalidOrNamelessRecordChangesNothing();
    void closingClearsTheBillBoard();
    void deletedProjectsVanish();
    void clearEmptiesTheList();
    void missingMenuKeepsTheList();
    void choosingOpensTheProject();
    void tellsNamesApartByCase();
    void unknownNameOpensNothing();
    void missingFolderWarns();

private:
    static QVariant stored();
    static void store(const QString& names);
    void addProjects(const QStringList& names);
    /// The texts of the menu above its separator.
    QStringList shown() const;
    void choose(const QString& name);
    QMenu* menu() const { return m_window->form.menuRecently_Projects; }

    std::unique_ptr<TestSession> m_session;
    std::unique_ptr<HelperWindow> m_window;
    std::unique_ptr<WarningTrap> m_log;
};

void tst_OvTarnpickHelper_recent::init()
{
    m_log = std::make_unique<WarningTrap>();
    m_session = std::make_unique<TestSession>();
    m_window = std::make_unique<HelperWindow>();
}

void tst_OvTarnpickHelper_recent::cleanup()
{
    m_window.reset();
    m_session.reset();
    const QStringList warnings = WarningTrap::take();
    m_log.reset();
    QCOMPARE(warnings, QStringList());
}

QVariant tst_OvTarnpickHelper_recent::stored()
{
    return OvBaseUtil::globalValue(QStringLiteral("recentFileList"));
}

void tst_OvTarnpickHelper_recent::store(const QString& names)
{
    QVERIFY(OvBaseUtil::setGlobalValue(QStringLiteral("recentFileList"), names).ok());
}

void tst_OvTarnpickHelper_recent::addProjects(const QStringList& names)
{
    for (const QString& name : names)
        m_session->addProject(name);
}

QStringList tst_OvTarnpickHelper_recent::shown() const
{
    QStringList texts;
    for (const QAction* action : menu()->actions()) {
        if (action->isSeparator())
            break;
        texts.append(action->text());
    }
    return texts;
}

void tst_OvTarnpickHelper_recent::choose(const QString& name)
{
    for (QAction* action : menu()->actions()) {
        if (action->text() != name)
            continue;
        // As a user does it: the menu stands open while its action is deleted.
        menu()->popup(QPoint(10, 10));
        QTest::mouseClick(menu(), Qt::LeftButton, {}, menu()->actionGeometry(action).center());
        return;
    }
    QTest::qFail(qPrintable(name + QStringLiteral(" is not in the menu.")), __FILE__, __LINE__);
}

void tst_OvTarnpickHelper_recent::startsWithTheStoredList()
{
    addProjects({QStringLiteral("A"), QStringLiteral("B")});
    store(QStringLiteral("B|gone|A"));
    m_window.reset();
    m_window = std::make_unique<HelperWindow>();
    QVERIFY(menu()->isEnabled());
    QCOMPARE(shown(), (QStringList{QStringLiteral("B"), QStringLiteral("A")}));
    QCOMPARE(menu()->actions().last(), m_window->form.action_Clear_Menu);
    QCOMPARE(stored().toString(), QStringLiteral("B|A"));
    QCOMPARE(menu()->actions().first()->parent(), m_window->helper.get());
}

void tst_OvTarnpickHelper_recent::startsDisabledWithoutAList()
{
    QVERIFY(!menu()->isEnabled());
    QCOMPARE(shown(), QStringList());
    QVERIFY(!stored().isValid());
}

void tst_OvTarnpickHelper_recent::closedProjectMovesToTheFront()
{
    addProjects({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    store(QStringLiteral("A|B|C"));
    m_session->visitProject(QStringLiteral("B"));
    QCOMPARE(stored().toString(), QStringLiteral("B|A|C"));
    QCOMPARE(shown(), (QStringList{QStringLiteral("B"), QStringLiteral("A"), QStringLiteral("C")}));
}

void tst_OvTarnpickHelper_recent::keepsFiveNames()
{
    for (const char* name : {"P1", "P2", "P3", "P4", "P5", "P6"})
        m_session->visitProject(QString::fromLatin1(name));
    QCOMPARE(stored().toString(), QStringLiteral("P6|P5|P4|P3|P2"));
    QCOMPARE(shown().size(), 5);
    QCOMPARE(shown().first(), QStringLiteral("P6"));
}

void tst_OvTarnpickHelper_recent::dropsEmptyParts()
{
    addProjects({QStringLiteral("A"), QStringLiteral("B")});
    store(QStringLiteral("A||B"));
    m_session->visitProject(QStringLiteral("C"));
    QCOMPARE(stored().toString(), QStringLiteral("C|A|B"));
    QCOMPARE(shown(), (QStringList{QStringLiteral("C"), QStringLiteral("A"), QStringLiteral("B")}));
}

void tst_OvTarnpickHelper_recent::keepsNamesOfAnyScript()
{
    m_session->visitProject(QStringLiteral("塔里木"));
    // Not one word character: a name, but none that the list can keep.
    m_session->visitProject(QStringLiteral("--"));
    QCOMPARE(stored().toString(), QStringLiteral("塔里木"));
    QCOMPARE(shown(), QStringList{QStringLiteral("塔里木")});
}

void tst_OvTarnpickHelper_recent::aBarInANameCorruptsNothing()
{
    // The parts of the name are projects, too, and none of them has been visited last.
    addProjects({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    store(QStringLiteral("A|B|C"));
    const QString name = QStringLiteral("B|D|A");
    addProjects({QStringLiteral("D")});
    m_session->visitProject(name);
    QCOMPARE(shown(),
             (QStringList{name, QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
    QCOMPARE(stored().toString(), QStringLiteral("B\x1f"
                                                 "D\x1f"
                                                 "A|A|B|C"));
    m_session->visitProject(QStringLiteral("C"));
    m_session->visitProject(name);
    QCOMPARE(shown(),
             (QStringList{name, QStringLiteral("C"), QStringLiteral("A"), QStringLiteral("B")}));
    choose(name);
    QCOMPARE(OvProjectManager::instance().define().name, name);
    // Deleted, it leaves the others.
    OvProjectManager::instance().closeProject();
    QVERIFY(OvProjectDefineNode().removeProject(OvProjectDefineNode().projectByName(name)));
    m_session->visitProject(QStringLiteral("D"));
    QCOMPARE(stored().toString(), QStringLiteral("D|C|A|B"));
}

void tst_OvTarnpickHelper_recent::oddNamesAreOpenedFromTheMenu()
{
    const QStringList names = oddNames();
    for (const QString& name : names) {
        const OvProjectDefine define =
            ShellSession::addProject(name, m_session->makeFolder(QStringLiteral("测线 7")));
        QVERIFY(OvProjectManager::instance().openProject(define));
        OvProjectManager::instance().closeProject();
        QCOMPARE(shown().first(), name);
        menu()->actions().first()->trigger();
        QCOMPARE(OvProjectManager::instance().define().name, name);
        OvProjectManager::instance().closeProject();
    }
    QCOMPARE(shown().size(), 5);
    // However long a name is, the menu stays on the screen.
    menu()->popup(QPoint(10, 10));
    QVERIFY(menu()->width() <= QGuiApplication::primaryScreen()->size().width());
    menu()->hide();
}

void tst_OvTarnpickHelper_recent::openingWritesNothing()
{
    OvProjectManager::instance().openProject(m_session->addProject(QStringLiteral("A")));
    QVERIFY(!stored().isValid());
    OvProjectManager::instance().openProject(m_session->addProject(QStringLiteral("B")));
    QCOMPARE(stored().toString(), QStringLiteral("A"));
}

void tst_OvTarnpickHelper_recent::invalidOrNamelessRecordChangesNothing()
{
    addProjects({QStringLiteral("A")});
    store(QStringLiteral("A"));
    OvProjectDefine unstored;
    unstored.name = QStringLiteral("B");
    m_window->helper->slotProjectAboutToClose(unstored);
    OvProjectDefine nameless;
    nameless.id = 7;
    m_window->helper->slotProjectAboutToClose(nameless);
    QCOMPARE(stored().toString(), QStringLiteral("A"));
}

void tst_OvTarnpickHelper_recent::closingClearsTheBillBoard()
{
    OvProjectManager::instance().openProject(m_session->addProject(QStringLiteral("A")));
    auto* view = new TestView(QStringLiteral("V"));
    view->setProperty("SegyFile", QStringLiteral("a.sgy"));
    m_window->show(view);
    QVERIFY(m_window->billBoard()->isEnabled());
    OvProjectManager::instance().closeProject();
    QVERIFY(!m_window->billBoard()->isEnabled());
    QCOMPARE(m_window->billBoard()->segyFile(), QString());
}

void tst_OvTarnpickHelper_recent::deletedProjectsVanish()
{
    m_session->visitProject(QStringLiteral("A"));
    QCOMPARE(shown(), QStringList{QStringLiteral("A")});
    const auto projects = OvProjectDefineNode().projects();
    for (const OvProjectDefine& project : projects)
        QVERIFY(OvProjectDefineNode().removeProject(project));
    ModalProbe probe;
    probe.next([](QWidget* window) { qobject_cast<QDialog*>(window)->accept(); });
    m_window->helper->manageProjects();
    QVERIFY(probe.isDone());
    QVERIFY(!stored().isValid());
    QVERIFY(!menu()->isEnabled());
    QCOMPARE(shown(), QStringList());
}

void tst_OvTarnpickHelper_recent::clearEmptiesTheList()
{
    m_session->visitProject(QStringLiteral("A"));
    m_session->visitProject(QStringLiteral("B"));
    m_window->helper->clearRecentProjects();
    QVERIFY(!stored().isValid());
    QVERIFY(!menu()->isEnabled());
    QCOMPARE(shown(), QStringList());
    QCOMPARE(menu()->actions().size(), 2);
}

void tst_OvTarnpickHelper_recent::missingMenuKeepsTheList()
{
    m_session->visitProject(QStringLiteral("A"));
    QMainWindow bare;
    OvTarnpickHelper helper(&bare, nullptr);
    helper.clearRecentProjects();
    QCOMPARE(stored().toString(), QStringLiteral("A"));
    bare.menuBar()->addMenu(QStringLiteral("File"))->setObjectName(QStringLiteral("menu_File"));
    helper.clearRecentProjects();
    QCOMPARE(stored().toString(), QStringLiteral("A"));
}

void tst_OvTarnpickHelper_recent::choosingOpensTheProject()
{
    m_session->visitProject(QStringLiteral("A"));
    m_session->visitProject(QStringLiteral("B"));
    choose(QStringLiteral("A"));
    QCOMPARE(OvProjectManager::instance().define().name, QStringLiteral("A"));
    // Choosing while a project is open deletes the chosen entry with the rest of the menu.
    choose(QStringLiteral("B"));
    QCOMPARE(OvProjectManager::instance().define().name, QStringLiteral("B"));
    QCOMPARE(stored().toString(), QStringLiteral("A|B"));
}

void tst_OvTarnpickHelper_recent::tellsNamesApartByCase()
{
    m_session->visitProject(QStringLiteral("line"));
    m_session->visitProject(QStringLiteral("LINE"));
    QCOMPARE(stored().toString(), QStringLiteral("LINE|line"));
    choose(QStringLiteral("line"));
    QCOMPARE(OvProjectManager::instance().define().name, QStringLiteral("line"));
    choose(QStringLiteral("LINE"));
    QCOMPARE(OvProjectManager::instance().define().name, QStringLiteral("LINE"));
}

void tst_OvTarnpickHelper_recent::unknownNameOpensNothing()
{
    m_session->visitProject(QStringLiteral("A"));
    OvProjectDefineNode().removeProject(OvProjectDefineNode().projectByName(QStringLiteral("A")));
    choose(QStringLiteral("A"));
    QVERIFY(!OvProjectManager::instance().define().isValid());
    m_window->helper->slotRecentlyProject();
    QVERIFY(!OvProjectManager::instance().define().isValid());
}

void tst_OvTarnpickHelper_recent::missingFolderWarns()
{
    m_session->visitProject(QStringLiteral("A"));
    const OvProjectDefine define = OvProjectDefineNode().projectByName(QStringLiteral("A"));
    QVERIFY(QDir().rmdir(define.dataPath));
    ModalProbe probe;
    probe.nextBox(QMessageBox::Ok);
    choose(QStringLiteral("A"));
    QVERIFY(probe.isDone());
    const ModalProbe::Box& box = probe.boxes().front();
    QCOMPARE(box.title, QStringLiteral("Warning"));
    QCOMPARE(box.text,
             QStringLiteral("The data folder does not exist, the project cannot be opened."));
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, &m_window->window);
    QVERIFY(!OvProjectManager::instance().define().isValid());
    QCOMPARE(stored().toString(), QStringLiteral("A"));
}

QTEST_MAIN(tst_OvTarnpickHelper_recent)
#include "tst_OvTarnpickHelper_recent.moc"

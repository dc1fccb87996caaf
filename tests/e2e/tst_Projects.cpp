#include "WalkTest.h"

#include <QDir>
#include <QJsonArray>
#include <QtTest>

/// The life of projects on the built program, in both languages: made, opened, edited, deleted and
/// opened again from the recent ones, with mouse and keys, over two starts of the program.
class tst_Projects : public WalkTest
{
    Q_OBJECT

public:
    // Each language has a program of its own to itself.
    tst_Projects()
        : WalkTest(Steps::Alone)
    {
    }

private slots:
    void liveTheirLife_data();
    void liveTheirLife();

private:
    bool make(const QString& name);
    bool openManager(const char* action);
    QStringList listed();
    bool chooseRow(int row);
    bool waitForTitle(const QString& name);
    QString folderOf(const QString& name) const { return m_walker.home() + "/my data/" + name; }

    // The steps, in order; each with the projects of its language.
    void makesTwo();
    void opensByMouseAndKeys();
    void edits();
    void cancelledDeletionKeeps();
    void deletes();
    void opensRecentOnes();

    QString m_first;
    QString m_second;
};

bool tst_Projects::waitForTitle(const QString& name)
{
    return Walker::waitFor([&] {
        return m_walker.ask("window")["title"].toString() == name + " - " + folderOf(name);
    });
}

bool tst_Projects::make(const QString& name)
{
    QDir().mkpath(folderOf(name));
    return makeProject(name, folderOf(name)) && waitForTitle(name);
}

bool tst_Projects::openManager(const char* action)
{
    return m_walker.clickMenu({"menu_File", action}) &&
           m_walker.waitForDialog("OvProjectManageDlg");
}

QStringList tst_Projects::listed()
{
    QStringList names;
    for (int row = 0; row < 100; ++row) {
        const QJsonObject answer = m_walker.ask("row", "projectList", {{"row", row}});
        if (!answer["found"].toBool())
            break;
        names.append(answer["texts"].toArray().at(0).toString());
    }
    return names;
}

bool tst_Projects::chooseRow(int row)
{
    const QJsonObject answer = m_walker.ask("row", "projectList", {{"row", row}});
    const QString name = answer["texts"].toArray().at(0).toString();
    m_walker.click(Walker::rectOf(answer));
    return answer["found"].toBool() && waitForText("dataPath", folderOf(name));
}

void tst_Projects::makesTwo()
{
    QVERIFY(openProjectDialog());
    QVERIFY(!m_walker.ask("widget", "btnOk")["enabled"].toBool());
    m_walker.key("Escape");
    QVERIFY(m_walker.waitForNoDialog());
    QVERIFY(make(m_first));
    QVERIFY(make(m_second));
    // The name is taken now.
    QVERIFY(openProjectDialog());
    m_walker.type(m_second);
    QVERIFY(waitForText("txtProjectName", m_second));
    QVERIFY(!m_walker.ask("widget", "btnOk")["enabled"].toBool());
    QVERIFY(m_walker.clickWidget("btnCancel"));
    QVERIFY(m_walker.waitForNoDialog());
}

void tst_Projects::opensByMouseAndKeys()
{
    QVERIFY(openManager("action_Open_Project"));
    QCOMPARE(listed(), QStringList{m_first});
    m_walker.doubleClick(
        Walker::rectOf(m_walker.ask("row", "projectList", QJsonObject{{"row", 0}})));
    QVERIFY(m_walker.waitForNoDialog());
    QVERIFY(waitForTitle(m_first));
    m_walker.key("alt+f");
    m_walker.key("o");
    QVERIFY(m_walker.waitForDialog("OvProjectManageDlg"));
    QCOMPARE(listed(), QStringList{m_second});
    m_walker.key("Down");
    QVERIFY(waitForText("dataPath", folderOf(m_second)));
    m_walker.key("Return");
    QVERIFY(m_walker.waitForNoDialog());
    QVERIFY(waitForTitle(m_second));
}

void tst_Projects::edits()
{
    QVERIFY(openManager("action_Manage_Project"));
    QCOMPARE(listed(), QStringList{m_first});
    QVERIFY(chooseRow(0));
    QVERIFY(!m_walker.ask("widget", "btnUpdate")["enabled"].toBool());
    QVERIFY(m_walker.clickWidget("description"));
    m_walker.type("spring survey");
    QVERIFY(waitForText("description", "spring survey"));
    QVERIFY(m_walker.clickWidget("btnUpdate"));
    QTRY_VERIFY(!m_walker.ask("widget", "btnUpdate")["enabled"].toBool());
    m_walker.key("Escape");
    QVERIFY(m_walker.waitForNoDialog());
    // Updates are kept, also when the dialog is left without OK.
    QVERIFY(openManager("action_Manage_Project"));
    QVERIFY(chooseRow(0));
    QVERIFY(waitForText("description", "spring survey"));
    m_walker.key("Escape");
    QVERIFY(m_walker.waitForNoDialog());
}

void tst_Projects::cancelledDeletionKeeps()
{
    QVERIFY(openManager("action_Manage_Project"));
    QVERIFY(chooseRow(0));
    QVERIFY(m_walker.clickWidget("btnDelete"));
    QTRY_COMPARE(listed(), QStringList());
    QVERIFY(m_walker.clickWidget("btnCancel"));
    QVERIFY(m_walker.waitForNoDialog());
}

void tst_Projects::deletes()
{
    const QString third = m_first + " three";
    QVERIFY(make(third));
    QVERIFY(openManager("action_Manage_Project"));
    QCOMPARE(listed(), (QStringList{m_first, m_second}));
    QVERIFY(chooseRow(1));
    QVERIFY(m_walker.clickWidget("btnDelete"));
    QTRY_COMPARE(listed(), QStringList{m_first});
    QVERIFY(m_walker.clickWidget("btnOk"));
    QVERIFY(m_walker.waitForNoDialog());
    // It has gone from the recent ones as well, and the other one is still there.
    QVERIFY(!m_walker.ask("action", {}, {{"text", m_second}})["found"].toBool());
    QVERIFY(m_walker.ask("action", {}, {{"text", m_first}})["found"].toBool());
    QVERIFY(QDir(folderOf(m_second)).exists());
    QVERIFY(m_walker.clickMenu({"menu_File", "action_Close_Project"}));
    QTRY_COMPARE(m_walker.ask("window")["title"].toString(), QString("Maravel"));
}

void tst_Projects::opensRecentOnes()
{
    QVERIFY(m_walker.clickMenu({"menu_File", "menuRecently_Projects", '=' + m_first}));
    QVERIFY(waitForTitle(m_first));
    QVERIFY(m_walker.clickMenu({"menu_File", "menuRecently_Projects", '=' + m_first + " three"}));
    QVERIFY(waitForTitle(m_first + " three"));
}

void tst_Projects::liveTheirLife_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("newTitle");
    QTest::newRow("English") << "en"
                             << "New Project";
    QTest::newRow("Chinese") << "zh" << QString::fromUtf8("新建项目");
}

void tst_Projects::liveTheirLife()
{
    QFETCH(QString, language);
    QFETCH(QString, newTitle);
    m_first = "Alpha " + language;
    m_second = "Beta " + language;
    QDir(m_walker.home() + "/home").removeRecursively();
    QVERIFY(enter({"--lang", language}));
    QVERIFY(openProjectDialog());
    QCOMPARE(m_walker.ask("window")["modalTitle"].toString(), newTitle);
    m_walker.key("Escape");
    QVERIFY(m_walker.waitForNoDialog());
    using Step = void (tst_Projects::*)();
    for (const Step step : {&tst_Projects::makesTwo, &tst_Projects::opensByMouseAndKeys,
                            &tst_Projects::edits, &tst_Projects::cancelledDeletionKeeps,
                            &tst_Projects::deletes, &tst_Projects::opensRecentOnes}) {
        (this->*step)();
        if (QTest::currentTestFailed())
            return;
    }
    QVERIFY(leave());
    // A second start finds all of it.
    QVERIFY(enter({"--lang", language}));
    opensRecentOnes();
    if (QTest::currentTestFailed())
        return;
    QVERIFY(openManager("action_Manage_Project"));
    QVERIFY(chooseRow(0));
    QVERIFY(waitForText("description", "spring survey"));
    m_walker.key("Escape");
    QVERIFY(m_walker.waitForNoDialog());
    QVERIFY(leave());
}

QTEST_GUILESS_MAIN(tst_Projects)
#include "tst_Projects.moc"

#include "OvBase/OvProjectDefineNode.h"

#include "unit/OvBase/LoginFixture.h"

#include <QElapsedTimer>
#include <QSqlDatabase>
#include <QSqlQuery>

namespace {

OvProjectDefine record(const QString& name)
{
    OvProjectDefine define;
    define.name = name;
    define.userId = 4;
    define.dataPath = QStringLiteral("/data/测线 7 'a'");
    define.description = QStringLiteral("two\nlines & \"quotes\"");
    define.createTime = QDateTime::currentDateTime();
    return define;
}

int insert(const QString& name)
{
    return OvProjectDefineNode().insertProject(record(name));
}

QStringList names()
{
    QStringList list;
    const QList<OvProjectDefine> projects = OvProjectDefineNode().projects();
    for (const OvProjectDefine& define : projects)
        list.append(define.name);
    return list;
}

/// Virtual-machine steps would be the better measure, but the driver does not tell them.
qint64 lookUpNs(const QStringList& wanted)
{
    qint64 best = std::numeric_limits<qint64>::max();
    for (int repeat = 0; repeat < 5; ++repeat) {
        QElapsedTimer clock;
        clock.start();
        for (const QString& name : wanted)
            OvProjectDefineNode().projectByName(name);
        best = qMin(best, clock.nsecsElapsed());
    }
    return best;
}

/// Runs a statement behind the library's back.
bool runElsewhere(const QString& path, const QString& sql)
{
    bool done = false;
    {
        QSqlDatabase other =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("other"));
        other.setDatabaseName(path);
        QSqlQuery query(other.open() ? other : QSqlDatabase());
        done = query.exec(sql);
    }
    QSqlDatabase::removeDatabase(QStringLiteral("other"));
    return done;
}

bool addMany(const QString& path, int count)
{
    return runElsewhere(
        path, QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE "
                             "i < %1) INSERT INTO projects (name, user_id, data_path, description) "
                             "SELECT 'many ' || i, 1, '', '' FROM n")
                  .arg(count));
}

bool setTime(const QString& path, int id, const QString& text)
{
    return runElsewhere(
        path,
        QStringLiteral("UPDATE projects SET create_time = '%1' WHERE id = %2").arg(text).arg(id));
}

} // namespace

class tst_OvProjectDefineNode : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyFieldIsKept();
    void missingFieldsAreKept();
    void timesInOtherLayoutsAreRead();
    void namesAreUnique();
    void namesAreComparedExactly();
    void oddNames_data();
    void oddNames();
    void unknownNamesGiveADefaultRecord();
    void recordsComeInTheOrderOfTheirKeys();
    void keysAreNeverReused();
    void updates();
    void updatesRefuse();
    void removesOnce();
    void removingDropsTheValues();
    void notesTheOpening();
    void failsCleanlyBeforeLogin();
    void seesWhatAnotherProgramWrites();
    void lookUpAmongTenThousandIsCheap();

private:
    std::unique_ptr<LoginFixture> m_fixture;
};

void tst_OvProjectDefineNode::init()
{
    m_fixture = std::make_unique<LoginFixture>();
    QVERIFY2(m_fixture->login(), qPrintable(OvUserDefineNode::instance().lastError()));
}

void tst_OvProjectDefineNode::cleanup()
{
    const QString problems = m_fixture->warnings.problems();
    m_fixture.reset();
    QCOMPARE(problems, QString());
}

void tst_OvProjectDefineNode::everyFieldIsKept()
{
    OvProjectDefine define = record(QStringLiteral("Line 7"));
    define.openTime = QDateTime::currentDateTime().addSecs(-5);
    define.id = OvProjectDefineNode().insertProject(define);
    QVERIFY(define.id >= 0);
    QVERIFY(m_fixture->login());
    const OvProjectDefine found = OvProjectDefineNode().projectByName(define.name);
    QVERIFY(found.isValid());
    QCOMPARE(found.id, define.id);
    QCOMPARE(found.name, define.name);
    QCOMPARE(found.userId, define.userId);
    QCOMPARE(found.dataPath, define.dataPath);
    QCOMPARE(found.description, define.description);
    QCOMPARE(found.openTime, define.openTime);
    QCOMPARE(found.createTime, define.createTime);
    QCOMPARE(found.createTime.timeSpec(), Qt::LocalTime);
}

void tst_OvProjectDefineNode::missingFieldsAreKept()
{
    OvProjectDefine define;
    define.name = QStringLiteral("bare");
    QVERIFY(OvProjectDefineNode().insertProject(define) >= 0);
    const OvProjectDefine found = OvProjectDefineNode().projectByName(define.name);
    QVERIFY(found.isValid());
    QCOMPARE(found.userId, -1);
    QCOMPARE(found.dataPath, QString(QLatin1String("")));
    QVERIFY(!found.openTime.isValid());
    QVERIFY(!found.createTime.isValid());
}

// As written by hand or by another tool.
void tst_OvProjectDefineNode::timesInOtherLayoutsAreRead()
{
    QVERIFY(addMany(m_fixture->path(), 5));
    const QStringList texts{"2026-03-01T10:20:30.456Z", "2026-03-01T12:20:30.456+02:00",
                            "2026-03-01T10:20:30Z", "2026-03-01T10:20:61.456Z", "yesterday"};
    const QDateTime time(QDate(2026, 3, 1), QTime(10, 20, 30, 456), Qt::UTC);
    const QList<QDateTime> expected{time, time, time.addMSecs(-456), {}, {}};
    for (int i = 0; i < texts.size(); ++i)
        QVERIFY(setTime(m_fixture->path(), i + 1, texts.at(i)));
    const QList<OvProjectDefine> projects = OvProjectDefineNode().projects();
    for (int i = 0; i < texts.size(); ++i) {
        QCOMPARE(projects.at(i).createTime, expected.at(i));
        QCOMPARE(projects.at(i).createTime.timeSpec(), Qt::LocalTime);
    }
}

void tst_OvProjectDefineNode::namesAreUnique()
{
    QVERIFY(insert(QStringLiteral("a")) >= 0);
    QVERIFY(insert(QStringLiteral("a")) < 0);
    QVERIFY(insert(QString()) < 0);
    QVERIFY(insert(QLatin1String("")) < 0);
    QCOMPARE(names(), QStringList{QStringLiteral("a")});
}

void tst_OvProjectDefineNode::namesAreComparedExactly()
{
    const int lower = insert(QStringLiteral("line"));
    const int upper = insert(QStringLiteral("Line"));
    const int blank = insert(QStringLiteral("line "));
    QVERIFY(lower >= 0 && upper >= 0 && blank >= 0);
    QCOMPARE(OvProjectDefineNode().projectByName(QStringLiteral("line")).id, lower);
    QCOMPARE(OvProjectDefineNode().projectByName(QStringLiteral("Line")).id, upper);
    QCOMPARE(OvProjectDefineNode().projectByName(QStringLiteral("line ")).id, blank);
    QVERIFY(!OvProjectDefineNode().projectByName(QStringLiteral("LINE")).isValid());
}

void tst_OvProjectDefineNode::oddNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("quotes") << QStringLiteral("O'Brien's \"line\"; DROP TABLE projects; --");
    QTest::newRow("percent") << QStringLiteral("100%_%1");
    QTest::newRow("bar") << QStringLiteral("a|b||c");
    QTest::newRow("emoji") << QStringLiteral("🌋 line 👨‍👩‍👧");
    QTest::newRow("chinese") << QStringLiteral("塔里木 初至");
    QTest::newRow("blanks") << QStringLiteral("   ");
    QTest::newRow("number") << QStringLiteral("007");
    QTest::newRow("long") << QString(10000, QLatin1Char('x'));
    QTest::newRow("line feed") << QStringLiteral("a\nb");
    QTest::newRow("zero") << QString(QStringLiteral("a") + QChar(0) + QStringLiteral("b"));
}

void tst_OvProjectDefineNode::oddNames()
{
    QFETCH(QString, name);
    const int key = insert(name);
    QVERIFY(key >= 0);
    QCOMPARE(OvProjectDefineNode().projectByName(name).id, key);
    QCOMPARE(names(), QStringList{name});
    QVERIFY(insert(name) < 0);
}

void tst_OvProjectDefineNode::unknownNamesGiveADefaultRecord()
{
    const OvProjectDefine unknown = OvProjectDefineNode().projectByName(QStringLiteral("nobody"));
    QCOMPARE(unknown.id, -1);
    QCOMPARE(unknown.name, QString());
    QCOMPARE(unknown.dataPath, QString());
    QVERIFY(!OvProjectDefineNode().projectByName(QString()).isValid());
}

void tst_OvProjectDefineNode::recordsComeInTheOrderOfTheirKeys()
{
    QCOMPARE(names(), QStringList());
    for (const char* name : {"c", "a", "b"})
        QVERIFY(insert(QLatin1String(name)) >= 0);
    QCOMPARE(names().join(QString()), QStringLiteral("cab"));
}

void tst_OvProjectDefineNode::keysAreNeverReused()
{
    OvProjectDefine last;
    last.id = insert(QStringLiteral("a"));
    QVERIFY(OvProjectDefineNode().removeProject(last));
    QVERIFY(m_fixture->login());
    QVERIFY(insert(QStringLiteral("b")) > last.id);
}

void tst_OvProjectDefineNode::updates()
{
    OvProjectDefine define = record(QStringLiteral("a"));
    define.id = OvProjectDefineNode().insertProject(define);
    define.dataPath = QStringLiteral("/elsewhere");
    QVERIFY(OvProjectDefineNode().updateProject(define));
    QCOMPARE(OvProjectDefineNode().projectByName(QStringLiteral("a")).dataPath, define.dataPath);
    define.name = QStringLiteral("renamed");
    QVERIFY(OvProjectDefineNode().updateProject(define));
    QCOMPARE(names(), QStringList{define.name});
}

void tst_OvProjectDefineNode::updatesRefuse()
{
    OvProjectDefine define = record(QStringLiteral("a"));
    QVERIFY(!OvProjectDefineNode().updateProject(define));
    define.id = OvProjectDefineNode().insertProject(define);
    insert(QStringLiteral("b"));
    define.name = QStringLiteral("b");
    QVERIFY(!OvProjectDefineNode().updateProject(define));
    define.name = QString();
    QVERIFY(!OvProjectDefineNode().updateProject(define));
    define.name = QStringLiteral("c");
    define.id = 4711;
    QVERIFY(!OvProjectDefineNode().updateProject(define));
    QCOMPARE(names().join(QString()), QStringLiteral("ab"));
}

void tst_OvProjectDefineNode::removesOnce()
{
    OvProjectDefine define;
    define.id = insert(QStringLiteral("a"));
    QVERIFY(OvProjectDefineNode().removeProject(define));
    QVERIFY(!OvProjectDefineNode().removeProject(define));
    QVERIFY(!OvProjectDefineNode().removeProject(OvProjectDefine()));
    QCOMPARE(names(), QStringList());
}

void tst_OvProjectDefineNode::removingDropsTheValues()
{
    OvProjectDefine define;
    define.id = insert(QStringLiteral("a"));
    QVERIFY(OvBaseUtil::setProjectValue(define.id, QStringLiteral("k"), 1));
    QVERIFY(OvProjectDefineNode().removeProject(define));
    QVERIFY(!OvBaseUtil::projectValue(define.id, QStringLiteral("k")).isValid());
}

void tst_OvProjectDefineNode::notesTheOpening()
{
    OvProjectDefine define = record(QStringLiteral("a"));
    define.id = OvProjectDefineNode().insertProject(define);
    define.openTime = QDateTime::currentDateTime();
    define.description = QStringLiteral("not to be stored");
    QVERIFY(OvProjectDefineNode().noteOpened(define));
    const OvProjectDefine found = OvProjectDefineNode().projectByName(define.name);
    QCOMPARE(found.openTime, define.openTime);
    QCOMPARE(found.description, record(define.name).description);
}

void tst_OvProjectDefineNode::failsCleanlyBeforeLogin()
{
    OvProjectDefine define = record(QStringLiteral("a"));
    define.id = OvProjectDefineNode().insertProject(define);
    OvUserDefineNode::instance().logout();
    QVERIFY(insert(QStringLiteral("b")) < 0);
    QCOMPARE(names(), QStringList());
    QVERIFY(!OvProjectDefineNode().projectByName(define.name).isValid());
    QVERIFY(!OvProjectDefineNode().updateProject(define));
    QVERIFY(!OvProjectDefineNode().removeProject(define));
    QVERIFY(!OvProjectDefineNode().noteOpened(define));
}

void tst_OvProjectDefineNode::seesWhatAnotherProgramWrites()
{
    insert(QStringLiteral("a"));
    QCOMPARE(names().size(), 1);
    QVERIFY(addMany(m_fixture->path(), 3));
    QCOMPARE(names().size(), 4);
}

void tst_OvProjectDefineNode::lookUpAmongTenThousandIsCheap()
{
    QVERIFY(addMany(m_fixture->path(), 10));
    QStringList wanted;
    for (int i = 1; i <= 10; ++i)
        wanted.append(QStringLiteral("many %1").arg(i));
    const qint64 few = lookUpNs(wanted);
    QVERIFY(OvProjectDefineNode().removeProject(OvProjectDefineNode().projectByName(wanted.at(0))));
    for (const QString& name : qAsConst(wanted))
        OvProjectDefineNode().removeProject(OvProjectDefineNode().projectByName(name));
    QVERIFY(addMany(m_fixture->path(), 10000));
    QCOMPARE(names().size(), 10000);
    const qint64 many = lookUpNs(wanted);
    // A walk over the table would take several hundred times as long.
    QVERIFY2(many < 10 * few, qPrintable(QStringLiteral("%1 ns, %2 ns").arg(few).arg(many)));
}

QTEST_MAIN(tst_OvProjectDefineNode)
#include "tst_OvProjectDefineNode.moc"

#include "OvBase/private/OvDatabase.h"

#include "OvBase/OvProjectDefineNode.h"
#include "unit/OvBase/LoginFixture.h"

#include <QSqlDatabase>
#include <QSqlQuery>

#include <sys/mount.h>

namespace {

OvProjectDefine record(const QString& name)
{
    OvProjectDefine define;
    define.name = name;
    define.description = QString(2000, QLatin1Char('x'));
    return define;
}

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/// A disk of one megabyte, for an account that may mount one.
class SmallDisk
{
public:
    SmallDisk() { m_mounted = ::mount("tmpfs", place().constData(), "tmpfs", 0, "size=1m") == 0; }
    ~SmallDisk()
    {
        if (m_mounted)
            ::umount2(place().constData(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool isMounted() const { return m_mounted; }
    QString filePath(const QString& name) const { return m_folder.filePath(name); }
    /// Takes all room that is left.
    bool fill() const
    {
        QFile filler(filePath(QStringLiteral("filler")));
        if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return false;
        const QByteArray block(4096, 'x');
        while (filler.write(block) == block.size()) {
        }
        return filler.size() > 0;
    }
    bool free() const { return QFile::remove(filePath(QStringLiteral("filler"))); }

private:
    QByteArray place() const { return QFile::encodeName(m_folder.path()); }

    QTemporaryDir m_folder;
    bool m_mounted = false;
};

/// A second connection that holds the file for itself, as a rival program in a long write does.
class Rival
{
public:
    Rival(const QString& path, const QString& begin)
    {
        QSqlDatabase other =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("rival"));
        other.setDatabaseName(path);
        m_holds = other.open();
        for (const QString& sql : begin.split(QLatin1Char(';')))
            m_holds = m_holds && QSqlQuery(other).exec(sql);
    }
    ~Rival()
    {
        QSqlDatabase::database(QStringLiteral("rival")).close();
        QSqlDatabase::removeDatabase(QStringLiteral("rival"));
    }
    Rival(const Rival&) = delete;
    Rival& operator=(const Rival&) = delete;

    bool holds() const { return m_holds; }

private:
    bool m_holds = false;
};

} // namespace

/// What the disk and other programs do to the database, as the one who logs in is told of it.
class tst_OvDatabase_disk : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aFullDiskRefusesAProjectAndKeepsTheOthers();
    void aFullDiskRefusesTheLogin();
    void aFullDiskTakesNoNewDatabase();
    void aBusyFileIsNotCalledLocked();
    void aBusyFileRefusesTheLogin();

private:
    QString lastError() const { return OvUserDefineNode::instance().lastError(); }

    int m_patience = 0;
    std::unique_ptr<LoginFixture> m_fixture;
};

void tst_OvDatabase_disk::init()
{
    m_fixture = std::make_unique<LoginFixture>();
    m_patience = OvDatabase::patience();
}

void tst_OvDatabase_disk::cleanup()
{
    OvDatabase::setPatience(m_patience);
    const QString problems = m_fixture->warnings.problems();
    m_fixture.reset();
    QCOMPARE(problems, QString());
}

void tst_OvDatabase_disk::aFullDiskRefusesAProjectAndKeepsTheOthers()
{
    const SmallDisk disk;
    if (!disk.isMounted())
        QSKIP("this account cannot mount a small disk");
    const QString path = disk.filePath(QStringLiteral("Tarnpick.db"));
    OvProjectDefineNode node;
    QVERIFY(OvUserDefineNode::instance().login(path));
    QVERIFY(node.insertProject(record(QStringLiteral("before"))) >= 0);
    QVERIFY(disk.fill());
    // What room the log still has is used up first.
    int key = 0;
    int stored = 1;
    m_fixture->warnings.expect(QStringLiteral("the disk is full"));
    while (key >= 0 && stored < 1000) {
        key = node.insertProject(record(QString::number(stored)));
        stored += key >= 0;
    }
    QVERIFY(key < 0);
    m_fixture->warnings.expect(path);
    QVERIFY(!OvBaseUtil::setProjectValue(1, QStringLiteral("k"), QString(9000, QLatin1Char('v')))
                 .ok() &&
            node.insertProject(record(QStringLiteral("again"))) < 0);
    QCOMPARE(node.projects().size(), stored);
    QVERIFY(disk.free());
    QVERIFY(node.insertProject(record(QStringLiteral("after"))) >= 0);
    QVERIFY(OvUserDefineNode::instance().login(path));
    QCOMPARE(node.projects().size(), stored + 1);
    QVERIFY(node.projectByName(QStringLiteral("before")).isValid());
    OvUserDefineNode::instance().logout();
}

void tst_OvDatabase_disk::aFullDiskRefusesTheLogin()
{
    const SmallDisk disk;
    if (!disk.isMounted())
        QSKIP("this account cannot mount a small disk");
    const QString path = disk.filePath(QStringLiteral("Tarnpick.db"));
    QVERIFY(OvUserDefineNode::instance().login(path));
    QVERIFY(OvProjectDefineNode().insertProject(record(QStringLiteral("a"))) >= 0);
    OvUserDefineNode::instance().logout();
    const QByteArray before = contents(path);
    QVERIFY(disk.fill());
    m_fixture->warnings.expect(path);
    QVERIFY(!OvUserDefineNode::instance().login(path));
    QVERIFY2(lastError().contains(path) && lastError().contains(QStringLiteral("has room")) &&
                 !lastError().contains(QStringLiteral("damaged")),
             qPrintable(lastError()));
    QVERIFY(contents(path) == before);
    QVERIFY(disk.free());
    QVERIFY2(OvUserDefineNode::instance().login(path), qPrintable(lastError()));
    QVERIFY(OvProjectDefineNode().projectByName(QStringLiteral("a")).isValid());
    OvUserDefineNode::instance().logout();
}

void tst_OvDatabase_disk::aFullDiskTakesNoNewDatabase()
{
    const SmallDisk disk;
    if (!disk.isMounted())
        QSKIP("this account cannot mount a small disk");
    const QString path = disk.filePath(QStringLiteral("Tarnpick.db"));
    QVERIFY(disk.fill());
    m_fixture->warnings.expect(path);
    QVERIFY(!OvUserDefineNode::instance().login(path));
    QVERIFY2(lastError().contains(path), qPrintable(lastError()));
    QVERIFY(disk.free());
    QVERIFY2(OvUserDefineNode::instance().login(path), qPrintable(lastError()));
    OvUserDefineNode::instance().logout();
}

void tst_OvDatabase_disk::aBusyFileIsNotCalledLocked()
{
    OvDatabase::setPatience(50);
    QVERIFY(m_fixture->login());
    const Rival rival(m_fixture->path(), QStringLiteral("BEGIN IMMEDIATE"));
    QVERIFY(rival.holds());
    m_fixture->warnings.expect(QStringLiteral("another program is working on it"));
    QVERIFY(OvProjectDefineNode().insertProject(record(QStringLiteral("a"))) < 0);
    const OvStatus status = OvBaseUtil::setGlobalValue(QStringLiteral("k"), 1);
    QVERIFY(!status);
    QVERIFY2(status.message().contains(m_fixture->path()) &&
                 !status.message().contains(QStringLiteral("locked")),
             qPrintable(status.message()));
    // Reading goes on meanwhile.
    QCOMPARE(OvProjectDefineNode().projects().size(), 0);
}

void tst_OvDatabase_disk::aBusyFileRefusesTheLogin()
{
    OvDatabase::setPatience(50);
    QVERIFY(m_fixture->login());
    OvUserDefineNode::instance().logout();
    const Rival rival(m_fixture->path(), QStringLiteral("PRAGMA locking_mode = EXCLUSIVE;"
                                                        "BEGIN EXCLUSIVE"));
    QVERIFY(rival.holds());
    m_fixture->warnings.expect(m_fixture->path());
    QVERIFY(!m_fixture->login());
    QVERIFY2(lastError().contains(QStringLiteral("another program is working on it")) &&
                 !lastError().contains(QStringLiteral("locked")) &&
                 !lastError().contains(QStringLiteral("damaged")),
             qPrintable(lastError()));
}

QTEST_GUILESS_MAIN(tst_OvDatabase_disk)
#include "tst_OvDatabase_disk.moc"

#include "OvBase/private/OvDatabase.h"

#include "OvBase/private/OvSchema.h"
#include "unit/OvBase/LoginFixture.h"

#include <QProcess>

#include <csignal>
#include <iostream>

namespace {

const QString AddUser = QStringLiteral("INSERT INTO users (name) VALUES (?)");

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

bool fill(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// Runs sql with the database's own tool.
QString tool(const QString& path, const QString& sql)
{
    QProcess process;
    process.start(QStringLiteral("sqlite3"), {QStringLiteral("-bail"), path});
    process.write(sql.toUtf8() + ";\n");
    process.closeWriteChannel();
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError())
        .trimmed();
}

int users(const QString& path, const QString& like)
{
    return tool(path, QStringLiteral("SELECT count(*) FROM users WHERE name LIKE '%1'").arg(like))
        .toInt();
}

/// What a child process does: adds users until it is told to stop, and says so after each.
int writeUsers(const QString& path, const QString& prefix, int count)
{
    OvDatabase database;
    const OvStatus opened = database.open(path);
    if (!opened) {
        std::cerr << qPrintable(opened.message()) << std::endl;
        return 1;
    }
    for (int i = 0; i < count; ++i) {
        const OvStatus status = database.change(AddUser, {prefix + QString::number(i)});
        if (!status) {
            std::cerr << qPrintable(status.message()) << std::endl;
            return 1;
        }
        std::cout << i << std::endl;
    }
    return 0;
}

class Writer : public QProcess
{
public:
    Writer(const QString& path, const QString& prefix, int count)
    {
        start(QCoreApplication::applicationFilePath(),
              {QStringLiteral("--write"), path, prefix, QString::number(count)});
    }
    /// Reads until that many writes are acknowledged; returns how many were in the end.
    int acknowledged(int atLeast)
    {
        while (m_lines < atLeast && (bytesAvailable() > 0 || waitForReadyRead(30000)))
            m_lines += static_cast<int>(readAllStandardOutput().count('\n'));
        return m_lines;
    }

private:
    int m_lines = 0;
};

} // namespace

class tst_OvDatabase : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture = std::make_unique<LoginFixture>(); }
    void cleanup();

    void aMissingFileBecomesADatabase();
    void anEmptyFileBecomesADatabase();
    void anEmptyFileWithALogIsLeftAlone();
    void aMissingFolderIsReported();
    void theTemplateIsTheSameDatabase();
    void olderLayoutsAreMigrated_data();
    void olderLayoutsAreMigrated();
    void aFailingMigrationLeavesTheFile();
    void refusedFilesStayAsTheyAre_data();
    void refusedFilesStayAsTheyAre();
    void aReadOnlyFileIsRefused();
    void aJournalOfAKilledProgramIsTakenBack();
    void aFailedWriteIsTakenBack();
    void lookUpsUseTheIndex();
    void foreignKeysAreOn();
    void twoProgramsWriteAtTheSameTime();
    void aWriterWaitsForAnother();
    void acknowledgedWritesSurviveAKill();

private:
    QString path() const { return m_fixture->path(); }

    std::unique_ptr<LoginFixture> m_fixture;
};

void tst_OvDatabase::cleanup()
{
    const QString problems = m_fixture->warnings.problems();
    m_fixture.reset();
    QCOMPARE(problems, QString());
}

void tst_OvDatabase::aMissingFileBecomesADatabase()
{
    {
        OvDatabase database;
        QVERIFY(database.open(path()));
        QVERIFY(database.change(AddUser, {QStringLiteral("ann")}));
    }
    QCOMPARE(tool(path(), QStringLiteral("PRAGMA journal_mode")), QStringLiteral("wal"));
    QCOMPARE(tool(path(), QStringLiteral("PRAGMA user_version")).toInt(),
             OvSchema::latestVersion());
    QCOMPARE(users(path(), QStringLiteral("ann")), 1);
}

void tst_OvDatabase::anEmptyFileBecomesADatabase()
{
    QVERIFY(fill(path(), {}));
    OvDatabase database;
    QVERIFY(database.open(path()));
    QVERIFY(database.change(AddUser, {QStringLiteral("ann")}));
}

void tst_OvDatabase::anEmptyFileWithALogIsLeftAlone()
{
    QVERIFY(fill(path(), {}));
    QVERIFY(fill(path() + QStringLiteral("-wal"), "what was not yet in the file"));
    OvDatabase database;
    const OvStatus status = database.open(path());
    QVERIFY(!status);
    QVERIFY2(status.message().contains(path()), qPrintable(status.message()));
    QCOMPARE(contents(path() + QStringLiteral("-wal")), QByteArray("what was not yet in the file"));
}

void tst_OvDatabase::aMissingFolderIsReported()
{
    const QString lost = m_fixture->folder() + QStringLiteral("/not there/Tarnpick.db");
    OvDatabase database;
    const OvStatus status = database.open(lost);
    QVERIFY(!status);
    QVERIFY2(status.message().contains(lost), qPrintable(status.message()));
}

void tst_OvDatabase::theTemplateIsTheSameDatabase()
{
    const QString schema =
        QStringLiteral("SELECT name, sql FROM sqlite_master ORDER BY name; PRAGMA "
                       "user_version; PRAGMA application_id");
    const QString shipped =
        QFile::decodeName(qgetenv("TARNPICK_BUILD_DIR")) + QStringLiteral("/bin/Tarnpick.db");
    OvDatabase database;
    QVERIFY(database.open(path()));
    QVERIFY(tool(shipped, schema).contains(QStringLiteral("CREATE TABLE projects")));
    QCOMPARE(tool(shipped, schema), tool(path(), schema));
    QCOMPARE(tool(shipped, QStringLiteral("PRAGMA journal_mode")), QStringLiteral("delete"));
}

void tst_OvDatabase::olderLayoutsAreMigrated_data()
{
    QTest::addColumn<int>("version");
    for (int version = 0; version < OvSchema::latestVersion(); ++version)
        QTest::addRow("%d", version) << version;
}

void tst_OvDatabase::olderLayoutsAreMigrated()
{
    QFETCH(int, version);
    const QFileInfoList scripts =
        QDir(QStringLiteral(":/OvBase/schema")).entryInfoList({}, QDir::Files, QDir::Name);
    for (int i = 0; i < version; ++i)
        QCOMPARE(tool(path(), QString::fromUtf8(contents(scripts.at(i).filePath()))), QString());
    if (version > 0)
        tool(path(), QStringLiteral("INSERT INTO projects (name, user_id, data_path, description) "
                                    "VALUES ('old one', 1, '/d', '')"));
    OvDatabase database;
    const OvStatus status = database.open(path());
    QVERIFY2(status, qPrintable(status.message()));
    QCOMPARE(tool(path(), QStringLiteral("PRAGMA user_version")).toInt(),
             OvSchema::latestVersion());
    QCOMPARE(tool(path(), QStringLiteral("SELECT name, open_time IS NULL FROM projects")),
             version > 0 ? QStringLiteral("old one|1") : QString());
}

void tst_OvDatabase::aFailingMigrationLeavesTheFile()
{
    tool(path(), QStringLiteral("PRAGMA application_id = %1; CREATE TABLE projects (id, note); "
                                "CREATE TABLE users (id); "
                                "INSERT INTO projects VALUES (1, 'kept')")
                     .arg(OvSchema::ApplicationId));
    OvDatabase database;
    const OvStatus status = database.open(path());
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QStringLiteral("001_initial.sql")),
             qPrintable(status.message()));
    QCOMPARE(tool(path(), QStringLiteral("SELECT note FROM projects; PRAGMA user_version")),
             QStringLiteral("kept\n0"));
}

void tst_OvDatabase::refusedFilesStayAsTheyAre_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTemporaryDir folder;
    const QString sound = folder.filePath(QStringLiteral("sound.db"));
    {
        OvDatabase database;
        QVERIFY(database.open(sound));
        for (int i = 0; i < 500; ++i)
            QVERIFY(database.run(AddUser, {QStringLiteral("user %1").arg(i)})->ok());
    }
    const QByteArray bytes = contents(sound);
    QVERIFY(bytes.size() > 5 * 4096);
    QByteArray scribbled = bytes;
    scribbled.replace(2 * 4096, 2 * 4096, QByteArray(2 * 4096, '\x5a'));
    QByteArray badHeader = bytes;
    badHeader.replace(0, 16, "not a database..");
    tool(sound, QStringLiteral("PRAGMA user_version = 99"));
    const QByteArray newer = contents(sound);
    tool(sound, QStringLiteral("PRAGMA application_id = 7"));

    QTest::newRow("text") << QByteArray("hello, I am a letter") << "damaged";
    QTest::newRow("long text") << QByteArray(100000, 'x') << "damaged";
    QTest::newRow("cut off") << bytes.left(bytes.size() - 3 * 4096) << "damaged";
    QTest::newRow("cut in the header") << bytes.left(50) << "damaged";
    QTest::newRow("pages overwritten") << scribbled << "damaged";
    QTest::newRow("header overwritten") << badHeader << "damaged";
    QTest::newRow("newer") << newer << "newer version";
    QTest::newRow("another program's") << contents(sound) << "another program";
}

void tst_OvDatabase::refusedFilesStayAsTheyAre()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    QVERIFY(fill(path(), bytes));
    {
        OvDatabase database;
        const OvStatus status = database.open(path());
        QVERIFY(!status);
        QVERIFY2(status.message().contains(reason), qPrintable(status.message()));
        QVERIFY2(status.message().contains(path()), qPrintable(status.message()));
    }
    QVERIFY(contents(path()) == bytes);
}

void tst_OvDatabase::aReadOnlyFileIsRefused()
{
    {
        OvDatabase database;
        QVERIFY(database.open(path()));
    }
    const QByteArray before = contents(path());
    QVERIFY(QFile::setPermissions(path(), QFile::ReadOwner));
    OvDatabase database;
    const OvStatus status = database.open(path());
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QStringLiteral("read-only")), qPrintable(status.message()));
    QVERIFY(contents(path()) == before);
}

void tst_OvDatabase::aJournalOfAKilledProgramIsTakenBack()
{
    {
        OvDatabase database;
        QVERIFY(database.open(path()));
        QVERIFY(database.change(AddUser, {QStringLiteral("ann")}));
    }
    // A tiny page cache makes the tool write pages to the file before it commits; the copies are
    // what a kill at that moment leaves behind.
    const QString copy = m_fixture->folder() + QStringLiteral("/copy.db");
    const QString shell =
        QStringLiteral(".shell cp '%1' '%2'\n.shell cp '%1-journal' '%2-journal'\n")
            .arg(path(), copy);
    QProcess process;
    process.start(QStringLiteral("sqlite3"), {path()});
    process.write("PRAGMA journal_mode = DELETE; PRAGMA cache_size = 1; BEGIN;\n"
                  "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000) "
                  "INSERT INTO users (name) SELECT 'half ' || i FROM n;\n");
    process.write(shell.toUtf8() + "ROLLBACK;\n");
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QVERIFY(QFileInfo(copy + QStringLiteral("-journal")).size() > 0);
    OvDatabase database;
    const OvStatus status = database.open(copy);
    QVERIFY2(status, qPrintable(status.message()));
    QCOMPARE(users(copy, QStringLiteral("half%")), 0);
    QCOMPARE(users(copy, QStringLiteral("ann")), 1);
}

void tst_OvDatabase::aFailedWriteIsTakenBack()
{
    OvDatabase database;
    QVERIFY(database.open(path()));
    const OvStatus status = database.write([&] {
        database.run(AddUser, {QStringLiteral("half")});
        return OvStatus::failure(QStringLiteral("changed my mind"));
    });
    QCOMPARE(status.message(), QStringLiteral("changed my mind"));
    QCOMPARE(users(path(), QStringLiteral("half")), 0);
    QVERIFY(database.change(AddUser, {QStringLiteral("whole")}));
    QVERIFY(!database.change(AddUser, {QStringLiteral("whole")}));
    QCOMPARE(users(path(), QStringLiteral("whole")), 1);
}

void tst_OvDatabase::lookUpsUseTheIndex()
{
    OvDatabase database;
    QVERIFY(database.open(path()));
    const auto plan = database.run(
        QStringLiteral("EXPLAIN QUERY PLAN SELECT * FROM projects WHERE name = ?"), {1});
    QVERIFY(plan->next());
    const QString step = plan->value(3).toString();
    QVERIFY2(step.contains(QStringLiteral("USING INDEX")), qPrintable(step));
}

void tst_OvDatabase::foreignKeysAreOn()
{
    OvDatabase database;
    QVERIFY(database.open(path()));
    QVERIFY(
        !database.change(QStringLiteral("INSERT INTO project_values VALUES (77, 'k', 'v')"), {}));
}

void tst_OvDatabase::twoProgramsWriteAtTheSameTime()
{
    constexpr int Count = 200;
    // Nobody has made the file yet, so that the two also meet while they create it.
    Writer first(path(), QStringLiteral("first "), Count);
    Writer second(path(), QStringLiteral("second "), Count);
    for (Writer* writer : {&first, &second}) {
        QVERIFY(writer->waitForFinished(60000));
        QCOMPARE(QString::fromUtf8(writer->readAllStandardError()), QString());
        QCOMPARE(writer->exitCode(), 0);
    }
    QCOMPARE(users(path(), QStringLiteral("first %")), Count);
    QCOMPARE(users(path(), QStringLiteral("second %")), Count);
}

void tst_OvDatabase::aWriterWaitsForAnother()
{
    OvDatabase database;
    QVERIFY(database.open(path()));
    Writer other(path(), QStringLiteral("other "), 1);
    const OvStatus status = database.write([&] {
        // The other one cannot finish while this transaction lasts.
        return other.waitForFinished(700) ? OvStatus::failure(QStringLiteral("it did not wait"))
                                          : OvStatus::success();
    });
    QVERIFY2(status, qPrintable(status.message()));
    QVERIFY(other.waitForFinished(30000));
    QCOMPARE(other.exitCode(), 0);
    QCOMPARE(users(path(), QStringLiteral("other %")), 1);
}

void tst_OvDatabase::acknowledgedWritesSurviveAKill()
{
    for (int round = 0; round < 100; ++round) {
        const QString prefix = QStringLiteral("round %1 number ").arg(round);
        Writer writer(path(), prefix, 100000);
        const int acknowledged = writer.acknowledged(1 + round % 7);
        QVERIFY2(acknowledged > 0, writer.readAllStandardError().constData());
        ::kill(static_cast<pid_t>(writer.processId()), SIGKILL);
        writer.waitForFinished();
        QVERIFY(users(path(), prefix + QLatin1Char('%')) >= acknowledged);
    }
    QCOMPARE(tool(path(), QStringLiteral("PRAGMA integrity_check")), QStringLiteral("ok"));
    OvDatabase database;
    QVERIFY(database.open(path()));
}

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() == 5 && arguments.at(1) == QLatin1String("--write"))
        return writeUsers(arguments.at(2), arguments.at(3), arguments.at(4).toInt());
    tst_OvDatabase test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_OvDatabase.moc"

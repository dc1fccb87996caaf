#include "OvSeismic/firstbreak/OvFirstBreakFile.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

#include <cstdio>
#include <numeric>
#include <random>

namespace {

constexpr int traceCount = 48;

OvSegyFileInfo segyInfo()
{
    OvSegyFileInfo info;
    info.path = QStringLiteral("/data/line.sgy");
    info.traceCount = 100000000;
    return info;
}

std::vector<qint64> tracesOf(qint32 record)
{
    std::vector<qint64> traces(traceCount, 0);
    std::iota(traces.begin(), traces.end(), qint64(record) * traceCount);
    return traces;
}

OvFirstBreaks breaksOf(qint32 record)
{
    OvFirstBreaks breaks;
    breaks.resize(traceCount);
    breaks.timesMs.assign(traceCount, float(record));
    breaks.states.assign(traceCount, OvPickState::Manual);
    return breaks;
}

/// The child: writes one row after another and says so once each write has returned.
int writeUntilKilled(const QString& path, qint32 first)
{
    OvFirstBreakFile file;
    if (!file.open(path, segyInfo()))
        return 1;
    for (qint32 record = first;; ++record) {
        if (!file.write(tracesOf(record), breaksOf(record)))
            return 2;
        std::printf("%d\n", record);
        std::fflush(stdout);
    }
}

} // namespace

/// The child: writes one row and leaves.
int writeOnce(const QString& path, qint32 record)
{
    OvFirstBreakFile file;
    const bool done = file.open(path, segyInfo()) && file.write(tracesOf(record), breaksOf(record));
    return done ? 0 : 1;
}

/// A program that is killed while it saves loses at most the edit in flight.
class tst_OvFirstBreakCrash : public QObject
{
    Q_OBJECT

private slots:
    void everyWriteThatReturnedIsThere();
    void killedWhileCreating();
    void anotherProgramComesAndGoes();

private:
    static QString integrity(const QString& path);
};

QString tst_OvFirstBreakCrash::integrity(const QString& path)
{
    QString verdict;
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("check"));
        database.setDatabaseName(path);
        QSqlQuery query(database.open() ? database : QSqlDatabase());
        if (query.exec(QStringLiteral("PRAGMA integrity_check")) && query.next())
            verdict = query.value(0).toString();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("check"));
    return verdict;
}

void tst_OvFirstBreakCrash::everyWriteThatReturnedIsThere()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line.sgy.fb"));
    std::mt19937 random(7);
    qint32 first = 1;
    for (int round = 0; round < 25; ++round) {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--write"), path, QString::number(first)});
        QVERIFY(child.waitForReadyRead(20000));
        // Not a wait for anything: the kill has to fall at any moment of a write.
        QTest::qWait(int(random() % 30));
        child.kill();
        QVERIFY(child.waitForFinished(20000));
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
        const QList<QByteArray> said = child.readAllStandardOutput().trimmed().split('\n');
        const qint32 last = said.last().toInt();
        QVERIFY(last >= first);
        OvFirstBreakFile file;
        const OvStatus status = file.open(path, segyInfo());
        QVERIFY2(status, qPrintable(status.message()));
        for (qint32 record = first; record <= last; ++record) {
            OvFirstBreaks read;
            QVERIFY(file.read(tracesOf(record), &read));
            QCOMPARE(read.timesMs, breaksOf(record).timesMs);
        }
        // The edit in flight may have come through as well, but whole.
        OvFirstBreaks next;
        QVERIFY(file.read(tracesOf(last + 1), &next));
        QVERIFY(next.isEmpty() || next.timesMs == breaksOf(last + 1).timesMs);
        OvFirstBreaks after;
        QVERIFY(file.read(tracesOf(last + 2), &after));
        QVERIFY(after.isEmpty());
        file.close();
        QCOMPARE(integrity(path), QStringLiteral("ok"));
        first = last + 1;
    }
}

void tst_OvFirstBreakCrash::killedWhileCreating()
{
    std::mt19937 random(11);
    for (int round = 0; round < 15; ++round) {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("line.sgy.fb"));
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--write"), path, QStringLiteral("1")});
        QVERIFY(child.waitForStarted(20000));
        QTest::qWait(int(random() % 60));
        child.kill();
        QVERIFY(child.waitForFinished(20000));
        OvFirstBreakFile file;
        const OvStatus status = file.open(path, segyInfo());
        QVERIFY2(status, qPrintable(status.message()));
        QVERIFY(file.write(tracesOf(1000000), breaksOf(1)));
    }
}

// Closing a file drops all locks that the process has on it, those of its other connections too;
// another program would then take itself for the last one, and tidy up under our feet.
void tst_OvFirstBreakCrash::anotherProgramComesAndGoes()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("line.sgy.fb"));
    OvFirstBreakFile stays;
    QVERIFY(stays.open(path, segyInfo()));
    for (qint32 round = 0; round < 10; ++round) {
        QVERIFY(stays.write(tracesOf(3 * round), breaksOf(3 * round)));
        {
            OvFirstBreakFile job;
            QVERIFY(job.open(path, segyInfo()));
            QVERIFY(job.write(tracesOf(3 * round + 1), breaksOf(3 * round + 1)));
        }
        const QStringList arguments = {QStringLiteral("--once"), path,
                                       QString::number(3 * round + 2)};
        QCOMPARE(QProcess::execute(QCoreApplication::applicationFilePath(), arguments), 0);
        for (qint32 record = 0; record < 3 * round + 3; ++record) {
            OvFirstBreaks read;
            const OvStatus status = stays.read(tracesOf(record), &read);
            QVERIFY2(status, qPrintable(status.message()));
            QCOMPARE(read.timesMs, breaksOf(record).timesMs);
        }
        QVERIFY2(QFileInfo::exists(path + QStringLiteral("-wal")),
                 "the other program has taken the log away");
    }
    stays.close();
    QCOMPARE(integrity(path), QStringLiteral("ok"));
}

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--write"))
        return writeUntilKilled(arguments.value(2), arguments.value(3).toInt());
    if (arguments.value(1) == QLatin1String("--once"))
        return writeOnce(arguments.value(2), arguments.value(3).toInt());
    tst_OvFirstBreakCrash test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_OvFirstBreakCrash.moc"

#include "OvSeismic/firstbreak/OvFirstBreakFile.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

#include <numeric>
#include <random>
#include <thread>

namespace {

OvSegyFileInfo segyInfo(const QString& path, qint64 traces)
{
    OvSegyFileInfo info;
    info.path = path;
    info.traceCount = traces;
    info.fileSize = 3600 + traces * 640;
    return info;
}

OvFirstBreaks someBreaks(int traces, float start)
{
    OvFirstBreaks breaks;
    breaks.resize(traces);
    for (std::size_t i = 0; i < breaks.timesMs.size(); i += 2) {
        breaks.timesMs[i] = start + static_cast<float>(i) * 0.123F;
        breaks.states[i] = OvPickState(1 + i % 3);
        breaks.confidences[i] = 0.5F;
    }
    return breaks;
}

std::vector<qint64> traces(qint64 first, int count)
{
    std::vector<qint64> all(std::size_t(count), 0);
    std::iota(all.begin(), all.end(), first);
    return all;
}

bool same(float a, float b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool same(const OvFirstBreaks& a, const OvFirstBreaks& b)
{
    const auto floats = [](const std::vector<float>& x, const std::vector<float>& y) {
        return std::equal(x.begin(), x.end(), y.begin(), y.end(),
                          [](float left, float right) { return same(left, right); });
    };
    return floats(a.timesMs, b.timesMs) && a.states == b.states &&
           floats(a.confidences, b.confidences);
}

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Runs statements on a file with a connection of its own.
void tamper(const QString& path, const QStringList& statements)
{
    const QString name = QStringLiteral("tamper");
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        database.setDatabaseName(path);
        QVERIFY(database.open());
        for (const QString& statement : statements) {
            QSqlQuery query(database);
            QVERIFY2(query.exec(statement), qPrintable(statement));
        }
    }
    QSqlDatabase::removeDatabase(name);
}

} // namespace

class tst_OvFirstBreakFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void createsCompleteFile();
    void roundTrip();
    void tracesInAnyOrder();
    void aWriteLeavesTheOtherTraces();
    void tracesThatAreNotThereAreRefused();
    void severalUpdatesAllOrNone();
    void keepsManualPicksUnderTheWriteLock();
    void tellsWhatAWriteHasReplaced();
    void remembersHowFarARunHasCome();
    void tellsOfWritesByOthers();
    void reopenKeepsEverything();
    void damagedRowIsRefused_data();
    void damagedRowIsRefused();
    void refusesUnfitFiles_data();
    void refusesUnfitFiles();
    void refusesDamagedPages();
    void refusesFileOfAnotherSegy();
    void keepsItsPicksWhenTheSegyGrows();
    void refusesNewerSchemaThatIsOnlyInTheLog();
    void emptyAndDirectoryPathsFail();
    void closedFileRefuses();
    void removedWhileOpen();
    void twoOpenAtOnce();
    void createdByTwoAtOnce();
    void pathBesideWritableFolder();
    void pathFallsBackWithoutCollision();
    void oddPathNames_data();
    void oddPathNames();
    void readOnlyFileIsReadable();

private:
    QString path(const char* name = "line.sgy.fb") const
    {
        return m_folder->filePath(QLatin1String(name));
    }
    OvStatus open(OvFirstBreakFile* file, qint64 traces = 1000) const
    {
        return file->open(path(), segyInfo(m_folder->filePath(QStringLiteral("line.sgy")), traces));
    }
    void makeFile() const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_OvFirstBreakFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_OvFirstBreakFile::makeFile() const
{
    OvFirstBreakFile file;
    const OvStatus status = open(&file);
    QVERIFY2(status, qPrintable(status.message()));
    QVERIFY(file.write(traces(250, 10), someBreaks(10, 5.0F)));
}

void tst_OvFirstBreakFile::createsCompleteFile()
{
    OvFirstBreakFile file;
    const OvStatus status = open(&file);
    QVERIFY2(status, qPrintable(status.message()));
    QVERIFY(file.isOpen());
    QCOMPARE(file.path(), path());
    QVERIFY(file.blocks().empty());
    file.close();
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden),
             QStringList{QStringLiteral("line.sgy.fb")});
    QVERIFY(content(path()).startsWith("SQLite format 3"));
}

void tst_OvFirstBreakFile::roundTrip()
{
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    const OvFirstBreaks written = someBreaks(10, 12.5F);
    QVERIFY(file.write(traces(500, 10), written));
    QVERIFY(file.write(traces(0, 3), someBreaks(3, 1.0F)));
    QCOMPARE(file.blocks(), (std::vector<qint64>{0, 1}));
    OvFirstBreaks read;
    QVERIFY(file.read(traces(500, 10), &read));
    QVERIFY(same(read, written));
    QVERIFY(!read.hasPick(1));
    QVERIFY(file.read(traces(600, 10), &read));
    QVERIFY(read.isEmpty());
    QVERIFY(file.read({}, &read));
    QVERIFY(read.isEmpty());
}

void tst_OvFirstBreakFile::tracesInAnyOrder()
{
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    std::vector<qint64> all = traces(0, 1000);
    std::mt19937 random(3);
    std::shuffle(all.begin(), all.end(), random);
    OvFirstBreaks breaks;
    breaks.resize(1000);
    for (std::size_t i = 0; i < all.size(); ++i)
        breaks.timesMs[i] = float(all[i]);
    breaks.states.assign(1000, OvPickState::Automatic);
    QVERIFY(file.write(all, breaks));
    QCOMPARE(file.blocks(), (std::vector<qint64>{0, 1, 2, 3}));
    // A receiver gather: every tenth trace, from the end.
    std::vector<qint64> some;
    for (qint64 trace = 999; trace >= 0; trace -= 10)
        some.push_back(trace);
    OvFirstBreaks read;
    QVERIFY(file.read(some, &read));
    QCOMPARE(read.size(), 100);
    for (std::size_t i = 0; i < some.size(); ++i)
        QCOMPARE(read.timesMs[i], float(some[i]));
}

void tst_OvFirstBreakFile::aWriteLeavesTheOtherTraces()
{
    makeFile();
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    QVERIFY(file.write({255, 257}, someBreaks(2, 99.0F)));
    OvFirstBreaks read;
    QVERIFY(file.read(traces(250, 10), &read));
    OvFirstBreaks expected = someBreaks(10, 5.0F);
    expected.timesMs[5] = 99.0F;
    expected.states[5] = OvPickState::Automatic;
    expected.confidences[5] = 0.5F;
    QVERIFY(same(read, expected));
}

void tst_OvFirstBreakFile::tracesThatAreNotThereAreRefused()
{
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    for (const qint64 first : {qint64(-1), qint64(995)}) {
        const OvStatus status = file.write(traces(first, 10), someBreaks(10, 1.0F));
        QVERIFY(!status);
        QVERIFY2(status.message().contains(QStringLiteral("1000")), qPrintable(status.message()));
    }
    QVERIFY(!file.write(traces(0, 11), someBreaks(10, 1.0F)));
    QVERIFY(file.blocks().empty());
}

void tst_OvFirstBreakFile::severalUpdatesAllOrNone()
{
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    std::vector<OvFirstBreakUpdate> updates(2);
    updates[0].traces = traces(0, 10);
    updates[0].breaks = someBreaks(10, 1.0F);
    updates[1].traces = traces(300, 10);
    updates[1].breaks = someBreaks(10, 2.0F);
    updates[1].breaks.states.pop_back();
    QVERIFY(!file.write(&updates));
    QVERIFY(file.blocks().empty());
    updates[1].breaks = someBreaks(10, 2.0F);
    QVERIFY(file.write(&updates));
    QCOMPARE(file.blocks().size(), std::size_t(2));
}

void tst_OvFirstBreakFile::keepsManualPicksUnderTheWriteLock()
{
    OvFirstBreakFile byHand;
    OvFirstBreakFile job;
    QVERIFY(open(&byHand));
    QVERIFY(open(&job));
    std::vector<OvFirstBreakUpdate> updates(1);
    updates[0].traces = traces(0, 4);
    updates[0].breaks.resize(4);
    updates[0].breaks.timesMs.assign(4, 50.0F);
    updates[0].breaks.states.assign(4, OvPickState::Automatic);
    updates[0].keepManual = true;
    // After the job has made up its mind, and before it stores.
    OvFirstBreaks manual;
    manual.resize(1);
    manual.timesMs[0] = 77.0F;
    manual.states[0] = OvPickState::Manual;
    QVERIFY(byHand.write({2}, manual));
    QVERIFY(job.write(&updates));
    QCOMPARE(updates[0].breaks.timesMs[2], 77.0F);
    QCOMPARE(updates[0].breaks.states[2], OvPickState::Manual);
    OvFirstBreaks read;
    QVERIFY(byHand.read(traces(0, 4), &read));
    QVERIFY(same(read, updates[0].breaks));
    QCOMPARE(read.timesMs[3], 50.0F);
    // Unless told.
    updates[0].keepManual = false;
    updates[0].breaks.states.assign(4, OvPickState::Automatic);
    QVERIFY(job.write(&updates));
    QVERIFY(byHand.read({2}, &read));
    QCOMPARE(read.states[0], OvPickState::Automatic);
}

void tst_OvFirstBreakFile::tellsWhatAWriteHasReplaced()
{
    OvFirstBreakFile byHand;
    OvFirstBreakFile job;
    QVERIFY(open(&byHand));
    QVERIFY(open(&job));
    QVERIFY(job.write(traces(0, 10), someBreaks(10, 1.0F)));
    std::vector<OvFirstBreakUpdate> updates(3);
    updates[0].traces = traces(0, 10);
    updates[0].breaks = someBreaks(10, 2.0F);
    updates[0].wantsBefore = true;
    updates[1] = updates[0]; // the same traces once more
    updates[1].breaks = someBreaks(10, 3.0F);
    updates[2].traces = traces(300, 10);
    updates[2].breaks = someBreaks(10, 4.0F);
    // After the job has made up its mind, and before it stores.
    const OvFirstBreaks manual = someBreaks(4, 77.0F);
    QVERIFY(byHand.write(traces(3, 4), manual));
    OvFirstBreaks present;
    QVERIFY(byHand.read(traces(0, 10), &present));
    QVERIFY(!same(present, someBreaks(10, 1.0F)));
    QVERIFY(job.write(&updates));
    QVERIFY(same(updates[0].before, present));
    QVERIFY(same(updates[1].before, updates[0].breaks));
    QVERIFY(updates[2].before.isEmpty());
}

void tst_OvFirstBreakFile::remembersHowFarARunHasCome()
{
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    OvFirstBreakRun run;
    QVERIFY(file.readRun(&run));
    QVERIFY(!run.exists());
    QVERIFY(file.beginRun(QStringLiteral("a=1"), 5));
    std::vector<OvFirstBreakUpdate> updates(2);
    for (int i = 0; i < 2; ++i) {
        updates[std::size_t(i)].traces = traces(10 * i, 10);
        updates[std::size_t(i)].breaks = someBreaks(10, 1.0F);
        updates[std::size_t(i)].doneGather = 3 - i;
    }
    QVERIFY(file.write(&updates));
    file.close();
    QVERIFY(open(&file));
    QVERIFY(file.readRun(&run));
    QCOMPARE(run.settings, QStringLiteral("a=1"));
    QCOMPARE(run.done, (std::vector<int>{2, 3}));
    QCOMPARE(run.left(), 3);
    QVERIFY(file.beginRun(QStringLiteral("a=2"), 5));
    QVERIFY(file.readRun(&run));
    QVERIFY(run.done.empty());
    QVERIFY(file.endRun());
    QVERIFY(file.readRun(&run));
    QVERIFY(!run.exists());
}

void tst_OvFirstBreakFile::tellsOfWritesByOthers()
{
    OvFirstBreakFile mine;
    OvFirstBreakFile other;
    QVERIFY(open(&mine));
    QVERIFY(open(&other));
    const qint64 before = mine.dataVersion();
    QVERIFY(mine.write({1}, someBreaks(1, 1.0F)));
    QCOMPARE(mine.dataVersion(), before);
    QVERIFY(other.write({1}, someBreaks(1, 2.0F)));
    QVERIFY(mine.dataVersion() != before);
}

void tst_OvFirstBreakFile::reopenKeepsEverything()
{
    makeFile();
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    OvFirstBreaks read;
    QVERIFY(file.read(traces(250, 10), &read));
    QVERIFY(same(read, someBreaks(10, 5.0F)));
}

void tst_OvFirstBreakFile::damagedRowIsRefused_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("short times") << QStringLiteral("UPDATE trace_block SET times = x'00'");
    QTest::newRow("long states") << QStringLiteral("UPDATE trace_block SET states = zeroblob(257)");
    QTest::newRow("unknown state")
        << QStringLiteral("UPDATE trace_block SET states = zeroblob(255) || x'09'");
    QTest::newRow("no confidences") << QStringLiteral("UPDATE trace_block SET confidences = x''");
    QTest::newRow("negative count") << QStringLiteral("UPDATE trace_block SET trace_count = -1");
}

void tst_OvFirstBreakFile::damagedRowIsRefused()
{
    QFETCH(QString, statement);
    makeFile();
    tamper(path(), {statement});
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    OvFirstBreaks read;
    QVERIFY(!file.read(traces(250, 10), &read));
    QVERIFY(read.isEmpty());
}

void tst_OvFirstBreakFile::refusesUnfitFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("statements");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QByteArray() << QStringList() << "it is empty";
    QTest::newRow("one byte") << QByteArray("x") << QStringList() << "not a first-break file";
    QTest::newRow("text") << QByteArray(5000, 'x') << QStringList() << "not a first-break file";
    QTest::newRow("other database")
        << QByteArray() << QStringList{QStringLiteral("CREATE TABLE a(b)")}
        << "not a first-break file";
    QTest::newRow("newer schema") << QByteArray("old")
                                  << QStringList{QStringLiteral("PRAGMA user_version = 99")}
                                  << "newer version";
    QTest::newRow("no meta table")
        << QByteArray("old") << QStringList{QStringLiteral("DROP TABLE meta")} << "damaged";
    QTest::newRow("no table of picks")
        << QByteArray("old") << QStringList{QStringLiteral("DROP TABLE trace_block")} << "damaged";
}

void tst_OvFirstBreakFile::refusesUnfitFiles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, statements);
    QFETCH(QString, reason);
    if (bytes == "old") {
        makeFile();
    } else {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    if (!statements.isEmpty())
        tamper(path(), statements);
    const QByteArray before = content(path());
    OvFirstBreakFile file;
    const OvStatus status = open(&file);
    QVERIFY(!status);
    QVERIFY(!file.isOpen());
    QVERIFY2(status.message().contains(reason), qPrintable(status.message()));
    QVERIFY2(status.message().contains(QStringLiteral("line.sgy.fb")),
             qPrintable(status.message()));
    QCOMPARE(content(path()), before);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

void tst_OvFirstBreakFile::refusesDamagedPages()
{
    {
        OvFirstBreakFile file;
        QVERIFY(open(&file, 20000));
        for (qint32 record = 0; record < 200; ++record)
            QVERIFY(file.write(traces(record * 100, 100), someBreaks(100, 1.0F)));
    }
    const QByteArray whole = content(path());
    QByteArray damaged = whole;
    damaged.replace(4096, whole.size() / 2 - 4096, QByteArray(whole.size() / 2 - 4096, '\x55'));
    for (const QByteArray& bytes : {whole.left(whole.size() / 2), whole.left(100), damaged}) {
        {
            QFile raw(path());
            QVERIFY(raw.open(QIODevice::WriteOnly | QIODevice::Truncate));
            raw.write(bytes);
        }
        OvFirstBreakFile file;
        const OvStatus status = open(&file, 20000);
        QVERIFY(!status);
        QVERIFY2(status.message().contains(QStringLiteral("damaged")),
                 qPrintable(status.message()));
        QCOMPARE(content(path()), bytes);
    }
}

void tst_OvFirstBreakFile::refusesFileOfAnotherSegy()
{
    makeFile();
    const QByteArray before = content(path());
    OvFirstBreakFile file;
    const OvStatus status = open(&file, 11);
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QStringLiteral("line.sgy with 1000 traces")),
             qPrintable(status.message()));
    QCOMPARE(content(path()), before);
}

void tst_OvFirstBreakFile::keepsItsPicksWhenTheSegyGrows()
{
    {
        OvFirstBreakFile file;
        QVERIFY(open(&file));
        QVERIFY(file.write(traces(990, 10), someBreaks(10, 5.0F)));
        QVERIFY(file.beginRun(QStringLiteral("a=1"), 5));
    }
    OvFirstBreakFile grown;
    const OvStatus status = open(&grown, 1005);
    QVERIFY2(status, qPrintable(status.message()));
    OvFirstBreaks read;
    QVERIFY(grown.read(traces(990, 10), &read));
    QVERIFY(same(read, someBreaks(10, 5.0F)));
    QVERIFY(grown.write(traces(1000, 5), someBreaks(5, 9.0F)));
    QVERIFY(grown.read(traces(990, 15), &read));
    QCOMPARE(read.pickedCount(),
             someBreaks(10, 5.0F).pickedCount() + someBreaks(5, 9.0F).pickedCount());
    // Its last gather may have changed.
    OvFirstBreakRun run;
    QVERIFY(grown.readRun(&run));
    QVERIFY(!run.exists());
    grown.close();
    QVERIFY(!open(&grown, 1000));
    // As many traces more, but by another name.
    QVERIFY(!grown.open(path(), segyInfo(m_folder->filePath(QStringLiteral("b.sgy")), 2000)));
}

void tst_OvFirstBreakFile::refusesNewerSchemaThatIsOnlyInTheLog()
{
    makeFile();
    QSqlDatabase newer =
        QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("newer"));
    newer.setDatabaseName(path());
    QVERIFY(newer.open());
    {
        QSqlQuery query(newer);
        QVERIFY(query.exec(QStringLiteral("PRAGMA journal_mode = WAL")));
        QVERIFY(query.exec(QStringLiteral("PRAGMA user_version = 3")));
    }
    OvFirstBreakFile file;
    const OvStatus status = open(&file);
    newer.close();
    newer = {};
    QSqlDatabase::removeDatabase(QStringLiteral("newer"));
    QVERIFY(!status);
    QVERIFY(status.message().contains(QStringLiteral("newer version")));
}

void tst_OvFirstBreakFile::emptyAndDirectoryPathsFail()
{
    OvFirstBreakFile file;
    QVERIFY(!file.open(m_folder->path(), segyInfo(QStringLiteral("a.sgy"), 1)));
    QVERIFY(!file.open(QStringLiteral("/proc/self/a.fb"), segyInfo(QStringLiteral("a.sgy"), 1)));
    QVERIFY(!file.open(QStringLiteral("/dev/null"), segyInfo(QStringLiteral("a.sgy"), 1)));
    QVERIFY(!file.isOpen());
}

void tst_OvFirstBreakFile::closedFileRefuses()
{
    OvFirstBreakFile file;
    OvFirstBreaks read;
    QVERIFY(!file.read({1}, &read));
    QVERIFY(!file.write({1}, someBreaks(1, 1.0F)));
    QVERIFY(!file.beginRun(QStringLiteral("a"), 1));
    QVERIFY(file.blocks().empty());
    file.close();
}

void tst_OvFirstBreakFile::removedWhileOpen()
{
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    QVERIFY(QFile::remove(path()));
    const OvStatus status = file.write(traces(0, 10), someBreaks(10, 1.0F));
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QStringLiteral("removed")), qPrintable(status.message()));
}

void tst_OvFirstBreakFile::twoOpenAtOnce()
{
    OvFirstBreakFile first;
    OvFirstBreakFile second;
    QVERIFY(open(&first));
    QVERIFY(open(&second));
    OvFirstBreaks read;
    for (qint32 record = 0; record < 20; ++record) {
        QVERIFY((record % 2 ? first : second).write(traces(record * 20, 10), someBreaks(10, 1.0F)));
        QVERIFY((record % 2 ? second : first).read(traces(record * 20, 10), &read));
        QVERIFY(same(read, someBreaks(10, 1.0F)));
    }
}

void tst_OvFirstBreakFile::createdByTwoAtOnce()
{
    for (int round = 0; round < 10; ++round) {
        QFile::remove(path());
        std::vector<std::thread> threads;
        std::atomic<int> failures{0};
        for (qint32 record = 0; record < 4; ++record) {
            threads.emplace_back([&, record] {
                OvFirstBreakFile file;
                OvStatus status = open(&file);
                if (status)
                    status = file.write(traces(record * 20, 10), someBreaks(10, 1.0F));
                if (!status) {
                    qWarning("%s", qUtf8Printable(status.message()));
                    ++failures;
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        QCOMPARE(failures.load(), 0);
        OvFirstBreakFile file;
        QVERIFY(open(&file));
        OvFirstBreaks read;
        QVERIFY(file.read(traces(0, 70), &read));
        QCOMPARE(read.pickedCount(), 4 * 5);
    }
}

void tst_OvFirstBreakFile::pathBesideWritableFolder()
{
    const QString segy = m_folder->filePath(QStringLiteral("line.sgy"));
    const QString chosen = OvFirstBreakFile::pathFor(segy, QStringLiteral("/nowhere"));
    QCOMPARE(chosen, path());
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

void tst_OvFirstBreakFile::pathFallsBackWithoutCollision()
{
    // Nobody, not even root, can create a file in these folders.
    const QString a =
        OvFirstBreakFile::pathFor(QStringLiteral("/proc/self/line1.sgy"), m_folder->path());
    const QString b =
        OvFirstBreakFile::pathFor(QStringLiteral("/proc/1/line1.sgy"), m_folder->path());
    QCOMPARE(QFileInfo(a).absolutePath(), m_folder->path());
    QVERIFY(QFileInfo(a).fileName().startsWith(QStringLiteral("line1.sgy-")));
    QVERIFY(a.endsWith(QStringLiteral(".fb")));
    QVERIFY(a != b);
    QCOMPARE(OvFirstBreakFile::pathFor(QStringLiteral("/proc/self/line1.sgy"), m_folder->path()),
             a);
}

void tst_OvFirstBreakFile::oddPathNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("chinese") << QStringLiteral("小文件.sgy.fb");
    QTest::newRow("blanks") << QStringLiteral("a b  c.fb");
    QTest::newRow("uri signs") << QStringLiteral("100%25?mode=ro#x&y=1;z.fb");
    QTest::newRow("quotes") << QStringLiteral("it's \"one\".fb");
}

void tst_OvFirstBreakFile::oddPathNames()
{
    QFETCH(QString, name);
    const QString odd = m_folder->filePath(name);
    OvFirstBreakFile file;
    const OvStatus status = file.open(odd, segyInfo(QStringLiteral("a.sgy"), 3));
    QVERIFY2(status, qPrintable(status.message()));
    QVERIFY(file.write(traces(0, 3), someBreaks(3, 1.0F)));
    file.close();
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList{name});
}

void tst_OvFirstBreakFile::readOnlyFileIsReadable()
{
    makeFile();
    QVERIFY(QFile::setPermissions(path(), QFile::ReadOwner));
    if (QFileInfo(path()).isWritable())
        QSKIP("This user may write to read-only files");
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    OvFirstBreaks read;
    QVERIFY(file.read(traces(250, 10), &read));
    const OvStatus status = file.write(traces(250, 10), read);
    QVERIFY(!status);
    QVERIFY(status.message().contains(QStringLiteral("read-only")));
}

QTEST_GUILESS_MAIN(tst_OvFirstBreakFile)
#include "tst_OvFirstBreakFile.moc"

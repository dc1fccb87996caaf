#include "OvSeismic/firstbreak/OvFirstBreakFile.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "fixtures/OldFirstBreaks.h"
#include "fixtures/ProtectedFolder.h"
#include "fixtures/SegyWriter.h"

#include <QtTest>

/// Files of the first version of the program, with one row a field record.
class tst_OvFirstBreakUpgrade : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void recordsBecomeTraces();
    void nothingCanBeDoneBefore();
    void anUpgradedFileIsLikeANewOne();
    void whatDoesNotFitIsLeftAlone_data();
    void whatDoesNotFitIsLeftAlone();
    void aFileThatCannotBeWrittenIsRead();
    void twoProgramsAtOnce();

private:
    QString path() const { return m_folder->filePath(QStringLiteral("line.sgy.fb")); }
    static QByteArray content(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // The traces of record 30 are 0, 2, 4 ..., those of 31 are 1, 3, 5 ...
    static OldFirstBreaks twoRecords()
    {
        QVector<float> even;
        QVector<float> odd;
        for (int i = 0; i < 400; ++i) {
            even += float(i);
            odd += float(1000 + i);
        }
        return {800, {{30, even}, {31, odd}}};
    }
    OvStatus open(OvFirstBreakFile* file) const { return file->open(path(), m_segy->info()); }
    static void checkPicks(const OvFirstBreakFile& file);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<OvSegyFile> m_segy;
    OvSegyIndex m_index;
};

void tst_OvFirstBreakUpgrade::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    const SegyWriter writer = SegyWriter::of(800, 8, [](int i, SegyTrace* trace) {
        trace->fieldRecord = 30 + i % 2;
        trace->channel = i / 2 + 1;
        trace->samples = std::vector<float>(8, 1.0F);
    });
    const QString segy = m_folder->filePath(QStringLiteral("line.sgy"));
    QVERIFY(writer.write(segy));
    m_segy = std::make_unique<OvSegyFile>();
    QVERIFY(m_segy->open(segy));
    QVERIFY(m_index.build(*m_segy));
    QCOMPARE(m_index.gatherCount(), 2);
}

void tst_OvFirstBreakUpgrade::checkPicks(const OvFirstBreakFile& file)
{
    std::vector<qint64> all(800, 0);
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = qint64(i);
    OvFirstBreaks breaks;
    const OvStatus status = file.read(all, &breaks);
    QVERIFY2(status, qPrintable(status.message()));
    QCOMPARE(breaks.size(), 800);
    for (std::size_t i = 0; i < all.size(); ++i) {
        QCOMPARE(breaks.timesMs[i], float((i % 2) * 1000 + i / 2));
        QCOMPARE(breaks.states[i], OvPickState::Manual);
        QCOMPARE(breaks.confidences[i], 0.75F);
    }
}

void tst_OvFirstBreakUpgrade::recordsBecomeTraces()
{
    QVERIFY(twoRecords().write(path()));
    {
        OvFirstBreakFile file;
        const OvStatus opened = open(&file);
        QVERIFY2(opened, qPrintable(opened.message()));
        QVERIFY(file.needsUpgrade());
        const OvStatus status = file.upgrade(*m_segy, m_index);
        QVERIFY2(status, qPrintable(status.message()));
        QVERIFY(!file.needsUpgrade());
        checkPicks(file);
    }
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    QVERIFY(!file.needsUpgrade());
    checkPicks(file);
}

void tst_OvFirstBreakUpgrade::nothingCanBeDoneBefore()
{
    QVERIFY(twoRecords().write(path()));
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    OvFirstBreaks breaks;
    QVERIFY(!file.read({0}, &breaks));
    breaks.resize(1);
    const OvStatus status = file.write({0}, breaks);
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QStringLiteral("older version")),
             qPrintable(status.message()));
    QVERIFY(file.blocks().empty());
}

void tst_OvFirstBreakUpgrade::anUpgradedFileIsLikeANewOne()
{
    QVERIFY(twoRecords().write(path()));
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    QVERIFY(file.upgrade(*m_segy, m_index));
    OvFirstBreaks breaks;
    breaks.resize(1);
    breaks.timesMs[0] = 5.0F;
    QVERIFY(file.write({799}, breaks));
    QVERIFY(file.beginRun(QStringLiteral("a"), 2));
    QVERIFY(file.upgrade(*m_segy, m_index));
    OvFirstBreaks read;
    QVERIFY(file.read({799, 0}, &read));
    QCOMPARE(read.timesMs, (std::vector<float>{5.0F, 0.0F}));
}

void tst_OvFirstBreakUpgrade::whatDoesNotFitIsLeftAlone_data()
{
    QTest::addColumn<int>("record");
    QTest::addColumn<int>("traces");
    QTest::newRow("other length") << 31 << 399;
    QTest::newRow("no such record") << 99 << 400;
}

void tst_OvFirstBreakUpgrade::whatDoesNotFitIsLeftAlone()
{
    QFETCH(int, record);
    QFETCH(int, traces);
    OldFirstBreaks old = twoRecords();
    old.records[1] = {record, QVector<float>(traces, 1.0F)};
    QVERIFY(old.write(path()));
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    const OvStatus status = file.upgrade(*m_segy, m_index);
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QStringLiteral("line.sgy.fb")),
             qPrintable(status.message()));
    QVERIFY(file.needsUpgrade());
    file.close();
    // Nothing of it is lost.
    QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "look");
    database.setDatabaseName(path());
    QVERIFY(database.open());
    {
        QSqlQuery query(database);
        QVERIFY(query.exec("SELECT count(*) FROM gather") && query.next());
        QCOMPARE(query.value(0).toInt(), 2);
    }
    database = {};
    QSqlDatabase::removeDatabase("look");
}

void tst_OvFirstBreakUpgrade::aFileThatCannotBeWrittenIsRead()
{
    QVERIFY(twoRecords().write(path()));
    const QByteArray before = content(path());
    const ProtectedFolder guard(m_folder->path());
    if (!guard.isProtected())
        QSKIP("This user may write everywhere");
    OvFirstBreakFile file;
    QVERIFY(open(&file));
    QVERIFY(file.upgrade(*m_segy, m_index));
    checkPicks(file);
    QCOMPARE(file.blocks().size(), std::size_t(4));
    OvFirstBreaks breaks;
    breaks.resize(1);
    QVERIFY(!file.write({0}, breaks));
    OvFirstBreakRun run;
    QVERIFY(file.readRun(&run));
    QVERIFY(!run.exists());
    QCOMPARE(content(path()), before);
}

void tst_OvFirstBreakUpgrade::twoProgramsAtOnce()
{
    QVERIFY(twoRecords().write(path()));
    OvFirstBreakFile first;
    OvFirstBreakFile second;
    QVERIFY(open(&first));
    QVERIFY(open(&second));
    QVERIFY(first.upgrade(*m_segy, m_index));
    const OvStatus status = second.upgrade(*m_segy, m_index);
    QVERIFY2(status, qPrintable(status.message()));
    checkPicks(second);
}

QTEST_GUILESS_MAIN(tst_OvFirstBreakUpgrade)
#include "tst_OvFirstBreakUpgrade.moc"

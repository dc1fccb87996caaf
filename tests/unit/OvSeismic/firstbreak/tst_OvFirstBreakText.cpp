#include "OvSeismic/firstbreak/OvFirstBreakText.h"

#include "OvSeismic/firstbreak/OvFirstBreaks.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "fixtures/SegyWriter.h"

#include <QtTest>

namespace {

const QByteArray heading = "trace,field_record,channel,offset_m,time_ms,confidence";

/// One break a trace: 100 ms plus the gather, and 1/8 ms a row.
OvStatus allPicked(int gather, int traces, OvFirstBreaks* breaks)
{
    breaks->resize(traces);
    for (int row = 0; row < traces; ++row) {
        const auto i = static_cast<std::size_t>(row);
        breaks->timesMs[i] = 100.0F + float(gather) + float(row) / 8.0F;
        breaks->states[i] = OvPickState::Automatic;
        breaks->confidences[i] = 0.25F;
    }
    return {};
}

} // namespace

class tst_OvFirstBreakText : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void oneRowATrace();
    void emptyCells();
    void interleavedRecordsInFileOrder();
    void unknownOffsets();
    void numbersDoNotFollowTheLocale();
    void failureLeavesTheOldFile_data();
    void failureLeavesTheOldFile();
    void unwritablePlaces_data();
    void unwritablePlaces();
    void otherTraceCountIsRefused();
    void incompleteIndexIsRefused();
    void progressIsBounded();
    void largeTable();

private:
    void make(const SegyWriter& writer)
    {
        const QString path = m_folder->filePath(QStringLiteral("test.sgy"));
        QVERIFY(writer.write(path));
        QVERIFY(m_file.open(path));
        QVERIFY(m_index.build(m_file));
    }
    OvStatus exportAll(const OvFirstBreakText::Progress& progress = {})
    {
        const auto breaksOf = [this](int gather, OvFirstBreaks* breaks) {
            return allPicked(gather, m_index.gatherTraceCount(gather), breaks);
        };
        return OvFirstBreakText::exportCsv(m_file, m_index, breaksOf, out(), progress);
    }
    QString out() const { return m_folder->filePath(QStringLiteral("picks.csv")); }
    QByteArray content() const
    {
        QFile file(out());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QList<QByteArray> lines() const { return content().split('\n'); }
    QStringList files() const
    {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    OvSegyFile m_file;
    OvSegyIndex m_index;
};

void tst_OvFirstBreakText::init()
{
    m_file.close();
    m_folder = std::make_unique<QTemporaryDir>();
}

void tst_OvFirstBreakText::oneRowATrace()
{
    make(SegyWriter::ramps(6, 5));
    QVERIFY(exportAll());
    QCOMPARE(lines(),
             (QList<QByteArray>{heading, "0,1,1,10.000,100.000,0.250", "1,1,2,20.000,100.125,0.250",
                                "2,1,3,30.000,100.250,0.250", "3,1,4,40.000,100.375,0.250",
                                "4,2,1,50.000,101.000,0.250", "5,2,2,60.000,101.125,0.250", ""}));
    QCOMPARE(files(), (QStringList{QStringLiteral("picks.csv"), QStringLiteral("test.sgy")}));
}

void tst_OvFirstBreakText::emptyCells()
{
    make(SegyWriter::ramps(6, 5));
    const auto breaksOf = [](int gather, OvFirstBreaks* breaks) {
        if (gather == 1)
            return OvStatus();
        breaks->resize(4);
        breaks->timesMs = {1.0F, 2.0F, OvFirstBreaks::noPick,
                           std::numeric_limits<float>::infinity()};
        breaks->states = {OvPickState::Manual, OvPickState::Rejected, OvPickState::None,
                          OvPickState::Automatic};
        breaks->confidences = {1.0F, 1.0F, 1.0F, 1.0F};
        return OvStatus();
    };
    QVERIFY(OvFirstBreakText::exportCsv(m_file, m_index, breaksOf, out()));
    QCOMPARE(lines().mid(1, 6),
             (QList<QByteArray>{"0,1,1,10.000,1.000,1.000", "1,1,2,20.000,,", "2,1,3,30.000,,",
                                "3,1,4,40.000,,", "4,2,1,50.000,,", "5,2,2,60.000,,"}));
}

void tst_OvFirstBreakText::interleavedRecordsInFileOrder()
{
    SegyWriter writer;
    for (const qint32 record : {7, 8, 7, 8}) {
        SegyTrace trace;
        trace.fieldRecord = record;
        trace.offset = 1;
        writer.add(trace);
    }
    make(writer);
    QVERIFY(exportAll());
    QCOMPARE(lines().mid(1, 4),
             (QList<QByteArray>{"0,7,1,1.000,100.000,0.250", "1,8,1,1.000,101.000,0.250",
                                "2,7,2,1.000,100.125,0.250", "3,8,2,1.000,101.125,0.250"}));
}

void tst_OvFirstBreakText::unknownOffsets()
{
    SegyWriter writer;
    writer.add({});
    make(writer);
    QVERIFY(exportAll());
    QCOMPARE(lines().at(1), QByteArray("0,1,1,,100.000,0.250"));
}

void tst_OvFirstBreakText::numbersDoNotFollowTheLocale()
{
    make(SegyWriter::ramps(1, 5));
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const OvStatus status = exportAll();
    QLocale::setDefault(before);
    QVERIFY(status);
    QCOMPARE(lines().at(1), QByteArray("0,1,1,10.000,100.000,0.250"));
}

void tst_OvFirstBreakText::failureLeavesTheOldFile_data()
{
    QTest::addColumn<bool>("cancel");
    QTest::newRow("cancelled") << true;
    QTest::newRow("breaks cannot be read") << false;
}

void tst_OvFirstBreakText::failureLeavesTheOldFile()
{
    QFETCH(bool, cancel);
    make(SegyWriter::ramps(100, 5));
    QVERIFY(SegyWriter::writeBytes(out(), "old"));
    const auto breaksOf = [&](int gather, OvFirstBreaks* breaks) {
        if (!cancel && gather == 20)
            return OvStatus::failure(QStringLiteral("no such row"));
        return allPicked(gather, 4, breaks);
    };
    const auto progress = [&](int, int) { return !cancel; };
    const OvStatus status = OvFirstBreakText::exportCsv(m_file, m_index, breaksOf, out(), progress);
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QLatin1String(cancel ? "cancelled" : "no such row")),
             qPrintable(status.message()));
    QCOMPARE(content(), QByteArray("old"));
    QCOMPARE(files(), (QStringList{QStringLiteral("picks.csv"), QStringLiteral("test.sgy")}));
}

void tst_OvFirstBreakText::unwritablePlaces_data()
{
    QTest::addColumn<QString>("place");
    QTest::newRow("missing folder") << QStringLiteral("/nowhere/picks.csv");
    QTest::newRow("folder") << QDir::tempPath();
    QTest::newRow("no files allowed") << QStringLiteral("/proc/self/picks.csv");
}

void tst_OvFirstBreakText::unwritablePlaces()
{
    QFETCH(QString, place);
    make(SegyWriter::ramps(2, 5));
    const OvStatus status = OvFirstBreakText::exportCsv(
        m_file, m_index, [](int, OvFirstBreaks*) { return OvStatus(); }, place);
    QVERIFY(!status);
    QVERIFY2(status.message().contains(place), qPrintable(status.message()));
}

void tst_OvFirstBreakText::otherTraceCountIsRefused()
{
    make(SegyWriter::ramps(4, 5));
    const OvStatus status = OvFirstBreakText::exportCsv(
        m_file, m_index,
        [](int gather, OvFirstBreaks* breaks) { return allPicked(gather, 5, breaks); }, out());
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QStringLiteral("4 traces")), qPrintable(status.message()));
    QVERIFY(!QFileInfo::exists(out()));
}

void tst_OvFirstBreakText::incompleteIndexIsRefused()
{
    make(SegyWriter::ramps(8, 5));
    QVERIFY(m_index.buildFirstGather(m_file));
    QVERIFY(!exportAll());
    QVERIFY(!QFileInfo::exists(out()));
}

void tst_OvFirstBreakText::progressIsBounded()
{
    make(SegyWriter::ramps(4000, 5));
    QElapsedTimer timer;
    timer.start();
    int calls = 0;
    int last = 0;
    QVERIFY(exportAll([&](int done, int total) {
        ++calls;
        last = done;
        return total == 1000;
    }));
    QCOMPARE(last, 1000);
    QVERIFY2(calls <= 2 + timer.elapsed() / 50, qPrintable(QString::number(calls)));
}

void tst_OvFirstBreakText::largeTable()
{
    make(SegyWriter::ramps(60000, 1));
    QVERIFY(exportAll());
    QCOMPARE(lines().size(), 60002);
    QCOMPARE(lines().at(60000), QByteArray("59999,15000,4,600000.000,15099.375,0.250"));
}

QTEST_GUILESS_MAIN(tst_OvFirstBreakText)
#include "tst_OvFirstBreakText.moc"

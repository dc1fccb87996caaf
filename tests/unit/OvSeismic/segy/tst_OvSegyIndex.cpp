#include "OvSeismic/segy/OvSegyIndex.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "fixtures/SegyWriter.h"

#include <QtEndian>
#include <QtTest>

#include <cmath>

namespace {

SegyTrace traceOf(qint32 fieldRecord, qint32 channel = 0, qint32 offset = 0)
{
    SegyTrace trace;
    trace.fieldRecord = fieldRecord;
    trace.channel = channel;
    trace.offset = offset;
    trace.samples = {static_cast<float>(fieldRecord), static_cast<float>(channel)};
    return trace;
}

SegyWriter fileOf(const QVector<qint32>& fieldRecords)
{
    SegyWriter writer;
    writer.sampleCount = 2;
    qint32 channel = 0;
    for (const qint32 record : fieldRecords)
        writer.add(traceOf(record, ++channel));
    return writer;
}

QVector<qint64> tracesOf(const OvGather& gather)
{
    QVector<qint64> traces;
    for (const OvTraceHeader& header : gather.headers)
        traces += header.traceIndex;
    return traces;
}

} // namespace

class tst_OvSegyIndex : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void gathers_data();
    void gathers();
    void interleavedRecords();
    void channelsAreCountedWhenMissing();
    void channelsStayWhenSomeAreZero();
    void offsetWordsWin();
    void offsetsFromCoordinates();
    void offsetsUnknown_data();
    void offsetsUnknown();
    void offsetRangeIsAbsolute();
    void feetInComputedOffsets();
    void firstGather_data();
    void firstGather();
    void progressAndCancel();
    void readsSamples();
    void gatherNumbersOutOfRange();
    void emptyIndex();
    void moves();
    void longTraces();
    void veryLongTraces();

private:
    void build(const SegyWriter& writer)
    {
        open(writer);
        const OvStatus status = m_index.build(m_file);
        QVERIFY2(status, qPrintable(status.message()));
    }
    void open(const SegyWriter& writer)
    {
        const QString path = m_folder->filePath(QStringLiteral("test.sgy"));
        QVERIFY(writer.write(path));
        const OvStatus status = m_file.open(path);
        QVERIFY2(status, qPrintable(status.message()));
    }
    OvGather headers(int gather) const { return m_index.gatherHeaders(m_file, gather); }

    std::unique_ptr<QTemporaryDir> m_folder;
    OvSegyFile m_file;
    OvSegyIndex m_index;
};

void tst_OvSegyIndex::init()
{
    m_file.close();
    m_folder = std::make_unique<QTemporaryDir>();
    m_index = OvSegyIndex();
}

void tst_OvSegyIndex::gathers_data()
{
    QTest::addColumn<QVector<qint32>>("records");
    QTest::addColumn<QVector<qint32>>("gatherRecords");
    QTest::addColumn<QVector<int>>("counts");
    QTest::addColumn<QString>("warning");
    using Records = QVector<qint32>;
    using Counts = QVector<int>;
    QTest::newRow("three") << Records{5, 5, 7, 7, 7, 6} << Records{5, 7, 6} << Counts{2, 3, 1}
                           << "";
    QTest::newRow("one") << Records{9, 9, 9} << Records{9} << Counts{3} << "";
    QTest::newRow("one trace") << Records{9} << Records{9} << Counts{1} << "";
    QTest::newRow("one trace, no record")
        << Records{0} << Records{0} << Counts{1} << "no field records";
    QTest::newRow("no records") << Records{0, 0, 0} << Records{0} << Counts{3}
                                << "no field records";
    QTest::newRow("walkaway") << Records{16, 17, 18} << Records{16} << Counts{3}
                              << "Every field record";
    QTest::newRow("nearly a walkaway")
        << Records{1, 2, 3, 3} << Records{1, 2, 3} << Counts{1, 1, 2} << "";
    QTest::newRow("comes back") << Records{1, 2, 1, 2, 3} << Records{1, 2, 3} << Counts{2, 2, 1}
                                << "";
    QTest::newRow("comes back at once") << Records{1, 2, 1} << Records{1, 2} << Counts{2, 1} << "";
    QTest::newRow("last comes back") << Records{1, 1, 2, 1} << Records{1, 2} << Counts{3, 1} << "";
    QTest::newRow("zero among others") << Records{0, 4, 4} << Records{0, 4} << Counts{1, 2} << "";
    QTest::newRow("negative") << Records{-1, -1, 2147483647} << Records{-1, 2147483647}
                              << Counts{2, 1} << "";
}

void tst_OvSegyIndex::gathers()
{
    QFETCH(QVector<qint32>, records);
    QFETCH(QVector<qint32>, gatherRecords);
    QFETCH(QVector<int>, counts);
    QFETCH(QString, warning);
    build(fileOf(records));
    QCOMPARE(m_index.traceCount(), qint64(records.size()));
    QCOMPARE(m_index.gatherCount(), counts.size());
    QVector<qint64> seen;
    for (int gather = 0; gather < counts.size(); ++gather) {
        QCOMPARE(m_index.fieldRecord(gather), gatherRecords.at(gather));
        QCOMPARE(m_index.gatherTraceCount(gather), counts.at(gather));
        QCOMPARE(m_index.gatherOfFieldRecord(gatherRecords.at(gather)), gather);
        const OvGather read = headers(gather);
        QCOMPARE(read.ordinal, gather);
        QCOMPARE(read.fieldRecord, gatherRecords.at(gather));
        QCOMPARE(read.traceCount(), counts.at(gather));
        QVERIFY(std::is_sorted(read.headers.begin(), read.headers.end(),
                               [](const OvTraceHeader& a, const OvTraceHeader& b) {
                                   return a.traceIndex < b.traceIndex;
                               }));
        for (const qint64 trace : tracesOf(read)) {
            QCOMPARE(m_index.gatherOfTrace(trace), gather);
            seen += trace;
        }
    }
    std::sort(seen.begin(), seen.end());
    for (int trace = 0; trace < records.size(); ++trace)
        QCOMPARE(seen.at(trace), qint64(trace));
    QCOMPARE(m_index.gatherOfFieldRecord(4711), -1);
    QCOMPARE(!m_index.warnings().filter(QStringLiteral("one gather")).isEmpty(),
             !warning.isEmpty());
    QVERIFY(m_index.warnings().join(QString()).contains(warning));
}

void tst_OvSegyIndex::interleavedRecords()
{
    build(fileOf({7, 8, 7, 9, 8, 7}));
    QCOMPARE(tracesOf(headers(0)), (QVector<qint64>{0, 2, 5}));
    QCOMPARE(tracesOf(headers(1)), (QVector<qint64>{1, 4}));
    QCOMPARE(tracesOf(headers(2)), (QVector<qint64>{3}));
    OvGather read;
    QVERIFY(m_index.readGather(m_file, 0, &read));
    QCOMPARE(read.trace(2)[1], 6.0F);
}

void tst_OvSegyIndex::channelsAreCountedWhenMissing()
{
    SegyWriter writer;
    for (const qint32 record : {1, 1, 1, 2, 2})
        writer.add(traceOf(record));
    build(writer);
    QCOMPARE(headers(0).headers.at(2).channel, 3);
    QCOMPARE(headers(1).headers.at(0).channel, 1);
    QCOMPARE(headers(1).headers.at(1).channel, 2);
}

void tst_OvSegyIndex::channelsStayWhenSomeAreZero()
{
    SegyWriter writer;
    writer.add(traceOf(1, 0));
    writer.add(traceOf(1, 24));
    build(writer);
    QCOMPARE(headers(0).headers.at(0).channel, 0);
    QCOMPARE(headers(0).headers.at(1).channel, 24);
}

void tst_OvSegyIndex::offsetWordsWin()
{
    SegyWriter writer;
    SegyTrace trace = traceOf(1, 1, 0);
    trace.receiverX = 500;
    writer.add(trace);
    trace.offset = -25;
    writer.add(trace);
    build(writer);
    QCOMPARE(headers(0).headers.at(0).offset, 0.0F);
    QCOMPARE(headers(0).headers.at(1).offset, -25.0F);
    QVERIFY(m_index.warnings().isEmpty());
}

void tst_OvSegyIndex::offsetsFromCoordinates()
{
    SegyWriter writer;
    SegyTrace trace = traceOf(1);
    trace.coordinateScalar = -1000;
    trace.sourceX = 450000;
    trace.sourceY = -2000000;
    for (const qint32 x : {450000, 447000, 453000}) {
        trace.receiverX = x;
        trace.receiverY = trace.sourceY + (x == 450000 ? 0 : 4000);
        writer.add(trace);
    }
    trace.receiverX = 2147483647;
    trace.sourceX = -2147483647;
    writer.add(trace);
    build(writer);
    const OvGather read = headers(0);
    QCOMPARE(read.headers.at(0).offset, 0.0F);
    QCOMPARE(read.headers.at(1).offset, 5.0F);
    QCOMPARE(read.headers.at(2).offset, 5.0F);
    QCOMPARE(read.headers.at(3).offset, 4294967.5F);
    QCOMPARE(m_index.warnings().size(), 1);
    QVERIFY(m_index.warnings().at(0).contains(QStringLiteral("computed")));
}

void tst_OvSegyIndex::offsetsUnknown_data()
{
    QTest::addColumn<int>("units");
    QTest::addColumn<int>("sourceX");
    QTest::addColumn<int>("receiverX");
    QTest::newRow("no coordinates") << 0 << 0 << 0;
    QTest::newRow("all at one place") << 1 << 77 << 77;
    QTest::newRow("seconds of arc") << 2 << 100 << 200;
    QTest::newRow("degrees") << 3 << 1 << 2;
    QTest::newRow("receivers only, far from the origin") << 1 << 0 << 6000000;
}

void tst_OvSegyIndex::offsetsUnknown()
{
    QFETCH(int, units);
    QFETCH(int, sourceX);
    QFETCH(int, receiverX);
    SegyTrace trace = traceOf(1);
    trace.words[89] = static_cast<qint16>(units);
    trace.sourceX = sourceX;
    trace.receiverX = receiverX;
    SegyWriter writer;
    writer.add(trace);
    writer.add(trace);
    build(writer);
    QVERIFY(std::isnan(headers(0).headers.at(1).offset));
    QVERIFY(std::isnan(m_index.minimumOffset()) && std::isnan(m_index.maximumOffset()));
    QCOMPARE(m_index.warnings().size(), 1);
    QVERIFY(m_index.warnings().at(0).contains(QStringLiteral("unknown")));
}

void tst_OvSegyIndex::offsetRangeIsAbsolute()
{
    SegyWriter writer;
    for (const qint32 offset : {-300, -100, 50, 200})
        writer.add(traceOf(1, 1, offset));
    build(writer);
    QCOMPARE(m_index.minimumOffset(), 50.0F);
    QCOMPARE(m_index.maximumOffset(), 300.0F);
}

void tst_OvSegyIndex::feetInComputedOffsets()
{
    SegyTrace trace = traceOf(1);
    trace.receiverX = 1000;
    SegyWriter writer;
    writer.setWord16(3255, 2);
    writer.add(trace);
    build(writer);
    QCOMPARE(headers(0).headers.at(0).offset, 304.8F);
}

void tst_OvSegyIndex::firstGather_data()
{
    QTest::addColumn<QVector<qint32>>("records");
    QTest::addColumn<int>("most");
    QTest::addColumn<int>("expected");
    using Records = QVector<qint32>;
    QTest::newRow("ends at the next record") << Records{5, 5, 5, 6, 6} << 100 << 3;
    QTest::newRow("cut") << Records{5, 5, 5, 6, 6} << 2 << 2;
    QTest::newRow("no records") << Records{0, 0, 0} << 100 << 3;
    QTest::newRow("walkaway") << Records{1, 2, 3, 4} << 100 << 4;
    QTest::newRow("one trace") << Records{1} << 100 << 1;
    QTest::newRow("short first record") << Records{1, 2, 2, 2} << 100 << 1;
}

void tst_OvSegyIndex::firstGather()
{
    QFETCH(QVector<qint32>, records);
    QFETCH(int, most);
    QFETCH(int, expected);
    open(fileOf(records));
    QVERIFY(m_index.buildFirstGather(m_file, most));
    QVERIFY(m_index.gatherCount() >= 1);
    QCOMPARE(m_index.fieldRecord(0), records.at(0));
    QCOMPARE(m_index.gatherTraceCount(0), expected);
    OvGather read;
    QVERIFY(m_index.readGather(m_file, 0, &read));
    QCOMPARE(read.traceCount(), expected);
}

void tst_OvSegyIndex::progressAndCancel()
{
    open(SegyWriter::ramps(3000, 2));
    qint64 last = -1;
    QVERIFY(m_index.build(m_file, [&](qint64 done, qint64 total) {
        last = done;
        return total == 3000;
    }));
    QCOMPARE(last, qint64(3000));
    const OvStatus status = m_index.build(m_file, [](qint64, qint64) { return false; });
    QVERIFY(!status);
    QVERIFY(!status.message().isEmpty());
    QCOMPARE(m_index.traceCount(), qint64(0));
    QCOMPARE(m_index.gatherCount(), 0);
}

void tst_OvSegyIndex::readsSamples()
{
    build(SegyWriter::ramps(10, 7));
    OvGather read;
    QVERIFY(m_index.readGather(m_file, 1, &read));
    QCOMPARE(read.sampleCount, 7);
    QCOMPARE(read.intervalMs, 1.0);
    QCOMPARE(read.traceCount(), 4);
    for (int row = 0; row < 4; ++row) {
        for (int k = 0; k < 7; ++k)
            QCOMPARE(read.trace(row)[k], SegyWriter::rampValue(4 + row, k));
    }
}

void tst_OvSegyIndex::gatherNumbersOutOfRange()
{
    build(SegyWriter::ramps(10, 7));
    OvGather read;
    for (const int gather : {-1, 3, 1 << 30}) {
        const OvStatus status = m_index.readGather(m_file, gather, &read);
        QVERIFY(!status);
        QVERIFY(status.message().contains(QStringLiteral("number of its gathers: 3.")));
        QCOMPARE(headers(gather).traceCount(), 0);
        QCOMPARE(m_index.gatherTraceCount(gather), 0);
    }
    QCOMPARE(m_index.gatherOfTrace(-1), -1);
    QCOMPARE(m_index.gatherOfTrace(10), -1);
}

void tst_OvSegyIndex::emptyIndex()
{
    QCOMPARE(m_index.traceCount(), qint64(0));
    QCOMPARE(m_index.gatherCount(), 0);
    QCOMPARE(m_index.gatherOfTrace(0), -1);
    QCOMPARE(m_index.gatherOfFieldRecord(0), -1);
    QVERIFY(std::isnan(m_index.minimumOffset()));
    QCOMPARE(m_index.warnings(), QStringList());
    QVERIFY(!m_index.build(m_file) || m_index.traceCount() == 0);
}

void tst_OvSegyIndex::moves()
{
    build(SegyWriter::ramps(10, 7));
    OvSegyIndex other(std::move(m_index));
    QCOMPARE(other.gatherCount(), 3);
    m_index = std::move(other);
    QCOMPARE(m_index.gatherCount(), 3);
}

void tst_OvSegyIndex::longTraces()
{
    // Beyond 4 KB the headers are read one by one.
    build(SegyWriter::ramps(50, 3000));
    QCOMPARE(m_index.gatherCount(), 13);
    QCOMPARE(headers(12).headers.at(1).offset, 500.0F);
}

void tst_OvSegyIndex::veryLongTraces()
{
    // Each is longer than 256 KiB, so that reading ahead in a map would cost most of the time.
    constexpr int traces = 70;
    constexpr qint64 traceBytes = 240 + 32767 * 8;
    const QString path = m_folder->filePath(QStringLiteral("long.sgy"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    std::vector<char> front(3600);
    qToBigEndian<qint16>(1000, front.data() + 3216);
    qToBigEndian<qint16>(32767, front.data() + 3220);
    qToBigEndian<qint16>(6, front.data() + 3224);
    QCOMPARE(file.write(front.data(), 3600), qint64(3600));
    QVERIFY(file.resize(3600 + traces * traceBytes));
    std::vector<char> header(240);
    for (qint32 trace = 0; trace < traces; ++trace) {
        qToBigEndian<qint32>(1 + trace / 7, header.data() + 8);
        qToBigEndian<qint32>(1 + trace, header.data() + 12);
        qToBigEndian<qint16>(32767, header.data() + 114);
        QVERIFY(file.seek(3600 + trace * traceBytes));
        QCOMPARE(file.write(header.data(), 240), qint64(240));
    }
    file.close();
    QVERIFY(m_file.open(path));
    QVERIFY(m_index.build(m_file));
    QCOMPARE(m_index.gatherCount(), 10);
    QCOMPARE(headers(9).headers.at(6).channel, qint32(traces));
}

QTEST_GUILESS_MAIN(tst_OvSegyIndex)
#include "tst_OvSegyIndex.moc"

#include "OvSeismic/segy/OvGather.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "fixtures/SegyWriter.h"

#include <QtTest>

#include <cstring>
#include <limits>
#include <random>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

constexpr int headerBytes = 3600;

QByteArray seismicUnixFile()
{
    QByteArray bytes;
    for (int trace = 0; trace < 20; ++trace) {
        QByteArray header(240, '\0');
        header[115] = 100;
        header[116] = 4;
        bytes += header + QByteArray(400, '\x42');
    }
    return bytes;
}

} // namespace

/// What a SEG-Y file says of itself, held against its size: contradictions, lies and damage.
class tst_OvSegyLayout : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void revisions_data();
    void revisions();
    void sampleCounts_data();
    void sampleCounts();
    void intervals_data();
    void intervals();
    void revision2Words();
    void extendedTexts_data();
    void extendedTexts();
    void extendedTextsToEndStanza();
    void firstTraceOffset();
    void firstTraceOffsetThatIsWrong_data();
    void firstTraceOffsetThatIsWrong();
    void dataTrailer_data();
    void dataTrailer();
    void extraTraceHeaders_data();
    void extraTraceHeaders();
    void byteOrderConstantAgainstFormat();
    void truncatedAtEveryByte();
    void damagedHeaders();
    void refusals_data();
    void refusals();
    void specialFiles_data();
    void specialFiles();
    void pipeDoesNotBlock();
    void unreadableFile();
    void reasonOfTheSystem();
    void fiveHundredGigabytes();
    void shrinksWhileOpen();
    void growsWhileOpen();

private:
    QString path() const { return m_folder->filePath(QStringLiteral("test.sgy")); }
    const OvSegyFileInfo& info() const { return m_file.info(); }
    void open(const QByteArray& bytes)
    {
        QVERIFY(SegyWriter::writeBytes(path(), bytes));
        const OvStatus status = m_file.open(path());
        QVERIFY2(status, qPrintable(status.message()));
    }
    void open(const SegyWriter& writer) { open(writer.bytes()); }
    bool warns(const char* part) const
    {
        return !info().warnings.filter(QLatin1String(part)).isEmpty();
    }
    float sample(qint64 trace, int k) const
    {
        std::vector<float> out(static_cast<std::size_t>(info().sampleCount));
        return m_file.readSamples(trace, out.data()) ? out.at(std::size_t(k)) : std::nanf("");
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    OvSegyFile m_file;
};

void tst_OvSegyLayout::init()
{
    m_file.close();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_OvSegyLayout::revisions_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<bool>("warned");
    QTest::newRow("0.0") << 0x0000 << 0 << 0 << false;
    QTest::newRow("1.0") << 0x0100 << 1 << 0 << false;
    QTest::newRow("swapped 1.0") << 0x0001 << 1 << 0 << false;
    QTest::newRow("2.0") << 0x0200 << 2 << 0 << false;
    QTest::newRow("swapped 2.0") << 0x0002 << 2 << 0 << false;
    QTest::newRow("2.1") << 0x0201 << 2 << 1 << false;
    QTest::newRow("rubbish") << 0x3D49 << 0 << 0 << true;
    QTest::newRow("0.7") << 0x0007 << 0 << 0 << true;
}

void tst_OvSegyLayout::revisions()
{
    QFETCH(int, stored);
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(bool, warned);
    SegyWriter writer = SegyWriter::ramps(3, 5);
    writer.revision = stored;
    open(writer);
    QCOMPARE(info().revisionMajor, major);
    QCOMPARE(info().revisionMinor, minor);
    QCOMPARE(warns("revision number"), warned);
    QCOMPARE(info().traceCount, 3);
}

void tst_OvSegyLayout::sampleCounts_data()
{
    QTest::addColumn<int>("binary");
    QTest::addColumn<int>("inTrace");
    QTest::addColumn<int>("used");
    QTest::addColumn<int>("traces");
    QTest::addColumn<bool>("warned");
    QTest::newRow("agree") << 40 << 40 << 40 << 6 << false;
    QTest::newRow("trace header stale") << 40 << 1500 << 40 << 6 << true;
    QTest::newRow("trace header empty") << 40 << 0 << 40 << 6 << false;
    QTest::newRow("binary stale") << 1500 << 40 << 40 << 6 << true;
    QTest::newRow("binary empty") << 0 << 40 << 40 << 6 << false;
    QTest::newRow("binary too long, other not exact") << 60000 << 41 << 41 << 5 << true;
    QTest::newRow("neither exact") << 41 << 39 << 41 << 5 << true;
}

void tst_OvSegyLayout::sampleCounts()
{
    QFETCH(int, binary);
    QFETCH(int, inTrace);
    QFETCH(int, used);
    QFETCH(int, traces);
    QFETCH(bool, warned);
    SegyWriter writer;
    writer.sampleCount = 40;
    writer.setWord16(3221, static_cast<qint16>(binary));
    SegyTrace trace;
    trace.words[115] = static_cast<qint16>(inTrace);
    for (int i = 0; i < 6; ++i)
        writer.add(trace);
    open(writer);
    QCOMPARE(info().sampleCount, used);
    QCOMPARE(info().traceCount, traces);
    QCOMPARE(warns("samples a trace"), warned);
}

void tst_OvSegyLayout::intervals_data()
{
    QTest::addColumn<int>("binary");
    QTest::addColumn<int>("inTrace");
    QTest::addColumn<double>("used");
    QTest::addColumn<bool>("warned");
    QTest::newRow("agree") << 250 << 250 << 250.0 << false;
    QTest::newRow("trace empty") << 250 << 0 << 250.0 << false;
    QTest::newRow("contradict") << 250 << 4000 << 250.0 << true;
    QTest::newRow("binary empty") << 0 << 4000 << 4000.0 << true;
    QTest::newRow("binary negative") << -2 << 4000 << 4000.0 << true;
    QTest::newRow("none") << 0 << 0 << 4000.0 << true;
    QTest::newRow("both negative") << -5 << -5 << 4000.0 << true;
    QTest::newRow("largest") << 32767 << 32767 << 32767.0 << false;
}

void tst_OvSegyLayout::intervals()
{
    QFETCH(int, binary);
    QFETCH(int, inTrace);
    QFETCH(double, used);
    QFETCH(bool, warned);
    SegyWriter writer;
    writer.intervalUs = binary;
    SegyTrace trace;
    trace.words[117] = static_cast<qint16>(inTrace);
    writer.add(trace);
    open(writer);
    QCOMPARE(info().intervalUs, used);
    QCOMPARE(info().intervalMs(), used / 1000.0);
    QCOMPARE(warns("sample interval"), warned);
}

void tst_OvSegyLayout::revision2Words()
{
    SegyWriter writer = SegyWriter::ramps(2, 70000);
    const double interval = 62.5;
    qint64 bits = 0;
    std::memcpy(&bits, &interval, sizeof(bits));
    writer.setWord16(3221, 0);
    writer.setWord32(3269, 70000);
    writer.setWord64(3273, bits);
    writer.revision = 0x0200;
    open(writer);
    QCOMPARE(info().sampleCount, 70000);
    QCOMPARE(info().intervalUs, 62.5);
    writer.revision = 0x0100;
    open(writer);
    QVERIFY(info().sampleCount < 70000);
    QCOMPARE(info().intervalUs, 1000.0);
}

void tst_OvSegyLayout::extendedTexts_data()
{
    QTest::addColumn<int>("revision");
    QTest::addColumn<int>("really");
    QTest::addColumn<int>("stated");
    QTest::newRow("two") << 0x0100 << 2 << 2;
    QTest::newRow("revision 0 but there") << 0x0000 << 4 << 4;
    QTest::newRow("revision 0, rubbish") << 0x0000 << 0 << 3;
    QTest::newRow("too many for the file") << 0x0100 << 0 << 32767;
    QTest::newRow("contradicted by the size") << 0x0100 << 0 << 1;
    QTest::newRow("negative") << 0x0100 << 0 << -7;
    QTest::newRow("end stanza missing") << 0x0100 << 0 << -1;
}

void tst_OvSegyLayout::extendedTexts()
{
    QFETCH(int, revision);
    QFETCH(int, really);
    QFETCH(int, stated);
    SegyWriter writer = SegyWriter::ramps(30, 70);
    writer.revision = revision;
    writer.extendedTexts = really;
    writer.setWord16(3505, static_cast<qint16>(stated));
    open(writer);
    QCOMPARE(info().extendedTextHeaders, really);
    QCOMPARE(info().firstTraceOffset, qint64(headerBytes + 3200 * really));
    QCOMPARE(info().traceCount, 30);
    QCOMPARE(warns("extended textual headers"), stated != really);
    QCOMPARE(sample(29, 1), SegyWriter::rampValue(29, 1));
}

void tst_OvSegyLayout::extendedTextsToEndStanza()
{
    SegyWriter writer = SegyWriter::ramps(3, 70);
    writer.extendedTexts = 3;
    writer.setWord16(3505, -1);
    QByteArray bytes = writer.bytes();
    bytes.replace(headerBytes + 2 * 3200, 18, "((SEG: EndText))  ");
    open(bytes);
    QCOMPARE(info().extendedTextHeaders, 3);
    QCOMPARE(info().traceCount, 3);
    QCOMPARE(info().warnings, QStringList());
}

void tst_OvSegyLayout::firstTraceOffset()
{
    SegyWriter writer = SegyWriter::ramps(3, 70);
    writer.revision = 0x0200;
    writer.setWord64(3521, headerBytes + 1000);
    QByteArray bytes = writer.bytes();
    bytes.insert(headerBytes, QByteArray(1000, '\x7F'));
    open(bytes);
    QCOMPARE(info().firstTraceOffset, qint64(headerBytes + 1000));
    QCOMPARE(info().traceCount, 3);
    QCOMPARE(sample(2, 1), SegyWriter::rampValue(2, 1));
}

void tst_OvSegyLayout::firstTraceOffsetThatIsWrong_data()
{
    QTest::addColumn<qint64>("stated");
    QTest::newRow("negative") << qint64(-1);
    QTest::newRow("in the headers") << qint64(100);
    QTest::newRow("contradicted by the size") << qint64(headerBytes + 1);
    QTest::newRow("beyond the end") << (qint64(1) << 40);
    QTest::newRow("largest") << std::numeric_limits<qint64>::max();
    QTest::newRow("smallest") << std::numeric_limits<qint64>::min();
}

void tst_OvSegyLayout::firstTraceOffsetThatIsWrong()
{
    QFETCH(qint64, stated);
    SegyWriter writer = SegyWriter::ramps(3, 70);
    writer.revision = 0x0200;
    writer.setWord64(3521, stated);
    open(writer);
    QCOMPARE(info().firstTraceOffset, qint64(headerBytes));
    QCOMPARE(info().traceCount, 3);
    QVERIFY(warns("position of the first trace"));
}

void tst_OvSegyLayout::dataTrailer_data()
{
    QTest::addColumn<int>("stanzas");
    QTest::addColumn<int>("statedTraces");
    QTest::addColumn<bool>("warned");
    QTest::newRow("counted") << 2 << 0 << false;
    QTest::newRow("not counted, traces counted") << -1 << 3 << false;
}

void tst_OvSegyLayout::dataTrailer()
{
    QFETCH(int, stanzas);
    QFETCH(int, statedTraces);
    SegyWriter writer = SegyWriter::ramps(3, 70);
    writer.revision = 0x0200;
    writer.setWord32(3529, stanzas);
    writer.setWord64(3513, statedTraces);
    open(writer.bytes() + QByteArray(6400, '@'));
    QCOMPARE(info().traceCount, 3);
    QCOMPARE(info().warnings, QStringList());
    writer.revision = 0x0100;
    open(writer.bytes() + QByteArray(6400, '@'));
    QVERIFY(info().traceCount > 3);
    QVERIFY(warns("middle of a trace"));
}

void tst_OvSegyLayout::extraTraceHeaders_data()
{
    QTest::addColumn<int>("really");
    QTest::addColumn<int>("word");
    QTest::addColumn<int>("revision");
    QTest::newRow("one, 4 bytes") << 1 << 1 << 0x0200;
    QTest::newRow("three, 2 bytes") << 3 << 3 * 65536 << 0x0201;
    QTest::newRow("rubbish in revision 1") << 0 << 48 << 0x0100;
    QTest::newRow("lie") << 0 << 5 << 0x0200;
    QTest::newRow("negative") << 0 << -5 << 0x0200;
    QTest::newRow("huge") << 0 << 0x7FFFFFFF << 0x0200;
}

void tst_OvSegyLayout::extraTraceHeaders()
{
    QFETCH(int, really);
    QFETCH(int, word);
    QFETCH(int, revision);
    SegyWriter writer = SegyWriter::ramps(4, 37);
    writer.revision = revision;
    writer.extraTraceHeaders = really;
    writer.setWord32(3507, word);
    open(writer);
    QCOMPARE(info().extraTraceHeaders, really);
    QCOMPARE(info().traceCount, 4);
    QCOMPARE(sample(3, 1), SegyWriter::rampValue(3, 1));
    OvGather gather;
    QVERIFY(m_file.readHeaders(0, 4, &gather.headers));
    QVERIFY(m_file.readSamples(&gather));
    QCOMPARE(gather.trace(3)[1], SegyWriter::rampValue(3, 1));
}

void tst_OvSegyLayout::byteOrderConstantAgainstFormat()
{
    SegyWriter writer = SegyWriter::ramps(2, 10);
    writer.revision = 0x0200;
    writer.setWord32(3297, 67305985);
    open(writer);
    QCOMPARE(info().byteOrder, OvByteOrder::BigEndian);
    QCOMPARE(info().traceCount, 2);
}

void tst_OvSegyLayout::truncatedAtEveryByte()
{
    QVERIFY(SegyWriter::ramps(3, 10).write(path()));
    constexpr int traceBytes = 240 + 40;
    for (int size = headerBytes + 3 * traceBytes; size >= 0; size -= size > headerBytes ? 1 : 101) {
        QVERIFY(QFile::resize(path(), size));
        const OvStatus status = m_file.open(path());
        const int traces = size < headerBytes ? 0 : (size - headerBytes) / traceBytes;
        QCOMPARE(status.ok(), traces > 0);
        if (!status) {
            QVERIFY(!m_file.isOpen() && !status.message().isEmpty());
            continue;
        }
        QCOMPARE(info().traceCount, qint64(traces));
        QCOMPARE(warns("middle of a trace"), (size - headerBytes) % traceBytes != 0);
        QCOMPARE(sample(traces - 1, 9), SegyWriter::rampValue(traces - 1, 9));
    }
}

void tst_OvSegyLayout::damagedHeaders()
{
    std::mt19937 random(20260101);
    const QByteArray whole = SegyWriter::ramps(5, 30).bytes();
    int opened = 0;
    for (int round = 0; round < 2000; ++round) {
        QByteArray bytes = whole;
        for (int damages = 1 + int(random() % 30); damages > 0; --damages)
            bytes[3200 + int(random() % 640)] = static_cast<char>(random());
        // A damaged format code makes nearly every file fail, so most rounds repair it.
        if (round % 4 != 0)
            bytes.replace(3224, 2, QByteArray("\0\5", 2));
        QVERIFY(SegyWriter::writeBytes(path(), bytes));
        if (!m_file.open(path()))
            continue;
        ++opened;
        QVERIFY(info().traceCount > 0 && info().sampleCount > 0 && info().intervalUs > 0.0);
        QVERIFY(info().firstTraceOffset + info().traceCount * 240 <= info().fileSize);
        OvSegyIndex index;
        OvGather gather;
        QVERIFY(index.build(m_file));
        QVERIFY(index.readGather(m_file, index.gatherCount() - 1, &gather));
    }
    QVERIFY2(opened > 1000, qPrintable(QString::number(opened)));
}

void tst_OvSegyLayout::refusals_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    SegyWriter noSamples = SegyWriter::ramps(1, 10);
    noSamples.sampleCount = 0;
    const QByteArray cut = SegyWriter::ramps(1, 10).bytes().left(headerBytes + 250);
    QTest::newRow("empty") << QByteArray() << "is empty";
    QTest::newRow("one byte") << QByteArray("x") << "no SEG-Y file";
    QTest::newRow("3599 bytes") << QByteArray(3599, '\0') << "no SEG-Y file";
    QTest::newRow("zeros") << QByteArray(10000, '\0') << "no SEG-Y file";
    QTest::newRow("text") << QByteArray(10000, 'a') << "no SEG-Y file";
    QTest::newRow("no traces") << SegyWriter().bytes() << "not one trace";
    QTest::newRow("no samples") << noSamples.bytes() << "0 samples";
    QTest::newRow("cut in the first trace") << cut << "whole trace";
    QTest::newRow("SU") << seismicUnixFile() << "Seismic Unix";
}

void tst_OvSegyLayout::refusals()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    QVERIFY(SegyWriter::writeBytes(path(), bytes));
    const OvStatus status = m_file.open(path());
    QVERIFY(!status);
    QVERIFY2(status.message().contains(reason), qPrintable(status.message()));
    QVERIFY(status.message().contains(QStringLiteral("test.sgy")));
}

void tst_OvSegyLayout::specialFiles_data()
{
    QTest::addColumn<QString>("special");
    QTest::newRow("missing") << QStringLiteral("/nowhere/at/all.sgy");
    QTest::newRow("folder") << QDir::tempPath();
    QTest::newRow("endless device") << QStringLiteral("/dev/zero");
    QTest::newRow("null device") << QStringLiteral("/dev/null");
    QTest::newRow("size 0 with content") << QStringLiteral("/proc/self/status");
    QTest::newRow("no name") << QString();
}

void tst_OvSegyLayout::specialFiles()
{
    QFETCH(QString, special);
    const OvStatus status = m_file.open(special);
    QVERIFY(!status);
    QVERIFY2(status.message().contains(special), qPrintable(status.message()));
}

void tst_OvSegyLayout::pipeDoesNotBlock()
{
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(QFile::encodeName(path()).constData(), 0600), 0);
    const OvStatus status = m_file.open(path());
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QStringLiteral("regular")), qPrintable(status.message()));
#else
    QSKIP("This system has no named pipes in folders");
#endif
}

void tst_OvSegyLayout::unreadableFile()
{
    QVERIFY(SegyWriter::ramps(2, 5).write(path()));
    QVERIFY(QFile::setPermissions(path(), QFile::Permissions()));
    if (QFileInfo(path()).isReadable())
        QSKIP("This user may read every file");
    const OvStatus status = m_file.open(path());
    QVERIFY(!status);
    QVERIFY(status.message().contains(QStringLiteral("ermission")));
}

/// What the system says goes into the message; a name that is too long is refused to every user.
void tst_OvSegyLayout::reasonOfTheSystem()
{
    const QString name = m_folder->filePath(QString(300, QLatin1Char('x')));
    const OvStatus status = m_file.open(name);
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QStringLiteral("too long")), qPrintable(status.message()));
    QVERIFY(status.message().contains(name));
}

namespace {

/// Read calls that this process has made, or -1 where the system does not count them.
qint64 readCalls()
{
    QFile counts(QStringLiteral("/proc/self/io"));
    if (!counts.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : counts.readAll().split('\n')) {
        if (line.startsWith("syscr: "))
            return line.mid(7).toLongLong();
    }
    return -1;
}

} // namespace

/// Opening reads as much of a file of half a terabyte as of a small one.
void tst_OvSegyLayout::fiveHundredGigabytes()
{
    const QByteArray bytes = SegyWriter::ramps(200, 1000).bytes();
    const auto callsToOpen = [&](qint64 size) {
        const bool made = SegyWriter::writeBytes(path(), bytes) && QFile::resize(path(), size);
        const qint64 before = readCalls();
        return made && m_file.open(path()) ? readCalls() - before : -1;
    };
    if (readCalls() < 0)
        QSKIP("This system does not count read calls");
    const qint64 small = callsToOpen(bytes.size());
    const qint64 traces = 500000000000 / 4240;
    const qint64 large = callsToOpen(headerBytes + traces * 4240);
    if (large < 0)
        QSKIP("The file system does not take a sparse file of 500 GB");
    QCOMPARE(info().traceCount, traces);
    QVERIFY(small > 0);
    QVERIFY2(large <= small + small / 2,
             qPrintable(QStringLiteral("%1 calls, %2 on a small file").arg(large).arg(small)));
}

void tst_OvSegyLayout::shrinksWhileOpen()
{
    open(SegyWriter::ramps(100, 1000));
    QVERIFY(QFile::resize(path(), headerBytes + 4240 * 50 + 100));
    QCOMPARE(sample(49, 999), SegyWriter::rampValue(49, 999));
    std::vector<float> out(1000);
    OvStatus status = m_file.readSamples(50, out.data());
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QStringLiteral("shorter than when it was opened")),
             qPrintable(status.message()));
    OvSegyIndex index;
    QVERIFY(!index.build(m_file));
    QCOMPARE(index.traceCount(), qint64(0));
    OvGather gather;
    gather.headers.resize(1);
    gather.headers[0].traceIndex = 99;
    QVERIFY(!m_file.readSamples(&gather));
    QVERIFY(gather.samples.empty());
}

void tst_OvSegyLayout::growsWhileOpen()
{
    open(SegyWriter::ramps(3, 10));
    QVERIFY(SegyWriter::ramps(30, 10).write(path()));
    QCOMPARE(info().traceCount, qint64(3));
    QCOMPARE(sample(2, 9), SegyWriter::rampValue(2, 9));
    OvSegyIndex index;
    QVERIFY(index.build(m_file));
    QCOMPARE(index.traceCount(), qint64(3));
}

QTEST_GUILESS_MAIN(tst_OvSegyLayout)
#include "tst_OvSegyLayout.moc"

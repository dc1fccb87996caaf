#include "OvSeismic/segy/OvSegyFile.h"

#include "OvSeismic/segy/OvGather.h"
#include "fixtures/SegyWriter.h"

#include <QtTest>

#include <cmath>
#include <limits>

class tst_OvSegyFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void formatsAndByteOrders_data();
    void formatsAndByteOrders();
    void ibmSpecialValues_data();
    void ibmSpecialValues();
    void ieeeKeepsOddValues();
    void integerExtremes();
    void unsupportedFormatIsNamed_data();
    void unsupportedFormatIsNamed();
    void textHeader_data();
    void textHeader();
    void headerWords_data();
    void headerWords();
    void scalars_data();
    void scalars();
    void feetBecomeMetres();
    void sampleCountIsUnsigned();
    void nonAsciiPath();
    void beyondFourGigabytes();
    void readHeadersEndsAtTheFile();
    void badTraceNumbers();
    void gatherInAnyOrder();
    void failedOpenLeavesClosed();

private:
    QString path() const { return m_folder->filePath(QStringLiteral("test.sgy")); }
    void open(const SegyWriter& writer)
    {
        QVERIFY(writer.write(path()));
        const OvStatus status = m_file.open(path());
        QVERIFY2(status, qPrintable(status.message()));
    }
    std::vector<float> samples(qint64 trace)
    {
        std::vector<float> out(static_cast<std::size_t>(m_file.info().sampleCount));
        return m_file.readSamples(trace, out.data()) ? out : std::vector<float>();
    }
    OvTraceHeader header(qint64 trace)
    {
        std::vector<OvTraceHeader> headers;
        return m_file.readHeaders(trace, 1, &headers) ? headers.at(0) : OvTraceHeader();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    OvSegyFile m_file;
};

void tst_OvSegyFile::init()
{
    m_file.close();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_OvSegyFile::formatsAndByteOrders_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<bool>("little");
    for (const int format : {1, 2, 3, 5, 8}) {
        QTest::addRow("%d big", format) << format << false;
        QTest::addRow("%d little", format) << format << true;
    }
}

void tst_OvSegyFile::formatsAndByteOrders()
{
    QFETCH(int, format);
    QFETCH(bool, little);
    SegyWriter writer = SegyWriter::ramps(9, 50);
    writer.format = format;
    writer.order = little ? SegyWriter::Order::Little : SegyWriter::Order::Big;
    open(writer);
    QCOMPARE(int(m_file.info().formatCode), format);
    QCOMPARE(m_file.info().byteOrder, little ? OvByteOrder::LittleEndian : OvByteOrder::BigEndian);
    QCOMPARE(m_file.info().sampleCount, 50);
    QCOMPARE(m_file.info().traceCount, 9);
    QCOMPARE(m_file.info().intervalUs, 1000.0);
    QCOMPARE(m_file.info().warnings, QStringList());
    for (int trace = 0; trace < 9; ++trace) {
        const std::vector<float> read = samples(trace);
        QCOMPARE(read.size(), std::size_t(50));
        for (int k = 0; k < 50; ++k)
            QCOMPARE(read[std::size_t(k)], SegyWriter::rampValue(trace, k));
    }
    QCOMPARE(header(8).fieldRecord, 3);
    QCOMPARE(header(8).offset, 90.0F);
    QCOMPARE(header(8).traceIndex, 8);
}

void tst_OvSegyFile::ibmSpecialValues_data()
{
    QTest::addColumn<quint32>("word");
    QTest::addColumn<double>("value");
    const double infinity = std::numeric_limits<double>::infinity();
    const double largest = std::ldexp(1.0 - std::ldexp(1.0, -24), 128);
    QTest::newRow("zero") << 0U << 0.0;
    QTest::newRow("one") << 0x41100000U << 1.0;
    QTest::newRow("hundred") << 0x42640000U << 100.0;
    QTest::newRow("negative") << 0xC276A000U << -118.625;
    QTest::newRow("negative zero") << 0x80000000U << 0.0;
    QTest::newRow("not normalised") << 0x46000080U << 128.0;
    QTest::newRow("tiny, not normalised") << 0x40000001U << std::ldexp(1.0, -24);
    QTest::newRow("below float32") << 0x00100000U << 0.0;
    QTest::newRow("denormal in float32") << 0x21200000U << std::ldexp(1.0, -127);
    QTest::newRow("largest that fits") << 0x60FFFFFFU << largest;
    QTest::newRow("beyond float32") << 0x7FFFFFFFU << infinity;
    QTest::newRow("beyond float32, negative") << 0xFFFFFFFFU << -infinity;
}

void tst_OvSegyFile::ibmSpecialValues()
{
    QFETCH(quint32, word);
    QFETCH(double, value);
    SegyWriter writer = SegyWriter::ramps(1, 1);
    writer.format = 1;
    QByteArray bytes = writer.bytes();
    for (int i = 0; i < 4; ++i)
        bytes[3600 + 240 + i] = static_cast<char>(word >> (24 - 8 * i));
    QVERIFY(SegyWriter::writeBytes(path(), bytes));
    QVERIFY(m_file.open(path()));
    QCOMPARE(samples(0).at(0), static_cast<float>(value));
}

void tst_OvSegyFile::ieeeKeepsOddValues()
{
    SegyTrace trace;
    trace.samples = {std::numeric_limits<float>::infinity(), std::nanf(""), 1e-45F, -0.0F};
    for (const auto order : {SegyWriter::Order::Big, SegyWriter::Order::Little}) {
        SegyWriter writer;
        writer.order = order;
        writer.sampleCount = 4;
        writer.add(trace);
        open(writer);
        const std::vector<float> read = samples(0);
        QVERIFY(std::isinf(read.at(0)) && std::isnan(read.at(1)));
        QVERIFY(read.at(2) > 0.0F && std::signbit(read.at(3)));
    }
}

void tst_OvSegyFile::integerExtremes()
{
    for (const int format : {2, 3, 8}) {
        const float largest = format == 2 ? 2147483520.0F : format == 3 ? 32767.0F : 127.0F;
        SegyTrace trace;
        trace.samples = {largest, -largest - 1.0F};
        SegyWriter writer;
        writer.sampleCount = 2;
        writer.format = format;
        writer.add(trace);
        open(writer);
        QCOMPARE(samples(0), trace.samples);
    }
}

void tst_OvSegyFile::unsupportedFormatIsNamed_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("part");
    QTest::newRow("4") << 4 << "4 (4-byte fixed point with gain)";
    QTest::newRow("0") << 0 << "3225-3226 is 0";
    QTest::newRow("13") << 13 << "3225-3226 is 13";
    QTest::newRow("-1") << -1 << "3225-3226 is -1";
}

void tst_OvSegyFile::unsupportedFormatIsNamed()
{
    QFETCH(int, code);
    QFETCH(QString, part);
    SegyWriter writer = SegyWriter::ramps(2, 10);
    writer.format = code;
    QVERIFY(writer.write(path()));
    const OvStatus status = m_file.open(path());
    QVERIFY(!status);
    QVERIFY2(status.message().contains(part), qPrintable(status.message()));
    QVERIFY(status.message().contains(QStringLiteral("test.sgy")));
}

void tst_OvSegyFile::textHeader_data()
{
    QTest::addColumn<bool>("ascii");
    QTest::newRow("EBCDIC") << false;
    QTest::newRow("ASCII") << true;
}

void tst_OvSegyFile::textHeader()
{
    QFETCH(bool, ascii);
    SegyWriter writer = SegyWriter::ramps(1, 5);
    writer.asciiText = ascii;
    open(writer);
    QCOMPARE(m_file.info().textEncoding, ascii ? OvTextEncoding::Ascii : OvTextEncoding::Ebcdic);
    const QStringList text = m_file.textHeader();
    QCOMPARE(text.size(), 40);
    QCOMPARE(text.at(0).size(), 80);
    QCOMPARE(text.at(39).trimmed(), QStringLiteral("C40 TEST FILE"));
}

void tst_OvSegyFile::headerWords_data()
{
    QTest::addColumn<bool>("little");
    QTest::newRow("big") << false;
    QTest::newRow("little") << true;
}

void tst_OvSegyFile::headerWords()
{
    QFETCH(bool, little);
    SegyTrace trace;
    trace.fieldRecord = 123456;
    trace.channel = 77;
    trace.cdp = 4242;
    trace.offset = -3237;
    trace.sourceX = -500000;
    trace.sourceY = 1;
    trace.receiverX = 2;
    trace.receiverY = 2147483647;
    trace.sourceElevation = -15;
    trace.receiverElevation = 1234;
    trace.traceId = 2;
    trace.delay = -10;
    SegyWriter writer;
    writer.order = little ? SegyWriter::Order::Little : SegyWriter::Order::Big;
    writer.add(trace);
    open(writer);
    const OvTraceHeader read = header(0);
    QCOMPARE(read.fieldRecord, 123456);
    QCOMPARE(read.channel, 77);
    QCOMPARE(read.cdp, 4242);
    QCOMPARE(read.offset, -3237.0F);
    QCOMPARE(read.sourceX, -500000.0);
    QCOMPARE(read.sourceY, 1.0);
    QCOMPARE(read.receiverX, 2.0);
    QCOMPARE(read.receiverY, 2147483647.0);
    QCOMPARE(read.sourceElevation, -15.0F);
    QCOMPARE(read.receiverElevation, 1234.0F);
    QCOMPARE(read.delayMs, -10.0F);
    QVERIFY(read.isDead());
}

void tst_OvSegyFile::scalars_data()
{
    QTest::addColumn<int>("scalar");
    QTest::addColumn<double>("factor");
    QTest::newRow("0") << 0 << 1.0;
    QTest::newRow("1") << 1 << 1.0;
    QTest::newRow("-1") << -1 << 1.0;
    QTest::newRow("10") << 10 << 10.0;
    QTest::newRow("-100") << -100 << 0.01;
    QTest::newRow("-10000") << -10000 << 0.0001;
    QTest::newRow("smallest word") << -32768 << 1.0 / 32768.0;
}

void tst_OvSegyFile::scalars()
{
    QFETCH(int, scalar);
    QFETCH(double, factor);
    SegyTrace trace;
    trace.sourceX = 123456;
    trace.sourceElevation = 250;
    trace.delay = 1000;
    trace.coordinateScalar = trace.elevationScalar = static_cast<qint16>(scalar);
    trace.words[215] = static_cast<qint16>(scalar);
    SegyWriter writer;
    writer.add(trace);
    open(writer);
    QCOMPARE(int(m_file.info().coordinateScalar), scalar);
    QCOMPARE(header(0).sourceX, 123456 * factor);
    QCOMPARE(header(0).sourceElevation, static_cast<float>(250 * factor));
    QCOMPARE(header(0).delayMs, static_cast<float>(1000 * factor));
}

void tst_OvSegyFile::feetBecomeMetres()
{
    SegyTrace trace;
    trace.offset = 1000;
    trace.sourceX = 1000;
    trace.receiverElevation = 100;
    SegyWriter writer;
    writer.setWord16(3255, 2);
    writer.add(trace);
    open(writer);
    QCOMPARE(m_file.info().warnings.filter(QStringLiteral("feet")).size(), 1);
    QCOMPARE(header(0).offset, 304.8F);
    QCOMPARE(header(0).receiverElevation, 30.48F);
    QCOMPARE(header(0).sourceX, 1000.0);
}

void tst_OvSegyFile::sampleCountIsUnsigned()
{
    open(SegyWriter::ramps(2, 60000));
    QCOMPARE(m_file.info().sampleCount, 60000);
    QCOMPARE(m_file.info().traceCount, 2);
    QCOMPARE(samples(1).at(59999), SegyWriter::rampValue(1, 59999));
}

void tst_OvSegyFile::nonAsciiPath()
{
    const QString odd = m_folder->filePath(QStringLiteral("小文件 é.sgy"));
    QVERIFY(SegyWriter::ramps(2, 10).write(odd));
    QVERIFY(m_file.open(odd));
    QCOMPARE(m_file.info().path, odd);
}

void tst_OvSegyFile::beyondFourGigabytes()
{
    SegyWriter writer = SegyWriter::ramps(1, 32000);
    QVERIFY(writer.write(path()));
    constexpr qint64 traceBytes = 240 + 4 * 32000;
    constexpr qint64 traces = 40000;
    QFile raw(path());
    QVERIFY(raw.open(QIODevice::ReadWrite));
    if (!raw.resize(3600 + traces * traceBytes))
        QSKIP("The file system does not take a sparse file of 5 GB");
    QVERIFY(raw.seek(3600 + traces * traceBytes - 4));
    QCOMPARE(raw.write(QByteArray("\x3F\x80\x00\x00", 4)), qint64(4));
    raw.close();
    QVERIFY(m_file.open(path()));
    QCOMPARE(m_file.info().traceCount, traces);
    QCOMPARE(samples(traces - 1).at(31999), 1.0F);
}

void tst_OvSegyFile::readHeadersEndsAtTheFile()
{
    open(SegyWriter::ramps(10, 5));
    std::vector<OvTraceHeader> headers;
    QVERIFY(m_file.readHeaders(7, 1000, &headers));
    QCOMPARE(headers.size(), std::size_t(3));
    QCOMPARE(headers.at(0).traceIndex, 7);
    QVERIFY(m_file.readHeaders(10, 5, &headers));
    QVERIFY(headers.empty());
    QVERIFY(m_file.readHeaders(3, std::numeric_limits<qint64>::max(), &headers));
    QCOMPARE(headers.size(), std::size_t(7));
}

void tst_OvSegyFile::badTraceNumbers()
{
    open(SegyWriter::ramps(3, 5));
    float out[5];
    std::vector<OvTraceHeader> headers;
    QVERIFY(!m_file.readSamples(-1, out));
    QVERIFY(!m_file.readSamples(3, out));
    QVERIFY(!m_file.readHeaders(-1, 1, &headers));
    QVERIFY(!m_file.readHeaders(4, 1, &headers));
    QVERIFY(!m_file.readHeaders(0, -1, &headers));
    OvGather gather;
    gather.headers.resize(2);
    gather.headers[1].traceIndex = 3;
    const OvStatus status = m_file.readSamples(&gather);
    QVERIFY(!status);
    QVERIFY2(status.message().contains(QStringLiteral("no trace 3")), qPrintable(status.message()));
    m_file.close();
    QVERIFY(!m_file.readSamples(0, out));
}

void tst_OvSegyFile::gatherInAnyOrder()
{
    open(SegyWriter::ramps(20, 5));
    OvGather gather;
    for (const qint64 trace : {5, 6, 7, 3, 3, 19, 0}) {
        gather.headers.emplace_back();
        gather.headers.back().traceIndex = trace;
    }
    QVERIFY(m_file.readSamples(&gather));
    QCOMPARE(gather.sampleCount, 5);
    QCOMPARE(gather.intervalMs, 1.0);
    for (int row = 0; row < gather.traceCount(); ++row) {
        const auto trace = int(gather.headers[std::size_t(row)].traceIndex);
        QCOMPARE(gather.trace(row)[2], SegyWriter::rampValue(trace, 2));
    }
}

void tst_OvSegyFile::failedOpenLeavesClosed()
{
    open(SegyWriter::ramps(2, 5));
    QVERIFY(m_file.isOpen());
    QVERIFY(!m_file.open(QStringLiteral("/nowhere.sgy")));
    QVERIFY(!m_file.isOpen());
    QCOMPARE(m_file.info().traceCount, 0);
    QVERIFY(m_file.info().warnings.isEmpty());
}

QTEST_GUILESS_MAIN(tst_OvSegyFile)
#include "tst_OvSegyFile.moc"

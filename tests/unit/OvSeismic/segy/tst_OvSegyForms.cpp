#include "OvSeismic/segy/OvGather.h"
#include "OvSeismic/segy/OvSegyDoctor.h"
#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "OvSeismic/segy/OvTraceLocator.h"
#include "fixtures/SegyFormWriter.h"
#include "fixtures/SegyWriter.h"

#include <QtTest>

#include <cmath>
#include <cstring>
#include <random>

namespace {

constexpr int headerBytes = 3600;

SegyFormWriter fixed(int traces, int samples)
{
    SegyFormWriter writer;
    writer.samplesStated = samples;
    for (int i = 0; i < traces; ++i) {
        writer.traces.emplace_back();
        writer.traces.back().samples = SegyFormWriter::ramp(i, samples);
    }
    return writer;
}

/// Traces of 20 to 59 samples in no order.
SegyFormWriter variable(int traces)
{
    SegyFormWriter writer;
    writer.fixedLength = 0;
    writer.samplesStated = 40;
    for (int i = 0; i < traces; ++i) {
        writer.traces.emplace_back();
        writer.traces.back().samples = SegyFormWriter::ramp(i, 20 + i * 7 % 40);
    }
    return writer;
}

std::vector<float> narrow(const std::vector<double>& values)
{
    return {values.begin(), values.end()};
}

} // namespace

/// Every form of file that the standard allows, written by a writer of its own.
class tst_OvSegyForms : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void table_data();
    void table();
    void orderWithoutConstant_data();
    void orderWithoutConstant();
    void constantAgainstFormat();
    void pairsOfThreeBytes();
    void tapeLabel_data();
    void tapeLabel();
    void tapeLabelOnly();
    void extendedTexts_data();
    void extendedTexts();
    void firstTraceOffsetWins();
    void extraTraceHeaders_data();
    void extraTraceHeaders();
    void wideSampleCount();
    void trailers_data();
    void trailers();
    void trailerOnVariableFile();
    void swappedRevision21();
    void nullsInText_data();
    void nullsInText();
    void variableLength_data();
    void variableLength();
    void variableUnderFixedFlag();
    void onlyTheLastTraceDiffers();
    void aLateTraceDiffers();
    void extraHeadersPerTrace();
    void variableGather();
    void variableCutOff();
    void variableDamagedMiddle();
    void fixedDamagedMiddle();
    void locatingInParts();
    void locatingIsCancelled();
    void locatorRoundTrip();
    void damagedLocators();
    void zeroFlagOnFixedFile();
    void staleCountsAreNotVariable();
    void wrongFloatFormat_data();
    void wrongFloatFormat();
    void integersAsIbmOfOneExponent();

private:
    QString path() const { return m_folder->filePath(QStringLiteral("form.sgy")); }
    const OvSegyFileInfo& info() const { return m_file.info(); }
    void open(const QByteArray& bytes)
    {
        QVERIFY(SegyWriter::writeBytes(path(), bytes));
        const OvStatus status = m_file.open(path());
        QVERIFY2(status, qPrintable(status.message()));
    }
    QString refusal(const QByteArray& bytes)
    {
        return SegyWriter::writeBytes(path(), bytes) ? m_file.open(path()).message() : QString();
    }
    bool warns(const char* part) const
    {
        return !info().warnings.filter(QLatin1String(part)).isEmpty();
    }
    void verifyTraces(const SegyFormWriter& writer);

    std::unique_ptr<QTemporaryDir> m_folder;
    OvSegyFile m_file;
};

void tst_OvSegyForms::init()
{
    m_file.close();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

/// Count, samples and headers of every trace as they were written.
void tst_OvSegyForms::verifyTraces(const SegyFormWriter& writer)
{
    QVERIFY(m_file.locate());
    QCOMPARE(info().traceCount, qint64(writer.traces.size()));
    std::vector<OvTraceHeader> headers;
    QVERIFY(m_file.readHeaders(0, info().traceCount, &headers));
    QCOMPARE(headers.size(), writer.traces.size());
    for (std::size_t i = 0; i < headers.size(); ++i) {
        const int number = int(i);
        QCOMPARE(headers[i].fieldRecord, 100 + number / 4);
        QCOMPARE(headers[i].channel, 1 + number % 4);
        QCOMPARE(headers[i].offset, 25.0F * float(1 + number % 4));
        const std::vector<float> expected = narrow(writer.traces[i].samples);
        QCOMPARE(std::size_t(m_file.sampleCount(number)), expected.size());
        std::vector<float> read(expected.size());
        QVERIFY(m_file.readSamples(number, read.data()));
        QCOMPARE(read, expected);
    }
}

void tst_OvSegyForms::table_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("order");
    QTest::addColumn<int>("revision");
    const char* orders[] = {"big", "little", "pairs"};
    for (const int format : {1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 15, 16}) {
        for (int order = 0; order < 3; ++order) {
            if (order == 2 && SegyFormWriter::sampleBytes(format) == 3)
                continue;
            for (const int revision : {0x0000, 0x0100, 0x0200, 0x0201}) {
                QTest::addRow("format %d, %s, revision %d.%d", format, orders[order], revision >> 8,
                              revision & 0xFF)
                    << format << order << revision;
            }
        }
    }
}

void tst_OvSegyForms::table()
{
    QFETCH(int, format);
    QFETCH(int, order);
    QFETCH(int, revision);
    SegyFormWriter writer = fixed(7, 33);
    writer.format = format;
    writer.order = SegyFormWriter::Order(order);
    writer.revision = revision;
    open(writer.bytes());
    QCOMPARE(info().warnings, QStringList());
    QCOMPARE(int(info().formatCode), format);
    QCOMPARE(int(info().byteOrder), order);
    QCOMPARE(info().revisionMajor, revision >> 8);
    QCOMPARE(info().revisionMinor, revision & 0xFF);
    QCOMPARE(info().sampleCount, 33);
    QCOMPARE(info().intervalUs, 2000.0);
    QCOMPARE(info().textEncoding, OvTextEncoding::Ebcdic);
    QVERIFY(m_file.hasFixedLength());
    verifyTraces(writer);
}

void tst_OvSegyForms::orderWithoutConstant_data()
{
    QTest::addColumn<int>("order");
    QTest::newRow("big") << 0;
    QTest::newRow("little") << 1;
    QTest::newRow("pairs") << 2;
}

void tst_OvSegyForms::orderWithoutConstant()
{
    QFETCH(int, order);
    SegyFormWriter writer = fixed(5, 20);
    writer.order = SegyFormWriter::Order(order);
    writer.revision = 0x0200;
    writer.orderConstant = false;
    writer.extendedTexts = writer.textRecord("((SEG: Coordinates))");
    writer.textsStated = 1;
    writer.traces[0].words32 = {{73, -500000}, {77, -1}, {41, -20}};
    open(writer.bytes());
    QCOMPARE(int(info().byteOrder), order);
    verifyTraces(writer);
}

void tst_OvSegyForms::constantAgainstFormat()
{
    SegyFormWriter writer = fixed(5, 20);
    writer.revision = 0x0200;
    writer.words32[3297] = 33620995;
    open(writer.bytes());
    QCOMPARE(info().byteOrder, OvByteOrder::BigEndian);
    QVERIFY(warns("byte-order constant"));
    verifyTraces(writer);
}

void tst_OvSegyForms::pairsOfThreeBytes()
{
    SegyFormWriter writer = fixed(3, 20);
    writer.order = SegyFormWriter::Order::Pairs;
    writer.format = 7;
    QVERIFY(refusal(writer.bytes()).contains(QStringLiteral("3 bytes")));
}

void tst_OvSegyForms::tapeLabel_data()
{
    QTest::addColumn<int>("revision");
    QTest::addColumn<int>("order");
    QTest::addColumn<int>("texts");
    QTest::newRow("revision 1") << 0x0100 << 0 << 0;
    QTest::newRow("revision 2, little-endian") << 0x0200 << 1 << 0;
    QTest::newRow("revision 1, extended text") << 0x0100 << 0 << 2;
}

void tst_OvSegyForms::tapeLabel()
{
    QFETCH(int, revision);
    QFETCH(int, order);
    QFETCH(int, texts);
    SegyFormWriter writer = fixed(6, 30);
    writer.revision = revision;
    writer.order = SegyFormWriter::Order(order);
    writer.tapeLabel = true;
    for (int i = 0; i < texts; ++i)
        writer.extendedTexts += writer.textRecord("more");
    writer.textsStated = texts;
    open(writer.bytes());
    QCOMPARE(info().labelBytes, qint64(128));
    QCOMPARE(info().firstTraceOffset, qint64(128 + headerBytes + 3200 * texts));
    QCOMPARE(info().warnings, QStringList());
    QVERIFY(m_file.textHeader().at(0).startsWith(QStringLiteral("C 1 EVERY FORM (TEST)")));
    verifyTraces(writer);
}

void tst_OvSegyForms::tapeLabelOnly()
{
    SegyFormWriter writer = fixed(1, 1);
    writer.tapeLabel = true;
    QVERIFY(refusal(writer.bytes().left(headerBytes + 100)).contains(QStringLiteral("tape label")));
}

void tst_OvSegyForms::extendedTexts_data()
{
    QTest::addColumn<int>("texts");
    QTest::addColumn<bool>("counted");
    QTest::addColumn<bool>("ascii");
    for (const bool ascii : {false, true}) {
        const char* name = ascii ? "ASCII" : "EBCDIC";
        QTest::addRow("three counted, %s", name) << 3 << true << ascii;
        QTest::addRow("one to the end stanza, %s", name) << 1 << false << ascii;
        QTest::addRow("five to the end stanza, %s", name) << 5 << false << ascii;
    }
}

void tst_OvSegyForms::extendedTexts()
{
    QFETCH(int, texts);
    QFETCH(bool, counted);
    QFETCH(bool, ascii);
    SegyFormWriter writer = fixed(6, 30);
    writer.asciiText = ascii;
    for (int i = 1; i < texts; ++i)
        writer.extendedTexts += writer.textRecord("((SEG: Measurement Units ver 1.0))");
    writer.extendedTexts += writer.textRecord("((SEG: EndText))");
    writer.textsStated = counted ? texts : -1;
    open(writer.bytes());
    QCOMPARE(info().extendedTextHeaders, texts);
    QCOMPARE(info().textEncoding, ascii ? OvTextEncoding::Ascii : OvTextEncoding::Ebcdic);
    QCOMPARE(info().warnings, QStringList());
    verifyTraces(writer);
}

void tst_OvSegyForms::firstTraceOffsetWins()
{
    for (const int stated : {0, -1}) {
        SegyFormWriter writer = fixed(6, 30);
        writer.revision = 0x0200;
        writer.extendedTexts = writer.textRecord("one") + writer.textRecord("two");
        writer.textsStated = stated;
        writer.words64[3521] = headerBytes + 6400;
        open(writer.bytes());
        QCOMPARE(info().firstTraceOffset, qint64(headerBytes + 6400));
        QCOMPARE(info().extendedTextHeaders, 2);
        QCOMPARE(info().warnings, QStringList());
        verifyTraces(writer);
    }
}

void tst_OvSegyForms::extraTraceHeaders_data()
{
    QTest::addColumn<int>("revision");
    QTest::addColumn<int>("extra");
    QTest::addColumn<int>("order");
    QTest::newRow("one") << 0x0200 << 1 << 0;
    QTest::newRow("three, revision 2.1") << 0x0201 << 3 << 0;
    QTest::newRow("two, little-endian") << 0x0200 << 2 << 1;
    QTest::newRow("two, pairs") << 0x0200 << 2 << 2;
}

void tst_OvSegyForms::extraTraceHeaders()
{
    QFETCH(int, revision);
    QFETCH(int, extra);
    QFETCH(int, order);
    SegyFormWriter writer = fixed(6, 30);
    writer.revision = revision;
    writer.order = SegyFormWriter::Order(order);
    for (auto& trace : writer.traces)
        trace.extraHeaders = extra;
    if (revision == 0x0200)
        writer.words32[3507] = extra;
    else
        writer.words16[3507] = qint16(extra);
    open(writer.bytes());
    QCOMPARE(info().extraTraceHeaders, extra);
    QCOMPARE(info().warnings, QStringList());
    QCOMPARE(m_file.headerBytes(5), qint64(240 * (1 + extra)));
    QCOMPARE(m_file.position(1), qint64(headerBytes + 240 * (1 + extra) + 30 * 4));
    verifyTraces(writer);
}

void tst_OvSegyForms::wideSampleCount()
{
    SegyFormWriter writer = fixed(3, 70000);
    writer.revision = 0x0200;
    writer.samplesStated = 0;
    for (auto& trace : writer.traces)
        trace.extraHeaders = 1;
    writer.words32[3507] = 1;
    for (const bool stated : {true, false}) {
        writer.words32[3269] = stated ? 70000 : 0;
        open(writer.bytes());
        QCOMPARE(info().sampleCount, 70000);
        verifyTraces(writer);
    }
}

void tst_OvSegyForms::trailers_data()
{
    QTest::addColumn<int>("stated");
    QTest::addColumn<int>("statedTraces");
    QTest::newRow("counted") << 2 << 0;
    QTest::newRow("counted, traces counted") << 2 << 5;
    QTest::newRow("not counted, traces counted") << -1 << 5;
}

void tst_OvSegyForms::trailers()
{
    QFETCH(int, stated);
    QFETCH(int, statedTraces);
    // So long that a trace fits into the trailer many times.
    SegyFormWriter writer = fixed(5, 40);
    writer.revision = 0x0201;
    writer.words32[3529] = stated;
    writer.words64[3513] = statedTraces;
    writer.trailer = writer.textRecord("((SEG: Data Trailer))") + writer.textRecord("more");
    open(writer.bytes());
    QCOMPARE(info().trailerRecords, stated);
    QCOMPARE(info().tracesEnd, info().fileSize - 6400);
    QCOMPARE(info().warnings, QStringList());
    verifyTraces(writer);
}

void tst_OvSegyForms::trailerOnVariableFile()
{
    SegyFormWriter writer = variable(30);
    writer.revision = 0x0201;
    writer.words32[3529] = 1;
    writer.trailer = writer.textRecord("((SEG: Data Trailer))");
    open(writer.bytes());
    QVERIFY(!m_file.hasFixedLength());
    verifyTraces(writer);
    QVERIFY(!warns("damaged"));
    writer.words32[3529] = -1;
    open(writer.bytes());
    verifyTraces(writer);
    QVERIFY(!warns("damaged"));
}

void tst_OvSegyForms::swappedRevision21()
{
    SegyFormWriter writer = fixed(3, 10);
    QByteArray bytes = writer.bytes();
    bytes[3500] = 1;
    bytes[3501] = 2;
    open(bytes);
    QCOMPARE(info().revisionMajor, 2);
    QCOMPARE(info().revisionMinor, 1);
}

void tst_OvSegyForms::nullsInText_data()
{
    QTest::addColumn<bool>("ascii");
    QTest::newRow("EBCDIC") << false;
    QTest::newRow("ASCII") << true;
}

void tst_OvSegyForms::nullsInText()
{
    QFETCH(bool, ascii);
    SegyFormWriter writer = fixed(3, 10);
    writer.asciiText = ascii;
    QByteArray bytes = writer.bytes();
    bytes.replace(40, 3000, QByteArray(3000, '\0'));
    bytes.replace(5, 1, QByteArray(1, '\0'));
    open(bytes);
    QCOMPARE(info().textEncoding, ascii ? OvTextEncoding::Ascii : OvTextEncoding::Ebcdic);
    QCOMPARE(m_file.textHeader().at(0).left(12), QStringLiteral("C 1 E ERY FO"));
    QCOMPARE(m_file.textHeader().at(20), QString(80, QLatin1Char(' ')));
    verifyTraces(writer);
}

void tst_OvSegyForms::variableLength_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("order");
    QTest::addColumn<int>("revision");
    QTest::newRow("IEEE") << 5 << 0 << 0x0100;
    QTest::newRow("IBM, little-endian") << 1 << 1 << 0x0100;
    QTest::newRow("double, pairs") << 6 << 2 << 0x0200;
    QTest::newRow("3 bytes") << 7 << 0 << 0x0201;
    QTest::newRow("revision 0") << 3 << 0 << 0x0000;
}

void tst_OvSegyForms::variableLength()
{
    QFETCH(int, format);
    QFETCH(int, order);
    QFETCH(int, revision);
    SegyFormWriter writer = variable(300);
    writer.format = format;
    writer.order = SegyFormWriter::Order(order);
    writer.revision = revision;
    open(writer.bytes());
    QVERIFY(!m_file.hasFixedLength());
    QVERIFY(warns("differ in length"));
    QCOMPARE(m_file.locatedCount(), qint64(0));
    QCOMPARE(m_file.position(0), qint64(-1));
    QCOMPARE(m_file.sampleCount(0), 0);
    float none = 0.0F;
    QVERIFY(!m_file.readSamples(0, &none));
    verifyTraces(writer);
    QCOMPARE(info().sampleCount, 59);
    QCOMPARE(info().warnings.size(), 1);
    QCOMPARE(m_file.position(300), qint64(-1));
    qint64 position = headerBytes;
    for (int i = 0; i < 300; ++i) {
        QCOMPARE(m_file.position(i), position);
        position += 240 + m_file.sampleCount(i) * SegyFormWriter::sampleBytes(format);
    }
    QCOMPARE(position, info().fileSize);
}

void tst_OvSegyForms::variableUnderFixedFlag()
{
    SegyFormWriter writer = variable(50);
    writer.fixedLength = 1;
    open(writer.bytes());
    QVERIFY(!m_file.hasFixedLength());
    verifyTraces(writer);
}

void tst_OvSegyForms::onlyTheLastTraceDiffers()
{
    for (const int samples : {11, 39, 41, 200}) {
        SegyFormWriter writer = fixed(30, 40);
        writer.fixedLength = 0;
        writer.traces.back().samples = SegyFormWriter::ramp(29, samples);
        open(writer.bytes());
        QVERIFY2(!m_file.hasFixedLength(), qPrintable(QString::number(samples)));
        verifyTraces(writer);
    }
}

void tst_OvSegyForms::aLateTraceDiffers()
{
    SegyFormWriter writer = fixed(3000, 40);
    writer.fixedLength = 0;
    writer.traces[2345].samples = SegyFormWriter::ramp(2345, 90);
    open(writer.bytes());
    QVERIFY(!m_file.hasFixedLength());
    verifyTraces(writer);
}

void tst_OvSegyForms::extraHeadersPerTrace()
{
    SegyFormWriter writer = fixed(40, 30);
    writer.revision = 0x0201;
    writer.fixedLength = 0;
    writer.words16[3507] = 4;
    for (int i = 0; i < 40; ++i)
        writer.traces[std::size_t(i)].extraHeaders = 1 + i % 4;
    open(writer.bytes());
    QVERIFY(!m_file.hasFixedLength());
    verifyTraces(writer);
    QCOMPARE(m_file.headerBytes(2), qint64(240 * 4));
}

void tst_OvSegyForms::variableGather()
{
    const SegyFormWriter writer = variable(12);
    open(writer.bytes());
    OvSegyIndex index;
    OvStatus status = index.build(m_file);
    QVERIFY2(status, qPrintable(status.message()));
    QCOMPARE(index.gatherCount(), 3);
    OvGather gather;
    QVERIFY(index.readGather(m_file, 1, &gather));
    QCOMPARE(gather.traceCount(), 4);
    int longest = 0;
    for (int row = 0; row < 4; ++row)
        longest = qMax(longest, int(writer.traces[std::size_t(4 + row)].samples.size()));
    QCOMPARE(gather.sampleCount, longest);
    for (int row = 0; row < 4; ++row) {
        std::vector<float> expected = narrow(writer.traces[std::size_t(4 + row)].samples);
        expected.resize(std::size_t(longest), 0.0F);
        const float* read = gather.trace(row);
        QCOMPARE(std::vector<float>(read, read + longest), expected);
    }
}

void tst_OvSegyForms::variableCutOff()
{
    const SegyFormWriter writer = variable(100);
    const QByteArray bytes = writer.bytes();
    open(bytes);
    QVERIFY(m_file.locate());
    const qint64 last = m_file.position(99);
    for (const qint64 size : {last + 1, last + 239, last + 240, qint64(bytes.size()) - 1}) {
        open(bytes.left(int(size)));
        QVERIFY(m_file.locate());
        QCOMPARE(info().traceCount, qint64(99));
        QVERIFY(warns("Whole traces that are read: 99;"));
    }
}

void tst_OvSegyForms::variableDamagedMiddle()
{
    const SegyFormWriter writer = variable(100);
    QByteArray bytes = writer.bytes();
    open(bytes);
    QVERIFY(m_file.locate());
    const int damage = int(m_file.position(60));
    bytes.replace(damage, 240, QByteArray(240, '\x5A'));
    open(bytes);
    QVERIFY(m_file.locate());
    QCOMPARE(info().traceCount, qint64(60));
    QVERIFY(warns("Whole traces that are read: 60;"));
    std::vector<float> read(std::size_t(m_file.sampleCount(59)));
    QVERIFY(m_file.readSamples(59, read.data()));
    QCOMPARE(read, narrow(writer.traces[59].samples));
}

void tst_OvSegyForms::fixedDamagedMiddle()
{
    SegyFormWriter writer = fixed(1000, 40);
    QByteArray bytes = writer.bytes();
    bytes.insert(headerBytes + 400 * 623 + 300, "xyz");
    open(bytes);
    QVERIFY(m_file.hasFixedLength());
    QCOMPARE(info().traceCount, qint64(1000));
    QVERIFY(warns("header of trace 625, at byte 253201, makes no sense"));
    QVERIFY(warns("bytes behind them that are left out: 3."));
}

void tst_OvSegyForms::locatingInParts()
{
    const SegyFormWriter writer = variable(500);
    open(writer.bytes());
    QVERIFY(m_file.locate({}, 10));
    QCOMPARE(m_file.locatedCount(), qint64(10));
    std::vector<float> read(writer.traces[9].samples.size());
    QVERIFY(m_file.readSamples(9, read.data()));
    QCOMPARE(read, narrow(writer.traces[9].samples));
    QVERIFY(m_file.savedLocator().isEmpty());
    // An older answer stays valid beside the new one.
    const OvSegyFileInfo& before = info();
    QVERIFY(m_file.locate());
    QCOMPARE(m_file.locatedCount(), qint64(500));
    QVERIFY(before.traceCount != 500);
    QCOMPARE(info().traceCount, qint64(500));
    OvSegyIndex first;
    QVERIFY(first.buildFirstGather(m_file));
    QCOMPARE(first.gatherTraceCount(0), 4);
}

void tst_OvSegyForms::locatingIsCancelled()
{
    SegyFormWriter writer = variable(20);
    QByteArray bytes = writer.bytes();
    const QByteArray traces = bytes.mid(headerBytes);
    while (bytes.size() < 60000000)
        bytes += traces;
    open(bytes);
    int calls = 0;
    const OvStatus status = m_file.locate([&](qint64 done, qint64 total) {
        ++calls;
        return done > total;
    });
    QVERIFY(!status);
    QCOMPARE(calls, 1);
    QCOMPARE(m_file.locatedCount(), qint64(0));
    QVERIFY(m_file.locate());
    QCOMPARE(m_file.locatedCount() % 20, qint64(0));
}

void tst_OvSegyForms::locatorRoundTrip()
{
    const SegyFormWriter writer = variable(200);
    open(writer.bytes());
    QVERIFY(m_file.locate());
    const QByteArray saved = m_file.savedLocator();
    QVERIFY(saved.size() <= 200 * 4 + 40 * 8 + 28);
    m_file.close();
    QVERIFY(m_file.open(path()));
    QVERIFY(m_file.restoreLocator(saved));
    QCOMPARE(m_file.savedLocator(), saved);
    verifyTraces(writer);
    open(fixed(5, 20).bytes());
    QVERIFY(!m_file.restoreLocator(saved));
    QVERIFY(m_file.savedLocator().isEmpty());
}

void tst_OvSegyForms::damagedLocators()
{
    const SegyFormWriter writer = variable(20);
    open(writer.bytes());
    QVERIFY(m_file.locate());
    const QByteArray saved = m_file.savedLocator();
    std::mt19937 random(7);
    const qint64 size = info().fileSize;
    for (int at = 0; at <= saved.size(); ++at) {
        OvTraceLocator locator;
        QVERIFY(!OvTraceLocator::restore(saved.left(at - 1), size, &locator));
        QByteArray bytes = saved;
        if (at < saved.size())
            bytes[at] = static_cast<char>(bytes[at] ^ static_cast<char>(1 + random() % 255));
        if (OvTraceLocator::restore(bytes, size, &locator))
            QVERIFY(locator.end() <= size && locator.count() == 20);
    }
    OvTraceLocator locator;
    QVERIFY(OvTraceLocator::restore(saved, size, &locator));
    QVERIFY(!OvTraceLocator::restore(saved, size - 1, &locator));
    QCOMPARE(locator.count(), qint64(20));
}

void tst_OvSegyForms::zeroFlagOnFixedFile()
{
    SegyFormWriter writer = fixed(100, 40);
    writer.fixedLength = 0;
    open(writer.bytes());
    QVERIFY(m_file.hasFixedLength());
    QCOMPARE(info().warnings, QStringList());
    verifyTraces(writer);
}

void tst_OvSegyForms::staleCountsAreNotVariable()
{
    SegyFormWriter writer = fixed(100, 40);
    writer.fixedLength = 0;
    for (auto& trace : writer.traces)
        trace.words16[115] = 1500;
    QByteArray bytes = writer.bytes();
    open(bytes);
    QVERIFY(m_file.hasFixedLength());
    QVERIFY(warns("1500; 40 is used"));
    verifyTraces(writer);
    // Neither are they when the file is cut off besides.
    open(bytes.left(bytes.size() - 30));
    QVERIFY(m_file.hasFixedLength());
    QCOMPARE(info().traceCount, qint64(99));
}

void tst_OvSegyForms::wrongFloatFormat_data()
{
    QTest::addColumn<int>("written");
    QTest::addColumn<int>("traces");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<bool>("recognised");
    for (const int written : {1, 5}) {
        const char* name = written == 1 ? "IBM" : "IEEE";
        QTest::addRow("%s, waves", name) << written << 12 << QByteArray("waves") << true;
        // One trace may be odd, and what is no signal tells nothing.
        QTest::addRow("%s, one trace", name) << written << 1 << QByteArray("waves") << false;
        QTest::addRow("%s, noise", name) << written << 12 << QByteArray("noise") << false;
        QTest::addRow("%s, zeros", name) << written << 12 << QByteArray("zeros") << false;
        QTest::addRow("%s, integers", name) << written << 12 << QByteArray("integers") << false;
    }
}

void tst_OvSegyForms::wrongFloatFormat()
{
    QFETCH(int, written);
    QFETCH(int, traces);
    QFETCH(QByteArray, signal);
    QFETCH(bool, recognised);
    SegyFormWriter writer = fixed(traces, 600);
    writer.format = written;
    std::mt19937 random(5);
    for (auto& trace : writer.traces) {
        for (std::size_t i = 0; i < trace.samples.size(); ++i) {
            const double time = double(i) * 0.002;
            const double noise = double(random()) / double(random.max()) - 0.5;
            const double wave = std::sin(200.0 * time) * 800.0 * std::exp(-3.0 * time);
            if (signal != "integers")
                trace.samples[i] = signal == "zeros"   ? 0.0
                                   : signal == "noise" ? noise
                                                       : wave + noise;
        }
    }
    // Under its own declaration it is never in doubt.
    open(writer.bytes());
    QCOMPARE(int(info().formatCode), written);
    QCOMPARE(int(info().likelyFormatCode), 0);
    QCOMPARE(info().warnings, QStringList());
    QByteArray bytes = writer.bytes();
    const int declared = 6 - written;
    bytes[3225] = static_cast<char>(declared);
    open(bytes);
    QCOMPARE(int(info().declaredFormatCode), declared);
    QCOMPARE(int(info().formatCode), recognised ? written : declared);
    QCOMPARE(warns("clearly are in format"), recognised);
}

/// 0x46 and an integer of 24 bits: read as IEEE, such words are nearly the same number.
void tst_OvSegyForms::integersAsIbmOfOneExponent()
{
    SegyFormWriter writer = fixed(12, 600);
    writer.format = 2;
    std::mt19937 random(9);
    for (auto& trace : writer.traces) {
        for (double& value : trace.samples)
            value = double(0x46000000 + random() % 5000);
    }
    QByteArray bytes = writer.bytes();
    bytes[3225] = 1;
    open(bytes);
    QCOMPARE(int(info().formatCode), 1);
    QCOMPARE(info().warnings, QStringList());
    std::vector<float> read(600);
    QVERIFY(m_file.readSamples(0, read.data()));
    QCOMPARE(double(read[7]), writer.traces[0].samples[7] - 0x46000000);
}

QTEST_GUILESS_MAIN(tst_OvSegyForms)
#include "tst_OvSegyForms.moc"

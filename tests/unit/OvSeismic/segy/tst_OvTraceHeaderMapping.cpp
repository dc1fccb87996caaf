#include "OvSeismic/segy/OvTraceHeaderMapping.h"

#include <QtTest>

#include <cmath>

namespace {

using Mapping = OvTraceHeaderMapping;

QByteArray header()
{
    return QByteArray(480, '\0');
}

/// Bytes are given as they stand in the file.
void put(QByteArray* header, int position, const QByteArray& hex)
{
    const QByteArray bytes = QByteArray::fromHex(hex);
    header->replace(position - 1, bytes.size(), bytes);
}

OvHeaderWord word(int position, OvHeaderType type, OvHeaderOrder order = OvHeaderOrder::File)
{
    return {position, type, order};
}

Mapping mappingWith(Mapping::Quantity quantity, const OvHeaderWord& word)
{
    Mapping mapping;
    mapping.setWord(quantity, word);
    return mapping;
}

QStringList messages(const Mapping& mapping, int headerBytes, Mapping::Problem::Severity severity)
{
    QStringList texts;
    const auto problems = mapping.problems(headerBytes);
    for (const auto& problem : problems) {
        if (problem.severity == severity)
            texts += problem.message;
    }
    return texts;
}

QStringList errors(const Mapping& mapping, int headerBytes = 240)
{
    return messages(mapping, headerBytes, Mapping::Problem::Error);
}

QStringList warnings(const Mapping& mapping, int headerBytes = 240)
{
    return messages(mapping, headerBytes, Mapping::Problem::Warning);
}

} // namespace

class tst_OvTraceHeaderMapping : public QObject
{
    Q_OBJECT

private slots:
    void readsEachTypeAndOrder_data();
    void readsEachTypeAndOrder();
    void absentWordIsZero();
    void decodesTheStandardHeader();
    void decodesWithScalars();
    void roundsAndBoundsNumbers();
    void readsTheExtensionHeader();
    void everyPresetIsUsable_data();
    void everyPresetIsUsable();
    void extentIsTheLastByteUsed();
    void mapRoundTrip();
    void unfitMapEntriesTakeTheDefault();
    void textRoundTrip();
    void textNamesWhatItCannotRead();
    void equalityLooksAtEveryWord();
    void placesBehindTheHeaderAreErrors();
    void overlapsAreErrors();
    void sharedWordsAreWarnings();
    void typesThatDoNotFit();
    void incompleteGeometryIsAWarning();
};

void tst_OvTraceHeaderMapping::readsEachTypeAndOrder_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("order");
    QTest::addColumn<bool>("bigFile");
    QTest::addColumn<QByteArray>("hex");
    QTest::addColumn<double>("expected");
    const auto row = [](const char* name, OvHeaderType type, OvHeaderOrder order, bool bigFile,
                        const char* hex, double expected) {
        QTest::newRow(name) << int(type) << int(order) << bigFile << QByteArray(hex) << expected;
    };
    const auto file = OvHeaderOrder::File;
    row("int8", OvHeaderType::Int8, file, true, "fe", -2.0);
    row("uint8", OvHeaderType::UInt8, file, true, "fe", 254.0);
    row("int16", OvHeaderType::Int16, file, true, "fffe", -2.0);
    row("int16 of a little-endian file", OvHeaderType::Int16, file, false, "0102", 513.0);
    row("uint16", OvHeaderType::UInt16, file, true, "fffe", 65534.0);
    row("int32", OvHeaderType::Int32, file, true, "fffffffe", -2.0);
    row("int32 of a little-endian file", OvHeaderType::Int32, file, false, "01020000", 513.0);
    row("uint32", OvHeaderType::UInt32, file, true, "fffffffe", 4294967294.0);
    row("int64", OvHeaderType::Int64, file, true, "fffffffffffffffe", -2.0);
    row("float32", OvHeaderType::Float32, file, true, "c1480000", -12.5);
    row("float32 of a little-endian file", OvHeaderType::Float32, file, false, "000048c1", -12.5);
    row("float64", OvHeaderType::Float64, file, true, "c029000000000000", -12.5);
    // The textbook's number: -118.625.
    row("IBM", OvHeaderType::IbmFloat32, file, true, "c276a000", -118.625);
    row("IBM zero", OvHeaderType::IbmFloat32, file, true, "00000000", 0.0);
    row("IBM largest", OvHeaderType::IbmFloat32, file, true, "7fffffff",
        std::ldexp(1.0, 252) - std::ldexp(1.0, 228));
    row("big in a little-endian file", OvHeaderType::Int32, OvHeaderOrder::Big, false, "00000201",
        513.0);
    row("little in a big-endian file", OvHeaderType::Int32, OvHeaderOrder::Little, true, "01020000",
        513.0);
}

void tst_OvTraceHeaderMapping::readsEachTypeAndOrder()
{
    QFETCH(int, type);
    QFETCH(int, order);
    QFETCH(bool, bigFile);
    QFETCH(QByteArray, hex);
    QFETCH(double, expected);
    const OvByteOrder fileOrder = bigFile ? OvByteOrder::BigEndian : OvByteOrder::LittleEndian;
    // 232 is not aligned to anything, and the last byte of an 8-byte word is the header's last.
    for (const int position : {1, 38, 233}) {
        QByteArray bytes = header();
        put(&bytes, position, hex);
        const OvHeaderWord probe{position, static_cast<OvHeaderType>(type),
                                 static_cast<OvHeaderOrder>(order)};
        QCOMPARE(probe.value(bytes.constData(), fileOrder), expected);
        QCOMPARE(OvHeaderWord::bytes(probe.type), hex.size() / 2);
    }
}

void tst_OvTraceHeaderMapping::absentWordIsZero()
{
    const QByteArray bytes(240, '\x7f');
    QCOMPARE(word(0, OvHeaderType::Int32).value(bytes.constData(), OvByteOrder::BigEndian), 0.0);
    const Mapping mapping = mappingWith(Mapping::Channel, word(0, OvHeaderType::Int32));
    QCOMPARE(mapping.decode(bytes.constData(), OvByteOrder::BigEndian, 0, 1.0).channel, 0);
}

void tst_OvTraceHeaderMapping::decodesTheStandardHeader()
{
    QByteArray bytes = header();
    put(&bytes, 9, "00000007");
    put(&bytes, 13, "00000008");
    put(&bytes, 21, "00000009");
    put(&bytes, 29, "0002");
    put(&bytes, 37, "ffffff9c");
    put(&bytes, 73, "00000064");
    put(&bytes, 77, "00000065");
    put(&bytes, 81, "00000066");
    put(&bytes, 85, "00000067");
    put(&bytes, 109, "fff6");
    const OvTraceHeader read =
        Mapping().decode(bytes.constData(), OvByteOrder::BigEndian, 41, 0.3048);
    QCOMPARE(read.traceIndex, qint64(41));
    QCOMPARE(read.fieldRecord, 7);
    QCOMPARE(read.channel, 8);
    QCOMPARE(read.cdp, 9);
    QVERIFY(read.isDead());
    QCOMPARE(read.offset, -30.48F);
    QCOMPARE(read.sourceX, 100.0);
    QCOMPARE(read.sourceY, 101.0);
    QCOMPARE(read.receiverX, 102.0);
    QCOMPARE(read.receiverY, 103.0);
    QCOMPARE(read.delayMs, -10.0F);
}

void tst_OvTraceHeaderMapping::decodesWithScalars()
{
    QByteArray bytes = header();
    put(&bytes, 41, "000003e8");
    put(&bytes, 45, "000007d0");
    put(&bytes, 69, "ff9c"); // -100
    put(&bytes, 71, "000a"); // 10
    put(&bytes, 73, "00000064");
    put(&bytes, 109, "0064");
    put(&bytes, 215, "fff6"); // -10
    const OvTraceHeader read = Mapping().decode(bytes.constData(), OvByteOrder::BigEndian, 0, 1.0);
    QCOMPARE(read.receiverElevation, 10.0F);
    QCOMPARE(read.sourceElevation, 20.0F);
    QCOMPARE(read.sourceX, 1000.0);
    QCOMPARE(read.delayMs, 10.0F);
    Mapping unscaled;
    unscaled.setWord(Mapping::CoordinateScalar, word(0, OvHeaderType::Int16));
    QCOMPARE(unscaled.decode(bytes.constData(), OvByteOrder::BigEndian, 0, 1.0).sourceX, 100.0);
}

void tst_OvTraceHeaderMapping::roundsAndBoundsNumbers()
{
    const auto record = [](const char* hex) {
        QByteArray bytes = header();
        put(&bytes, 9, hex);
        return mappingWith(Mapping::FieldRecord, word(9, OvHeaderType::Float32))
            .decode(bytes.constData(), OvByteOrder::BigEndian, 0, 1.0)
            .fieldRecord;
    };
    QCOMPARE(record("40200000"), 3); // 2.5
    QCOMPARE(record("7fc00000"), 0); // not a number
    QCOMPARE(record("7f800000"), std::numeric_limits<qint32>::max());
    QCOMPARE(record("ff800000"), std::numeric_limits<qint32>::min());
}

void tst_OvTraceHeaderMapping::readsTheExtensionHeader()
{
    QByteArray bytes = header();
    put(&bytes, 71, "0064"); // does not scale what stands in the extension
    put(&bytes, 240 + 17, "0000000000000005");
    put(&bytes, 240 + 97, "412e848200000000");  // 1000001.0
    put(&bytes, 240 + 129, "c08f440000000000"); // -1000.5
    const Mapping mapping = Mapping::preset(Mapping::Revision2);
    const OvTraceHeader read = mapping.decode(bytes.constData(), OvByteOrder::BigEndian, 0, 1.0);
    QCOMPARE(read.fieldRecord, 5);
    QCOMPARE(read.sourceX, 1000001.0);
    QCOMPARE(read.offset, -1000.5F);
    QCOMPARE(mapping.extent(), 240 + 136);
    QVERIFY(!mapping.validate(240));
    QVERIFY(mapping.validate(480));
}

void tst_OvTraceHeaderMapping::everyPresetIsUsable_data()
{
    QTest::addColumn<int>("preset");
    for (int i = 0; i < Mapping::presetCount; ++i)
        QTest::newRow(qPrintable(Mapping::presetName(static_cast<Mapping::Preset>(i)))) << i;
}

void tst_OvTraceHeaderMapping::everyPresetIsUsable()
{
    QFETCH(int, preset);
    const Mapping mapping = Mapping::preset(static_cast<Mapping::Preset>(preset));
    QCOMPARE(errors(mapping, 480), QStringList());
    QCOMPARE(warnings(mapping, 480), QStringList());
    QCOMPARE(mapping.isDefault(), preset == Mapping::Revision1);
}

void tst_OvTraceHeaderMapping::extentIsTheLastByteUsed()
{
    QCOMPARE(Mapping().extent(), 216);
    QCOMPARE(mappingWith(Mapping::Cdp, word(233, OvHeaderType::Float64)).extent(), 240);
}

void tst_OvTraceHeaderMapping::mapRoundTrip()
{
    for (int i = 0; i < Mapping::presetCount; ++i) {
        const Mapping mapping = Mapping::preset(static_cast<Mapping::Preset>(i));
        QVERIFY(Mapping::fromMap(mapping.toMap()) == mapping);
    }
    QVERIFY(Mapping::fromMap({}).isDefault());
}

void tst_OvTraceHeaderMapping::unfitMapEntriesTakeTheDefault()
{
    QVariantMap map = mappingWith(Mapping::Cdp, word(193, OvHeaderType::Int16)).toMap();
    map[QStringLiteral("channel")] = 17;
    map[QStringLiteral("offset")] = QVariantMap{{QStringLiteral("position"), -4},
                                                {QStringLiteral("type"), QStringLiteral("int32")},
                                                {QStringLiteral("order"), QStringLiteral("file")}};
    map[QStringLiteral("delay")] = QVariantMap{{QStringLiteral("position"), 109},
                                               {QStringLiteral("type"), QStringLiteral("int17")},
                                               {QStringLiteral("order"), QStringLiteral("file")}};
    map[QStringLiteral("nothing")] = 1;
    const Mapping mapping = Mapping::fromMap(map);
    QCOMPARE(mapping.word(Mapping::Cdp).position, 193);
    for (const auto quantity : {Mapping::Channel, Mapping::Offset, Mapping::Delay})
        QVERIFY(mapping.word(quantity) == Mapping().word(quantity));
}

void tst_OvTraceHeaderMapping::textRoundTrip()
{
    for (int i = 0; i < Mapping::presetCount; ++i) {
        const Mapping mapping = Mapping::preset(static_cast<Mapping::Preset>(i));
        Mapping read = mappingWith(Mapping::Cdp, word(1, OvHeaderType::Int8));
        QVERIFY(Mapping::fromText(mapping.toText(), &read));
        QVERIFY(read == mapping);
    }
    QVERIFY(Mapping().toText().startsWith(QLatin1String("field_record=9:int32:file channel=13:")));
}

void tst_OvTraceHeaderMapping::textNamesWhatItCannotRead()
{
    for (const char* entry : {"field_record", "record=9:int32:file", "cdp=9:int33:file",
                              "cdp=9:int32", "cdp=1921:int32:file", "cdp=9:int32:middle",
                              "cdp=9:int32:file=2", "cdp=nine:int32:file"}) {
        Mapping untouched = mappingWith(Mapping::Cdp, word(1, OvHeaderType::Int8));
        const QString text = QStringLiteral("channel=17:int32:file ") + QLatin1String(entry);
        const OvStatus status = Mapping::fromText(text, &untouched);
        QVERIFY2(!status, entry);
        QVERIFY2(status.message().contains(QLatin1String(entry)), entry);
        QCOMPARE(untouched.word(Mapping::Channel).position, 13);
        QCOMPARE(untouched.word(Mapping::Cdp).position, 1);
    }
}

void tst_OvTraceHeaderMapping::equalityLooksAtEveryWord()
{
    for (int i = 0; i < Mapping::quantityCount; ++i) {
        const auto quantity = static_cast<Mapping::Quantity>(i);
        OvHeaderWord changed = Mapping().word(quantity);
        changed.order = OvHeaderOrder::Little;
        const Mapping mapping = mappingWith(quantity, changed);
        QVERIFY(mapping != Mapping());
        QVERIFY(mapping.toText() != Mapping().toText());
        QVERIFY(Mapping::fromMap(mapping.toMap()) == mapping);
    }
}

void tst_OvTraceHeaderMapping::placesBehindTheHeaderAreErrors()
{
    const Mapping mapping = mappingWith(Mapping::Offset, word(238, OvHeaderType::Int32));
    QCOMPARE(errors(mapping).size(), 1);
    QVERIFY(errors(mapping).first().contains(QLatin1String("Offset at bytes 238 to 241")));
    QVERIFY(!mapping.validate(240));
    QVERIFY(mapping.validate(480));
    QVERIFY(mappingWith(Mapping::Offset, word(237, OvHeaderType::Int32)).validate(240));
}

void tst_OvTraceHeaderMapping::overlapsAreErrors()
{
    const Mapping mapping = mappingWith(Mapping::Channel, word(11, OvHeaderType::Int32));
    QCOMPARE(errors(mapping),
             QStringList{QStringLiteral("Field record and Channel overlap at bytes 11 to 12.")});
    QCOMPARE(mapping.validate(240).message(), errors(mapping).first());
    QVERIFY(mappingWith(Mapping::Channel, word(11, OvHeaderType::Int16)).validate(240).message() !=
            QString());
}

void tst_OvTraceHeaderMapping::sharedWordsAreWarnings()
{
    const Mapping mapping = mappingWith(Mapping::Channel, word(9, OvHeaderType::Int32));
    QVERIFY(mapping.validate(240));
    QCOMPARE(warnings(mapping),
             QStringList{QStringLiteral(
                 "Field record and Channel are read from the same bytes, 9 to 12.")});
    // One number may count channels and midpoints alike.
    QCOMPARE(warnings(mappingWith(Mapping::Channel, word(21, OvHeaderType::Int32))), QStringList());
}

void tst_OvTraceHeaderMapping::typesThatDoNotFit()
{
    const Mapping code = mappingWith(Mapping::CoordinateScalar, word(217, OvHeaderType::Float32));
    QCOMPARE(errors(code), QStringList{QStringLiteral(
                               "Coordinate scalar is a code; it cannot be a 4-byte IEEE number.")});
    const Mapping number = mappingWith(Mapping::FieldRecord, word(9, OvHeaderType::IbmFloat32));
    QVERIFY(number.validate(240));
    QCOMPARE(warnings(number).size(), 1);
    QCOMPARE(warnings(mappingWith(Mapping::Offset, word(37, OvHeaderType::Float32))),
             QStringList());
}

void tst_OvTraceHeaderMapping::incompleteGeometryIsAWarning()
{
    QCOMPARE(warnings(mappingWith(Mapping::FieldRecord, word(0, OvHeaderType::Int32))).size(), 1);
    QCOMPARE(warnings(mappingWith(Mapping::ReceiverY, word(0, OvHeaderType::Int32))).size(), 1);
    Mapping onlyX = mappingWith(Mapping::ReceiverY, word(0, OvHeaderType::Int32));
    onlyX.setWord(Mapping::SourceY, word(0, OvHeaderType::Int32));
    QCOMPARE(warnings(onlyX).size(), 1);
}

QTEST_GUILESS_MAIN(tst_OvTraceHeaderMapping)
#include "tst_OvTraceHeaderMapping.moc"

#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "fixtures/SegyWriter.h"

#include <QtEndian>
#include <QtTest>

#include <random>

Q_DECLARE_METATYPE(OvHeaderType)
Q_DECLARE_METATYPE(OvHeaderOrder)

/// Header words of every width survive their packing, and indexes stay small.
class tst_OvPackedColumn : public QObject
{
    Q_OBJECT

private slots:
    void wordsOfEveryWidth();
    void wordsOfEveryType_data();
    void wordsOfEveryType();
    void blockBoundaries();
    void memoryOfAMillionTraces_data();
    void memoryOfAMillionTraces();

private:
    QString path() const { return m_folder.filePath(QStringLiteral("packed.sgy")); }
    /// A file of one-sample traces whose headers the caller fills.
    template <typename Fill>
    bool writeMany(qint64 traces, const Fill& fill) const;

    QTemporaryDir m_folder;
};

template <typename Fill>
bool tst_OvPackedColumn::writeMany(qint64 traces, const Fill& fill) const
{
    QFile file(path());
    std::vector<char> front(3600);
    qToBigEndian<qint16>(1000, front.data() + 3216);
    qToBigEndian<qint16>(1, front.data() + 3220);
    qToBigEndian<qint16>(8, front.data() + 3224);
    bool good = file.open(QIODevice::WriteOnly) && file.write(front.data(), 3600) == 3600;
    std::vector<char> block(241 * 1000);
    for (qint64 first = 0; first < traces && good; first += 1000) {
        const qint64 count = qMin<qint64>(1000, traces - first);
        for (qint64 i = 0; i < count; ++i) {
            char* header = block.data() + 241 * i;
            std::fill(header, header + 241, '\0');
            const auto put32 = [=](int byte, qint32 value) {
                qToBigEndian<qint32>(value, header + byte - 1);
            };
            const auto put16 = [=](int byte, qint16 value) {
                qToBigEndian<qint16>(value, header + byte - 1);
            };
            put16(115, 1);
            fill(first + i, put32, put16);
        }
        good = file.write(block.data(), 241 * count) == 241 * count;
    }
    return good && file.flush();
}

void tst_OvPackedColumn::wordsOfEveryWidth()
{
    // Each stretch of 600 traces needs one bit more; the last ones all 32.
    constexpr int stretch = 600;
    constexpr qint64 traces = 33 * stretch;
    std::mt19937 random(3);
    std::vector<qint32> values;
    for (qint64 i = 0; i < traces; ++i) {
        const auto bits = static_cast<unsigned>(i / stretch);
        const quint64 mask = (quint64(1) << bits) - 1;
        values.push_back(static_cast<qint32>(static_cast<quint32>((quint64(random()) & mask)) -
                                             (bits < 32 ? 77U : 0U)));
    }
    QVERIFY(writeMany(traces, [&](qint64 trace, const auto& put32, const auto& put16) {
        put32(9, 1);
        put32(13, values[static_cast<std::size_t>(trace)]);
        put32(37, static_cast<qint32>(traces - trace));
        put16(109, static_cast<qint16>(trace * 7));
    }));
    OvSegyFile file;
    OvSegyIndex index;
    QVERIFY(file.open(path()));
    QVERIFY(index.build(file));
    const OvGather gather = index.gatherHeaders(file, 0);
    QCOMPARE(gather.traceCount(), int(traces));
    for (qint64 trace = 0; trace < traces; ++trace) {
        const OvTraceHeader& header = gather.headers[static_cast<std::size_t>(trace)];
        QCOMPARE(header.channel, values[static_cast<std::size_t>(trace)]);
        QCOMPARE(header.offset, static_cast<float>(traces - trace));
        QCOMPARE(header.delayMs, static_cast<float>(static_cast<qint16>(trace * 7)));
    }
}

void tst_OvPackedColumn::wordsOfEveryType_data()
{
    QTest::addColumn<OvHeaderType>("type");
    QTest::addColumn<OvHeaderOrder>("order");
    for (int type = 0; type <= static_cast<int>(OvHeaderType::Float64); ++type) {
        for (const OvHeaderOrder order :
             {OvHeaderOrder::File, OvHeaderOrder::Big, OvHeaderOrder::Little}) {
            const QString name = OvTraceHeaderMapping::identifier(OvHeaderType(type)) + ' ' +
                                 QString::number(static_cast<int>(order));
            QTest::newRow(qPrintable(name)) << OvHeaderType(type) << order;
        }
    }
}

void tst_OvPackedColumn::wordsOfEveryType()
{
    QFETCH(OvHeaderType, type);
    QFETCH(OvHeaderOrder, order);
    std::mt19937 random(11);
    QVERIFY(writeMany(1100, [&](qint64, const auto& put32, const auto&) {
        put32(9, 5);
        // Values of moderate size in every type, floating-point ones included.
        put32(181, static_cast<qint32>(0x41200000U + random() % 99));
        put32(185, static_cast<qint32>(random()));
    }));
    OvTraceHeaderMapping mapping;
    mapping.setWord(OvTraceHeaderMapping::SourceX, {181, type, order});
    mapping.setWord(OvTraceHeaderMapping::ReceiverX, {181, type, order});
    OvSegyFile file;
    OvSegyIndex index;
    QVERIFY(file.open(path()));
    QVERIFY(index.build(file, mapping));
    const OvGather gather = index.gatherHeaders(file, 0);
    QCOMPARE(gather.traceCount(), 1100);
    for (int trace = 0; trace < 1100; ++trace) {
        std::vector<char> header(240);
        QVERIFY(file.readHeaderBytes(trace, 240, header.data()));
        const double expected =
            mapping.word(OvTraceHeaderMapping::SourceX).value(header.data(), file.info().byteOrder);
        QCOMPARE(gather.headers[static_cast<std::size_t>(trace)].sourceX, expected);
    }
}

void tst_OvPackedColumn::blockBoundaries()
{
    for (const qint64 traces : {1, 511, 512, 513, 1024, 16383, 16384, 16385, 40000}) {
        QVERIFY(writeMany(traces, [](qint64 trace, const auto& put32, const auto&) {
            put32(9, static_cast<qint32>(1 + trace / 3));
            put32(13, static_cast<qint32>(trace + 1));
        }));
        OvSegyFile file;
        OvSegyIndex index;
        QVERIFY(file.open(path()));
        QVERIFY(index.build(file));
        QCOMPARE(index.traceCount(), traces);
        QCOMPARE(index.gatherCount(), int((traces + 2) / 3));
        const OvGather last = index.gatherHeaders(file, index.gatherCount() - 1);
        QCOMPARE(last.headers.back().channel, qint32(traces));
        QCOMPARE(last.headers.back().traceIndex, traces - 1);
    }
}

void tst_OvPackedColumn::memoryOfAMillionTraces_data()
{
    QTest::addColumn<bool>("shuffled");
    QTest::newRow("in order") << false;
    QTest::newRow("shuffled") << true;
}

void tst_OvPackedColumn::memoryOfAMillionTraces()
{
    QFETCH(bool, shuffled);
    constexpr qint64 traces = 1000000;
    QVERIFY(writeMany(traces, [&](qint64 number, const auto& put32, const auto& put16) {
        // A prime step goes through all traces of the survey in no order at all.
        const qint64 trace = shuffled ? number * 611953 % traces : number;
        const auto shot = static_cast<qint32>(trace / 240);
        const auto channel = static_cast<qint32>(trace % 240);
        put32(9, 1000 + shot);
        put32(13, 1 + channel);
        put32(21, 2 * shot + channel);
        put32(37, 25 * channel - 3000);
        put32(41, 310000 + (shot * 31 + channel) % 9001);
        put32(45, 310000 + shot % 5003);
        put16(69, -1000);
        put16(71, -100);
        put32(73, 45000000 + 5000 * (shot % 300));
        put32(77, 600000000 + 40000 * (shot / 300));
        put32(81, 45000000 + 5000 * (shot % 300) + 2500 * channel);
        put32(85, 600000000 + 40000 * (shot / 300));
        put16(109, -50);
    }));
    OvSegyFile file;
    OvSegyIndex index;
    QVERIFY(file.open(path()));
    QVERIFY(index.build(file));
    QCOMPARE(index.gatherCount(), int((traces + 239) / 240));
    const auto perTrace = [](const OvSegyIndex& which) {
        return double(which.memoryBytes()) / double(traces);
    };
    qInfo("%.1f bytes a trace", perTrace(index));
    QVERIFY(perTrace(index) <= (shuffled ? 32.0 : 16.0));
    OvGatherOrder order;
    order.key = OvGatherKey::Receiver;
    const OvSegyIndex receivers = index.regrouped(order);
    qInfo("%.1f bytes a trace by receiver", perTrace(receivers));
    QVERIFY(perTrace(receivers) <= 32.0);
}

QTEST_GUILESS_MAIN(tst_OvPackedColumn)
#include "tst_OvPackedColumn.moc"

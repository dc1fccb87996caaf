#include "OvSeismic/segy/OvGatherOrder.h"

#include "OvSeismic/segy/OvSegyFile.h"
#include "OvSeismic/segy/OvSegyIndex.h"
#include "fixtures/SegyWriter.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <random>

Q_DECLARE_METATYPE(OvGatherKey)
Q_DECLARE_METATYPE(OvGatherSort)

namespace {

using Traces = std::vector<qint64>;

/// The key of a trace as text, in the form that a brute-force grouping sorts by.
QString keyOf(const OvTraceHeader& header, const OvGatherOrder& order)
{
    switch (order.key) {
    case OvGatherKey::FieldRecord:
        return QString::number(header.fieldRecord);
    case OvGatherKey::Source:
        return QString("%1 %2").arg(header.sourceX).arg(header.sourceY);
    case OvGatherKey::Receiver:
        return QString("%1 %2").arg(header.receiverX).arg(header.receiverY);
    case OvGatherKey::Cdp:
        return QString("%1").arg(header.cdp + 1000000, 8);
    case OvGatherKey::OffsetBin:
        break;
    }
    const double bin = std::floor(std::abs(double(header.offset)) / order.binWidthM);
    return QString("%1").arg(bin, 8);
}

} // namespace

/// Gathers by every key and sort of a shuffled survey, held against a grouping by brute force.
class tst_OvGatherOrder : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void keys_data();
    void keys();
    void sorts_data();
    void sorts();
    void randomAccess_data();
    void randomAccess();
    void sortsUnknownLast();
    void labels();
    void keysThatAreNotThere();
    void keysThatSayNothing_data();
    void keysThatSayNothing();
    void oddBinWidths();
    void regroupingSharesAndLeavesTheOriginal();
    void scaledPositionsAreOne();
    void mapRoundTrip();
    void names();

private:
    SegyWriter shuffledSurvey() const;
    void build(const SegyWriter& writer, OvSegyFile* file, OvSegyIndex* index);
    std::vector<Traces> bruteForce(const OvGatherOrder& order) const;

    static constexpr int sources = 23;
    static constexpr int receivers = 61;
    QTemporaryDir m_folder;
    OvSegyFile m_file;
    OvSegyIndex m_index;
    std::vector<OvTraceHeader> m_headers;
};

SegyWriter tst_OvGatherOrder::shuffledSurvey() const
{
    std::vector<SegyTrace> traces;
    for (int source = 0; source < sources; ++source) {
        for (int receiver = 0; receiver < receivers; ++receiver) {
            SegyTrace trace;
            trace.fieldRecord = 900 - 3 * source;
            trace.channel = 1 + receiver;
            trace.sourceX = 100 * source;
            trace.sourceY = source % 2;
            trace.receiverX = 40 * receiver;
            trace.receiverY = -7;
            trace.cdp = (trace.sourceX + trace.receiverX) / 20 - 30;
            trace.offset = trace.receiverX - trace.sourceX;
            trace.samples = {float(source), float(receiver)};
            traces.push_back(trace);
        }
    }
    std::mt19937 random(20);
    std::shuffle(traces.begin(), traces.end(), random);
    SegyWriter writer;
    for (const SegyTrace& trace : traces)
        writer.add(trace);
    return writer;
}

void tst_OvGatherOrder::build(const SegyWriter& writer, OvSegyFile* file, OvSegyIndex* index)
{
    const QString path = m_folder.filePath(QStringLiteral("survey.sgy"));
    file->close();
    QVERIFY(writer.write(path));
    QVERIFY(file->open(path));
    QVERIFY(index->build(*file));
}

std::vector<Traces> tst_OvGatherOrder::bruteForce(const OvGatherOrder& order) const
{
    std::vector<QString> keys;
    std::vector<Traces> gathers;
    for (const OvTraceHeader& header : m_headers) {
        const QString key = keyOf(header, order);
        auto place = std::find(keys.begin(), keys.end(), key) - keys.begin();
        if (place == static_cast<std::ptrdiff_t>(keys.size())) {
            keys.push_back(key);
            gathers.emplace_back();
        }
        gathers[static_cast<std::size_t>(place)].push_back(header.traceIndex);
    }
    if (order.key == OvGatherKey::Cdp || order.key == OvGatherKey::OffsetBin)
        std::sort(gathers.begin(), gathers.end(), [&](const Traces& a, const Traces& b) {
            return keyOf(m_headers[static_cast<std::size_t>(a[0])], order) <
                   keyOf(m_headers[static_cast<std::size_t>(b[0])], order);
        });
    return gathers;
}

void tst_OvGatherOrder::initTestCase()
{
    build(shuffledSurvey(), &m_file, &m_index);
    QVERIFY(m_file.readHeaders(0, sources * receivers, &m_headers));
    QCOMPARE(m_index.traceCount(), qint64(sources * receivers));
}

void tst_OvGatherOrder::keys_data()
{
    QTest::addColumn<OvGatherKey>("key");
    QTest::addColumn<double>("binWidth");
    QTest::newRow("field record") << OvGatherKey::FieldRecord << 25.0;
    QTest::newRow("source") << OvGatherKey::Source << 25.0;
    QTest::newRow("receiver") << OvGatherKey::Receiver << 25.0;
    QTest::newRow("cdp") << OvGatherKey::Cdp << 25.0;
    QTest::newRow("offset bins") << OvGatherKey::OffsetBin << 25.0;
    QTest::newRow("narrow offset bins") << OvGatherKey::OffsetBin << 0.5;
    QTest::newRow("one offset bin") << OvGatherKey::OffsetBin << 1e6;
}

void tst_OvGatherOrder::keys()
{
    QFETCH(OvGatherKey, key);
    QFETCH(double, binWidth);
    OvGatherOrder order;
    order.key = key;
    order.binWidthM = binWidth;
    const OvSegyIndex index = m_index.regrouped(order);
    QVERIFY(index.order() == order);
    const std::vector<Traces> expected = bruteForce(order);
    QCOMPARE(index.gatherCount(), int(expected.size()));
    for (int gather = 0; gather < index.gatherCount(); ++gather) {
        const Traces& traces = expected[static_cast<std::size_t>(gather)];
        QCOMPARE(index.gatherTraces(gather), traces);
        QCOMPARE(index.gatherTraceCount(gather), int(traces.size()));
        QCOMPARE(index.gatherOfKey(index.keyValue(gather)), gather);
        for (const qint64 trace : traces)
            QCOMPARE(index.gatherOfTrace(trace), gather);
    }
}

void tst_OvGatherOrder::sorts_data()
{
    QTest::addColumn<OvGatherSort>("sort");
    for (int i = 0; i < OvGatherOrder::sortCount; ++i) {
        const auto sort = static_cast<OvGatherSort>(i);
        QTest::newRow(qPrintable(OvGatherOrder::identifier(sort))) << sort;
    }
}

void tst_OvGatherOrder::sorts()
{
    QFETCH(OvGatherSort, sort);
    const auto valueOf = [sort](const OvTraceHeader& header) -> double {
        switch (sort) {
        case OvGatherSort::Channel:
            return header.channel;
        case OvGatherSort::Offset:
            return double(header.offset);
        case OvGatherSort::AbsoluteOffset:
            return std::abs(double(header.offset));
        case OvGatherSort::FieldRecord:
            return header.fieldRecord;
        case OvGatherSort::Cdp:
            return header.cdp;
        case OvGatherSort::SourceX:
            return header.sourceX;
        case OvGatherSort::ReceiverX:
            return header.receiverX;
        case OvGatherSort::SourceY:
            return header.sourceY;
        case OvGatherSort::FileOrder:
            return double(header.traceIndex);
        default: // the same in all traces of this survey: file order
            return 0.0;
        }
    };
    for (const OvGatherKey key : {OvGatherKey::FieldRecord, OvGatherKey::Receiver}) {
        for (const bool descending : {false, true}) {
            OvGatherOrder order;
            order.key = key;
            order.sort = sort;
            order.descending = descending;
            const OvSegyIndex index = m_index.regrouped(order);
            const std::vector<Traces> unsorted = bruteForce(order);
            for (int gather = 0; gather < index.gatherCount(); ++gather) {
                Traces expected = unsorted[static_cast<std::size_t>(gather)];
                const bool turned = descending && sort != OvGatherSort::FileOrder;
                std::stable_sort(expected.begin(), expected.end(), [&](qint64 a, qint64 b) {
                    const double left = valueOf(m_headers[static_cast<std::size_t>(a)]);
                    const double right = valueOf(m_headers[static_cast<std::size_t>(b)]);
                    return turned ? right < left : left < right;
                });
                QCOMPARE(index.gatherTraces(gather), expected);
            }
        }
    }
}

void tst_OvGatherOrder::randomAccess_data()
{
    keys_data();
}

void tst_OvGatherOrder::randomAccess()
{
    QFETCH(OvGatherKey, key);
    QFETCH(double, binWidth);
    OvGatherOrder order;
    order.key = key;
    order.binWidthM = binWidth;
    order.sort = OvGatherSort::Offset;
    const OvSegyIndex index = m_index.regrouped(order);
    std::mt19937 random(7);
    for (int round = 0; round < 40; ++round) {
        const int gather = static_cast<int>(random() % unsigned(index.gatherCount()));
        index.prefetchGather(m_file, gather);
        OvGather read;
        QVERIFY(index.readGather(m_file, gather, &read));
        QCOMPARE(read.ordinal, gather);
        QCOMPARE(read.traceCount(), index.gatherTraceCount(gather));
        for (int row = 0; row < read.traceCount(); ++row) {
            const OvTraceHeader& header = read.headers[static_cast<std::size_t>(row)];
            QCOMPARE(read.trace(row)[0], float((900 - header.fieldRecord) / 3));
            QCOMPARE(read.trace(row)[1], float(header.channel - 1));
        }
    }
}

void tst_OvGatherOrder::sortsUnknownLast()
{
    SegyWriter writer;
    OvTraceHeaderMapping floating =
        OvTraceHeaderMapping::preset(OvTraceHeaderMapping::FloatingPointOffset);
    for (const quint32 bits :
         {0x41200000U /* 10 */, 0x7FC00000U /* NaN */, 0xC1A00000U /* -20 */}) {
        SegyTrace trace;
        trace.fieldRecord = 4;
        trace.offset = static_cast<qint32>(bits);
        trace.samples = {1.0F};
        writer.add(trace);
    }
    OvSegyFile file;
    OvSegyIndex index;
    build(writer, &file, &index);
    QVERIFY(index.build(file, floating));
    QCOMPARE(index.gatherHeaders(file, 0).headers.at(2).offset, -20.0F);
    OvGatherOrder order;
    order.sort = OvGatherSort::Offset;
    QCOMPARE(index.regrouped(order).gatherTraces(0), (Traces{2, 0, 1}));
    order.descending = true;
    QCOMPARE(index.regrouped(order).gatherTraces(0), (Traces{0, 2, 1}));
    order.key = OvGatherKey::OffsetBin;
    order.binWidthM = 15.0;
    const OvSegyIndex bins = index.regrouped(order);
    QCOMPARE(bins.gatherCount(), 3);
    QCOMPARE(bins.gatherTraces(2), (Traces{1}));
    QCOMPARE(bins.gatherLabel(2), QStringLiteral("unknown offset"));
    QVERIFY(std::isnan(bins.keyValue(2)));
}

void tst_OvGatherOrder::labels()
{
    QCOMPARE(m_index.gatherLabel(0), QString::number(m_index.fieldRecord(0)));
    OvGatherOrder order;
    order.key = OvGatherKey::OffsetBin;
    order.binWidthM = 12.5;
    QCOMPARE(m_index.regrouped(order).gatherLabel(0), QStringLiteral("0 - 12.5 m"));
    QCOMPARE(m_index.regrouped(order).keyValue(1), 12.5);
    order.key = OvGatherKey::Source;
    const OvTraceHeader& first = m_headers.front();
    QCOMPARE(m_index.regrouped(order).gatherLabel(0),
             QString("1: %1, %2").arg(first.sourceX).arg(first.sourceY));
    order.key = OvGatherKey::Cdp;
    QCOMPARE(m_index.regrouped(order).gatherLabel(0), QStringLiteral("-30"));
    QCOMPARE(m_index.regrouped(order).gatherLabel(1 << 20), QString());
}

void tst_OvGatherOrder::keysThatAreNotThere()
{
    QCOMPARE(m_index.gatherOfKey(1.0), -1);
    QCOMPARE(m_index.gatherOfKey(900.5), -1);
    QCOMPARE(m_index.gatherOfKey(1e300), -1);
    QCOMPARE(m_index.gatherOfKey(std::nan("")), -1);
    QVERIFY(m_index.gatherOfKey(900) >= 0);
    OvGatherOrder order;
    for (const OvGatherKey key : {OvGatherKey::Cdp, OvGatherKey::Source, OvGatherKey::OffsetBin}) {
        order.key = key;
        const OvSegyIndex index = m_index.regrouped(order);
        QCOMPARE(index.gatherOfKey(-1e9), -1);
        QCOMPARE(index.gatherOfKey(1e9), -1);
        QCOMPARE(index.gatherOfFieldRecord(900), -1);
        QVERIFY(std::isnan(index.keyValue(-1)));
        QVERIFY(index.gatherTraces(index.gatherCount()).empty());
    }
    QCOMPARE(OvSegyIndex().regrouped(order).gatherCount(), 0);
}

void tst_OvGatherOrder::keysThatSayNothing_data()
{
    QTest::addColumn<OvGatherKey>("key");
    QTest::addColumn<QString>("warning");
    QTest::newRow("source") << OvGatherKey::Source << "no source positions";
    QTest::newRow("receiver") << OvGatherKey::Receiver << "no receiver positions";
    QTest::newRow("cdp") << OvGatherKey::Cdp << "no CDP numbers";
    QTest::newRow("offset") << OvGatherKey::OffsetBin << "offsets are unknown";
}

void tst_OvGatherOrder::keysThatSayNothing()
{
    QFETCH(OvGatherKey, key);
    QFETCH(QString, warning);
    SegyWriter writer;
    for (const qint32 record : {1, 1, 2}) {
        SegyTrace trace;
        trace.fieldRecord = record;
        trace.samples = {0.0F};
        writer.add(trace);
    }
    OvSegyFile file;
    OvSegyIndex index;
    build(writer, &file, &index);
    QVERIFY(!index.warnings().join(QString()).contains("one gather"));
    OvGatherOrder order;
    order.key = key;
    index = index.regrouped(order);
    QCOMPARE(index.gatherCount(), 1);
    QCOMPARE(index.gatherTraceCount(0), 3);
    QVERIFY(index.warnings().join(QString()).contains(warning));
}

void tst_OvGatherOrder::oddBinWidths()
{
    OvGatherOrder order;
    order.key = OvGatherKey::OffsetBin;
    const int expected = m_index.regrouped(order).gatherCount();
    QVERIFY(expected > 1);
    for (const double width : {0.0, -3.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
        order.binWidthM = width;
        QCOMPARE(m_index.regrouped(order).gatherCount(), expected);
    }
    order.binWidthM = 1e-300;
    QVERIFY(m_index.regrouped(order).gatherCount() >= 1);
}

void tst_OvGatherOrder::regroupingSharesAndLeavesTheOriginal()
{
    const Traces before = m_index.gatherTraces(0);
    OvSegyIndex other;
    {
        OvGatherOrder order;
        order.key = OvGatherKey::Receiver;
        other = m_index.regrouped(order);
    }
    QCOMPARE(m_index.gatherTraces(0), before);
    QVERIFY(m_index.order().isDefault());
    const OvSegyIndex back = other.regrouped({});
    QCOMPARE(back.gatherCount(), m_index.gatherCount());
    QCOMPARE(back.gatherTraces(3), m_index.gatherTraces(3));
    QCOMPARE(back.minimumOffset(), m_index.minimumOffset());
}

void tst_OvGatherOrder::scaledPositionsAreOne()
{
    SegyWriter writer;
    const auto add = [&](qint32 x, qint16 scalar) {
        SegyTrace trace;
        trace.sourceX = x;
        trace.coordinateScalar = scalar;
        trace.samples = {0.0F};
        writer.add(trace);
    };
    add(5000, -100);
    add(70, 1);
    add(50, 0);
    add(5, 10);
    OvSegyFile file;
    OvSegyIndex index;
    build(writer, &file, &index);
    OvGatherOrder order;
    order.key = OvGatherKey::Source;
    index = index.regrouped(order);
    QCOMPARE(index.gatherCount(), 2);
    QCOMPARE(index.gatherTraces(0), (Traces{0, 2, 3}));
}

void tst_OvGatherOrder::mapRoundTrip()
{
    OvGatherOrder order;
    order.key = OvGatherKey::OffsetBin;
    order.binWidthM = 7.5;
    order.sort = OvGatherSort::ReceiverElevation;
    order.descending = true;
    QVERIFY(OvGatherOrder::fromMap(order.toMap()) == order);
    QVERIFY(OvGatherOrder::fromMap({}).isDefault());
    QVERIFY(
        OvGatherOrder::fromMap({{"key", "nonsense"}, {"binWidthM", -4}, {"sort", 12}}).isDefault());
    order.key = OvGatherKey::Cdp;
    OvGatherOrder otherWidth = order;
    otherWidth.binWidthM = 1.0;
    QVERIFY(order == otherWidth);
    otherWidth.key = order.key = OvGatherKey::OffsetBin;
    QVERIFY(order != otherWidth);
}

void tst_OvGatherOrder::names()
{
    QSet<QString> seen;
    for (int key = 0; key < OvGatherOrder::keyCount; ++key)
        seen += OvGatherOrder::name(static_cast<OvGatherKey>(key));
    QCOMPARE(seen.size(), OvGatherOrder::keyCount);
    seen.clear();
    for (int sort = 0; sort < OvGatherOrder::sortCount; ++sort)
        seen += OvGatherOrder::name(static_cast<OvGatherSort>(sort));
    QCOMPARE(seen.size(), OvGatherOrder::sortCount);
}

QTEST_GUILESS_MAIN(tst_OvGatherOrder)
#include "tst_OvGatherOrder.moc"

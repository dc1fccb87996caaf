#include "OvSeismic/segy/OvSegySamples.h"

#include "fixtures/SegyFormWriter.h"

#include <QtTest>

#include <cmath>
#include <cstring>
#include <random>

namespace {

using Order = OvByteOrder;

/// The bytes of one sample in big-endian order.
std::vector<unsigned char> inOrder(const char* in, int size, Order order)
{
    std::vector<unsigned char> bytes(std::size_t(size), 0);
    for (int i = 0; i < size; ++i) {
        const int from = order == Order::BigEndian      ? i
                         : order == Order::LittleEndian ? size - 1 - i
                                                        : i ^ 1;
        bytes[std::size_t(i)] = static_cast<unsigned char>(in[size == 1 ? 0 : from]);
    }
    return bytes;
}

float ibmReference(quint64 word)
{
    const int exponent = int((word >> 24) & 0x7F) - 64;
    const double fraction = std::ldexp(double(word & 0xFFFFFF), -24);
    const double value = std::ldexp(fraction, 4 * exponent);
    return static_cast<float>((word >> 31) != 0 ? -value : value);
}

template <typename To>
To reinterpreted(quint64 word)
{
    To to;
    std::memcpy(&to, &word, sizeof(to));
    return to;
}

/// One sample at a time, by the standard's words, for the vector loops to be held against.
float reference(int format, Order order, const char* in)
{
    const int size = SegyFormWriter::sampleBytes(format);
    quint64 word = 0;
    for (const unsigned char byte : inOrder(in, size, order))
        word = word << 8 | byte;
    const auto signedWord = static_cast<qint64>(word << (64 - 8 * size)) >> (64 - 8 * size);
    switch (format) {
    case 1:
        return ibmReference(word);
    case 5:
        return reinterpreted<float>(word);
    case 6:
        return static_cast<float>(reinterpreted<double>(word));
    case 2:
    case 3:
    case 7:
    case 8:
    case 9:
        return static_cast<float>(signedWord);
    default:
        return static_cast<float>(word);
    }
}

bool sameBits(float a, float b)
{
    if (std::isnan(a) || std::isnan(b))
        return std::isnan(a) && std::isnan(b);
    return a == b && std::signbit(a) == std::signbit(b);
}

} // namespace

class tst_OvSegySamples : public QObject
{
    Q_OBJECT

private slots:
    void againstTheReference_data();
    void againstTheReference();
    void everyIbmExponent();
    void nothingIsWrittenBeyond();
    void extremes_data();
    void extremes();
};

void tst_OvSegySamples::againstTheReference_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("order");
    const char* names[] = {"big", "little", "pairs"};
    for (const int format : {1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 15, 16}) {
        for (int order = 0; order < 3; ++order) {
            if (order < 2 || SegyFormWriter::sampleBytes(format) != 3)
                QTest::addRow("%d %s", format, names[order]) << format << order;
        }
    }
}

void tst_OvSegySamples::againstTheReference()
{
    QFETCH(int, format);
    QFETCH(int, order);
    const int size = SegyFormWriter::sampleBytes(format);
    std::mt19937 random(unsigned(format * 10 + order));
    // Every length up to several vectors, from every alignment.
    for (int count = 0; count < 70; ++count) {
        const int shift = count % 8;
        std::vector<char> in(std::size_t(shift + count * size) + 1);
        for (char& byte : in)
            byte = static_cast<char>(random());
        std::vector<float> out(std::size_t(count) + 1);
        OvSegySamples::toFloat(format, Order(order), in.data() + shift, count, out.data());
        for (int i = 0; i < count; ++i) {
            const float expected = reference(format, Order(order), in.data() + shift + i * size);
            QVERIFY2(sameBits(out[std::size_t(i)], expected),
                     qPrintable(QStringLiteral("sample %1 of %2: %3 instead of %4")
                                    .arg(i)
                                    .arg(count)
                                    .arg(double(out[std::size_t(i)]))
                                    .arg(double(expected))));
        }
    }
}

void tst_OvSegySamples::everyIbmExponent()
{
    std::vector<quint32> fractions = {0, 1, 2, 3, 0xFFFFFF, 0xFFFFFE, 0x100000, 0x0FFFFF, 0x800000};
    for (int bit = 0; bit < 24; ++bit) {
        fractions.push_back(1U << bit);
        fractions.push_back((1U << bit) | 1U);
        fractions.push_back(0xFFFFFFU >> bit);
    }
    for (quint32 start = 0; start < 256; ++start) {
        QByteArray in;
        for (const quint32 fraction : fractions) {
            const quint32 word = start << 24 | fraction;
            for (int shift = 24; shift >= 0; shift -= 8)
                in += static_cast<char>(word >> shift);
        }
        std::vector<float> out(fractions.size());
        OvSegySamples::toFloat(1, Order::BigEndian, in.constData(), int(out.size()), out.data());
        for (std::size_t i = 0; i < out.size(); ++i) {
            const quint32 word = start << 24 | fractions[i];
            QVERIFY2(sameBits(out[i], ibmReference(word)), qPrintable(QString::number(word, 16)));
        }
    }
}

void tst_OvSegySamples::nothingIsWrittenBeyond()
{
    const QByteArray in(8 * 40, '\x41');
    for (const int format : {1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 15, 16}) {
        std::vector<float> out(41, -1.5F);
        OvSegySamples::toFloat(format, Order::BigEndian, in.constData(), 40, out.data());
        QVERIFY(out[39] != -1.5F);
        QCOMPARE(out[40], -1.5F);
    }
}

void tst_OvSegySamples::extremes_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<float>("value");
    const auto bytes = [](const char* hex) { return QByteArray::fromHex(hex); };
    const float infinity = std::numeric_limits<float>::infinity();
    QTest::newRow("int24, smallest") << 7 << bytes("800000") << -8388608.0F;
    QTest::newRow("uint24, largest") << 15 << bytes("FFFFFF") << 16777215.0F;
    QTest::newRow("int64, smallest") << 9 << bytes("8000000000000000") << -9223372036854775808.0F;
    QTest::newRow("uint64, largest") << 12 << bytes("FFFFFFFFFFFFFFFF") << 18446744073709551616.0F;
    QTest::newRow("uint32, largest") << 10 << bytes("FFFFFFFF") << 4294967296.0F;
    QTest::newRow("uint16, largest") << 11 << bytes("FFFF") << 65535.0F;
    QTest::newRow("uint8, largest") << 16 << bytes("FF") << 255.0F;
    QTest::newRow("int8, smallest") << 8 << bytes("80") << -128.0F;
    QTest::newRow("double, one") << 6 << bytes("3FF0000000000000") << 1.0F;
    QTest::newRow("double beyond float32") << 6 << bytes("7FE0000000000000") << infinity;
    QTest::newRow("uint32 that rounds to even") << 10 << bytes("01000001") << 16777216.0F;
}

void tst_OvSegySamples::extremes()
{
    QFETCH(int, format);
    QFETCH(QByteArray, bytes);
    QFETCH(float, value);
    QByteArray in;
    for (int i = 0; i < 17; ++i)
        in += bytes;
    std::vector<float> out(17);
    OvSegySamples::toFloat(format, Order::BigEndian, in.constData(), 17, out.data());
    for (const float sample : out)
        QCOMPARE(sample, value);
}

QTEST_APPLESS_MAIN(tst_OvSegySamples)
#include "tst_OvSegySamples.moc"

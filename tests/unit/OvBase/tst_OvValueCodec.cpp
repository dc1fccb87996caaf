#include "OvBase/private/OvValueCodec.h"

#include <QColor>
#include <QDateTime>
#include <QRect>
#include <QUrl>
#include <QtTest>

#include <cmath>
#include <limits>

class tst_OvValueCodec : public QObject
{
    Q_OBJECT

private slots:
    void typesAreKept_data();
    void typesAreKept();
    void notANumberIsKept();
    void unknownTypesAreRefused();
    void strangeTextIsInvalid_data();
    void strangeTextIsInvalid();
};

void tst_OvValueCodec::typesAreKept_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("text") << QVariant(QStringLiteral("A|B||C"));
    QTest::newRow("empty text") << QVariant(QString(QLatin1String("")));
    QTest::newRow("quotes") << QVariant(QStringLiteral("O'Brien \"%1\" \\ \n\t|"));
    QTest::newRow("chinese and emoji") << QVariant(QStringLiteral("初至 🌋"));
    QTest::newRow("zero character")
        << QVariant(QString(QStringLiteral("a") + QChar(0) + QStringLiteral("b")));
    QTest::newRow("long text") << QVariant(QString(10000, QChar(0x9707)));
    QTest::newRow("true") << QVariant(true);
    QTest::newRow("false") << QVariant(false);
    QTest::newRow("int") << QVariant(-7);
    QTest::newRow("unsigned") << QVariant(4000000000U);
    QTest::newRow("64 bits") << QVariant(std::numeric_limits<qlonglong>::min());
    QTest::newRow("unsigned 64 bits") << QVariant(std::numeric_limits<qulonglong>::max());
    QTest::newRow("double") << QVariant(0.1);
    QTest::newRow("whole double") << QVariant(3.0);
    QTest::newRow("tiny") << QVariant(std::numeric_limits<double>::denorm_min());
    QTest::newRow("infinite") << QVariant(std::numeric_limits<double>::infinity());
    QTest::newRow("float") << QVariant(0.1F);
    QTest::newRow("texts") << QVariant(
        QStringList{QStringLiteral("a"), QString(QLatin1String("")), QStringLiteral("c")});
    QTest::newRow("list") << QVariant(
        QVariantList{1, QStringLiteral("1"), 1.0, true, QVariantList{2}});
    QTest::newRow("map") << QVariant(
        QVariantMap{{QStringLiteral("type"), QStringLiteral("int")}, {QStringLiteral("value"), 4}});
    QTest::newRow("hash") << QVariant(QVariantHash{{QStringLiteral("k"), 4}});
    QTest::newRow("bytes") << QVariant(QByteArray("\0\xff\x01", 3));
    QTest::newRow("time") << QVariant(QDateTime(QDate(2024, 2, 29), QTime(23, 59, 59, 999)));
    QTest::newRow("colour") << QVariant(QColor(1, 2, 3, 4));
    QTest::newRow("rectangle") << QVariant(QRect(-1, 2, 3, 4));
    QTest::newRow("address") << QVariant(QUrl(QStringLiteral("file:///a b")));
}

void tst_OvValueCodec::typesAreKept()
{
    QFETCH(QVariant, value);
    const QString text = OvValueCodec::encode(value);
    QVERIFY(!text.isEmpty());
    const QVariant decoded = OvValueCodec::decode(text);
    QCOMPARE(decoded.userType(), value.userType());
    QCOMPARE(decoded, value);
}

void tst_OvValueCodec::notANumberIsKept()
{
    const QVariant decoded = OvValueCodec::decode(OvValueCodec::encode(std::nan("")));
    QCOMPARE(decoded.userType(), static_cast<int>(QMetaType::Double));
    QVERIFY(std::isnan(decoded.toDouble()));
}

void tst_OvValueCodec::unknownTypesAreRefused()
{
    const QVariant object = QVariant::fromValue<QObject*>(this);
    QCOMPARE(OvValueCodec::encode(object), QString());
    QCOMPARE(OvValueCodec::encode(QVariantList{1, object}), QString());
    QCOMPARE(OvValueCodec::encode(QVariantMap{{QStringLiteral("k"), object}}), QString());
}

void tst_OvValueCodec::strangeTextIsInvalid_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text :
         {"", "nonsense", "[", "[]", "[1]", "[null]", R"(["a","b"])",
          R"([{"type":"int","value":"x"}])", R"([{"type":"QObject*","value":"AAAA"}])",
          R"([{"type":"QColor","value":"AA=="}])", R"({"type":"int"})",
          R"([{"type":"QDateTime","value":""}])"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void tst_OvValueCodec::strangeTextIsInvalid()
{
    QFETCH(QString, text);
    QVERIFY(!OvValueCodec::decode(text).isValid());
}

QTEST_MAIN(tst_OvValueCodec)
#include "tst_OvValueCodec.moc"

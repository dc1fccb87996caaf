#include "OvSeismic/segy/OvSegySampleFormat.h"

#include <QtTest>

class tst_OvSegySampleFormat : public QObject
{
    Q_OBJECT

private slots:
    void codes_data();
    void codes();
    void unknownCodes();
    void namesDiffer();
};

void tst_OvSegySampleFormat::codes_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("bytes");
    QTest::addColumn<bool>("supported");
    QTest::newRow("1") << 1 << 4 << true;
    QTest::newRow("2") << 2 << 4 << true;
    QTest::newRow("3") << 3 << 2 << true;
    QTest::newRow("4") << 4 << 4 << false;
    QTest::newRow("5") << 5 << 4 << true;
    QTest::newRow("6") << 6 << 8 << true;
    QTest::newRow("7") << 7 << 3 << true;
    QTest::newRow("8") << 8 << 1 << true;
    QTest::newRow("9") << 9 << 8 << true;
    QTest::newRow("10") << 10 << 4 << true;
    QTest::newRow("11") << 11 << 2 << true;
    QTest::newRow("12") << 12 << 8 << true;
    QTest::newRow("15") << 15 << 3 << true;
    QTest::newRow("16") << 16 << 1 << true;
}

void tst_OvSegySampleFormat::codes()
{
    QFETCH(int, code);
    QFETCH(int, bytes);
    QFETCH(bool, supported);
    const OvSegySampleFormat format = ovSegySampleFormat(code);
    QCOMPARE(format.code, code);
    QCOMPARE(format.bytes, bytes);
    QCOMPARE(format.supported, supported);
    QVERIFY(ovSegyFormatName(code).contains(QStringLiteral("%1-byte").arg(bytes)));
}

void tst_OvSegySampleFormat::unknownCodes()
{
    for (const int code : {-1, 0, 13, 14, 17, 256, 32767}) {
        QCOMPARE(ovSegySampleFormat(code).bytes, 0);
        QVERIFY(!ovSegySampleFormat(code).supported);
        QVERIFY(ovSegyFormatName(code).contains(QString::number(code)));
    }
}

void tst_OvSegySampleFormat::namesDiffer()
{
    QSet<QString> names;
    for (int code = 1; code <= 16; ++code)
        names += ovSegyFormatName(code);
    QCOMPARE(names.size(), 16);
}

QTEST_APPLESS_MAIN(tst_OvSegySampleFormat)
#include "tst_OvSegySampleFormat.moc"

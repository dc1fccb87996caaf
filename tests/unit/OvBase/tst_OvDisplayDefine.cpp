#include "OvBase/OvDisplayDefine.h"

#include <QtTest>

#include <cmath>

namespace {

OvDisplayDefine otherDisplay()
{
    OvDisplayDefine define;
    define.mode = OvDisplayDefine::VariableDensity;
    define.gainDb = -4.7;
    define.scaling = OvDisplayDefine::PerGather;
    define.agcWindowMs = 250;
    define.clip = 0.1 + 0.2;
    define.colorMap = OvDisplayDefine::BlueWhiteRed;
    define.reversePolarity = true;
    define.showPicks = false;
    return define;
}

} // namespace

class tst_OvDisplayDefine : public QObject
{
    Q_OBJECT

private slots:
    void mapsKeepEveryMember();
    void everyMemberCounts_data();
    void everyMemberCounts();
    void unfitEntriesTakeTheDefault_data();
    void unfitEntriesTakeTheDefault();
    void scalesAreKeptAndChecked();
    void headerWordsAreKeptAndChecked();
};

void tst_OvDisplayDefine::mapsKeepEveryMember()
{
    const OvDisplayDefine define = otherDisplay();
    QCOMPARE(define.toMap().size(), 8);
    QVERIFY(OvDisplayDefine::fromMap(define.toMap()) == define);
    QVERIFY(OvDisplayDefine::fromMap({}) == OvDisplayDefine());
}

void tst_OvDisplayDefine::everyMemberCounts_data()
{
    QTest::addColumn<QString>("key");
    const QStringList keys = otherDisplay().toMap().keys();
    for (const QString& key : keys)
        QTest::newRow(qPrintable(key)) << key;
}

void tst_OvDisplayDefine::everyMemberCounts()
{
    QFETCH(QString, key);
    QVariantMap map = OvDisplayDefine().toMap();
    map.insert(key, otherDisplay().toMap().value(key));
    QVERIFY(OvDisplayDefine::fromMap(map) != OvDisplayDefine());
}

void tst_OvDisplayDefine::unfitEntriesTakeTheDefault_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("mode") << "mode" << QVariant(4);
    QTest::newRow("negative mode") << "mode" << QVariant(-1);
    QTest::newRow("text as mode") << "mode" << QVariant(QStringLiteral("wiggle"));
    QTest::newRow("gain") << "gainDb" << QVariant(std::nan(""));
    QTest::newRow("endless gain") << "gainDb" << QVariant(std::numeric_limits<double>::infinity());
    QTest::newRow("scaling") << "scaling" << QVariant(2);
    QTest::newRow("agc") << "agcWindowMs" << QVariant(-1);
    QTest::newRow("clip") << "clip" << QVariant(0.0);
    QTest::newRow("colours") << "colorMap" << QVariant(3);
    QTest::newRow("polarity") << "reversePolarity" << QVariant(QStringLiteral("yes"));
    QTest::newRow("picks") << "showPicks" << QVariant(QVariantMap());
}

void tst_OvDisplayDefine::unfitEntriesTakeTheDefault()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QVERIFY(OvDisplayDefine::fromMap({{key, value}}) == OvDisplayDefine());
}

void tst_OvDisplayDefine::scalesAreKeptAndChecked()
{
    OvFitDisplayDefine define;
    define.fitted = true;
    define.traceSpacing = 0.01;
    define.pixelsPerSecond = 12345.6;
    QVERIFY(OvFitDisplayDefine::fromMap(define.toMap()) == define);
    QVERIFY(define != OvFitDisplayDefine());
    for (const char* key : {"traceSpacing", "pixelsPerSecond"}) {
        for (const double value : {0.0, -1.0, std::nan(""), 1e300})
            QVERIFY(OvFitDisplayDefine::fromMap({{QLatin1String(key), value}}) ==
                    OvFitDisplayDefine());
    }
}

void tst_OvDisplayDefine::headerWordsAreKeptAndChecked()
{
    OvTraceHeaderDefine define;
    define.axisWord = OvTraceHeaderDefine::Cdp;
    QVERIFY(OvTraceHeaderDefine::fromMap(define.toMap()) == define);
    QVERIFY(define != OvTraceHeaderDefine());
    QVERIFY(OvTraceHeaderDefine::fromMap({{QStringLiteral("axisWord"), 5}}) ==
            OvTraceHeaderDefine());
}

QTEST_MAIN(tst_OvDisplayDefine)
#include "tst_OvDisplayDefine.moc"

#include "OvSeismic/picking/OvPickDefine.h"

#include <QtTest>

#include <limits>

class tst_OvPickDefine : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip();
    void whatDoesNotFitKeepsItsDefault();
    void namesTheOffender_data();
    void namesTheOffender();
    void equalWorkHasEqualText();
    void onlyTheVelocityIsAGuideByItself();
};

void tst_OvPickDefine::roundTrip()
{
    OvPickDefine define;
    define.parameters.maximumOffsetM = 1234;
    define.phase = OvPickPhase::Trough;
    define.minimumConfidence = 0.65;
    define.guide = OvPickDefine::Guide::PreviousGather;
    define.velocity = 3456.0;
    define.interceptMs = -12.5;
    const QVariantMap map = define.toMap();
    QCOMPARE(map.size(), 15);
    const OvPickDefine back = OvPickDefine::fromMap(map);
    QCOMPARE(back.toMap(), map);
    QCOMPARE(back.parameters.maximumOffsetM, 1234);
    QCOMPARE(back.phase, OvPickPhase::Trough);
    QCOMPARE(back.guide, OvPickDefine::Guide::PreviousGather);
    QCOMPARE(back.interceptMs, -12.5);
}

void tst_OvPickDefine::whatDoesNotFitKeepsItsDefault()
{
    const OvPickDefine define = OvPickDefine::fromMap({{"phase", "noon"},
                                                       {"guide", 7},
                                                       {"velocity", -1.0},
                                                       {"intercept", "x"},
                                                       {"min_confidence", 2.0},
                                                       {"max_offset_m", 500}});
    OvPickDefine expected;
    expected.parameters.maximumOffsetM = 500;
    QCOMPARE(define.toMap(), expected.toMap());
}

void tst_OvPickDefine::namesTheOffender_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"", "min_offset_m", "quick_window_ms", "min_confidence", "velocity",
                             "intercept", "shot_increment"})
        QTest::newRow(*name ? name : "none") << QString(name);
}

void tst_OvPickDefine::namesTheOffender()
{
    QFETCH(QString, name);
    OvPickDefine define;
    define.guide = OvPickDefine::Guide::Velocity;
    if (name == "min_offset_m") {
        define.parameters.minimumOffsetM = 10;
        define.parameters.maximumOffsetM = 5;
    } else if (name == "quick_window_ms") {
        define.parameters.processingLengthMs = 10;
        define.parameters.quickSearchWindowMs = 20;
    } else if (name == "min_confidence") {
        define.minimumConfidence = std::numeric_limits<double>::quiet_NaN();
    } else if (name == "velocity") {
        define.velocity = 0.0;
    } else if (name == "intercept") {
        define.interceptMs = 1e9;
    } else if (name == "shot_increment") {
        define.parameters.shotIncrement = 0;
    }
    QCOMPARE(define.offender(), name);
    QCOMPARE(define.validate().ok(), name.isEmpty());
    QVERIFY(name.isEmpty() || define.validate().message().startsWith(name));
}

void tst_OvPickDefine::equalWorkHasEqualText()
{
    OvPickDefine one;
    OvPickDefine other;
    other.velocity = 3000.0; // no guide uses it
    QCOMPARE(one.canonicalText(), other.canonicalText());
    one.guide = OvPickDefine::Guide::Velocity;
    other.guide = OvPickDefine::Guide::Velocity;
    QVERIFY(one.canonicalText() != other.canonicalText());
    other.velocity = one.velocity;
    QCOMPARE(one.canonicalText(), other.canonicalText());
    other.minimumConfidence += 0.01;
    QVERIFY(one.canonicalText() != other.canonicalText());
}

void tst_OvPickDefine::onlyTheVelocityIsAGuideByItself()
{
    OvPickDefine define;
    define.phase = OvPickPhase::Peak;
    define.minimumConfidence = 0.5;
    for (const auto guide : {OvPickDefine::Guide::None, OvPickDefine::Guide::Velocity,
                             OvPickDefine::Guide::Picks, OvPickDefine::Guide::PreviousGather}) {
        define.guide = guide;
        const OvPickSettings settings = define.settings();
        QCOMPARE(settings.phase, OvPickPhase::Peak);
        QCOMPARE(settings.minimumConfidence, 0.5);
        QCOMPARE(settings.prior != nullptr, guide == OvPickDefine::Guide::Velocity);
    }
}

QTEST_GUILESS_MAIN(tst_OvPickDefine)
#include "tst_OvPickDefine.moc"

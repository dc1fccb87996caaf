#include "OvSeismic/picking/OvPickEvidence.h"

#include <QtTest>

class tst_OvPickEvidence : public QObject
{
    Q_OBJECT

private slots:
    void confidenceFollowsTheEvidence();
    void noiseIsNotConfident();
    void aTraceAloneIsJudgedByItsLoudness();
};

namespace {

OvPickEvidence clearEvidence()
{
    OvPickEvidence clear;
    clear.ratio = 4.0;
    clear.strength = 4.0;
    clear.likeness = 0.85;
    clear.company = 4.0;
    clear.rise = 4.0;
    clear.forerun = 1.3;
    return clear;
}

} // namespace

void tst_OvPickEvidence::confidenceFollowsTheEvidence()
{
    const OvPickEvidence clear = clearEvidence();
    QVERIFY(clear.confidence() > 0.97 && clear.confidence() < 1.0);
    const auto falls = [&clear](double OvPickEvidence::*member, double value) {
        OvPickEvidence worse = clear;
        worse.*member = value;
        return worse.confidence() < clear.confidence() - 0.001;
    };
    QVERIFY(falls(&OvPickEvidence::ratio, 2.0));
    QVERIFY(falls(&OvPickEvidence::likeness, 0.3));
    QVERIFY(falls(&OvPickEvidence::company, 1.2));
    QVERIFY(falls(&OvPickEvidence::rise, 2.0));
    QVERIFY(falls(&OvPickEvidence::forerun, 3.0));
    QVERIFY(falls(&OvPickEvidence::stray, 0.4));
    QVERIFY(falls(&OvPickEvidence::gap, 0.6));
    QVERIFY(falls(&OvPickEvidence::lead, 3.0));
    QVERIFY(!falls(&OvPickEvidence::lead, 1.0));
}

void tst_OvPickEvidence::noiseIsNotConfident()
{
    OvPickEvidence noise;
    noise.ratio = 1.1;
    noise.strength = 1.5;
    noise.company = 1.2;
    noise.rise = 1.3;
    noise.forerun = 1.6;
    noise.likeness = 0.3;
    noise.stray = 0.3;
    noise.gap = 0.4;
    QVERIFY2(noise.confidence() < 0.1, qPrintable(QString::number(noise.confidence())));
}

void tst_OvPickEvidence::aTraceAloneIsJudgedByItsLoudness()
{
    const auto alone = [](double ratio) {
        OvPickEvidence evidence;
        evidence.ratio = ratio;
        evidence.forerun = 5.0;
        evidence.standAlone();
        return evidence.confidence();
    };
    QVERIFY(alone(10.0) > 0.9);
    QVERIFY(alone(3.0) < alone(10.0));
    QVERIFY(alone(1.0) < 0.1);
}

QTEST_GUILESS_MAIN(tst_OvPickEvidence)
#include "tst_OvPickEvidence.moc"

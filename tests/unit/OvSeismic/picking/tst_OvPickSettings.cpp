#include "OvSeismic/picking/OvPickSettings.h"

#include <QtTest>

#include <limits>

class tst_OvPickSettings : public QObject
{
    Q_OBJECT

private slots:
    void defaultsAreValid();
    void phasesHaveNames_data();
    void phasesHaveNames();
    void refusesOtherPhases();
    void namesWhatIsOutOfRange_data();
    void namesWhatIsOutOfRange();
};

void tst_OvPickSettings::defaultsAreValid()
{
    const OvPickSettings settings;
    QVERIFY(settings.validate());
    QVERIFY(settings.phase == OvPickPhase::Onset);
    QVERIFY(!settings.prior);
    QVERIFY(settings.minimumConfidence > 0.0 && settings.minimumConfidence < 0.5);
}

void tst_OvPickSettings::phasesHaveNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("phase");
    QTest::newRow("onset") << "onset" << static_cast<int>(OvPickPhase::Onset);
    QTest::newRow("peak") << "Peak" << static_cast<int>(OvPickPhase::Peak);
    QTest::newRow("trough") << " trough " << static_cast<int>(OvPickPhase::Trough);
    QTest::newRow("zero") << "ZERO-crossing" << static_cast<int>(OvPickPhase::ZeroCrossing);
}

void tst_OvPickSettings::phasesHaveNames()
{
    QFETCH(QString, name);
    QFETCH(int, phase);
    OvPickSettings settings;
    settings.phase = phase == 0 ? OvPickPhase::Trough : OvPickPhase::Onset;
    QVERIFY(settings.setPhase(name));
    QCOMPARE(static_cast<int>(settings.phase), phase);
    QCOMPARE(OvPickSettings::phaseNames().at(phase), name.trimmed().toLower());
}

void tst_OvPickSettings::refusesOtherPhases()
{
    OvPickSettings settings;
    settings.phase = OvPickPhase::Peak;
    const QString message = settings.setPhase("middle").message();
    QVERIFY2(message.contains("phase") && message.contains("\"middle\""), qPrintable(message));
    QVERIFY2(message.contains("zero-crossing"), qPrintable(message));
    QVERIFY(settings.phase == OvPickPhase::Peak);
}

void tst_OvPickSettings::namesWhatIsOutOfRange_data()
{
    QTest::addColumn<double>("confidence");
    QTest::newRow("below") << -0.01;
    QTest::newRow("above") << 1.01;
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN();
}

void tst_OvPickSettings::namesWhatIsOutOfRange()
{
    QFETCH(double, confidence);
    OvPickSettings settings;
    settings.minimumConfidence = confidence;
    QVERIFY(settings.validate().message().contains("min_confidence"));
    settings.minimumConfidence = 1.0;
    QVERIFY(settings.validate());
    settings.phase = static_cast<OvPickPhase>(9);
    QVERIFY(settings.validate().message().contains("phase"));
    settings.phase = OvPickPhase::Onset;
    settings.parameters.shotIncrement = 0;
    QVERIFY(settings.validate().message().contains("shot_increment"));
}

QTEST_GUILESS_MAIN(tst_OvPickSettings)
#include "tst_OvPickSettings.moc"

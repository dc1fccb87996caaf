#include "OvSeismic/picking/OvPickParameters.h"

#include <QtTest>

class tst_OvPickParameters : public QObject
{
    Q_OBJECT

private slots:
    void startsAsThePanelDoes();
    void namesComeInTheOrderOfTheFields();
    void setsEachField_data();
    void setsEachField();
    void refusesWhatDoesNotFit_data();
    void refusesWhatDoesNotFit();
    void refusesUnknownNames();
    void survivesAMap();
    void fillsGapsOfAMapWithDefaults();
    void validatesRanges();
    void findsContradictions();
};

void tst_OvPickParameters::startsAsThePanelDoes()
{
    const OvPickParameters parameters;
    QVERIFY(parameters.polarity == OvPickParameters::Polarity::Positive);
    QCOMPARE(parameters.amplitudeThreshold, 0.001);
    QCOMPARE(parameters.snrThreshold, 0.0);
    QCOMPARE(parameters.shotIncrement, 1);
    QCOMPARE(parameters.totalShots, 0);
    QVERIFY(parameters.validate());
}

void tst_OvPickParameters::namesComeInTheOrderOfTheFields()
{
    const QStringList expected{
        "polarity",     "processing_length_ms", "quick_window_ms",     "tuning_window_ms",
        "min_offset_m", "max_offset_m",         "amplitude_threshold", "snr_threshold",
        "total_shots",  "shot_increment"};
    QCOMPARE(OvPickParameters::names(), expected);
}

void tst_OvPickParameters::setsEachField_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("polarity") << "polarity"
                              << "negative" << QVariant("negative");
    QTest::newRow("polarity in capitals") << "polarity"
                                          << " Negative " << QVariant("negative");
    QTest::newRow("processing") << "processing_length_ms"
                                << "9999" << QVariant(9999);
    QTest::newRow("quick") << "quick_window_ms"
                           << "25" << QVariant(25);
    QTest::newRow("tuning") << "tuning_window_ms"
                            << "12" << QVariant(12);
    QTest::newRow("nearest") << "min_offset_m"
                             << "9999" << QVariant(9999);
    QTest::newRow("farthest") << "max_offset_m"
                              << "999999" << QVariant(999999);
    QTest::newRow("amplitude") << "amplitude_threshold"
                               << "100" << QVariant(100.0);
    QTest::newRow("ratio") << "snr_threshold"
                           << "2.5" << QVariant(2.5);
    QTest::newRow("shots") << "total_shots"
                           << "7" << QVariant(7);
    QTest::newRow("increment") << "shot_increment"
                               << "3" << QVariant(3);
}

void tst_OvPickParameters::setsEachField()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QVariant, value);
    OvPickParameters parameters;
    QVERIFY(parameters.set(name, text));
    QVariantMap expected = OvPickParameters().toMap();
    expected.insert(name, value);
    QCOMPARE(parameters.toMap(), expected);
}

void tst_OvPickParameters::refusesWhatDoesNotFit_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("no polarity") << "polarity"
                                 << "up";
    QTest::newRow("below the range") << "min_offset_m"
                                     << "-1";
    QTest::newRow("above the range") << "min_offset_m"
                                     << "10000";
    QTest::newRow("above six digits") << "max_offset_m"
                                      << "1000000";
    QTest::newRow("no whole number") << "quick_window_ms"
                                     << "1.5";
    QTest::newRow("no number") << "tuning_window_ms"
                               << "wide";
    QTest::newRow("nothing") << "processing_length_ms"
                             << "";
    QTest::newRow("larger than any integer") << "total_shots"
                                             << "99999999999";
    QTest::newRow("amplitude of zero") << "amplitude_threshold"
                                       << "0";
    QTest::newRow("no finite number") << "snr_threshold"
                                      << "nan";
    QTest::newRow("infinite") << "snr_threshold"
                              << "inf";
    QTest::newRow("increment of zero") << "shot_increment"
                                       << "0";
}

void tst_OvPickParameters::refusesWhatDoesNotFit()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    OvPickParameters parameters;
    const OvStatus status = parameters.set(name, text);
    QVERIFY(!status);
    QVERIFY2(status.message().contains(name), qPrintable(status.message()));
    QCOMPARE(parameters.toMap(), OvPickParameters().toMap());
}

void tst_OvPickParameters::refusesUnknownNames()
{
    OvPickParameters parameters;
    const OvStatus status = parameters.set("window", "3");
    QVERIFY(!status);
    QVERIFY(status.message().contains("\"window\""));
    QVERIFY(status.message().contains("quick_window_ms"));
}

void tst_OvPickParameters::survivesAMap()
{
    OvPickParameters parameters;
    parameters.polarity = OvPickParameters::Polarity::Negative;
    parameters.processingLengthMs = 800;
    parameters.quickSearchWindowMs = 30;
    parameters.tuningSearchWindowMs = 15;
    parameters.minimumOffsetM = 10;
    parameters.maximumOffsetM = 2000;
    parameters.amplitudeThreshold = 0.125;
    parameters.snrThreshold = 1.0 / 3.0;
    parameters.totalShots = 12;
    parameters.shotIncrement = 4;
    const OvPickParameters copy = OvPickParameters::fromMap(parameters.toMap());
    QCOMPARE(copy.toMap(), parameters.toMap());
    QVERIFY(copy.polarity == OvPickParameters::Polarity::Negative);
    QCOMPARE(copy.snrThreshold, 1.0 / 3.0);
}

void tst_OvPickParameters::fillsGapsOfAMapWithDefaults()
{
    const OvPickParameters parameters = OvPickParameters::fromMap(
        {{"total_shots", 5}, {"shot_increment", 0}, {"of another version", "x"}});
    QCOMPARE(parameters.totalShots, 5);
    QCOMPARE(parameters.shotIncrement, 1);
    QCOMPARE(parameters.amplitudeThreshold, 0.001);
}

void tst_OvPickParameters::validatesRanges()
{
    OvPickParameters parameters;
    parameters.shotIncrement = 0;
    QVERIFY(parameters.validate().message().contains("shot_increment"));
    parameters = {};
    parameters.amplitudeThreshold = std::numeric_limits<double>::quiet_NaN();
    QVERIFY(parameters.validate().message().contains("amplitude_threshold"));
    parameters = {};
    parameters.polarity = static_cast<OvPickParameters::Polarity>(7);
    QVERIFY(parameters.validate().message().contains("polarity"));
}

void tst_OvPickParameters::findsContradictions()
{
    OvPickParameters parameters;
    parameters.minimumOffsetM = 300;
    QVERIFY(parameters.validate());
    parameters.maximumOffsetM = 200;
    const QString offsets = parameters.validate().message();
    QVERIFY(offsets.contains("min_offset_m") && offsets.contains("max_offset_m"));
    parameters = {};
    parameters.processingLengthMs = 20;
    parameters.quickSearchWindowMs = 21;
    const QString windows = parameters.validate().message();
    QVERIFY(windows.contains("quick_window_ms") && windows.contains("processing_length_ms"));
}

QTEST_GUILESS_MAIN(tst_OvPickParameters)
#include "tst_OvPickParameters.moc"

#include "OvTarnpick/gadget/OvPickFBDefineWidget.h"

#include "OvBase/OvTranslator.h"
#include "fixtures/WarningTrap.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QMetaObject>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QtTest>

class tst_OvPickFBDefineWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void startsWithTheInitialValues();
    void integerRanges_data();
    void integerRanges();
    void offsetsAreUneven();
    void amplitudeThresholdNeverZero();
    void shotStepNeverZero();
    void buttonsChangeNothing();
    void keepsItsTextsOnALanguageChange();
    void everyFieldExplainsItself_data();
    void everyFieldExplainsItself();
    void placesItsWidgets_data();
    void placesItsWidgets();
    void definesRoundTrip();
    void declaresNoMembersOfItsOwn();

private:
    template <typename Widget>
    static Widget* find(const QWidget& panel, const char* name)
    {
        return panel.findChild<Widget*>(QLatin1String(name));
    }
};

void tst_OvPickFBDefineWidget::init()
{
    WarningTrap::start();
}

void tst_OvPickFBDefineWidget::cleanup()
{
    OvTranslator::instance().setSessionLanguage(OvTranslator::English);
    QCOMPARE(WarningTrap::take(), QStringList());
}

void tst_OvPickFBDefineWidget::startsWithTheInitialValues()
{
    OvPickFBDefineWidget panel;
    panel.show();
    QCOMPARE(panel.objectName(), QStringLiteral("OvPickFBDefineWidget"));
    auto* polarity = find<QComboBox>(panel, "polarity_2");
    QCOMPARE(polarity->count(), 2);
    QCOMPARE(polarity->itemText(0), QStringLiteral("negative"));
    QCOMPARE(polarity->currentText(), QStringLiteral("positive"));
    for (const char* name : {"sbProl", "sbQwin", "sbBwin", "sbMinOff", "sbMaxOff", "sbShots"})
        QCOMPARE(find<QSpinBox>(panel, name)->value(), 0);
    QCOMPARE(find<QSpinBox>(panel, "sbShotStep")->value(), 1);
    QCOMPARE(find<QDoubleSpinBox>(panel, "dbFBAmp")->text(), QStringLiteral("0.001"));
    QCOMPARE(find<QDoubleSpinBox>(panel, "dbSNR")->text(), QStringLiteral("0.00"));
    QCOMPARE(find<QLabel>(panel, "label_11")->text(), QStringLiteral("Shot Incresement"));
    QCOMPARE(find<QLabel>(panel, "label_8")->text(), QStringLiteral("0=All"));
}

void tst_OvPickFBDefineWidget::integerRanges_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    for (const char* name : {"sbProl", "sbQwin", "sbBwin", "sbMinOff", "sbShots"})
        QTest::newRow(name) << QByteArray(name) << 0 << 9999;
    QTest::newRow("sbMaxOff") << QByteArray("sbMaxOff") << 0 << 999999;
    QTest::newRow("sbShotStep") << QByteArray("sbShotStep") << 1 << 9999;
}

void tst_OvPickFBDefineWidget::integerRanges()
{
    QFETCH(QByteArray, name);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    OvPickFBDefineWidget panel;
    auto* field = find<QSpinBox>(panel, name.constData());
    QCOMPARE(field->minimum(), minimum);
    QCOMPARE(field->maximum(), maximum);
    QCOMPARE(field->singleStep(), 1);
    QVERIFY(field->suffix().isEmpty() && field->prefix().isEmpty());
}

void tst_OvPickFBDefineWidget::offsetsAreUneven()
{
    OvPickFBDefineWidget panel;
    auto* farthest = find<QSpinBox>(panel, "sbMaxOff");
    auto* nearest = find<QSpinBox>(panel, "sbMinOff");
    farthest->setValue(999999);
    nearest->setValue(999999);
    QCOMPARE(farthest->value(), 999999);
    QCOMPARE(nearest->value(), 9999);
    farthest->setValue(10);
    QCOMPARE(nearest->value(), 9999);
}

void tst_OvPickFBDefineWidget::amplitudeThresholdNeverZero()
{
    OvPickFBDefineWidget panel;
    panel.show();
    auto* field = find<QDoubleSpinBox>(panel, "dbFBAmp");
    QCOMPARE(field->decimals(), 3);
    QCOMPARE(field->maximum(), 100.0);
    field->setValue(0.25);
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("0"));
    QTest::keyClick(field, Qt::Key_Enter);
    QCOMPARE(field->value(), 0.001);
    auto* snr = find<QDoubleSpinBox>(panel, "dbSNR");
    QCOMPARE(snr->decimals(), 2);
    QCOMPARE(snr->minimum(), 0.0);
    QCOMPARE(snr->maximum(), 9999.0);
}

void tst_OvPickFBDefineWidget::shotStepNeverZero()
{
    OvPickFBDefineWidget panel;
    panel.show();
    auto* field = find<QSpinBox>(panel, "sbShotStep");
    field->setValue(5);
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("0"));
    QTest::keyClick(field, Qt::Key_Enter);
    QVERIFY(field->value() >= 1);
    field->setValue(0);
    QCOMPARE(field->value(), 1);
}

void tst_OvPickFBDefineWidget::buttonsChangeNothing()
{
    OvPickFBDefineWidget panel;
    panel.setDefine({false, 1, 2, 3, 4, 5, 0.5, 6.25, 7, 8});
    for (QAbstractButton* button : {panel.defaultButton(), panel.saveButton()}) {
        button->click();
        const OvPickFBDefine after = panel.define();
        QVERIFY(!after.positivePolarity);
        QCOMPARE(after.processingLengthMs, 1);
        QCOMPARE(after.shotIncrement, 8);
        QCOMPARE(button->maximumWidth(), 60);
        QVERIFY(!qobject_cast<QPushButton*>(button)->autoDefault());
    }
    QCOMPARE(panel.defaultButton()->objectName(), QStringLiteral("btnDefault"));
    QCOMPARE(panel.saveButton()->objectName(), QStringLiteral("btnSave"));
}

void tst_OvPickFBDefineWidget::keepsItsTextsOnALanguageChange()
{
    OvPickFBDefineWidget panel;
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    QCoreApplication::processEvents();
    QCOMPARE(find<QLabel>(panel, "label_20")->text(), QStringLiteral("Picking Polarity"));
    OvPickFBDefineWidget fresh;
    QCOMPARE(find<QLabel>(fresh, "label_20")->text(), QStringLiteral("拾取极性"));
    QCOMPARE(find<QComboBox>(fresh, "polarity_2")->currentIndex(), 1);
}

void tst_OvPickFBDefineWidget::everyFieldExplainsItself_data()
{
    QTest::addColumn<QString>("unit");
    QTest::newRow("polarity_2") << QString();
    for (const char* name : {"sbProl", "sbQwin", "sbBwin"})
        QTest::newRow(name) << QStringLiteral("ms");
    for (const char* name : {"sbMinOff", "sbMaxOff"})
        QTest::newRow(name) << QStringLiteral("m");
    for (const char* name : {"dbFBAmp", "dbSNR"})
        QTest::newRow(name) << QStringLiteral("no unit");
    for (const char* name : {"sbShots", "sbShotStep"})
        QTest::newRow(name) << QStringLiteral("gathers");
}

// What it means, and below that its unit, its range and its default.
void tst_OvPickFBDefineWidget::everyFieldExplainsItself()
{
    QFETCH(QString, unit);
    const char* name = QTest::currentDataTag();
    const OvPickFBDefineWidget english;
    OvTranslator::instance().setSessionLanguage(OvTranslator::Chinese);
    const OvPickFBDefineWidget chinese;
    const auto* field = find<QWidget>(english, name);
    const QStringList lines = field->toolTip().split(QLatin1Char('\n'));
    const QStringList linesInChinese =
        find<QWidget>(chinese, name)->toolTip().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 2);
    QCOMPARE(linesInChinese.size(), 2);
    for (int i = 0; i < lines.size(); ++i) {
        QVERIFY(!lines.at(i).isEmpty());
        QVERIFY(!linesInChinese.at(i).isEmpty());
        QVERIFY(lines.at(i) != linesInChinese.at(i));
    }
    if (const auto* choice = qobject_cast<const QComboBox*>(field)) {
        QVERIFY(lines.at(1).endsWith(QStringLiteral("Default: ") + choice->currentText()));
        QVERIFY(linesInChinese.at(1).endsWith(find<QComboBox>(chinese, name)->currentText()));
        return;
    }
    // A new panel shows the defaults.
    const QString least = field->property("minimum").toString();
    const QString most = field->property("maximum").toString();
    const QString value = field->property("value").toString();
    const QString range = QStringLiteral("%1 to %2").arg(least, most);
    QVERIFY2(lines.at(1).startsWith(range), qPrintable(lines.at(1)));
    QVERIFY2(lines.at(1).contains(QStringLiteral("Default: ") + value), qPrintable(lines.at(1)));
    QVERIFY2(QRegularExpression(QStringLiteral("\\b%1\\b").arg(unit)).match(lines.at(1)).hasMatch(),
             qPrintable(lines.at(1)));
    for (const QString& number : {least, most, value})
        QVERIFY2(linesInChinese.at(1).contains(number), qPrintable(linesInChinese.at(1)));
}

void tst_OvPickFBDefineWidget::placesItsWidgets_data()
{
    QTest::addColumn<QRect>("cell"); // column, row, column span, row span
    const auto row = [](const char* name, int r, int c, int rowSpan, int columnSpan) {
        QTest::newRow(name) << QRect(c, r, columnSpan, rowSpan);
    };
    row("frame_2", 0, 0, 1, 10);
    row("label_2", 1, 0, 1, 1);
    row("sbProl", 1, 1, 1, 1);
    row("label_3", 1, 2, 1, 1);
    row("label_13", 1, 4, 1, 1);
    row("sbMinOff", 1, 6, 1, 2);
    row("label_12", 1, 8, 1, 1);
    row("label_4", 2, 2, 1, 2);
    row("label_15", 2, 4, 1, 2);
    row("sbMaxOff", 2, 6, 1, 2);
    row("label_14", 2, 8, 1, 2);
    row("label_6", 3, 2, 1, 2);
    row("dbFBAmp", 3, 6, 1, 2);
    row("label_8", 4, 2, 1, 2);
    row("dbSNR", 4, 6, 1, 2);
    row("sbShotStep", 5, 1, 1, 1);
    row("frame_4", 5, 4, 1, 6);
}

void tst_OvPickFBDefineWidget::placesItsWidgets()
{
    QFETCH(QRect, cell);
    OvPickFBDefineWidget panel;
    auto* grid = qobject_cast<QGridLayout*>(panel.layout());
    QVERIFY(grid);
    auto* widget = find<QWidget>(panel, QTest::currentDataTag());
    QVERIFY(widget);
    int row = -1, column = -1, rowSpan = 0, columnSpan = 0;
    grid->getItemPosition(grid->indexOf(widget), &row, &column, &rowSpan, &columnSpan);
    QCOMPARE(QRect(column, row, columnSpan, rowSpan), cell);
}

void tst_OvPickFBDefineWidget::definesRoundTrip()
{
    OvPickFBDefineWidget panel;
    panel.setDefine({false, 1500, 40, 12, 25, 120000, 0.125, 2.5, 200, 4});
    const OvPickFBDefine define = panel.define();
    QVERIFY(!define.positivePolarity);
    QCOMPARE(define.processingLengthMs, 1500);
    QCOMPARE(define.quickSearchWindowMs, 40);
    QCOMPARE(define.tuningSearchWindowMs, 12);
    QCOMPARE(define.minimumOffsetM, 25);
    QCOMPARE(define.maximumOffsetM, 120000);
    QCOMPARE(define.amplitudeThreshold, 0.125);
    QCOMPARE(define.snrThreshold, 2.5);
    QCOMPARE(define.totalShots, 200);
    QCOMPARE(define.shotIncrement, 4);
    QCOMPARE(find<QSpinBox>(panel, "sbQwin")->value(), 40);
    QCOMPARE(find<QSpinBox>(panel, "sbBwin")->value(), 12);
}

void tst_OvPickFBDefineWidget::declaresNoMembersOfItsOwn()
{
    const QMetaObject& meta = OvPickFBDefineWidget::staticMetaObject;
    QCOMPARE(meta.methodOffset(), meta.methodCount());
    QCOMPARE(meta.propertyOffset(), meta.propertyCount());
}

QTEST_MAIN(tst_OvPickFBDefineWidget)
#include "tst_OvPickFBDefineWidget.moc"

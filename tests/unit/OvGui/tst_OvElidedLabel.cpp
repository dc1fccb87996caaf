#include "OvGui/view/OvElidedLabel.h"

#include "fixtures/WarningTrap.h"

#include <QtTest>

class tst_OvElidedLabel : public QObject
{
    Q_OBJECT

private slots:
    void init() { WarningTrap::start(); }
    void cleanup() { QCOMPARE(WarningTrap::take(), QStringList()); }
    void showsWhatFits_data();
    void showsWhatFits();
    void neverAsksForRoom();
};

namespace {

template <typename Label>
QImage pictureOf(const QString& text, int width)
{
    Label label;
    label.setTextFormat(Qt::PlainText);
    label.setText(text);
    label.setFixedSize(width, 24);
    return label.grab().toImage();
}

} // namespace

void tst_OvElidedLabel::showsWhatFits_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << QStringLiteral("Time 161.9 ms   Trace 63   Offset 369.0 m");
    QTest::newRow("Chinese") << QStringLiteral("时间 161.9 ms   道号 63   炮检距 369.0 m");
    QTest::newRow("markup") << QStringLiteral("<b>161.9 ms</b> <i>and more of it</i>");
}

void tst_OvElidedLabel::showsWhatFits()
{
    QFETCH(QString, text);
    const QFontMetrics metrics((QLabel()).font());
    const int whole = metrics.boundingRect(text).width();
    QCOMPARE(pictureOf<OvElidedLabel>(text, whole + 20), pictureOf<QLabel>(text, whole + 20));
    const int half = whole / 2;
    const QString shown = metrics.elidedText(text, Qt::ElideRight, half);
    QVERIFY(shown.endsWith(QChar(0x2026)));
    QCOMPARE(pictureOf<OvElidedLabel>(text, half), pictureOf<QLabel>(shown, half));
    QVERIFY(pictureOf<OvElidedLabel>(text, half) != pictureOf<QLabel>(text, half));
}

void tst_OvElidedLabel::neverAsksForRoom()
{
    OvElidedLabel label;
    label.setText(QString(400, QLatin1Char('m')));
    QCOMPARE(label.text().size(), 400);
    QCOMPARE(label.minimumWidth(), 1);
    QCOMPARE(label.sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
}

QTEST_MAIN(tst_OvElidedLabel)
#include "tst_OvElidedLabel.moc"

#include <QFile>
#include <QIcon>
#include <QImage>
#include <QtTest>

/// The images that the build draws: all there, of the size that their names promise, not blank.
class tst_Images : public QObject
{
    Q_OBJECT

private slots:
    void sizes_data();
    void sizes();
    void statesDiffer_data();
    void statesDiffer();
    void windowIconHasManySizes();
    void logosAreTransparentAround();
    void toolkitTextsAreChinese();
};

namespace {

QImage image(const QString& name)
{
    return QImage(":/resource/images/" + name);
}

} // namespace

void tst_Images::sizes_data()
{
    QTest::addColumn<QSize>("size");
    for (const char* stem : {"camera_%1_24x24.png", "export_%1_24x24.png",
                             "fb_to_header_%1_24X24.png", "Open_folder_%1_24X24.png"}) {
        for (int state = 0; state < 3; ++state)
            QTest::newRow(qPrintable(QString(stem).arg(state))) << QSize(24, 24);
    }
    QTest::newRow("Maravel_logo_200x260_trans.png") << QSize(200, 260);
    QTest::newRow("Maravel_logo_100x130_trans.png") << QSize(100, 130);
    QTest::newRow("arrow_up.png") << QSize(48, 48);
    QTest::newRow("arrow_down.png") << QSize(48, 48);
    QTest::newRow("welcome.png") << QSize(530, 358);
}

void tst_Images::sizes()
{
    QFETCH(QSize, size);
    const QImage picture = image(QTest::currentDataTag());
    QCOMPARE(picture.size(), size);
    QImage blank(size, picture.format());
    blank.fill(Qt::transparent);
    QVERIFY(picture != blank);
}

void tst_Images::statesDiffer_data()
{
    QTest::addColumn<QString>("stem");
    QTest::newRow("camera") << "camera_%1_24x24.png";
    QTest::newRow("export") << "export_%1_24x24.png";
    QTest::newRow("header") << "fb_to_header_%1_24X24.png";
    QTest::newRow("folder") << "Open_folder_%1_24X24.png";
}

void tst_Images::statesDiffer()
{
    QFETCH(QString, stem);
    const QImage disabled = image(stem.arg(0));
    const QImage normal = image(stem.arg(1));
    const QImage active = image(stem.arg(2));
    QVERIFY(disabled != normal && normal != active && active != disabled);
}

void tst_Images::windowIconHasManySizes()
{
    const QIcon icon(":/resource/images/logo.ico");
    const auto sizes = icon.availableSizes();
    for (const int size : {16, 24, 32, 48, 64})
        QVERIFY2(sizes.contains(QSize(size, size)), qPrintable(QString::number(size)));
}

void tst_Images::logosAreTransparentAround()
{
    for (const char* name : {"Maravel_logo_200x260_trans.png", "Maravel_logo_100x130_trans.png"}) {
        const QImage logo = image(name);
        QCOMPARE(qAlpha(logo.pixel(0, 0)), 0);
        QCOMPARE(qAlpha(logo.pixel(logo.width() - 1, logo.height() - 1)), 0);
    }
}

void tst_Images::toolkitTextsAreChinese()
{
    QTranslator translator;
    QVERIFY(translator.load(":/resource/translations/qt_zh_CN.qm"));
    QCOMPARE(translator.translate("QPlatformTheme", "Cancel"), QString::fromUtf8("取消"));
}

QTEST_MAIN(tst_Images)
#include "tst_Images.moc"

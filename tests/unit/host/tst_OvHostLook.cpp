#include "host/OvHostLook.h"

#include <QCheckBox>
#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <QRadioButton>
#include <QtTest>

#include <cmath>
#include <memory>

class tst_OvHostLook : public QObject
{
    Q_OBJECT

private slots:
    void textStandsOut_data();
    void textStandsOut();
    void disabledTextIsFainter();
    void formFamiliesHaveInstalledSubstitutes();
    void darkDesktopStaysDark();
    void boxesStandOutOfADarkWindow_data();
    void boxesStandOutOfADarkWindow();
};

namespace {

double channel(double value)
{
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

/// Relative luminance and contrast as the accessibility guidelines for web content define them.
double luminance(const QColor& color)
{
    return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF()) +
           0.0722 * channel(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

QImage pictureOf(const QString& text, const char* family)
{
    QImage picture(40, 40, QImage::Format_Grayscale8);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setFont(QFont(family, 20));
    painter.drawText(picture.rect(), Qt::AlignCenter, text);
    return picture;
}

} // namespace

void tst_OvHostLook::textStandsOut_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << OvHostLook::lightPalette();
    QTest::newRow("dark") << OvHostLook::darkPalette();
}

void tst_OvHostLook::textStandsOut()
{
    QFETCH(QPalette, palette);
    const QPair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::ToolTipText, QPalette::ToolTipBase}};
    for (const auto& pair : pairs)
        QVERIFY(contrast(palette.color(pair.first), palette.color(pair.second)) >= 7.0);
    QVERIFY(contrast(palette.color(QPalette::Link), palette.color(QPalette::Base)) >= 4.5);
    QVERIFY(contrast(palette.color(QPalette::HighlightedText),
                     palette.color(QPalette::Highlight)) >= 4.0);
}

void tst_OvHostLook::disabledTextIsFainter()
{
    for (const QPalette& palette : {OvHostLook::lightPalette(), OvHostLook::darkPalette()}) {
        const QColor base = palette.color(QPalette::Base);
        QVERIFY(contrast(palette.color(QPalette::Disabled, QPalette::Text), base) <
                contrast(palette.color(QPalette::Active, QPalette::Text), base) / 2);
    }
}

void tst_OvHostLook::formFamiliesHaveInstalledSubstitutes()
{
    OvHostLook::substituteFonts();
    for (const char* family : {"Segoe UI", "Microsoft YaHei UI", "simsun", "Arial", "Calibri"}) {
        const QString used = QFontInfo(QFont(family, 10)).family();
        QVERIFY2(used == family || QFont::substitutes(family).contains(used, Qt::CaseInsensitive),
                 qPrintable(family + (": " + used)));
        // A glyph of its own, not the box that stands for a missing one.
        const QString chinese(QChar(0x7B80));
        const QString unassigned(QChar(0xFFFE));
        QVERIFY2(pictureOf(chinese, family) != pictureOf(unassigned, family), family);
    }
}

void tst_OvHostLook::darkDesktopStaysDark()
{
    QApplication::setPalette(QPalette(Qt::white, Qt::black));
    QPalette desktop(QColor(60, 60, 60), QColor(30, 30, 30));
    desktop.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(desktop);
    OvHostLook::apply(qApp);
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             OvHostLook::darkPalette().color(QPalette::Window));

    desktop = QPalette(QColor(240, 240, 240), QColor(250, 250, 250));
    desktop.setColor(QPalette::WindowText, Qt::black);
    QApplication::setPalette(desktop);
    OvHostLook::apply(qApp);
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             OvHostLook::lightPalette().color(QPalette::Window));
}

void tst_OvHostLook::boxesStandOutOfADarkWindow_data()
{
    QTest::addColumn<bool>("isBox");
    QTest::newRow("check box") << true;
    QTest::newRow("radio button") << false;
}

void tst_OvHostLook::boxesStandOutOfADarkWindow()
{
    QFETCH(bool, isBox);
    QApplication::setPalette(QPalette(Qt::white, Qt::black));
    QPalette desktop(QColor(60, 60, 60), QColor(30, 30, 30));
    desktop.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(desktop);
    OvHostLook::apply(qApp);
    const std::unique_ptr<QAbstractButton> button(
        isBox ? static_cast<QAbstractButton*>(new QCheckBox) : new QRadioButton);
    const QImage picture = button->grab().toImage();
    double best = 1.0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            best = std::max(best, contrast(picture.pixelColor(x, y),
                                           OvHostLook::darkPalette().color(QPalette::Window)));
    // What the accessibility guidelines ask of the edge of a control.
    QVERIFY2(best >= 3.0, qPrintable(QString::number(best)));
}

QTEST_MAIN(tst_OvHostLook)
#include "tst_OvHostLook.moc"

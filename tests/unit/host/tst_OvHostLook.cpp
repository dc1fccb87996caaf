#include "host/OvHostLook.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontInfo>
#include <QGroupBox>
#include <QImage>
#include <QMdiArea>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleFactory>
#include <QStyleOptionGroupBox>
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
    void groundBehindSubWindowsIsQuiet_data();
    void groundBehindSubWindowsIsQuiet();
    void dialogButtonsHaveNoPictures();
    void longTextsOfButtonsHaveAir();
    void titlesOfGroupsStandClearOfTheFrame();
    void messageBoxesHaveSharpSigns_data();
    void messageBoxesHaveSharpSigns();
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

/// The look on a desktop of that kind.
void applyLook(bool dark)
{
    QApplication::setPalette(QPalette(Qt::white, Qt::black));
    QPalette desktop(QColor(60, 60, 60), dark ? QColor(30, 30, 30) : QColor(250, 250, 250));
    desktop.setColor(QPalette::WindowText, dark ? Qt::white : Qt::black);
    QApplication::setPalette(desktop);
    OvHostLook::apply(qApp);
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
    applyLook(true);
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             OvHostLook::darkPalette().color(QPalette::Window));
    applyLook(false);
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
    applyLook(true);
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

void tst_OvHostLook::groundBehindSubWindowsIsQuiet_data()
{
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
}

void tst_OvHostLook::groundBehindSubWindowsIsQuiet()
{
    QFETCH(bool, dark);
    applyLook(dark);
    QMdiArea area;
    area.ensurePolished();
    const QColor ground = area.grab().toImage().pixelColor(20, 20);
    // Close to the window's own tone, on the darker side of it.
    const QColor window = QApplication::palette().color(QPalette::Window);
    QVERIFY2(ground.lightness() < window.lightness(), qPrintable(ground.name()));
    QVERIFY2(ground.lightness() > window.lightness() - 40, qPrintable(ground.name()));
}

void tst_OvHostLook::dialogButtonsHaveNoPictures()
{
    applyLook(false);
    const QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel |
                               QDialogButtonBox::Close);
    QCOMPARE(box.buttons().size(), 3);
    for (const QAbstractButton* button : box.buttons())
        QVERIFY2(button->icon().isNull(), qPrintable(button->text()));
}

void tst_OvHostLook::longTextsOfButtonsHaveAir()
{
    applyLook(false);
    const QPushButton button(QStringLiteral("Examine Whole File"));
    const int text = button.fontMetrics().size(Qt::TextShowMnemonic, button.text()).width();
    QVERIFY2(button.sizeHint().width() >= text + 24,
             qPrintable(QStringLiteral("%1 for %2").arg(button.sizeHint().width()).arg(text)));
}

void tst_OvHostLook::titlesOfGroupsStandClearOfTheFrame()
{
    applyLook(false);
    QGroupBox box(QStringLiteral("项目列表"));
    box.resize(300, 200);
    QStyleOptionGroupBox option;
    option.initFrom(&box);
    option.text = box.title();
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    const auto titleIn = [&](const QStyle* style) {
        return style->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, &box);
    };
    const std::unique_ptr<QStyle> plain(QStyleFactory::create("Fusion"));
    QCOMPARE(titleIn(box.style()), titleIn(plain.get()).translated(0, -3));
    // And not cut off above.
    const QImage picture = box.grab().toImage();
    for (int x = 0; x < picture.width(); ++x)
        QCOMPARE(picture.pixelColor(x, 0), picture.pixelColor(0, 0));
}

void tst_OvHostLook::messageBoxesHaveSharpSigns_data()
{
    QTest::addColumn<int>("sign");
    QTest::newRow("information") << int(QMessageBox::Information);
    QTest::newRow("question") << int(QMessageBox::Question);
    QTest::newRow("warning") << int(QMessageBox::Warning);
    QTest::newRow("critical") << int(QMessageBox::Critical);
}

void tst_OvHostLook::messageBoxesHaveSharpSigns()
{
    static QVector<QImage> seen;
    QFETCH(int, sign);
    applyLook(false);
    const QMessageBox box(static_cast<QMessageBox::Icon>(sign), "title", "text");
    const QImage picture = box.iconPixmap().toImage();
    QVERIFY(!picture.isNull());
    QVERIFY(!seen.contains(picture));
    seen.append(picture);
    // Drawn for the largest screens too, not blown up from a small bitmap.
    const QIcon icon = box.style()->standardIcon(
        static_cast<QStyle::StandardPixmap>(int(QStyle::SP_MessageBoxInformation) + sign - 1));
    QCOMPARE(icon.actualSize(QSize(96, 96)), QSize(96, 96));
    QCOMPARE(icon.pixmap(96, 96).toImage().pixelColor(0, 0).alpha(), 0);
}

QTEST_MAIN(tst_OvHostLook)
#include "tst_OvHostLook.moc"

#include "host/OvHostLook.h"

#include "host/OvHostStyle.h"

#include <QApplication>
#include <QFont>

namespace {

struct Tones
{
    QRgb window, base, alternate, button, text, faded, highlight, link;
};

QPalette paletteOf(const Tones& tones)
{
    QPalette palette(QColor(tones.button), QColor(tones.window));
    palette.setColor(QPalette::Base, tones.base);
    palette.setColor(QPalette::AlternateBase, tones.alternate);
    palette.setColor(QPalette::ToolTipBase, tones.base);
    palette.setColor(QPalette::Highlight, tones.highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, tones.link);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, tones.text);
        palette.setColor(QPalette::Disabled, role, tones.faded);
    }
    palette.setColor(QPalette::PlaceholderText, tones.faded);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, tones.faded);
    return palette;
}

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

} // namespace

QPalette OvHostLook::lightPalette()
{
    return paletteOf({0xfff3f5f8, 0xffffffff, 0xffeef3f7, 0xffe9eef2, 0xff1f2730, 0xff8d97a1,
                      0xff2f7fbf, 0xff1c6aa8});
}

QPalette OvHostLook::darkPalette()
{
    return paletteOf({0xff2b2f34, 0xff212429, 0xff272b30, 0xff353a40, 0xffe4e8ec, 0xff7d868f,
                      0xff2f7fbf, 0xff6db6ee});
}

void OvHostLook::substituteFonts()
{
    // Families that are not installed are passed over; asking which are would cost a good part of
    // the start.
    const QStringList latin = {"Noto Sans", "Liberation Sans", "DejaVu Sans"};
    const QStringList chinese = {"Noto Sans CJK SC", "Noto Sans SC", "Source Han Sans SC",
                                 "WenQuanYi Micro Hei", "Droid Sans Fallback"};
    for (const char* family : {"Segoe UI", "Arial", "Calibri"})
        QFont::insertSubstitutions(family, latin + chinese);
    for (const char* family : {"Microsoft YaHei UI", "simsun", "SimSun"})
        QFont::insertSubstitutions(family, chinese + latin);
}

void OvHostLook::apply(QApplication* application)
{
    const bool dark = isDark(QApplication::palette());
    QApplication::setStyle(new OvHostStyle);
    QApplication::setPalette(dark ? darkPalette() : lightPalette());
    substituteFonts();
    application->setFont(QFont("Segoe UI", 10));
}

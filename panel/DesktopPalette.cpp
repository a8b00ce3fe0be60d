// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/DesktopPalette.h"

#include "panel/Contrast.h"
#include "platform/Appearance.h"

#include <QEvent>
#include <QGuiApplication>

namespace norvane {

namespace {

struct Shades {
    QRgb window;
    QRgb text;
    QRgb base;
    QRgb button;
    QRgb highlight;
    QRgb highlightedText;
};

QPalette paletteOf(const Shades &shades)
{
    QPalette palette{QColor{shades.button}, QColor{shades.window}};
    palette.setColor(QPalette::WindowText, shades.text);
    palette.setColor(QPalette::Base, shades.base);
    palette.setColor(QPalette::Text, shades.text);
    palette.setColor(QPalette::ButtonText, shades.text);
    palette.setColor(QPalette::Highlight, shades.highlight);
    palette.setColor(QPalette::HighlightedText, shades.highlightedText);
    return palette;
}

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightnessF() < 0.5F;
}

} // namespace

DesktopPalette::DesktopPalette(const Appearance &appearance, QObject *parent)
    : QObject{parent},
      appearance_{appearance}
{
    connect(&appearance_, &Appearance::changed, this, &DesktopPalette::apply);
    QCoreApplication::instance()->installEventFilter(this);
    apply();
}

QPalette DesktopPalette::light(bool moreContrast)
{
    return paletteOf({.window = moreContrast ? 0xffffffff : 0xfffafafb,
                      .text = moreContrast ? 0xff000000 : 0xff1c1c20,
                      .base = 0xffffffff,
                      .button = moreContrast ? 0xffffffff : 0xfff0f0f2,
                      .highlight = 0xff2f6fd0,
                      .highlightedText = 0xffffffff});
}

QPalette DesktopPalette::dark(bool moreContrast)
{
    return paletteOf({.window = moreContrast ? 0xff111113 : 0xff2b2b2f,
                      .text = moreContrast ? 0xffffffff : 0xfff4f4f6,
                      .base = moreContrast ? 0xff000000 : 0xff1e1e21,
                      .button = moreContrast ? 0xff000000 : 0xff3b3b41,
                      .highlight = 0xff3f80e0,
                      .highlightedText = 0xffffffff});
}

bool DesktopPalette::isQtsOwn(const QPalette &palette)
{
    constexpr QRgb light = 0xffefefef;
    constexpr QRgb dark = 0xff323232;
    constexpr QRgb highlight = 0xff308cc6;
    const QRgb window = palette.color(QPalette::Window).rgb();
    return (window == light || window == dark) && palette.color(QPalette::Button).rgb() == window &&
           palette.color(QPalette::Highlight).rgb() == highlight;
}

bool DesktopPalette::eventFilter(QObject * /*watched*/, QEvent *event)
{
    // Qt sends no PaletteChange while the application has a palette of its own; ThemeChange always
    // comes.
    if (event->type() == QEvent::ThemeChange) {
        apply();
    }
    return false;
}

void DesktopPalette::apply() const
{
    using Scheme = Appearance::ColorScheme;
    const Appearance::Preferences wanted = appearance_.preferences();
    Contrast::setMore(wanted.moreContrast);
    QGuiApplication::setPalette(QPalette{}); // Back to the desktop's, to see what that is.
    const QPalette desktops = QGuiApplication::palette();
    const bool toBeDark = wanted.colorScheme == Scheme::NoPreference
                              ? isDark(desktops)
                              : wanted.colorScheme == Scheme::Dark;
    QPalette palette; // With no colour set, the desktop's show through.
    if (isQtsOwn(desktops) || isDark(desktops) != toBeDark) {
        palette = toBeDark ? dark(wanted.moreContrast) : light(wanted.moreContrast);
    }
    if (const auto accent = wanted.accent) {
        const QColor color =
            QColor::fromRgbF(static_cast<float>(accent->red), static_cast<float>(accent->green),
                             static_cast<float>(accent->blue));
        palette.setColor(QPalette::Highlight, color);
        palette.setColor(QPalette::HighlightedText, Contrast::onGround(color));
    }
    QGuiApplication::setPalette(palette);
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/DesktopPalette.h"

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
    connect(&appearance_, &Appearance::colorSchemeChanged, this, &DesktopPalette::apply);
    QCoreApplication::instance()->installEventFilter(this);
    apply();
}

QPalette DesktopPalette::light()
{
    return paletteOf({.window = 0xfff7f7f8,
                      .text = 0xff1d1d20,
                      .base = 0xffffffff,
                      .button = 0xffffffff,
                      .highlight = 0xff2f6fd0,
                      .highlightedText = 0xffffffff});
}

QPalette DesktopPalette::dark()
{
    return paletteOf({.window = 0xff2a2a2e,
                      .text = 0xfff2f2f5,
                      .base = 0xff1f1f22,
                      .button = 0xff3b3b40,
                      .highlight = 0xff5b9bf3,
                      .highlightedText = 0xff101014});
}

bool DesktopPalette::eventFilter(QObject * /*watched*/, QEvent *event)
{
    // Windows are told of the desktop's new theme; of a palette that ours covers nobody is.
    if (event->type() == QEvent::ThemeChange) {
        apply();
    }
    return false;
}

void DesktopPalette::apply() const
{
    using Scheme = Appearance::ColorScheme;
    QGuiApplication::setPalette(QPalette{}); // Back to the desktop's, to see what that is.
    const Scheme scheme = appearance_.colorScheme();
    if (scheme == Scheme::Dark && !isDark(QGuiApplication::palette())) {
        QGuiApplication::setPalette(dark());
    } else if (scheme == Scheme::Light && isDark(QGuiApplication::palette())) {
        QGuiApplication::setPalette(light());
    }
}

} // namespace norvane

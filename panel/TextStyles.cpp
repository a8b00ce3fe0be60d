// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/TextStyles.h"

#include <QEvent>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace norvane {

namespace {

QFont style(double relativeSize, QFont::Weight weight = QFont::Normal)
{
    QFont font = QGuiApplication::font();
    const double bodySize = QFontInfo{font}.pixelSize();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(bodySize * relativeSize))));
    // A desktop font that is already bold stays bold.
    font.setWeight(std::max(weight, static_cast<QFont::Weight>(font.weight())));
    return font;
}

} // namespace

TextStyles::TextStyles(QObject *parent) : QObject{parent}
{
    QCoreApplication::instance()->installEventFilter(this);
}

QFont TextStyles::largeTitle()
{
    return style(2.0);
}

QFont TextStyles::title3()
{
    return style(1.2);
}

QFont TextStyles::headline()
{
    return style(1.0, QFont::DemiBold);
}

QFont TextStyles::body()
{
    return style(1.0);
}

QFont TextStyles::caption()
{
    return style(0.85);
}

QFont TextStyles::captionMedium()
{
    return style(0.85, QFont::Medium);
}

int TextStyles::lineHeight(const QFont &font)
{
    return static_cast<int>(std::ceil(QFontMetricsF{font}.height()));
}

int TextStyles::width(const QString &text, const QFont &font)
{
    return static_cast<int>(std::ceil(QFontMetricsF{font}.horizontalAdvance(text)));
}

bool TextStyles::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationFontChange && watched == QCoreApplication::instance()) {
        emit changed();
    }
    return false;
}

} // namespace norvane

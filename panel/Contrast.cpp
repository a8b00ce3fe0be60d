// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/Contrast.h"

#include <algorithm>
#include <cmath>

namespace norvane {

namespace {

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return 0.2126 * linear(rgb.redF()) + 0.7152 * linear(rgb.greenF()) +
           0.0722 * linear(rgb.blueF());
}

QColor ensured(const QColor &color, const QColor &background, double wanted)
{
    const QColor black{Qt::black};
    const QColor white{Qt::white};
    const bool darken = Contrast::ratio(black, background) > Contrast::ratio(white, background);
    constexpr int steps = 50;
    QColor mixture = color;
    for (int step = 1; step <= steps && Contrast::ratio(mixture, background) < wanted; ++step) {
        mixture =
            Contrast::blended(darken ? black : white, static_cast<double>(step) / steps, color);
    }
    return mixture;
}

} // namespace

double Contrast::ratio(const QColor &color, const QColor &background)
{
    const double one = luminance(color) + 0.05;
    const double other = luminance(background) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

QColor Contrast::readable(const QColor &color, const QColor &background)
{
    return ensured(color, background, ofText);
}

QColor Contrast::visible(const QColor &color, const QColor &background)
{
    return ensured(color, background, ofSymbols);
}

QColor Contrast::blended(const QColor &color, double opacity, const QColor &background)
{
    const auto channel = [opacity](float over, float under) {
        return static_cast<float>(over * opacity + under * (1 - opacity));
    };
    return QColor::fromRgbF(channel(color.redF(), background.redF()),
                            channel(color.greenF(), background.greenF()),
                            channel(color.blueF(), background.blueF()));
}

Hue Contrast::hue(const QColor &color, const QColor &background)
{
    constexpr double patchOpacity = 0.2;
    const QColor patch = blended(color, patchOpacity, background);
    return {.text = readable(color, background),
            .symbol = visible(color, background),
            .patch = patch,
            .symbolOnPatch = visible(color, patch)};
}

} // namespace norvane

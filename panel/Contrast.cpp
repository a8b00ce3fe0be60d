// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/Contrast.h"

#include <QCoreApplication>
#include <QEvent>
#include <QVariant>

#include <algorithm>
#include <cmath>

namespace norvane {

namespace {

/// Stored in the application object, like its palette and font; a change is announced by an event.
constexpr const char *moreProperty = "norvaneMoreContrast";

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

} // namespace

Contrast::Contrast(QObject *parent) : QObject{parent}
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool Contrast::more()
{
    return QCoreApplication::instance()->property(moreProperty).toBool();
}

void Contrast::setMore(bool more)
{
    if (more != Contrast::more()) {
        QCoreApplication::instance()->setProperty(moreProperty, more);
    }
}

double Contrast::ratio(const QColor &color, const QColor &background)
{
    const double one = luminance(color) + 0.05;
    const double other = luminance(background) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

QColor Contrast::ensured(const QColor &color, const QColor &background, double wanted)
{
    const QColor black{Qt::black};
    const QColor white{Qt::white};
    const bool darken = ratio(black, background) > ratio(white, background);
    constexpr int steps = 50;
    QColor mixture = color;
    for (int step = 1; step <= steps && ratio(mixture, background) < wanted; ++step) {
        mixture = blended(darken ? black : white, static_cast<double>(step) / steps, color);
    }
    return mixture;
}

QColor Contrast::ensuredOnAll(const QColor &color, const QColor &first, const QColor &second,
                              const QColor &third, double wanted)
{
    const auto least = [&](const QColor &mixture) {
        return std::min({ratio(mixture, first), ratio(mixture, second), ratio(mixture, third)});
    };
    QColor best = color;
    constexpr int steps = 50;
    for (int step = 1; step <= steps && least(best) < wanted; ++step) {
        for (const QColor &end : {QColor{Qt::black}, QColor{Qt::white}}) {
            const QColor mixture = blended(end, static_cast<double>(step) / steps, color);
            best = least(mixture) > least(best) ? mixture : best;
        }
    }
    return best;
}

QColor Contrast::onGround(const QColor &ground)
{
    constexpr double nearEnough = 3.2;
    return ratio(Qt::white, ground) >= nearEnough ? Qt::white : Qt::black;
}

QColor Contrast::blended(const QColor &coat, double opacity, const QColor &background)
{
    const auto channel = [opacity](float over, float under) {
        return static_cast<float>(over * opacity + under * (1 - opacity));
    };
    return QColor::fromRgbF(channel(coat.redF(), background.redF()),
                            channel(coat.greenF(), background.greenF()),
                            channel(coat.blueF(), background.blueF()));
}

Hue Contrast::hue(const QColor &color, const QColor &background, const QColor &lit,
                  double textRatio, double symbolRatio)
{
    constexpr double patchOpacity = 0.2;
    const QColor patch = blended(color, patchOpacity, background);
    const auto onBoth = [&](double wanted) {
        return ensured(ensured(color, lit, wanted), background, wanted);
    };
    return {.text = onBoth(textRatio),
            .symbol = onBoth(symbolRatio),
            .patch = patch,
            .symbolOnPatch = ensured(color, patch, symbolRatio)};
}

bool Contrast::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() == QEvent::DynamicPropertyChange &&
        static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName() == moreProperty) {
        emit moreChanged();
    }
    return false;
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "panel/Contrast.h"

#include <QHash>
#include <QImage>
#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>

namespace norvane {

// Colours measured on the picture of a window, after all mixing and drawing.

/// The colour at a place in an item.
inline QColor shownColor(const QQuickItem *item, const QPointF &place)
{
    const QImage image = item->window()->grabWindow();
    const QPointF pixel = item->mapToScene(place) * image.devicePixelRatio();
    return image.pixelColor(static_cast<int>(pixel.x()), static_cast<int>(pixel.y()));
}

/// The largest contrast ratio of any pixel to the most frequent colour.
inline double strongestContrast(const QImage &image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            ++counts[image.pixel(x, y)];
        }
    }
    QRgb ground = 0;
    for (auto count = counts.cbegin(); count != counts.cend(); ++count) {
        ground = *count > counts.value(ground) ? count.key() : ground;
    }
    double strongest = 1;
    for (auto count = counts.cbegin(); count != counts.cend(); ++count) {
        strongest = std::max(strongest, Contrast::ratio(QColor{count.key()}, QColor{ground}));
    }
    return strongest;
}

/// The texts and symbols below an item whose contrast on this picture of the window is less than
/// these ratios, each with its own ratio. Disabled items are left out.
inline QStringList faintOnes(const QQuickItem *below, double wantedOfText, double wantedOfSymbol,
                             const QImage &window)
{
    QStringList faint;
    if (!below->isVisible() || !below->isEnabled()) {
        return faint;
    }
    const bool isSymbol = below->inherits("norvane::Symbol");
    const QString shown = below->inherits("QQuickText") ? below->property("text").toString()
                          : isSymbol                    ? below->property("name").toString()
                                                        : QString{};
    const QRect place =
        below->mapRectToScene(below->boundingRect()).toAlignedRect() & window.rect();
    if (!shown.isEmpty() && !place.isEmpty()) {
        const double found = strongestContrast(window.copy(place));
        if (found < (isSymbol ? wantedOfSymbol : wantedOfText)) {
            faint.append(QStringLiteral("%1: %2").arg(shown).arg(found));
        }
    }
    for (const QQuickItem *const child : below->childItems()) {
        faint.append(faintOnes(child, wantedOfText, wantedOfSymbol, window));
    }
    return faint;
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "panel/Hue.h"

#include <QColor>
#include <QObject>
#include <QtQmlIntegration/qqmlintegration.h>

namespace norvane {

/// How well a colour can be told from another, as the ratio of their luminances: 1 to 21.
class Contrast : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    explicit Contrast(QObject *parent = nullptr) : QObject{parent} {}

    static constexpr double ofText = 4.5;
    static constexpr double ofSymbols = 3.0;

    [[nodiscard]] Q_INVOKABLE static double ratio(const QColor &color, const QColor &background);
    /// The colour itself where text in it can be read on this background; otherwise the nearest
    /// mixture of it with black or white that can.
    [[nodiscard]] Q_INVOKABLE static QColor readable(const QColor &color, const QColor &background);
    /// The same for what is not text.
    [[nodiscard]] Q_INVOKABLE static QColor visible(const QColor &color, const QColor &background);
    /// What is seen of a background through a coat of this colour.
    [[nodiscard]] Q_INVOKABLE static QColor blended(const QColor &color, double opacity,
                                                    const QColor &background);
    /// A colour in all its uses on this background.
    [[nodiscard]] Q_INVOKABLE static norvane::Hue hue(const QColor &color,
                                                      const QColor &background);
};

} // namespace norvane

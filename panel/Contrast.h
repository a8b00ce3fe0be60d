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
    Q_PROPERTY(bool more READ more NOTIFY moreChanged)

public:
    explicit Contrast(QObject *parent = nullptr);

    /// Whether the user wants more contrast than usual; holds for the whole application.
    [[nodiscard]] static bool more();
    static void setMore(bool more);

    [[nodiscard]] Q_INVOKABLE static double ratio(const QColor &color, const QColor &background);
    /// The colour itself where it has the wanted ratio to this background; otherwise the nearest
    /// mixture of it with black or white that has, or black or white where none has.
    [[nodiscard]] Q_INVOKABLE static QColor ensured(const QColor &color, const QColor &background,
                                                    double wanted);
    /// The same for three backgrounds that the colour stands on or beside; where no mixture has the
    /// ratio to all of them, the one that comes nearest.
    [[nodiscard]] Q_INVOKABLE static QColor ensuredOnAll(const QColor &color, const QColor &first,
                                                         const QColor &second, const QColor &third,
                                                         double wanted);
    /// White or black, for text on a background of this colour: white if its contrast to the
    /// background is at least 3.2, so that darkening the background slightly is enough; otherwise
    /// black.
    [[nodiscard]] Q_INVOKABLE static QColor onGround(const QColor &ground);
    /// The colour that results from painting `coat` over a background at this opacity.
    [[nodiscard]] Q_INVOKABLE static QColor blended(const QColor &coat, double opacity,
                                                    const QColor &background);
    /// Adjusts a colour for each of its uses. Text and symbols reach their ratios both on
    /// `background` and on `lit`, the background under the pointer; symbolOnPatch reaches the ratio
    /// of symbols on the patch.
    [[nodiscard]] Q_INVOKABLE static norvane::Hue hue(const QColor &color, const QColor &background,
                                                      const QColor &lit, double textRatio,
                                                      double symbolRatio);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void moreChanged();
};

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace norvane {

/// Whether the desktop is a light or a dark one.
class Appearance : public QObject {
    Q_OBJECT

public:
    enum class ColorScheme {
        NoPreference, ///< Nothing is known: the palette that the desktop gives holds.
        Dark,
        Light,
    };

    [[nodiscard]] virtual ColorScheme colorScheme() const = 0;

signals:
    void colorSchemeChanged();
};

} // namespace norvane

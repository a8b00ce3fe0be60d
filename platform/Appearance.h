// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <optional>

namespace norvane {

/// How the user wants programs to look: light or dark, with how much contrast, in which accent
/// colour.
class Appearance : public QObject {
    Q_OBJECT

public:
    enum class ColorScheme {
        NoPreference, ///< Nothing is known: the palette that the desktop gives holds.
        Dark,
        Light,
    };

    /// A colour in sRGB, each part from 0 to 1.
    struct Color {
        double red = 0;
        double green = 0;
        double blue = 0;

        bool operator==(const Color &) const = default;
    };

    struct Preferences {
        ColorScheme colorScheme = ColorScheme::NoPreference;
        bool moreContrast = false;
        std::optional<Color> accent = std::nullopt; ///< None where the user has chosen none.

        bool operator==(const Preferences &) const = default;
    };

    [[nodiscard]] virtual Preferences preferences() const = 0;

signals:
    void changed();
};

} // namespace norvane

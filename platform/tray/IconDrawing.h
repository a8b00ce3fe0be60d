// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QList>
#include <QString>

namespace norvane {

/// The program's own drawings of its icons, for hosts that do not know them by name.
class IconDrawing {
public:
    /// The drawing of this theme name at each size that panels use, smallest first, 16 to 64
    /// pixels: every one drawn as such, so that no panel need scale. None for an unknown name.
    [[nodiscard]] static QList<QImage> inAllSizes(const QString &iconName);
};

} // namespace norvane

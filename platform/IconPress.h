// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QRect>
#include <QString>

#include <optional>

namespace norvane {

/// One press on the status icon, as far as the desktop tells of it.
struct IconPress {
    /// The icon itself, in the window system's own pixels; for desktops that draw it for us from
    /// a window of ours, and so know it for certain.
    std::optional<QRect> icon;
    /// Where a host of icons says it was pressed, in the same pixels or, with some hosts, in
    /// numbers that mean nothing on the screen.
    std::optional<QPoint> place;
    /// What lets a window take the keyboard on strict desktops; good for one use, or empty.
    QString activationToken;
};

} // namespace norvane

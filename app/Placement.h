// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/windows/WindowSystem.h"

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace norvane {

/// Computes where the popover goes on the screens as they are at the moment. The popover has one
/// size wherever there is room for it.
///
/// All rectangles are in the same unit, device or device-independent pixels. There is at least one
/// screen; the first one is the primary screen.
class Placement {
public:
    Placement(QList<ScreenArea> screens, const QSize &size);

    /// The place to open at: the icon, where it is known and on a screen; else where the host says
    /// it was pressed, if that lies in a panel's strip of a screen; else the pointer. A place
    /// stands for an icon of usual size around it.
    [[nodiscard]] QRect anchor(const std::optional<QRect> &icon, const std::optional<QPoint> &place,
                               const QPoint &pointer) const;

    /// The popover beside an anchor: centred on it and below it; above it where the panel is at the
    /// bottom, and at its side where the panel is upright. It lies inside the work area of the
    /// anchor's screen and is no higher than that; if it is wider, its left part shows.
    [[nodiscard]] QRect beside(const QRect &anchor) const;

    /// The popover where there is no icon to open at: by the end of the primary screen's panel
    /// where icons usually are, or at the top right.
    [[nodiscard]] QRect withoutAnchor() const;

    [[nodiscard]] bool isOnScreen(const QRect &anchor) const;
    /// Whether a popover that is here lies whole inside a work area, as high as it can be there.
    [[nodiscard]] bool isWhole(const QRect &popover) const;

private:
    enum class Edge { None, Top, Bottom, Left, Right };

    [[nodiscard]] static Edge stripEdge(const ScreenArea &screen, const QPoint &point);
    [[nodiscard]] static Edge nearEdge(const ScreenArea &screen, const QRect &anchor);
    [[nodiscard]] const ScreenArea &screenOf(const QPoint &point) const;
    [[nodiscard]] QSize sizeIn(const QRect &work) const;
    [[nodiscard]] QRect keptInside(const QPoint &corner, const QRect &work) const;

    QList<ScreenArea> screens_;
    QSize size_;
};

} // namespace norvane

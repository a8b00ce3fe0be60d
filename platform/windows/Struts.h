// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QRect>
#include <QSize>

namespace norvane {

/// The screen edges that panels of an X11 desktop reserve, as read from their windows' struts. In
/// device pixels.
class Struts {
public:
    /// A strip along an edge of the display, or along an edge between two screens.
    struct Strip {
        Qt::Edge edge;
        QRect rect;
    };

    /// The strip that a strut of twelve numbers reserves along one or more edges of the display:
    /// the depths at left, right, top and bottom, then for each of the four where it starts and
    /// ends. Four numbers are depths along the whole edges; any other count reserves nothing.
    [[nodiscard]] static QList<Strip> strips(const QList<int> &numbers, const QSize &display);

    /// The part of a screen that these strips leave free. A strip that would take more than half of
    /// the screen is ignored: it is meant for another screen further from the display's edge.
    [[nodiscard]] static QRect workArea(const QRect &screen, const QList<Strip> &strips);
};

} // namespace norvane

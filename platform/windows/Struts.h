// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QRect>
#include <QSize>

namespace norvane {

/// What panels of an X11 desktop reserve, as their windows' struts say. Device pixels.
class Struts {
public:
    /// A strip along an edge of the display, or of a screen that lies further in.
    struct Strip {
        Qt::Edge edge;
        QRect rect;
    };

    /// The strip that a strut of twelve numbers reserves along one or more edges of the display:
    /// the depths at left, right, top and bottom, then for each of the four where it starts and
    /// ends. Four numbers are depths along the whole edges; any other count reserves nothing.
    [[nodiscard]] static QList<Strip> strips(const QList<int> &numbers, const QSize &display);

    /// What is left of a screen beside these strips. A strip that would take more than half of the
    /// screen is for another one, which lies behind it as seen from the display's edge.
    [[nodiscard]] static QRect workArea(const QRect &screen, const QList<Strip> &strips);
};

} // namespace norvane

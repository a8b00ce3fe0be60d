// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

namespace norvane {

/// Which kind of display Qt is to use, decided before the application object is made.
///
/// X11 is preferred wherever it can be reached, as XWayland too, because only there may a program
/// say where its window goes. A QT_QPA_PLATFORM of the user's stands.
class DisplayChoice {
public:
    /// Qt's names of the display kinds to try, in order; empty when there is no display.
    [[nodiscard]] static QByteArray platforms(bool x11, bool wayland);

    /// Tells Qt; false, with a line on standard error, when there is no display at all.
    [[nodiscard]] static bool make();
};

} // namespace norvane

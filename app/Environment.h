// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QLocale>
#include <QString>

/// What the environment tells this process, and what Qt finds there.
namespace norvane {

/// How this process came to be started.
struct StartRequest {
    /// What the launcher gave so that a window may take the keyboard, or empty.
    QString activationToken;
    /// Whether a person asked for it just now, at a launcher or at a terminal, as against the
    /// session that starts its programs.
    bool byHand = false;

    /// As told by the environment and standard input. To be read before the application object is
    /// made, which takes such things out of the environment.
    [[nodiscard]] static StartRequest ofThisProcess();
};

/// Qt's names of the display kinds to try, in order; empty when there is no display.
///
/// X11 is preferred wherever it can be reached, as XWayland too, because only there may a program
/// say where its window goes.
[[nodiscard]] QByteArray displayKinds(bool x11, bool wayland);

/// Sets QT_QPA_PLATFORM to the display kinds of this session, unless the user has set it. To be
/// called before the application object is made. False when there is no display at all.
[[nodiscard]] bool setDisplayKinds();

/// The locale in which the user wants days and times written; desktops let one choose it apart
/// from the language of the texts.
[[nodiscard]] QLocale formatLocale();

} // namespace norvane

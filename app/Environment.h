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
    /// The launcher's activation token, which lets a window take the keyboard; or empty.
    QString activationToken;
    /// Whether a person started it just now, from a launcher or a terminal; false when the session
    /// started it at login.
    bool byHand = false;

    /// Read from the environment and standard input. Call it before the application object is made,
    /// which removes these variables from the environment.
    [[nodiscard]] static StartRequest ofThisProcess();
};

/// Qt's names of the display kinds to try, in order; empty when there is no display.
///
/// X11 comes first wherever it can be reached, XWayland included, because only X11 lets a program
/// choose where its window goes.
[[nodiscard]] QByteArray displayKinds(bool x11, bool wayland);

/// Sets QT_QPA_PLATFORM to the display kinds of this session, unless the user has set it. Call it
/// before the application object is made. False when there is no display at all.
[[nodiscard]] bool setDisplayKinds();

/// The locale for days and times; desktops let the user choose it independently of the language
/// of the texts.
[[nodiscard]] QLocale formatLocale();

} // namespace norvane

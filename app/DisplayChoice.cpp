// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/DisplayChoice.h"

#include "platform/windows/X11Display.h"

#include <QList>

#include <cstdio>

namespace norvane {

namespace {

constexpr const char *platformVariable = "QT_QPA_PLATFORM";

} // namespace

QByteArray DisplayChoice::platforms(bool x11, bool wayland)
{
    QByteArrayList names;
    if (x11) {
        names.append("xcb");
    }
    if (wayland) {
        names.append("wayland");
    }
    return names.join(';');
}

bool DisplayChoice::make()
{
    if (!qEnvironmentVariableIsEmpty(platformVariable)) {
        return true;
    }
    const bool x11 = !qEnvironmentVariableIsEmpty("DISPLAY") && X11Display{}.isConnected();
    const QByteArray names = platforms(x11, !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"));
    if (names.isEmpty()) {
        std::fputs("norvane: there is no display to show anything on\n", stderr);
        return false;
    }
    qputenv(platformVariable, names);
    return true;
}

} // namespace norvane

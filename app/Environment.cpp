// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/Environment.h"

#include "platform/windows/X11Display.h"

#include <QList>

#include <unistd.h>

namespace norvane {

StartRequest StartRequest::ofThisProcess()
{
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    const bool fromLauncher =
        !token.isEmpty() || !qEnvironmentVariableIsEmpty("DESKTOP_STARTUP_ID");
    return {.activationToken = token, .byHand = fromLauncher || ::isatty(STDIN_FILENO) == 1};
}

QByteArray displayKinds(bool x11, bool wayland)
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

bool setDisplayKinds()
{
    constexpr const char *variable = "QT_QPA_PLATFORM";
    if (!qEnvironmentVariableIsEmpty(variable)) {
        return true;
    }
    const bool x11 = !qEnvironmentVariableIsEmpty("DISPLAY") && X11Display{}.isConnected();
    const QByteArray names = displayKinds(x11, !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"));
    return !names.isEmpty() && qputenv(variable, names);
}

QLocale formatLocale()
{
    for (const char *const variable : {"LC_ALL", "LC_TIME", "LANG"}) { // The first that is set.
        if (const QString name = qEnvironmentVariable(variable); !name.isEmpty()) {
            return QLocale{name};
        }
    }
    return QLocale{};
}

} // namespace norvane

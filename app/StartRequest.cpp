// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/StartRequest.h"

#include <unistd.h>

namespace norvane {

StartRequest StartRequest::ofThisProcess()
{
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    const bool fromLauncher =
        !token.isEmpty() || !qEnvironmentVariableIsEmpty("DESKTOP_STARTUP_ID");
    return {.activationToken = token, .byHand = fromLauncher || ::isatty(STDIN_FILENO) == 1};
}

} // namespace norvane

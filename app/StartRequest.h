// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

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

} // namespace norvane

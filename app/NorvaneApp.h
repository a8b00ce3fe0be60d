// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

namespace norvane {

/// The application: makes the real parts of the platform and hands them down.
///
/// One Norvane works on a data folder. Started again in the same session it asks the first to show
/// its panel; in another session of the same user it says that it cannot. Either way it ends before
/// it has touched the trials or the notification centre.
class NorvaneApp {
public:
    /// Runs until the user quits or the session ends; returns the process' exit status.
    [[nodiscard]] static int run(int &argc, char **argv);
};

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

namespace norvane {

/// The application: makes the real parts of the platform and hands them down.
///
/// Only one Norvane uses a data folder. A second start in the same session makes the first instance
/// show its panel and ends. A start in another session of the same user reports an error and ends.
/// In both cases the second process touches neither the trials nor the notification centre.
class NorvaneApp {
public:
    /// Runs until the user quits or the session ends; returns the process' exit status.
    [[nodiscard]] static int run(int &argc, char **argv);
};

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>

namespace norvane {

class BackgroundTasks;
class Clock;
class NotificationCenter;

/// What the program needs of the machine. The references are borrowed: the owner of the real
/// objects (or of a test's) keeps them alive longer than whoever was given this.
struct Platform {
    const Clock &clock;
    /// The user's folder for application data, as an absolute path; it need not exist. Empty when
    /// the user has none at all.
    std::filesystem::path dataFolder;
    NotificationCenter &notificationCenter;
    BackgroundTasks &backgroundTasks;
};

} // namespace norvane

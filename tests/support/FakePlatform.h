// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Platform.h"
#include "tests/support/HandMovedClock.h"
#include "tests/support/HeldBackgroundTasks.h"
#include "tests/support/RecordingNotificationCenter.h"
#include "tests/support/TemporaryFolders.h"

namespace norvane {

/// The platform that the program runs on, with every part controlled by a test.
struct FakePlatform {
    /// 2025-01-01 00:00:00 UTC.
    static constexpr PointInTime start{757'382'400};

    HandMovedClock clock{start};
    TemporaryFolders folders;
    RecordingNotificationCenter center;
    HeldBackgroundTasks tasks;

    [[nodiscard]] Platform all() { return onFolder(folders.path()); }
    [[nodiscard]] Platform onFolder(const std::filesystem::path &dataFolder)
    {
        return {clock, dataFolder, center, tasks};
    }
};

} // namespace norvane

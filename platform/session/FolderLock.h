// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <filesystem>

namespace norvane {

/// An advisory lock on a folder, held by one process at a time. It is released when the process
/// ends, even by a crash.
class FolderLock final {
public:
    enum class Answer { Taken, Held, NoFolder };

    FolderLock() = default;
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;
    ~FolderLock();

    /// Blocks while another process holds the lock, but no longer than `timeout`. Once taken, the
    /// lock is kept until this object is destroyed.
    [[nodiscard]] Answer take(const std::filesystem::path &folder,
                              std::chrono::milliseconds timeout);

private:
    int descriptor_ = -1; ///< Of the folder, while the lock is held.
};

} // namespace norvane

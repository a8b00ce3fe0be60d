// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <filesystem>

namespace norvane {

/// One process's claim to a folder. It ends with the process at the latest, however that ends, and
/// binds only those who ask for it.
class FolderLock final {
public:
    enum class Answer { Taken, Held, NoFolder };

    FolderLock() = default;
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;
    ~FolderLock();

    /// Blocks as long as another process holds it, but no longer than `timeout`. Once taken, it is
    /// kept.
    [[nodiscard]] Answer take(const std::filesystem::path &folder,
                              std::chrono::milliseconds timeout);

private:
    int descriptor_ = -1; ///< Of the folder, while the lock is held.
};

} // namespace norvane

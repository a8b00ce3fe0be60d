// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>

namespace norvane {

/// Makes the folder and those of its parents that are missing, each for the user alone (mode 0700),
/// as the XDG base directory rules ask. Folders that exist keep their permissions.
///
/// Returns whether the folder exists afterwards.
[[nodiscard]] bool makePrivateFolder(const std::filesystem::path &folder);

} // namespace norvane

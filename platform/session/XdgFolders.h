// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>

namespace norvane {

/// The user's folders by the XDG base directory rules: absolute paths that need not exist, empty
/// where the user has no home.
///
/// Paths are bytes, because a QString cannot hold a name that is not UTF-8. QStandardPaths is not
/// used: for a user without a home it answers the root folder.
class XdgFolders {
public:
    /// XDG_DATA_HOME if absolute, else ~/.local/share.
    [[nodiscard]] static std::filesystem::path dataFolder();
    /// XDG_STATE_HOME if absolute, else ~/.local/state.
    [[nodiscard]] static std::filesystem::path stateFolder();
};

} // namespace norvane

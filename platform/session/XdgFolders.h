// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Folders.h"

namespace norvane {

/// The user's folders by the XDG base directory rules.
///
/// Read here rather than through QStandardPaths, which puts a user without a home into the root
/// folder and cannot say that there is none.
class XdgFolders final : public Folders {
public:
    /// The data folder: XDG_DATA_HOME if absolute, else ~/.local/share, else none.
    [[nodiscard]] QStringList applicationSupportFolders() const override;
    /// The state folder: XDG_STATE_HOME if absolute, else ~/.local/state; empty when there is none.
    [[nodiscard]] static QString stateFolder();
};

} // namespace norvane

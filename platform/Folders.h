// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace norvane {

/// Knows where the user's programs keep their data.
class Folders {
public:
    Folders() = default;
    Folders(const Folders &) = delete;
    Folders &operator=(const Folders &) = delete;
    virtual ~Folders() = default;

    /// The user's folders for application data, the preferred one first, as absolute paths.
    /// They need not exist. Empty when the user has none at all.
    [[nodiscard]] virtual QStringList applicationSupportFolders() const = 0;
};

} // namespace norvane

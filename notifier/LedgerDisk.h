// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/session/FolderLock.h"

#include <QString>

#include <chrono>

class QSqlDatabase;

namespace norvane {

/// The database file behind the ledger: finding, checking and making it.
///
/// The file is attached to a connection under the schema name `disk`. Folder and file belong to
/// the user alone, and to one process at a time.
class LedgerDisk final {
public:
    /// The format of the file, as its `user_version`.
    static constexpr int version = 1;

    enum class State { Ready, InUse, Unwritable, Damaged, OtherVersion };

    /// The folder is made when it is missing, on the first attach.
    explicit LedgerDisk(const QString &folder);

    /// Attaches the file for writing, a fresh one where there is none. One that is damaged or of
    /// another version is set aside under a new name, for whoever wants to look into it.
    ///
    /// An unwritable file may be attached all the same; a file in use is not.
    /// For a process that has the folder to let go of it, this waits no longer than `patience`.
    [[nodiscard]] State attach(QSqlDatabase &database, std::chrono::milliseconds patience);
    /// Sees to it that all the file holds can be read; false, with nothing attached, where that is
    /// not possible.
    [[nodiscard]] bool attachForReading(QSqlDatabase &database) const;
    static void detach(QSqlDatabase &database);

    /// Makes the tables in the schema `main` or `disk`.
    [[nodiscard]] static bool createTables(QSqlDatabase &database, const QString &schema);

private:
    [[nodiscard]] static bool isReadable(QSqlDatabase &database);
    [[nodiscard]] bool makeFolder() const;
    [[nodiscard]] State tryAttach(QSqlDatabase &database) const;
    void setAside(QLatin1StringView reason) const;

    const QString folder_;
    const QString path_;
    FolderLock lock_;
};

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/session/FolderLock.h"

#include <QString>

#include <array>
#include <chrono>
#include <optional>
#include <utility>

#include <sys/types.h>

class QSqlDatabase;

namespace norvane {

/// The database file behind the ledger: finds, checks and makes it.
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

    /// Attaches the file for writing, a fresh one where there is none. One that is damaged, has
    /// other tables or is of another version is renamed, so that its content is not lost.
    ///
    /// An unwritable file may be attached all the same; a file in use is not.
    /// Waits no longer than `timeout` for another process to release the folder.
    [[nodiscard]] State attach(QSqlDatabase &database, std::chrono::milliseconds timeout);
    /// Attaches the file for reading where it is not attached or cannot be read as it is. False,
    /// with nothing attached, where that is not possible.
    [[nodiscard]] bool attachForReading(QSqlDatabase &database) const;
    /// Attaches the file for writing, also while another process uses it. False, with nothing
    /// attached, where that is not possible.
    [[nodiscard]] bool attachInUse(QSqlDatabase &database) const;
    /// Tells the process that uses the file, which watches the folder, that the file has changed.
    void tellOthers() const;
    /// Whether the attached file and its log are still those that their paths lead to. Looks at the
    /// paths only: opening and closing the file in this process would release SQLite's locks on it.
    [[nodiscard]] bool isInPlace() const;
    /// Whether there is a file that is not empty, or that may be there and cannot be looked at.
    [[nodiscard]] bool mayHoldSomething() const;
    static void detach(QSqlDatabase &database);

    /// Device, number, size and time of the last write of the file and of its log. Another value
    /// after another process has written to them.
    using Stamp = std::array<qint64, 10>;
    [[nodiscard]] Stamp stamp() const;

private:
    /// What tells a file from every other: device and number.
    using Identity = std::optional<std::pair<dev_t, ino_t>>;

    [[nodiscard]] static Identity identityOf(const QString &path);
    [[nodiscard]] static bool isReadable(QSqlDatabase &database);
    [[nodiscard]] bool attachAsItIs(QSqlDatabase &database, QLatin1StringView options) const;
    [[nodiscard]] bool makeFolder() const;
    [[nodiscard]] bool isFile() const;
    [[nodiscard]] State tryAttach(QSqlDatabase &database) const;
    [[nodiscard]] static State prepareForWriting(QSqlDatabase &database, bool isNew);
    [[nodiscard]] std::array<Identity, 2> identities() const;
    void setAside(QLatin1StringView reason) const;

    const QString folder_;
    const QString path_;
    std::optional<FolderLock> lock_;
    Identity locked_;                    ///< The folder that lock_ is for.
    std::array<Identity, 2> attached_{}; ///< The file and its log, as they were attached.
};

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/LedgerDisk.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include <functional>
#include <map>

namespace norvane {

/// Where the ledger's tables are: in their file, or in memory while that cannot be written (no
/// space, no permission, another process uses it).
///
/// The database connection is an empty database in memory, to which the file is attached. SQLite
/// looks for a table in the connection's own database first and in attached ones after that. So the
/// tables are made in the connection's own database only to work from memory, and dropped there on
/// the way back; a statement names no database and always reaches the tables that are in use.
///
/// Changes are made inside transact() only. Needs a QCoreApplication; one thread only.
class LedgerStorage final {
public:
    enum class Outcome {
        Durable, ///< The changes outlive a crash and a power cut.
        InMemory ///< The changes are in effect, but are lost when this process ends.
    };

    /// Nothing is touched before open(). The folder is the ledger's own. `leftDisk` is called each
    /// time that memory takes the place of the file.
    LedgerStorage(const QString &folder, std::function<void()> leftDisk);
    LedgerStorage(const LedgerStorage &) = delete;
    LedgerStorage &operator=(const LedgerStorage &) = delete;
    ~LedgerStorage();

    /// False where there is no SQLite to work with, not even in memory. Otherwise it always opens;
    /// it waits for another process to release the file, but no longer than `timeout`.
    [[nodiscard]] bool open(std::chrono::milliseconds timeout);
    /// Applies the changes that `work` makes, all of them or none. `work` may be called a second
    /// time, when the first attempt failed on disk or the file turned out to be lost.
    Outcome transact(const std::function<void()> &work);
    [[nodiscard]] bool isOnDisk() const { return onDisk_; }
    /// Copies memory back to the file, if it can be written again. Usually memory takes the place
    /// of what the file holds. Where the file could not be read before, or another process has used
    /// it since, the two are merged, and a request that was removed in memory may return: one
    /// reminder too many is better than one that was promised and lost. Does not wait for another
    /// process that uses the file. Not inside transact().
    [[nodiscard]] bool goBackToDisk();
    /// For the end of a process that works in memory because another one uses the file: adds what
    /// is in memory to the file, wakes the other process (by a file that comes and goes in the
    /// folder), and forgets it here. False where there is no such process, or nothing could be
    /// added.
    [[nodiscard]] bool handOver();
    /// Where the file was removed or replaced since the last transaction, it is written anew.
    void checkFile();
    /// Frees SQLite's caches.
    void shrinkMemory();
    /// Whether everything that `work` reads, outside of transact(), could be read. False as well
    /// while the file may hold something and could not be read, not even to copy it to memory.
    [[nodiscard]] bool read(const std::function<void()> &work);

    /// The statement, prepared once, with these values bound and executed. finish() it after use.
    QSqlQuery &run(const QString &statement, const QVariantList &values = {});
    /// The query's next row. False at the end, and where reading fails.
    [[nodiscard]] bool next(QSqlQuery &query);
    /// For a statement without result: run, and finished.
    void change(const QString &statement, const QVariantList &values = {});

private:
    [[nodiscard]] bool attempt(const std::function<void()> &work);
    void fallBackToMemory();
    void startInMemory();
    void replaceLostFile(const std::function<void()> &work);
    [[nodiscard]] bool copyToDisk();
    bool execute(const QString &statement);

    LedgerDisk disk_;
    const std::function<void()> leftDisk_;
    const QString connection_;
    QSqlDatabase database_;
    std::map<QString, QSqlQuery> statements_;
    bool onDisk_ = false;
    bool holdsAll_ = false;    ///< While in memory: all that the file held was copied there.
    bool isUnread_ = false;    ///< While in memory: the file may hold what nobody could read.
    LedgerDisk::Stamp left_{}; ///< While in memory: the file as this process last saw it.
    bool failed_ = false;      ///< A statement of the running transaction, or read(), failed.
};

} // namespace norvane

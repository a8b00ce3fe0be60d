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
/// space, no permission, another process at it).
///
/// Statements name the tables without more; they reach those that count. Changes are made inside
/// transact() only. Needs a QCoreApplication; one thread only.
class LedgerStorage final {
public:
    enum class Outcome {
        Durable, ///< The changes outlive a crash and a power cut.
        InMemory ///< The changes count, but only while this process lives.
    };

    /// Nothing is touched before open(). The folder is the ledger's own. `leftDisk` is called each
    /// time that memory takes the place of the file.
    LedgerStorage(const QString &folder, std::function<void()> leftDisk);
    LedgerStorage(const LedgerStorage &) = delete;
    LedgerStorage &operator=(const LedgerStorage &) = delete;
    ~LedgerStorage();

    /// False where there is no SQLite to work with, not even in memory. Otherwise it always opens;
    /// for another process to let go of the file it waits, but not for long.
    [[nodiscard]] bool open();
    /// Applies the changes that `work` makes, all of them or none. It may be called a second time,
    /// when the first attempt came to nothing on disk.
    Outcome transact(const std::function<void()> &work);
    [[nodiscard]] bool isOnDisk() const { return onDisk_; }
    /// From memory back to the file, if it can be written again. What was in the file all the while
    /// and could not be read joins what was in memory, also where memory saw it removed: better one
    /// too many than one that was promised and lost. Not inside transact().
    [[nodiscard]] bool goBackToDisk();
    /// Lets go of memory that is only there to be faster the next time.
    void relax();

    /// The statement, prepared once, with these values bound and executed. finish() it after use.
    QSqlQuery &run(const QString &statement, const QVariantList &values = {});
    void change(const QString &statement, const QVariantList &values = {});

private:
    [[nodiscard]] bool attempt(const std::function<void()> &work);
    void fallBackToMemory();
    void startInMemory();
    [[nodiscard]] bool copyToDisk();
    bool execute(const QString &statement);

    LedgerDisk disk_;
    const std::function<void()> leftDisk_;
    const QString connection_;
    QSqlDatabase database_; ///< An empty one in memory, with the file attached to it.
    std::map<QString, QSqlQuery> statements_;
    bool onDisk_ = false;
    bool holdsAll_ = false; ///< Away from the disk: all that the file held is in memory.
    bool failed_ = false;   ///< A statement of the running transaction came to nothing.
};

} // namespace norvane

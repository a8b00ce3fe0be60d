// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/LedgerStorage.h"

#include "notifier/LedgerTables.h"

#include <QSqlError>
#include <QStringList>

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace norvane {

namespace {

struct Table {
    QString name;
    QString number; ///< The column that SQLite numbers the rows in, and a comma; or empty.
    QString columns;
};

const std::array<Table, 3> tables{
    Table{.name = QStringLiteral("pending"),
          .number = QStringLiteral("number, "),
          .columns = QStringLiteral("identifier, title, body, sound, \"trigger\", due, lapsed")},
    Table{.name = QStringLiteral("outbox"),
          .number = QStringLiteral("number, "),
          .columns = QStringLiteral("identifier, title, body, sound, \"trigger\", due")},
    Table{.name = QStringLiteral("delivered"),
          .number = {},
          .columns = QStringLiteral("identifier, \"trigger\", at")},
};

/// Copies a table whole from one schema to the other. The columns are named, because a file may
/// have more of them.
QString copying(const Table &table, QLatin1StringView from, QLatin1StringView to)
{
    const QString columns = table.number + table.columns;
    return QStringLiteral("INSERT INTO %1.%2 (%3) SELECT %3 FROM %4.%2")
        .arg(to, table.name, columns, from);
}

/// Adds a table in memory to the file's, as newer rows.
QString merging(const Table &table)
{
    const QString order = table.number.isEmpty() ? QString{} : QStringLiteral(" ORDER BY number");
    return QStringLiteral("INSERT OR REPLACE INTO disk.%1 (%2) SELECT %2 FROM main.%1%3")
        .arg(table.name, table.columns, order);
}

/// Copies memory to the file, in place of what it holds.
QStringList overwritingFile()
{
    QStringList statements;
    for (const Table &table : tables) {
        statements << QStringLiteral("DELETE FROM disk.") + table.name
                   << copying(table, QLatin1StringView{"main"}, QLatin1StringView{"disk"});
    }
    return statements;
}

/// Copies memory to the file, in addition to what it holds.
QStringList mergingIntoFile()
{
    QStringList statements{
        QStringLiteral("DELETE FROM disk.outbox WHERE (identifier, \"trigger\") IN "
                       "(SELECT identifier, \"trigger\" FROM main.outbox)")};
    for (const Table &table : tables) {
        statements << merging(table);
    }
    return statements << QStringLiteral("DELETE FROM disk.outbox WHERE (identifier, \"trigger\") "
                                        "IN (SELECT identifier, \"trigger\" FROM disk.delivered)");
}

/// How long a transaction waits for another program that looks into the file, in milliseconds.
const QString waitForOthers = QStringLiteral("PRAGMA busy_timeout = 1000");
const QString waitForNobody = QStringLiteral("PRAGMA busy_timeout = 0");

void warnOfMemory()
{
    qWarning("Norvane's reminders cannot be written to disk; they are kept in memory for now.");
}

} // namespace

LedgerStorage::LedgerStorage(const QString &folder, std::function<void()> leftDisk)
    : disk_{folder},
      leftDisk_{std::move(leftDisk)},
      connection_{QStringLiteral("ledger-%1").arg(reinterpret_cast<quintptr>(this))}
{
}

LedgerStorage::~LedgerStorage()
{
    statements_.clear();
    database_ = {};
    QSqlDatabase::removeDatabase(connection_);
}

bool LedgerStorage::open(std::chrono::milliseconds timeout)
{
    const QString driver = QStringLiteral("QSQLITE");
    if (!QSqlDatabase::isDriverAvailable(driver)) {
        return false; // Qt would print two lines of its own.
    }
    database_ = QSqlDatabase::addDatabase(driver, connection_);
    database_.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI"));
    database_.setDatabaseName(QStringLiteral(":memory:"));
    if (!database_.open()) {
        return false;
    }
    execute(waitForOthers);
    const LedgerDisk::State state = disk_.attach(database_, timeout);
    onDisk_ = state == LedgerDisk::State::Ready;
    if (state == LedgerDisk::State::InUse) {
        warnOfMemory();
        startInMemory(); // The other process delivers what the file holds.
    } else if (!onDisk_) {
        warnOfMemory();
        fallBackToMemory();
    }
    return true;
}

LedgerStorage::Outcome LedgerStorage::transact(const std::function<void()> &work)
{
    if (!attempt(work) && onDisk_) {
        warnOfMemory();
        fallBackToMemory();
        std::ignore = attempt(work); // When memory is exhausted too, nothing is left to try.
    }
    if (onDisk_ && !disk_.isInPlace()) {
        replaceLostFile(work);
    }
    return onDisk_ ? Outcome::Durable : Outcome::InMemory;
}

bool LedgerStorage::attempt(const std::function<void()> &work)
{
    // IMMEDIATE, because SQLite waits for other users of the file only when it takes the lock for
    // writing at the beginning.
    if (!execute(QStringLiteral("BEGIN IMMEDIATE"))) {
        return false;
    }
    failed_ = false;
    work();
    if (!failed_ && execute(QStringLiteral("COMMIT"))) {
        return true;
    }
    execute(QStringLiteral("ROLLBACK"));
    return false;
}

void LedgerStorage::checkFile()
{
    if (onDisk_ && !disk_.isInPlace()) {
        replaceLostFile([] {});
    }
}

void LedgerStorage::shrinkMemory()
{
    execute(QStringLiteral("PRAGMA shrink_memory"));
}

bool LedgerStorage::read(const std::function<void()> &work)
{
    failed_ = false;
    work();
    return !failed_ && !isUnread_;
}

/// The file, its log or their folder was removed or replaced by somebody while it was in use. What
/// is written to it still succeeds, but the next process would not find it. It can be read as long
/// as it is open; the new file gets everything.
void LedgerStorage::replaceLostFile(const std::function<void()> &work)
{
    qWarning("The file of Norvane's reminders was removed or replaced; it is written anew.");
    fallBackToMemory();
    if (!holdsAll_) {
        std::ignore = attempt(work);
    }
    if (!goBackToDisk()) {
        warnOfMemory();
    }
}

void LedgerStorage::startInMemory()
{
    onDisk_ = false;
    holdsAll_ = false;
    isUnread_ = false;
    statements_.clear();
    std::ignore = ledgerTables::create(database_, QStringLiteral("main"));
    leftDisk_();
}

void LedgerStorage::fallBackToMemory()
{
    startInMemory();
    holdsAll_ =
        disk_.attachForReading(database_) &&
        std::ranges::all_of(tables, [this](const Table &table) {
            return execute(copying(table, QLatin1StringView{"disk"}, QLatin1StringView{"main"}));
        });
    isUnread_ = !holdsAll_ && disk_.mayHoldSomething();
    LedgerDisk::detach(database_);
    left_ = disk_.stamp();
}

bool LedgerStorage::goBackToDisk()
{
    statements_.clear(); // A prepared statement would go on using the tables in memory.
    holdsAll_ = holdsAll_ && disk_.stamp() == left_; // Another process may have handed over.
    execute(waitForNobody);
    const LedgerDisk::State state = disk_.attach(database_, {});
    // While another process has the file, it goes on adding to it.
    holdsAll_ = holdsAll_ && state != LedgerDisk::State::InUse;
    onDisk_ = state == LedgerDisk::State::Ready && copyToDisk();
    execute(waitForOthers);
    if (!onDisk_) {
        LedgerDisk::detach(database_);
        left_ = disk_.stamp();
        return false;
    }
    isUnread_ = false;
    for (const Table &table : tables) {
        execute(QStringLiteral("DROP TABLE main.") + table.name);
    }
    return true;
}

bool LedgerStorage::handOver()
{
    if (onDisk_ || !disk_.attachInUse(database_)) {
        return false;
    }
    const bool isDone = attempt([this] {
        for (const QString &statement : mergingIntoFile()) {
            change(statement);
        }
        for (const Table &table : tables) {
            change(QStringLiteral("DELETE FROM main.") + table.name);
        }
    });
    LedgerDisk::detach(database_);
    if (isDone) {
        disk_.tellOthers();
    }
    return isDone;
}

bool LedgerStorage::copyToDisk()
{
    return attempt([this] {
        // Where the file could not be read when memory took its place, it may hold more than
        // memory.
        for (const QString &statement : holdsAll_ ? overwritingFile() : mergingIntoFile()) {
            change(statement);
        }
    });
}

bool LedgerStorage::execute(const QString &statement)
{
    return QSqlQuery{database_}.exec(statement);
}

QSqlQuery &LedgerStorage::run(const QString &statement, const QVariantList &values)
{
    const auto [found, isNew] = statements_.try_emplace(statement, database_);
    QSqlQuery &query = found->second;
    if (isNew || query.lastError().isValid()) { // What failed to be prepared would fail for ever.
        query.setForwardOnly(true);
        failed_ |= !query.prepare(statement);
    }
    for (qsizetype i = 0; i < values.size(); ++i) {
        query.bindValue(static_cast<int>(i), values[i]);
    }
    failed_ |= !query.exec();
    return query;
}

void LedgerStorage::change(const QString &statement, const QVariantList &values)
{
    QSqlQuery &query = run(statement, values);
    query.finish();
    for (qsizetype i = 0; i < values.size(); ++i) {
        query.bindValue(static_cast<int>(i), {}); // A long text would stay in memory.
    }
}

bool LedgerStorage::next(QSqlQuery &query)
{
    const bool found = query.next();
    failed_ |= !found && query.lastError().isValid();
    return found;
}

} // namespace norvane

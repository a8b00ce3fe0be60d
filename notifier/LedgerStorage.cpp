// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/LedgerStorage.h"

#include <QStringList>

#include <algorithm>
#include <tuple>
#include <utility>

namespace norvane {

namespace {

const QStringList tables{QStringLiteral("pending"), QStringLiteral("outbox"),
                         QStringLiteral("delivered")};

/// From memory back to the file, in place of what it holds.
const QStringList replacing{
    QStringLiteral("DELETE FROM disk.pending"),
    QStringLiteral("DELETE FROM disk.outbox"),
    QStringLiteral("DELETE FROM disk.delivered"),
    QStringLiteral("INSERT INTO disk.pending SELECT * FROM main.pending"),
    QStringLiteral("INSERT INTO disk.outbox SELECT * FROM main.outbox"),
    QStringLiteral("INSERT INTO disk.delivered SELECT * FROM main.delivered"),
};

/// From memory back to the file, on top of what it holds.
const QStringList adding{
    QStringLiteral("DELETE FROM disk.outbox WHERE (identifier, \"trigger\") IN "
                   "(SELECT identifier, \"trigger\" FROM main.outbox)"),
    QStringLiteral("INSERT OR REPLACE INTO disk.pending (identifier, title, body, sound, "
                   "\"trigger\", due, lapsed) SELECT identifier, title, body, sound, "
                   "\"trigger\", due, lapsed FROM main.pending ORDER BY number"),
    QStringLiteral("INSERT INTO disk.outbox (identifier, title, body, sound, \"trigger\", due) "
                   "SELECT identifier, title, body, sound, \"trigger\", due FROM main.outbox "
                   "ORDER BY number"),
    QStringLiteral("INSERT OR REPLACE INTO disk.delivered SELECT * FROM main.delivered"),
    QStringLiteral("DELETE FROM disk.outbox WHERE (identifier, \"trigger\") IN "
                   "(SELECT identifier, \"trigger\" FROM disk.delivered)"),
};

/// How long a start waits for a process that is about to end.
constexpr std::chrono::seconds forPredecessor{3};

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

bool LedgerStorage::open()
{
    database_ = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection_);
    database_.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=1000"));
    database_.setDatabaseName(QStringLiteral(":memory:"));
    if (!database_.open()) {
        return false;
    }
    const LedgerDisk::State state = disk_.attach(database_, forPredecessor);
    onDisk_ = state == LedgerDisk::State::Ready;
    if (state == LedgerDisk::State::InUse) {
        startInMemory(); // What the file holds is for the other process to bring.
    } else if (!onDisk_) {
        fallBackToMemory();
    }
    return true;
}

LedgerStorage::Outcome LedgerStorage::transact(const std::function<void()> &work)
{
    if (!attempt(work) && onDisk_) {
        fallBackToMemory();
        std::ignore = attempt(work); // Memory that refuses is beyond help.
    }
    return onDisk_ ? Outcome::Durable : Outcome::InMemory;
}

bool LedgerStorage::attempt(const std::function<void()> &work)
{
    // At once for writing, because SQLite waits for somebody who just looks into the file only
    // then.
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

void LedgerStorage::relax()
{
    execute(QStringLiteral("PRAGMA shrink_memory"));
}

void LedgerStorage::startInMemory()
{
    qWarning("Norvane's reminders cannot be written to disk; they are kept in memory for now.");
    onDisk_ = false;
    holdsAll_ = false;
    statements_.clear();
    std::ignore = LedgerDisk::createTables(database_, QStringLiteral("main"));
    leftDisk_();
}

void LedgerStorage::fallBackToMemory()
{
    startInMemory();
    holdsAll_ =
        disk_.attachForReading(database_) &&
        std::ranges::all_of(tables, [this](const QString &table) {
            return execute(QStringLiteral("INSERT INTO main.%1 SELECT * FROM disk.%1").arg(table));
        });
    LedgerDisk::detach(database_);
}

bool LedgerStorage::goBackToDisk()
{
    statements_.clear(); // What is prepared holds on to the tables in memory.
    onDisk_ = disk_.attach(database_, {}) == LedgerDisk::State::Ready && copyToDisk();
    statements_.clear();
    if (!onDisk_) {
        LedgerDisk::detach(database_);
        return false;
    }
    for (const QString &table : tables) {
        execute(QStringLiteral("DROP TABLE main.%1").arg(table));
    }
    return true;
}

bool LedgerStorage::copyToDisk()
{
    return attempt([this] {
        // Where the file could not be read when it was left, what it holds is still good.
        for (const QString &copy : holdsAll_ ? replacing : adding) {
            change(copy);
        }
    });
}

bool LedgerStorage::execute(const QString &statement)
{
    return QSqlQuery{database_}.exec(statement);
}

QSqlQuery &LedgerStorage::run(const QString &statement, const QVariantList &values)
{
    auto found = statements_.find(statement);
    if (found == statements_.end()) {
        QSqlQuery query{database_};
        query.setForwardOnly(true);
        failed_ |= !query.prepare(statement);
        found = statements_.emplace(statement, std::move(query)).first;
    }
    QSqlQuery &query = found->second;
    for (qsizetype i = 0; i < values.size(); ++i) {
        query.bindValue(static_cast<int>(i), values[i]);
    }
    failed_ |= !query.exec();
    return query;
}

void LedgerStorage::change(const QString &statement, const QVariantList &values)
{
    run(statement, values).finish();
}

} // namespace norvane

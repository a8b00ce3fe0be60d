// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Ledger.h"

#include "notifier/LocalMinute.h"

#include <QVariant>

#include <algorithm>
#include <utility>

namespace norvane {

namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

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
    QStringLiteral("INSERT OR REPLACE INTO disk.pending (identifier, title, body, sound, "
                   "\"trigger\", due, lapsed) SELECT identifier, title, body, sound, "
                   "\"trigger\", due, lapsed FROM main.pending ORDER BY number"),
    QStringLiteral("INSERT INTO disk.outbox (identifier, title, body, sound, \"trigger\", due) "
                   "SELECT identifier, title, body, sound, \"trigger\", due FROM main.outbox "
                   "ORDER BY number"),
    QStringLiteral("INSERT OR REPLACE INTO disk.delivered SELECT * FROM main.delivered"),
};

qint64 number(sys_seconds moment)
{
    return moment.time_since_epoch().count();
}

sys_seconds moment(const QVariant &number)
{
    return sys_seconds{seconds{number.toLongLong()}};
}

WallClockMinute minute(const QVariant &text)
{
    return minuteFrom(text.toString()).value_or(WallClockMinute{});
}

/// A text that is stored as empty, and not as no text at all.
QString notNull(const QString &text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

/// The request in the five columns from this one on.
NotificationRequest requestAt(const QSqlQuery &row, int column)
{
    return {.identifier = row.value(column).toString(),
            .title = row.value(column + 1).toString(),
            .body = row.value(column + 2).toString(),
            .sound = row.value(column + 3).toString(),
            .trigger = minute(row.value(column + 4))};
}

} // namespace

Ledger::Ledger(const QString &folder)
    : disk_{folder},
      connection_{QStringLiteral("ledger-%1").arg(reinterpret_cast<quintptr>(this))}
{
}

Ledger::~Ledger()
{
    statements_.clear();
    database_ = {};
    QSqlDatabase::removeDatabase(connection_);
}

void Ledger::open()
{
    database_ = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection_);
    database_.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=1000"));
    database_.setDatabaseName(QStringLiteral(":memory:"));
    if (!database_.open()) {
        qWarning("Qt's SQLite driver is missing; reminders cannot be kept.");
        return;
    }
    onDisk_ = disk_.attach(database_);
    if (!onDisk_) {
        fallBackToMemory();
    }
}

Ledger::Outcome Ledger::transact(const std::function<void()> &work)
{
    if (!onDisk_) {
        onDisk_ = returnToDisk();
    }
    if (!attempt(work) && onDisk_) {
        fallBackToMemory();
        std::ignore = attempt(work); // Memory that refuses is beyond help.
    }
    return onDisk_ ? Outcome::Durable : Outcome::InMemory;
}

bool Ledger::attempt(const std::function<void()> &work)
{
    failed_ = !execute(QStringLiteral("BEGIN"));
    work();
    if (!failed_ && execute(QStringLiteral("COMMIT"))) {
        return true;
    }
    execute(QStringLiteral("ROLLBACK"));
    return false;
}

void Ledger::relax()
{
    execute(QStringLiteral("PRAGMA shrink_memory"));
}

void Ledger::fallBackToMemory()
{
    qWarning("Norvane's reminders cannot be written to disk; they are kept in memory for now.");
    onDisk_ = false;
    statements_.clear();
    std::ignore = LedgerDisk::createTables(database_, QStringLiteral("main"));
    holdsAll_ =
        disk_.attachForReading(database_) &&
        std::ranges::all_of(tables, [this](const QString &table) {
            return execute(QStringLiteral("INSERT INTO main.%1 SELECT * FROM disk.%1").arg(table));
        });
    LedgerDisk::detach(database_);
}

bool Ledger::returnToDisk()
{
    statements_.clear();
    if (!disk_.attach(database_)) {
        LedgerDisk::detach(database_);
        return false;
    }
    // Where the file could not be read when it was left, what it holds is still good.
    const QStringList &copies = holdsAll_ ? replacing : adding;
    const bool copied =
        execute(QStringLiteral("BEGIN")) &&
        std::ranges::all_of(copies, [this](const QString &copy) { return execute(copy); }) &&
        execute(QStringLiteral("COMMIT"));
    if (!copied) {
        execute(QStringLiteral("ROLLBACK"));
        LedgerDisk::detach(database_);
        return false;
    }
    for (const QString &table : tables) {
        execute(QStringLiteral("DROP TABLE main.%1").arg(table));
    }
    return true;
}

bool Ledger::execute(const QString &statement)
{
    return QSqlQuery{database_}.exec(statement);
}

QSqlQuery &Ledger::run(const QString &statement, const QVariantList &values)
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

void Ledger::change(const QString &statement, const QVariantList &values)
{
    run(statement, values).finish();
}

std::vector<NotificationRequest> Ledger::pending()
{
    std::vector<NotificationRequest> requests;
    QSqlQuery &rows = run(QStringLiteral("SELECT identifier, title, body, sound, \"trigger\" FROM "
                                         "pending WHERE lapsed IS NULL ORDER BY \"trigger\", "
                                         "number"));
    while (rows.next()) {
        requests.push_back(requestAt(rows, 0));
    }
    rows.finish();
    return requests;
}

std::optional<sys_seconds> Ledger::earliestDue()
{
    QSqlQuery &row =
        run(QStringLiteral("SELECT due FROM pending WHERE lapsed IS NULL ORDER BY due LIMIT 1"));
    const std::optional<sys_seconds> earliest =
        row.next() ? std::optional{moment(row.value(0))} : std::nullopt;
    row.finish();
    return earliest;
}

std::vector<Ledger::Pending> Ledger::listed(const QString &statement, const QVariantList &values)
{
    std::vector<Pending> result;
    QSqlQuery &rows = run(statement, values);
    while (rows.next()) {
        result.push_back({.number = rows.value(0).toLongLong(),
                          .identifier = rows.value(1).toString(),
                          .trigger = minute(rows.value(2)),
                          .due = moment(rows.value(3))});
    }
    rows.finish();
    return result;
}

std::vector<Ledger::Pending> Ledger::dueAt(sys_seconds now)
{
    return listed(QStringLiteral("SELECT number, identifier, \"trigger\", due FROM pending WHERE "
                                 "lapsed IS NULL AND due <= ? ORDER BY due, number"),
                  {number(now)});
}

std::vector<Ledger::Pending> Ledger::allWithDue()
{
    return listed(QStringLiteral("SELECT number, '', \"trigger\", due FROM pending"));
}

void Ledger::add(const NotificationRequest &request, sys_seconds due)
{
    change(QStringLiteral("INSERT OR REPLACE INTO pending (identifier, title, body, sound, "
                          "\"trigger\", due) VALUES (?, ?, ?, ?, ?, ?)"),
           {request.identifier, notNull(request.title), notNull(request.body),
            notNull(request.sound), request.trigger.text(), number(due)});
}

void Ledger::removeAllPending()
{
    change(QStringLiteral("DELETE FROM pending"));
}

void Ledger::drop(qint64 number)
{
    change(QStringLiteral("DELETE FROM pending WHERE number = ?"), {number});
}

void Ledger::moveToOutbox(qint64 number)
{
    change(QStringLiteral("INSERT INTO outbox (identifier, title, body, sound, \"trigger\", due) "
                          "SELECT identifier, title, body, sound, \"trigger\", due FROM pending "
                          "WHERE number = ?"),
           {number});
    drop(number);
}

void Ledger::lapse(qint64 number, sys_seconds now)
{
    change(QStringLiteral("UPDATE pending SET lapsed = ? WHERE number = ?"),
           {norvane::number(now), number});
}

void Ledger::reviveLapsed(sys_seconds now)
{
    change(QStringLiteral("UPDATE pending SET lapsed = NULL WHERE lapsed NOT NULL AND due > ?"),
           {number(now)});
}

void Ledger::setDue(qint64 number, sys_seconds due)
{
    change(QStringLiteral("UPDATE pending SET due = ? WHERE number = ?"),
           {norvane::number(due), number});
}

std::optional<OutboxEntry> Ledger::outboxHead()
{
    QSqlQuery &row = run(QStringLiteral("SELECT number, identifier, title, body, sound, "
                                        "\"trigger\", due FROM outbox ORDER BY number LIMIT 1"));
    std::optional<OutboxEntry> head;
    if (row.next()) {
        head = {.number = row.value(0).toLongLong(),
                .request = requestAt(row, 1),
                .due = moment(row.value(6))};
    }
    row.finish();
    return head;
}

void Ledger::strike(qint64 number)
{
    change(QStringLiteral("DELETE FROM outbox WHERE number = ?"), {number});
}

void Ledger::rememberDelivered(const NotificationRequest &request, sys_seconds now)
{
    change(QStringLiteral("INSERT OR REPLACE INTO delivered VALUES (?, ?, ?)"),
           {request.identifier, request.trigger.text(), number(now)});
}

bool Ledger::cameAlready(const QString &identifier, const WallClockMinute &trigger)
{
    QSqlQuery &row = run(QStringLiteral("SELECT 1 FROM delivered WHERE identifier = ? AND "
                                        "\"trigger\" = ? UNION ALL SELECT 1 FROM outbox WHERE "
                                        "identifier = ? AND \"trigger\" = ?"),
                         {identifier, trigger.text(), identifier, trigger.text()});
    const bool came = row.next();
    row.finish();
    return came;
}

void Ledger::forgetBefore(sys_seconds moment)
{
    change(QStringLiteral("DELETE FROM delivered WHERE at < ?"), {number(moment)});
    change(QStringLiteral("DELETE FROM pending WHERE lapsed < ?"), {number(moment)});
}

void Ledger::remove(const QStringList &identifiers)
{
    for (const QString &identifier : identifiers) {
        change(QStringLiteral("DELETE FROM pending WHERE identifier = ?"), {identifier});
        change(QStringLiteral("DELETE FROM outbox WHERE identifier = ?"), {identifier});
    }
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Ledger.h"

#include "notifier/LateRule.h"
#include "time/LocalMinute.h"

#include <QSqlQuery>
#include <QVariant>

#include <utility>

namespace norvane {

namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

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

/// The request in the first five columns.
NotificationRequest requestAt(const QSqlQuery &row)
{
    return {.identifier = row.value(0).toString(),
            .title = row.value(1).toString(),
            .body = row.value(2).toString(),
            .sound = row.value(3).toString(),
            .trigger = minute(row.value(4))};
}

/// The entry in the columns of a request and its due moment.
OutboxEntry entryAt(const QSqlQuery &row)
{
    return {.request = requestAt(row), .due = moment(row.value(5))};
}

/// The identifiers of one trial, as a range that an index can look up and a closer look.
struct Siblings {
    QString trial;
    QString after = trial + u'-';
    QString before = trial + u'.'; // What follows the hyphen in the order of characters.

    explicit Siblings(const QString &identifier) : trial{trialOf(identifier).toString()} {}
    [[nodiscard]] bool include(const QString &identifier) const
    {
        return trialOf(identifier) == trial;
    }
};

} // namespace

Ledger::Ledger(const QString &folder, std::function<void()> leftDisk)
    : storage_{folder, std::move(leftDisk)}
{
}

std::vector<NotificationRequest> Ledger::pending()
{
    std::vector<NotificationRequest> requests;
    QSqlQuery &rows =
        storage_.run(QStringLiteral("SELECT identifier, title, body, sound, \"trigger\" FROM "
                                    "pending WHERE lapsed IS NULL ORDER BY \"trigger\", "
                                    "number"));
    while (rows.next()) {
        requests.push_back(requestAt(rows));
    }
    rows.finish();
    return requests;
}

std::optional<sys_seconds> Ledger::earliestDue()
{
    QSqlQuery &row = storage_.run(
        QStringLiteral("SELECT due FROM pending WHERE lapsed IS NULL ORDER BY due LIMIT 1"));
    const std::optional<sys_seconds> earliest =
        row.next() ? std::optional{moment(row.value(0))} : std::nullopt;
    row.finish();
    return earliest;
}

std::vector<Ledger::Pending> Ledger::listed(const QString &statement, const QVariantList &values)
{
    std::vector<Pending> result;
    QSqlQuery &rows = storage_.run(statement, values);
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
    storage_.change(
        QStringLiteral("INSERT OR REPLACE INTO pending (identifier, title, body, sound, "
                       "\"trigger\", due) VALUES (?, ?, ?, ?, ?, ?)"),
        {request.identifier, notNull(request.title), notNull(request.body), notNull(request.sound),
         request.trigger.text(), number(due)});
}

void Ledger::removeAllPending()
{
    storage_.change(QStringLiteral("DELETE FROM pending"));
}

void Ledger::drop(qint64 number)
{
    storage_.change(QStringLiteral("DELETE FROM pending WHERE number = ?"), {number});
}

void Ledger::moveToOutbox(qint64 number)
{
    storage_.change(
        QStringLiteral("INSERT INTO outbox (identifier, title, body, sound, \"trigger\", due) "
                       "SELECT identifier, title, body, sound, \"trigger\", due FROM pending "
                       "WHERE number = ?"),
        {number});
    drop(number);
}

void Ledger::lapse(qint64 number, sys_seconds now)
{
    storage_.change(QStringLiteral("UPDATE pending SET lapsed = ? WHERE number = ?"),
                    {norvane::number(now), number});
}

void Ledger::lapseWaiting(const NotificationRequest &request, sys_seconds now)
{
    storage_.change(QStringLiteral("INSERT OR IGNORE INTO pending (identifier, title, body, sound, "
                                   "\"trigger\", due, lapsed) SELECT identifier, title, body, "
                                   "sound, \"trigger\", due, ? FROM outbox WHERE identifier = ? "
                                   "AND \"trigger\" = ?"),
                    {number(now), request.identifier, request.trigger.text()});
    strike(request);
}

void Ledger::reviveLapsed(sys_seconds now)
{
    storage_.change(QStringLiteral("UPDATE pending SET lapsed = NULL WHERE lapsed NOT NULL AND "
                                   "(due > ? OR lapsed > ?)"),
                    {number(now), number(now)});
}

void Ledger::setDue(qint64 number, sys_seconds due)
{
    storage_.change(QStringLiteral("UPDATE pending SET due = ? WHERE number = ?"),
                    {norvane::number(due), number});
}

std::optional<OutboxEntry> Ledger::outboxHead()
{
    QSqlQuery &row = storage_.run(QStringLiteral("SELECT identifier, title, body, sound, "
                                                 "\"trigger\", due FROM outbox ORDER BY number "
                                                 "LIMIT 1"));
    std::optional<OutboxEntry> head = row.next() ? std::optional{entryAt(row)} : std::nullopt;
    row.finish();
    return head;
}

void Ledger::strike(const NotificationRequest &request)
{
    storage_.change(QStringLiteral("DELETE FROM outbox WHERE identifier = ? AND \"trigger\" = ?"),
                    {request.identifier, request.trigger.text()});
}

void Ledger::rememberDelivered(const NotificationRequest &request, sys_seconds now)
{
    storage_.change(QStringLiteral("INSERT OR REPLACE INTO delivered VALUES (?, ?, ?)"),
                    {request.identifier, request.trigger.text(), number(now)});
}

bool Ledger::cameAlready(const QString &identifier, const WallClockMinute &trigger)
{
    QSqlQuery &row =
        storage_.run(QStringLiteral("SELECT 1 FROM delivered WHERE identifier = ? AND "
                                    "\"trigger\" = ? UNION ALL SELECT 1 FROM outbox WHERE "
                                    "identifier = ? AND \"trigger\" = ?"),
                     {identifier, trigger.text(), identifier, trigger.text()});
    const bool came = row.next();
    row.finish();
    return came;
}

bool Ledger::laterCame(const QString &identifier, const WallClockMinute &trigger)
{
    const Siblings siblings{identifier};
    QSqlQuery &rows =
        storage_.run(QStringLiteral("SELECT identifier FROM delivered WHERE identifier > ? AND "
                                    "identifier < ? AND \"trigger\" > ? UNION ALL SELECT "
                                    "identifier FROM outbox WHERE identifier > ? AND "
                                    "identifier < ? AND \"trigger\" > ?"),
                     {siblings.after, siblings.before, trigger.text(), siblings.after,
                      siblings.before, trigger.text()});
    bool came = false;
    while (!came && rows.next()) {
        came = siblings.include(rows.value(0).toString());
    }
    rows.finish();
    return came;
}

std::vector<OutboxEntry> Ledger::earlierWaiting(const QString &identifier,
                                                const WallClockMinute &trigger)
{
    const Siblings siblings{identifier};
    std::vector<OutboxEntry> entries;
    QSqlQuery &rows =
        storage_.run(QStringLiteral("SELECT identifier, title, body, sound, \"trigger\", due FROM "
                                    "outbox WHERE identifier > ? AND identifier < ? AND "
                                    "\"trigger\" < ?"),
                     {siblings.after, siblings.before, trigger.text()});
    while (rows.next()) {
        if (siblings.include(rows.value(0).toString())) {
            entries.push_back(entryAt(rows));
        }
    }
    rows.finish();
    return entries;
}

void Ledger::forgetBefore(sys_seconds moment)
{
    storage_.change(QStringLiteral("DELETE FROM delivered WHERE at < ?"), {number(moment)});
    storage_.change(QStringLiteral("DELETE FROM pending WHERE lapsed < ?"), {number(moment)});
}

void Ledger::remove(const QStringList &identifiers)
{
    for (const QString &identifier : identifiers) {
        storage_.change(QStringLiteral("DELETE FROM pending WHERE identifier = ?"), {identifier});
        storage_.change(QStringLiteral("DELETE FROM outbox WHERE identifier = ?"), {identifier});
    }
}

} // namespace norvane

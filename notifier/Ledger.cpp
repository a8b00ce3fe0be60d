// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Ledger.h"

#include "notifier/LateRule.h"

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
    return WallClockMinute::fromText(text.toString()).value_or(WallClockMinute{});
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

} // namespace

Ledger::Ledger(const QString &folder, std::function<void()> leftDisk)
    : storage_{folder, std::move(leftDisk)}
{
}

/// Runs the statement and gives its rows to `take`, as long as that returns true.
void Ledger::forEach(const QString &statement, const QVariantList &values,
                     const std::function<bool(const QSqlQuery &row)> &take)
{
    QSqlQuery &rows = storage_.run(statement, values);
    while (storage_.next(rows) && take(rows)) {
    }
    rows.finish();
}

std::optional<std::vector<NotificationRequest>> Ledger::pending()
{
    std::vector<NotificationRequest> requests;
    const bool isRead = storage_.read([&] {
        forEach(QStringLiteral("SELECT identifier, title, body, sound, \"trigger\" FROM pending "
                               "WHERE lapsed IS NULL ORDER BY \"trigger\", number"),
                {}, [&](const QSqlQuery &row) {
                    requests.push_back(requestAt(row));
                    return true;
                });
    });
    return isRead ? std::optional{std::move(requests)} : std::nullopt;
}

std::optional<qint64> Ledger::pendingSize()
{
    qint64 size = 0;
    const bool isRead = storage_.read([&] {
        size =
            firstNumber(
                QStringLiteral(
                    "SELECT total(length(CAST(identifier AS BLOB)) + length(CAST(title AS BLOB)) + "
                    "length(CAST(body AS BLOB)) + length(CAST(sound AS BLOB)) + "
                    "length(\"trigger\")) "
                    "FROM pending WHERE lapsed IS NULL"))
                .value_or(0);
    });
    return isRead ? std::optional{size} : std::nullopt;
}

bool Ledger::hasPending()
{
    bool has = false;
    const bool isRead = storage_.read([&] { has = earliestDue().has_value(); });
    return has || !isRead;
}

qint64 Ledger::count()
{
    return firstNumber(QStringLiteral("SELECT (SELECT count(*) FROM pending) + "
                                      "(SELECT count(*) FROM outbox)"))
        .value_or(0);
}

std::optional<sys_seconds> Ledger::earliestDue()
{
    const std::optional<qint64> due = firstNumber(
        QStringLiteral("SELECT due FROM pending WHERE lapsed IS NULL ORDER BY due LIMIT 1"));
    return due ? std::optional{sys_seconds{seconds{*due}}} : std::nullopt;
}

/// The first column of the first row, if there is one.
std::optional<qint64> Ledger::firstNumber(const QString &statement, const QVariantList &values)
{
    std::optional<qint64> number;
    forEach(statement, values, [&](const QSqlQuery &row) {
        number = row.value(0).toLongLong();
        return false;
    });
    return number;
}

std::vector<Ledger::Pending> Ledger::listed(const QString &statement, const QVariantList &values)
{
    std::vector<Pending> result;
    forEach(statement, values, [&](const QSqlQuery &row) {
        result.push_back({.number = row.value(0).toLongLong(),
                          .identifier = row.value(1).toString(),
                          .trigger = minute(row.value(2)),
                          .due = moment(row.value(3))});
        return true;
    });
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

void Ledger::moveToOutbox(qint64 number)
{
    storage_.change(
        QStringLiteral("INSERT INTO outbox (identifier, title, body, sound, \"trigger\", due) "
                       "SELECT identifier, title, body, sound, \"trigger\", due FROM pending "
                       "WHERE number = ?"),
        {number});
    removePending(number);
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
    removeFromOutbox(request);
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

std::optional<OutboxEntry>
Ledger::firstInOutbox(const std::function<bool(const OutboxEntry &)> &accept)
{
    std::optional<OutboxEntry> found;
    forEach(QStringLiteral("SELECT identifier, title, body, sound, \"trigger\", due FROM outbox "
                           "ORDER BY number"),
            {}, [&](const QSqlQuery &row) {
                if (OutboxEntry entry = entryAt(row); accept(entry)) {
                    found = std::move(entry);
                }
                return !found;
            });
    return found;
}

void Ledger::removeFromOutbox(const NotificationRequest &request)
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
    return firstNumber(QStringLiteral("SELECT 1 FROM delivered WHERE identifier = ? AND "
                                      "\"trigger\" = ? UNION ALL SELECT 1 FROM outbox WHERE "
                                      "identifier = ? AND \"trigger\" = ?"),
                       {identifier, trigger.text(), identifier, trigger.text()})
        .has_value();
}

bool Ledger::laterCame(const QString &identifier, const WallClockMinute &trigger)
{
    const TrialRange range{identifier};
    bool came = false;
    forEach(QStringLiteral("SELECT identifier FROM delivered WHERE identifier > ? AND "
                           "identifier < ? AND \"trigger\" > ? UNION ALL SELECT identifier FROM "
                           "outbox WHERE identifier > ? AND identifier < ? AND \"trigger\" > ?"),
            {range.after, range.before, trigger.text(), range.after, range.before, trigger.text()},
            [&](const QSqlQuery &row) {
                came = range.include(row.value(0).toString());
                return !came;
            });
    return came;
}

std::vector<OutboxEntry> Ledger::earlierWaiting(const QString &identifier,
                                                const WallClockMinute &trigger)
{
    const TrialRange range{identifier};
    std::vector<OutboxEntry> entries;
    forEach(QStringLiteral("SELECT identifier, title, body, sound, \"trigger\", due FROM outbox "
                           "WHERE identifier > ? AND identifier < ? AND \"trigger\" < ?"),
            {range.after, range.before, trigger.text()}, [&](const QSqlQuery &row) {
                if (range.include(row.value(0).toString())) {
                    entries.push_back(entryAt(row));
                }
                return true;
            });
    return entries;
}

void Ledger::forgetBefore(sys_seconds moment)
{
    storage_.change(QStringLiteral("DELETE FROM delivered WHERE at < ?"), {number(moment)});
    storage_.change(QStringLiteral("DELETE FROM pending WHERE lapsed < ?"), {number(moment)});
}

void Ledger::forgetDeliveredAfter(sys_seconds moment)
{
    storage_.change(QStringLiteral("DELETE FROM delivered WHERE at > ?"), {number(moment)});
}

void Ledger::remove(const QStringList &identifiers)
{
    for (const QString &identifier : identifiers) {
        storage_.change(QStringLiteral("DELETE FROM pending WHERE identifier = ?"), {identifier});
        storage_.change(QStringLiteral("DELETE FROM outbox WHERE identifier = ?"), {identifier});
    }
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Ledger.h"

#include "notifier/LateRule.h"
#include "notifier/LedgerStatements.h"

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
        forEach(ledgerStatements::listPending, {}, [&](const QSqlQuery &row) {
            requests.push_back(requestAt(row));
            return true;
        });
    });
    return isRead ? std::optional{std::move(requests)} : std::nullopt;
}

std::optional<qint64> Ledger::pendingSize()
{
    qint64 size = 0;
    const bool isRead =
        storage_.read([&] { size = firstNumber(ledgerStatements::pendingSize).value_or(0); });
    return isRead ? std::optional{size} : std::nullopt;
}

bool Ledger::hasPending()
{
    bool has = false;
    const bool isRead = storage_.read([&] { has = earliestDue().has_value(); });
    return has || !isRead;
}

bool Ledger::isPending(const QString &identifier)
{
    return firstNumber(ledgerStatements::isPending, {identifier}).has_value();
}

qint64 Ledger::count()
{
    return firstNumber(ledgerStatements::count).value_or(0);
}

std::optional<sys_seconds> Ledger::earliestDue()
{
    const std::optional<qint64> due = firstNumber(ledgerStatements::earliestDue);
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
    return listed(ledgerStatements::dueAt, {number(now)});
}

std::vector<Ledger::Pending> Ledger::allWithDue()
{
    return listed(ledgerStatements::allWithDue);
}

void Ledger::add(const NotificationRequest &request, sys_seconds due)
{
    storage_.change(ledgerStatements::add,
                    {request.identifier, notNull(request.title), notNull(request.body),
                     notNull(request.sound), request.trigger.text(), number(due)});
}

void Ledger::removeAllPending()
{
    storage_.change(ledgerStatements::removeAllPending);
}

void Ledger::removePending(qint64 number)
{
    storage_.change(ledgerStatements::removePending, {number});
}

void Ledger::moveToOutbox(qint64 number)
{
    storage_.change(ledgerStatements::copyToOutbox, {number});
    removePending(number);
}

void Ledger::lapse(qint64 number, sys_seconds now)
{
    storage_.change(ledgerStatements::lapse, {norvane::number(now), number});
}

void Ledger::lapseWaiting(const NotificationRequest &request, sys_seconds now)
{
    storage_.change(ledgerStatements::lapseWaiting,
                    {number(now), request.identifier, request.trigger.text()});
    removeFromOutbox(request);
}

void Ledger::reviveLapsed(sys_seconds now)
{
    storage_.change(ledgerStatements::reviveLapsed, {number(now), number(now)});
}

void Ledger::setDue(qint64 number, sys_seconds due)
{
    storage_.change(ledgerStatements::setDue, {norvane::number(due), number});
}

bool Ledger::isOutboxEmpty()
{
    bool isEmpty = false;
    const bool isRead = storage_.read([&] { isEmpty = !outboxHead(); });
    return isRead && isEmpty;
}

std::optional<OutboxEntry>
Ledger::firstInOutbox(const std::function<bool(const OutboxEntry &)> &accept)
{
    std::optional<OutboxEntry> found;
    forEach(ledgerStatements::listOutbox, {}, [&](const QSqlQuery &row) {
        if (OutboxEntry entry = entryAt(row); accept(entry)) {
            found = std::move(entry);
        }
        return !found;
    });
    return found;
}

void Ledger::removeFromOutbox(const NotificationRequest &request)
{
    storage_.change(ledgerStatements::removeFromOutbox,
                    {request.identifier, request.trigger.text()});
}

void Ledger::rememberDelivered(const NotificationRequest &request, sys_seconds now)
{
    storage_.change(ledgerStatements::rememberDelivered,
                    {request.identifier, request.trigger.text(), number(now)});
}

bool Ledger::cameAlready(const QString &identifier, const WallClockMinute &trigger)
{
    return firstNumber(ledgerStatements::cameAlready,
                       {identifier, trigger.text(), identifier, trigger.text()})
        .has_value();
}

bool Ledger::laterCame(const QString &identifier, const WallClockMinute &trigger)
{
    const TrialRange range{identifier};
    bool came = false;
    forEach(ledgerStatements::laterCame,
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
    forEach(ledgerStatements::earlierWaiting, {range.after, range.before, trigger.text()},
            [&](const QSqlQuery &row) {
                if (range.include(row.value(0).toString())) {
                    entries.push_back(entryAt(row));
                }
                return true;
            });
    return entries;
}

void Ledger::forgetBefore(sys_seconds moment)
{
    storage_.change(ledgerStatements::forgetDeliveredBefore, {number(moment)});
    storage_.change(ledgerStatements::forgetLapsedBefore, {number(moment)});
}

void Ledger::forgetDeliveredAfter(sys_seconds moment)
{
    storage_.change(ledgerStatements::forgetDeliveredAfter, {number(moment)});
}

void Ledger::remove(const QStringList &identifiers)
{
    for (const QString &identifier : identifiers) {
        storage_.change(ledgerStatements::removeFromPending, {identifier});
        storage_.change(ledgerStatements::removeWaiting, {identifier});
    }
}

} // namespace norvane

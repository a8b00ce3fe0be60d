// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Scheduler.h"

#include "notifier/Alarm.h"
#include "notifier/LateRule.h"
#include "notifier/LocalZone.h"
#include "platform/Clock.h"
#include "time/LocalMinute.h"
#include "time/UnixTime.h"

#include <QHash>

#include <algorithm>
#include <variant>

namespace norvane {

namespace {

using std::chrono::sys_seconds;

/// How long a delivered reminder is remembered: longer than any lead, and over a clock set back.
constexpr std::chrono::days memory{7};

} // namespace

Scheduler::Scheduler(Ledger &ledger, Alarm &alarm, const LocalZone &zone, const Clock &clock,
                     QObject *parent)
    : QObject{parent},
      ledger_{ledger},
      alarm_{alarm},
      zone_{zone},
      clock_{clock}
{
    connect(&alarm, &Alarm::fired, this, &Scheduler::review);
    connect(&alarm, &Alarm::clockSet, this, &Scheduler::reconsider);
    connect(&zone, &LocalZone::changed, this, &Scheduler::reconsider);
}

void Scheduler::start()
{
    reconsider();
}

void Scheduler::goBackToDisk()
{
    if (!ledger_.isOnDisk() && ledger_.goBackToDisk()) {
        reconsider();
    }
}

LedgerStorage::Outcome Scheduler::apply(const std::vector<Change> &changes)
{
    goBackToDisk();
    const LedgerStorage::Outcome outcome = ledger_.transact([&] {
        moveDue();
        for (const Change &change : changes) {
            execute(change);
        }
        moveDue();
    });
    setAlarm();
    emit outboxChanged();
    return outcome;
}

std::vector<NotificationRequest> Scheduler::pending()
{
    return ledger_.pending();
}

bool Scheduler::hasPending()
{
    return ledger_.earliestDue().has_value();
}

void Scheduler::review()
{
    ledger_.transact([this] {
        ledger_.forgetBefore(now() - memory);
        moveDue();
    });
    setAlarm();
    emit outboxChanged();
}

void Scheduler::reconsider()
{
    ledger_.transact([this] {
        ledger_.forgetBefore(now() - memory);
        findMoments();
        ledger_.reviveLapsed(now());
        moveDue();
    });
    setAlarm();
    emit outboxChanged();
}

void Scheduler::execute(const Change &change)
{
    if (const auto *const add = std::get_if<AddRequest>(&change)) {
        ledger_.add(add->request, dueMoment(add->request.trigger, zone_.zone(), now()));
        return;
    }
    // What came before in this order and is due has come; a removal finds it in the outbox.
    moveDue();
    if (const auto *const some = std::get_if<RemoveRequests>(&change)) {
        ledger_.remove(some->identifiers);
    } else {
        ledger_.removeAllPending();
    }
}

/// Works out anew when each request is due, after the machine's clock or zone may have changed.
void Scheduler::findMoments()
{
    const QTimeZone zone = zone_.zone();
    for (const Ledger::Pending &request : ledger_.allWithDue()) {
        const std::vector<sys_seconds> moments = momentsOf(request.trigger, zone);
        // A moment that still stands is kept: the second of two is no reason to wait again.
        if (std::ranges::find(moments, request.due) == moments.end()) {
            ledger_.setDue(request.number, dueMoment(request.trigger, zone, now()));
        }
    }
}

void Scheduler::moveDue()
{
    const sys_seconds moment = now();
    if (ledger_.earliestDue().value_or(sys_seconds::max()) > moment) {
        return;
    }
    const std::vector<Ledger::Pending> due = ledger_.dueAt(moment);
    QHash<QStringView, qint64> latest; // Of each trial, by number: due is in ascending order.
    for (const Ledger::Pending &request : due) {
        latest[trialOf(request.identifier)] = request.number;
    }
    for (const Ledger::Pending &request : due) {
        const bool missed = isMissed(request.due, moment);
        if (ledger_.cameAlready(request.identifier, request.trigger)) {
            ledger_.drop(request.number);
        } else if (missed && (latest[trialOf(request.identifier)] != request.number ||
                              request.due + worthShowingFor(request.identifier) <= moment ||
                              ledger_.laterCame(request.identifier, request.trigger))) {
            ledger_.lapse(request.number, moment);
        } else {
            makeRoom(request);
            ledger_.moveToOutbox(request.number);
        }
    }
}

/// Nobody wants several reminders of one trial at once, when a notification server comes at last.
void Scheduler::makeRoom(const Ledger::Pending &next)
{
    const sys_seconds moment = now();
    for (const OutboxEntry &entry : ledger_.earlierWaiting(next.identifier, next.trigger)) {
        if (isMissed(entry.due, moment)) {
            ledger_.lapseWaiting(entry.request, moment);
        }
    }
}

void Scheduler::setAlarm()
{
    // With nothing pending too: a clock that is set back may bring lapsed requests back.
    alarm_.set(ledger_.earliestDue().value_or(sys_seconds::max()));
}

std::chrono::sys_seconds Scheduler::now() const
{
    return wholeSecond(clock_.now());
}

} // namespace norvane

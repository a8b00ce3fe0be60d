// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Scheduler.h"

#include "notifier/LateRule.h"
#include "platform/Clock.h"
#include "time/Calendar.h"

#include <QHash>

#include <algorithm>
#include <iterator>
#include <utility>

namespace norvane {

namespace {

using std::chrono::sys_seconds;

/// How long delivered and lapsed reminders are remembered: longer than any lead time, and long
/// enough for a wrong clock to be set right.
constexpr std::chrono::days retention{7};

/// Before what is pending is read again after it could not be read.
constexpr std::chrono::minutes readingPause{1};

/// A clock that is set back by less than this was only corrected: what was delivered in the running
/// minute must not come a second time.
constexpr std::chrono::minutes correction{1};

} // namespace

Scheduler::Scheduler(Ledger &ledger, Alarm &alarm, const LocalZone &zone, const Clock &clock,
                     qint64 requestLimit, QObject *parent)
    : QObject{parent},
      ledger_{ledger},
      alarm_{alarm},
      zone_{zone},
      clock_{clock},
      requestLimit_{requestLimit}
{
    connect(&alarm, &Alarm::fired, this, &Scheduler::showDue);
    connect(&alarm, &Alarm::clockSet, this, &Scheduler::recomputeDue);
    connect(&zone, &LocalZone::changed, this, &Scheduler::recomputeDue);
}

void Scheduler::start()
{
    recomputeDue();
}

void Scheduler::goBackToDisk()
{
    if (!ledger_.isOnDisk() && ledger_.goBackToDisk()) {
        recomputeDue();
    }
}

std::vector<Scheduler::Outcome> Scheduler::apply(const std::vector<Change> &changes)
{
    goBackToDisk();
    std::vector<bool> isKept;
    const LedgerStorage::Outcome outcome = ledger_.transact([&] {
        isKept.clear(); // The transaction may be tried a second time.
        requestsAtMost_ = ledger_.count();
        moveDue();
        for (const Change &change : changes) {
            isKept.push_back(execute(change));
        }
        moveDue();
    });
    setAlarm();
    emit outboxChanged();
    isKept.resize(changes.size(), true);
    std::vector<Outcome> outcomes;
    std::ranges::transform(isKept, std::back_inserter(outcomes), [&](bool kept) {
        return !kept                                        ? Outcome::Refused
               : outcome == LedgerStorage::Outcome::Durable ? Outcome::Durable
                                                            : Outcome::InMemory;
    });
    return outcomes;
}

bool Scheduler::hasPending()
{
    return ledger_.hasPending();
}

void Scheduler::showDue()
{
    ledger_.transact([this] {
        ledger_.forgetBefore(now() - retention);
        moveDue();
    });
    setAlarm();
    emit outboxChanged();
}

void Scheduler::recomputeDue()
{
    ledger_.transact([this] {
        ledger_.forgetBefore(now() - retention);
        setDueMoments();
        ledger_.reviveLapsed(now());
        ledger_.forgetDeliveredAfter(now() + correction);
        moveDue();
    });
    setAlarm();
    emit outboxChanged();
}

/// False when there is no room for a request.
bool Scheduler::execute(const Change &change)
{
    if (const auto *const addition = std::get_if<AddRequest>(&change)) {
        return add(addition->request);
    }
    // What was added before this removal and is due already goes to the outbox first: a removal by
    // identifier finds it there, and a removal of all pending requests spares it.
    moveDue();
    if (const auto *const some = std::get_if<RemoveRequests>(&change)) {
        ledger_.remove(some->identifiers);
    } else {
        ledger_.removeAllPending();
    }
    return true;
}

bool Scheduler::add(const NotificationRequest &request)
{
    if (requestsAtMost_ >= requestLimit_ && !ledger_.isPending(request.identifier)) {
        requestsAtMost_ = ledger_.count(); // Removals are not subtracted along the way.
        if (requestsAtMost_ >= requestLimit_) {
            return false;
        }
    }
    ledger_.add(request, Calendar{zone_.zone()}.dueMoment(request.trigger, now()));
    ++requestsAtMost_;
    return true;
}

/// Works out anew when each request is due, after the machine's clock or zone may have changed.
void Scheduler::setDueMoments()
{
    const Calendar calendar{zone_.zone()};
    for (const Ledger::Pending &request : ledger_.allWithDue()) {
        const std::vector<sys_seconds> moments = calendar.momentsOf(request.trigger);
        // Where a minute comes twice, when clocks go back, the moment that was chosen first is
        // kept.
        if (std::ranges::find(moments, request.due) == moments.end()) {
            ledger_.setDue(request.number, calendar.dueMoment(request.trigger, now()));
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
            ledger_.removePending(request.number);
        } else if (missed && (latest[trialOf(request.identifier)] != request.number ||
                              request.due + worthShowingFor(request.identifier) <= moment ||
                              ledger_.laterCame(request.identifier, request.trigger))) {
            ledger_.lapse(request.number, moment);
        } else {
            lapseEarlier(request);
            ledger_.moveToOutbox(request.number);
        }
    }
}

/// Otherwise several reminders of one trial would come at once when a notification server appears.
void Scheduler::lapseEarlier(const Ledger::Pending &next)
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
    // Also with nothing pending, because the alarm tells as well when the clock is set back, and
    // then lapsed requests may be pending again.
    std::optional<sys_seconds> moment = ledger_.earliestDue();
    if (!moment && ledger_.hasPending()) {
        moment = now() + readingPause; // It could not be read.
    }
    alarm_.set(moment.value_or(sys_seconds::max()));
}

std::chrono::sys_seconds Scheduler::now() const
{
    return clock_.now().wholeSecond();
}

} // namespace norvane

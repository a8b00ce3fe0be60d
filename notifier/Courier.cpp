// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Courier.h"

#include "notifier/LateRule.h"
#include "platform/Clock.h"

#include <algorithm>
#include <utility>

namespace norvane {

namespace {

constexpr int mostRefusals = 3;

/// A server that goes away while it has a reminder may have been restarted by the user. When that
/// happens twice with the same reminder, the reminder is taken for the cause.
constexpr int mostDeaths = 2;

/// The first attempt, and two more at the same server.
constexpr int mostUnanswered = 3;

QString keyOf(const NotificationRequest &request)
{
    return request.trigger.text() + u' ' + request.identifier;
}

} // namespace

bool Courier::Failures::isPostponed() const
{
    return refusals >= mostRefusals || deaths >= mostDeaths || unanswered >= mostUnanswered;
}

Courier::Courier(Ledger &ledger, NotificationServer &server, const Clock &clock, Pauses pauses,
                 QObject *parent)
    : QObject{parent},
      ledger_{ledger},
      server_{server},
      clock_{clock},
      pauses_{pauses}
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &Courier::deliver);
    connect(&server, &NotificationServer::shown, this, &Courier::shown);
    connect(&server, &NotificationServer::failed, this, &Courier::failed);
    connect(&server, &NotificationServer::appeared, this, &Courier::serverAppeared);
    connect(&server, &NotificationServer::disappeared, this, &Courier::serverDisappeared);
}

void Courier::deliver()
{
    if (isDelivering() || isHeld_) {
        return;
    }
    timer_.stop();
    std::optional<OutboxEntry> entry = next();
    if (!entry && !isOutboxEmpty()) {
        timer_.start(pauses_.longest); // It could not be read.
        return;
    }
    if (!entry) {
        failures_.clear();
        emit emptied();
        return;
    }
    const QDeadlineTimer retry = std::max(serverRetry_, failuresOf(entry->request).retry);
    if (!retry.hasExpired()) {
        waitFor(retry);
        return;
    }
    current_ = std::move(entry->request);
    server_.show(*current_);
}

void Courier::hold()
{
    isHeld_ = true;
    server_.setOnHold(true);
}

void Courier::release()
{
    isHeld_ = false;
    server_.setOnHold(false);
    deliver();
}

/// The reminder whose turn it is, after those before it that are no longer worth showing lapsed.
std::optional<OutboxEntry> Courier::next()
{
    const std::chrono::sys_seconds now = clock_.now().wholeSecond();
    std::optional<OutboxEntry> entry = firstToTry();
    while (entry && entry->due + worthShowingFor(entry->request.identifier) <= now) {
        ledger_.transact([&] { ledger_.lapseWaiting(entry->request, now); });
        failures_.erase(keyOf(entry->request));
        entry = firstToTry();
    }
    return entry;
}

/// The first in order that is not postponed, otherwise the one that may be tried the soonest.
std::optional<OutboxEntry> Courier::firstToTry()
{
    std::optional<OutboxEntry> soonest;
    const std::optional<OutboxEntry> first = ledger_.firstInOutbox([&](const OutboxEntry &entry) {
        const Failures failures = failuresOf(entry.request);
        if (!failures.isPostponed()) {
            return true;
        }
        if (!soonest || failures.retry < failuresOf(soonest->request).retry) {
            soonest = entry;
        }
        return false;
    });
    return first ? first : soonest;
}

void Courier::waitFor(const QDeadlineTimer &retry)
{
    // A reminder that this server is not given again must still be looked at, so that it lapses
    // when it is no longer worth showing.
    const std::chrono::nanoseconds rest =
        retry.isForever() ? pauses_.longest : retry.remainingTimeAsDuration();
    timer_.start(std::chrono::ceil<std::chrono::milliseconds>(rest));
}

Courier::Failures Courier::failuresOf(const NotificationRequest &request) const
{
    const auto found = failures_.find(keyOf(request));
    return found == failures_.end() ? Failures{} : found->second;
}

QDeadlineTimer Courier::pauseAfter(int failures) const
{
    constexpr int mostDoublings = 20; // Far over the longest pause, and no overflow.
    const int factor = 1 << std::min(failures - 1, mostDoublings);
    return QDeadlineTimer{std::min(pauses_.first * factor, pauses_.longest)};
}

void Courier::shown(const NotificationRequest &request)
{
    ledger_.transact([&] {
        ledger_.removeFromOutbox(request);
        ledger_.rememberDelivered(request, clock_.now().wholeSecond());
    });
    failures_.erase(keyOf(request));
    serverFailures_ = 0;
    serverRetry_ = {};
    if (isDelivering() && keyOf(request) == keyOf(*current_)) {
        current_.reset();
        emit answered();
    }
    deliver();
}

void Courier::failed(NotificationServer::Failure failure)
{
    using enum NotificationServer::Failure;
    if (!isDelivering()) {
        return; // The answer to an earlier attempt has come meanwhile.
    }
    const NotificationRequest given = *std::exchange(current_, {});
    if (failure == Unavailable) {
        serverRetry_ = pauseAfter(++serverFailures_);
    } else {
        Failures &failures = failures_[keyOf(given)];
        failures.refusals += failure == Refused ? 1 : 0;
        failures.deaths += failure == Died ? 1 : 0;
        failures.unanswered += failure == Unanswered ? 1 : 0;
        failures.retry =
            failures.unanswered >= mostUnanswered
                ? QDeadlineTimer{QDeadlineTimer::Forever}
                : pauseAfter(failures.refusals + failures.deaths + failures.unanswered);
    }
    emit answered();
    deliver();
}

/// The new server may take what the previous one refused. Only a reminder during which servers
/// went away twice keeps its pause: it may be the reason why they come and go.
void Courier::serverAppeared()
{
    if (isDelivering()) {
        return; // The attempt itself started the server.
    }
    serverFailures_ = 0;
    serverRetry_ = {};
    for (auto &[key, failures] : failures_) {
        failures.refusals = 0;
        if (failures.deaths < mostDeaths) {
            failures.retry = {};
        }
    }
    deliver();
}

/// The next server has been given nothing yet, so what this one left unanswered can be given to it.
/// After a pause: the attempt may be what starts the next server, which then appears during it.
void Courier::serverDisappeared()
{
    const QDeadlineTimer pause = pauseAfter(mostUnanswered);
    for (auto &[key, failures] : failures_) {
        failures.unanswered = 0;
        if (failures.retry.isForever()) {
            failures.retry = pause;
        }
    }
    deliver();
}

} // namespace norvane

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

/// A server that goes away while it has a reminder may have been restarted by the user; one that
/// does so again does not survive this reminder.
constexpr int mostDeaths = 2;

/// The first attempt, and two more at the same server.
constexpr int mostUnanswered = 3;

QString keyOf(const NotificationRequest &request)
{
    return request.trigger.text() + u' ' + request.identifier;
}

} // namespace

bool Courier::Trouble::isSetBack() const
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
}

void Courier::deliver()
{
    if (isDelivering() || isHeld_) {
        return;
    }
    timer_.stop();
    std::optional<OutboxEntry> entry = next();
    if (!entry) {
        troubles_.clear();
        emit emptied();
        return;
    }
    const QDeadlineTimer retry = std::max(serverRetry_, troubleOf(entry->request).retry);
    if (!retry.hasExpired()) {
        waitFor(retry);
        return;
    }
    current_ = std::move(entry->request);
    server_.show(*current_);
}

bool Courier::isEmpty() const
{
    return !ledger_.outboxHead();
}

void Courier::release()
{
    isHeld_ = false;
    deliver();
}

/// The reminder whose turn it is, after those before it that are no longer worth showing lapsed.
std::optional<OutboxEntry> Courier::next()
{
    const std::chrono::sys_seconds now = clock_.now().wholeSecond();
    std::optional<OutboxEntry> entry = firstToTry();
    while (entry && entry->due + worthShowingFor(entry->request.identifier) <= now) {
        ledger_.transact([&] { ledger_.lapseWaiting(entry->request, now); });
        troubles_.erase(keyOf(entry->request));
        entry = firstToTry();
    }
    return entry;
}

/// The first in order that is not set back, else the one of those that may be tried the soonest.
std::optional<OutboxEntry> Courier::firstToTry()
{
    std::optional<OutboxEntry> soonest;
    const std::optional<OutboxEntry> first = ledger_.firstInOutbox([&](const OutboxEntry &entry) {
        const Trouble trouble = troubleOf(entry.request);
        if (!trouble.isSetBack()) {
            return true;
        }
        if (!soonest || trouble.retry < troubleOf(soonest->request).retry) {
            soonest = entry;
        }
        return false;
    });
    return first ? first : soonest;
}

void Courier::waitFor(const QDeadlineTimer &retry)
{
    // What is not tried any more is looked at all the same, so that it lapses in time.
    const std::chrono::nanoseconds rest =
        retry.isForever() ? pauses_.longest : retry.remainingTimeAsDuration();
    timer_.start(std::chrono::ceil<std::chrono::milliseconds>(rest));
}

Courier::Trouble Courier::troubleOf(const NotificationRequest &request) const
{
    const auto found = troubles_.find(keyOf(request));
    return found == troubles_.end() ? Trouble{} : found->second;
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
    troubles_.erase(keyOf(request));
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
        Trouble &trouble = troubles_[keyOf(given)];
        trouble.refusals += failure == Refused ? 1 : 0;
        trouble.deaths += failure == Died ? 1 : 0;
        trouble.unanswered += failure == Unanswered ? 1 : 0;
        trouble.retry = trouble.unanswered >= mostUnanswered
                            ? QDeadlineTimer{QDeadlineTimer::Forever}
                            : pauseAfter(trouble.refusals + trouble.deaths + trouble.unanswered);
    }
    emit answered();
    deliver();
}

/// Another server may take what the last one did not, and nothing has been given to it yet. Only a
/// reminder that servers do not survive keeps its pause: it may be why they come and go.
void Courier::serverAppeared()
{
    if (isDelivering()) {
        return; // The attempt itself started the server.
    }
    serverFailures_ = 0;
    serverRetry_ = {};
    const QDeadlineTimer pause = pauseAfter(mostDeaths);
    for (auto &[key, trouble] : troubles_) {
        trouble.refusals = 0;
        trouble.unanswered = 0;
        if (trouble.deaths < mostDeaths) {
            trouble.retry = {};
        } else if (trouble.retry.isForever()) {
            trouble.retry = pause; // That was the server before, which never answered.
        }
    }
    deliver();
}

} // namespace norvane

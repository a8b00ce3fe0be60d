// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Courier.h"

#include "notifier/LateRule.h"
#include "notifier/Ledger.h"
#include "notifier/NotificationServer.h"
#include "platform/Clock.h"
#include "time/UnixTime.h"

#include <algorithm>
#include <utility>

namespace norvane {

namespace {

/// A server that goes away during an attempt may have been restarted by the user; one that does so
/// again does not survive what it is given.
constexpr int crashesTolerated = 2;

} // namespace

Courier::Courier(Ledger &ledger, NotificationServer &server, const Clock &clock, Pauses pauses,
                 QObject *parent)
    : QObject{parent},
      ledger_{ledger},
      server_{server},
      clock_{clock},
      pauses_{pauses},
      pause_{pauses.first}
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &Courier::deliver);
    connect(&server, &NotificationServer::shown, this, &Courier::shown);
    connect(&server, &NotificationServer::refused, this, &Courier::refused);
    connect(&server, &NotificationServer::appeared, this, &Courier::serverAppeared);
    connect(&server, &NotificationServer::vanished, this, &Courier::serverVanished);
}

void Courier::deliver()
{
    if (underWay_ || timer_.isActive() || isHeld_) {
        return;
    }
    std::optional<OutboxEntry> head = ledger_.outboxHead();
    const std::chrono::sys_seconds now = wholeSecond(clock_.now());
    while (head && head->due + worthShowingFor(head->request.identifier) <= now) {
        ledger_.transact([&] { ledger_.lapseWaiting(head->request, now); });
        head = ledger_.outboxHead();
    }
    if (!head) {
        emit emptied();
        return;
    }
    underWay_ = std::move(head->request);
    vanished_ = false;
    replaced_ = false;
    server_.show(underWay_->title, underWay_->body, underWay_->sound);
}

bool Courier::isEmpty() const
{
    return !ledger_.outboxHead();
}

void Courier::shown()
{
    if (!underWay_) {
        return;
    }
    const NotificationRequest request = std::move(*underWay_);
    underWay_.reset();
    ledger_.transact([&] {
        ledger_.strike(request);
        ledger_.rememberDelivered(request, wholeSecond(clock_.now()));
    });
    pause_ = pauses_.first;
    crashes_ = 0;
    deliver();
}

void Courier::refused()
{
    underWay_.reset();
    crashes_ = vanished_ && !replaced_ ? crashes_ + 1 : 0;
    if (replaced_) {
        pause_ = pauses_.first; // Whoever was silent is not the one that is there now.
    }
    timer_.start(pause_);
    pause_ = std::min(pause_ * 2, pauses_.longest);
}

void Courier::serverAppeared()
{
    if (underWay_) {
        replaced_ = vanished_; // Otherwise the attempt itself started it.
    } else if (crashes_ < crashesTolerated) {
        pause_ = pauses_.first;
        timer_.stop();
        deliver();
    }
}

void Courier::serverVanished()
{
    vanished_ = underWay_.has_value();
    replaced_ = false;
}

void Courier::release()
{
    isHeld_ = false;
    deliver();
}

} // namespace norvane

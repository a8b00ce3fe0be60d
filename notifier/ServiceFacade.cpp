// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/ServiceFacade.h"

#include "NotificationCenterAdaptor.h"
#include "notifier/Ledger.h"
#include "platform/bus/BusNames.h"

#include <QDBusError>
#include <QSet>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

namespace norvane {

namespace {

constexpr qsizetype longestText = 65'536; // Bytes of UTF-8.

/// The texts of all requests that are listed in one answer, in bytes. A session bus disconnects a
/// program that sends more than it takes, which may be twice as much.
constexpr qint64 longestList = 33'554'432;

/// How long calls are collected before they are written together: a write to disk takes as long.
constexpr std::chrono::milliseconds gathering{5};

/// Changes that are written at once, though more may be on their way: nobody waits too long for an
/// answer, and calls do not pile up in memory.
constexpr std::size_t fullBurst = 300;

/// The most identifiers that one transaction removes, which takes a few hundredths of a second.
constexpr qsizetype slice = 2'000;

bool isTooLong(const QString &text)
{
    // A text of no more than a third as many UTF-16 units cannot be too long.
    return text.size() > longestText / 3 && text.toUtf8().size() > longestText;
}

PendingRequestList forBus(std::vector<NotificationRequest> requests)
{
    PendingRequestList list;
    for (NotificationRequest &request : requests) {
        list.push_back({.identifier = std::move(request.identifier),
                        .title = std::move(request.title),
                        .body = std::move(request.body),
                        .sound = std::move(request.sound),
                        .trigger = request.trigger.text()});
    }
    return list;
}

} // namespace

ServiceFacade::ServiceFacade(Scheduler &scheduler, Ledger &ledger, QDBusConnection bus,
                             QObject *parent)
    : QObject{parent},
      scheduler_{scheduler},
      ledger_{ledger},
      bus_{std::move(bus)}
{
    registerPendingRequestTypes();
    new NotificationCenterAdaptor{this}; // Owned by this object, by Qt's rule for adaptors.
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, &ServiceFacade::write);
}

ServiceFacade::~ServiceFacade() = default;

bool ServiceFacade::RequestAuthorization(uint /*options*/)
{
    emit called();
    // Whether and how notifications appear is for the user to set on the server.
    collect(message().createReply(true));
    return {};
}

void ServiceFacade::AddRequest(const QString &identifier, const QString &title, const QString &body,
                               const QString &sound, const QString &trigger)
{
    emit called();
    const std::optional<WallClockMinute> minute = WallClockMinute::fromText(trigger);
    if (identifier.isEmpty()) {
        refuse(QStringLiteral("identifier: is empty"));
        return;
    }
    if (!minute) {
        refuse(QStringLiteral("trigger: is not a minute of the form yyyy-MM-ddTHH:mm"));
        return;
    }
    if (isRefused(QLatin1StringView{"identifier"}, identifier) ||
        isRefused(QLatin1StringView{"title"}, title) ||
        isRefused(QLatin1StringView{"body"}, body) ||
        isRefused(QLatin1StringView{"sound"}, sound)) {
        return;
    }
    collect(norvane::AddRequest{{.identifier = identifier,
                                 .title = title,
                                 .body = body,
                                 .sound = sound,
                                 .trigger = *minute}});
}

void ServiceFacade::RemovePendingRequests(const QStringList &identifiers)
{
    emit called();
    QStringList possible; // No pending request has an identifier that is too long.
    std::ranges::remove_copy_if(identifiers, std::back_inserter(possible), isTooLong);
    collect(RemoveRequests{std::move(possible)});
}

void ServiceFacade::RemoveAllPendingRequests()
{
    emit called();
    collect(RemoveAllRequests{});
}

/// Answers from the queue, like a change, so that the answer shows what was asked for before.
PendingRequestList ServiceFacade::PendingRequests()
{
    emit called();
    collect(ListPending{});
    write();
    return {};
}

bool ServiceFacade::isRefused(QLatin1StringView argument, const QString &text)
{
    if (!isTooLong(text)) {
        return false;
    }
    refuse(argument + QStringLiteral(": is longer than 64 KiB"));
    return true;
}

void ServiceFacade::refuse(const QString &reason)
{
    collect(message().createErrorReply(QDBusError::InvalidArgs, reason));
}

void ServiceFacade::collect(Work work)
{
    setDelayedReply(true);
    QDBusMessage call = message();
    call.setArguments({}); // They may be large, and are in `work`.
    calls_.push_back({.message = call, .work = std::move(work)});
    if (calls_.size() >= fullBurst) {
        write();
    } else if (!pause_.isActive()) {
        pause_.start(gathering);
    }
}

void ServiceFacade::writeAll()
{
    while (!calls_.empty()) {
        write();
    }
}

/// One transaction: everything that was collected, but of a long removal only the next slice.
void ServiceFacade::write()
{
    Round round = nextRound();
    calls_ = std::move(round.left);
    if (!round.changes.empty()) {
        const std::vector<Scheduler::Outcome> outcomes = scheduler_.apply(round.changes);
        for (std::size_t i = 0; i < outcomes.size(); ++i) {
            if (round.ended[i]) {
                answer(round.ended[i]->message, outcomes[i]);
            }
        }
    }
    for (const Call &call : round.others) {
        answer(call);
    }
    if (calls_.empty()) {
        pause_.stop();
    } else {
        pause_.start(std::chrono::milliseconds{0}); // Others have their turn first.
    }
}

ServiceFacade::Round ServiceFacade::nextRound()
{
    Round round;
    QSet<QString> waiting; // Callers whose further calls have to wait.
    qsizetype rest = slice;
    for (Call &call : calls_) {
        const QString caller = call.message.service();
        if (waiting.contains(caller)) {
            round.left.push_back(std::move(call));
            continue;
        }
        if (!std::holds_alternative<Change>(call.work)) {
            if (std::holds_alternative<ListPending>(call.work)) {
                waiting.insert(caller); // What comes after it must not show in its answer.
            }
            round.others.push_back(std::move(call));
            continue;
        }
        const auto &change = std::get<Change>(call.work);
        const auto *const removal = std::get_if<RemoveRequests>(&change);
        if (removal == nullptr || removal->identifiers.size() - call.done <= rest) {
            if (removal != nullptr) {
                rest -= removal->identifiers.size() - call.done;
            }
            round.changes.push_back(removal != nullptr && call.done > 0
                                        ? RemoveRequests{removal->identifiers.sliced(call.done)}
                                        : change);
            round.ended.emplace_back(std::move(call));
        } else {
            waiting.insert(caller);
            round.changes.emplace_back(
                RemoveRequests{removal->identifiers.sliced(call.done, rest)});
            round.ended.emplace_back(std::nullopt);
            call.done += std::exchange(rest, 0);
            round.left.push_back(std::move(call));
        }
    }
    return round;
}

void ServiceFacade::answer(const Call &call)
{
    if (const auto *const ready = std::get_if<QDBusMessage>(&call.work)) {
        reply(call.message, *ready);
    } else {
        answerList(call.message);
    }
}

void ServiceFacade::answerList(const QDBusMessage &call)
{
    const std::optional<qint64> size = ledger_.pendingSize();
    if (size && *size > longestList) {
        reply(call, call.createErrorReply(
                        QDBusError::LimitsExceeded,
                        QStringLiteral("The pending requests are too many for one answer")));
        return;
    }
    std::optional<std::vector<NotificationRequest>> requests =
        size ? ledger_.pending() : std::nullopt;
    reply(call, requests
                    ? call.createReply(QVariant::fromValue(forBus(std::move(*requests))))
                    : call.createErrorReply(busNames::storageError,
                                            QStringLiteral("The pending requests cannot be read")));
}

void ServiceFacade::answer(const QDBusMessage &call, Scheduler::Outcome outcome)
{
    switch (outcome) {
    case Scheduler::Outcome::Durable:
        reply(call, call.createReply());
        break;
    case Scheduler::Outcome::InMemory:
        reply(call, call.createErrorReply(
                        busNames::storageError,
                        QStringLiteral("Kept in memory only: the disk cannot be written")));
        break;
    case Scheduler::Outcome::Refused:
        reply(call, call.createErrorReply(
                        QDBusError::LimitsExceeded,
                        QStringLiteral("Not kept: there are too many requests already")));
        break;
    }
}

void ServiceFacade::reply(const QDBusMessage &call, const QDBusMessage &answer)
{
    if (call.isReplyRequired()) {
        bus_.send(answer);
    }
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/ServiceFacade.h"

#include "NotificationCenterAdaptor.h"
#include "notifier/Scheduler.h"
#include "platform/bus/BusNames.h"
#include "time/LocalMinute.h"

#include <QDBusError>

#include <chrono>
#include <utility>

namespace norvane {

namespace {

constexpr qsizetype longestText = 65'536; // Bytes of UTF-8.

/// How long calls are collected before they are written together: a write to disk takes as long.
constexpr std::chrono::milliseconds gathering{5};

/// Changes that are written at once, though more may be on their way: nobody waits too long for an
/// answer, and calls do not pile up in memory.
constexpr std::size_t fullBurst = 300;

} // namespace

ServiceFacade::ServiceFacade(Scheduler &scheduler, QDBusConnection bus, QObject *parent)
    : QObject{parent},
      scheduler_{scheduler},
      bus_{std::move(bus)}
{
    registerPendingRequestTypes();
    new NotificationCenterAdaptor{this}; // Owned by this object, by Qt's rule for adaptors.
    pause_.setSingleShot(true);
    pause_.setInterval(gathering);
    connect(&pause_, &QTimer::timeout, this, &ServiceFacade::write);
}

ServiceFacade::~ServiceFacade() = default;

bool ServiceFacade::RequestAuthorization(uint /*options*/)
{
    emit called();
    return true; // Whether and how notifications appear is for the user to set on the server.
}

void ServiceFacade::AddRequest(const QString &identifier, const QString &title, const QString &body,
                               const QString &sound, const QString &trigger)
{
    emit called();
    const std::optional<WallClockMinute> minute = minuteFrom(trigger);
    if (identifier.isEmpty()) {
        refuse(QStringLiteral("identifier: is empty"));
        return;
    }
    if (!minute) {
        refuse(QStringLiteral("trigger: is no minute of the form yyyy-MM-ddTHH:mm"));
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
    collect(RemoveRequests{identifiers});
}

void ServiceFacade::RemoveAllPendingRequests()
{
    emit called();
    collect(RemoveAllRequests{});
}

PendingRequestList ServiceFacade::PendingRequests()
{
    emit called();
    write(); // What was asked for before this call shows in its answer.
    PendingRequestList requests;
    for (NotificationRequest &request : scheduler_.pending()) {
        requests.push_back({.identifier = std::move(request.identifier),
                            .title = std::move(request.title),
                            .body = std::move(request.body),
                            .sound = std::move(request.sound),
                            .trigger = request.trigger.text()});
    }
    return requests;
}

bool ServiceFacade::isRefused(QLatin1StringView argument, const QString &text)
{
    // A text of no more than a third as many UTF-16 units cannot be too long.
    if (text.size() <= longestText / 3 || text.toUtf8().size() <= longestText) {
        return false;
    }
    refuse(argument + QStringLiteral(": is longer than 64 KiB"));
    return true;
}

void ServiceFacade::refuse(const QString &reason)
{
    if (message().isReplyRequired()) {
        sendErrorReply(QDBusError::InvalidArgs, reason);
    }
}

void ServiceFacade::collect(Change change)
{
    setDelayedReply(true);
    changes_.push_back(std::move(change));
    if (message().isReplyRequired()) {
        calls_.push_back(message());
    }
    if (changes_.size() >= fullBurst) {
        write();
    } else if (!pause_.isActive()) {
        pause_.start();
    }
}

void ServiceFacade::write()
{
    pause_.stop();
    if (changes_.empty()) {
        return;
    }
    const LedgerStorage::Outcome outcome = scheduler_.apply(std::exchange(changes_, {}));
    for (const QDBusMessage &call : std::exchange(calls_, {})) {
        bus_.send(outcome == LedgerStorage::Outcome::Durable
                      ? call.createReply()
                      : call.createErrorReply(
                            busNames::storageError,
                            QStringLiteral("Kept in memory only: the disk cannot be written")));
    }
}

} // namespace norvane

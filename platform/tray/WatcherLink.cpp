// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/WatcherLink.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <chrono>

namespace norvane {

namespace {

using namespace std::chrono_literals;

const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");

constexpr int attempts = 10;
constexpr auto pauseBetweenAttempts = 500ms;

} // namespace

WatcherLink::WatcherLink(const QDBusConnection &bus)
    : bus_{bus},
      owners_{watcherName, bus, QDBusServiceWatcher::WatchForOwnerChange}
{
    retry_.setSingleShot(true);
    retry_.setInterval(pauseBetweenAttempts);
    connect(&retry_, &QTimer::timeout, this, &WatcherLink::registerItem);
}

void WatcherLink::start()
{
    if (!bus_.isConnected()) {
        decided_ = true;
        emit changed();
        return;
    }
    registerItem(); // The icon need not wait until it is known who will show it.
    connect(&owners_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &owner) {
                isAsked_ = false;
                hasHost_ = false;
                setOwner(owner);
            });
    bus_.connect(watcherName, watcherPath, watcherName,
                 QStringLiteral("StatusNotifierHostRegistered"), this, SLOT(hostRegistered()));
    bus_.connect(watcherName, watcherPath, watcherName,
                 QStringLiteral("StatusNotifierHostUnregistered"), this, SLOT(hostUnregistered()));

    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetNameOwner"));
    question << watcherName;
    auto *const answer = new QDBusPendingCallWatcher{bus_.asyncCall(question), this};
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        if (!decided_) { // Otherwise a change has been told since, and that is newer.
            const QDBusPendingReply<QString> owner = *answer;
            setOwner(owner.isError() ? QString{} : owner.value());
        }
    });
}

void WatcherLink::setOwner(const QString &owner)
{
    decided_ = true;
    present_ = !owner.isEmpty();
    retry_.stop();
    attemptsLeft_ = attempts;
    if (present_ && !isAsked_) {
        registerItem();
    }
    emit changed();
}

void WatcherLink::registerItem()
{
    isAsked_ = true;
    const int round = ++round_;
    --attemptsLeft_;
    QDBusMessage call = QDBusMessage::createMethodCall(
        watcherName, watcherPath, watcherName, QStringLiteral("RegisterStatusNotifierItem"));
    call.setAutoStartService(false);
    call << bus_.baseService(); // Owning a name for each item is refused in sandboxes.
    auto *const reply = new QDBusPendingCallWatcher{bus_.asyncCall(call), this};
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply, round] {
        reply->deleteLater();
        if (round != round_) {
            return; // Of a watcher that is gone, or overtaken.
        }
        if (!reply->isError()) {
            askForHost();
            return;
        }
        isAsked_ = false;
        if (present_ && attemptsLeft_ > 0) {
            retry_.start();
        }
    });
}

void WatcherLink::askForHost()
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        watcherName, watcherPath, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    question.setAutoStartService(false);
    question << watcherName << QStringLiteral("IsStatusNotifierHostRegistered");
    auto *const answer = new QDBusPendingCallWatcher{bus_.asyncCall(question), this};
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QVariant> registered = *answer;
        if (!registered.isError()) {
            hasHost_ = registered.value().toBool();
            emit changed();
        }
    });
}

void WatcherLink::hostRegistered()
{
    attemptsLeft_ = attempts;
    registerItem();
}

void WatcherLink::hostUnregistered()
{
    askForHost();
}

} // namespace norvane

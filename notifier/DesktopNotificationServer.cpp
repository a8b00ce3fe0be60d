// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/DesktopNotificationServer.h"

#include "notifier/BodyMarkup.h"
#include "platform/NotificationRequest.h"
#include "platform/bus/BusNames.h"

#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QStringList>
#include <QVariantMap>

#include <utility>

namespace norvane {

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");

constexpr uchar normalUrgency = 1;
constexpr int untilTheServerDecides = -1;

QDBusMessage message(const QString &method)
{
    return QDBusMessage::createMethodCall(service, path, service, method);
}

} // namespace

DesktopNotificationServer::DesktopNotificationServer(const QDBusConnection &bus,
                                                     std::chrono::milliseconds patience,
                                                     QObject *parent)
    : NotificationServer{parent},
      bus_{bus},
      patience_{patience},
      watcher_{service, bus, QDBusServiceWatcher::WatchForOwnerChange}
{
    connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &oldOwner, const QString &newOwner) {
                ownerChanged(oldOwner, newOwner);
            });
}

void DesktopNotificationServer::show(const QString &title, const QString &body,
                                     const QString &sound)
{
    const Notification notification{.title = title, .body = body, .sound = sound};
    if (readsMarkup_) {
        notify(notification);
    } else {
        askCapabilities(notification);
    }
}

void DesktopNotificationServer::askCapabilities(const Notification &notification)
{
    call(message(QStringLiteral("GetCapabilities")),
         [this, notification](const QDBusMessage &answer) {
             if (answer.type() == QDBusMessage::ReplyMessage) {
                 readsMarkup_ = answer.arguments().value(0).toStringList().contains(
                     QLatin1StringView{"body-markup"});
                 notify(notification);
             } else {
                 emit refused();
             }
         });
}

void DesktopNotificationServer::notify(const Notification &notification)
{
    QVariantMap hints{
        {QStringLiteral("desktop-entry"), busNames::application},
        {QStringLiteral("urgency"), QVariant::fromValue(normalUrgency)},
    };
    if (notification.sound == NotificationRequest::defaultSound) {
        hints.insert(QStringLiteral("sound-name"), QStringLiteral("message-new-instant"));
    }
    QDBusMessage notify = message(QStringLiteral("Notify"));
    notify << QStringLiteral("Norvane") << 0U << busNames::application << notification.title
           << (readsMarkup_.value_or(false) ? asMarkup(notification.body) : notification.body)
           << QStringList{} << hints << untilTheServerDecides;

    isAsking_ = true;
    listenIfNeeded();
    call(notify, [this](const QDBusMessage &answer) {
        isAsking_ = false;
        const QSet<uint> closed = std::exchange(closedMeanwhile_, {});
        const bool isTaken = answer.type() == QDBusMessage::ReplyMessage;
        const uint id = answer.arguments().value(0).toUInt();
        if (isTaken && !closed.contains(id)) {
            onScreen_.insert(id);
        }
        listenIfNeeded();
        if (isTaken) {
            emit shown();
        } else {
            emit refused();
        }
    });
}

/// The signal tells of every program's notifications, and each would wake this one up: it is
/// listened to only as long as there may be something to hear about.
void DesktopNotificationServer::listenIfNeeded()
{
    const bool needed = isAsking_ || isShowing();
    if (needed == isListening_) {
        return;
    }
    isListening_ = needed;
    const QString signal = QStringLiteral("NotificationClosed");
    if (needed) {
        bus_.connect(QString{}, path, service, signal, this, SLOT(closed(uint)));
    } else {
        bus_.disconnect(QString{}, path, service, signal, this, SLOT(closed(uint)));
    }
}

void DesktopNotificationServer::closed(uint id)
{
    if (isAsking_) {
        closedMeanwhile_.insert(id); // Possibly what the answer, not looked at yet, will be about.
    }
    if (onScreen_.remove(id) && onScreen_.isEmpty()) {
        listenIfNeeded();
        emit screenCleared();
    }
}

void DesktopNotificationServer::ownerChanged(const QString &oldOwner, const QString &newOwner)
{
    readsMarkup_.reset();
    if (!onScreen_.isEmpty()) {
        onScreen_.clear(); // They went with the server that showed them.
        listenIfNeeded();
        emit screenCleared();
    }
    if (!oldOwner.isEmpty()) {
        emit vanished();
    }
    if (!newOwner.isEmpty()) {
        emit appeared();
    }
}

void DesktopNotificationServer::call(const QDBusMessage &message,
                                     const std::function<void(const QDBusMessage &)> &answered)
{
    auto *const watcher = new QDBusPendingCallWatcher{
        bus_.asyncCall(message, static_cast<int>(patience_.count())), this};
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, answered] {
        watcher->deleteLater();
        answered(watcher->reply());
    });
}

} // namespace norvane

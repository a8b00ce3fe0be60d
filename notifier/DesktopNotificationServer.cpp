// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/DesktopNotificationServer.h"

#include "notifier/BodyMarkup.h"
#include "platform/bus/BusNames.h"

#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QStringList>
#include <QVariantMap>

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
            [this](const QString &, const QString &, const QString &newOwner) {
                ownerChanged(newOwner);
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
    if (notification.sound == QLatin1StringView{"default"}) {
        hints.insert(QStringLiteral("sound-name"), QStringLiteral("message-new-instant"));
    }
    QDBusMessage notify = message(QStringLiteral("Notify"));
    notify << QStringLiteral("Norvane") << 0U << busNames::application << notification.title
           << (readsMarkup_.value_or(false) ? asMarkup(notification.body) : notification.body)
           << QStringList{} << hints << untilTheServerDecides;

    // Listened to only as long as there is something to hear about: the signal tells of every
    // program's notifications, and each would wake this one up.
    bus_.connect(QString{}, path, service, QStringLiteral("NotificationClosed"), this,
                 SLOT(closed(uint)));
    call(notify, [this](const QDBusMessage &answer) {
        if (answer.type() == QDBusMessage::ReplyMessage) {
            taken(answer.arguments().value(0).toUInt());
        } else {
            emit refused();
        }
    });
}

void DesktopNotificationServer::taken(uint id)
{
    onScreen_.insert(id);
    emit shown();
}

void DesktopNotificationServer::closed(uint id)
{
    if (onScreen_.remove(id) && onScreen_.isEmpty()) {
        bus_.disconnect(QString{}, path, service, QStringLiteral("NotificationClosed"), this,
                        SLOT(closed(uint)));
        emit screenCleared();
    }
}

void DesktopNotificationServer::ownerChanged(const QString &newOwner)
{
    readsMarkup_.reset();
    if (!onScreen_.isEmpty()) {
        onScreen_.clear(); // They went with the server that showed them.
        emit screenCleared();
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

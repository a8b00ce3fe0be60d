// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/NotificationServer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QSet>

#include <chrono>
#include <functional>
#include <optional>

namespace norvane {

/// The server behind org.freedesktop.Notifications on the session bus.
class DesktopNotificationServer final : public NotificationServer {
    Q_OBJECT

public:
    /// A call that has no answer within `patience` counts as refused.
    DesktopNotificationServer(const QDBusConnection &bus, std::chrono::milliseconds patience,
                              QObject *parent = nullptr);

    void show(const QString &title, const QString &body, const QString &sound) override;
    [[nodiscard]] bool isShowing() const override { return !onScreen_.isEmpty(); }

private slots:
    void closed(uint id);

private:
    struct Notification {
        QString title;
        QString body;
        QString sound;
    };

    void askCapabilities(const Notification &notification);
    void notify(const Notification &notification);
    void listenIfNeeded();
    void ownerChanged(const QString &oldOwner, const QString &newOwner);
    void call(const QDBusMessage &message,
              const std::function<void(const QDBusMessage &)> &answered);

    QDBusConnection bus_;
    const std::chrono::milliseconds patience_;
    QDBusServiceWatcher watcher_;
    std::optional<bool> readsMarkup_; ///< Unknown until the server that is there was asked.
    QSet<uint> onScreen_;             ///< What the server called the notifications it may show.
    bool isAsking_ = false;           ///< A notification is on its way to the server.
    QSet<uint> closedMeanwhile_;      ///< What was closed, by whomever, while one is on its way.
    bool isListening_ = false;
};

} // namespace norvane

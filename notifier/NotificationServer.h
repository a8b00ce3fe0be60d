// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationRequest.h"

#include <QObject>

namespace norvane {

/// Whoever shows notifications on this desktop. It may come and go while the program runs.
class NotificationServer : public QObject {
    Q_OBJECT

public:
    /// Why a notification was not shown, as far as that is known.
    enum class Failure {
        Unavailable, ///< There is no server, or it answers nothing, or another took its place.
        Refused,     ///< The server answered that it does not take this one.
        Died,        ///< The server went away while it had this one.
        Unanswered   ///< The server answers other calls, but not the one with this notification.
    };

    using QObject::QObject;

    /// Hands one notification over: its texts as they are to read, whatever they hold. shown() or
    /// failed() follows, from the event loop; until then the next must not be handed over. A server
    /// that hangs is waited for as long as it exists: what it was given is in its queue and may
    /// still be shown.
    virtual void show(const NotificationRequest &request) = 0;
    /// Whether something that was shown may still be on the screen.
    [[nodiscard]] virtual bool isShowing() const = 0;
    /// While this is on, nothing more is handed over: a notification that is not on its way to the
    /// server yet fails as Unavailable.
    virtual void setOnHold(bool on) = 0;

signals:
    /// The server took it. May come late, after failed() was told of the same notification.
    void shown(const norvane::NotificationRequest &request);
    /// About the notification that was handed over last.
    void failed(norvane::NotificationServer::Failure failure);
    /// A server is there that was not there before.
    void appeared();
    /// The server has gone, or another takes its place: then appeared() follows. What it was given
    /// and left unanswered will not be shown any more.
    void disappeared();
    /// isShowing() has become false.
    void screenCleared();
    /// The user clicked on something that was shown. The token lets whoever reacts take the
    /// keyboard focus; it may be empty.
    void clicked(const QString &activationToken);
};

} // namespace norvane

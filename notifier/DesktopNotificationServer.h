// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/NotificationServer.h"
#include "platform/NotificationRequest.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QSet>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>
#include <utility>

namespace norvane {

/// The server behind org.freedesktop.Notifications on the session bus.
///
/// When no answer comes within the timeout, either the notification was lost, or the server hangs
/// with it in its queue, and would show it twice if it were sent again. GetCapabilities, which
/// changes nothing, tells which: when the server answers it, and not the notification sent before,
/// that one counts as unanswered. Answers are awaited without a limit, as long as the server
/// exists.
class DesktopNotificationServer final : public NotificationServer {
    Q_OBJECT

public:
    DesktopNotificationServer(const QDBusConnection &bus, std::chrono::milliseconds timeout,
                              QObject *parent = nullptr);

    void show(const NotificationRequest &request) override;
    [[nodiscard]] bool isShowing() const override { return !onScreen_.isEmpty(); }
    void setOnHold(bool on) override { isOnHold_ = on; }

private slots:
    void closed(uint id);
    void actionInvoked(uint id, const QString &action);
    void tokenGiven(uint id, const QString &token);

private:
    enum class State {
        Idle,      ///< Or asking what the server can do.
        Notifying, ///< The server has the notification, for no longer than the timeout.
        Hanging    ///< The same, for longer: it is asked whether it lives.
    };
    struct Abilities {
        bool markup = false; ///< It reads the body as markup.
        bool clicks = false; ///< It tells of clicks, and draws nothing for that.
    };
    using Answered = std::function<void(const QDBusMessage &)>;

    void askCapabilities();
    void askName(Abilities abilities);
    void notify();
    void notifyAnswered(const NotificationRequest &request, int attempt, int owner,
                        const QDBusMessage &answer);
    void askWhetherItLives();
    void fail(Failure failure);
    void listenIfNeeded();
    [[nodiscard]] bool listen(bool on, const QString &signal, const char *slot);
    void ownerChanged(const QString &oldOwner, const QString &newOwner);
    void call(const QDBusMessage &message, int timeout, const Answered &answered);

    QDBusConnection bus_;
    const std::chrono::milliseconds timeout_;
    QDBusServiceWatcher watcher_;
    State state_ = State::Idle;
    NotificationRequest request_; ///< What show() was given last.
    int attempt_ = 0; ///< Calls of show(), so that a late answer is known for what it is.
    int owner_ = 0;   ///< Servers that came and went.
    QTimer answerTimer_;
    std::optional<Abilities> abilities_; ///< Unknown until the server that is there was asked.
    QSet<uint> onScreen_;                ///< What the server called the notifications it may show.
    int unanswered_ = 0;                 ///< Calls with a notification that have no answer yet.
    QSet<uint> closedMeanwhile_;         ///< What was closed, by whomever, during such a call.
    std::pair<uint, QString> token_;     ///< Of the notification that was clicked on last.
    bool isListening_ = false;
    bool isOnHold_ = false;
};

} // namespace norvane

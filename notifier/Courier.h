// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/Ledger.h"
#include "notifier/NotificationServer.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <map>
#include <optional>

namespace norvane {

class Clock;

/// Brings what is in the outbox to the notification server, one after the other and in order.
///
/// A reminder leaves the outbox only after the server took it, or when it is no longer worth
/// showing (LateRule). What concerns the server (there is none, it answers nothing) makes all wait,
/// with pauses that grow, until a server appears. What concerns one reminder makes the others wait
/// only at first: one that was refused three times, or that the server did not survive twice, is
/// set back: it is tried again only when no other is left to try, after pauses that grow. One that
/// this server never answered, though it was given it three times, is not given to it again: it may
/// have been shown each time.
///
/// Everything given is borrowed. One thread only.
class Courier final : public QObject {
    Q_OBJECT

public:
    /// Pauses between attempts double from the first up to the longest.
    struct Pauses {
        std::chrono::milliseconds first{2'000}; ///< Over the second within which some servers
                                                ///< refuse the same text again.
        std::chrono::milliseconds longest{300'000};
    };

    Courier(Ledger &ledger, NotificationServer &server, const Clock &clock, Pauses pauses,
            QObject *parent = nullptr);

    /// Delivers what is there, unless one is being delivered already, or all have to wait.
    void deliver();
    /// Hands out nothing more until release().
    void hold() { isHeld_ = true; }
    void release();
    [[nodiscard]] bool isEmpty() const;
    /// Whether the server has a reminder that it has not answered yet.
    [[nodiscard]] bool isDelivering() const { return current_.has_value(); }

signals:
    /// There was nothing to deliver, or nothing is left.
    void emptied();
    /// The server answered the reminder that it was given, or will not any more.
    void answered();

private:
    /// What happened to one reminder so far.
    struct Trouble {
        int refusals = 0;
        int deaths = 0;
        int unanswered = 0;
        QDeadlineTimer retry; ///< Not before it has expired.

        [[nodiscard]] bool isSetBack() const;
    };

    void shown(const NotificationRequest &request);
    void failed(NotificationServer::Failure failure);
    void serverAppeared();

    [[nodiscard]] std::optional<OutboxEntry> next();
    [[nodiscard]] std::optional<OutboxEntry> firstToTry();
    void waitFor(const QDeadlineTimer &retry);
    [[nodiscard]] Trouble troubleOf(const NotificationRequest &request) const;
    [[nodiscard]] QDeadlineTimer pauseAfter(int failures) const;

    Ledger &ledger_;
    NotificationServer &server_;
    const Clock &clock_;
    const Pauses pauses_;
    bool isHeld_ = false;
    std::optional<NotificationRequest> current_; ///< What the server has and has not answered.
    QTimer timer_;                               ///< Until something may be tried again.
    int serverFailures_ = 0; ///< In a row; what concerns the server, and so all reminders.
    QDeadlineTimer serverRetry_;
    std::map<QString, Trouble> troubles_; ///< By identifier and trigger.
};

} // namespace norvane

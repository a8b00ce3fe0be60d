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
/// A reminder leaves the outbox when the server has taken it, or when it is no longer worth showing
/// (LateRule). A failure of the server (none is there, or it answers nothing) delays all reminders:
/// the attempt is repeated after growing pauses, and at once when a server appears. A failure of
/// one reminder delays the others only at first. After three refusals, or after two servers that
/// went away while they had it, the reminder is postponed: it is tried only when no other reminder
/// is left to try, after growing pauses. A reminder that this server left unanswered three times is
/// not given to it again, because it may have been shown each time.
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
    void hold();
    void release();
    /// Whether nothing waits in the outbox. False as well when that cannot be read.
    [[nodiscard]] bool isOutboxEmpty() const { return ledger_.isOutboxEmpty(); }
    /// Whether the server has a reminder that it has not answered yet.
    [[nodiscard]] bool isDelivering() const { return current_.has_value(); }

signals:
    /// There was nothing to deliver, or nothing is left.
    void emptied();
    /// The server answered the reminder that it was given, or will not any more.
    void answered();

private:
    /// The failures of one reminder so far.
    struct Failures {
        int refusals = 0;
        int deaths = 0;
        int unanswered = 0;   ///< Of the server that is there now.
        QDeadlineTimer retry; ///< Not before it has expired.

        [[nodiscard]] bool isPostponed() const;
    };

    void shown(const NotificationRequest &request);
    void failed(NotificationServer::Failure failure);
    void serverAppeared();
    void serverDisappeared();

    [[nodiscard]] std::optional<OutboxEntry> next();
    [[nodiscard]] std::optional<OutboxEntry> firstToTry();
    void waitFor(const QDeadlineTimer &retry);
    [[nodiscard]] Failures failuresOf(const NotificationRequest &request) const;
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
    std::map<QString, Failures> failures_; ///< By identifier and trigger.
};

} // namespace norvane

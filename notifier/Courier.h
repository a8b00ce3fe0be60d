// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationRequest.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>

namespace norvane {

class Clock;
class Ledger;
class NotificationServer;

/// Brings what is in the outbox to the notification server, one after the other and in order.
///
/// A reminder is struck from the outbox only after the server took it. One that is refused keeps
/// its place; it is tried again when a server appears, and after pauses that grow from one attempt
/// to the next. A server that did not survive two attempts in a row has to wait for those pauses,
/// too. What is no longer worth showing (LateRule) lapses.
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

    /// Delivers what is there, unless it is at it already, or pauses, or is held.
    void deliver();
    /// Keeps what is not under way yet, for whoever comes after this process.
    void hold() { isHeld_ = true; }
    void release();
    [[nodiscard]] bool isEmpty() const;

signals:
    /// There was nothing to deliver, or nothing is left.
    void emptied();

private:
    void shown();
    void refused();
    void serverAppeared();
    void serverVanished();

    Ledger &ledger_;
    NotificationServer &server_;
    const Clock &clock_;
    const Pauses pauses_;
    std::chrono::milliseconds pause_;
    QTimer timer_; ///< Runs during a pause.
    bool isHeld_ = false;
    bool vanished_ = false; ///< In the course of the last attempt, the server went away.
    bool replaced_ = false; ///< And after that, in its course too, another came.
    int crashes_ = 0;       ///< Attempts in a row that the server did not survive.
    std::optional<NotificationRequest> underWay_;
};

} // namespace norvane

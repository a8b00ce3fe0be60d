// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/Change.h"
#include "notifier/Ledger.h"

#include <QObject>

#include <chrono>
#include <vector>

namespace norvane {

class Alarm;
class Clock;
class LocalZone;

/// Takes requests, and moves each into the outbox when the local wall clock reaches its minute.
///
/// A request for the minute that is running comes at once. One whose minute is over was missed,
/// whether the machine slept through it, nobody was logged in, or it was asked for too late: it
/// comes at once as well, unless a later reminder of its trial is due too or came, or it is no
/// longer worth showing (LateRule). One that still waits in the outbox when the next of its trial
/// joins it makes room. What came already for the same identifier and minute never comes again.
///
/// Everything given is borrowed. One thread only.
class Scheduler final : public QObject {
    Q_OBJECT

public:
    Scheduler(Ledger &ledger, Alarm &alarm, const LocalZone &zone, const Clock &clock,
              QObject *parent = nullptr);

    /// Works through what was missed and begins to wait. The ledger must be open.
    void start();
    /// With a ledger in memory only: back to the file, if that can be, and to what it holds.
    void goBackToDisk();

    /// Applies the changes in this order, as one.
    LedgerStorage::Outcome apply(const std::vector<Change> &changes);

    [[nodiscard]] std::vector<NotificationRequest> pending();
    [[nodiscard]] bool hasPending();

signals:
    /// The outbox may hold something new, or less than before.
    void outboxChanged();

private:
    void review();
    void reconsider();

    void execute(const Change &change);
    void findMoments();
    void moveDue();
    void makeRoom(const Ledger::Pending &next);
    void setAlarm();
    [[nodiscard]] std::chrono::sys_seconds now() const;

    Ledger &ledger_;
    Alarm &alarm_;
    const LocalZone &zone_;
    const Clock &clock_;
};

} // namespace norvane

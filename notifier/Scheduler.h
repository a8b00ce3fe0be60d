// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/Ledger.h"
#include "platform/NotificationRequest.h"
#include "time/Zone.h"

#include <QObject>
#include <QStringList>

#include <chrono>
#include <optional>
#include <variant>
#include <vector>

namespace norvane {

class Clock;

/// Wakes the scheduler at one moment of wall-clock time.
///
/// Holds one moment; setting another replaces it, and a moment already past is reported on the
/// next turn of the event loop. Use it from the thread that made it.
class Alarm : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    virtual void set(std::chrono::sys_seconds moment) = 0;

signals:
    void fired();
    /// The wall clock was set, or the machine woke from sleep: the alarm must be set again.
    void clockSet();
};

/// The time zone the machine is in.
class LocalZone : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual Zone zone() const = 0;

signals:
    /// zone() returns another zone from now on.
    void changed();
};

struct AddRequest {
    NotificationRequest request;
};

struct RemoveRequests {
    QStringList identifiers;
};

struct RemoveAllRequests {};

/// One call that changes what is pending.
using Change = std::variant<AddRequest, RemoveRequests, RemoveAllRequests>;

/// Takes requests, and moves each into the outbox when the local wall clock reaches its minute.
///
/// A request for the minute that is running comes at once. One whose minute is over was missed,
/// whether the machine slept through it, nobody was logged in, or it was asked for too late: it
/// comes at once as well, unless a later reminder of its trial is due too or came, or it is no
/// longer worth showing (LateRule). A missed one that still waits in the outbox when a later one of
/// its trial joins it lapses. What came already for the same identifier and minute never comes
/// again.
///
/// Everything given is borrowed. One thread only.
class Scheduler final : public QObject {
    Q_OBJECT

public:
    /// How many requests are kept at the same time, pending ones and those in the outbox together:
    /// far more than anybody plans. It keeps a program that goes wrong from adding without end.
    static constexpr qint64 mostRequests = 150'000;

    /// What became of a change.
    enum class Outcome {
        Durable,  ///< It outlives a crash and a power cut.
        InMemory, ///< It is in effect, but is lost when this process ends.
        Refused   ///< There are too many requests already; nothing of it was kept.
    };

    Scheduler(Ledger &ledger, Alarm &alarm, const LocalZone &zone, const Clock &clock,
              qint64 requestLimit = mostRequests, QObject *parent = nullptr);

    /// Handles what was missed and sets the alarm. The ledger must be open. To be called again
    /// after another process has added to the ledger.
    void start();
    /// If the ledger is in memory, moves it back to its file if that is possible, and works out
    /// anew when everything is due.
    void goBackToDisk();

    /// Applies the changes in this order, in one transaction; one outcome for each.
    [[nodiscard]] std::vector<Outcome> apply(const std::vector<Change> &changes);

    /// Whether any request is pending. True as well when that cannot be read.
    [[nodiscard]] bool hasPending();

signals:
    /// The outbox may hold something new, or less than before.
    void outboxChanged();

private:
    void showDue();
    void recomputeDue();

    [[nodiscard]] bool execute(const Change &change);
    [[nodiscard]] bool add(const NotificationRequest &request);
    void setDueMoments();
    void moveDue();
    void lapseEarlier(const Ledger::Pending &next);
    void setAlarm();
    [[nodiscard]] std::chrono::sys_seconds now() const;

    Ledger &ledger_;
    Alarm &alarm_;
    const LocalZone &zone_;
    const Clock &clock_;
    const qint64 requestLimit_;
    qint64 requestsAtMost_ = 0; ///< While changes are applied: an upper bound of what is kept.
};

} // namespace norvane

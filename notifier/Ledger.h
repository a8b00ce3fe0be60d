// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/LedgerStorage.h"
#include "platform/NotificationRequest.h"

#include <QString>
#include <QStringList>
#include <QVariantList>

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace norvane {

/// A request whose minute has come, on its way to the screen.
struct OutboxEntry {
    NotificationRequest request;
    std::chrono::sys_seconds due; ///< When its minute began.
};

/// What the notification centre remembers: what is pending, what waits for the screen (the
/// outbox), and what was delivered lately.
///
/// Changed only inside transact(). Needs a QCoreApplication; one thread only.
class Ledger final {
public:
    /// A pending request without its texts.
    struct Pending {
        qint64 number;
        QString identifier;
        WallClockMinute trigger;
        std::chrono::sys_seconds due;
    };

    /// Nothing is touched before open(). The folder is the ledger's own. `leftDisk` is called each
    /// time that memory takes the place of the file.
    explicit Ledger(
        const QString &folder, std::function<void()> leftDisk = [] {});

    /// See LedgerStorage for these.
    [[nodiscard]] bool open(std::chrono::milliseconds timeout = std::chrono::seconds{3})
    {
        return storage_.open(timeout);
    }
    LedgerStorage::Outcome transact(const std::function<void()> &work)
    {
        return storage_.transact(work);
    }
    [[nodiscard]] bool isOnDisk() const { return storage_.isOnDisk(); }
    [[nodiscard]] bool goBackToDisk() { return storage_.goBackToDisk(); }
    [[nodiscard]] bool handOver() { return storage_.handOver(); }
    void checkFile() { storage_.checkFile(); }
    void shrinkMemory() { storage_.shrinkMemory(); }

    // Pending requests that may still come, and changes of them.
    /// Ordered by trigger; nothing when they cannot be read.
    [[nodiscard]] std::optional<std::vector<NotificationRequest>> pending();
    /// The bytes of UTF-8 in the texts of all pending requests; nothing when they cannot be read.
    [[nodiscard]] std::optional<qint64> pendingSize();
    /// True as well when that cannot be read.
    [[nodiscard]] bool hasPending();
    /// Whether there is a request of this identifier that is pending, or lapsed.
    [[nodiscard]] bool isPending(const QString &identifier);
    /// How many requests there are: pending, lapsed and in the outbox.
    [[nodiscard]] qint64 count();
    [[nodiscard]] std::optional<std::chrono::sys_seconds> earliestDue();
    [[nodiscard]] std::vector<Pending> dueAt(std::chrono::sys_seconds now); ///< In order of due.
    /// Replaces a pending request with the same identifier.
    void add(const NotificationRequest &request, std::chrono::sys_seconds due);
    void removeAllPending();
    void removePending(qint64 number);
    void moveToOutbox(qint64 number);

    // Requests that came too late to be worth showing. They are kept, but are no longer pending.
    void lapse(qint64 number, std::chrono::sys_seconds now);
    /// The same for one that waits in the outbox, unless another of its identifier is pending.
    void lapseWaiting(const NotificationRequest &request, std::chrono::sys_seconds now);
    /// Those that lapsed because the clock was wrong are pending again: what is due later than
    /// `now`, and what lapsed at a moment later than `now`.
    void reviveLapsed(std::chrono::sys_seconds now);

    // Everything that has a due moment, lapsed requests included: for a change of zone.
    [[nodiscard]] std::vector<Pending> allWithDue();
    void setDue(qint64 number, std::chrono::sys_seconds due);

    // The outbox and what went through it. A request is known there by identifier and trigger.
    [[nodiscard]] std::optional<OutboxEntry> outboxHead()
    {
        return firstInOutbox([](const OutboxEntry &) { return true; });
    }
    /// False as well when that cannot be read.
    [[nodiscard]] bool isOutboxEmpty();
    /// The first in order that is accepted; nothing as well when they cannot be read.
    [[nodiscard]] std::optional<OutboxEntry>
    firstInOutbox(const std::function<bool(const OutboxEntry &)> &accept);
    void removeFromOutbox(const NotificationRequest &request);
    void rememberDelivered(const NotificationRequest &request, std::chrono::sys_seconds now);
    /// Whether a request of this identifier and minute is in the outbox or was delivered lately.
    [[nodiscard]] bool cameAlready(const QString &identifier, const WallClockMinute &trigger);
    /// The same for a request of the same trial and a later minute.
    [[nodiscard]] bool laterCame(const QString &identifier, const WallClockMinute &trigger);
    /// Those of the same trial and an earlier minute that wait in the outbox.
    [[nodiscard]] std::vector<OutboxEntry> earlierWaiting(const QString &identifier,
                                                          const WallClockMinute &trigger);
    /// Forgets what was delivered, or lapsed, before this moment.
    void forgetBefore(std::chrono::sys_seconds moment);
    /// Forgets what was delivered after this moment, which lies ahead: the clock was wrong then.
    void forgetDeliveredAfter(std::chrono::sys_seconds moment);

    /// Removes what has one of these identifiers, from the pending requests and from the outbox.
    void remove(const QStringList &identifiers);

private:
    void forEach(const QString &statement, const QVariantList &values,
                 const std::function<bool(const QSqlQuery &row)> &take);
    [[nodiscard]] std::vector<Pending> listed(const QString &statement,
                                              const QVariantList &values = {});
    [[nodiscard]] std::optional<qint64> firstNumber(const QString &statement,
                                                    const QVariantList &values = {});

    LedgerStorage storage_;
};

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/LedgerDisk.h"
#include "notifier/OutboxEntry.h"
#include "platform/NotificationRequest.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace norvane {

/// The notification centre's memory: what is pending, what waits for the screen (the outbox), and
/// what was delivered lately.
///
/// Kept in one SQLite file, changed only inside transact(). When the file cannot be written (no
/// space, no permission) the ledger works on a copy in memory, and goes back to the file with the
/// first transaction that finds it writable again. Needs a QCoreApplication; one thread only.
class Ledger final {
public:
    enum class Outcome {
        Durable, ///< The changes outlive a crash and a power cut.
        InMemory ///< The changes count, but only while this process lives.
    };
    /// A pending request without its texts.
    struct Pending {
        qint64 number;
        QString identifier;
        WallClockMinute trigger;
        std::chrono::sys_seconds due;
    };

    /// Nothing is touched before open(). The folder is the ledger's own.
    explicit Ledger(const QString &folder);
    Ledger(const Ledger &) = delete;
    Ledger &operator=(const Ledger &) = delete;
    ~Ledger();

    void open();
    /// Applies the changes that `work` makes, all of them or none. It may be called a second time,
    /// when the first attempt came to nothing on disk.
    Outcome transact(const std::function<void()> &work);
    /// Lets go of memory that is only there to be faster the next time.
    void relax();

    // Pending requests that may still come, and changes of them.
    [[nodiscard]] std::vector<NotificationRequest> pending(); ///< Ordered by trigger.
    [[nodiscard]] std::optional<std::chrono::sys_seconds> earliestDue();
    [[nodiscard]] std::vector<Pending> dueAt(std::chrono::sys_seconds now); ///< In order of due.
    /// Replaces a pending request with the same identifier.
    void add(const NotificationRequest &request, std::chrono::sys_seconds due);
    void removeAllPending();
    void drop(qint64 number);
    void moveToOutbox(qint64 number);

    // Requests that came too late to be worth showing. They no longer count as pending.
    void lapse(qint64 number, std::chrono::sys_seconds now);
    /// Those that lie ahead after all, because the clock was wrong when they lapsed, pend again.
    void reviveLapsed(std::chrono::sys_seconds now);

    // Everything that has a due moment, lapsed requests included: for a change of zone.
    [[nodiscard]] std::vector<Pending> allWithDue();
    void setDue(qint64 number, std::chrono::sys_seconds due);

    // The outbox and what went through it.
    [[nodiscard]] std::optional<OutboxEntry> outboxHead();
    void strike(qint64 number);
    void rememberDelivered(const NotificationRequest &request, std::chrono::sys_seconds now);
    /// Whether a request of this identifier and minute is in the outbox or was delivered lately.
    [[nodiscard]] bool cameAlready(const QString &identifier, const WallClockMinute &trigger);
    /// Forgets what was delivered, or lapsed, before this moment.
    void forgetBefore(std::chrono::sys_seconds moment);

    /// Removes what has one of these identifiers, from the pending requests and from the outbox.
    void remove(const QStringList &identifiers);

private:
    [[nodiscard]] bool attempt(const std::function<void()> &work);
    void fallBackToMemory();
    [[nodiscard]] bool returnToDisk();
    bool execute(const QString &statement);
    /// The statement, prepared once, with these values bound and executed. finish() it after use.
    QSqlQuery &run(const QString &statement, const QVariantList &values = {});
    void change(const QString &statement, const QVariantList &values = {});
    [[nodiscard]] std::vector<Pending> listed(const QString &statement,
                                              const QVariantList &values = {});

    const LedgerDisk disk_;
    const QString connection_;
    QSqlDatabase database_; ///< An empty one in memory, with the file attached to it.
    std::map<QString, QSqlQuery> statements_;
    bool onDisk_ = false;
    bool holdsAll_ = false; ///< Away from the disk: all that the file held is in memory.
    bool failed_ = false;   ///< A statement of the running transaction came to nothing.
};

} // namespace norvane

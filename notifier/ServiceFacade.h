// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/Scheduler.h"
#include "platform/bus/PendingRequest.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QTimer>

#include <optional>
#include <variant>
#include <vector>

namespace norvane {

/// The notification centre as the bus sees it: checks what comes in, and answers.
///
/// Changes are collected while calls keep coming and written in one transaction; each call is
/// answered after that. The error busNames::storageError means that the change is kept in memory
/// only. Calls that change nothing wait in the same queue, because a client takes the answer to its
/// last call for the confirmation of all before it.
///
/// A removal of very many identifiers is applied in slices, with a turn of the event loop between
/// them. Later calls of the same caller wait for its end, those of other callers do not.
class ServiceFacade final : public QObject, protected QDBusContext {
    Q_OBJECT

public:
    ServiceFacade(Scheduler &scheduler, Ledger &ledger, QDBusConnection bus,
                  QObject *parent = nullptr);
    ~ServiceFacade() override;

    bool RequestAuthorization(uint options);
    void AddRequest(const QString &identifier, const QString &title, const QString &body,
                    const QString &sound, const QString &trigger);
    void RemovePendingRequests(const QStringList &identifiers);
    void RemoveAllPendingRequests();
    PendingRequestList PendingRequests();

    /// Whether calls wait for their answers.
    [[nodiscard]] bool isBusy() const { return !calls_.empty(); }
    /// Writes and answers all that was collected so far.
    void writeAll();

signals:
    void called();

private:
    struct ListPending {};
    using Work = std::variant<Change, ListPending, QDBusMessage>; ///< The last is a ready answer.
    struct Call {
        QDBusMessage message; ///< Without its arguments.
        Work work;
        qsizetype done = 0; ///< Of the identifiers of a removal.
    };
    /// What one transaction applies, the calls that it ends, and the calls that wait for the next.
    struct Round {
        std::vector<Change> changes;
        /// For each change: the call to answer; nothing when the change is only a slice of it.
        std::vector<std::optional<Call>> ended;
        std::vector<Call> others; ///< Calls that change nothing.
        std::vector<Call> left;
    };

    [[nodiscard]] bool isRefused(QLatin1StringView argument, const QString &text);
    void refuse(const QString &reason);
    void collect(Work work);
    void write();
    [[nodiscard]] Round nextRound();
    void answer(const Call &call);
    void answerList(const QDBusMessage &call);
    void answer(const QDBusMessage &call, Scheduler::Outcome outcome);
    void reply(const QDBusMessage &call, const QDBusMessage &answer);

    Scheduler &scheduler_;
    Ledger &ledger_;
    QDBusConnection
        bus_;      ///< Answers are sent when QDBusContext::connection() is not valid any more.
    QTimer pause_; ///< Runs while calls are collected.
    std::vector<Call> calls_;
};

} // namespace norvane

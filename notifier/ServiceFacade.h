// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/Change.h"
#include "platform/bus/PendingRequest.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QTimer>

#include <vector>

namespace norvane {

class Scheduler;

/// The notification centre as the bus sees it: checks what comes in, and answers.
///
/// Changes are collected while calls keep coming and written in one go; each call is answered once
/// its change is durable. An answer that it is not (StorageError) means: kept in memory only.
class ServiceFacade final : public QObject, protected QDBusContext {
    Q_OBJECT

public:
    ServiceFacade(Scheduler &scheduler, QDBusConnection bus, QObject *parent = nullptr);
    ~ServiceFacade() override;

    bool RequestAuthorization(uint options);
    void AddRequest(const QString &identifier, const QString &title, const QString &body,
                    const QString &sound, const QString &trigger);
    void RemovePendingRequests(const QStringList &identifiers);
    void RemoveAllPendingRequests();
    PendingRequestList PendingRequests();

    /// Whether calls wait for their answers.
    [[nodiscard]] bool isBusy() const { return !changes_.empty(); }
    /// Writes and answers what was collected so far.
    void write();

signals:
    void called();

private:
    [[nodiscard]] bool isRefused(QLatin1StringView argument, const QString &text);
    void refuse(const QString &reason);
    void collect(Change change);

    Scheduler &scheduler_;
    QDBusConnection bus_; ///< Answers go out after the calls, when Qt no longer knows the caller's.
    QTimer pause_;        ///< Runs while calls are collected.
    std::vector<Change> changes_;
    std::vector<QDBusMessage> calls_; ///< Those of them whose callers want an answer.
};

} // namespace norvane

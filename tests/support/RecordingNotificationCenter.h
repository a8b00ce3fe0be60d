// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationCenter.h"

#include <QList>
#include <QMap>

namespace norvane {

/// A notification centre in memory: keeps what is pending, and a line for each operation in order.
///
/// Has no lock: where operations come from another thread, join that thread before looking.
class RecordingNotificationCenter final : public NotificationCenter {
public:
    void requestAuthorization(Options options) override
    {
        note(QStringLiteral("authorize %1").arg(options.toInt()));
    }
    void addNotificationRequest(const NotificationRequest &request) override
    {
        note(QStringLiteral("add ") + request.identifier);
        requests_.append(request);
        pending_.insert(request.identifier, request);
    }
    void removePendingNotificationRequests(const QStringList &identifiers) override
    {
        note(QStringLiteral("remove ") + identifiers.join(u' '));
        for (const QString &identifier : identifiers) {
            pending_.remove(identifier);
        }
    }
    void removeAllPendingNotificationRequests() override
    {
        note(QStringLiteral("remove all"));
        pending_.clear();
    }

    /// "authorize 6", "add <identifier>", "remove <identifiers>" and "remove all".
    [[nodiscard]] const QStringList &operations() const noexcept { return operations_; }
    /// Every request ever added, in order.
    [[nodiscard]] const QList<NotificationRequest> &requests() const noexcept { return requests_; }
    [[nodiscard]] const QMap<QString, NotificationRequest> &pending() const noexcept
    {
        return pending_;
    }

    /// Forgets what was recorded; what is pending stays.
    void forget()
    {
        operations_.clear();
        requests_.clear();
    }

private:
    void note(const QString &operation) { operations_.append(operation); }

    QStringList operations_;
    QList<NotificationRequest> requests_;
    QMap<QString, NotificationRequest> pending_;
};

} // namespace norvane

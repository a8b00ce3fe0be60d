// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationRequest.h"

#include <QFlags>
#include <QStringList>

namespace norvane {

/// Keeps notification requests until their time has come, also while Norvane is not running.
///
/// Every operation returns at once and reports nothing back: what becomes of it is the centre's
/// affair. Operations take effect in the order in which they were called. All of them may be
/// called from any thread.
class NotificationCenter {
public:
    /// What to ask permission for. The numbers are those of the contract on the bus.
    enum class Option : quint32 { Badge = 1, Sound = 2, Alert = 4 };
    Q_DECLARE_FLAGS(Options, Option)

    NotificationCenter() = default;
    NotificationCenter(const NotificationCenter &) = delete;
    NotificationCenter &operator=(const NotificationCenter &) = delete;
    virtual ~NotificationCenter() = default;

    /// Asks for permission to notify; the answer is not awaited.
    virtual void requestAuthorization(Options options) = 0;
    /// Adds a request; a pending one with the same identifier is replaced.
    virtual void addNotificationRequest(const NotificationRequest &request) = 0;
    /// Drops the pending requests with these identifiers; unknown ones are ignored.
    virtual void removePendingNotificationRequests(const QStringList &identifiers) = 0;
    /// Drops every pending request of Norvane. What was shown already stays.
    virtual void removeAllPendingNotificationRequests() = 0;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(NotificationCenter::Options)

} // namespace norvane

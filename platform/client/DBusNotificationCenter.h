// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationCenter.h"

#include <QThread>
#include <QVariantList>

#include <atomic>
#include <memory>

namespace norvane {

class BusSender;

/// The notification centre as a client of org.norvane.NotificationCenter on the session bus.
///
/// Works on a thread of its own, so that neither connecting nor a bus that hangs ever holds up the
/// caller. The caller is never told of a failure; one line on standard error tells of a centre that
/// does not start. Requests that the contract refuses are not sent. Destroying it waits until the
/// centre has confirmed what was handed over: a second at most, or five when the centre is being
/// started.
class DBusNotificationCenter final : public NotificationCenter {
public:
    enum class Connect { AtOnce, WhenToldWhere };

    /// `fallbackProgram` is the notifier to start where the bus cannot start one; may be empty.
    explicit DBusNotificationCenter(const QString &fallbackProgram = {},
                                    Connect connect = Connect::AtOnce);
    ~DBusNotificationCenter() override;

    /// Where the session bus is, for WhenToldWhere: until then, calls are kept.
    void setBusAddress(const QString &address);

    void requestAuthorization(Options options) override;
    void addNotificationRequest(const NotificationRequest &request) override;
    void removePendingNotificationRequests(const QStringList &identifiers) override;
    void removeAllPendingNotificationRequests() override;

private:
    void post(const QString &method, const QVariantList &arguments);

    std::shared_ptr<std::atomic<bool>> takesLonger_; ///< To end; shared with the sender.
    std::unique_ptr<QThread> thread_;
    std::unique_ptr<BusSender> sender_; ///< Lives on the thread.
};

} // namespace norvane

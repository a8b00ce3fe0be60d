// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationCenter.h"

#include <QThread>
#include <QVariantList>

#include <memory>

namespace norvane {

class BusSender;

/// The notification centre as a client of org.norvane.NotificationCenter on the session bus.
///
/// Works on a thread of its own, so that neither connecting nor a stuck bus ever holds up the
/// caller; no bus or no service means silence. Its end waits until the bus has what was handed
/// over, a second at most.
class DBusNotificationCenter final : public NotificationCenter {
public:
    /// `standIn` is started where no notification centre is installed; may be empty.
    explicit DBusNotificationCenter(const QString &standIn = {});
    ~DBusNotificationCenter() override;

    void requestAuthorization(Options options) override;
    void addNotificationRequest(const NotificationRequest &request) override;
    void removePendingNotificationRequests(const QStringList &identifiers) override;
    void removeAllPendingNotificationRequests() override;

private:
    void post(const QString &method, const QVariantList &arguments);

    std::unique_ptr<QThread> thread_;
    std::unique_ptr<BusSender> sender_; ///< Lives on the thread.
};

} // namespace norvane

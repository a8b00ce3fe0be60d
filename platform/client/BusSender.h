// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDeadlineTimer>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QVariantList>

#include <memory>
#include <vector>

class NotificationCenterProxy;

namespace norvane {

/// Sends calls to the notification centre over a session bus connection of its own.
///
/// Lives on one thread, whose event loop must run. Calls wait while the centre is being started,
/// because a bus keeps only so many messages for a program on its way up; after that, and also
/// when it could not be started, they go out in the order in which they came and no answer is
/// asked for. Without a bus they vanish.
class BusSender final : public QObject {
    Q_OBJECT

public:
    struct Call {
        QString method;
        QVariantList arguments;
    };

    /// `standIn` is the path of the program to start where none is installed; may be empty.
    explicit BusSender(QString standIn = {});
    ~BusSender() override;

    /// Connects at the first call, and has the centre started where it is not known to run.
    void send(const Call &call);
    /// Waits for a centre that is being started, sends what still waits, and returns when the bus
    /// has received everything, or at the deadline.
    void flush(const QDeadlineTimer &deadline);

signals:
    /// The centre is up, or will not be.
    void settled();

private:
    void connectToBus();
    void startCenter();
    [[nodiscard]] bool isUp() const;
    void startStandIn();
    void started(bool up);
    void sendWaiting();

    const QString standIn_;
    const QString connectionName_; ///< Its own: under one name all get the same connection.
    std::unique_ptr<NotificationCenterProxy> proxy_; ///< None until the first call, or without bus.
    std::unique_ptr<QDBusServiceWatcher> watcher_;
    std::vector<Call> waiting_;
    QTimer patience_; ///< Runs while the stand-in has not taken the name.
    bool triedToConnect_ = false;
    bool starting_ = false;
    bool ready_ = false; ///< Calls may go out at once.
};

} // namespace norvane

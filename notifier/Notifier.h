// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/Courier.h"
#include "notifier/DesktopNotificationServer.h"
#include "notifier/IdleWatch.h"
#include "notifier/Ledger.h"
#include "notifier/Scheduler.h"
#include "notifier/ServiceFacade.h"
#include "notifier/SystemZone.h"
#include "notifier/WallClockTimer.h"
#include "platform/Clock.h"

#include <QDBusConnection>
#include <QObject>
#include <QTimer>

#include <chrono>

namespace norvane {

/// The notification centre, put together: one on each session bus. Of several that would share a
/// ledger, for a user with several buses, the first has it and the others work from memory.
class Notifier final : public QObject {
    Q_OBJECT

public:
    struct Settings {
        QString folder;                      ///< Where the ledger lies.
        std::chrono::milliseconds lingering; ///< How long to stay with nothing to do.
        std::chrono::milliseconds patience;  ///< How long a notification server may take.
        Courier::Pauses pauses;              ///< Between attempts to deliver.
    };

    Notifier(const QDBusConnection &bus, const Clock &clock, const Settings &settings);

    /// Takes the name on the bus, and only then touches disk and clock; missed reminders are worked
    /// through before the first call is. False, after a line on standard error, when the name
    /// cannot be had (then nothing was touched) or there is no SQLite to work with.
    [[nodiscard]] bool start();
    /// Writes what came in so far, and is finished.
    void end();

signals:
    void finished();

private slots:
    void leave();
    void busGone();

private:
    [[nodiscard]] bool claimName();
    void stir();
    void settle();
    void save();
    [[nodiscard]] bool isBusy();
    [[nodiscard]] bool passOn();

    QDBusConnection bus_;
    Ledger ledger_;
    WallClockTimer timer_;
    SystemZone zone_;
    DesktopNotificationServer server_;
    Scheduler scheduler_;
    Courier courier_;
    ServiceFacade facade_;
    IdleWatch idleWatch_;
    QTimer rest_;       ///< Ends when work has stopped for a moment.
    QTimer backToDisk_; ///< Runs while the ledger is in memory only.
};

} // namespace norvane

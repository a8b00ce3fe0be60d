// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/Courier.h"
#include "notifier/DesktopNotificationServer.h"
#include "notifier/Ledger.h"
#include "notifier/Scheduler.h"
#include "notifier/ServiceFacade.h"
#include "notifier/SystemZone.h"
#include "notifier/WallClockTimer.h"
#include "platform/Clock.h"

#include <QDBusConnection>
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <chrono>

namespace norvane {

/// Assembles the notification centre, of which there is one on each session bus. A user with
/// several session buses has several notifiers and one ledger file: the first notifier uses the
/// file, the others work in memory. When one of the others ends, it adds its requests to the file;
/// when the first ends, another one takes over the file.
class Notifier final : public QObject {
    Q_OBJECT

public:
    struct Settings {
        QString folder; ///< Of the ledger.
        /// How long to stay with nothing to do.
        std::chrono::milliseconds idleTimeout{60'000};
        /// How long a notification server may take before it counts as hung.
        std::chrono::milliseconds serverTimeout{10'000};
        /// Between attempts to return to a disk that could not be written.
        std::chrono::milliseconds diskRetryPause{30'000};
        Courier::Pauses pauses{}; ///< Between attempts to deliver.
    };

    enum class End {
        Done,   ///< There was nothing left to do, or end() was called.
        BusLost ///< The connection to the session bus is gone.
    };

    Notifier(const QDBusConnection &bus, const Clock &clock, const Settings &settings);

    /// Takes the name on the bus, and only then touches disk and clock; missed reminders are worked
    /// through before the first call is. False, after a line on standard error, when the bus or
    /// another notifier does not let it have its place on the bus (then nothing was touched), or
    /// there is no SQLite to work with.
    [[nodiscard]] bool start();
    /// Writes what came in so far, and is finished. A reminder that was just handed to the server
    /// is waited for up to a second: without the answer, it would be shown again at the next start.
    void end();

signals:
    /// Only the first one counts: what comes after it was on its way already.
    void finished(norvane::Notifier::End end);

private slots:
    void leaveIfIdle();
    void busLost();

private:
    [[nodiscard]] bool claimName();
    void leftDisk();
    void ledgerFolderChanged();
    void callCame();
    void giveBackMemory();
    void openNorvane(const QString &activationToken);
    void save();
    void saveAndFinish();
    [[nodiscard]] bool isBusy();
    [[nodiscard]] bool startSuccessor();

    QDBusConnection bus_;
    const QString folder_; ///< Of the ledger.
    Ledger ledger_;
    WallClockTimer timer_;
    SystemZone zone_;
    DesktopNotificationServer server_;
    Scheduler scheduler_;
    Courier courier_;
    ServiceFacade facade_;
    QFileSystemWatcher ledgerFolder_; ///< Another process may hand over what it held in memory.
    QTimer idle_;           ///< Restarted by all that happens; its end is the time to leave.
    QTimer burstEnd_;       ///< Ends when calls have stopped for a moment.
    QTimer backToDisk_;     ///< Runs while the ledger is in memory only.
    bool isEnding_ = false; ///< end() was called.
};

} // namespace norvane

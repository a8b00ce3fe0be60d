// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Notifier.h"

#include "platform/bus/BusNames.h"
#include "platform/session/SpareMemory.h"

#include <QDBusConnectionInterface>

namespace norvane {

namespace {

/// Bursts of calls come closer together than this.
constexpr std::chrono::milliseconds betweenBursts{500};

/// How long an end waits for the notification server's answer.
constexpr std::chrono::seconds lastAnswerTimeout{1};

} // namespace

Notifier::Notifier(const QDBusConnection &bus, const Clock &clock, const Settings &settings)
    : bus_{bus},
      folder_{settings.folder},
      ledger_{settings.folder, [this] { leftDisk(); }},
      server_{bus, settings.serverTimeout},
      scheduler_{ledger_, timer_, zone_, clock},
      courier_{ledger_, server_, clock, settings.pauses},
      facade_{scheduler_, ledger_, bus}
{
    connect(&scheduler_, &Scheduler::outboxChanged, &courier_, &Courier::deliver);
    connect(&facade_, &ServiceFacade::called, this, &Notifier::callCame);
    connect(&courier_, &Courier::emptied, this, &Notifier::callCame);
    connect(&server_, &NotificationServer::screenCleared, this, &Notifier::callCame);
    connect(&server_, &NotificationServer::clicked, this, &Notifier::openNorvane);
    connect(&ledgerFolder_, &QFileSystemWatcher::directoryChanged, this,
            &Notifier::ledgerFolderChanged);
    burstEnd_.setSingleShot(true);
    burstEnd_.setInterval(betweenBursts);
    connect(&burstEnd_, &QTimer::timeout, this, &Notifier::giveBackMemory);
    backToDisk_.setInterval(settings.diskRetryPause);
    connect(&backToDisk_, &QTimer::timeout, this, [this] {
        scheduler_.goBackToDisk();
        if (ledger_.isOnDisk()) {
            backToDisk_.stop();
            ledgerFolderChanged();
        }
    });
    idle_.setSingleShot(true);
    idle_.setInterval(settings.idleTimeout);
    connect(&idle_, &QTimer::timeout, this, &Notifier::leaveIfIdle);
}

bool Notifier::start()
{
    if (!bus_.connect(QString{}, QStringLiteral("/org/freedesktop/DBus/Local"),
                      QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                      this, SLOT(busLost()))) {
        qCritical("The end of the session bus cannot be listened for.");
        return false;
    }
    if (!bus_.registerObject(busNames::notificationCenterPath, &facade_)) {
        qCritical("The object of the notification centre cannot be put on the session bus.");
        return false;
    }
    if (!claimName()) {
        qCritical("%s is taken on this session bus: another norvane-notifier runs already.",
                  qUtf8Printable(busNames::notificationCenter));
        return false;
    }
    if (!ledger_.open()) {
        qCritical("Qt's SQLite driver is missing; reminders cannot be kept.");
        return false;
    }
    zone_.watch();
    ledgerFolderChanged();
    callCame();
    return true;
}

bool Notifier::claimName()
{
    return bus_.interface()->registerService(busNames::notificationCenter,
                                             QDBusConnectionInterface::DontQueueService,
                                             QDBusConnectionInterface::DontAllowReplacement) ==
           QDBusConnectionInterface::ServiceRegistered;
}

void Notifier::leftDisk()
{
    backToDisk_.start();
    // The file may have been moved away with its folder, and be written anew in another one by now.
    QMetaObject::invokeMethod(this, &Notifier::ledgerFolderChanged, Qt::QueuedConnection);
}

/// Works through what the file holds, and watches for what another process adds to it.
void Notifier::ledgerFolderChanged()
{
    // A watch stays with the folder that it was made for, also when another one has its path now.
    const auto watch = [this] {
        ledgerFolder_.removePath(folder_);
        return ledgerFolder_.addPath(folder_);
    };
    const bool isWatched = watch(); // First, so that nothing is added unnoticed.
    scheduler_.start();             // A folder that was removed is made anew.
    if (!isWatched && !watch()) {
        qWarning("What another norvane-notifier hands over will be noticed late.");
    }
}

bool Notifier::isBusy()
{
    return scheduler_.hasPending() || !courier_.isOutboxEmpty() || server_.isShowing() ||
           facade_.isBusy();
}

void Notifier::callCame()
{
    idle_.start();
    burstEnd_.start();
}

void Notifier::giveBackMemory()
{
    ledger_.shrinkMemory();
    giveBackSpareMemory();
}

/// Writes everything that came in to the file, or adds it there when another process uses the file.
/// Reminders that are due stay in the file for the next process: delivering them now could show
/// them twice.
void Notifier::save()
{
    courier_.hold();
    facade_.writeAll();
    scheduler_.goBackToDisk();
    ledger_.checkFile();
    if (!ledger_.isOnDisk() && !ledger_.handOver()) {
        courier_.release();
    }
}

void Notifier::leaveIfIdle()
{
    if (isBusy()) {
        return; // The end of what keeps it busy restarts the timer.
    }
    // Without the name no further call can come; those sent before are here by now and are served.
    bus_.interface()->unregisterService(busNames::notificationCenter);
    QMetaObject::invokeMethod(
        this,
        [this] {
            save();
            // A successor finds only what is in the file.
            if (isBusy() && !(ledger_.isOnDisk() && startSuccessor()) && claimName()) {
                courier_.release(); // The end of what keeps it busy restarts the timer.
            } else {
                emit finished(End::Done);
            }
        },
        Qt::QueuedConnection);
}

/// Has the bus start a successor for the calls that came at the last moment. A process that a
/// service manager runs must not take its name back instead: the manager ends a service that has
/// released its name. False where nothing is installed that the bus could start.
bool Notifier::startSuccessor()
{
    QDBusConnectionInterface *const bus = bus_.interface();
    // Not waited for: the successor may not start before this process is gone.
    bus->asyncCall(QStringLiteral("StartServiceByName"), busNames::notificationCenter, 0U);
    return bus->activatableServiceNames().value().contains(busNames::notificationCenter);
}

/// The bus starts Norvane where it does not run. Whether that succeeds is for the user to see.
void Notifier::openNorvane(const QString &activationToken)
{
    QVariantMap platformData;
    if (!activationToken.isEmpty()) {
        platformData.insert(QStringLiteral("activation-token"), activationToken);
    }
    QDBusMessage activate = QDBusMessage::createMethodCall(
        busNames::application, busNames::applicationPath,
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    activate << platformData;
    bus_.asyncCall(activate);
}

void Notifier::end()
{
    isEnding_ = true;
    courier_.hold();
    if (!courier_.isDelivering()) {
        saveAndFinish();
        return;
    }
    connect(&courier_, &Courier::answered, this, &Notifier::saveAndFinish,
            Qt::SingleShotConnection);
    QTimer::singleShot(lastAnswerTimeout, this, &Notifier::saveAndFinish);
}

void Notifier::saveAndFinish()
{
    save();
    emit finished(End::Done);
}

void Notifier::busLost()
{
    qWarning("The session bus is gone. What is pending stays on disk.");
    save();
    emit finished(isEnding_ ? End::Done : End::BusLost);
}

} // namespace norvane

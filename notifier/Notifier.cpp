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
      ledger_{settings.folder, [this] { backToDisk_.start(); }},
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
    connect(&ledgerFolder_, &QFileSystemWatcher::directoryChanged, &scheduler_, &Scheduler::start);
    burstEnd_.setSingleShot(true);
    burstEnd_.setInterval(betweenBursts);
    connect(&burstEnd_, &QTimer::timeout, this, &Notifier::giveBackMemory);
    backToDisk_.setInterval(settings.diskRetryPause);
    connect(&backToDisk_, &QTimer::timeout, this, [this] {
        scheduler_.goBackToDisk();
        if (ledger_.isOnDisk()) {
            backToDisk_.stop();
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
    if (!ledgerFolder_.addPath(folder_)) {
        qWarning("What another norvane-notifier hands over will be noticed late.");
    }
    scheduler_.start();
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

bool Notifier::isBusy()
{
    return scheduler_.hasPending() || !courier_.isEmpty() || server_.isShowing() ||
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

/// All that came in goes to the file, as far as that can be, or to the process that uses it. What
/// is due waits there for the next process: handing it out now could show it twice.
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

/// Has the bus start a successor for the calls that came at the last moment. This process cannot
/// take its name back and stay: a service manager ends a service that let go of its name. False
/// where nothing is installed to be started.
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
    emit finished(End::BusLost);
}

} // namespace norvane

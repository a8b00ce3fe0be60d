// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Notifier.h"

#include "notifier/SpareMemory.h"
#include "platform/bus/BusNames.h"

#include <QDBusConnectionInterface>

namespace norvane {

namespace {

/// Bursts of calls come closer together than this.
constexpr std::chrono::milliseconds restAfter{500};

/// A disk that was full may have room again.
constexpr std::chrono::seconds tryingDiskAfter{30};

} // namespace

Notifier::Notifier(const QDBusConnection &bus, const Clock &clock, const Settings &settings)
    : bus_{bus},
      ledger_{settings.folder, [this] { backToDisk_.start(); }},
      server_{bus, settings.patience},
      scheduler_{ledger_, timer_, zone_, clock},
      courier_{ledger_, server_, clock, settings.pauses},
      facade_{scheduler_, bus},
      idleWatch_{settings.lingering, [this] { return isBusy(); }}
{
    connect(&scheduler_, &Scheduler::outboxChanged, &courier_, &Courier::deliver);
    connect(&facade_, &ServiceFacade::called, this, &Notifier::stir);
    connect(&courier_, &Courier::emptied, this, &Notifier::stir);
    connect(&server_, &NotificationServer::screenCleared, this, &Notifier::stir);
    rest_.setSingleShot(true);
    rest_.setInterval(restAfter);
    connect(&rest_, &QTimer::timeout, this, &Notifier::settle);
    backToDisk_.setInterval(tryingDiskAfter);
    connect(&backToDisk_, &QTimer::timeout, this, [this] {
        scheduler_.goBackToDisk();
        if (ledger_.isOnDisk()) {
            backToDisk_.stop();
        }
    });
    connect(&idleWatch_, &IdleWatch::idle, this, &Notifier::leave);
}

bool Notifier::start()
{
    bus_.connect(QString{}, QStringLiteral("/org/freedesktop/DBus/Local"),
                 QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                 SLOT(busGone()));
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
    scheduler_.start();
    stir();
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

void Notifier::stir()
{
    idleWatch_.stir();
    rest_.start();
}

void Notifier::settle()
{
    ledger_.relax();
    giveBackSpareMemory();
}

/// All that came in goes to the file, as far as that can be. What is due waits there for the next
/// process, which would show it a second time.
void Notifier::save()
{
    courier_.hold();
    facade_.write();
    scheduler_.goBackToDisk();
    if (!ledger_.isOnDisk()) {
        courier_.release();
    }
}

void Notifier::leave()
{
    // Without the name no further call can come; those sent before are here by now and are served.
    bus_.interface()->unregisterService(busNames::notificationCenter);
    QMetaObject::invokeMethod(
        this,
        [this] {
            save();
            // What is in memory only, no successor would find.
            if (isBusy() && !(ledger_.isOnDisk() && passOn()) && claimName()) {
                courier_.release();
                stir();
            } else {
                emit finished();
            }
        },
        Qt::QueuedConnection);
}

/// Has the bus start a successor for what came in at the last moment. One that let go of its name
/// cannot stay itself: a service manager ends it. False where nothing is installed to be started.
bool Notifier::passOn()
{
    QDBusConnectionInterface *const bus = bus_.interface();
    // Not waited for: the successor may not start before this process is gone.
    bus->asyncCall(QStringLiteral("StartServiceByName"), busNames::notificationCenter, 0U);
    return bus->activatableServiceNames().value().contains(busNames::notificationCenter);
}

void Notifier::end()
{
    save();
    emit finished();
}

void Notifier::busGone()
{
    qWarning("The session bus is gone; so is norvane-notifier. What is pending stays on disk.");
    end();
}

} // namespace norvane

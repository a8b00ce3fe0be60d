// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Notifier.h"
#include "platform/bus/BusNames.h"
#include "platform/session/SpareMemory.h"
#include "platform/session/StopSignals.h"
#include "platform/session/SystemClock.h"
#include "platform/session/XdgFolders.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QFile>

#include <chrono>
#include <cstdlib>
#include <optional>
#include <thread>

#include <sysexits.h>
#include <unistd.h>

namespace {

using namespace norvane;

const QString connectionName = QStringLiteral("notifier");

/// Before it connects again. A bus that loses one connection after the other must not keep the
/// machine busy.
constexpr std::chrono::seconds reconnectPause{1};

struct Arguments {
    bool activate = false;
    std::chrono::seconds lingering{60};
};

/// Nothing when they make no sense. Help and version are printed here, and end the program.
std::optional<Arguments> read(const QCoreApplication &application)
{
    const QCommandLineOption activate{
        QStringLiteral("activate"),
        QStringLiteral("Have the session bus start the notification centre, and end.")};
    const QCommandLineOption linger{
        QStringLiteral("linger"),
        QStringLiteral("End after this long with nothing to do (60 unless told)."),
        QStringLiteral("seconds"), QString::number(Arguments{}.lingering.count())};
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows Norvane's reminders when their time has come."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({activate, linger});
    parser.process(application);

    bool isNumber = false;
    const std::chrono::seconds lingering{parser.value(linger).toUShort(&isNumber)};
    if (!isNumber) {
        qCritical("--linger: takes a number of seconds up to 65535.");
        return std::nullopt;
    }
    return Arguments{.activate = parser.isSet(activate), .lingering = lingering};
}

/// Has the bus start the notification centre the way it is installed, with all that belongs to it.
int activate(const QDBusConnection &bus)
{
    const QDBusReply<void> reply = bus.interface()->startService(busNames::notificationCenter);
    if (!reply.isValid()) {
        qCritical("The notification centre does not start: %s",
                  qUtf8Printable(reply.error().message()));
        return EX_UNAVAILABLE;
    }
    return EXIT_SUCCESS;
}

/// Whether systemd started this process, and restarts it where it fails.
bool isUnit()
{
    return qgetenv("SYSTEMD_EXEC_PID") == QByteArray::number(::getpid());
}

/// Not QDBusConnection::sessionBus(): that one keeps what arrives before the event loop runs, and
/// when the loop starts, newer calls can overtake what was kept. The calls of a burst would take
/// effect out of order.
QDBusConnection connectToSessionBus()
{
    QDBusConnection bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
    if (!bus.isConnected()) {
        qCritical("No session bus: %s", qUtf8Printable(bus.lastError().message()));
    }
    return bus;
}

/// Runs the notification centre on one connection. Nothing where it does not start.
std::optional<Notifier::End> serve(const QDBusConnection &bus, const StopSignals &stopSignals,
                                   std::chrono::seconds idleTimeout)
{
    const SystemClock clock;
    Notifier notifier{bus,
                      clock,
                      {.folder = QFile::decodeName((XdgFolders::stateFolder() / "norvane").c_str()),
                       .idleTimeout = idleTimeout}};
    std::optional<Notifier::End> end;
    QObject::connect(&stopSignals, &StopSignals::stopRequested, &notifier, &Notifier::end);
    QObject::connect(&notifier, &Notifier::finished, &notifier, [&end](Notifier::End reason) {
        end = end.value_or(reason);
        QCoreApplication::quit();
    });
    if (!notifier.start()) {
        return std::nullopt;
    }
    QCoreApplication::exec();
    return end;
}

/// Runs the notification centre until it is done, and connects again each time that the bus closes
/// the connection: a bus disconnects a program that exceeds a limit, and may live on. Under systemd
/// it returns instead, and systemd restarts it. Returns the exit status.
int serve(const Arguments &arguments)
{
    const StopSignals stopSignals;
    for (bool isFirst = true;; isFirst = false) {
        const int failure = isFirst ? EX_UNAVAILABLE : EXIT_FAILURE;
        std::optional<Notifier::End> end;
        {
            const QDBusConnection bus = connectToSessionBus();
            if (!bus.isConnected()) {
                return failure;
            }
            end = serve(bus, stopSignals, arguments.lingering);
        }
        if (!end) {
            return failure;
        }
        if (end == Notifier::End::Done) {
            return EXIT_SUCCESS;
        }
        if (isUnit()) {
            return EXIT_FAILURE; // systemd starts another.
        }
        QDBusConnection::disconnectFromBus(connectionName);
        std::this_thread::sleep_for(reconnectPause);
    }
}

} // namespace

int main(int argc, char **argv)
{
    shareOneHeap();
    const QCoreApplication application{argc, argv};
    QCoreApplication::setApplicationName(QStringLiteral("norvane-notifier"));
    QCoreApplication::setApplicationVersion(QStringLiteral(NORVANE_VERSION));

    // The usual start has no arguments, and need not keep in memory what reads them.
    const std::optional<Arguments> arguments = argc > 1 ? read(application) : Arguments{};
    if (!arguments) {
        return EX_USAGE;
    }
    if (arguments->activate) {
        const QDBusConnection bus = connectToSessionBus();
        return bus.isConnected() ? activate(bus) : EX_UNAVAILABLE;
    }
    return serve(*arguments);
}

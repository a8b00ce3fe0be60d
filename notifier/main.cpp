// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Notifier.h"
#include "notifier/SpareMemory.h"
#include "platform/bus/BusNames.h"
#include "platform/session/StopSignals.h"
#include "platform/session/SystemClock.h"
#include "platform/session/XdgFolders.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusReply>

#include <chrono>
#include <cstdlib>
#include <optional>

#include <sysexits.h>

namespace {

using namespace norvane;

constexpr std::chrono::seconds patience{10};

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
    // Not QDBusConnection::sessionBus(): that one keeps what arrives before the event loop runs,
    // and when the loop starts, newer calls can overtake what was kept. The calls of a burst would
    // take effect out of order.
    const QDBusConnection bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("notifier"));
    if (!bus.isConnected()) {
        qCritical("No session bus: %s", qUtf8Printable(bus.lastError().message()));
        return EX_UNAVAILABLE;
    }
    if (arguments->activate) {
        return activate(bus);
    }

    const SystemClock clock;
    Notifier notifier{bus,
                      clock,
                      {.folder = XdgFolders::stateFolder() + QStringLiteral("/norvane"),
                       .lingering = arguments->lingering,
                       .patience = patience,
                       .pauses = {}}};
    const StopSignals stopSignals;
    QObject::connect(&stopSignals, &StopSignals::stopRequested, &notifier, &Notifier::end);
    QObject::connect(&notifier, &Notifier::finished, &application, &QCoreApplication::quit);
    return notifier.start() ? QCoreApplication::exec() : EX_UNAVAILABLE;
}

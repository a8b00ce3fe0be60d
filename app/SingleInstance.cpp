// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/SingleInstance.h"

#include "platform/bus/BusNames.h"
#include "platform/bus/PendingCall.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <cstdlib>
#include <tuple>
#include <utility>

namespace norvane {

namespace {

using namespace std::chrono_literals;

/// Longer than a Norvane takes to end.
constexpr auto timeToEnd = 4s;

/// In milliseconds, like all time limits of the bus library.
constexpr int timeToGiveName = 1'000;
constexpr int timeToOpen = 2'000;

const QString tokenKey = QStringLiteral("activation-token");

/// The bus's answers to a request for a name that matter here.
constexpr uint nowOwner = 1;
constexpr uint alreadyOwner = 4;

bool isOwner(uint answer)
{
    return answer == nowOwner || answer == alreadyOwner;
}

} // namespace

SingleInstance::SingleInstance(std::function<bool()> isEnding) : isEnding_{std::move(isEnding)} {}

bool SingleInstance::isOnlyOne(const QDBusConnection &bus, const QString &activationToken)
{
    return !bus.isConnected() || requestName(bus) != Name::OfAnother ||
           (!activateOther(bus, activationToken) && waitForName(bus));
}

void SingleInstance::takeName(const QDBusConnection &bus)
{
    if (bus.isConnected() && requestName(bus) != Name::Taken) {
        qWarning("Norvane could not take its name on the session bus.");
    }
}

SingleInstance::Name SingleInstance::requestName(QDBusConnection bus)
{
    // First the object, then the name, so that whoever sees the name can call the object.
    if (!bus.registerObject(busNames::applicationPath, this, QDBusConnection::ExportAllSlots)) {
        qWarning("Starting Norvane again will not show its panel.");
    }
    constexpr uint doNotQueue = 4;
    const QDBusReply<uint> answer =
        bus.call(callToBus(QStringLiteral("RequestName"), {busNames::application, doNotQueue}),
                 QDBus::Block, timeToGiveName);
    if (!answer.isValid()) {
        return Name::Unanswered; // By a bus that does not hand out names, too.
    }
    return isOwner(answer.value()) ? Name::Taken : Name::OfAnother;
}

bool SingleInstance::activateOther(const QDBusConnection &bus, const QString &activationToken)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        busNames::application, busNames::applicationPath,
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    QVariantMap platformData;
    if (!activationToken.isEmpty()) {
        platformData.insert(tokenKey, activationToken);
    }
    call << platformData;
    return bus.call(call, QDBus::Block, timeToOpen).type() == QDBusMessage::ReplyMessage;
}

bool SingleInstance::waitForName(QDBusConnection bus)
{
    QEventLoop untilOurs;
    connect(bus.interface(), &QDBusConnectionInterface::serviceRegistered, &untilOurs,
            [&untilOurs](const QString &name) {
                if (name == busNames::application) {
                    untilOurs.exit(EXIT_SUCCESS);
                }
            });
    QTimer::singleShot(timeToEnd, &untilOurs, [&untilOurs] { untilOurs.exit(EXIT_FAILURE); });
    constexpr uint queue = 0;
    const QDBusReply<uint> place =
        bus.call(callToBus(QStringLiteral("RequestName"), {busNames::application, queue}),
                 QDBus::Block, timeToGiveName);
    const bool isOurs =
        place.isValid() && (isOwner(place.value()) || untilOurs.exec() == EXIT_SUCCESS);
    if (!isOurs) {
        std::ignore = bus.unregisterService(busNames::application); // The place in the queue.
    }
    return isOurs;
}

void SingleInstance::Activate(const QVariantMap &platformData)
{
    activate(platformData);
}

void SingleInstance::Open(const QStringList & /*uris*/, const QVariantMap &platformData)
{
    activate(platformData);
}

/// A Norvane that is refused waits for the end of this one, and then starts.
void SingleInstance::activate(const QVariantMap &platformData)
{
    if (!isEnding_()) {
        emit activated(platformData.value(tokenKey).toString());
    } else if (calledFromDBus()) {
        sendErrorReply(QDBusError::Failed, QStringLiteral("Norvane is about to end"));
    }
}

void SingleInstance::ActivateAction(const QString & /*name*/, const QVariantList & /*parameter*/,
                                    const QVariantMap & /*platformData*/)
{
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/SingleInstance.h"

#include "platform/bus/BusNames.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <cstdlib>
#include <utility>

namespace norvane {

namespace {

using namespace std::chrono_literals;

using Registration = QDBusConnectionInterface::RegisterServiceReply;

/// Longer than the end of a Norvane takes.
constexpr auto patienceWithTheOther = 4s;

const QString tokenKey = QStringLiteral("activation-token");

} // namespace

SingleInstance::SingleInstance(QDBusConnection bus) : bus_{std::move(bus)} {}

bool SingleInstance::claim()
{
    if (!bus_.isConnected()) {
        return true;
    }
    // First the object, then the name: who finds the name must find somebody at home.
    bus_.registerObject(busNames::applicationPath, this, QDBusConnection::ExportAllSlots);
    const QDBusReply<Registration> answer =
        bus_.interface()->registerService(busNames::application);
    // A bus that does not hand out names is as good as none.
    return !answer.isValid() || answer.value() == QDBusConnectionInterface::ServiceRegistered;
}

bool SingleInstance::activateOther(const QString &activationToken) const
{
    constexpr int patience = 2000;
    QDBusMessage call = QDBusMessage::createMethodCall(
        busNames::application, busNames::applicationPath,
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    QVariantMap platformData;
    if (!activationToken.isEmpty()) {
        platformData.insert(tokenKey, activationToken);
    }
    call << platformData;
    return bus_.call(call, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

bool SingleInstance::succeedOther()
{
    QEventLoop untilOurs;
    connect(bus_.interface(), &QDBusConnectionInterface::serviceRegistered, &untilOurs,
            [&untilOurs](const QString &name) {
                if (name == busNames::application) {
                    untilOurs.exit(EXIT_SUCCESS);
                }
            });
    QTimer::singleShot(patienceWithTheOther, &untilOurs,
                       [&untilOurs] { untilOurs.exit(EXIT_FAILURE); });
    const QDBusReply<Registration> place = bus_.interface()->registerService(
        busNames::application, QDBusConnectionInterface::QueueService);
    const bool isOurs =
        place.isValid() && (place.value() == QDBusConnectionInterface::ServiceRegistered ||
                            untilOurs.exec() == EXIT_SUCCESS);
    if (!isOurs) {
        bus_.unregisterService(busNames::application); // The place in the queue.
    }
    return isOurs;
}

void SingleInstance::Activate(const QVariantMap &platformData)
{
    emit activated(platformData.value(tokenKey).toString());
}

void SingleInstance::Open(const QStringList & /*uris*/, const QVariantMap &platformData)
{
    emit activated(platformData.value(tokenKey).toString());
}

void SingleInstance::ActivateAction(const QString & /*name*/, const QVariantList & /*parameter*/,
                                    const QVariantMap & /*platformData*/)
{
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/SingleInstance.h"

#include "platform/bus/BusNames.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <utility>

namespace norvane {

namespace {

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
    return bus_.registerService(busNames::application);
}

void SingleInstance::activateOther(const QString &activationToken) const
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
    bus_.call(call, QDBus::Block, patience);
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

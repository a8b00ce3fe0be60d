// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/client/BusLink.h"

#include "platform/bus/BusNames.h"

#include <QDBusError>
#include <QUuid>

#include <algorithm>
#include <array>

namespace norvane {

BusLink::~BusLink()
{
    disconnectFromBus();
}

bool BusLink::open(const QString &address)
{
    // Qt shares connections of the same name, so this one gets a name of its own.
    const QString name = QUuid::createUuid().toString();
    const QDBusConnection bus =
        address.isEmpty() ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)
                          : QDBusConnection::connectToBus(address, name);
    if (!bus.isConnected()) {
        QDBusConnection::disconnectFromBus(name);
        return false;
    }
    bus_ = bus;
    owners_ = std::make_unique<QDBusServiceWatcher>(busNames::notificationCenter, bus,
                                                    QDBusServiceWatcher::WatchForOwnerChange);
    connect(owners_.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &former, const QString &owner) {
                if (!former.isEmpty()) {
                    emit centreGone();
                }
                if (!owner.isEmpty()) {
                    emit centreAppeared();
                }
            });
    if (!bus_->connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
                       QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                       this, SLOT(handleDisconnected()))) {
        qWarning("The end of the session bus will go unnoticed.");
    }
    return true;
}

void BusLink::handleDisconnected()
{
    disconnectFromBus();
    emit lost();
}

void BusLink::disconnectFromBus()
{
    owners_.reset();
    if (bus_) {
        const QString name = bus_->name();
        bus_.reset();
        QDBusConnection::disconnectFromBus(name);
    }
}

bool BusLink::isAnswerOfCentre(const QDBusError &error)
{
    using enum QDBusError::ErrorType;
    static constexpr std::array<QDBusError::ErrorType, 5> ofTheBus{ServiceUnknown, NoReply,
                                                                   Disconnected, TimedOut, Timeout};
    return !error.isValid() || (std::ranges::find(ofTheBus, error.type()) == ofTheBus.end() &&
                                error.name() != u"org.freedesktop.DBus.Error.NameHasNoOwner");
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/client/BusLink.h"

#include "platform/bus/BusNames.h"

#include <QDBusError>
#include <QFile>
#include <QUuid>

#include <algorithm>
#include <array>

#include <dbus/dbus.h>

namespace norvane {

BusLink::~BusLink()
{
    disconnectFromBus();
}

BusLink::ProbeResult BusLink::probe(const QByteArray &address)
{
    DBusError error = DBUS_ERROR_INIT;
    bool wasClosed = false;
    DBusConnection *const connection = dbus_connection_open_private(address.constData(), &error);
    if (connection != nullptr) {
        dbus_connection_set_exit_on_disconnect(connection, FALSE);
        dbus_bus_register(connection, &error);
        wasClosed = dbus_connection_get_is_connected(connection) == FALSE;
        dbus_connection_close(connection);
        dbus_connection_unref(connection);
    }
    const auto failedWith = [&](const char *name) {
        return dbus_error_has_name(&error, name) == TRUE;
    };
    // A bus that turns the user away closes the connection, which also counts as no reply.
    const bool isSilent =
        !wasClosed && (failedWith(DBUS_ERROR_NO_REPLY) || failedWith(DBUS_ERROR_TIMEOUT));
    const bool isAccepted = dbus_error_is_set(&error) == FALSE;
    dbus_error_free(&error);
    return isAccepted ? ProbeResult::Accepted
           : isSilent ? ProbeResult::NoReply
                      : ProbeResult::Refused;
}

bool BusLink::open(const QString &address)
{
    if (!address.isEmpty() && probe(QFile::encodeName(address)) != ProbeResult::Accepted) {
        return false;
    }
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

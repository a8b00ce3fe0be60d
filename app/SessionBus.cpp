// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/SessionBus.h"

#include "platform/client/BusLink.h"

#include <QFile>

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace norvane {

namespace {

constexpr const char *addressVariable = "DBUS_SESSION_BUS_ADDRESS";

/// The bus's address by the rules of the bus library; empty where only the library can find it.
QByteArray addressOfSessionBus()
{
    if (!qEnvironmentVariableIsEmpty(addressVariable)) {
        return qgetenv(addressVariable);
    }
    const QByteArray socket = qgetenv("XDG_RUNTIME_DIR") + "/bus";
    return QFile::exists(QFile::decodeName(socket)) ? "unix:path=" + socket : QByteArray{};
}

} // namespace

struct SessionBus::Greeting {
    const QByteArray address;
    std::mutex mutex;
    std::condition_variable answer;
    bool hasAnswered = false;
    SessionBus *toTell = nullptr; ///< Is told of a late answer.

    explicit Greeting(QByteArray busAddress) : address{std::move(busAddress)} {}

    void run()
    {
        while (BusLink::greet(address) == BusLink::Greeting::Silence) {
        }
        const std::lock_guard lock{mutex};
        hasAnswered = true;
        answer.notify_all();
        if (toTell != nullptr) {
            QMetaObject::invokeMethod(toTell, &SessionBus::takeUp, Qt::QueuedConnection);
        }
    }
};

SessionBus::SessionBus(std::chrono::milliseconds timeout)
    : greeting_{std::make_shared<Greeting>(addressOfSessionBus())},
      formerAddress_{qgetenv(addressVariable)},
      wasSet_{qEnvironmentVariableIsSet(addressVariable)}
{
    if (greeting_->address.isEmpty()) {
        return;
    }
    // The thread cannot be ended while it waits for the bus, so it is detached.
    std::thread{[greeting = greeting_] { greeting->run(); }}.detach();
    std::unique_lock lock{greeting_->mutex};
    isSilent_ =
        !greeting_->answer.wait_for(lock, timeout, [this] { return greeting_->hasAnswered; });
    if (isSilent_) {
        greeting_->toTell = this;
        qputenv(addressVariable, "disabled:");
    }
}

SessionBus::~SessionBus()
{
    const std::lock_guard lock{greeting_->mutex};
    greeting_->toTell = nullptr;
}

QString SessionBus::address() const
{
    return QFile::decodeName(greeting_->address);
}

QDBusConnection SessionBus::connectAs(const QString &name) const
{
    if (isSilent_) {
        return QDBusConnection{name};
    }
    return greeting_->address.isEmpty()
               ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)
               : QDBusConnection::connectToBus(address(), name);
}

void SessionBus::takeUp()
{
    if (wasSet_) {
        qputenv(addressVariable, formerAddress_);
    } else {
        qunsetenv(addressVariable);
    }
    isSilent_ = false;
    emit answered();
}

} // namespace norvane

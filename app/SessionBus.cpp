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

struct SessionBus::Probe {
    const QByteArray address;
    std::mutex mutex;
    std::condition_variable answer;
    bool hasAnswered = false;
    SessionBus *listener = nullptr; ///< Is told of a late answer; may be null.

    explicit Probe(QByteArray busAddress) : address{std::move(busAddress)} {}

    void run()
    {
        while (BusLink::probe(address) == BusLink::ProbeResult::NoReply) {
        }
        const std::lock_guard lock{mutex};
        hasAnswered = true;
        answer.notify_all();
        if (listener != nullptr) {
            QMetaObject::invokeMethod(listener, &SessionBus::handleAnswer, Qt::QueuedConnection);
        }
    }
};

SessionBus::SessionBus(std::chrono::milliseconds timeout)
    : probe_{std::make_shared<Probe>(addressOfSessionBus())},
      formerAddress_{qgetenv(addressVariable)},
      wasSet_{qEnvironmentVariableIsSet(addressVariable)}
{
    if (probe_->address.isEmpty()) {
        return;
    }
    // The thread cannot be ended while it waits for the bus, so it is detached.
    std::thread{[probe = probe_] { probe->run(); }}.detach();
    std::unique_lock lock{probe_->mutex};
    isSilent_ = !probe_->answer.wait_for(lock, timeout, [this] { return probe_->hasAnswered; });
    if (isSilent_) {
        probe_->listener = this;
        qputenv(addressVariable, "disabled:");
    }
}

SessionBus::~SessionBus()
{
    const std::lock_guard lock{probe_->mutex};
    probe_->listener = nullptr;
}

QString SessionBus::address() const
{
    return QFile::decodeName(probe_->address);
}

QDBusConnection SessionBus::connectAs(const QString &name) const
{
    if (isSilent_) {
        return QDBusConnection{name};
    }
    return probe_->address.isEmpty()
               ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)
               : QDBusConnection::connectToBus(address(), name);
}

void SessionBus::handleAnswer()
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

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/tray/WatcherLink.h"

#include "platform/bus/PendingCall.h"

#include <QDBusPendingReply>

#include <chrono>

namespace norvane {

namespace {

using namespace std::chrono_literals;

const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");

constexpr int registrationAttempts = 10;
constexpr auto pauseBetweenAttempts = 500ms;
constexpr int timeout = 25'000; // In milliseconds; what does not answer is asked again.

} // namespace

WatcherLink::WatcherLink(const QDBusConnection &bus)
    : bus_{bus},
      owners_{watcherName, bus, QDBusServiceWatcher::WatchForOwnerChange}
{
    retry_.setSingleShot(true);
    retry_.setInterval(pauseBetweenAttempts);
    connect(&retry_, &QTimer::timeout, this, &WatcherLink::registerItem);
}

void WatcherLink::start()
{
    if (!bus_.isConnected()) {
        enter(State::Absent);
        return;
    }
    connect(&owners_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &owner) { setOwner(owner); });
    const bool hearsOfHosts = bus_.connect(watcherName, watcherPath, watcherName,
                                           QStringLiteral("StatusNotifierHostRegistered"), this,
                                           SLOT(hostRegistered())) &&
                              bus_.connect(watcherName, watcherPath, watcherName,
                                           QStringLiteral("StatusNotifierHostUnregistered"), this,
                                           SLOT(hostUnregistered()));
    if (!hearsOfHosts) {
        qWarning("A panel that starts later may not show the icon.");
    }
    callLater(bus_, callToBus(QStringLiteral("GetNameOwner"), {watcherName}), this,
              [this](const QDBusPendingReply<QString> &owner) {
                  if (state_ == State::Unknown) { // Otherwise a change has been told since.
                      setOwner(owner.isError() ? QString{} : owner.value());
                  }
              });
}

void WatcherLink::enter(State state)
{
    state_ = state;
    emit changed();
}

void WatcherLink::setOwner(const QString &owner)
{
    retry_.stop();
    ++registrations_;
    attemptsLeft_ = registrationAttempts;
    if (owner.isEmpty()) {
        enter(State::Absent);
    } else {
        enter(State::Registering);
        registerItem();
    }
}

void WatcherLink::registerItem()
{
    const int registration = ++registrations_;
    --attemptsLeft_;
    QDBusMessage call = QDBusMessage::createMethodCall(
        watcherName, watcherPath, watcherName, QStringLiteral("RegisterStatusNotifierItem"));
    call.setAutoStartService(false);
    call << bus_.baseService(); // Owning a name for each item is refused in sandboxes.
    callLater(
        bus_, call, this,
        [this, registration](const QDBusPendingCall &answer) {
            if (registration != registrations_) {
                return; // Of a watcher that is gone, or overtaken.
            }
            if (!answer.isError()) {
                askForHost();
            } else if (attemptsLeft_ > 0) {
                retry_.start();
            }
        },
        timeout);
}

void WatcherLink::askForHost()
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        watcherName, watcherPath, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    question.setAutoStartService(false);
    question << watcherName << QStringLiteral("IsStatusNotifierHostRegistered");
    callLater(bus_, question, this,
              [this, registration = registrations_](const QDBusPendingReply<QVariant> &hasHost) {
                  if (registration == registrations_ && !hasHost.isError()) {
                      enter(hasHost.value().toBool() ? State::Hosted : State::Registered);
                  }
              });
}

void WatcherLink::hostRegistered()
{
    attemptsLeft_ = registrationAttempts;
    registerItem();
}

void WatcherLink::hostUnregistered()
{
    askForHost();
}

} // namespace norvane

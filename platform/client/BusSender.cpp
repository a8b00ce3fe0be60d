// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/client/BusSender.h"

#include "NotificationCenterProxy.h"
#include "platform/bus/BusNames.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>
#include <QUuid>

#include <chrono>
#include <utility>

namespace norvane {

namespace {

/// From its start to its name; what takes longer does not come any more.
constexpr std::chrono::seconds patienceWithStandIn{5};

QDBusMessage callOnBus(const QString &method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), method);
}

} // namespace

BusSender::BusSender(QString standIn)
    : standIn_{std::move(standIn)},
      connectionName_{QUuid::createUuid().toString()},
      patience_{this}
{
    patience_.setSingleShot(true);
    patience_.setInterval(patienceWithStandIn);
    connect(&patience_, &QTimer::timeout, this, [this] { started(false); });
}

BusSender::~BusSender()
{
    proxy_.reset();
    QDBusConnection::disconnectFromBus(connectionName_);
}

void BusSender::send(const Call &call)
{
    connectToBus();
    if (!proxy_) {
        return;
    }
    waiting_.push_back(call);
    if (ready_) {
        sendWaiting();
    } else if (!starting_) {
        startCenter();
    }
}

void BusSender::flush(const QDeadlineTimer &deadline)
{
    if (!proxy_) {
        return;
    }
    if (starting_) {
        // A bus drops the calls of a client that leaves before the centre is up.
        QEventLoop untilAnswered;
        connect(this, &BusSender::settled, &untilAnswered, &QEventLoop::quit);
        QTimer::singleShot(std::chrono::milliseconds{deadline.remainingTime()}, &untilAnswered,
                           &QEventLoop::quit);
        untilAnswered.exec();
    }
    sendWaiting();
    // The bus reads in order: when it answers this, it has everything sent before.
    proxy_->connection().call(callOnBus(QStringLiteral("GetId")), QDBus::Block,
                              static_cast<int>(deadline.remainingTime()));
}

void BusSender::connectToBus()
{
    if (std::exchange(triedToConnect_, true)) {
        return;
    }
    const QDBusConnection bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName_);
    if (!bus.isConnected()) {
        return;
    }
    proxy_ = std::make_unique<NotificationCenterProxy>(busNames::notificationCenter,
                                                       busNames::notificationCenterPath, bus);
    watcher_ = std::make_unique<QDBusServiceWatcher>(busNames::notificationCenter, bus,
                                                     QDBusServiceWatcher::WatchForOwnerChange);
    connect(watcher_.get(), &QDBusServiceWatcher::serviceRegistered, this, [this] {
        if (patience_.isActive()) {
            started(true);
        }
    });
    connect(watcher_.get(), &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { ready_ = false; });
}

void BusSender::startCenter()
{
    starting_ = true;
    QDBusMessage start = callOnBus(QStringLiteral("StartServiceByName"));
    start << busNames::notificationCenter << 0U;
    auto *const reply = new QDBusPendingCallWatcher{proxy_->connection().asyncCall(start), this};
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply] {
        reply->deleteLater();
        const bool notInstalled =
            reply->isError() && reply->error().type() == QDBusError::ServiceUnknown;
        if (notInstalled && !isUp() && !standIn_.isEmpty()) {
            startStandIn();
        } else {
            started(!reply->isError() || isUp());
        }
    });
}

/// A bus asked to start what is not installed does not look whether it runs all the same.
bool BusSender::isUp() const
{
    constexpr int patience = 1000;
    QDBusMessage question = callOnBus(QStringLiteral("NameHasOwner"));
    question << busNames::notificationCenter;
    const QDBusReply<bool> answer = proxy_->connection().call(question, QDBus::Block, patience);
    return answer.isValid() && answer.value();
}

void BusSender::startStandIn()
{
    if (QProcess::startDetached(standIn_, {})) {
        patience_.start();
    } else {
        started(false);
    }
}

void BusSender::started(bool up)
{
    patience_.stop();
    starting_ = false;
    ready_ = up;
    sendWaiting(); // Also to nobody: what came before a centre that does not start is void.
    emit settled();
}

void BusSender::sendWaiting()
{
    for (const Call &call : std::exchange(waiting_, {})) {
        // By name, because the proxy's own functions ask for an answer. One that nobody reads would
        // cost the bus and both ends more than the call itself.
        proxy_->callWithArgumentList(QDBus::NoBlock, call.method, call.arguments);
    }
}

} // namespace norvane

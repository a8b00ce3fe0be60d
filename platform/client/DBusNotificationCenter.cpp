// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/client/DBusNotificationCenter.h"

#include "platform/bus/BusNames.h"
#include "platform/client/BusSender.h"

#include <algorithm>
#include <chrono>

namespace norvane {

namespace {

using namespace std::chrono_literals;

/// How long the end of the program may take. The sender gives up a little earlier, so that its
/// thread can end in order.
constexpr auto timeout = 1s;
constexpr auto timeoutWhileStarting = 5s;
constexpr auto marginOfSender = 200ms;

/// Each call is far below what a bus carries, which disconnects a client that sends more.
constexpr qsizetype mostIdentifiersInCall = 500;

/// On the bus a text ends before its first U+0000.
QString withoutNul(QString text)
{
    return text.replace(QChar::Null, QChar::ReplacementCharacter);
}

bool isTooLong(const QString &text)
{
    // A UTF-16 unit is at most three bytes of UTF-8.
    return text.size() > busNames::longestText / 3 && text.toUtf8().size() > busNames::longestText;
}

} // namespace

DBusNotificationCenter::DBusNotificationCenter(const QString &fallbackProgram, Connect connect)
    : takesLonger_{std::make_shared<std::atomic<bool>>(false)},
      thread_{std::make_unique<QThread>()},
      sender_{std::make_unique<BusSender>(fallbackProgram, takesLonger_)}
{
    thread_->setObjectName(QStringLiteral("notifications"));
    sender_->moveToThread(thread_.get());
    thread_->start();
    if (connect == Connect::AtOnce) {
        setBusAddress({});
    }
}

DBusNotificationCenter::~DBusNotificationCenter()
{
    // From here on the sender belongs to its thread, which may outlive this object.
    BusSender *const sender = sender_.release();
    QMetaObject::invokeMethod(
        sender,
        [sender, thread = thread_.get()] {
            sender->flush(timeout - marginOfSender, timeoutWhileStarting - marginOfSender);
            sender->deleteLater();
            thread->quit();
        },
        Qt::QueuedConnection);
    const bool hasEnded =
        thread_->wait(QDeadlineTimer{timeout}) ||
        (*takesLonger_ && thread_->wait(QDeadlineTimer{timeoutWhileStarting - timeout}));
    if (!hasEnded) {
        // It hangs in the bus library. The process is about to end, and the thread with it; a
        // QThread that is destroyed while it runs aborts the process.
        QThread *const thread = thread_.release();
        QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    }
}

void DBusNotificationCenter::setBusAddress(const QString &address)
{
    QMetaObject::invokeMethod(
        sender_.get(), [sender = sender_.get(), address] { sender->setBusAddress(address); },
        Qt::QueuedConnection);
}

void DBusNotificationCenter::post(const QString &method, const QVariantList &arguments)
{
    QMetaObject::invokeMethod(
        sender_.get(),
        [sender = sender_.get(), call = CallQueue::Call{method, arguments}] { sender->send(call); },
        Qt::QueuedConnection);
}

void DBusNotificationCenter::requestAuthorization(Options options)
{
    post(QStringLiteral("RequestAuthorization"), {static_cast<uint>(options.toInt())});
}

void DBusNotificationCenter::addNotificationRequest(const NotificationRequest &request)
{
    const QStringList texts{withoutNul(request.identifier), withoutNul(request.title),
                            withoutNul(request.body), withoutNul(request.sound)};
    if (texts.first().isEmpty() || std::ranges::any_of(texts, isTooLong)) {
        return;
    }
    post(QStringLiteral("AddRequest"),
         {texts[0], texts[1], texts[2], texts[3], request.trigger.text()});
}

void DBusNotificationCenter::removePendingNotificationRequests(const QStringList &identifiers)
{
    // None of these can be pending. One with U+0000 would arrive cut, as the name of another.
    QStringList possible = identifiers;
    possible.removeIf([](const QString &identifier) {
        return identifier.contains(QChar::Null) || isTooLong(identifier);
    });
    qsizetype sent = 0;
    do {
        post(QStringLiteral("RemovePendingRequests"), {possible.mid(sent, mostIdentifiersInCall)});
        sent += mostIdentifiersInCall;
    } while (sent < possible.size());
}

void DBusNotificationCenter::removeAllPendingNotificationRequests()
{
    post(QStringLiteral("RemoveAllPendingRequests"), {});
}

} // namespace norvane

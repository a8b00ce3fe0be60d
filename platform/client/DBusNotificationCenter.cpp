// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/client/DBusNotificationCenter.h"

#include "platform/client/BusSender.h"

#include <tuple>

namespace norvane {

namespace {

/// How long the end of the program may be held up by a bus that does not read, or by a centre that
/// is slow to start; the sender gives up a little earlier, so that its thread can end in order.
constexpr int patienceAtTheEnd = 1000;
constexpr int patienceOfTheSender = 800;

/// On the bus a text ends before its first U+0000.
QString withoutNul(QString text)
{
    return text.replace(QChar::Null, QChar::ReplacementCharacter);
}

} // namespace

DBusNotificationCenter::DBusNotificationCenter(const QString &standIn)
    : thread_{std::make_unique<QThread>()},
      sender_{std::make_unique<BusSender>(standIn)}
{
    thread_->setObjectName(QStringLiteral("notifications"));
    sender_->moveToThread(thread_.get());
    thread_->start();
}

DBusNotificationCenter::~DBusNotificationCenter()
{
    // From here on the sender belongs to its thread, which may outlive this object.
    BusSender *const sender = sender_.release();
    QMetaObject::invokeMethod(
        sender,
        [sender, thread = thread_.get(), deadline = QDeadlineTimer{patienceOfTheSender}] {
            sender->flush(deadline);
            sender->deleteLater();
            thread->quit();
        },
        Qt::QueuedConnection);
    if (!thread_->wait(patienceAtTheEnd)) {
        // Stuck in the bus library. The process is about to end and takes the thread with it;
        // destroying it under its own feet would crash instead.
        std::ignore = thread_.release();
    }
}

void DBusNotificationCenter::post(const QString &method, const QVariantList &arguments)
{
    QMetaObject::invokeMethod(
        sender_.get(),
        [sender = sender_.get(), call = BusSender::Call{method, arguments}] { sender->send(call); },
        Qt::QueuedConnection);
}

void DBusNotificationCenter::requestAuthorization(Options options)
{
    post(QStringLiteral("RequestAuthorization"), {static_cast<uint>(options.toInt())});
}

void DBusNotificationCenter::addNotificationRequest(const NotificationRequest &request)
{
    post(QStringLiteral("AddRequest"),
         {withoutNul(request.identifier), withoutNul(request.title), withoutNul(request.body),
          withoutNul(request.sound), request.trigger.text()});
}

void DBusNotificationCenter::removePendingNotificationRequests(const QStringList &identifiers)
{
    // Cut short, a name would be another request's; whole, no pending one bears it.
    QStringList bearable = identifiers;
    bearable.removeIf([](const QString &name) { return name.contains(QChar::Null); });
    post(QStringLiteral("RemovePendingRequests"), {bearable});
}

void DBusNotificationCenter::removeAllPendingNotificationRequests()
{
    post(QStringLiteral("RemoveAllPendingRequests"), {});
}

} // namespace norvane

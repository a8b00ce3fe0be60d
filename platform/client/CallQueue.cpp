// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/client/CallQueue.h"

#include "platform/bus/BusNames.h"

#include <QSet>
#include <QStringList>

#include <algorithm>
#include <iterator>
#include <utility>

namespace norvane {

QDBusMessage CallQueue::Call::message() const
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        busNames::notificationCenter, busNames::notificationCenterPath,
        QStringLiteral("org.norvane.NotificationCenter1"), method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return message;
}

std::vector<CallQueue::Call> CallQueue::takeBatch(std::size_t most)
{
    const auto end =
        waiting_.begin() + static_cast<std::ptrdiff_t>(std::min(most, waiting_.size()));
    std::vector<Call> batch{waiting_.begin(), end};
    std::move(waiting_.begin(), end, std::back_inserter(sent_));
    waiting_.erase(waiting_.begin(), end);
    return batch;
}

std::size_t CallQueue::confirm()
{
    return std::exchange(sent_, {}).size(); // Not clear(), which would keep the memory.
}

void CallQueue::takeBack()
{
    std::ranges::move(waiting_, std::back_inserter(sent_));
    waiting_ = {};
    QSet<QString> withdrawn;
    bool isAllWithdrawn = false;
    while (!sent_.empty()) { // From the last to the first.
        Call call = std::move(sent_.back());
        sent_.pop_back();
        const QVariant argument = call.arguments.value(0);
        if (call.method == u"AddRequest" &&
            (isAllWithdrawn || withdrawn.contains(argument.toString()))) {
            continue;
        }
        if (call.method == u"RemovePendingRequests") {
            const QStringList identifiers = argument.toStringList();
            withdrawn.unite({identifiers.begin(), identifiers.end()});
        }
        isAllWithdrawn = isAllWithdrawn || call.method == u"RemoveAllPendingRequests";
        waiting_.push_front(std::move(call));
    }
}

void CallQueue::clear()
{
    sent_ = {};
    waiting_ = {};
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusMessage>
#include <QString>
#include <QVariantList>

#include <cstddef>
#include <deque>
#include <utility>
#include <vector>

namespace norvane {

/// The calls that the notification centre has not confirmed yet, in the order in which they came:
/// first those that were sent, then those that wait.
class CallQueue {
public:
    struct Call {
        QString method;
        QVariantList arguments;

        /// The message for the bus. It does not have the bus start the centre: the sender does,
        /// and then sends all waiting calls in order.
        [[nodiscard]] QDBusMessage message() const;

        friend bool operator==(const Call &, const Call &) = default;
    };

    /// Whether everything is confirmed.
    [[nodiscard]] bool isEmpty() const noexcept { return sent_.empty() && waiting_.empty(); }
    [[nodiscard]] bool hasWaiting() const noexcept { return !waiting_.empty(); }

    void append(Call call) { waiting_.push_back(std::move(call)); }
    /// The next calls to send, at most so many. They count as sent from now on.
    [[nodiscard]] std::vector<Call> takeBatch(std::size_t most);
    /// Forgets what was sent, and returns how many calls that were.
    std::size_t confirm();
    /// Puts the sent calls back in front of the waiting ones, without each AddRequest that a later
    /// call withdraws: if it is due already, it would be shown before the withdrawal arrives.
    void takeBack();
    /// Forgets everything.
    void clear();

private:
    std::deque<Call> sent_;
    std::deque<Call> waiting_;
};

} // namespace norvane

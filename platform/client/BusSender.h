// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/client/BusLink.h"
#include "platform/client/CallQueue.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>

namespace norvane {

/// Sends calls to the notification centre over a session bus connection of its own, and keeps each
/// until it is known to have taken effect.
///
/// Calls go out in batches, in the order in which they came. An answer to every call would cost the
/// bus and both ends more than the call itself, so only the last one of a batch asks for one. The
/// centre handles calls in order, hence that answer confirms the whole batch. When the centre or
/// the bus goes away before, the same calls are sent again to the next centre, less the adds that
/// a later call has withdrawn.
///
/// Calls wait while the centre is being started, because a bus keeps only so many messages for a
/// program that it is starting. When it cannot be started, they wait until it appears, or until the
/// next call has it started again. On a machine without a session bus they vanish.
///
/// Lives on one thread, whose event loop must run. Only connecting blocks.
class BusSender final : public QObject {
    Q_OBJECT

public:
    /// Set by flush() when it goes on after its first timeout; may be read on any thread.
    using TakesLonger = std::shared_ptr<std::atomic<bool>>;

    /// `fallbackProgram` is the notifier to start where the bus cannot start one; may be empty.
    BusSender(QString fallbackProgram, TakesLonger takesLonger);

    /// Calls are kept until this tells where the bus is; empty for the usual address.
    void setBusAddress(const QString &address);
    void send(const CallQueue::Call &call);
    /// Sends all calls. Returns when they are confirmed, when they cannot be sent, or after
    /// `timeout`. While the bus is starting the centre at that moment, goes on: until `timeout`
    /// after the start, but no longer than `timeoutWhileStarting` altogether.
    void flush(std::chrono::milliseconds timeout, std::chrono::milliseconds timeoutWhileStarting);

signals:
    void stateChanged();

private:
    /// What is done in each state while there are calls to send, and what ends it:
    ///
    ///     Disconnected  connectToBus()  connected            -> NoCentre
    ///                                   not connected        -> WithoutBus, unless there was a bus
    ///     NoCentre      startCentre()   at once              -> Starting
    ///                                   centreAppeared()     -> Ready
    ///     Starting      waits           centreAppeared()     -> Ready
    ///                                   centreDoesNotStart() -> NoCentre
    ///     Ready         sendBatch()     at once              -> Confirming
    ///                                   centreGone()         -> NoCentre
    ///     Confirming    waits           batchConfirmed()     -> Ready
    ///                                   centreGone()         -> NoCentre
    ///     any but the last              busLost()            -> Disconnected
    enum class State {
        Disconnected, ///< Not connected yet, or not any more; calls wait.
        NoCentre,     ///< Nobody owns the centre's name; calls wait.
        Starting,     ///< The centre is being started; calls wait.
        Ready,        ///< The centre has confirmed everything that it was sent.
        Confirming,   ///< The centre was sent a batch that it has not confirmed.
        WithoutBus,   ///< There is no session bus; calls vanish.
    };

    void advance();
    void enter(State state);

    void busLost();
    void centreAppeared();
    void centreGone();
    void centreDoesNotStart(const QString &reason);
    void batchConfirmed();

    void connectToBus();
    void startCentre();
    void startFallback(const QDBusError &error);
    void sendBatch();
    void retryLater();
    void reportOnce(const QString &sentence);

    /// Runs a handler with the finished call, unless the state has changed by then.
    template <typename Handler>
    void whenAnswered(const QDBusMessage &call, Handler handler);

    const QString fallbackProgram_;
    const TakesLonger takesLonger_;
    bool isStarting_ = false; ///< The bus is known to be starting the centre.
    State state_ = State::Disconnected;
    int transitions_ = 0; ///< Counts the changes of the state.
    std::optional<QString> address_;
    BusLink link_;
    CallQueue calls_;
    std::size_t mostInBatch_;
    std::size_t confirmed_ = 0; ///< Calls, since the queue was empty.
    QTimer nextStep_;           ///< Until advance() is called.
    QTimer startTimeout_;       ///< Runs while the fallback program has not taken the name.
    std::chrono::milliseconds pause_{0};
    bool hasReported_ = false;
};

} // namespace norvane

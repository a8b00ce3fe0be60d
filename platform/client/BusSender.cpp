// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/client/BusSender.h"

#include "platform/bus/BusNames.h"
#include "platform/bus/PendingCall.h"

#include <QDBusPendingReply>
#include <QEventLoop>
#include <QProcess>
#include <QSet>
#include <QUuid>

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <tuple>
#include <utility>

namespace norvane {

namespace {

using namespace std::chrono_literals;

/// From its start to its name.
constexpr auto timeForFallback = 5s;

/// Before the centre is started, or the bus connected, a second time, a third time, ...
constexpr auto firstPause = 1s;
constexpr auto longestPause = 60s;

/// Few enough for the centre to write them to the disk at once, many enough for thousands a second.
constexpr std::size_t batchSize = 1'000;

const QString interface = QStringLiteral("org.norvane.NotificationCenter1");

QDBusMessage messageFor(const BusSender::Call &call)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        busNames::notificationCenter, busNames::notificationCenterPath, interface, call.method);
    message.setArguments(call.arguments);
    message.setAutoStartService(false); // The next centre gets the calls in order, or not at all.
    return message;
}

/// Whether the centre itself answered, be it with an error, as against somebody in its stead.
bool isAnswerOfCentre(const QDBusError &error)
{
    using enum QDBusError::ErrorType;
    static constexpr std::array<QDBusError::ErrorType, 5> ofTheBus{ServiceUnknown, NoReply,
                                                                   Disconnected, TimedOut, Timeout};
    return !error.isValid() || (std::ranges::find(ofTheBus, error.type()) == ofTheBus.end() &&
                                error.name() != u"org.freedesktop.DBus.Error.NameHasNoOwner");
}

} // namespace

BusSender::BusSender(QString fallbackProgram, IsStarting isStarting)
    : fallbackProgram_{std::move(fallbackProgram)},
      isStarting_{std::move(isStarting)},
      nextStep_{this},
      startTimeout_{this}
{
    nextStep_.setSingleShot(true);
    connect(&nextStep_, &QTimer::timeout, this, &BusSender::advance);
    startTimeout_.setSingleShot(true);
    startTimeout_.setInterval(timeForFallback);
    connect(&startTimeout_, &QTimer::timeout, this,
            [this] { centreDoesNotStart(fallbackProgram_ + u" does not take its name"); });
}

BusSender::~BusSender()
{
    disconnectFromBus();
}

void BusSender::setBusAddress(const QString &address)
{
    address_ = address;
    nextStep_.start(0ms);
}

void BusSender::send(const Call &call)
{
    if (state_ == State::WithoutBus) {
        return;
    }
    waiting_.push_back(call);
    if (!nextStep_.isActive()) {
        // Once for all calls that come until then.
        nextStep_.start(state_ == State::NoCentre ? pause_ : 0ms);
    }
}

void BusSender::flush(std::chrono::milliseconds timeout,
                      std::chrono::milliseconds timeoutWhileStarting)
{
    const auto cannotSend = [this] { return !bus_ || state_ == State::NoCentre; };
    const auto isDone = [this] { return waiting_.empty() && unconfirmed_.empty(); };
    nextStep_.stop();
    advance(); // Without the pause, if there is one.
    QEventLoop untilDone;
    QTimer limit;
    limit.setSingleShot(true);
    connect(&limit, &QTimer::timeout, &untilDone, [&] {
        if (!*isStarting_) {
            untilDone.quit();
        }
    });
    connect(this, &BusSender::stateChanged, &untilDone, [&] {
        if (isDone() || cannotSend()) {
            untilDone.quit();
            return;
        }
        if (!limit.isActive()) { // The centre was long in starting, but now it can answer.
            limit.start(timeout);
        }
        if (state_ == State::Ready) {
            sendBatch(waiting_.size());
        }
    });
    if (state_ == State::Ready || state_ == State::Confirming) {
        sendBatch(waiting_.size());
    }
    if (!isDone() && !cannotSend()) {
        limit.start(timeout);
        QTimer::singleShot(timeoutWhileStarting, &untilDone, &QEventLoop::quit);
        untilDone.exec();
    }
}

void BusSender::advance()
{
    if (waiting_.empty() || !address_) {
        return;
    }
    if (state_ == State::Disconnected) {
        connectToBus();
    }
    if (state_ == State::NoCentre) {
        startCentre();
    } else if (state_ == State::Ready) {
        sendBatch(batchSize);
    }
}

void BusSender::enter(State state)
{
    ++transitions_;
    startTimeout_.stop();
    *isStarting_ = false;
    state_ = state;
    emit stateChanged();
}

/// The first time at once: the centre may have ended in order, or have been replaced.
void BusSender::retryLater()
{
    if (!waiting_.empty()) {
        nextStep_.start(pause_);
        pause_ = std::clamp<std::chrono::milliseconds>(pause_ * 2, firstPause, longestPause);
    }
}

void BusSender::connectToBus()
{
    // Under one name all would get the same connection.
    const QString name = QUuid::createUuid().toString();
    const QDBusConnection bus =
        address_->isEmpty() ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)
                            : QDBusConnection::connectToBus(*address_, name);
    if (!bus.isConnected()) {
        QDBusConnection::disconnectFromBus(name);
        if (pause_ > 0ms) { // There was a bus.
            retryLater();
        } else {
            waiting_.clear();
            enter(State::WithoutBus);
        }
        return;
    }
    bus_ = bus;
    owners_ = std::make_unique<QDBusServiceWatcher>(busNames::notificationCenter, bus,
                                                    QDBusServiceWatcher::WatchForOwnerChange);
    connect(owners_.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &former, const QString &owner) {
                if (!former.isEmpty()) {
                    centreGone();
                }
                if (!owner.isEmpty()) {
                    centreAppeared();
                }
            });
    if (!bus_->connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
                       QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                       this, SLOT(busLost()))) {
        qWarning("The end of the session bus will go unnoticed.");
    }
    enter(State::NoCentre);
}

void BusSender::disconnectFromBus()
{
    owners_.reset();
    if (bus_) {
        const QString name = bus_->name();
        bus_.reset();
        QDBusConnection::disconnectFromBus(name);
    }
}

void BusSender::busLost()
{
    disconnectFromBus();
    takeBackUnconfirmed();
    enter(State::Disconnected);
    pause_ = std::max<std::chrono::milliseconds>(pause_, firstPause);
    retryLater();
}

template <typename Handler>
void BusSender::whenAnswered(const QDBusMessage &call, Handler handler)
{
    callLater(*bus_, call, this,
              [this, then = transitions_, handler = std::move(handler)](const auto &answer) {
                  if (then == transitions_) {
                      handler(answer);
                  }
              });
}

void BusSender::startCentre()
{
    enter(State::Starting);
    whenAnswered(
        callToBus(QStringLiteral("StartServiceByName"), {busNames::notificationCenter, 0U}),
        [this](const QDBusPendingCall &start) {
            if (start.isError()) {
                bringUpFallback(start.error());
            } else {
                centreAppeared();
            }
        });
    // The bus handles calls in order: once it answers this one, it has begun to start the centre.
    whenAnswered(callToBus(QStringLiteral("GetId")), [this](const QDBusPendingCall &answer) {
        *isStarting_ = state_ == State::Starting && !answer.isError();
    });
}

/// Asked to start what is not installed, a bus does not look whether it runs all the same.
void BusSender::bringUpFallback(const QDBusError &error)
{
    whenAnswered(
        callToBus(QStringLiteral("NameHasOwner"), {busNames::notificationCenter}),
        [this, error](const QDBusPendingReply<bool> &isOwned) {
            if (!isOwned.isError() && isOwned.value()) {
                centreAppeared();
                return;
            }
            if (fallbackProgram_.isEmpty() || !QProcess::startDetached(fallbackProgram_, {})) {
                centreDoesNotStart(error.message());
                return;
            }
            // In a build tree nothing is installed, and nothing has failed.
            if (error.type() != QDBusError::ServiceUnknown && !std::exchange(hasReported_, true)) {
                std::fprintf(stderr,
                             "norvane: the session bus cannot start the notification "
                             "centre (%s), so Norvane starts it\n",
                             qUtf8Printable(error.message()));
            }
            startTimeout_.start();
        });
}

void BusSender::centreAppeared()
{
    if (state_ == State::NoCentre || state_ == State::Starting) {
        enter(State::Ready);
        advance();
    }
}

void BusSender::centreGone()
{
    if (state_ == State::Ready || state_ == State::Confirming) {
        takeBackUnconfirmed();
        enter(State::NoCentre);
        retryLater();
    }
}

void BusSender::centreDoesNotStart(const QString &reason)
{
    if (!std::exchange(hasReported_, true)) {
        std::fprintf(stderr,
                     "norvane: the notification centre does not start (%s), so no reminder will "
                     "be shown\n",
                     qUtf8Printable(reason));
    }
    pause_ = std::max<std::chrono::milliseconds>(pause_, firstPause);
    enter(State::NoCentre);
}

void BusSender::sendBatch(std::size_t most)
{
    const auto end =
        waiting_.begin() + static_cast<std::ptrdiff_t>(std::min(most, waiting_.size()));
    if (end == waiting_.begin()) {
        return;
    }
    const auto last = std::prev(end);
    std::for_each(waiting_.begin(), last, [this](const Call &call) {
        std::ignore = bus_->send(messageFor(call)); // Fails without a bus only: see busLost().
    });
    const QDBusMessage message = messageFor(*last);
    std::move(waiting_.begin(), end, std::back_inserter(unconfirmed_));
    waiting_.erase(waiting_.begin(), end);
    enter(State::Confirming);
    whenAnswered(message, [this](const QDBusPendingCall &answer) {
        if (isAnswerOfCentre(answer.error())) {
            confirmed();
        } else {
            centreGone();
        }
    });
}

void BusSender::confirmed()
{
    unconfirmed_ = {}; // With its memory.
    pause_ = 0ms;
    enter(State::Ready);
    advance();
}

/// Back to where they came from, less what has been withdrawn since: a request that is due must not
/// be shown because it was added again.
void BusSender::takeBackUnconfirmed()
{
    waiting_.insert(waiting_.begin(), std::make_move_iterator(unconfirmed_.begin()),
                    std::make_move_iterator(unconfirmed_.end()));
    unconfirmed_ = {};
    QSet<QString> withdrawn;
    bool isAllWithdrawn = false;
    std::deque<Call> kept;
    while (!waiting_.empty()) { // From the last to the first.
        Call call = std::move(waiting_.back());
        waiting_.pop_back();
        const QVariant argument = call.arguments.value(0);
        const bool isAdd = call.method == u"AddRequest";
        if (isAdd && (isAllWithdrawn || withdrawn.contains(argument.toString()))) {
            continue;
        }
        if (call.method == u"RemovePendingRequests") {
            const QStringList identifiers = argument.toStringList();
            withdrawn.unite({identifiers.begin(), identifiers.end()});
        }
        isAllWithdrawn = isAllWithdrawn || call.method == u"RemoveAllPendingRequests";
        kept.push_front(std::move(call));
    }
    waiting_ = std::move(kept);
}

} // namespace norvane

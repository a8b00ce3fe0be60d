// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/client/BusSender.h"

#include "platform/bus/BusNames.h"
#include "platform/bus/PendingCall.h"
#include "platform/session/SpareMemory.h"

#include <QDBusPendingReply>
#include <QEventLoop>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <tuple>
#include <utility>
#include <vector>

namespace norvane {

namespace {

using namespace std::chrono_literals;

/// How long the fallback program may take to own the centre's name.
constexpr auto timeForFallback = 5s;

/// Before the next attempt to start the centre or to connect; doubled each time.
constexpr auto firstPause = 1s;
constexpr auto longestPause = 60s;

/// Few enough for the centre to write them to the disk at once, many enough for thousands a second.
constexpr std::size_t batchSize = 1'000;

/// After so many calls, the memory that they took is given back to the system.
constexpr std::size_t callsOfBurst = 100;

} // namespace

BusSender::BusSender(QString fallbackProgram, TakesLonger takesLonger)
    : fallbackProgram_{std::move(fallbackProgram)},
      takesLonger_{std::move(takesLonger)},
      link_{this},
      mostInBatch_{batchSize},
      nextStep_{this},
      startTimeout_{this}
{
    connect(&link_, &BusLink::lost, this, &BusSender::busLost);
    connect(&link_, &BusLink::centreAppeared, this, &BusSender::centreAppeared);
    connect(&link_, &BusLink::centreGone, this, &BusSender::centreGone);
    nextStep_.setSingleShot(true);
    connect(&nextStep_, &QTimer::timeout, this, &BusSender::advance);
    startTimeout_.setSingleShot(true);
    startTimeout_.setInterval(timeForFallback);
    connect(&startTimeout_, &QTimer::timeout, this,
            [this] { centreDoesNotStart(fallbackProgram_ + u" does not take its name"); });
}

void BusSender::setBusAddress(const QString &address)
{
    address_ = address;
    nextStep_.start(0ms);
}

void BusSender::send(const CallQueue::Call &call)
{
    if (state_ == State::WithoutBus) {
        return;
    }
    calls_.append(call);
    if (!nextStep_.isActive()) {
        // One step sends all calls that arrive until then.
        nextStep_.start(state_ == State::NoCentre ? pause_ : 0ms);
    }
}

void BusSender::flush(std::chrono::milliseconds timeout,
                      std::chrono::milliseconds timeoutWhileStarting)
{
    const auto isOver = [this] {
        return calls_.isEmpty() || !link_.isOpen() || state_ == State::NoCentre;
    };
    mostInBatch_ = std::numeric_limits<std::size_t>::max();
    nextStep_.stop();
    advance(); // Without the pause, if there is one.
    if (state_ == State::Confirming) {
        sendBatch(); // The centre answers in order, so this confirms the earlier batch too.
    }
    if (isOver()) {
        return;
    }
    QEventLoop untilOver;
    QTimer limit;
    limit.setSingleShot(true);
    connect(&limit, &QTimer::timeout, &untilOver, [&] {
        if (isStarting_) {
            *takesLonger_ = true;
        } else {
            untilOver.quit();
        }
    });
    connect(this, &BusSender::stateChanged, &untilOver, [&] {
        if (isOver()) {
            untilOver.quit();
        } else if (!limit.isActive()) { // The centre was long in starting, but now it can answer.
            limit.start(timeout);
        }
    });
    limit.start(timeout);
    QTimer::singleShot(timeoutWhileStarting, &untilOver, &QEventLoop::quit);
    untilOver.exec();
}

void BusSender::advance()
{
    if (!calls_.hasWaiting() || !address_) {
        return;
    }
    if (state_ == State::Disconnected) {
        connectToBus();
    }
    if (state_ == State::NoCentre) {
        startCentre();
    } else if (state_ == State::Ready) {
        sendBatch();
    }
}

void BusSender::enter(State state)
{
    ++transitions_;
    startTimeout_.stop();
    isStarting_ = false;
    state_ = state;
    emit stateChanged();
}

void BusSender::connectToBus()
{
    if (link_.open(*address_)) {
        enter(State::NoCentre);
    } else if (pause_ > 0ms) { // There was a bus.
        retryLater();
    } else {
        calls_.clear();
        enter(State::WithoutBus);
    }
}

void BusSender::busLost()
{
    calls_.takeBack();
    enter(State::Disconnected);
    pause_ = std::max<std::chrono::milliseconds>(pause_, firstPause);
    retryLater();
}

void BusSender::centreAppeared()
{
    if (state_ == State::NoCentre || state_ == State::Starting) {
        enter(State::Ready);
        advance();
    }
}

void BusSender::centreDoesNotStart(const QString &reason)
{
    reportOnce(QStringLiteral("the notification centre does not start (%1), so no reminder will "
                              "be shown")
                   .arg(reason));
    pause_ = std::max<std::chrono::milliseconds>(pause_, firstPause);
    enter(State::NoCentre);
}

void BusSender::centreGone()
{
    if (state_ == State::Ready || state_ == State::Confirming) {
        calls_.takeBack();
        enter(State::NoCentre);
        retryLater();
    }
}

void BusSender::batchConfirmed()
{
    confirmed_ += calls_.confirm();
    if (calls_.isEmpty() && std::exchange(confirmed_, 0) >= callsOfBurst) {
        giveBackSpareMemory();
    }
    pause_ = 0ms;
    enter(State::Ready);
    advance();
}

template <typename Handler>
void BusSender::whenAnswered(const QDBusMessage &call, Handler handler)
{
    callLater(link_.bus(), call, this,
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
                startFallback(start.error());
            } else {
                centreAppeared();
            }
        });
    // The bus handles calls in order: once it answers this one, it has begun to start the centre.
    whenAnswered(callToBus(QStringLiteral("GetId")), [this](const QDBusPendingCall &answer) {
        isStarting_ = state_ == State::Starting && !answer.isError();
    });
}

void BusSender::startFallback(const QDBusError &error)
{
    // A bus refuses to start a centre that is not installed, even if that centre is running.
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
            if (error.type() != QDBusError::ServiceUnknown) {
                reportOnce(QStringLiteral("the session bus cannot start the notification centre "
                                          "(%1), so Norvane starts it")
                               .arg(error.message()));
            }
            startTimeout_.start();
        });
}

void BusSender::sendBatch()
{
    const std::vector<CallQueue::Call> batch = calls_.takeBatch(mostInBatch_);
    if (batch.empty()) {
        return;
    }
    enter(State::Confirming);
    std::for_each(batch.begin(), batch.end() - 1, [this](const CallQueue::Call &call) {
        std::ignore = link_.bus().send(call.message()); // Fails without a bus only: see busLost().
    });
    whenAnswered(batch.back().message(), [this](const QDBusPendingCall &answer) {
        if (BusLink::isAnswerOfCentre(answer.error())) {
            batchConfirmed();
        } else {
            centreGone();
        }
    });
}

/// The first retry comes at once, because the centre may have ended normally or been replaced.
void BusSender::retryLater()
{
    if (calls_.hasWaiting()) {
        nextStep_.start(pause_);
        pause_ = std::clamp<std::chrono::milliseconds>(pause_ * 2, firstPause, longestPause);
    }
}

void BusSender::reportOnce(const QString &sentence)
{
    if (!std::exchange(hasReported_, true)) {
        std::fprintf(stderr, "norvane: %s\n", qUtf8Printable(sentence));
    }
}

} // namespace norvane

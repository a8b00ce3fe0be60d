// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/StopSignals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace norvane {

namespace {

constexpr std::array<int, 3> stopping{SIGTERM, SIGINT, SIGHUP};

/// The pipe from the signal handler, which may do hardly more than write(2), to the event loop.
std::array<int, 2> pipeEnds{-1, -1}; // NOLINT(*-avoid-non-const-global-variables)

void writeToPipe(int /*signal*/)
{
    const int interrupted = errno; // Whatever was interrupted may be about to look at it.
    const char byte = 0;
    std::ignore = ::write(pipeEnds[1], &byte, 1);
    errno = interrupted;
}

} // namespace

StopSignals::StopSignals()
{
    if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return; // Then a signal ends the process as it always does.
    }
    received_.emplace(pipeEnds[0], QSocketNotifier::Read);
    connect(&*received_, &QSocketNotifier::activated, this, [this] {
        std::array<char, 16> bytes{};
        std::ignore = ::read(pipeEnds[0], bytes.data(), bytes.size());
        isReported_ = true;
        emit stopRequested();
    });
    struct sigaction action = {};
    action.sa_handler = writeToPipe;
    action.sa_flags = SA_RESTART;
    for (const int signal : stopping) {
        struct sigaction former = {};
        ::sigaction(signal, nullptr, &former);
        if (former.sa_handler != SIG_IGN) {
            ::sigaction(signal, &action, nullptr);
            taken_.append(signal);
        }
    }
}

StopSignals::~StopSignals()
{
    for (const int signal : std::as_const(taken_)) {
        std::signal(signal, SIG_DFL);
    }
    received_.reset();
    ::close(pipeEnds[0]);
    ::close(pipeEnds[1]);
}

bool StopSignals::isRequested() const
{
    pollfd readable{.fd = pipeEnds[0], .events = POLLIN, .revents = 0};
    return isReported_ || ::poll(&readable, 1, 0) > 0;
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/WallClockTimer.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>

#include <sys/timerfd.h>
#include <unistd.h>

namespace norvane {

namespace {

/// The kernel counts nanoseconds in 64 bits, which end in 2262. What lies beyond is approached in
/// steps: the owner finds nothing due and sets the timer again.
constexpr std::chrono::seconds farthest =
    std::chrono::sys_days{std::chrono::year{2200} / std::chrono::January / 1}.time_since_epoch();

} // namespace

WallClockTimer::WallClockTimer(QObject *parent)
    : Alarm{parent},
      descriptor_{::timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC)},
      readable_{QSocketNotifier::Read}
{
    if (descriptor_ < 0) {
        qWarning("The kernel grants no timer; reminders come only with the next call or start.");
        return;
    }
    readable_.setSocket(descriptor_);
    connect(&readable_, &QSocketNotifier::activated, this, &WallClockTimer::expire);
    readable_.setEnabled(true);
}

WallClockTimer::~WallClockTimer()
{
    ::close(descriptor_); // Refused where there is none.
}

void WallClockTimer::set(std::chrono::sys_seconds moment)
{
    // Nothing before 1970 is taken, and zero would switch the timer off instead of firing it.
    const std::chrono::seconds at =
        std::clamp(moment.time_since_epoch(), std::chrono::seconds{1}, farthest);
    const itimerspec when{.it_interval = {}, .it_value = {.tv_sec = at.count(), .tv_nsec = 0}};
    if (::timerfd_settime(descriptor_, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &when,
                          nullptr) != 0 &&
        errno == ECANCELED) {
        // It is armed all the same. The clock was set since the last call, which read() will not
        // report any more.
        QMetaObject::invokeMethod(this, &Alarm::clockSet, Qt::QueuedConnection);
    }
}

void WallClockTimer::expire()
{
    std::uint64_t expirations = 0;
    if (::read(descriptor_, &expirations, sizeof expirations) == sizeof expirations) {
        emit fired();
    } else if (errno == ECANCELED) {
        emit clockSet();
    }
}

} // namespace norvane

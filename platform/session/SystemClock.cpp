// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/SystemClock.h"

#include <chrono>

namespace norvane {

PointInTime SystemClock::now() const
{
    const std::chrono::duration<double> sinceEpoch =
        std::chrono::system_clock::now().time_since_epoch();
    return PointInTime::fromUnixSeconds(sinceEpoch.count());
}

Zone SystemClock::zone() const
{
    return Zone::ofMachine();
}

} // namespace norvane

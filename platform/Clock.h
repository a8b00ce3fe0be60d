// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "time/Calendar.h"
#include "time/PointInTime.h"
#include "time/Zone.h"

namespace norvane {

/// Tells the current time, and the time zone of those who read it.
class Clock {
public:
    Clock() = default;
    Clock(const Clock &) = delete;
    Clock &operator=(const Clock &) = delete;
    virtual ~Clock() = default;

    [[nodiscard]] virtual PointInTime now() const = 0;
    /// The user's time zone at the moment of the call: it changes on a journey.
    [[nodiscard]] virtual Zone zone() const = 0;

    /// The calendar in that zone.
    [[nodiscard]] Calendar calendar() const { return Calendar{zone()}; }
};

} // namespace norvane

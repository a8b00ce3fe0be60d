// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "time/Calendar.h"

namespace norvane {

/// Gives the user's current calendar, in the time zone the machine is in at the moment of the call.
class CalendarSource {
public:
    CalendarSource() = default;
    CalendarSource(const CalendarSource &) = delete;
    CalendarSource &operator=(const CalendarSource &) = delete;
    virtual ~CalendarSource() = default;

    [[nodiscard]] virtual Calendar current() const = 0;
};

} // namespace norvane

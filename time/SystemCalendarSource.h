// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "time/CalendarSource.h"

namespace norvane {

/// The calendar in the machine's time zone; a change of zone counts from the next call.
class SystemCalendarSource final : public CalendarSource {
public:
    [[nodiscard]] Calendar current() const override;
};

} // namespace norvane

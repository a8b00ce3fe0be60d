// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "time/WallClockMinute.h"

#include <QStringView>
#include <QTimeZone>

#include <chrono>
#include <optional>
#include <vector>

namespace norvane {

/// The minute that `yyyy-MM-ddTHH:mm` names, in ASCII digits and nothing else around it; nothing
/// when the text has another form or the calendar no such minute.
[[nodiscard]] std::optional<WallClockMinute> minuteFrom(QStringView text);

/// The moments at which clocks in the zone reach the minute, earliest first; never empty.
///
/// Two where daylight saving ends and the minute comes twice. A minute that daylight saving skips
/// is reached at the first instant after the gap.
[[nodiscard]] std::vector<std::chrono::sys_seconds> momentsOf(const WallClockMinute &minute,
                                                              const QTimeZone &zone);

/// The moment that counts for a minute asked for now: its first occurrence that is not over yet,
/// else the last.
[[nodiscard]] std::chrono::sys_seconds
dueMoment(const WallClockMinute &minute, const QTimeZone &zone, std::chrono::sys_seconds now);

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "time/PointInTime.h"
#include "time/WallClockMinute.h"
#include "time/Zone.h"

#include <chrono>
#include <optional>
#include <vector>

namespace norvane {

/// The Gregorian calendar in one time zone: what day and minute a moment falls in, and when a
/// minute comes.
///
/// A value; safe for every double. Moments outside the years this calendar can hold, some two
/// hundred million either way, have no answer.
///
/// Clocks that are set back show a time twice; clocks that are set forward skip one. For a time
/// that is skipped there are two good answers, and both are needed: a date that a user chose moves
/// on by the length of the gap, as other calendars do it, while a reminder comes at the first
/// instant after the gap, because its minute is then in the past.
class Calendar {
public:
    explicit Calendar(Zone zone);

    /// Whole calendar days between two moments, both with their time of day, truncated toward zero.
    ///
    /// A day is the calendar's, not 24 hours: across a change of daylight-saving time it is the
    /// same time on another date. Negative when `to` is the earlier one.
    [[nodiscard]] std::optional<qint64> wholeDays(PointInTime from, PointInTime to) const;

    /// The minute in which the moment falls; nothing outside the years 1 to 9999.
    [[nodiscard]] std::optional<WallClockMinute> minuteOf(PointInTime moment) const;

    /// The moment at which the wall clock shows this minute, with the seconds of `moment`.
    ///
    /// A minute that comes twice is the one with the UTC offset of `moment` where that is one of
    /// the two, else the later one. One that is skipped moves on by the length of the gap. Nothing
    /// where this calendar cannot hold the moment, or where no date of the years 1 to 9999 has the
    /// minute.
    [[nodiscard]] std::optional<PointInTime> movedToMinute(PointInTime moment,
                                                           const WallClockMinute &minute) const;

    /// The moments at which clocks reach the minute, which must be valid: one or two, earliest
    /// first. A minute that is skipped is reached at the first instant after the gap.
    [[nodiscard]] std::vector<std::chrono::sys_seconds>
    momentsOf(const WallClockMinute &minute) const;

    /// The moment that counts for a minute asked for now: the first of momentsOf() whose minute is
    /// not over yet, else the last.
    [[nodiscard]] std::chrono::sys_seconds dueMoment(const WallClockMinute &minute,
                                                     std::chrono::sys_seconds now) const;

private:
    struct LocalTime;
    enum class WhenSkipped { MoveOn, EndOfGap };

    [[nodiscard]] std::optional<LocalTime> localTime(PointInTime moment) const;
    [[nodiscard]] std::vector<std::chrono::sys_seconds>
    momentsOf(std::chrono::local_seconds reading, WhenSkipped whenSkipped) const;
    [[nodiscard]] std::chrono::sys_seconds onDay(const LocalTime &start,
                                                 std::chrono::local_days day) const;

    Zone zone_;
};

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "time/PointInTime.h"
#include "time/WallClockMinute.h"

#include <QTimeZone>

#include <optional>

namespace norvane {

/// The Gregorian calendar in one time zone: what day and minute a moment falls in.
///
/// A value; safe for every double. What lies outside the years this calendar can hold, some two
/// hundred million either way, has no answer.
class Calendar {
public:
    explicit Calendar(const QTimeZone &zone);

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
    /// the two. One that daylight saving skips moves on by the length of the gap. Nothing where
    /// this calendar cannot hold the moment, or where no date of the years 1 to 9999 has the
    /// minute.
    [[nodiscard]] std::optional<PointInTime> movedToMinute(PointInTime moment,
                                                           const WallClockMinute &minute) const;

private:
    struct LocalTime;

    [[nodiscard]] qint64 offsetAt(qint64 unixSeconds) const;
    [[nodiscard]] std::optional<LocalTime> localTime(PointInTime moment) const;
    [[nodiscard]] qint64 shiftedByDays(const LocalTime &start, qint64 days) const;

    QTimeZone zone_;
};

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "time/Calendar.h"

#include <QDateTime>

#include <cmath>

namespace norvane {

namespace {

constexpr qint64 secondsPerDay = 86'400;
/// Seconds whose milliseconds still fit 64 bits, with room for a few days of arithmetic.
constexpr double farthestUnixSecond = 6.0e15;

bool isInYears1To9999(const QDate &date)
{
    return date.isValid() && date.year() >= 1 && date.year() <= 9999;
}

constexpr qint64 floorDivide(qint64 dividend, qint64 divisor)
{
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

} // namespace

/// A moment split for calendar arithmetic; the fraction of a second rides along unchanged.
struct Calendar::LocalTime {
    qint64 unixSeconds;
    double fraction; ///< 0 up to, not including, 1.
    qint64 offset;   ///< Seconds east of UTC.
    qint64 day;      ///< Days since 1970-01-01 on the local calendar.
    qint64 secondOfDay;
};

Calendar::Calendar(const QTimeZone &zone) : zone_{zone} {}

qint64 Calendar::offsetAt(qint64 unixSeconds) const
{
    return zone_.offsetFromUtc(
        QDateTime::fromMSecsSinceEpoch(unixSeconds * 1000, QTimeZone::utc()));
}

std::optional<Calendar::LocalTime> Calendar::localTime(PointInTime moment) const
{
    // Floored before the epochs are aligned: adding large to small would round a moment just
    // before a minute into the next one.
    const double whole = std::floor(moment.secondsSinceReference());
    if (!(std::abs(whole) < farthestUnixSecond)) {
        return std::nullopt;
    }
    const qint64 unixSeconds = static_cast<qint64>(whole) + PointInTime::referenceInUnixSeconds;
    const qint64 offset = offsetAt(unixSeconds);
    const qint64 local = unixSeconds + offset;
    const qint64 day = floorDivide(local, secondsPerDay);
    return LocalTime{.unixSeconds = unixSeconds,
                     .fraction = moment.secondsSinceReference() - whole,
                     .offset = offset,
                     .day = day,
                     .secondOfDay = local - day * secondsPerDay};
}

/// The Unix second that has the same time of day on another date.
///
/// A time that comes twice is taken with the start's own offset where that is one of the two; a
/// time that daylight saving skips moves on by the length of the gap.
qint64 Calendar::shiftedByDays(const LocalTime &start, qint64 days) const
{
    const qint64 local = (start.day + days) * secondsPerDay + start.secondOfDay;
    const qint64 kept = local - start.offset;
    if (offsetAt(kept) == start.offset) {
        return kept;
    }
    const qint64 before = offsetAt(local - start.offset - secondsPerDay);
    const qint64 after = offsetAt(local - start.offset + secondsPerDay);
    if (const qint64 later = local - after; offsetAt(later) == after) {
        return later;
    }
    return local - before;
}

std::optional<qint64> Calendar::wholeDays(PointInTime from, PointInTime to) const
{
    const std::optional<LocalTime> start = localTime(from);
    const std::optional<LocalTime> end = localTime(to);
    if (!start || !end) {
        return std::nullopt;
    }
    const bool forward = from <= to;
    const qint64 step = forward ? 1 : -1;
    const auto overshoots = [&](qint64 days) {
        const qint64 shifted = shiftedByDays(*start, days);
        if (shifted != end->unixSeconds) {
            return forward == (shifted > end->unixSeconds);
        }
        return forward ? start->fraction > end->fraction : start->fraction < end->fraction;
    };
    qint64 days = end->day - start->day + step;
    while (days * step > 0 && overshoots(days)) {
        days -= step;
    }
    return days * step > 0 ? days : 0;
}

std::optional<WallClockMinute> Calendar::minuteOf(PointInTime moment) const
{
    const std::optional<LocalTime> local = localTime(moment);
    if (!local) {
        return std::nullopt;
    }
    const QDate date = QDate{1970, 1, 1}.addDays(local->day);
    if (!isInYears1To9999(date)) {
        return std::nullopt;
    }
    const int minuteOfDay = static_cast<int>(local->secondOfDay / 60);
    return WallClockMinute{.year = date.year(),
                           .month = date.month(),
                           .day = date.day(),
                           .hour = minuteOfDay / 60,
                           .minute = minuteOfDay % 60};
}

std::optional<PointInTime> Calendar::movedToMinute(PointInTime moment,
                                                   const WallClockMinute &minute) const
{
    std::optional<LocalTime> local = localTime(moment);
    const QDate date{minute.year, minute.month, minute.day};
    if (!local || !isInYears1To9999(date) || !QTime::isValid(minute.hour, minute.minute, 0)) {
        return std::nullopt;
    }
    const qint64 day = QDate{1970, 1, 1}.daysTo(date);
    const qint64 second = local->secondOfDay % 60;
    local->secondOfDay = (minute.hour * 60LL + minute.minute) * 60 + second;
    const qint64 unixSeconds = shiftedByDays(*local, day - local->day);
    return PointInTime{static_cast<double>(unixSeconds - PointInTime::referenceInUnixSeconds) +
                       local->fraction};
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "time/Calendar.h"

#include <QDate>

#include <algorithm>
#include <cmath>
#include <utility>

namespace norvane {

namespace {

using std::chrono::days;
using std::chrono::floor;
using std::chrono::local_days;
using std::chrono::local_seconds;
using std::chrono::minutes;
using std::chrono::seconds;
using std::chrono::sys_seconds;

/// Seconds whose milliseconds still fit 64 bits, with room for a few days of arithmetic.
constexpr double farthestUnixSecond = 6.0e15;

local_seconds readingOf(const WallClockMinute &minute)
{
    const days day{QDate{1970, 1, 1}.daysTo(QDate{minute.year, minute.month, minute.day})};
    return local_days{day} + std::chrono::hours{minute.hour} + minutes{minute.minute};
}

} // namespace

/// A moment as clocks in the zone show it; the fraction of a second is kept apart.
struct Calendar::LocalTime {
    sys_seconds moment;
    double fraction; ///< 0 up to, not including, 1.
    seconds offset;  ///< East of UTC.
    local_days day;
    seconds timeOfDay;
};

Calendar::Calendar(Zone zone) : zone_{std::move(zone)} {}

std::optional<Calendar::LocalTime> Calendar::localTime(PointInTime moment) const
{
    const double whole = std::floor(moment.secondsSinceReference());
    if (!(std::abs(whole) < farthestUnixSecond)) {
        return std::nullopt;
    }
    const sys_seconds second = moment.wholeSecond();
    const seconds offset = zone_.offsetAt(second);
    const local_seconds reading{second.time_since_epoch() + offset};
    const local_days day = floor<days>(reading);
    return LocalTime{.moment = second,
                     .fraction = moment.secondsSinceReference() - whole,
                     .offset = offset,
                     .day = day,
                     .timeOfDay = reading - day};
}

/// The moments at which clocks show this reading, earliest first; where they skip it, the one
/// moment that stands for it.
std::vector<sys_seconds> Calendar::momentsOf(local_seconds reading, WhenSkipped whenSkipped) const
{
    // No zone is a day or more from UTC, and none changes its clocks twice within two days: around
    // the reading there are at most two offsets.
    const sys_seconds asIfUtc{reading.time_since_epoch()};
    const seconds before = zone_.offsetAt(asIfUtc - days{1});
    const seconds after = zone_.offsetAt(asIfUtc + days{1});
    if (before == after) {
        return {asIfUtc - before};
    }
    std::vector<sys_seconds> moments;
    for (const seconds offset : {before, after}) {
        if (zone_.offsetAt(asIfUtc - offset) == offset) {
            moments.push_back(asIfUtc - offset);
        }
    }
    if (!moments.empty()) {
        return moments;
    }
    sys_seconds inTheNewOffset = asIfUtc - before;
    if (whenSkipped == WhenSkipped::EndOfGap) {
        for (sys_seconds inTheOld = asIfUtc - after; inTheNewOffset - inTheOld > seconds{1};) {
            const sys_seconds middle = inTheOld + (inTheNewOffset - inTheOld) / 2;
            (zone_.offsetAt(middle) == before ? inTheOld : inTheNewOffset) = middle;
        }
    }
    return {inTheNewOffset};
}

/// The moment that has the start's time of day on another day.
sys_seconds Calendar::onDay(const LocalTime &start, local_days day) const
{
    const local_seconds reading = day + start.timeOfDay;
    const std::vector<sys_seconds> moments = momentsOf(reading, WhenSkipped::MoveOn);
    const sys_seconds inItsOffset{reading.time_since_epoch() - start.offset};
    return std::ranges::count(moments, inItsOffset) > 0 ? inItsOffset : moments.back();
}

std::optional<qint64> Calendar::wholeDays(PointInTime from, PointInTime to) const
{
    const std::optional<LocalTime> start = localTime(from);
    const std::optional<LocalTime> end = localTime(to);
    if (!start || !end) {
        return std::nullopt;
    }
    const bool forward = from <= to;
    const days step{forward ? 1 : -1};
    const auto overshoots = [&](days count) {
        const sys_seconds shifted = onDay(*start, start->day + count);
        if (shifted != end->moment) {
            return forward == (shifted > end->moment);
        }
        return forward ? start->fraction > end->fraction : start->fraction < end->fraction;
    };
    // One more than the dates differ by: a time that is skipped can lie on the next date.
    days count = end->day - start->day + step;
    while (count / step > 0 && overshoots(count)) {
        count -= step;
    }
    return count / step > 0 ? count.count() : 0;
}

std::optional<WallClockMinute> Calendar::minuteOf(PointInTime moment) const
{
    const std::optional<LocalTime> local = localTime(moment);
    if (!local) {
        return std::nullopt;
    }
    const QDate date = QDate{1970, 1, 1}.addDays(local->day.time_since_epoch().count());
    const auto minuteOfDay = static_cast<int>(floor<minutes>(local->timeOfDay).count());
    const WallClockMinute minute{.year = date.year(),
                                 .month = date.month(),
                                 .day = date.day(),
                                 .hour = minuteOfDay / 60,
                                 .minute = minuteOfDay % 60};
    return minute.isValid() ? std::optional{minute} : std::nullopt;
}

std::optional<PointInTime> Calendar::movedToMinute(PointInTime moment,
                                                   const WallClockMinute &minute) const
{
    std::optional<LocalTime> local = localTime(moment);
    if (!local || !minute.isValid()) {
        return std::nullopt;
    }
    const local_seconds reading = readingOf(minute) + local->timeOfDay % minutes{1};
    const local_days day = floor<days>(reading);
    local->timeOfDay = reading - day;
    const qint64 unixSeconds = onDay(*local, day).time_since_epoch().count();
    return PointInTime{static_cast<double>(unixSeconds - PointInTime::referenceInUnixSeconds) +
                       local->fraction};
}

std::vector<sys_seconds> Calendar::momentsOf(const WallClockMinute &minute) const
{
    return momentsOf(readingOf(minute), WhenSkipped::EndOfGap);
}

sys_seconds Calendar::dueMoment(const WallClockMinute &minute, sys_seconds now) const
{
    const std::vector<sys_seconds> moments = momentsOf(minute);
    const auto next = std::ranges::find_if(
        moments, [now](sys_seconds moment) { return moment + minutes{1} > now; });
    return next != moments.end() ? *next : moments.back();
}

} // namespace norvane

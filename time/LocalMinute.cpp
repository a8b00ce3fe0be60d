// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "time/LocalMinute.h"

#include <QDateTime>

#include <algorithm>

namespace norvane {

namespace {

using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_seconds;

/// A zone's clocks are never further than this from another reading of the same instant.
constexpr days reach{1};

QDateTime dateTime(sys_seconds moment)
{
    return QDateTime::fromSecsSinceEpoch(moment.time_since_epoch().count(), QTimeZone::utc());
}

seconds offsetAt(sys_seconds moment, const QTimeZone &zone)
{
    return seconds{zone.offsetFromUtc(dateTime(moment))};
}

/// The number that these digits write; -1 when there is anything else among them.
int number(QStringView digits)
{
    int value = 0;
    for (const QChar digit : digits) {
        if (digit < u'0' || digit > u'9') {
            return -1;
        }
        value = value * 10 + (digit.unicode() - u'0');
    }
    return value;
}

} // namespace

std::optional<WallClockMinute> minuteFrom(QStringView text)
{
    if (text.size() != 16 || text[4] != u'-' || text[7] != u'-' || text[10] != u'T' ||
        text[13] != u':') {
        return std::nullopt;
    }
    const WallClockMinute minute{.year = number(text.first(4)),
                                 .month = number(text.sliced(5, 2)),
                                 .day = number(text.sliced(8, 2)),
                                 .hour = number(text.sliced(11, 2)),
                                 .minute = number(text.sliced(14, 2))};
    if (minute.year < 1 || !QDate::isValid(minute.year, minute.month, minute.day) ||
        !QTime::isValid(minute.hour, minute.minute, 0)) {
        return std::nullopt;
    }
    return minute;
}

std::vector<sys_seconds> momentsOf(const WallClockMinute &minute, const QTimeZone &zone)
{
    const QDateTime asIfUtc{QDate{minute.year, minute.month, minute.day},
                            QTime{minute.hour, minute.minute}, QTimeZone::utc()};
    const sys_seconds reading{seconds{asIfUtc.toSecsSinceEpoch()}};
    const seconds before = offsetAt(reading - reach, zone);
    if (before == offsetAt(reading + reach, zone)) {
        return {reading - before};
    }

    std::vector<sys_seconds> moments;
    seconds earlier = before;
    sys_seconds since = sys_seconds::min();
    for (const QTimeZone::OffsetData &change :
         zone.transitions(dateTime(reading - reach), dateTime(reading + reach))) {
        const sys_seconds at{seconds{change.atUtc.toSecsSinceEpoch()}};
        const seconds later{change.offsetFromUtc};
        if (const sys_seconds moment = reading - earlier; since <= moment && moment < at) {
            moments.push_back(moment);
        }
        if (at + earlier <= reading && reading < at + later) {
            moments.push_back(at); // The clocks jump over the minute.
        }
        earlier = later;
        since = at;
    }
    if (const sys_seconds moment = reading - earlier; since <= moment) {
        moments.push_back(moment);
    }
    if (moments.empty()) {
        moments.push_back(reading - before); // A zone whose tables contradict themselves.
    }
    return moments;
}

sys_seconds dueMoment(const WallClockMinute &minute, const QTimeZone &zone, sys_seconds now)
{
    const std::vector<sys_seconds> moments = momentsOf(minute, zone);
    const auto next = std::ranges::find_if(
        moments, [now](sys_seconds moment) { return moment + std::chrono::minutes{1} > now; });
    return next != moments.end() ? *next : moments.back();
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/UserCalendar.h"

#include "platform/Clock.h"

#include <QDate>
#include <QRegularExpression>

#include <algorithm>

namespace norvane {

namespace {

using Field = DateTimeFormat::Field;

QDate dateOf(int day)
{
    return QDate::fromJulianDay(day);
}

int dayNumber(const QDate &date)
{
    return static_cast<int>(date.toJulianDay());
}

QDate dateOf(const WallClockMinute &minute)
{
    return {minute.year, minute.month, minute.day};
}

QDate steppedDate(const QDate &date, Field field, int steps)
{
    switch (field) {
    case Field::Month:
        return date.addMonths(steps);
    case Field::Year:
        return date.addYears(steps);
    default:
        return date.addDays(steps);
    }
}

int secondsOf(Field field)
{
    switch (field) {
    case Field::Minute:
        return 60;
    case Field::HalfOfDay:
        return 12 * 3600;
    default:
        return 3600;
    }
}

/// The moment on another date at the time of day of `time`; nothing outside the years 1 to 9999.
std::optional<PointInTime> moved(const Calendar &calendar, PointInTime moment, const QDate &date,
                                 PointInTime time)
{
    std::optional<WallClockMinute> minute = calendar.minuteOf(time);
    if (!minute || !date.isValid() || date.year() < 1 || date.year() > 9999) {
        return std::nullopt;
    }
    minute->year = date.year();
    minute->month = date.month();
    minute->day = date.day();
    return calendar.movedToMinute(moment, *minute);
}

/// The part of a long date's format that is month and year: "MMMM yyyy", but "yyyy年M月" where
/// the year leads.
QString monthFormat(const QString &longDate)
{
    const qsizetype month = longDate.indexOf(u'M');
    const qsizetype year = longDate.indexOf(u'y');
    const qsizetype start = std::min(month, year);
    const qsizetype end = std::max(longDate.lastIndexOf(u'M'), longDate.lastIndexOf(u'y')) + 1;
    const QString middle = longDate.mid(start, end - start);
    static const QRegularExpression quoted{QStringLiteral("'[^']*'")};
    if (start < 0 || QString{middle}.remove(quoted).contains(u'd')) {
        return QStringLiteral("MMMM yyyy");
    }
    const bool unitFollows = end < longDate.size() && longDate.at(end).isLetter() &&
                             longDate.at(end).script() != QChar::Script_Latin;
    return unitFollows ? middle + longDate.at(end) : middle;
}

} // namespace

UserCalendar::UserCalendar(const Clock &clock, const QLocale &locale)
    : clock_{clock},
      locale_{locale},
      dayFormat_{DateTimeFormat::ofDay(locale)},
      timeFormat_{DateTimeFormat::ofTime(locale)}
{
}

const DateTimeFormat &UserCalendar::format(Part part) const
{
    return part == Part::Day ? dayFormat_ : timeFormat_;
}

QString UserCalendar::text(PointInTime moment, Part part) const
{
    const std::optional<WallClockMinute> minute = clock_.calendar().minuteOf(moment);
    return minute ? format(part).shown(*minute).text : QString{};
}

bool UserCalendar::understands(PointInTime moment, Part part, const QString &text) const
{
    const std::optional<WallClockMinute> before = clock_.calendar().minuteOf(moment);
    return before && format(part).read(text, *before);
}

PointInTime UserCalendar::typed(PointInTime moment, Part part, const QString &text,
                                PointInTime timeOfDay) const
{
    const Calendar calendar = clock_.calendar();
    const std::optional<WallClockMinute> before = calendar.minuteOf(moment);
    if (!before) {
        return moment;
    }
    const std::optional<WallClockMinute> after = format(part).read(text, *before);
    // What was not changed stays to the second, also in an hour that comes twice.
    if (!after || *after == *before) {
        return moment;
    }
    return part == Part::Day ? moved(calendar, moment, dateOf(*after), timeOfDay).value_or(moment)
                             : calendar.movedToMinute(moment, *after).value_or(moment);
}

int UserCalendar::valueOf(PointInTime moment, Part part) const
{
    const std::optional<WallClockMinute> minute = clock_.calendar().minuteOf(moment);
    return part == Part::Day ? dayOf(moment) : minute ? minute->hour * 60 + minute->minute : 0;
}

QString UserCalendar::widest(Part part) const
{
    constexpr WallClockMinute wide{.year = 2088, .month = 10, .day = 28, .hour = 22, .minute = 58};
    return format(part).shown(wide).text;
}

QList<DateTimeFormat::Section> UserCalendar::sections(PointInTime moment, Part part) const
{
    const std::optional<WallClockMinute> minute = clock_.calendar().minuteOf(moment);
    return minute ? format(part).shown(*minute).sections : QList<DateTimeFormat::Section>{};
}

int UserCalendar::fieldAt(PointInTime moment, Part part, int position) const
{
    Field field = part == Part::Day ? Field::Day : Field::Hour;
    if (position >= 0) {
        for (const DateTimeFormat::Section &section : sections(moment, part)) {
            field = section.field;
            if (position <= section.start + section.length) {
                break;
            }
        }
    }
    return static_cast<int>(field);
}

TextRange UserCalendar::section(PointInTime moment, Part part, int field) const
{
    for (const DateTimeFormat::Section &section : sections(moment, part)) {
        if (section.field == static_cast<Field>(field)) {
            return {.start = section.start, .end = section.start + section.length};
        }
    }
    return {};
}

PointInTime UserCalendar::stepped(PointInTime moment, int field, int steps,
                                  PointInTime timeOfDay) const
{
    const Calendar calendar = clock_.calendar();
    const auto which = static_cast<Field>(field);
    if (which == Field::Day || which == Field::Month || which == Field::Year) {
        const QDate date = steppedDate(dateOf(dayOf(moment)), which, steps);
        return moved(calendar, moment, date, timeOfDay).value_or(moment);
    }
    const PointInTime later = moment.advanced(static_cast<double>(steps) * secondsOf(which));
    return calendar.minuteOf(later) ? later : moment;
}

int UserCalendar::today() const
{
    return dayOf(clock_.now());
}

int UserCalendar::dayOf(PointInTime moment) const
{
    const std::optional<WallClockMinute> minute = clock_.calendar().minuteOf(moment);
    return dayNumber(minute ? dateOf(*minute) : QDate{2001, 1, 1});
}

PointInTime UserCalendar::onDay(PointInTime moment, int day, PointInTime timeOfDay) const
{
    return moved(clock_.calendar(), moment, dateOf(day), timeOfDay).value_or(moment);
}

int UserCalendar::monthsLater(int day, int months) const
{
    return dayNumber(dateOf(day).addMonths(months));
}

bool UserCalendar::sameMonth(int day, int other) const
{
    return dateOf(day).month() == dateOf(other).month() &&
           dateOf(day).year() == dateOf(other).year();
}

int UserCalendar::pageStart(int day) const
{
    const QDate date = dateOf(day);
    const QDate first{date.year(), date.month(), 1};
    const int intoWeek = (first.dayOfWeek() - locale_.firstDayOfWeek() + 7) % 7;
    return dayNumber(first.addDays(-intoWeek));
}

QString UserCalendar::pageTitle(int day) const
{
    const QDate date = dateOf(day);
    QString format = monthFormat(locale_.dateFormat(QLocale::LongFormat));
    // By itself a month may have another form than within a date.
    QString name = locale_.standaloneMonthName(date.month());
    name.replace(u'\'', QStringLiteral("''"));
    return locale_.toString(date, format.replace(QStringLiteral("MMMM"), u'\'' + name + u'\''));
}

QString UserCalendar::weekday(int day) const
{
    return locale_.standaloneDayName(dateOf(day).dayOfWeek(), QLocale::NarrowFormat);
}

QString UserCalendar::dayOfMonth(int day) const
{
    return locale_.toString(dateOf(day).day());
}

QString UserCalendar::spokenDay(int day) const
{
    const QDate date = dateOf(day);
    const QString words = locale_.toString(date, QLocale::LongFormat);
    const bool hasWeekday = locale_.dateFormat(QLocale::LongFormat).contains(QStringLiteral("ddd"));
    return hasWeekday ? words : locale_.dayName(date.dayOfWeek()) + u", " + words;
}

} // namespace norvane

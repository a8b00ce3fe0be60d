// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "panel/DateTimeFormat.h"
#include "panel/TextRange.h"
#include "time/PointInTime.h"

#include <QList>
#include <QLocale>
#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

namespace norvane {

class Calendar;
class Clock;

/// Formats moments for the date field and the month calendar, and computes the moment that results
/// from an edit, in the user's locale and time zone.
///
/// Stateless. An edit that is not understood, or that leaves the years 1 to 9999, returns the
/// moment unchanged. Every edit keeps the seconds. A date is a day number: days of the Gregorian
/// calendar, counted as QDate does.
class UserCalendar : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by PanelContent")

public:
    /// The two halves of a moment, each with a field of its own.
    enum class Part { Day, TimeOfDay };
    Q_ENUM(Part)

    /// Borrows the clock.
    UserCalendar(const Clock &clock, const QLocale &locale);

    [[nodiscard]] Q_INVOKABLE QString text(norvane::PointInTime moment,
                                           norvane::UserCalendar::Part part) const;
    /// Whether a text that was typed over one of the moment's parts can be understood.
    [[nodiscard]] Q_INVOKABLE bool understands(norvane::PointInTime moment,
                                               norvane::UserCalendar::Part part,
                                               const QString &text) const;
    /// The moment after a text was typed over one of its parts. A new date gets the time of day of
    /// `timeOfDay`.
    [[nodiscard]] Q_INVOKABLE norvane::PointInTime typed(norvane::PointInTime moment,
                                                         norvane::UserCalendar::Part part,
                                                         const QString &text,
                                                         norvane::PointInTime timeOfDay) const;

    /// A number for one of the moment's parts: the date, or the minutes since midnight.
    [[nodiscard]] Q_INVOKABLE int valueOf(norvane::PointInTime moment,
                                          norvane::UserCalendar::Part part) const;

    /// A text as wide as the part's can get, in digits of equal width.
    [[nodiscard]] Q_INVOKABLE QString widest(norvane::UserCalendar::Part part) const;

    /// Which field (day, month, hour …) stands at this place of the part's text; for a place
    /// before the text, the day or the hour.
    [[nodiscard]] Q_INVOKABLE int fieldAt(norvane::PointInTime moment,
                                          norvane::UserCalendar::Part part, int position) const;
    /// Where that field stands in the part's text.
    [[nodiscard]] Q_INVOKABLE norvane::TextRange
    section(norvane::PointInTime moment, norvane::UserCalendar::Part part, int field) const;
    /// The moment after that field was stepped up or down.
    ///
    /// Days carry into months; a month or year keeps the day where it has one, else takes its last.
    /// Hours and minutes are real ones, so that stepping passes a change of daylight saving.
    /// A new date gets the time of day of `timeOfDay`.
    [[nodiscard]] Q_INVOKABLE norvane::PointInTime stepped(norvane::PointInTime moment, int field,
                                                           int steps,
                                                           norvane::PointInTime timeOfDay) const;

    /// The date of now.
    [[nodiscard]] Q_INVOKABLE int today() const;
    /// The moment's date.
    [[nodiscard]] Q_INVOKABLE int dayOf(norvane::PointInTime moment) const;
    /// The moment on another date, at the time of day of `timeOfDay`.
    [[nodiscard]] Q_INVOKABLE norvane::PointInTime onDay(norvane::PointInTime moment, int day,
                                                         norvane::PointInTime timeOfDay) const;

    /// The day by so many months later, or the last one of a shorter month.
    [[nodiscard]] Q_INVOKABLE int monthsLater(int day, int months) const;
    [[nodiscard]] Q_INVOKABLE bool sameMonth(int day, int other) const;
    /// The first day of the week in which the day's month begins, by the locale's weeks.
    [[nodiscard]] Q_INVOKABLE int pageStart(int day) const;
    /// The day's month and year, as the locale writes them.
    [[nodiscard]] Q_INVOKABLE QString pageTitle(int day) const;
    /// The day of the week in as few letters as the locale has for it.
    [[nodiscard]] Q_INVOKABLE QString weekday(int day) const;
    [[nodiscard]] Q_INVOKABLE QString dayOfMonth(int day) const;
    /// The date in words, its day of the week among them, for a screen reader.
    [[nodiscard]] Q_INVOKABLE QString spokenDay(int day) const;

signals:
    /// Emitted whenever the panel is rebuilt: today may be another day.
    void refreshed();

private:
    [[nodiscard]] const DateTimeFormat &format(Part part) const;
    [[nodiscard]] QList<DateTimeFormat::Section> sections(PointInTime moment, Part part) const;

    const Clock &clock_;
    const QLocale locale_;
    const DateTimeFormat dayFormat_;
    const DateTimeFormat timeFormat_;
};

} // namespace norvane

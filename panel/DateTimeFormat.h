// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "time/WallClockMinute.h"

#include <QList>
#include <QLocale>
#include <QString>
#include <QStringList>

#include <optional>

namespace norvane {

/// How a locale writes a day, or a time of day: to show one, to read one, and to know which part
/// of the text is the hour and which the minute.
///
/// The locale's short format, with the year in full and without seconds. Digits are the locale's.
class DateTimeFormat {
public:
    enum class Field { Day, Month, Year, Hour, Minute, HalfOfDay };

    /// Where a field stands in the text.
    struct Section {
        Field field;
        int start;
        int length;
    };
    struct Shown {
        QString text;
        QList<Section> sections; ///< From left to right as stored.
    };

    [[nodiscard]] static DateTimeFormat ofDay(const QLocale &locale);
    [[nodiscard]] static DateTimeFormat ofTime(const QLocale &locale);

    [[nodiscard]] Shown shown(const WallClockMinute &minute) const;

    /// What a person means by a typed text; nothing where the text is not a day (or a time of day).
    /// What the text leaves out is taken from `before`, the moment that was shown.
    ///
    /// A day may lack its year, or month and year, and its month may be a name. Its numbers are
    /// read in the locale's order, separated by any marks or, in six or eight digits, by none;
    /// another order counts only where the locale's gives no date, but a year of four digits in
    /// front always means year, month, day. Two digits of a year mean 2000 to 2099. A time may lack
    /// its minutes or its colon. Any kind of blank does for another.
    [[nodiscard]] std::optional<WallClockMinute> read(const QString &typed,
                                                      const WallClockMinute &before) const;

private:
    enum class Half { Unsaid, First, Second };

    struct Token {
        std::optional<Field> field; ///< None for a literal.
        QString text;               ///< The literal, or the format's letters.
    };

    DateTimeFormat(const QLocale &locale, const QString &format);

    [[nodiscard]] QString textOf(const Token &token, const WallClockMinute &minute) const;
    [[nodiscard]] QString digits(int number, qsizetype width) const;
    [[nodiscard]] bool has(Field field) const;
    /// What a typed day may hold beside numbers and the name of a month: the long ones first.
    [[nodiscard]] QStringList wordsOfDays() const;
    [[nodiscard]] QStringList monthNames(int month) const;
    [[nodiscard]] std::optional<WallClockMinute> readDay(QString text,
                                                         const WallClockMinute &before) const;
    /// Whether the text says that it means an hour of the first or the second half of the day;
    /// nothing where it says something else.
    [[nodiscard]] std::optional<Half> halfIn(const QString &typed) const;
    [[nodiscard]] std::optional<WallClockMinute> readTime(const QString &text,
                                                          const WallClockMinute &before) const;

    QLocale locale_;
    QList<Token> tokens_;
};

} // namespace norvane

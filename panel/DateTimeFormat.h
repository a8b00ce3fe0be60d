// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "time/WallClockMinute.h"

#include <QList>
#include <QLocale>
#include <QString>

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

    /// What a person means by a typed text, on the ground of what was shown before; nothing where
    /// the text is not a day (or a time of day).
    ///
    /// Any separators will do. A day may lack its year, or month and year; a year may have two
    /// digits; year-month-day is always understood. A time may lack its minutes or its colon.
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
    [[nodiscard]] static QList<QString> numbersIn(const QString &typed);
    [[nodiscard]] std::optional<WallClockMinute> readDay(const QList<QString> &numbers,
                                                         const WallClockMinute &before) const;
    /// Whether the text says that it means an hour of the first or the second half of the day;
    /// nothing where it says something else.
    [[nodiscard]] std::optional<Half> halfIn(const QString &typed) const;
    [[nodiscard]] std::optional<WallClockMinute>
    readTime(QList<QString> numbers, const QString &typed, const WallClockMinute &before) const;

    QLocale locale_;
    QList<Token> tokens_;
};

} // namespace norvane

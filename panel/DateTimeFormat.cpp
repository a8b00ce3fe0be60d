// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/DateTimeFormat.h"

#include <algorithm>

namespace norvane {

namespace {

std::optional<DateTimeFormat::Field> fieldOf(QChar letter)
{
    using Field = DateTimeFormat::Field;
    switch (letter.unicode()) {
    case u'd':
        return Field::Day;
    case u'M':
        return Field::Month;
    case u'y':
        return Field::Year;
    case u'h':
    case u'H':
        return Field::Hour;
    case u'm':
        return Field::Minute;
    case u'a':
    case u'A':
        return Field::HalfOfDay;
    default:
        return std::nullopt;
    }
}

/// The end of the run of letters that begins here. "AP" is one run, all others repeat one letter.
qsizetype endOfRun(const QString &format, qsizetype start)
{
    const QChar letter = format.at(start);
    qsizetype end = start + 1;
    if (letter.toLower() == u'a') {
        return end < format.size() && format.at(end).toLower() == u'p' ? end + 1 : end;
    }
    while (end < format.size() && format.at(end) == letter) {
        ++end;
    }
    return end;
}

} // namespace

DateTimeFormat DateTimeFormat::ofDay(const QLocale &locale)
{
    return {locale, locale.dateFormat(QLocale::ShortFormat)};
}

DateTimeFormat DateTimeFormat::ofTime(const QLocale &locale)
{
    return {locale, locale.timeFormat(QLocale::ShortFormat)};
}

DateTimeFormat::DateTimeFormat(const QLocale &locale, const QString &format) : locale_{locale}
{
    bool quoted = false;
    QString literal;
    for (qsizetype at = 0; at < format.size();) {
        const QChar letter = format.at(at);
        if (letter == u'\'') {
            quoted = !quoted;
            ++at;
        } else if (!quoted && letter == u's') {
            literal.clear(); // The mark between minutes and seconds goes too.
            at = endOfRun(format, at);
        } else if (const auto field = quoted ? std::nullopt : fieldOf(letter)) {
            if (!literal.isEmpty()) {
                tokens_.append({.field = {}, .text = literal});
                literal.clear();
            }
            const qsizetype end = endOfRun(format, at);
            tokens_.append({.field = field, .text = format.mid(at, end - at)});
            at = end;
        } else {
            literal += letter;
            ++at;
        }
    }
    if (!literal.isEmpty()) {
        tokens_.append({.field = {}, .text = literal});
    }
}

DateTimeFormat::Shown DateTimeFormat::shown(const WallClockMinute &minute) const
{
    Shown shown;
    for (const Token &token : tokens_) {
        const QString text = textOf(token, minute);
        if (token.field) {
            shown.sections.append({.field = *token.field,
                                   .start = static_cast<int>(shown.text.size()),
                                   .length = static_cast<int>(text.size())});
        }
        shown.text += text;
    }
    return shown;
}

QString DateTimeFormat::textOf(const Token &token, const WallClockMinute &minute) const
{
    if (!token.field) {
        return token.text;
    }
    const qsizetype width = token.text.size();
    switch (*token.field) {
    case Field::Day:
        return digits(minute.day, width);
    case Field::Month:
        return width > 2 ? locale_.monthName(minute.month, QLocale::ShortFormat)
                         : digits(minute.month, width);
    case Field::Year:
        return digits(minute.year, 4);
    case Field::Hour: {
        const int hourOfHalf = minute.hour % 12 == 0 ? 12 : minute.hour % 12;
        return digits(has(Field::HalfOfDay) ? hourOfHalf : minute.hour, width);
    }
    case Field::Minute:
        return digits(minute.minute, 2);
    case Field::HalfOfDay:
        return minute.hour < 12 ? locale_.amText() : locale_.pmText();
    }
    Q_UNREACHABLE();
}

QString DateTimeFormat::digits(int number, qsizetype width) const
{
    QString text;
    for (const QChar digit : QString::number(number).rightJustified(width, u'0')) {
        text += locale_.toString(digit.digitValue());
    }
    return text;
}

bool DateTimeFormat::has(Field field) const
{
    return std::ranges::any_of(tokens_,
                               [field](const Token &token) { return token.field == field; });
}

} // namespace norvane

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/DateTimeFormat.h"

#include <QDate>
#include <QRegularExpression>

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

int valueOf(const QString &digits)
{
    int value = 0;
    for (const QChar digit : digits) {
        value = value * 10 + digit.digitValue();
    }
    return value;
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
            literal.clear(); // With the seconds goes what parts them from the minutes.
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

std::optional<WallClockMinute> DateTimeFormat::read(const QString &typed,
                                                    const WallClockMinute &before) const
{
    if (has(Field::Day)) {
        QString text = typed;
        for (int month = 12; month >= 1; --month) {
            const QString number = u' ' + QString::number(month) + u' ';
            for (const auto length : {QLocale::LongFormat, QLocale::ShortFormat}) {
                // A name that is digits already, as in "1月", needs no help.
                const QString name = locale_.monthName(month, length);
                if (!name.isEmpty() && numbersIn(name).isEmpty()) {
                    text.replace(name, number, Qt::CaseInsensitive);
                }
            }
        }
        return readDay(numbersIn(text), before);
    }
    return readTime(numbersIn(typed), typed, before);
}

/// The runs of digits, whatever the script, as ASCII digits.
QList<QString> DateTimeFormat::numbersIn(const QString &typed)
{
    QList<QString> numbers;
    bool inNumber = false;
    for (const char32_t character : typed.toStdU32String()) {
        const int digit = QChar::digitValue(character);
        if (digit >= 0 && !inNumber) {
            numbers.append(QString{});
        }
        if (digit >= 0) {
            numbers.last() += QString::number(digit);
        }
        inNumber = digit >= 0;
    }
    return numbers;
}

std::optional<WallClockMinute> DateTimeFormat::readDay(const QList<QString> &numbers,
                                                       const WallClockMinute &before) const
{
    QList<Field> order;
    for (const Token &token : tokens_) {
        if (token.field) {
            order.append(*token.field);
        }
    }
    if (numbers.size() == 3 && numbers.first().size() == 4) {
        order = {Field::Year, Field::Month, Field::Day};
    }
    if (numbers.size() < 3) {
        order.removeAll(Field::Year);
    }
    if (numbers.size() < 2) {
        order.removeAll(Field::Month);
    }
    if (numbers.size() != order.size()) {
        return std::nullopt;
    }
    WallClockMinute day = before;
    for (qsizetype index = 0; index < order.size(); ++index) {
        const QString &number = numbers.at(index);
        const bool isYear = order.at(index) == Field::Year;
        if (isYear ? number.size() != 4 && number.size() != 2 : number.size() > 2) {
            return std::nullopt;
        }
        const int value = valueOf(number);
        if (isYear) {
            day.year = number.size() == 4 ? value : before.year / 100 * 100 + value;
        } else {
            (order.at(index) == Field::Day ? day.day : day.month) = value;
        }
    }
    const bool exists = day.year >= 1 && QDate::isValid(day.year, day.month, day.day);
    return exists ? std::optional{day} : std::nullopt;
}

std::optional<DateTimeFormat::Half> DateTimeFormat::halfIn(const QString &typed) const
{
    if (!has(Field::HalfOfDay)) {
        // With a clock of 24 hours some say it all the same.
        static const QRegularExpression said{QStringLiteral("\\d\\s*([ap])\\.?(\\s*m\\.?)?\\s*$"),
                                             QRegularExpression::CaseInsensitiveOption};
        const QRegularExpressionMatch match = said.match(typed);
        if (!match.hasMatch()) {
            return Half::Unsaid;
        }
        return match.captured(1).toLower() == u'p' ? Half::Second : Half::First;
    }
    const bool saysSomething = std::ranges::any_of(
        typed.toStdU32String(), [](char32_t letter) { return QChar::isLetter(letter); });
    if (!saysSomething) {
        return Half::Unsaid;
    }
    bool second = typed.contains(locale_.pmText(), Qt::CaseInsensitive);
    bool first = typed.contains(locale_.amText(), Qt::CaseInsensitive);
    if (second == first) {
        second = typed.contains(u'p', Qt::CaseInsensitive);
        first = typed.contains(u'a', Qt::CaseInsensitive);
    }
    if (second == first) {
        return std::nullopt;
    }
    return second ? Half::Second : Half::First;
}

std::optional<WallClockMinute> DateTimeFormat::readTime(QList<QString> numbers,
                                                        const QString &typed,
                                                        const WallClockMinute &before) const
{
    if (numbers.size() == 1 && (numbers.first().size() == 3 || numbers.first().size() == 4)) {
        const QString together = numbers.first();
        numbers = {together.chopped(2), together.right(2)};
    }
    const bool wellFormed =
        (numbers.size() == 1 || (numbers.size() == 2 && numbers.last().size() == 2)) &&
        numbers.first().size() <= 2;
    if (!wellFormed) {
        return std::nullopt;
    }
    WallClockMinute time = before;
    time.hour = valueOf(numbers.first());
    time.minute = numbers.size() == 2 ? valueOf(numbers.last()) : 0;
    const std::optional<Half> half = halfIn(typed);
    const bool isOfHalf = half.has_value() && half != Half::Unsaid;
    if (!half || (isOfHalf && (time.hour < 1 || time.hour > 12))) {
        return std::nullopt;
    }
    if (isOfHalf) {
        time.hour = time.hour % 12 + (half == Half::Second ? 12 : 0);
    }
    const bool exists = time.hour < 24 && time.minute < 60;
    return exists ? std::optional{time} : std::nullopt;
}

} // namespace norvane

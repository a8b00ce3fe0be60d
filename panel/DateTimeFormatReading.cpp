// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/DateTimeFormat.h"

#include <QDate>
#include <QRegularExpression>

#include <algorithm>

// How a typed day or time of day is read.

namespace norvane {

namespace {

using Field = DateTimeFormat::Field;

bool hasLetter(const QString &text)
{
    return std::ranges::any_of(text.toStdU32String(),
                               [](char32_t letter) { return QChar::isLetter(letter); });
}

/// The text with an ordinary blank for each one that cannot be typed: locales put U+00A0 and U+202F
/// between the parts of a day or time.
QString withPlainBlanks(QString text)
{
    std::ranges::replace_if(
        text, [](QChar character) { return character.isSpace(); }, u' ');
    return text;
}

/// The text without blanks and points, for comparing marks like "p. m." and "pm".
QString compact(const QString &text)
{
    return withPlainBlanks(text).remove(u' ').remove(u'.');
}

/// The runs of digits, whatever the script, as ASCII digits.
QStringList numbersIn(const QString &typed)
{
    QStringList numbers;
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

/// Where a word stands that is not a part of a longer one; -1 where it does not.
qsizetype indexOfWord(const QString &text, const QString &word)
{
    for (qsizetype at = 0; (at = text.indexOf(word, at, Qt::CaseInsensitive)) >= 0; ++at) {
        const qsizetype end = at + word.size();
        if ((at == 0 || !text.at(at - 1).isLetter()) &&
            (end == text.size() || !text.at(end).isLetter())) {
            return at;
        }
    }
    return -1;
}

/// The long and the short name of a month or a day of the week; `nameOf` asks the locale for one.
template <typename NameOf>
QStringList names(NameOf nameOf, int number)
{
    QStringList names;
    for (const auto length : {QLocale::LongFormat, QLocale::ShortFormat}) {
        names += withPlainBlanks(nameOf(number, length));
    }
    return names;
}

/// A day as typed: numbers from left to right, with the number of a month that is typed as a name.
struct TypedDay {
    QStringList numbers;
    qsizetype namedMonth = -1; ///< Which of the numbers that is.
};

std::optional<WallClockMinute> inOrder(const QList<Field> &order, const QStringList &numbers,
                                       const WallClockMinute &before)
{
    constexpr int century = 2000; // Of a year that is typed with two digits.
    WallClockMinute day = before;
    for (qsizetype index = 0; index < order.size(); ++index) {
        const QString &number = numbers.at(index);
        const bool isYear = order.at(index) == Field::Year;
        if (isYear ? number.size() != 4 && number.size() != 2 : number.size() > 2) {
            return std::nullopt;
        }
        const int value = number.toInt();
        if (isYear) {
            day.year = number.size() == 4 ? value : century + value;
        } else {
            (order.at(index) == Field::Day ? day.day : day.month) = value;
        }
    }
    const bool exists = day.year >= 1 && QDate::isValid(day.year, day.month, day.day);
    return exists ? std::optional{day} : std::nullopt;
}

/// The numbers of a day that was typed without marks, in six digits or eight.
QStringList split(const QString &digits, const QList<Field> &order)
{
    QStringList numbers;
    qsizetype start = 0;
    for (const Field field : order) {
        const qsizetype width = field == Field::Year ? digits.size() - 4 : 2;
        numbers += digits.mid(start, width);
        start += width;
    }
    return numbers;
}

/// What is left of the fields of a day where not all of them are typed.
QList<Field> withoutUnsaid(QList<Field> order, qsizetype numbers)
{
    if (numbers < 3) {
        order.removeAll(Field::Year);
    }
    if (numbers < 2) {
        order.removeAll(Field::Month);
    }
    return order;
}

} // namespace

std::optional<WallClockMinute> DateTimeFormat::read(const QString &typed,
                                                    const WallClockMinute &before) const
{
    const QString text = withPlainBlanks(typed);
    return has(Field::Day) ? readDay(text, before) : readTime(text, before);
}

QStringList DateTimeFormat::wordsOfDays() const
{
    QStringList words;
    const DateTimeFormat longFormat{locale_, locale_.dateFormat(QLocale::LongFormat)};
    for (const QList<Token> &tokens : {tokens_, longFormat.tokens_}) {
        for (const Token &token : tokens) {
            words += token.field ? QString{} : withPlainBlanks(token.text).trimmed();
        }
    }
    for (int day = 1; day <= 7; ++day) {
        words +=
            names([this](int number, auto length) { return locale_.dayName(number, length); }, day);
    }
    for (int month = 1; month <= 12; ++month) {
        // Some locales number their months, as in "1月".
        for (QString name : monthNames(month)) {
            static const QRegularExpression digits{QStringLiteral("\\d+"),
                                                   QRegularExpression::UseUnicodePropertiesOption};
            words += name.contains(digits) ? name.remove(digits).trimmed() : QString{};
        }
    }
    words.removeIf([](const QString &word) { return !hasLetter(word); });
    std::ranges::stable_sort(words, std::ranges::greater{}, &QString::size);
    return words;
}

QStringList DateTimeFormat::monthNames(int month) const
{
    return names([this](int number, auto length) { return locale_.monthName(number, length); },
                 month) +
           names([this](int number,
                        auto length) { return locale_.standaloneMonthName(number, length); },
                 month);
}

std::optional<WallClockMinute> DateTimeFormat::readDay(QString text,
                                                       const WallClockMinute &before) const
{
    QString found;
    int foundMonth = 0;
    for (int month = 1; month <= 12; ++month) {
        for (const QString &name : monthNames(month)) {
            if (name.size() > found.size() && numbersIn(name).isEmpty() &&
                indexOfWord(text, name) >= 0) {
                found = name;
                foundMonth = month;
            }
        }
    }
    TypedDay day;
    if (foundMonth > 0) {
        const qsizetype at = indexOfWord(text, found);
        day.namedMonth = numbersIn(text.left(at)).size();
        text.replace(at, found.size(), u' ' + QString::number(foundMonth) + u' ');
    }
    day.numbers = numbersIn(text);
    for (const QString &word : wordsOfDays()) {
        text.replace(word, QStringLiteral(" "), Qt::CaseInsensitive);
    }
    if (hasLetter(text) || day.numbers.isEmpty()) {
        return std::nullopt;
    }

    QList<Field> usual;
    for (const Token &token : tokens_) {
        if (token.field) {
            usual += *token.field;
        }
    }
    QList<QList<Field>> orders{usual,
                               {Field::Day, Field::Month, Field::Year},
                               {Field::Month, Field::Day, Field::Year},
                               {Field::Year, Field::Month, Field::Day},
                               {Field::Year, Field::Day, Field::Month}};
    if (day.numbers.size() == 3 && day.numbers.first().size() == 4) {
        orders.prepend({Field::Year, Field::Month, Field::Day});
    }
    const QString first = day.numbers.first();
    const bool together = day.numbers.size() == 1 && (first.size() == 6 || first.size() == 8);
    for (const QList<Field> &whole : orders) {
        const QStringList numbers = together ? split(first, whole) : day.numbers;
        const QList<Field> order = withoutUnsaid(whole, numbers.size());
        // Two digits in front are a year only where the locale has it there.
        const bool yearIsClear =
            whole == usual || whole.first() != Field::Year || numbers.first().size() == 4;
        const bool fits =
            numbers.size() == order.size() && yearIsClear &&
            (day.namedMonth < 0 || order.value(day.namedMonth, Field::Day) == Field::Month);
        if (const auto read = fits ? inOrder(order, numbers, before) : std::nullopt) {
            return read;
        }
    }
    return std::nullopt;
}

std::optional<DateTimeFormat::Half> DateTimeFormat::halfIn(const QString &typed) const
{
    if (!has(Field::HalfOfDay)) {
        // Some type it even where clocks show 24 hours.
        static const QRegularExpression said{QStringLiteral("\\d\\s*([ap])\\.?(\\s*m\\.?)?\\s*$"),
                                             QRegularExpression::CaseInsensitiveOption};
        const QString half = said.match(typed).captured(1).toLower();
        return half == u"p" ? Half::Second : half == u"a" ? Half::First : Half::Unsaid;
    }
    if (!hasLetter(typed)) {
        return Half::Unsaid;
    }
    const QString pm = compact(locale_.pmText());
    const QString am = compact(locale_.amText());
    bool second = compact(typed).contains(pm, Qt::CaseInsensitive);
    bool first = compact(typed).contains(am, Qt::CaseInsensitive);
    if (second && first) {
        // One can be a part of the other, like Akan's "AN" and "ANW": the longer one is meant then.
        second = pm.size() > am.size();
        first = am.size() > pm.size();
    }
    if (second == first) {
        second = typed.contains(u'p', Qt::CaseInsensitive);
        first = typed.contains(u'a', Qt::CaseInsensitive);
    }
    if (second == first) {
        return std::nullopt;
    }
    return second ? Half::Second : Half::First;
}

std::optional<WallClockMinute> DateTimeFormat::readTime(const QString &text,
                                                        const WallClockMinute &before) const
{
    QStringList numbers = numbersIn(text);
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
    time.hour = numbers.first().toInt();
    time.minute = numbers.size() == 2 ? numbers.last().toInt() : 0;
    const std::optional<Half> half = halfIn(text);
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

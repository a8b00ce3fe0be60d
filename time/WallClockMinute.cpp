// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "time/WallClockMinute.h"

#include <QDate>
#include <QTime>

namespace norvane {

namespace {

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

std::optional<WallClockMinute> WallClockMinute::fromText(QStringView text)
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
    return minute.isValid() ? std::optional{minute} : std::nullopt;
}

QString WallClockMinute::text() const
{
    return QString::asprintf("%04d-%02d-%02dT%02d:%02d", year, month, day, hour, minute);
}

bool WallClockMinute::isValid() const
{
    return year >= 1 && year <= 9999 && QDate::isValid(year, month, day) &&
           QTime::isValid(hour, minute, 0);
}

} // namespace norvane

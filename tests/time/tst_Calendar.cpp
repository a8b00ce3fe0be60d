// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/support/TestProgram.h"
#include "time/Calendar.h"

#include <QDateTime>
#include <QTest>

#include <limits>

using namespace norvane;

class TestCalendar final : public QObject {
    Q_OBJECT

private slots:
    void aDayIsTheSameTimeOnAnotherDate_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<qint64>("days");
        const auto row = [](const char *name, const char *from, const char *to, qint64 days) {
            QTest::newRow(name) << QString::fromLatin1(from) << QString::fromLatin1(to) << days;
        };
        row("the same moment", "2025-01-01T12:00:00+01:00", "2025-01-01T12:00:00+01:00", 0);
        row("a day", "2025-01-01T12:00:00+01:00", "2025-01-02T12:00:00+01:00", 1);
        row("a millisecond short", "2025-01-01T12:00:00.001+01:00", "2025-01-02T12:00:00+01:00", 0);
        row("a millisecond more", "2025-01-01T12:00:00+01:00", "2025-01-02T12:00:00.001+01:00", 1);
        row("the next date, but not a day", "2025-01-01T23:59:00+01:00",
            "2025-01-02T00:01:00+01:00", 0);
        row("a leap year", "2024-02-28T00:00:00+01:00", "2025-02-28T00:00:00+01:00", 366);
        row("a year", "2025-02-28T00:00:00+01:00", "2026-02-28T00:00:00+01:00", 365);
        row("back a day", "2025-01-02T12:00:00+01:00", "2025-01-01T12:00:00+01:00", -1);
        row("back a day and a half", "2025-01-03T00:00:00+01:00", "2025-01-01T12:00:00+01:00", -1);
        row("back a millisecond less", "2025-01-02T12:00:00+01:00", "2025-01-01T12:00:00.001+01:00",
            0);
        // Clocks go forward at 02:00 on 2025-03-30.
        row("a day of 23 hours", "2025-03-29T12:00:00+01:00", "2025-03-30T12:00:00+02:00", 1);
        row("a second short of it", "2025-03-29T12:00:00+01:00", "2025-03-30T11:59:59+02:00", 0);
        row("back over it", "2025-03-30T12:00:00+02:00", "2025-03-29T12:00:00+01:00", -1);
        row("to a time that was skipped", "2025-03-29T02:30:00+01:00", "2025-03-30T03:30:00+02:00",
            1);
        row("not yet to it", "2025-03-29T02:30:00+01:00", "2025-03-30T03:29:59+02:00", 0);
        row("back to a time that was skipped", "2025-03-31T02:30:00+02:00",
            "2025-03-30T03:30:00+02:00", -1);
        row("past it to the same time", "2025-03-29T02:30:00+01:00", "2025-03-31T02:30:00+02:00",
            2);
        // Clocks go back at 03:00 on 2025-10-26.
        row("24 hours of a day of 25", "2025-10-25T12:00:00+02:00", "2025-10-26T11:00:00+01:00", 0);
        row("a day of 25 hours", "2025-10-25T12:00:00+02:00", "2025-10-26T12:00:00+01:00", 1);
        row("to a time that comes twice", "2025-10-25T02:30:00+02:00", "2025-10-26T02:30:00+02:00",
            1);
        row("not yet to it in summer time", "2025-10-25T02:30:00+02:00",
            "2025-10-26T02:29:59+02:00", 0);
        row("back to its second coming", "2025-10-27T02:30:00+01:00", "2025-10-26T02:30:00+01:00",
            -1);
        row("from its first to its second coming", "2025-10-26T02:30:00+02:00",
            "2025-10-26T02:30:00+01:00", 0);
    }
    void aDayIsTheSameTimeOnAnotherDate()
    {
        QFETCH(const QString, from);
        QFETCH(const QString, to);
        QFETCH(const qint64, days);
        const Calendar calendar{QTimeZone{"Europe/Berlin"}};

        QCOMPARE(calendar.wholeDays(moment(from), moment(to)), days);
    }

    void aDateThatAZoneSkippedIsNoDayOfItsOwn_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<qint64>("days");
        const auto row = [](const char *name, const char *zone, const char *from, const char *to,
                            qint64 days) {
            QTest::newRow(name) << QByteArray{zone} << QString::fromLatin1(from)
                                << QString::fromLatin1(to) << days;
        };
        // In Samoa the Thursday 2011-12-29 was followed by the Saturday.
        row("Apia, over it", "Pacific/Apia", "2011-12-29T12:00:00-10:00",
            "2011-12-31T12:00:00+14:00", 2);
        row("Apia, a second less", "Pacific/Apia", "2011-12-29T12:00:00-10:00",
            "2011-12-31T11:59:59+14:00", 0);
        row("Apia, a day later", "Pacific/Apia", "2011-12-29T12:00:00-10:00",
            "2012-01-01T12:00:00+14:00", 3);
        row("Apia, up to it", "Pacific/Apia", "2011-12-28T12:00:00-10:00",
            "2011-12-29T12:00:00-10:00", 1);
        row("Apia, back over it", "Pacific/Apia", "2011-12-31T12:00:00+14:00",
            "2011-12-29T12:00:00-10:00", -2);
        row("Apia, back a second less", "Pacific/Apia", "2011-12-31T12:00:00+14:00",
            "2011-12-29T12:00:01-10:00", -1);
        // The skipped Friday counts, since its noon is Saturday's, which is not passed either.
        row("Apia, back to before the noon after it", "Pacific/Apia", "2012-01-01T12:00:00+14:00",
            "2011-12-31T11:59:59+14:00", -2);
        // On Enderbury 1994-12-30 was followed by 1995-01-01.
        row("Enderbury, over it", "Pacific/Enderbury", "1994-12-30T06:00:00-11:00",
            "1995-01-01T06:00:00+13:00", 2);
        row("Enderbury, a second less", "Pacific/Enderbury", "1994-12-30T06:00:00-11:00",
            "1995-01-01T05:59:59+13:00", 0);
        row("Enderbury, back over it", "Pacific/Enderbury", "1995-01-01T06:00:00+13:00",
            "1994-12-30T06:00:00-11:00", -2);
        row("Enderbury, back to before the hour after it", "Pacific/Enderbury",
            "1995-01-02T06:00:00+13:00", "1995-01-01T05:59:59+13:00", -2);
        // At Troll clocks go two hours forward at 01:00 on 2025-03-30, and back in October.
        row("Troll, to a time that was skipped", "Antarctica/Troll", "2025-03-29T01:30:00+00:00",
            "2025-03-30T03:30:00+02:00", 1);
        row("Troll, not yet to it", "Antarctica/Troll", "2025-03-29T01:30:00+00:00",
            "2025-03-30T03:29:59+02:00", 0);
        row("Troll, past it", "Antarctica/Troll", "2025-03-29T01:30:00+00:00",
            "2025-03-31T01:30:00+02:00", 2);
        row("Troll, back to a time that was skipped", "Antarctica/Troll",
            "2025-03-31T02:00:00+02:00", "2025-03-30T04:00:00+02:00", -1);
        row("Troll, back a second less", "Antarctica/Troll", "2025-03-31T02:00:00+02:00",
            "2025-03-30T04:00:01+02:00", 0);
        row("Troll, to a time that comes twice", "Antarctica/Troll", "2025-10-25T02:30:00+02:00",
            "2025-10-26T02:30:00+02:00", 1);
        row("Troll, back to its second coming", "Antarctica/Troll", "2025-10-27T02:30:00+00:00",
            "2025-10-26T02:30:00+00:00", -1);
    }
    void aDateThatAZoneSkippedIsNoDayOfItsOwn()
    {
        QFETCH(const QByteArray, zone);
        QFETCH(const QString, from);
        QFETCH(const QString, to);
        QFETCH(const qint64, days);

        QCOMPARE(Calendar{QTimeZone{zone}}.wholeDays(moment(from), moment(to)), days);
    }

    void aSecondIsDroppedNotRounded_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<double>("moment");
        QTest::addColumn<QString>("minute");
        const auto row = [](const char *name, const char *zone, double moment, const char *minute) {
            QTest::newRow(name) << QByteArray{zone} << moment << QString::fromLatin1(minute);
        };
        row("10:15:40", "UTC", 757'419'340, "2025-01-01T10:15");
        row("just before the minute", "UTC", 757'419'359.9999999, "2025-01-01T10:15");
        row("on the minute", "UTC", 757'419'360, "2025-01-01T10:16");
        row("just before the reference date", "UTC", -1e-9, "2000-12-31T23:59");
        row("just before 1970", "UTC", -978'307'200.5, "1969-12-31T23:59");
        row("a quarter of an hour east", "Asia/Kathmandu", 757'382'400, "2025-01-01T05:45");
        row("west, the day before", "America/New_York", 757'382'400, "2024-12-31T19:00");
        row("the first minute that can be said", "UTC", -63'113'904'000, "0001-01-01T00:00");
        row("the last one", "UTC", 252'423'993'599, "9999-12-31T23:59");
    }
    void aSecondIsDroppedNotRounded()
    {
        QFETCH(const QByteArray, zone);
        QFETCH(const double, moment);
        QFETCH(const QString, minute);

        const auto answer = Calendar{QTimeZone{zone}}.minuteOf(PointInTime{moment});

        QVERIFY(answer);
        QCOMPARE(answer->text(), minute);
    }

    void outsideTheYears1To9999ThereIsNoMinute_data()
    {
        QTest::addColumn<double>("moment");
        QTest::newRow("a second before the year 1") << -63'113'904'001.0;
        QTest::newRow("the year 10000") << 252'423'993'600.0;
        QTest::newRow("the year 190 million") << 5.9e15;
        QTest::newRow("as far back") << -5.9e15;
    }
    void outsideTheYears1To9999ThereIsNoMinute()
    {
        QFETCH(const double, moment);

        QCOMPARE(Calendar{QTimeZone{"UTC"}}.minuteOf(PointInTime{moment}), std::nullopt);
    }

    void daysAreCountedAsFarAsTheCalendarReaches()
    {
        const Calendar calendar{QTimeZone{"Europe/Berlin"}};
        const PointInTime noon{757'425'600};

        QCOMPARE(calendar.wholeDays(noon, noon.advanced(86'400.0 * 60'000'000'000)),
                 60'000'000'000);
        QCOMPARE(calendar.wholeDays(noon, noon.advanced(-86'400.0 * 60'000'000'000)),
                 -60'000'000'000);
    }

    void theLastSecondsThatTheCalendarHoldsHaveDays()
    {
        const Calendar calendar{QTimeZone{"UTC"}};
        constexpr double last = 5'999'999'999'999'999;

        QCOMPARE(calendar.wholeDays(PointInTime{last - 86'400}, PointInTime{last}), 1);
        QCOMPARE(calendar.wholeDays(PointInTime{-last}, PointInTime{86'400 - last}), 1);
    }

    void aMomentThatNoCalendarCanHoldHasNeitherDaysNorMinutes_data()
    {
        QTest::addColumn<double>("moment");
        QTest::newRow("the first second too late") << 6e15;
        QTest::newRow("the last one too early") << -6e15;
        QTest::newRow("1e16") << 1e16;
        QTest::newRow("1e308") << 1e308;
        QTest::newRow("-1e308") << -1e308;
        QTest::newRow("the largest") << std::numeric_limits<double>::max();
        QTest::newRow("infinity") << std::numeric_limits<double>::infinity();
        QTest::newRow("negative infinity") << -std::numeric_limits<double>::infinity();
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
    }
    void aMomentThatNoCalendarCanHoldHasNeitherDaysNorMinutes()
    {
        QFETCH(const double, moment);
        const Calendar calendar{QTimeZone{"America/New_York"}};
        const PointInTime now{757'382'400};

        QCOMPARE(calendar.minuteOf(PointInTime{moment}), std::nullopt);
        QCOMPARE(calendar.movedToMinute(PointInTime{moment}, {2025, 1, 1, 12, 0}), std::nullopt);
        QCOMPARE(calendar.wholeDays(now, PointInTime{moment}), std::nullopt);
        QCOMPARE(calendar.wholeDays(PointInTime{moment}, now), std::nullopt);
    }

    void aMomentMovesToAnotherMinuteWithItsSeconds_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<WallClockMinute>("minute");
        QTest::addColumn<QString>("to");
        const auto row = [](const char *name, const char *from, const WallClockMinute &minute,
                            const char *to) {
            QTest::newRow(name) << QString::fromLatin1(from) << minute << QString::fromLatin1(to);
        };
        row("another time", "2025-01-01T12:00:40.25+01:00", {2025, 1, 1, 9, 5},
            "2025-01-01T09:05:40.25+01:00");
        row("another date", "2025-01-01T12:00:40+01:00", {2025, 7, 1, 12, 0},
            "2025-07-01T12:00:40+02:00");
        row("a time that was skipped", "2025-03-29T12:00:40+01:00", {2025, 3, 30, 2, 30},
            "2025-03-30T03:30:40+02:00");
        row("a time that comes twice, from winter", "2025-10-27T12:00:40+01:00",
            {2025, 10, 26, 2, 30}, "2025-10-26T02:30:40+01:00");
        row("a time that comes twice, from summer", "2025-10-25T12:00:40+02:00",
            {2025, 10, 26, 2, 30}, "2025-10-26T02:30:40+02:00");
        row("the last minute that can be said", "2025-01-01T12:00:40+01:00", {9999, 12, 31, 23, 59},
            "9999-12-31T23:59:40+01:00");
    }
    void aMomentMovesToAnotherMinuteWithItsSeconds()
    {
        QFETCH(const QString, from);
        QFETCH(const WallClockMinute, minute);
        QFETCH(const QString, to);
        const Calendar calendar{QTimeZone{"Europe/Berlin"}};

        const auto moved = calendar.movedToMinute(moment(from), minute);

        QVERIFY(moved);
        QCOMPARE(moved->secondsSinceReference(), moment(to).secondsSinceReference());
    }

    void aMinuteThatIsSkippedMovesOnByTheLengthOfTheGap_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("from");
        QTest::addColumn<WallClockMinute>("minute");
        QTest::addColumn<QString>("to");
        const auto row = [](const char *name, const char *zone, const char *from,
                            const WallClockMinute &minute, const char *to) {
            QTest::newRow(name) << QByteArray{zone} << QString::fromLatin1(from) << minute
                                << QString::fromLatin1(to);
        };
        row("two hours, from before", "Antarctica/Troll", "2025-03-29T12:00:07+00:00",
            {2025, 3, 30, 1, 30}, "2025-03-30T03:30:07+02:00");
        row("two hours, from after", "Antarctica/Troll", "2025-03-31T12:00:07+02:00",
            {2025, 3, 30, 2, 59}, "2025-03-30T04:59:07+02:00");
        row("half an hour", "Australia/Lord_Howe", "2025-10-01T12:00:00+10:30",
            {2025, 10, 5, 2, 15}, "2025-10-05T02:45:00+11:00");
        row("a day", "Pacific/Apia", "2011-12-29T12:00:00-10:00", {2011, 12, 30, 8, 0},
            "2011-12-31T08:00:00+14:00");
    }
    void aMinuteThatIsSkippedMovesOnByTheLengthOfTheGap()
    {
        QFETCH(const QByteArray, zone);
        QFETCH(const QString, from);
        QFETCH(const WallClockMinute, minute);
        QFETCH(const QString, to);

        const auto moved = Calendar{QTimeZone{zone}}.movedToMinute(moment(from), minute);

        QCOMPARE(moved, moment(to));
    }

    void aMinuteThatIsOnNoDateIsNotMovedTo_data()
    {
        QTest::addColumn<WallClockMinute>("minute");
        const auto row = [](const char *name, const WallClockMinute &minute) {
            QTest::newRow(name) << minute;
        };
        constexpr int most = std::numeric_limits<int>::max();
        constexpr int least = std::numeric_limits<int>::min();
        row("no such day", {2025, 2, 29, 12, 0});
        row("no such month", {2025, 13, 1, 12, 0});
        row("the year 10000", {10'000, 1, 1, 12, 0});
        row("the last year that a date can have", {most, 1, 1, 12, 0});
        row("a year before 1", {-1, 1, 1, 12, 0});
        row("the first year", {least, 1, 1, 12, 0});
        row("an hour too many", {2025, 1, 1, 24, 0});
        row("as many hours as can be", {2025, 1, 1, most, 0});
        row("an hour too few", {2025, 1, 1, -1, 0});
        row("a minute too many", {2025, 1, 1, 12, 60});
        row("a minute too few", {2025, 1, 1, 12, -1});
    }
    void aMinuteThatIsOnNoDateIsNotMovedTo()
    {
        QFETCH(const WallClockMinute, minute);
        const Calendar calendar{QTimeZone{"Europe/Berlin"}};

        QCOMPARE(calendar.movedToMinute(PointInTime{757'382'400}, minute), std::nullopt);
    }

private:
    static PointInTime moment(const QString &text)
    {
        const auto milliseconds =
            QDateTime::fromString(text, Qt::ISODateWithMs).toMSecsSinceEpoch();
        return PointInTime::fromUnixSeconds(static_cast<double>(milliseconds) / 1000);
    }
};

NORVANE_TEST(TestCalendar)
#include "tst_Calendar.moc"

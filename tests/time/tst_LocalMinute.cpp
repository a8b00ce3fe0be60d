// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/support/TestProgram.h"
#include "time/LocalMinute.h"

#include <QTest>

using namespace norvane;
using namespace std::chrono;

namespace {

const QTimeZone berlin{"Europe/Berlin"};

WallClockMinute at(QStringView text)
{
    return minuteFrom(text).value_or(WallClockMinute{});
}

constexpr sys_seconds utc(year_month_day date, hours hour, minutes minute = minutes{0})
{
    return sys_days{date} + hour + minute;
}

} // namespace

class TestLocalMinute final : public QObject {
    Q_OBJECT

private slots:
    void aMinuteIsReadDigitByDigit()
    {
        QCOMPARE(minuteFrom(u"2024-02-29T23:59"),
                 (WallClockMinute{.year = 2024, .month = 2, .day = 29, .hour = 23, .minute = 59}));
    }

    void whatIsNoMinuteIsNotRead_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addRow("no leap year") << QStringLiteral("2025-02-29T10:00");
        QTest::addRow("hour 24") << QStringLiteral("2025-02-28T24:00");
        QTest::addRow("year 0") << QStringLiteral("0000-02-28T10:00");
        QTest::addRow("a sign") << QStringLiteral("2025-02-28T+1:00");
        QTest::addRow("seconds") << QStringLiteral("2025-02-28T10:00:00");
        QTest::addRow("a blank") << QStringLiteral("2025-02-28 10:00");
    }

    void whatIsNoMinuteIsNotRead()
    {
        QFETCH(const QString, text);

        QVERIFY(!minuteFrom(text));
    }

    void anOrdinaryMinuteComesOnce()
    {
        QCOMPARE(momentsOf(at(u"2026-07-01T12:00"), berlin),
                 std::vector{utc(2026y / July / 1, 10h)});
    }

    void aMinuteOnTheDayOfAChangeComesOnce()
    {
        QCOMPARE(momentsOf(at(u"2026-03-29T01:59"), berlin),
                 std::vector{utc(2026y / March / 29, 0h, 59min)});
        QCOMPARE(momentsOf(at(u"2026-03-29T03:00"), berlin),
                 std::vector{utc(2026y / March / 29, 1h)});
    }

    void aMinuteThatIsSkippedComesAtTheFirstInstantAfterTheGap()
    {
        QCOMPARE(momentsOf(at(u"2026-03-29T02:00"), berlin),
                 std::vector{utc(2026y / March / 29, 1h)});
        QCOMPARE(momentsOf(at(u"2026-03-29T02:59"), berlin),
                 std::vector{utc(2026y / March / 29, 1h)});
    }

    void aWholeDayThatIsSkippedEndsWithTheGap()
    {
        QCOMPARE(momentsOf(at(u"2011-12-30T12:00"), QTimeZone{"Pacific/Apia"}),
                 std::vector{utc(2011y / December / 30, 10h)});
    }

    void aMinuteOfAnOverlapComesTwice()
    {
        QCOMPARE(momentsOf(at(u"2026-10-25T02:30"), berlin),
                 (std::vector{utc(2026y / October / 25, 0h, 30min),
                              utc(2026y / October / 25, 1h, 30min)}));
    }

    void ofTwoOccurrencesTheFirstThatIsNotOverCounts_data()
    {
        QTest::addColumn<qint64>("secondsAfterTheFirst");
        QTest::addColumn<bool>("isTheFirst");
        QTest::addRow("long before") << qint64{-86'400} << true;
        QTest::addRow("within the first") << qint64{59} << true;
        QTest::addRow("just after it") << qint64{60} << false;
        QTest::addRow("long after both") << qint64{86'400} << false;
    }

    void ofTwoOccurrencesTheFirstThatIsNotOverCounts()
    {
        QFETCH(const qint64, secondsAfterTheFirst);
        QFETCH(const bool, isTheFirst);
        const sys_seconds first = utc(2026y / October / 25, 0h, 30min);

        const sys_seconds due =
            dueMoment(at(u"2026-10-25T02:30"), berlin, first + seconds{secondsAfterTheFirst});

        QCOMPARE(due, isTheFirst ? first : first + 1h);
    }

    void theEndsOfTheCalendarHaveMoments()
    {
        QCOMPARE(momentsOf(at(u"9999-12-31T23:59"), QTimeZone::utc()),
                 std::vector{utc(9999y / December / 31, 23h, 59min)});
        QCOMPARE(momentsOf(at(u"0001-01-01T00:00"), QTimeZone::utc()),
                 std::vector{utc(1y / January / 1, 0h)});
    }
};

NORVANE_TEST(TestLocalMinute)
#include "tst_LocalMinute.moc"

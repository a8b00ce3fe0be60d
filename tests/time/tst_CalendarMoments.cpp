// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/support/TestProgram.h"
#include "time/Calendar.h"

#include <QTest>

using namespace norvane;
using namespace std::chrono;

namespace {

const Calendar berlin{QTimeZone{"Europe/Berlin"}};

WallClockMinute at(QStringView text)
{
    return WallClockMinute::fromText(text).value_or(WallClockMinute{});
}

constexpr sys_seconds utc(year_month_day date, hours hour, minutes minute = minutes{0})
{
    return sys_days{date} + hour + minute;
}

} // namespace

class TestCalendarMoments final : public QObject {
    Q_OBJECT

private slots:
    void anOrdinaryMinuteComesOnce()
    {
        QCOMPARE(berlin.momentsOf(at(u"2026-07-01T12:00")),
                 std::vector{utc(2026y / July / 1, 10h)});
    }

    void aMinuteOnTheDayOfAChangeComesOnce()
    {
        QCOMPARE(berlin.momentsOf(at(u"2026-03-29T01:59")),
                 std::vector{utc(2026y / March / 29, 0h, 59min)});
        QCOMPARE(berlin.momentsOf(at(u"2026-03-29T03:00")),
                 std::vector{utc(2026y / March / 29, 1h)});
    }

    void aMinuteThatIsSkippedComesAtTheFirstInstantAfterTheGap()
    {
        QCOMPARE(berlin.momentsOf(at(u"2026-03-29T02:00")),
                 std::vector{utc(2026y / March / 29, 1h)});
        QCOMPARE(berlin.momentsOf(at(u"2026-03-29T02:59")),
                 std::vector{utc(2026y / March / 29, 1h)});
    }

    void aLongGapEndsAtItsFirstInstantToo()
    {
        const Calendar troll{QTimeZone{"Antarctica/Troll"}};
        QCOMPARE(troll.momentsOf(at(u"2025-03-30T00:59")),
                 std::vector{utc(2025y / March / 30, 0h, 59min)});
        QCOMPARE(troll.momentsOf(at(u"2025-03-30T01:00")),
                 std::vector{utc(2025y / March / 30, 1h)});
        QCOMPARE(troll.momentsOf(at(u"2025-03-30T02:59")),
                 std::vector{utc(2025y / March / 30, 1h)});
        QCOMPARE(troll.momentsOf(at(u"2025-03-30T03:00")),
                 std::vector{utc(2025y / March / 30, 1h)});
    }

    void aWholeDayThatIsSkippedEndsWithTheGap()
    {
        QCOMPARE(Calendar{QTimeZone{"Pacific/Apia"}}.momentsOf(at(u"2011-12-30T12:00")),
                 std::vector{utc(2011y / December / 30, 10h)});
        QCOMPARE(Calendar{QTimeZone{"Pacific/Enderbury"}}.momentsOf(at(u"1994-12-31T23:59")),
                 std::vector{utc(1994y / December / 31, 11h)});
    }

    void aLongOverlapComesTwiceToo()
    {
        QCOMPARE(Calendar{QTimeZone{"Antarctica/Troll"}}.momentsOf(at(u"2025-10-26T02:30")),
                 (std::vector{utc(2025y / October / 26, 0h, 30min),
                              utc(2025y / October / 26, 2h, 30min)}));
    }

    void aMinuteOfAnOverlapComesTwice()
    {
        QCOMPARE(berlin.momentsOf(at(u"2026-10-25T02:30")),
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
            berlin.dueMoment(at(u"2026-10-25T02:30"), first + seconds{secondsAfterTheFirst});

        QCOMPARE(due, isTheFirst ? first : first + 1h);
    }

    void theEndsOfTheCalendarHaveMoments()
    {
        QCOMPARE(Calendar{QTimeZone::utc()}.momentsOf(at(u"9999-12-31T23:59")),
                 std::vector{utc(9999y / December / 31, 23h, 59min)});
        QCOMPARE(Calendar{QTimeZone::utc()}.momentsOf(at(u"0001-01-01T00:00")),
                 std::vector{utc(1y / January / 1, 0h)});
    }
};

NORVANE_TEST(TestCalendarMoments)
#include "tst_CalendarMoments.moc"

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/UserCalendar.h"
#include "tests/support/HandMovedClock.h"
#include "tests/support/TestProgram.h"

#include <QDateTime>
#include <QTest>

using namespace norvane;

namespace {

using Part = UserCalendar::Part;

PointInTime berlin(int year, int month, int day, int hour, int minute, double seconds = 0)
{
    const QDateTime local{QDate{year, month, day}, QTime{hour, minute},
                          QTimeZone{QByteArrayLiteral("Europe/Berlin")}};
    return PointInTime::fromUnixSeconds(static_cast<double>(local.toSecsSinceEpoch()))
        .advanced(seconds);
}

int dayNumber(int year, int month, int day)
{
    return static_cast<int>(QDate{year, month, day}.toJulianDay());
}

} // namespace

namespace QTest {

template <>
char *toString(const PointInTime &moment)
{
    return toString(QString::number(moment.secondsSinceReference(), 'f', 3));
}

} // namespace QTest

class TestUserCalendar final : public QObject {
    Q_OBJECT

private slots:
    void textsAreThoseOfTheZone()
    {
        const PointInTime moment = berlin(2025, 1, 8, 9, 30);

        QCOMPARE(german_.text(moment, Part::Day), QStringLiteral("08.01.2025"));
        QCOMPARE(german_.text(moment, Part::TimeOfDay), QStringLiteral("09:30"));
    }

    void aMomentNoCalendarHoldsHasNoTextAndStaysAsItIs()
    {
        for (const double seconds : {1e308, -1e308, 1e15}) {
            const PointInTime moment{seconds};

            QCOMPARE(german_.text(moment, Part::Day), QString{});
            QCOMPARE(german_.typed(moment, Part::Day, QStringLiteral("1.1.2025"), moment), moment);
            QCOMPARE(german_.stepped(moment, field(moment, Part::Day, 0), 1, moment), moment);
            QCOMPARE(german_.onDay(moment, german_.today(), moment), moment);
        }
    }

    void theValuesOfDateAndTimeFollowTheMoment()
    {
        const PointInTime moment = berlin(2025, 1, 8, 9, 30);
        const PointInTime later = berlin(2025, 1, 9, 9, 31);

        QCOMPARE(german_.valueOf(moment, Part::TimeOfDay), 9 * 60 + 30);
        QCOMPARE(german_.valueOf(later, Part::TimeOfDay), 9 * 60 + 31);
        QCOMPARE(german_.valueOf(later, Part::Day), german_.valueOf(moment, Part::Day) + 1);
        QCOMPARE(german_.valueOf(PointInTime{1e308}, Part::TimeOfDay), 0);
    }

    void secondsSurviveATypedDayAndATypedTime()
    {
        const PointInTime moment = berlin(2025, 1, 8, 9, 30, 15.25);

        QCOMPARE(german_.typed(moment, Part::Day, QStringLiteral("9.2.2026"), moment),
                 berlin(2026, 2, 9, 9, 30, 15.25));
        QCOMPARE(german_.typed(moment, Part::TimeOfDay, QStringLiteral("18:05"), moment),
                 berlin(2025, 1, 8, 18, 5, 15.25));
    }

    void whatIsTypedAndMeansNothingLeavesTheMoment()
    {
        const PointInTime moment = berlin(2025, 1, 8, 9, 30, 15.25);

        QCOMPARE(german_.typed(moment, Part::Day, QStringLiteral("31.2."), moment), moment);
        QCOMPARE(german_.typed(moment, Part::TimeOfDay, QStringLiteral("9:"), moment),
                 berlin(2025, 1, 8, 9, 0, 15.25));
        QCOMPARE(german_.typed(moment, Part::TimeOfDay, QStringLiteral(":"), moment), moment);
    }

    void aTimeThatDaylightSavingSkipsMovesOnByTheGap()
    {
        const PointInTime moment = berlin(2025, 3, 30, 1, 15, 7);

        QCOMPARE(german_.typed(moment, Part::TimeOfDay, QStringLiteral("02:30"), moment),
                 berlin(2025, 3, 30, 3, 30, 7));
    }

    void aDayWhoseTimeIsSkippedDoesNotChangeTheTimeOfTheDaysAfter()
    {
        const PointInTime moment = berlin(2025, 3, 29, 2, 30, 7);
        const int day = field(moment, Part::Day, 0);

        const PointInTime inGap = german_.stepped(moment, day, 1, moment);
        const PointInTime after = german_.stepped(inGap, day, 1, moment);

        QCOMPARE(inGap, berlin(2025, 3, 30, 3, 30, 7));
        QCOMPARE(after, berlin(2025, 3, 31, 2, 30, 7));
    }

    void anUntouchedTimeInTheHourThatComesTwiceStaysWhereItIs()
    {
        const PointInTime second = berlin(2025, 10, 26, 1, 30).advanced(2 * 3600);
        QCOMPARE(german_.text(second, Part::TimeOfDay), QStringLiteral("02:30"));

        QCOMPARE(german_.typed(second, Part::TimeOfDay, QStringLiteral("02:30"), second), second);
        QCOMPARE(german_.typed(second, Part::TimeOfDay, QStringLiteral("02:45"), second),
                 second.advanced(15 * 60));
    }

    void hoursStepThroughAChangeOfDaylightSavingBothWays()
    {
        const PointInTime before = berlin(2025, 3, 30, 1, 30);
        const int hour = field(before, Part::TimeOfDay, 0);

        const PointInTime after = german_.stepped(before, hour, 1, before);

        QCOMPARE(german_.text(after, Part::TimeOfDay), QStringLiteral("03:30"));
        QCOMPARE(german_.stepped(after, hour, -1, after), before);
    }

    void fieldsAreStepped_data()
    {
        QTest::addColumn<int>("part");
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("steps");
        QTest::addColumn<double>("expected");

        const int day = static_cast<int>(Part::Day);
        const int time = static_cast<int>(Part::TimeOfDay);
        const auto row = [](const char *name, int part, int position, int steps,
                            PointInTime expected) {
            QTest::newRow(name) << part << position << steps << expected.secondsSinceReference();
        };
        row("a day on", day, 1, 1, berlin(2025, 2, 1, 23, 59, 5));
        row("a day back", day, 1, -1, berlin(2025, 1, 30, 23, 59, 5));
        row("a month on, to its last day", day, 4, 1, berlin(2025, 2, 28, 23, 59, 5));
        row("a year on", day, 9, 1, berlin(2026, 1, 31, 23, 59, 5));
        row("from no place, the day", day, -1, 2, berlin(2025, 2, 2, 23, 59, 5));
        row("an hour on, into the next day", time, 1, 1, berlin(2025, 2, 1, 0, 59, 5));
        row("a minute on", time, 4, 1, berlin(2025, 2, 1, 0, 0, 5));
        row("from no place, the hour", time, -1, -1, berlin(2025, 1, 31, 22, 59, 5));
    }
    void fieldsAreStepped()
    {
        QFETCH(const int, part);
        QFETCH(const int, position);
        QFETCH(const int, steps);
        const PointInTime moment = berlin(2025, 1, 31, 23, 59, 5);

        const int which = field(moment, static_cast<Part>(part), position);

        QTEST(german_.stepped(moment, which, steps, moment).secondsSinceReference(), "expected");
    }

    void steppingEndsAtTheYearsACalendarHas()
    {
        const PointInTime last = berlin(9999, 12, 31, 12, 0);

        QCOMPARE(german_.stepped(last, field(last, Part::Day, 0), 1, last), last);
        QCOMPARE(german_.stepped(last, field(last, Part::Day, 9), 1, last), last);
        QCOMPARE(german_.stepped(last, field(last, Part::TimeOfDay, 0), 12, last), last);
    }

    void aFieldIsFoundAgainAfterItsTextGrew()
    {
        const PointInTime ninth = berlin(2025, 9, 9, 12, 0);
        const int day = american_.fieldAt(ninth, Part::Day, 3);

        const PointInTime tenth = american_.stepped(ninth, day, 1, ninth);

        QCOMPARE(american_.text(tenth, Part::Day), QStringLiteral("9/10/2025"));
        const TextRange expected{.start = 2, .end = 4};
        QCOMPARE(american_.section(tenth, Part::Day, day), expected);
    }

    void todayIsTheDateInTheZoneAndNotInUniversalTime()
    {
        clock_.set(berlin(2025, 1, 9, 0, 30)); // Still the 8th in UTC.

        QCOMPARE(german_.today(), dayNumber(2025, 1, 9));
    }

    void aPageBeginsWithTheLocalesFirstDayOfTheWeek()
    {
        QCOMPARE(german_.pageStart(dayNumber(2025, 1, 8)), dayNumber(2024, 12, 30));
        QCOMPARE(american_.pageStart(dayNumber(2025, 1, 8)), dayNumber(2024, 12, 29));
        QCOMPARE(german_.weekday(german_.pageStart(dayNumber(2025, 1, 8))), QStringLiteral("M"));
        QCOMPARE(german_.pageStart(dayNumber(2025, 9, 30)), dayNumber(2025, 9, 1));
    }

    void aPageIsTitledAsTheLocaleWritesAMonth_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("title");

        QTest::newRow("American") << "en_US"
                                  << "January 2025";
        QTest::newRow("Spanish") << "es_ES"
                                 << "enero de 2025";
        QTest::newRow("Japanese") << "ja_JP"
                                  << "2025年1月";
        QTest::newRow("Russian, not the form within a date") << "ru_RU"
                                                             << "январь 2025";
        QTest::newRow("Breton, with an apostrophe") << "br_FR"
                                                    << "Genver 2025";
    }
    void aPageIsTitledAsTheLocaleWritesAMonth()
    {
        QFETCH(const QString, locale);
        const UserCalendar calendar{clock_, QLocale{locale}};

        QTEST(calendar.pageTitle(dayNumber(2025, 1, 8)), "title");
    }

    void aMonthLaterThanTheLastOfALongMonthIsTheLastOfAShortOne()
    {
        QCOMPARE(german_.monthsLater(dayNumber(2025, 1, 31), 1), dayNumber(2025, 2, 28));
        QCOMPARE(german_.monthsLater(dayNumber(2025, 1, 31), -2), dayNumber(2024, 11, 30));
    }

    void anotherDayIsPickedAtTheTimeThatWasAskedFor()
    {
        const PointInTime shifted = berlin(2025, 3, 30, 3, 30, 7);

        QCOMPARE(german_.onDay(shifted, dayNumber(2025, 4, 2), berlin(2025, 3, 29, 2, 30)),
                 berlin(2025, 4, 2, 2, 30, 7));
    }

private:
    [[nodiscard]] int field(PointInTime moment, Part part, int position) const
    {
        return german_.fieldAt(moment, part, position);
    }

    HandMovedClock clock_{berlin(2025, 1, 8, 9, 30), QByteArrayLiteral("Europe/Berlin")};
    UserCalendar german_{clock_, QLocale{QStringLiteral("de_DE")}};
    UserCalendar american_{clock_, QLocale{QStringLiteral("en_US")}};
};

NORVANE_TEST(TestUserCalendar)
#include "tst_UserCalendar.moc"

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "panel/DateTimeFormat.h"
#include "tests/support/TestProgram.h"

#include <QTest>

using namespace norvane;

namespace {

constexpr WallClockMinute before{.year = 2025, .month = 1, .day = 8, .hour = 15, .minute = 4};

WallClockMinute onDay(int year, int month, int day)
{
    return {.year = year, .month = month, .day = day, .hour = 15, .minute = 4};
}

WallClockMinute atTime(int hour, int minute)
{
    return {.year = 2025, .month = 1, .day = 8, .hour = hour, .minute = minute};
}

/// The blanks that do not break, which later versions of Qt write before "PM", as ordinary ones.
QString withOrdinaryBlanks(QString text)
{
    return text.replace(QChar{0x202F}, u' ').replace(QChar{0x00A0}, u' ');
}
} // namespace

class TestDateTimeFormat final : public QObject {
    Q_OBJECT

private slots:
    void bothPartsAreWrittenAsTheLocaleDoesWithAFullYearAndNoSeconds_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("day");
        QTest::addColumn<QString>("time");

        QTest::newRow("American") << "en_US"
                                  << "1/8/2025"
                                  << "3:04 PM";
        QTest::newRow("British") << "en_GB"
                                 << "08/01/2025"
                                 << "15:04";
        QTest::newRow("German") << "de_DE"
                                << "08.01.2025"
                                << "15:04";
        QTest::newRow("Japanese") << "ja_JP"
                                  << "2025/01/08"
                                  << "15:04";
        QTest::newRow("Korean, half of the day first") << "ko_KR"
                                                       << "2025. 1. 8."
                                                       << "오후 3:04";
        QTest::newRow("Bulgarian, with letters about") << "bg_BG"
                                                       << "8.01.2025 г."
                                                       << "15:04";
        QTest::newRow("Egyptian, digits and marks of its own") << "ar_EG"
                                                               << "٨\u200f/١\u200f/٢٠٢٥"
                                                               << "٣:٠٤ م";
        QTest::newRow("none at all") << "C"
                                     << "8 Jan 2025"
                                     << "15:04";
    }
    void bothPartsAreWrittenAsTheLocaleDoesWithAFullYearAndNoSeconds()
    {
        QFETCH(const QString, locale);

        QTEST(withOrdinaryBlanks(DateTimeFormat::ofDay(QLocale{locale}).shown(before).text), "day");
        QString time =
            withOrdinaryBlanks(DateTimeFormat::ofTime(QLocale{locale}).shown(before).text);
        time.remove(QStringLiteral(" ч.")); // Bulgarian has it with Qt 6.4, and not with Qt 6.8.
        QTEST(time, "time");
    }

    void whatIsShownIsReadBackInEveryLocale()
    {
        const auto locales =
            QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
        QVERIFY(locales.size() > 100);

        for (const QLocale &locale : locales) {
            for (const WallClockMinute &minute : {before, atTime(0, 0), onDay(2024, 12, 31)}) {
                const auto day = DateTimeFormat::ofDay(locale);
                const auto time = DateTimeFormat::ofTime(locale);
                const WallClockMinute other = atTime(11, 11);
                const auto readDay = day.read(day.shown(minute).text, other);
                const auto readTime = time.read(time.shown(minute).text, other);
                QVERIFY2(readDay && readDay->text().left(10) == minute.text().left(10),
                         qPrintable(locale.name() + u' ' + day.shown(minute).text));
                QVERIFY2(readTime && readTime->text().mid(11) == minute.text().mid(11),
                         qPrintable(locale.name() + u' ' + time.shown(minute).text));
            }
        }
    }

    void aTypedDayIsUnderstood_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("expected");

        const auto day = [](int year, int month, int number) {
            return onDay(year, month, number).text();
        };
        QTest::newRow("as shown") << "de_DE"
                                  << "24.12.2026" << day(2026, 12, 24);
        QTest::newRow("month first") << "en_US"
                                     << "12/24/2026" << day(2026, 12, 24);
        QTest::newRow("two digits of the year") << "de_DE"
                                                << "24.12.26" << day(2026, 12, 24);
        QTest::newRow("no year") << "de_DE"
                                 << "24.12." << day(2025, 12, 24);
        QTest::newRow("a day alone") << "de_DE"
                                     << "24" << day(2025, 1, 24);
        QTest::newRow("other separators") << "de_DE"
                                          << " 24-12 2026 " << day(2026, 12, 24);
        QTest::newRow("year, month, day anywhere") << "en_US"
                                                   << "2026-12-24" << day(2026, 12, 24);
        QTest::newRow("digits of the locale") << "ar_EG"
                                              << "٢٤/١٢/٢٠٢٦" << day(2026, 12, 24);
        QTest::newRow("the locale's letters after an ordinary blank")
            << "bg_BG"
            << "24.12.2026 г." << day(2026, 12, 24);
        QTest::newRow("a month's name") << "C"
                                        << "24 Dec 2026" << day(2026, 12, 24);
        QTest::newRow("no marks") << "de_DE"
                                  << "24122026" << day(2026, 12, 24);
        QTest::newRow("no marks, two digits of the year") << "de_DE"
                                                          << "241226" << day(2026, 12, 24);
        QTest::newRow("no marks, month first") << "en_US"
                                               << "12242026" << day(2026, 12, 24);
        QTest::newRow("no marks, year first") << "ja_JP"
                                              << "20261224" << day(2026, 12, 24);
        QTest::newRow("no marks, year first where it is last") << "de_DE"
                                                               << "20261224" << day(2026, 12, 24);
        QTest::newRow("year, month, day where it is the other way round")
            << "de_DE"
            << "2026-12-24" << day(2026, 12, 24);
        QTest::newRow("year, month, day among other marks") << "bg_BG"
                                                            << "2026-12-24" << day(2026, 12, 24);
        QTest::newRow("the locale's order before another") << "en_US"
                                                           << "4/5/2026" << day(2026, 4, 5);
        QTest::newRow("another order where there is no such month")
            << "en_US"
            << "24.12.2026" << day(2026, 12, 24);
        QTest::newRow("month first where there is no such month")
            << "de_DE"
            << "12/24/2026" << day(2026, 12, 24);
        QTest::newRow("another order, no year") << "de_DE"
                                                << "12/24" << day(2025, 12, 24);
        QTest::newRow("the last two-digit year") << "de_DE"
                                                 << "1.1.99" << day(2099, 1, 1);
        QTest::newRow("the first two-digit year") << "de_DE"
                                                  << "1.1.00" << day(2000, 1, 1);
        QTest::newRow("a month's name behind the day") << "en_US"
                                                       << "1 Dec 2026" << day(2026, 12, 1);
        QTest::newRow("a month's name in front") << "en_US"
                                                 << "December 1, 2026" << day(2026, 12, 1);
        QTest::newRow("a day of the week") << "de_DE"
                                           << "Donnerstag, 24. Dezember 2026" << day(2026, 12, 24);
        QTest::newRow("words between") << "es_ES"
                                       << "24 de diciembre de 2026" << day(2026, 12, 24);
        QTest::newRow("Japanese units") << "ja_JP"
                                        << "2026年12月24日" << day(2026, 12, 24);
        QTest::newRow("an ordinary blank before a unit") << "bg_BG"
                                                         << "24.12.2026 г." << day(2026, 12, 24);
        QTest::newRow("a narrow blank before a unit")
            << "bg_BG" << QString::fromUtf8("24.12.2026\u202fг.") << day(2026, 12, 24);
        QTest::newRow("29 February in a leap year") << "de_DE"
                                                    << "29.2.2028" << day(2028, 2, 29);
    }
    void aTypedDayIsUnderstood()
    {
        QFETCH(const QString, locale);
        QFETCH(const QString, typed);

        const auto read = DateTimeFormat::ofDay(QLocale{locale}).read(typed, before);

        QVERIFY(read);
        QTEST(read->text(), "expected");
    }

    void aTypedTimeIsUnderstood_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("expected");

        const auto time = [](int hour, int minute) { return atTime(hour, minute).text(); };
        QTest::newRow("as shown") << "de_DE"
                                  << "07:45" << time(7, 45);
        QTest::newRow("an hour alone") << "de_DE"
                                       << "7" << time(7, 0);
        QTest::newRow("without a colon") << "de_DE"
                                         << "745" << time(7, 45);
        QTest::newRow("four digits") << "de_DE"
                                     << "1745" << time(17, 45);
        QTest::newRow("a point") << "de_DE"
                                 << "17.45" << time(17, 45);
        QTest::newRow("afternoon") << "en_US"
                                   << "7:45 PM" << time(19, 45);
        QTest::newRow("a letter for it") << "en_US"
                                         << "7:45p" << time(19, 45);
        QTest::newRow("noon") << "en_US"
                              << "12:00 pm" << time(12, 0);
        QTest::newRow("midnight") << "en_US"
                                  << "12:00 am" << time(0, 0);
        QTest::newRow("afternoon where 24 hours are shown") << "en_GB"
                                                            << "6pm" << time(18, 0);
        QTest::newRow("forenoon where 24 hours are shown") << "de_DE"
                                                           << "6:45 a.m." << time(6, 45);
        QTest::newRow("a word that is no half of the day") << "de_DE"
                                                           << "18 Uhr" << time(18, 0);
        QTest::newRow("a narrow blank")
            << "en_US" << QString::fromUtf8("7:45\u202fPM") << time(19, 45);
        QTest::newRow("blanks within the mark") << "en_US"
                                                << "7:45 p. m." << time(19, 45);
        QTest::newRow("24 hours where 12 are shown") << "en_US"
                                                     << "19:45" << time(19, 45);
    }
    void aTypedTimeIsUnderstood()
    {
        QFETCH(const QString, locale);
        QFETCH(const QString, typed);

        const auto read = DateTimeFormat::ofTime(QLocale{locale}).read(typed, before);

        QVERIFY(read);
        QTEST(read->text(), "expected");
    }

    void whatIsNoDayIsNotRead_data()
    {
        QTest::addColumn<QString>("typed");

        for (const char *const typed : {"",
                                        "tomorrow",
                                        "31.2.2025",
                                        "29.2.2025",
                                        "0.1.2025",
                                        "13.13.2025",
                                        "1.1.0000",
                                        "1.1.202",
                                        "1.1.20255",
                                        "1.1.1.1",
                                        "24.12.2026 7",
                                        "001.1.2025",
                                        "99999999999999999999",
                                        "in 2 weeks",
                                        "2412",
                                        "2026",
                                        "31022025",
                                        "311302",
                                        "24 Dez 12 2026",
                                        "2026-13-32",
                                        "31.2.25"}) {
            QTest::newRow(typed) << typed;
        }
    }
    void whatIsNoDayIsNotRead()
    {
        QFETCH(const QString, typed);

        QVERIFY(!DateTimeFormat::ofDay(QLocale{QStringLiteral("de_DE")}).read(typed, before));
    }

    void whatIsNoTimeIsNotRead_data()
    {
        QTest::addColumn<QString>("typed");

        for (const char *const typed : {"", "noon", "24:00", "12:60", "7:5", "7:45:00", "13:00 PM",
                                        "0:30 AM", "7:45 AMPM", "12345", ":"}) {
            QTest::newRow(typed) << typed;
        }
    }
    void whatIsNoTimeIsNotRead()
    {
        QFETCH(const QString, typed);

        QVERIFY(!DateTimeFormat::ofTime(QLocale{QStringLiteral("en_US")}).read(typed, before));
    }
};

NORVANE_TEST(TestDateTimeFormat)
#include "tst_DateTimeFormat.moc"

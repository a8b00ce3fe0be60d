// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "tests/support/TestProgram.h"
#include "time/WallClockMinute.h"

#include <QTest>

using namespace norvane;

class TestWallClockMinute final : public QObject {
    Q_OBJECT

private slots:
    void theTextHasFixedPlaces_data()
    {
        QTest::addColumn<WallClockMinute>("minute");
        QTest::addColumn<QString>("text");
        QTest::newRow("all zeros in front")
            << WallClockMinute{1, 2, 3, 4, 5} << QStringLiteral("0001-02-03T04:05");
        QTest::newRow("none in front")
            << WallClockMinute{2025, 12, 31, 23, 59} << QStringLiteral("2025-12-31T23:59");
        QTest::newRow("midnight") << WallClockMinute{2025, 1, 1}
                                  << QStringLiteral("2025-01-01T00:00");
    }
    void theTextHasFixedPlaces()
    {
        QFETCH(const WallClockMinute, minute);
        QFETCH(const QString, text);

        QCOMPARE(minute.text(), text);
    }

    void aMinuteIsReadDigitByDigit()
    {
        QCOMPARE(WallClockMinute::fromText(u"2024-02-29T23:59"),
                 (WallClockMinute{.year = 2024, .month = 2, .day = 29, .hour = 23, .minute = 59}));
    }

    void whatIsNoMinuteIsNotRead_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("no leap year") << QStringLiteral("2025-02-29T10:00");
        QTest::newRow("hour 24") << QStringLiteral("2025-02-28T24:00");
        QTest::newRow("year 0") << QStringLiteral("0000-02-28T10:00");
        QTest::newRow("a sign") << QStringLiteral("2025-02-28T+1:00");
        QTest::newRow("seconds") << QStringLiteral("2025-02-28T10:00:00");
        QTest::newRow("a blank") << QStringLiteral("2025-02-28 10:00");
    }

    void whatIsNoMinuteIsNotRead()
    {
        QFETCH(const QString, text);

        QVERIFY(!WallClockMinute::fromText(text));
    }
};

NORVANE_TEST(TestWallClockMinute)
#include "tst_WallClockMinute.moc"

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
};

NORVANE_TEST(TestWallClockMinute)
#include "tst_WallClockMinute.moc"

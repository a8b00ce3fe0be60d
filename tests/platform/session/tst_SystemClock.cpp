// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/session/SystemClock.h"
#include "tests/support/TestProgram.h"

#include <QTest>

#include <ctime>

using namespace norvane;

class TestSystemClock final : public QObject {
    Q_OBJECT

private slots:
    void itShowsTheTimeThatTheMachineHas()
    {
        const std::time_t before = std::time(nullptr);
        const PointInTime now = SystemClock{}.now();
        const std::time_t after = std::time(nullptr);

        // The kernel's coarse clock, which time() reads, may be a tick behind.
        const double unixSeconds =
            now.secondsSinceReference() + PointInTime::referenceInUnixSeconds;
        QVERIFY(unixSeconds >= static_cast<double>(before));
        QVERIFY(unixSeconds < static_cast<double>(after) + 1.1);
    }

    void itShowsFractionsOfASecond()
    {
        const SystemClock clock;
        const PointInTime first = clock.now();

        QTRY_VERIFY(clock.now() > first && clock.now() < first.advanced(1));
    }

    void itIsInTheZoneThatTheMachineIsIn()
    {
        qputenv("TZ", "Asia/Kathmandu");
        QCOMPARE(SystemClock{}.calendar().minuteOf(PointInTime{757'382'400})->text(),
                 QStringLiteral("2025-01-01T05:45"));
        qputenv("TZ", "America/New_York");
        QCOMPARE(SystemClock{}.calendar().minuteOf(PointInTime{757'382'400})->text(),
                 QStringLiteral("2024-12-31T19:00"));
    }
};

NORVANE_TEST(TestSystemClock)
#include "tst_SystemClock.moc"

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "reminders/ReminderSchedule.h"
#include "tests/support/HandMovedClock.h"
#include "tests/support/RecordingNotificationCenter.h"
#include "tests/support/TestProgram.h"

#include <QTest>

#include <limits>

using namespace norvane;

namespace {

constexpr double hour = 3'600;
constexpr double day = 24 * hour;

} // namespace

class TestReminderSchedule final : public QObject {
    Q_OBJECT

private slots:
    void aTrialFarFromItsEndGetsThreeRemindersInOrder()
    {
        Planned planned{trialEnding(10 * day, 12)};

        QCOMPARE(planned.identifiers, (QStringList{id + u"-3d", id + u"-24h", id + u"-1h"}));
        QCOMPARE(
            planned.center.operations(),
            (QStringList{u"add " + id + u"-3d", u"add " + id + u"-24h", u"add " + id + u"-1h"}));
        QCOMPARE(
            planned.request(0),
            (NotificationRequest{id + u"-3d", QStringLiteral("\U0001F4C5 Trial Ending in 3 Days"),
                                 QStringLiteral("\"Acme Cloud\" trial ends in 3 days. "
                                                "Decide before you're charged $12.00."),
                                 QStringLiteral("default"), WallClockMinute{2025, 1, 8, 0, 0}}));
        QCOMPARE(
            planned.request(1),
            (NotificationRequest{id + u"-24h", QStringLiteral("\u23F0 Trial Ending Tomorrow"),
                                 QStringLiteral("\"Acme Cloud\" trial ends tomorrow. "
                                                "Cancel before you're charged $12.00."),
                                 QStringLiteral("default"), WallClockMinute{2025, 1, 10, 0, 0}}));
        QCOMPARE(
            planned.request(2),
            (NotificationRequest{
                id + u"-1h", QStringLiteral("\U0001F6A8 Trial Ending in 1 Hour"),
                QStringLiteral("\"Acme Cloud\" \u2014 cancel now to avoid being charged $12.00."),
                QStringLiteral("default"), WallClockMinute{2025, 1, 10, 23, 0}}));
    }

    void onlyRemindersStillAheadAreAskedFor_data()
    {
        QTest::addColumn<double>("secondsLeft");
        QTest::addColumn<QStringList>("suffixes");
        const QStringList all{QStringLiteral("-3d"), QStringLiteral("-24h"), QStringLiteral("-1h")};
        QTest::newRow("a second over 3 days") << 3 * day + 1 << all;
        QTest::newRow("3 days") << 3 * day << all.mid(1);
        QTest::newRow("2 days") << 2 * day << all.mid(1);
        QTest::newRow("a second over 24 hours") << day + 1 << all.mid(1);
        QTest::newRow("24 hours") << day << all.mid(2);
        QTest::newRow("a tenth of a second over 1 hour") << hour + 0.1 << all.mid(2);
        QTest::newRow("1 hour") << hour << QStringList{};
        QTest::newRow("30 minutes") << hour / 2 << QStringList{};
        QTest::newRow("ends now") << 0.0 << QStringList{};
        QTest::newRow("ended yesterday") << -day << QStringList{};
    }
    void onlyRemindersStillAheadAreAskedFor()
    {
        QFETCH(const double, secondsLeft);
        QFETCH(const QStringList, suffixes);

        Planned planned{trialEnding(secondsLeft)};

        QCOMPARE(planned.identifiers,
                 QStringList{suffixes}.replaceInStrings(QStringLiteral("-"), id + u'-'));
        QCOMPARE(planned.center.requests().size(), suffixes.size());
        QCOMPARE(planned.center.pending().size(), suffixes.size());
    }

    void theClockIsReadAfreshForEachReminder()
    {
        HandMovedClock clock{now};
        clock.moveAtEachRead(day);
        RecordingNotificationCenter center;

        // Three days and a half ahead at the first reading, one and a half at the third.
        const QStringList identifiers =
            ReminderSchedule{clock, center}.plan(trialEnding(3.5 * day));

        QCOMPARE(clock.reads(), 3);
        QCOMPARE(identifiers.size(), 3);
        clock.set(now);
        clock.moveAtEachRead(2.5 * day);
        QCOMPARE((ReminderSchedule{clock, center}.plan(trialEnding(3.4 * day))),
                 QStringList{id + u"-3d"});
    }

    void theCostIsNamedOnlyWhenSomethingIsCharged_data()
    {
        QTest::addColumn<double>("cost");
        QTest::addColumn<QString>("piece");
        QTest::newRow("9.5") << 9.5 << QStringLiteral(" $9.50");
        QTest::newRow("9.999") << 9.999 << QStringLiteral(" $10.00");
        QTest::newRow("1234.5") << 1234.5 << QStringLiteral(" $1234.50");
        QTest::newRow("less than a cent") << 0.001 << QStringLiteral(" $0.00");
        QTest::newRow("infinity") << std::numeric_limits<double>::infinity()
                                  << QStringLiteral(" $inf");
        QTest::newRow("0") << 0.0 << QString{};
        QTest::newRow("negative zero") << -0.0 << QString{};
        QTest::newRow("negative") << -5.0 << QString{};
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << QString{};
    }
    void theCostIsNamedOnlyWhenSomethingIsCharged()
    {
        QFETCH(const double, cost);
        QFETCH(const QString, piece);

        Planned planned{trialEnding(10 * day, cost)};

        QCOMPARE(
            planned.request(0).body,
            QStringLiteral("\"Acme Cloud\" trial ends in 3 days. Decide before you're charged") +
                piece + u'.');
        QCOMPARE(
            planned.request(1).body,
            QStringLiteral("\"Acme Cloud\" trial ends tomorrow. Cancel before you're charged") +
                piece + u'.');
        QCOMPARE(planned.request(2).body,
                 QStringLiteral("\"Acme Cloud\" \u2014 cancel now to avoid being charged") + piece +
                     u'.');
    }

    void theNameStandsInTheBodyAsItIs_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("empty") << QString{};
        QTest::newRow("blanks") << QStringLiteral("  Acme ");
        QTest::newRow("quotes") << QStringLiteral("\"Acme\"");
        QTest::newRow("markup and marks") << QStringLiteral("<b>%1 $(x) 100%</b>\n");
    }
    void theNameStandsInTheBodyAsItIs()
    {
        QFETCH(const QString, name);
        Trial trial = trialEnding(2 * hour);
        trial.name = name;

        Planned planned{trial};

        QCOMPARE(planned.request(0).body,
                 u'"' + name + QStringLiteral("\" \u2014 cancel now to avoid being charged."));
    }

    void theTriggerIsTheMinuteInWhichTheFireDateFalls()
    {
        Planned planned{trialEnding(11 * hour + 15 * 60 + 40)};

        QCOMPARE(planned.request(0).trigger, (WallClockMinute{2025, 1, 1, 10, 15}));
    }

    void theTriggerIsInTheTimeOfTheZone()
    {
        Planned planned{trialEnding(2 * day), QByteArrayLiteral("Asia/Kathmandu")};

        QCOMPARE(planned.request(1).trigger, (WallClockMinute{2025, 1, 3, 4, 45}));
    }

    void the24HoursAreRealHoursAcrossAChangeOfTheClocks()
    {
        // Ends on 2025-03-30 at 12:00 summer time, ten hours after the clocks went forward.
        const double end = 88 * day + 10 * hour;

        Planned planned{trialEnding(end), QByteArrayLiteral("Europe/Berlin")};

        QCOMPARE(planned.request(1).trigger, (WallClockMinute{2025, 3, 29, 11, 0}));
    }

    void aFireDateLessThanAMinuteAheadIsAskedForThoughItsMinuteHasBegun()
    {
        HandMovedClock clock{now.advanced(10)};
        RecordingNotificationCenter center;

        const QStringList identifiers =
            ReminderSchedule{clock, center}.plan(trialEnding(hour + 20));

        QCOMPARE(identifiers, QStringList{id + u"-1h"});
        QCOMPARE(center.requests().first().trigger, (WallClockMinute{2025, 1, 1, 0, 0}));
    }

    void planningAgainGivesTheSameIdentifiersAndLeavesTheSamePending()
    {
        Planned planned{trialEnding(10 * day)};
        const auto pending = planned.center.pending();

        const QStringList again = planned.planAgain();

        QCOMPARE(again, planned.identifiers);
        QCOMPARE(planned.center.pending(), pending);
        QCOMPARE(planned.center.requests().size(), 6);
    }

    void anEndThatNoCalendarCanHoldKeepsItsIdentifiersAndSendsNothing_data()
    {
        QTest::addColumn<double>("end");
        QTest::newRow("1e12") << 1e12;
        QTest::newRow("1e18") << 1e18;
        QTest::newRow("1e308") << 1e308;
        QTest::newRow("infinity") << std::numeric_limits<double>::infinity();
    }
    void anEndThatNoCalendarCanHoldKeepsItsIdentifiersAndSendsNothing()
    {
        QFETCH(const double, end);

        Planned planned{trialEnding(end)};

        QCOMPARE(planned.identifiers, (QStringList{id + u"-3d", id + u"-24h", id + u"-1h"}));
        QVERIFY(planned.center.operations().isEmpty());
    }

    void anEndInfinitelyLongAgoHasNoReminders_data()
    {
        QTest::addColumn<double>("end");
        QTest::newRow("-1e308") << -1e308;
        QTest::newRow("negative infinity") << -std::numeric_limits<double>::infinity();
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
    }
    void anEndInfinitelyLongAgoHasNoReminders()
    {
        QFETCH(const double, end);

        Planned planned{trialEnding(end)};

        QVERIFY(planned.identifiers.isEmpty());
        QVERIFY(planned.center.operations().isEmpty());
    }

private:
    /// 2025-01-01 00:00:00 UTC.
    static constexpr PointInTime now{757'382'400};
    inline static const QString id = QStringLiteral("BA96CA62-A106-480E-9C02-EEBDC393F97E");

    static Trial trialEnding(double secondsFromNow, double cost = 0)
    {
        Trial trial =
            Trial::make(QStringLiteral("Acme Cloud"), now.advanced(secondsFromNow), cost, {}, now);
        trial.id = QUuid::fromString(id);
        return trial;
    }

    /// One trial, planned with a centre of its own.
    struct Planned {
        explicit Planned(Trial trialToPlan, const QByteArray &zone = QByteArrayLiteral("UTC"))
            : trial{std::move(trialToPlan)},
              clock{now, zone},
              identifiers{planAgain()}
        {
        }

        QStringList planAgain() { return ReminderSchedule{clock, center}.plan(trial); }
        [[nodiscard]] NotificationRequest request(qsizetype index) const
        {
            return center.requests().value(index);
        }

        Trial trial;
        HandMovedClock clock;
        RecordingNotificationCenter center;
        QStringList identifiers;
    };
};

NORVANE_TEST(TestReminderSchedule)
#include "tst_ReminderSchedule.moc"

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Scheduler.h"
#include "tests/notifier/FakeSurroundings.h"
#include "tests/support/TestProgram.h"
#include "time/WallClockMinute.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>
#include <tuple>
#include <vector>

using namespace norvane;
using namespace std::chrono;

namespace {

constexpr sys_seconds plannedNoon = sys_days{2026y / July / 1} + 12h;

NotificationRequest request(const QString &identifier, QStringView trigger)
{
    return {.identifier = identifier,
            .title = identifier,
            .body = {},
            .sound = {},
            .trigger = WallClockMinute::fromText(trigger).value_or(WallClockMinute{})};
}

} // namespace

class TestScheduler final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        folder_ = std::make_unique<QTemporaryDir>();
        clock_.moment = plannedNoon;
        zone_ = std::make_unique<FakeZone>("UTC");
        wakeUp();
    }

    void cleanup() { sleep(); }

    void itWaitsForTheEarliestRequest()
    {
        add(QStringLiteral("b-1h"), u"2026-07-03T12:00");
        add(QStringLiteral("a-1h"), u"2026-07-02T12:00");
        add(QStringLiteral("c-1h"), u"2026-07-04T12:00");

        QCOMPARE(alarm_.moment, plannedNoon + 24h);
    }

    void aRequestComesWhenTheClockReachesItsMinute()
    {
        add(QStringLiteral("a-1h"), u"2026-07-01T12:01");
        clock_.moment = plannedNoon + 59s;
        emit alarm_.fired();
        QCOMPARE(outbox(), QStringList{});

        clock_.moment = plannedNoon + 60s;
        emit alarm_.fired();

        QCOMPARE(outbox(), QStringList{QStringLiteral("a-1h")});
        QVERIFY(!scheduler_->hasPending());
    }

    void dueRequestsComeInTheOrderOfTheirMinutes()
    {
        add(QStringLiteral("b-1h"), u"2026-07-01T12:02");
        add(QStringLiteral("a-1h"), u"2026-07-01T12:01");

        clock_.moment = plannedNoon + 10min;
        emit alarm_.fired();

        QCOMPARE(outbox(), (QStringList{QStringLiteral("a-1h"), QStringLiteral("b-1h")}));
    }

    void aClockSetForwardBringsWhatItPassed()
    {
        add(QStringLiteral("a-1h"), u"2026-07-01T12:30");
        add(QStringLiteral("b-1h"), u"2026-07-01T18:00");

        clock_.moment = plannedNoon + 1h;
        emit alarm_.clockSet();

        QCOMPARE(outbox(), QStringList{QStringLiteral("a-1h")});
        QCOMPARE(alarm_.moment, plannedNoon + 6h);
    }

    void aClockSetBackMakesItWaitLonger()
    {
        add(QStringLiteral("a-1h"), u"2026-07-01T12:30");

        clock_.moment = plannedNoon - 48h;
        emit alarm_.clockSet();

        QCOMPARE(outbox(), QStringList{});
        QCOMPARE(alarm_.moment, plannedNoon + 30min);
    }

    void whatLapsedByAClockThatWasWrongPendsAgain()
    {
        add(QStringLiteral("a-1h"), u"2026-07-01T18:00");
        sleep();
        clock_.moment = plannedNoon + days{400};
        wakeUp();
        QVERIFY(!scheduler_->hasPending());

        clock_.moment = plannedNoon + 1min;
        emit alarm_.clockSet();

        QCOMPARE(outbox(), QStringList{});
        QCOMPARE(alarm_.moment, plannedNoon + 6h);
    }

    void whatLapsedByAClockThatWasWrongComesWhenItIsDueByTheRightOne()
    {
        add(QStringLiteral("a-24h"), u"2026-07-01T12:30");
        sleep();
        clock_.moment = plannedNoon + days{400};
        wakeUp();
        sleep();

        clock_.moment = plannedNoon + 1h;
        wakeUp();

        QCOMPARE(outbox(), QStringList{QStringLiteral("a-24h")});
    }

    void aReminderThatLapsedForALaterOneStaysAwayWhenTheClockIsSetBack()
    {
        add(QStringLiteral("a-24h"), u"2026-07-01T12:10");
        add(QStringLiteral("a-1h"), u"2026-07-01T12:20");
        clock_.moment = plannedNoon + 1h;
        emit alarm_.clockSet();
        deliverAll();

        clock_.moment = plannedNoon + 59min;
        emit alarm_.clockSet();

        QCOMPARE(outbox(), QStringList{});
    }

    void aJourneyEastBringsWhatTheWallClockPassed()
    {
        add(QStringLiteral("a-1h"), u"2026-07-01T13:30");
        add(QStringLiteral("b-1h"), u"2026-07-01T18:00");

        zone_->move("Europe/Berlin"); // It is 14:00 there.

        QCOMPARE(outbox(), QStringList{QStringLiteral("a-1h")});
        QCOMPARE(alarm_.moment, plannedNoon + 4h);
    }

    void aJourneyWestMakesItWaitForTheWallClock()
    {
        add(QStringLiteral("a-1h"), u"2026-07-01T12:30");

        zone_->move("America/New_York");

        QCOMPARE(outbox(), QStringList{});
        QCOMPARE(alarm_.moment, plannedNoon + 4h + 30min);
    }

    void aZoneThatChangedWhileNobodyRanCountsFromTheStart()
    {
        add(QStringLiteral("a-1h"), u"2026-07-01T18:00");
        sleep();

        zone_ = std::make_unique<FakeZone>("Europe/Berlin");
        wakeUp();

        QCOMPARE(alarm_.moment, plannedNoon + 4h);
    }

    void theFirstOfTwoOccurrencesIsKeptWhenTheClockIsLookedAtAnew()
    {
        zone_->move("Europe/Berlin");
        clock_.moment = sys_days{2026y / October / 24};
        add(QStringLiteral("a-1h"), u"2026-10-25T02:30");
        const sys_seconds first = sys_days{2026y / October / 25} + 30min;
        QCOMPARE(alarm_.moment, first);

        clock_.moment = first + 5min; // Slept through it.
        emit alarm_.clockSet();

        QCOMPARE(outbox(), QStringList{QStringLiteral("a-1h")});
    }

    void aMissedReminderYieldsToALaterOneOfItsTrial()
    {
        add(QStringLiteral("a-3d"), u"2026-07-01T12:10");
        add(QStringLiteral("a-24h"), u"2026-07-01T12:20");
        add(QStringLiteral("b-24h"), u"2026-07-01T12:15");

        clock_.moment = plannedNoon + 1h;
        emit alarm_.clockSet();

        QCOMPARE(outbox(), (QStringList{QStringLiteral("b-24h"), QStringLiteral("a-24h")}));
    }

    void aMissedReminderYieldsToOneThatIsJustDue()
    {
        add(QStringLiteral("a-24h"), u"2026-07-01T12:10");
        add(QStringLiteral("a-1h"), u"2026-07-01T13:00");

        clock_.moment = plannedNoon + 1h;
        emit alarm_.clockSet();

        QCOMPARE(outbox(), QStringList{QStringLiteral("a-1h")});
    }

    void aReminderThatStillWaitsForAServerMakesRoomForTheNextOfItsTrial()
    {
        add(QStringLiteral("a-24h"), u"2026-07-01T12:00");
        add(QStringLiteral("b-24h"), u"2026-07-01T12:00");
        add(QStringLiteral("a-b-1h"), u"2026-07-01T12:00");
        add(QStringLiteral("a-1h"), u"2026-07-01T12:30");

        clock_.moment = plannedNoon + 30min;
        emit alarm_.fired();

        QCOMPARE(outbox(), (QStringList{QStringLiteral("b-24h"), QStringLiteral("a-b-1h"),
                                        QStringLiteral("a-1h")}));
    }

    void remindersOfOneTrialThatAreDueInTimeAllCome()
    {
        add(QStringLiteral("a-1"), u"2026-07-01T12:00");
        add(QStringLiteral("a-2"), u"2026-07-01T12:00");

        QCOMPARE(outbox(), (QStringList{QStringLiteral("a-1"), QStringLiteral("a-2")}));
    }

    void twoMinutesThatTheZoneMakesOneBothCome()
    {
        zone_->move("Europe/Berlin");
        clock_.moment = sys_days{2026y / March / 28};
        add(QStringLiteral("a-1"), u"2026-03-29T02:30"); // Skipped: comes at 3:00.
        add(QStringLiteral("a-2"), u"2026-03-29T03:00");

        clock_.moment = sys_days{2026y / March / 29} + 1h;
        emit alarm_.fired();

        QCOMPARE(outbox(), (QStringList{QStringLiteral("a-1"), QStringLiteral("a-2")}));
    }

    void whatWasDeliveredIsRememberedForAWeek()
    {
        add(QStringLiteral("a-1h"), u"2026-07-01T12:00");
        deliverAll();

        clock_.moment = plannedNoon + days{7};
        wakeAgain();
        clock_.moment = plannedNoon;
        add(QStringLiteral("a-1h"), u"2026-07-01T12:00");
        QCOMPARE(outbox(), QStringList{});

        clock_.moment = plannedNoon + days{7} + 1s;
        wakeAgain();
        clock_.moment = plannedNoon;
        add(QStringLiteral("a-1h"), u"2026-07-01T12:00");

        QCOMPARE(outbox(), QStringList{QStringLiteral("a-1h")});
    }

    void anotherMinuteOfADeliveredIdentifierComes()
    {
        add(QStringLiteral("a-1h"), u"2026-07-01T12:00");
        deliverAll();

        add(QStringLiteral("a-1h"), u"2026-07-01T12:01");
        clock_.moment = plannedNoon + 1min;
        emit alarm_.fired();

        QCOMPARE(outbox(), QStringList{QStringLiteral("a-1h")});
    }

    void whatIsDueLeavesBeforeARequestForAnotherMinuteReplacesIt()
    {
        add(QStringLiteral("a-1h"), u"2026-07-01T12:01");
        clock_.moment = plannedNoon + 1min;

        add(QStringLiteral("a-1h"), u"2026-07-02T12:00");

        QCOMPARE(outbox(), QStringList{QStringLiteral("a-1h")});
        QVERIFY(scheduler_->hasPending());
    }

    void oneThatIsAskedForTooLateYieldsToALaterOneThatStillWaitsForAServer()
    {
        add(QStringLiteral("a-1h"), u"2026-07-01T12:00");

        add(QStringLiteral("a-24h"), u"2026-07-01T11:00");

        QCOMPARE(outbox(), QStringList{QStringLiteral("a-1h")});
    }

    void aMissedReminderComesAsLongAsItIsWorthShowing()
    {
        clock_.moment = plannedNoon + 1h;
        add(QStringLiteral("a-1h"), u"2026-07-01T12:00");
        add(QStringLiteral("b-1h"), u"2026-07-01T12:01");

        QCOMPARE(outbox(), QStringList{QStringLiteral("b-1h")});
    }

    void whatLapsedIsForgottenAfterAWeek()
    {
        add(QStringLiteral("a-1h"), u"2026-07-01T10:00");
        QCOMPARE(ledger_->count(), 1);

        clock_.moment = plannedNoon + days{7} + 1s;
        emit alarm_.fired();

        QCOMPARE(ledger_->count(), 0);
    }

    void whatWasDeliveredByAClockThatWasAheadComesAgainOnce()
    {
        clock_.moment = plannedNoon + 24h;
        add(QStringLiteral("a-1h"), u"2026-07-02T12:00");
        deliverAll();
        clock_.moment = plannedNoon;
        emit alarm_.clockSet();

        add(QStringLiteral("a-1h"), u"2026-07-02T12:00");
        clock_.moment = plannedNoon + 24h;
        emit alarm_.fired();

        QCOMPARE(outbox(), QStringList{QStringLiteral("a-1h")});
    }

    void aClockThatIsCorrectedByAMinuteBringsNothingAgain()
    {
        add(QStringLiteral("a-1h"), u"2026-07-01T12:00");
        deliverAll();
        clock_.moment = plannedNoon - 60s;
        emit alarm_.clockSet();

        add(QStringLiteral("a-1h"), u"2026-07-01T12:00");
        clock_.moment = plannedNoon;
        emit alarm_.fired();

        QCOMPARE(outbox(), QStringList{});
    }

    void whatIsDueLeavesBeforeARemovalOfAll()
    {
        std::ignore =
            scheduler_->apply({AddRequest{request(QStringLiteral("a-1h"), u"2026-07-01T12:00")},
                               RemoveAllRequests{}});

        QCOMPARE(outbox(), QStringList{QStringLiteral("a-1h")});
    }

    void whatCannotBeReadIsReadAgainAMinuteLater()
    {
        add(QStringLiteral("a-1h"), u"2026-07-02T14:00");
        const QString name = QSqlDatabase::connectionNames().first();
        QSqlQuery query{QSqlDatabase::database(name)};
        QVERIFY(query.exec(QStringLiteral("ALTER TABLE disk.pending RENAME TO hidden")));

        emit alarm_.clockSet();

        QCOMPARE(alarm_.moment, plannedNoon + 1min);
    }

private:
    void wakeUp()
    {
        ledger_ = std::make_unique<Ledger>(folder_->path());
        QVERIFY(ledger_->open());
        scheduler_ = std::make_unique<Scheduler>(*ledger_, alarm_, *zone_, clock_);
        scheduler_->start();
    }

    void sleep()
    {
        scheduler_.reset();
        ledger_.reset();
    }

    void wakeAgain()
    {
        sleep();
        wakeUp();
    }

    void add(const QString &identifier, QStringView trigger)
    {
        QCOMPARE(scheduler_->apply({AddRequest{request(identifier, trigger)}}),
                 std::vector{Scheduler::Outcome::Durable});
    }

    /// Who is in the outbox, which is empty afterwards.
    QStringList outbox()
    {
        QStringList identifiers;
        while (const std::optional<OutboxEntry> head = ledger_->outboxHead()) {
            identifiers << head->request.identifier;
            ledger_->transact([&] { ledger_->removeFromOutbox(head->request); });
        }
        return identifiers;
    }

    void deliverAll()
    {
        while (const std::optional<OutboxEntry> head = ledger_->outboxHead()) {
            ledger_->transact([&] {
                ledger_->removeFromOutbox(head->request);
                ledger_->rememberDelivered(head->request, clock_.moment);
            });
        }
    }

    std::unique_ptr<QTemporaryDir> folder_;
    FakeClock clock_{plannedNoon};
    FakeAlarm alarm_;
    std::unique_ptr<FakeZone> zone_;
    std::unique_ptr<Ledger> ledger_;
    std::unique_ptr<Scheduler> scheduler_;
};

NORVANE_TEST(TestScheduler)
#include "tst_Scheduler.moc"

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Courier.h"
#include "notifier/Ledger.h"
#include "tests/notifier/FakeSurroundings.h"
#include "tests/support/TestProgram.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace norvane;
using namespace std::chrono;

namespace {

constexpr sys_seconds noon = sys_days{2026y / July / 1} + 12h;
using enum NotificationServer::Failure;

constexpr Courier::Pauses pauses{.first = 20ms, .longest = 80ms};

} // namespace

class TestCourier final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        folder_ = std::make_unique<QTemporaryDir>();
        ledger_ = std::make_unique<Ledger>(folder_->path());
        QVERIFY(ledger_->open());
        server_ = std::make_unique<FakeServer>();
        clock_.moment = noon;
        courier_ = std::make_unique<Courier>(*ledger_, *server_, clock_, pauses);
        put(QStringLiteral("a-1h"));
        put(QStringLiteral("b-1h"));
    }

    void cleanup()
    {
        courier_.reset();
        ledger_.reset();
    }

    void theNextGoesOutOnlyAfterTheFirstWasTaken()
    {
        courier_->deliver();
        courier_->deliver();
        QCOMPARE(server_->given, QStringList{QStringLiteral("a-1h")});

        server_->take();

        QCOMPARE(server_->given, (QStringList{QStringLiteral("a-1h"), QStringLiteral("b-1h")}));
    }

    void aReminderLeavesTheOutboxOnlyAfterTheServerTookIt()
    {
        courier_->deliver();
        QCOMPARE(head(), QStringLiteral("a-1h"));

        server_->take();

        QCOMPARE(head(), QStringLiteral("b-1h"));
    }

    void oneThatIsRefusedIsTriedAgainBeforeTheNext()
    {
        courier_->deliver();

        emit server_->failed(Refused);

        QTRY_COMPARE(server_->given, (QStringList{QStringLiteral("a-1h"), QStringLiteral("a-1h")}));
    }

    void thePausesWithoutAServerGrow()
    {
        QElapsedTimer time;
        time.start();
        courier_->deliver();

        for (qsizetype attempts = 1; attempts <= 4; ++attempts) {
            emit server_->failed(Unavailable);
            QVERIFY(wasGiven(attempts + 1));
        }

        QVERIFY(time.elapsed() >= 200); // 20 + 40 + 80 + 80, less what coarse timers save.
        QCOMPARE(server_->given.count(QStringLiteral("a-1h")), 5);
    }

    void thePausesGrowNoLongerThanTheLongest()
    {
        QElapsedTimer time;
        time.start();
        courier_->deliver();

        for (qsizetype attempts = 1; attempts <= 7; ++attempts) {
            emit server_->failed(Unavailable);
            QVERIFY(wasGiven(attempts + 1));
        }

        QVERIFY(time.elapsed() < 1500); // 540, and 2540 if they went on doubling.
    }

    void aSuccessMakesThePauseShortAgain()
    {
        use({.first = 10ms, .longest = 1h});
        courier_->deliver();
        for (qsizetype attempts = 1; attempts <= 7; ++attempts) {
            emit server_->failed(Unavailable);
            QVERIFY(wasGiven(attempts + 1));
        }
        server_->take();
        QElapsedTimer time;
        time.start();

        emit server_->failed(Unavailable);

        QVERIFY(wasGiven(10));
        QVERIFY(time.elapsed() < 1000); // 10, and 1280 if it went on doubling.
    }

    void aServerThatAppearsIsGivenItAtOnce()
    {
        useEndlessPauses();
        courier_->deliver();
        emit server_->failed(Unavailable);

        emit server_->appeared();

        QCOMPARE(server_->given.count(QStringLiteral("a-1h")), 2);
    }

    void aServerThatAppearsMakesThePauseShortAgain()
    {
        use({.first = 10ms, .longest = 1h});
        courier_->deliver();
        for (int attempts = 1; attempts <= 10; ++attempts) {
            emit server_->failed(Unavailable);
            emit server_->appeared();
        }
        QElapsedTimer time;
        time.start();

        emit server_->failed(Unavailable);

        QVERIFY(wasGiven(12));
        QVERIFY(time.elapsed() < 2000); // 10, and 10240 if it went on doubling.
    }

    void aServerStartedByAnAttemptDoesNotShortenThePauses()
    {
        QElapsedTimer time;
        time.start();
        courier_->deliver();

        for (qsizetype attempts = 1; attempts <= 4; ++attempts) {
            emit server_->appeared();
            emit server_->failed(Unavailable);
            QVERIFY(wasGiven(attempts + 1));
        }

        QVERIFY(time.elapsed() >= 200); // As without a server.
    }

    void oneThatIsRefusedThreeTimesMakesWayForTheOthers()
    {
        courier_->deliver();

        for (qsizetype attempts = 1; attempts <= 3; ++attempts) {
            QVERIFY(wasGiven(attempts));
            emit server_->failed(Refused);
        }

        QCOMPARE(server_->given.last(), QStringLiteral("b-1h"));
        server_->take();
        QTRY_COMPARE(server_->given.last(), QStringLiteral("a-1h")); // It is still tried.
    }

    void aPostponedReminderDoesNotDelayLaterOnes()
    {
        useEndlessPauses();
        courier_->deliver();
        for (int i = 0; i < 2; ++i) {
            emit server_->failed(Died);
            emit server_->appeared();
        }
        QCOMPARE(server_->given.last(), QStringLiteral("b-1h"));
        server_->take();
        put(QStringLiteral("c-1h"));

        courier_->deliver();

        QCOMPARE(server_->given.last(), QStringLiteral("c-1h"));
    }

    void aServerThatWentAwayDuringAnAttemptIsTriedAsSoonAsItIsBack()
    {
        useEndlessPauses();
        courier_->deliver();
        emit server_->failed(Died);

        emit server_->appeared();

        QCOMPARE(server_->given, (QStringList{QStringLiteral("a-1h"), QStringLiteral("a-1h")}));
    }

    void oneThatServersDoNotSurviveWaitsForItsPauseThoughTheyComeBack()
    {
        ledger_->transact([this] { ledger_->remove({QStringLiteral("b-1h")}); });
        courier_->deliver();
        emit server_->failed(Died);
        emit server_->appeared();
        emit server_->failed(Died);

        emit server_->appeared();

        QCOMPARE(server_->given.size(), 2);
        QVERIFY(wasGiven(3)); // After the pause.
    }

    void oneThatWasNeverAnsweredIsGivenToTheSameServerThreeTimesAtMost()
    {
        ledger_->transact([this] { ledger_->remove({QStringLiteral("b-1h")}); });
        courier_->deliver();
        for (qsizetype attempts = 1; attempts <= 3; ++attempts) {
            QVERIFY(wasGiven(attempts));
            emit server_->failed(Unanswered);
        }
        QVERIFY(!QTest::qWaitFor([&] { return server_->given.size() > 3; }, 300));

        emit server_->disappeared();
        emit server_->appeared();

        QCOMPARE(server_->given.size(), 4);
    }

    void whatAServerNeverAnsweredIsTriedAgainAfterItHasGone()
    {
        ledger_->transact([this] { ledger_->remove({QStringLiteral("b-1h")}); });
        courier_->deliver();
        for (qsizetype attempts = 1; attempts <= 3; ++attempts) {
            QVERIFY(wasGiven(attempts));
            emit server_->failed(Unanswered);
        }

        emit server_->disappeared();

        QCOMPARE(server_->given.size(), 3);
        QVERIFY(wasGiven(4)); // After the pause: the attempt can start the next server.
    }

    void anOutboxThatCannotBeReadIsNotTakenForEmpty()
    {
        const QSignalSpy emptied{courier_.get(), &Courier::emptied};
        QVERIFY(exec(QStringLiteral("ALTER TABLE disk.outbox RENAME TO hidden")));

        courier_->deliver();

        QVERIFY(!courier_->isOutboxEmpty());
        QCOMPARE(emptied.count(), 0);
        QVERIFY(exec(QStringLiteral("ALTER TABLE disk.hidden RENAME TO outbox")));
        QVERIFY(wasGiven(1));
    }

    void itTellsThatTheServerHasAnswered()
    {
        const QSignalSpy answered{courier_.get(), &Courier::answered};
        courier_->deliver();

        server_->take();

        QCOMPARE(answered.count(), 1);
    }

    void oneThatServersDoNotSurviveAndThatWasNeverAnsweredIsGivenToTheNextServer()
    {
        ledger_->transact([this] { ledger_->remove({QStringLiteral("b-1h")}); });
        courier_->deliver();
        qsizetype attempts = 0;
        for (const auto failure : {Died, Died, Unanswered, Unanswered, Unanswered}) {
            QVERIFY(wasGiven(++attempts));
            emit server_->failed(failure);
        }

        emit server_->disappeared();
        emit server_->appeared();

        QVERIFY(wasGiven(6)); // After the pause.
    }

    void aLateAnswerCounts()
    {
        useEndlessPauses();
        courier_->deliver();
        emit server_->failed(Unanswered);

        server_->take();

        QCOMPARE(server_->given, (QStringList{QStringLiteral("a-1h"), QStringLiteral("b-1h")}));
    }

    void aFailureAfterALateAnswerIsIgnored()
    {
        use({.first = 0ms, .longest = 0ms});
        courier_->deliver();
        server_->take(); // Only the second one is left.
        emit server_->failed(Unanswered);
        QVERIFY(wasGiven(3));
        server_->take();
        QVERIFY(courier_->isOutboxEmpty());

        emit server_->failed(Died);

        put(QStringLiteral("c-1h"));
        courier_->deliver();
        QCOMPARE(server_->given.last(), QStringLiteral("c-1h"));
    }

    void aPostponedReminderIsGivenUpWithItsLead()
    {
        courier_->deliver();
        for (qsizetype attempts = 1; attempts <= 3; ++attempts) {
            QVERIFY(wasGiven(attempts));
            emit server_->failed(Refused);
        }
        server_->take();

        clock_.moment = noon + 1h;

        QTRY_VERIFY(courier_->isOutboxEmpty());
    }

    void nothingNewGoesOutWhileItIsHeld()
    {
        courier_->hold();
        courier_->deliver();
        QCOMPARE(server_->given, QStringList{});
        QVERIFY(server_->isOnHold);

        courier_->release();

        QVERIFY(!server_->isOnHold);
        QCOMPARE(server_->given, QStringList{QStringLiteral("a-1h")});
    }

    void whatIsNoLongerWorthShowingIsLetGo()
    {
        clock_.moment = noon + 1h;
        const QSignalSpy emptied{courier_.get(), &Courier::emptied};

        courier_->deliver();

        QCOMPARE(server_->given, QStringList{});
        QVERIFY(courier_->isOutboxEmpty());
        QCOMPARE(emptied.count(), 1);
    }

    void oneThatIsRemovedWhileOnItsWayDoesNotTakeTheNextWithIt()
    {
        courier_->deliver();
        ledger_->transact([this] { ledger_->remove({QStringLiteral("a-1h")}); });

        server_->take();

        QCOMPARE(head(), QStringLiteral("b-1h"));
        QCOMPARE(server_->given, (QStringList{QStringLiteral("a-1h"), QStringLiteral("b-1h")}));
    }

    void whatWasLetGoByAWrongClockIsKeptForTheRightOne()
    {
        clock_.moment = noon + 2h;
        courier_->deliver();

        ledger_->transact([this] { ledger_->reviveLapsed(noon + 1min); });

        QCOMPARE(ledger_->pending().value().size(), 2U);
    }

private:
    void useEndlessPauses() { use({.first = 1h, .longest = 1h}); }
    void use(Courier::Pauses other)
    {
        courier_ = std::make_unique<Courier>(*ledger_, *server_, clock_, other);
    }

    /// Executes a statement on the ledger's own connection.
    [[nodiscard]] static bool exec(const QString &statement)
    {
        const QString name = QSqlDatabase::connectionNames().first();
        return QSqlQuery{QSqlDatabase::database(name)}.exec(statement);
    }

    /// Waits for so many attempts, and notices more closely than QTRY_ when they are there.
    [[nodiscard]] bool wasGiven(qsizetype attempts)
    {
        return QTest::qWaitFor([&] { return server_->given.size() == attempts; });
    }

    /// The identifier of the first reminder in the outbox; empty when there is none.
    [[nodiscard]] QString head()
    {
        return ledger_->outboxHead().value_or(OutboxEntry{}).request.identifier;
    }

    void put(const QString &identifier)
    {
        ledger_->transact([&] {
            ledger_->add({.identifier = identifier,
                          .title = identifier,
                          .body = {},
                          .sound = {},
                          .trigger = {}},
                         noon);
            for (const Ledger::Pending &due : ledger_->dueAt(noon)) {
                ledger_->moveToOutbox(due.number);
            }
        });
    }

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<Ledger> ledger_;
    std::unique_ptr<FakeServer> server_;
    FakeClock clock_{noon};
    std::unique_ptr<Courier> courier_;
};

NORVANE_TEST(TestCourier)
#include "tst_Courier.moc"

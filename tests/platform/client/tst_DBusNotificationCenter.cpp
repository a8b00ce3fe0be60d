// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/bus/BusNames.h"
#include "platform/client/DBusNotificationCenter.h"
#include "tests/support/PrivateSessionBus.h"
#include "tests/support/RecordingCenterService.h"
#include "tests/support/TestProgram.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QElapsedTimer>
#include <QScopeGuard>
#include <QTest>
#include <QThread>

#include <atomic>
#include <memory>
#include <thread>

using namespace norvane;

/// The client of the notification centre, with a recording service at the other end of a real bus.
class TestDBusNotificationCenter final : public QObject {
    Q_OBJECT

private slots:
    void everyOperationArrivesAsItsCallInOrder()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        DBusNotificationCenter center;

        center.requestAuthorization(NotificationCenter::Option::Alert |
                                    NotificationCenter::Option::Sound |
                                    NotificationCenter::Option::Badge);
        center.removeAllPendingNotificationRequests();
        center.addNotificationRequest({.identifier = QStringLiteral("ID-3d"),
                                       .title = QStringLiteral("📅 Title"),
                                       .body = QStringLiteral("\"Acme\" — <b>body</b>"),
                                       .sound = QStringLiteral("default"),
                                       .trigger = {2025, 1, 8, 9, 5}});
        center.removePendingNotificationRequests({QStringLiteral("a"), QStringLiteral("b")});
        center.removePendingNotificationRequests({});

        QTRY_COMPARE(service.calls().size(), 5);
        QCOMPARE(service.calls(),
                 (QStringList{QStringLiteral("RequestAuthorization 7"),
                              QStringLiteral("RemoveAllPendingRequests"),
                              QStringLiteral("AddRequest ID-3d 📅 Title \"Acme\" — <b>body</b> "
                                             "default 2025-01-08T09:05"),
                              QStringLiteral("RemovePendingRequests a b"),
                              QStringLiteral("RemovePendingRequests")}));
    }

    /// On the bus a text ends before its first U+0000.
    void aTextWithNulArrivesWhole()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        DBusNotificationCenter center;

        center.addNotificationRequest({.identifier = withNul("i", "d"),
                                       .title = withNul("Ti", "tle"),
                                       .body = withNul("bo", "dy"),
                                       .sound = withNul("so", "und"),
                                       .trigger = {2025, 1, 8, 9, 5}});

        QTRY_COMPARE(service.calls(), QStringList{QStringLiteral(
                                          "AddRequest i\ufffdd Ti\ufffdtle bo\ufffddy so\ufffdund "
                                          "2025-01-08T09:05")});
    }

    void anIdentifierWithNulWithdrawsNoOther()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        DBusNotificationCenter center;

        center.removePendingNotificationRequests(
            {QStringLiteral("a"), withNul("b", "c"), QStringLiteral("d")});

        QTRY_COMPARE(service.calls(), QStringList{QStringLiteral("RemovePendingRequests a d")});
    }

    /// A bus keeps track of only so many answers that are still due.
    void onlyTheLastCallOfABurstAsksForAnAnswer()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        DBusNotificationCenter center;

        addMany(center);

        QTRY_COMPARE_WITH_TIMEOUT(service.calls().size(), many, 60'000);
        QVERIFY(service.answersAsked() >= 1);
        QVERIFY2(service.answersAsked() < 100, qPrintable(QString::number(service.answersAsked())));
    }

    void whatTheContractRefusesIsNotSent()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        DBusNotificationCenter center;
        NotificationRequest request{.identifier = QStringLiteral("ID"),
                                    .title = QStringLiteral("t"),
                                    .body = QString{65'537, u'x'},
                                    .sound = QStringLiteral("default"),
                                    .trigger = {2025, 1, 1, 0, 0}};

        center.addNotificationRequest(request);
        request.body = QString{32'769, u'ä'}; // Two bytes each.
        center.addNotificationRequest(request);
        request.body = QString{200'000'000, u'x'}; // The bus would disconnect the sender.
        center.addNotificationRequest(request);
        request.body = QStringLiteral("b");
        request.identifier.clear();
        center.addNotificationRequest(request);
        add(center, 1);

        QTRY_COMPARE(service.calls(), QStringList{call(1)});
    }

    void theLongestTextThatTheContractAllowsIsSent()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        DBusNotificationCenter center;

        center.addNotificationRequest({.identifier = QStringLiteral("ID"),
                                       .title = QStringLiteral("t"),
                                       .body = QString{32'768, u'ä'},
                                       .sound = QStringLiteral("default"),
                                       .trigger = {2025, 1, 1, 0, 0}});

        QTRY_COMPARE(service.calls().size(), 1);
    }

    void manyIdentifiersAreWithdrawnInSeveralCalls()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        DBusNotificationCenter center;
        QStringList identifiers;
        for (int number = 0; number < 1'001; ++number) {
            identifiers.append(QString::number(number));
        }

        center.removePendingNotificationRequests(identifiers);

        QTRY_COMPARE(service.calls().size(), 3);
        QCOMPARE(service.calls().join(u' ').remove(QStringLiteral("RemovePendingRequests ")),
                 identifiers.join(u' '));
    }

    void callsThatNobodyConfirmedAreSentAgainToTheNextCentre()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        service.setSilent(true);
        DBusNotificationCenter center;
        add(center, 0);
        add(center, 1);
        QTRY_VERIFY(service.calls().contains(call(0)));

        service.disappear();
        service.setSilent(false);
        const qsizetype before = service.calls().size();
        QVERIFY(service.appear());

        QTRY_COMPARE(service.calls().mid(before), (QStringList{call(0), call(1)}));
    }

    void confirmedCallsAreNotSentAgain()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        DBusNotificationCenter center;
        add(center, 0);
        QTRY_COMPARE(service.calls().size(), 1);
        service.setSilent(true);
        add(center, 1); // Sent once the first one is confirmed.
        QTRY_COMPARE(service.calls().size(), 2);

        service.disappear();
        service.setSilent(false);
        QVERIFY(service.appear());

        QTRY_COMPARE(service.calls(), (QStringList{call(0), call(1), call(1)}));
    }

    void whatWasWithdrawnInTheMeantimeIsNotAddedAgain()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        service.setSilent(true);
        DBusNotificationCenter center;
        for (int number = 0; number < 3; ++number) {
            add(center, number);
        }
        QTRY_VERIFY(!service.calls().isEmpty());
        center.removePendingNotificationRequests({QStringLiteral("1")});

        service.disappear();
        service.setSilent(false);
        const qsizetype before = service.calls().size();
        QVERIFY(service.appear());

        QTRY_COMPARE(service.calls().mid(before),
                     (QStringList{call(0), call(2), QStringLiteral("RemovePendingRequests 1")}));
    }

    void manyCallsArriveCompleteAndInOrder()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        DBusNotificationCenter center;

        addMany(center);

        QTRY_COMPARE_WITH_TIMEOUT(service.calls().size(), many, 60'000);
        QCOMPARE(service.calls(), manyCalls());
    }

    void whatWasHandedOverBeforeTheEndReachesTheBus()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());

        {
            DBusNotificationCenter center;
            center.removeAllPendingNotificationRequests();
            add(center, 0);
        }

        QTRY_COMPARE(service.calls().size(), 2);
        QCOMPARE(service.calls().constLast(), call(0));
    }

    void everyCentreHasAConnectionOfItsOwn()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        DBusNotificationCenter first;
        DBusNotificationCenter second;

        add(first, 0);
        add(second, 1);

        QTRY_COMPARE(service.calls().size(), 2);
        QCOMPARE(service.callers().size(), 2);
    }

    void withoutAServiceThereIsSilenceAndNoDelay()
    {
        QTest::failOnWarning(QRegularExpression{QStringLiteral(".*")});
        QElapsedTimer timer;
        timer.start();

        {
            DBusNotificationCenter center;
            add(center, 0);
            center.removeAllPendingNotificationRequests();
        }

        QVERIFY(timer.elapsed() < 900); // Not even the second that a stuck bus is given.
    }

    void aBusThatDoesNotReadHoldsUpTheEndForASecondAtMost()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        auto center = std::make_unique<DBusNotificationCenter>();
        add(*center, 0);
        QTRY_COMPARE(service.calls().size(), 1);
        bus_.suspend();
        QElapsedTimer timer;
        timer.start();

        for (int number = 1; number < 1'000; ++number) {
            add(*center, number);
        }
        const qint64 heldUp = timer.restart();
        center.reset();
        const qint64 atTheEnd = timer.elapsed();

        bus_.resume();
        QVERIFY2(heldUp < 500, qPrintable(QString::number(heldUp)));
        QVERIFY2(atTheEnd < 1'300, qPrintable(QString::number(atTheEnd)));
    }

    void aServiceThatDidNotStartAndAppearsLaterGetsWhatComesAfter()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        const Offer offer{bus_, QStringLiteral("touch %1; exit 1").arg(started())};
        DBusNotificationCenter center;
        add(center, 0);
        QTRY_VERIFY(QFile::exists(started()));
        // The bus tells this caller not before it has told the centre.
        const QDBusReply<void> start =
            QDBusConnection::sessionBus().interface()->startService(busNames::notificationCenter);
        QVERIFY(!start.isValid());

        QVERIFY(service.appear());
        add(center, 1);

        QTRY_VERIFY(service.calls().contains(call(1)));
    }

    void aServiceThatGoesAndComesBackGetsWhatComesAfter()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        DBusNotificationCenter center;
        add(center, 0);
        QTRY_COMPARE(service.calls().size(), 1);

        service.disappear();
        QVERIFY(service.appear());
        add(center, 1);

        QTRY_COMPARE(service.calls(), (QStringList{call(0), call(1)}));
    }

    /// A bus keeps only some hundred messages for a service that it is starting.
    void aServiceThatIsSlowToStartGetsEveryCallInOrder()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        const Offer offer{bus_, QStringLiteral("sleep 1; touch %1").arg(started())};
        DBusNotificationCenter center;

        addMany(center);
        QTRY_VERIFY(QFile::exists(started()));
        QVERIFY(service.appear());

        QTRY_COMPARE_WITH_TIMEOUT(service.calls().size(), many, 60'000);
        QCOMPARE(service.calls(), manyCalls());
    }

    /// The bus drops what it keeps for a starting service once the sender has left.
    void theEndWaitsALittleForAServiceThatIsStillStarting()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        const Offer offer{bus_, QStringLiteral("touch %1").arg(started())};
        auto center = std::make_unique<DBusNotificationCenter>();
        add(*center, 0);
        add(*center, 1);

        std::thread end{[&center] { center.reset(); }};
        const auto joined = qScopeGuard([&end] { end.join(); });
        QTRY_VERIFY(QFile::exists(started()));
        QVERIFY(service.appear());

        QTRY_COMPARE(service.calls(), (QStringList{call(0), call(1)}));
    }

    void callsForACentreThatDoesNotStartAreSentWhenItAppears()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        DBusNotificationCenter center;
        add(center, 0);
        add(center, 1);
        const Offer offer{bus_, QStringLiteral("exit 1")}; // Comes back when the bus has read it.

        QVERIFY(service.appear());

        QTRY_COMPARE(service.calls(), (QStringList{call(0), call(1)}));
    }

    void theEndWaitsLongerForAServiceThatIsKnownToBeStarting()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        const Offer offer{bus_, QStringLiteral("touch %1; exec sleep 60").arg(started())};
        auto center = std::make_unique<DBusNotificationCenter>();
        add(*center, 0);
        QElapsedTimer timer;
        timer.start();

        std::thread end{[&center] { center.reset(); }};
        const auto joined = qScopeGuard([&end] { end.join(); });
        QTest::qWait(2'000); // As long as a loaded machine may need to start it.
        QVERIFY(service.appear());

        QTRY_COMPARE(service.calls(), QStringList{call(0)});
        QVERIFY(timer.elapsed() < 5'000);
    }

    void theEndWaitsForTheAnswerOfAServiceThatWasStartedInItsFirstSecond()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        const Offer offer{bus_, QStringLiteral("touch %1; exec sleep 60").arg(started())};
        auto center = std::make_unique<DBusNotificationCenter>();
        add(*center, 0);
        std::atomic<bool> hasEnded = false;

        std::thread end{[&] {
            center.reset();
            hasEnded = true;
        }};
        const auto joined = qScopeGuard([&end] { end.join(); });
        QTest::qWait(900); // Nearly as long as the end takes without a service.
        QVERIFY(service.appear());
        QThread::msleep(400); // The service has its name, and answers nothing yet.

        QVERIFY(!hasEnded);
        QTRY_COMPARE(service.calls(), QStringList{call(0)});
        QTRY_VERIFY(hasEnded);
    }

    /// Runs last: it ends the bus that the others share.
    void afterALostConnectionItConnectsAgainAndSendsWhatWasNotConfirmed()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        service.setSilent(true);
        DBusNotificationCenter center;
        add(center, 0);
        QTRY_COMPARE(service.calls().size(), 1);

        bus_.stop();
        bus_.start();
        add(center, 1);
        RecordingCenterService next{
            QDBusConnection::connectToBus(bus_.address(), QStringLiteral("next bus"))};
        QVERIFY(next.appear());

        QTRY_COMPARE_WITH_TIMEOUT(next.calls(), (QStringList{call(0), call(1)}), 20'000);
    }

private:
    static constexpr int many = 12'000;

    /// Lets the bus start the centre by a command, which need not be the one that takes the name.
    class Offer {
    public:
        Offer(const PrivateSessionBus &bus, const QString &command) : bus_{bus}
        {
            QFile::remove(started(bus));
            bus_.offer(busNames::notificationCenter, command);
            reload();
        }
        Offer(const Offer &) = delete;
        Offer &operator=(const Offer &) = delete;
        ~Offer()
        {
            bus_.withdrawOffer(busNames::notificationCenter);
            reload();
        }

    private:
        static void reload()
        {
            QDBusConnection::sessionBus().interface()->call(QStringLiteral("ReloadConfig"));
        }

        const PrivateSessionBus &bus_;
    };

    static QString started(const PrivateSessionBus &bus)
    {
        return bus.path(QStringLiteral("started"));
    }
    [[nodiscard]] QString started() const { return started(bus_); }

    static QString withNul(const char *before, const char *after)
    {
        return QString::fromLatin1(before) + QChar::Null + QString::fromLatin1(after);
    }
    static void add(DBusNotificationCenter &center, int number)
    {
        center.addNotificationRequest({.identifier = QString::number(number),
                                       .title = QStringLiteral("t"),
                                       .body = QStringLiteral("b"),
                                       .sound = QStringLiteral("default"),
                                       .trigger = {2025, 1, 1, 0, 0}});
    }
    static QString call(int number)
    {
        return QStringLiteral("AddRequest %1 t b default 2025-01-01T00:00").arg(number);
    }
    static void addMany(DBusNotificationCenter &center)
    {
        for (int number = 0; number < many; ++number) {
            add(center, number);
        }
    }
    static QStringList manyCalls()
    {
        QStringList calls;
        for (int number = 0; number < many; ++number) {
            calls.append(call(number));
        }
        return calls;
    }

    PrivateSessionBus bus_;
};

NORVANE_TEST(TestDBusNotificationCenter)
#include "tst_DBusNotificationCenter.moc"

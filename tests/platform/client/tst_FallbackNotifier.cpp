// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "platform/bus/BusNames.h"
#include "platform/bus/PendingRequest.h"
#include "platform/client/BusSender.h"
#include "platform/client/DBusNotificationCenter.h"
#include "tests/support/PrivateSessionBus.h"
#include "tests/support/RecordingCenterService.h"
#include "tests/support/TestProgram.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>

using namespace norvane;

namespace {

const QString fallbackProgram = QStringLiteral(NORVANE_NOTIFIER);

NotificationRequest request(const QString &identifier)
{
    return {.identifier = identifier,
            .title = QStringLiteral("Title"),
            .body = QStringLiteral("Body"),
            .sound = QStringLiteral("default"),
            .trigger = {.year = 9999, .month = 1, .day = 1, .hour = 12, .minute = 0}};
}

QDBusConnectionInterface &bus()
{
    return *QDBusConnection::sessionBus().interface();
}

/// How many requests the centre has; -1 when there is none.
qsizetype pendingCount()
{
    const QDBusMessage answer = QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
        busNames::notificationCenter, busNames::notificationCenterPath,
        QStringLiteral("org.norvane.NotificationCenter1"), QStringLiteral("PendingRequests")));
    if (answer.type() != QDBusMessage::ReplyMessage) {
        return -1;
    }
    return qdbus_cast<PendingRequestList>(answer.arguments().value(0)).size();
}

} // namespace

class TestFallbackNotifier final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qputenv("XDG_STATE_HOME", QFile::encodeName(state_.path()));
        registerPendingRequestTypes();
    }

    void cleanup()
    {
        session_.withdrawOffer(busNames::notificationCenter);
        if (bus().isServiceRegistered(busNames::notificationCenter)) {
            ::kill(static_cast<pid_t>(bus().servicePid(busNames::notificationCenter).value()),
                   SIGKILL);
        }
        QTRY_VERIFY(!bus().isServiceRegistered(busNames::notificationCenter));
    }

    void theProgramBesideIsStartedAndGetsWhatWaited()
    {
        DBusNotificationCenter center{fallbackProgram};

        center.removeAllPendingNotificationRequests();
        center.addNotificationRequest(request(QStringLiteral("a-1h")));
        center.addNotificationRequest(request(QStringLiteral("b-1h")));

        QTRY_COMPARE(pendingCount(), 2);
    }

    void afterTheProgramBesideWasKilledTheNextCallStartsItAgain()
    {
        DBusNotificationCenter center{fallbackProgram};
        center.removeAllPendingNotificationRequests();
        center.addNotificationRequest(request(QStringLiteral("a-1h")));
        QTRY_COMPARE(pendingCount(), 1);
        const uint former = bus().servicePid(busNames::notificationCenter).value();
        ::kill(static_cast<pid_t>(former), SIGKILL);
        QTRY_VERIFY(!bus().isServiceRegistered(busNames::notificationCenter));

        center.addNotificationRequest(request(QStringLiteral("b-1h")));

        QTRY_COMPARE(pendingCount(), 2);
        QVERIFY(bus().servicePid(busNames::notificationCenter).value() != former);
    }

    void aBurstOfCallsStartsTheProgramBesideOnce()
    {
        const QString starts = session_.path(QStringLiteral("starts"));
        QFile script{session_.path(QStringLiteral("never-on-the-bus"))};
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\necho >>'" + QFile::encodeName(starts) + "'\n");
        script.close();
        QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
        DBusNotificationCenter center{script.fileName()};

        for (int number = 0; number < 50; ++number) {
            center.addNotificationRequest(request(QString::number(number)));
            QTest::qWait(2); // So that they arrive in several turns of the client's loop.
        }

        QTRY_VERIFY(QFile::exists(starts));
        QCOMPARE(QFileInfo{starts}.size(), 1); // One line of nothing for each start.
    }

    void theProgramBesideIsNotGivenUpOnceItHasItsName()
    {
        const auto takesLonger = std::make_shared<std::atomic<bool>>(false);
        BusSender sender{fallbackProgram, takesLonger};
        const QSignalSpy changes{&sender, &BusSender::stateChanged};
        sender.setBusAddress({});
        sender.send({QStringLiteral("RemoveAllPendingRequests"), {}});
        QTRY_COMPARE(pendingCount(), 0);
        QTRY_COMPARE(changes.size(), 5); // No centre, starting, ready, confirming, ready.

        QVERIFY2(!QTest::qWaitFor([&changes] { return changes.size() > 5; }, 5'500),
                 "the five seconds that it was given have ended");
    }

    void aProgramBesideThatNeverTakesItsNameIsGivenUp()
    {
        BusSender sender{QStringLiteral("/bin/true"), std::make_shared<std::atomic<bool>>(false)};
        const QSignalSpy changes{&sender, &BusSender::stateChanged};
        sender.setBusAddress({});

        sender.send({QStringLiteral("RemoveAllPendingRequests"), {}});

        QTRY_COMPARE_WITH_TIMEOUT(changes.size(), 3, 30'000); // No centre, starting, no centre.
    }

    void callsForACentreThatCannotBeStartedAreKeptUntilItAppears()
    {
        RecordingCenterService service{QDBusConnection::sessionBus()};
        BusSender sender{{}, std::make_shared<std::atomic<bool>>(false)};
        const QSignalSpy changes{&sender, &BusSender::stateChanged};
        sender.setBusAddress({});
        sender.send({QStringLiteral("RemoveAllPendingRequests"), {}});
        QTRY_COMPARE(changes.size(), 3); // No centre, starting, no centre.

        QVERIFY(service.appear());

        QTRY_COMPARE(service.calls(), QStringList{QStringLiteral("RemoveAllPendingRequests")});
    }

    void aCentreThatConfirmsNothingIsNotWaitedForBeyondTheLimit()
    {
        using namespace std::chrono_literals;
        RecordingCenterService service{QDBusConnection::sessionBus()};
        QVERIFY(service.appear());
        service.setSilent(true);
        BusSender sender{{}, std::make_shared<std::atomic<bool>>(false)};
        sender.setBusAddress({});
        sender.send({QStringLiteral("RemoveAllPendingRequests"), {}});
        QTRY_COMPARE(service.calls().size(), 1);
        QElapsedTimer timer;
        timer.start();

        sender.flush(100ms, 1min);

        QVERIFY(timer.elapsed() < 30'000);
    }

    void aCentreThatCannotBeStartedIsTriedAgainOnlyAfterAPause()
    {
        BusSender sender{{}, std::make_shared<std::atomic<bool>>(false)};
        const QSignalSpy changes{&sender, &BusSender::stateChanged};
        const CallQueue::Call call{QStringLiteral("RemoveAllPendingRequests"), {}};
        sender.setBusAddress({});
        sender.send(call);
        QTRY_COMPARE(changes.size(), 3); // No centre, starting, no centre.
        QElapsedTimer timer;
        timer.start();

        sender.send(call);

        QTRY_COMPARE(changes.size(), 5);
        QVERIFY(timer.elapsed() >= 900); // A second, less what a coarse timer may spare.
    }

    void itIsNotTakenForReadyOnceItHasEnded()
    {
        BusSender sender{fallbackProgram, std::make_shared<std::atomic<bool>>(false)};
        const QSignalSpy changes{&sender, &BusSender::stateChanged};
        sender.setBusAddress({});
        sender.send({QStringLiteral("RemoveAllPendingRequests"), {}});
        QTRY_COMPARE(changes.size(), 5); // No centre, starting, ready, confirming, ready.

        ::kill(static_cast<pid_t>(bus().servicePid(busNames::notificationCenter).value()), SIGKILL);

        QTRY_COMPARE(changes.size(), 6); // No centre.
    }

    void nothingIsLostWhenNorvaneEndsAtOnce()
    {
        {
            DBusNotificationCenter center{fallbackProgram};
            center.removeAllPendingNotificationRequests();
            center.addNotificationRequest(request(QStringLiteral("a-1h")));
        }

        QTRY_COMPARE(pendingCount(), 1);
    }

    void anInstalledCentreWins()
    {
        const QString mark = session_.path(QStringLiteral("installed"));
        session_.offer(busNames::notificationCenter,
                       QStringLiteral(": > '%1'; exec '%2'").arg(mark, fallbackProgram));
        bus().call(QStringLiteral("ReloadConfig"));
        DBusNotificationCenter center{QStringLiteral("/bin/false")};

        center.removeAllPendingNotificationRequests();
        center.addNotificationRequest(request(QStringLiteral("a-1h")));

        QTRY_COMPARE(pendingCount(), 1);
        QVERIFY(QFile::exists(mark));
    }

private:
    PrivateSessionBus session_;
    QTemporaryDir state_;
};

NORVANE_TEST(TestFallbackNotifier)
#include "tst_FallbackNotifier.moc"

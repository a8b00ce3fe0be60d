// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Notifier.h"
#include "platform/bus/BusNames.h"
#include "platform/session/SystemClock.h"
#include "tests/support/PrivateSessionBus.h"
#include "tests/support/TestProgram.h"

#include <QDBusConnectionInterface>
#include <QDateTime>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace norvane;
using namespace std::chrono_literals;

/// A notification server that counts how often it is asked what it can do.
class CountingServer final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    int asked = 0;

public slots:
    QStringList GetCapabilities()
    {
        ++asked;
        return {};
    }
};

class TestNotifier final : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        folder_ = std::make_unique<QTemporaryDir>();
        notifier_ = std::make_unique<Notifier>(
            connection_, clock_,
            Notifier::Settings{.folder = folder_->path(), .idleTimeout = 1h, .serverTimeout = 1s});
        QVERIFY(notifier_->start());
    }

    void cleanup() { notifier_.reset(); }

    void aCallInTheMomentOfLeavingMakesItStay()
    {
        const QSignalSpy finished{notifier_.get(), &Notifier::finished};

        callWhileItLeaves();

        QTRY_VERIFY(isOnBus());
        QCOMPARE(finished.count(), 0);
        notifier_.reset();
        QCOMPARE(pendingInFile(), 1U);
    }

    void whereItIsInstalledASuccessorIsStartedForSuchACall()
    {
        const QString started = bus_.path(QStringLiteral("started"));
        bus_.offer(busNames::notificationCenter, QStringLiteral(": > ") + started);
        connection_.interface()->call(QStringLiteral("ReloadConfig"));
        const QSignalSpy finished{notifier_.get(), &Notifier::finished};

        callWhileItLeaves();

        QTRY_COMPARE(finished.count(), 1);
        QTRY_VERIFY(QFile::exists(started));
        notifier_.reset();
        QCOMPARE(pendingInFile(), 1U);
        bus_.withdrawOffer(busNames::notificationCenter);
    }

    void whatIsDueInThatMomentIsLeftToTheSuccessor()
    {
        bus_.offer(busNames::notificationCenter, QStringLiteral("true"));
        connection_.interface()->call(QStringLiteral("ReloadConfig"));
        CountingServer server;
        QVERIFY(client_.registerObject(QStringLiteral("/org/freedesktop/Notifications"), &server,
                                       QDBusConnection::ExportAllSlots));
        QVERIFY(client_.registerService(QStringLiteral("org.freedesktop.Notifications")));
        const QSignalSpy finished{notifier_.get(), &Notifier::finished};

        callWhileItLeaves(
            QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddTHH:mm")));

        QTRY_COMPARE(finished.count(), 1);
        connection_.interface()->call(QStringLiteral("GetId")); // What it sent was passed on.
        client_.interface()->call(QStringLiteral("GetId"));     // And has arrived.
        QCoreApplication::processEvents();
        QCOMPARE(server.asked, 0);
        QVERIFY(client_.unregisterService(QStringLiteral("org.freedesktop.Notifications")));
        client_.unregisterObject(QStringLiteral("/org/freedesktop/Notifications"));
        bus_.withdrawOffer(busNames::notificationCenter);
    }

    void itDoesNotStartWhereTheConnectionHasAnotherObjectInItsPlace()
    {
        QTemporaryDir folder;
        Notifier second{connection_, clock_, Notifier::Settings{.folder = folder.path()}};
        QTest::ignoreMessage(
            QtCriticalMsg,
            "The object of the notification centre cannot be put on the session bus.");

        QVERIFY(!second.start());
    }

private:
    /// A call that the bus has passed on already, and that is not looked at yet.
    void callWhileItLeaves(const QString &trigger = QStringLiteral("9999-01-01T12:00"))
    {
        QDBusMessage call = QDBusMessage::createMethodCall(
            busNames::notificationCenter, busNames::notificationCenterPath,
            QStringLiteral("org.norvane.NotificationCenter1"), QStringLiteral("AddRequest"));
        call << QStringLiteral("a-1h") << QString{} << QString{} << QString{} << trigger;
        client_.send(call);
        client_.interface()->call(QStringLiteral("GetId")); // Answered after that was passed on.

        QVERIFY(QMetaObject::invokeMethod(notifier_.get(), "leaveIfIdle"));
        QVERIFY(!isOnBus());
    }

    [[nodiscard]] bool isOnBus() const
    {
        return connection_.interface()->isServiceRegistered(busNames::notificationCenter);
    }

    [[nodiscard]] std::size_t pendingInFile() const
    {
        Ledger ledger{folder_->path()};
        return ledger.open() && ledger.isOnDisk() ? ledger.pending().value().size() : 0;
    }

    const PrivateSessionBus bus_;
    QDBusConnection client_ =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("client"));
    const QDBusConnection connection_ =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("notifier"));
    const SystemClock clock_;
    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<Notifier> notifier_;
};

NORVANE_TEST(TestNotifier)
#include "tst_Notifier.moc"

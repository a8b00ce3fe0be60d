// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Notifier.h"
#include "platform/bus/BusNames.h"
#include "platform/session/SystemClock.h"
#include "tests/support/PrivateSessionBus.h"
#include "tests/support/TestProgram.h"

#include <QDBusConnectionInterface>
#include <QDBusContext>
#include <QDateTime>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <utility>

using namespace norvane;
using namespace std::chrono_literals;

/// A notification server on this connection that counts calls and answers no notification.
class SilentServer final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    int asked = 0;          ///< Calls that ask what it can do.
    int given = 0;          ///< Calls with a notification.
    int hangsAfter = 1'000; ///< So many notifications; then it answers only in tell().

    explicit SilentServer(QDBusConnection bus) : bus_{std::move(bus)}
    {
        const bool isThere = bus_.registerObject(path_, this, QDBusConnection::ExportAllSlots) &&
                             bus_.registerService(service_);
        if (!isThere) {
            qFatal("The notification server cannot be put on the bus.");
        }
    }
    ~SilentServer() override
    {
        bus_.unregisterService(service_);
        bus_.unregisterObject(path_);
    }

    void tell() { bus_.send(question_.createReply(QStringList{})); }
    void refuseTheFirst()
    {
        bus_.send(
            first_.createErrorReply(QStringLiteral("org.freedesktop.Notifications.Error.Late"),
                                    QStringLiteral("Refused after a long time")));
    }

public slots:
    QStringList GetCapabilities()
    {
        ++asked;
        setDelayedReply(given >= hangsAfter);
        question_ = message();
        return {};
    }
    uint Notify(const QString & /*program*/, uint /*replaced*/, const QString & /*icon*/,
                const QString & /*title*/, const QString & /*body*/,
                const QStringList & /*actions*/, const QVariantMap & /*hints*/, int /*timeout*/)
    {
        if (given++ == 0) {
            first_ = message();
        }
        setDelayedReply(true);
        return 0;
    }

private:
    const QString service_ = QStringLiteral("org.freedesktop.Notifications");
    const QString path_ = QStringLiteral("/org/freedesktop/Notifications");
    QDBusConnection bus_;
    QDBusMessage question_;
    QDBusMessage first_; ///< With a notification.
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

    void aCallWhileLeavingMakesItStay()
    {
        const QSignalSpy finished{notifier_.get(), &Notifier::finished};

        callWhileItLeaves();

        QTRY_VERIFY(isOnBus());
        QCOMPARE(finished.count(), 0);
        notifier_.reset();
        QCOMPARE(pendingInFile(), 1U);
    }

    void aCallWhileLeavingStartsTheInstalledSuccessor()
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

    void aReminderDueWhileLeavingIsLeftToTheSuccessor()
    {
        bus_.offer(busNames::notificationCenter, QStringLiteral("true"));
        connection_.interface()->call(QStringLiteral("ReloadConfig"));
        const SilentServer server{client_};
        const QSignalSpy finished{notifier_.get(), &Notifier::finished};

        callWhileItLeaves(thisMinute());

        QTRY_COMPARE(finished.count(), 1);
        connection_.interface()->call(QStringLiteral("GetId")); // What it sent was passed on.
        client_.interface()->call(QStringLiteral("GetId"));     // And has arrived.
        QCoreApplication::processEvents();
        QCOMPARE(server.asked, 0);
        bus_.withdrawOffer(busNames::notificationCenter);
    }

    void aServerThatHasGoneIsStartedAgainForWhatItNeverAnswered()
    {
        startWithShortTimes();
        const QString started = bus_.path(QStringLiteral("server"));
        bus_.offer(QStringLiteral("org.freedesktop.Notifications"),
                   QStringLiteral(": > %1; exit 1").arg(started));
        connection_.interface()->call(QStringLiteral("ReloadConfig"));
        {
            const SilentServer server{client_};
            add(thisMinute());
            QTRY_COMPARE(server.given, 3);
            QTRY_VERIFY(server.asked > 3); // Whether it lives, after the third as well.
            QVERIFY(!QFile::exists(started));
        }

        QTRY_VERIFY(QFile::exists(started));

        // The bus keeps calls for a server that it is starting, until it knows that it does not
        // start. They must not reach the server of another test.
        notifier_.reset();
        connection_.interface()->startService(QStringLiteral("org.freedesktop.Notifications"));
        bus_.withdrawOffer(QStringLiteral("org.freedesktop.Notifications"));
        connection_.interface()->call(QStringLiteral("ReloadConfig"));
    }

    void aLateRefusalIsNotTakenForTheAnswerToALaterAttempt()
    {
        startWithShortTimes();
        SilentServer server{client_};
        server.hangsAfter = 2;
        add(thisMinute());
        QTRY_COMPARE(server.given, 2);

        server.refuseTheFirst();

        QVERIFY(!QTest::qWaitFor([&] { return server.given > 2; }, 300));
    }

    void whenItEndsWhileAServerIsAskedWhatItCanDoNothingMoreIsHandedOver()
    {
        SilentServer server{client_};
        server.hangsAfter = 0;
        const QSignalSpy finished{notifier_.get(), &Notifier::finished};
        add(thisMinute());
        QTRY_COMPARE(server.asked, 1);

        notifier_->end();
        server.tell();

        QTRY_COMPARE(finished.count(), 1);
        client_.interface()->call(QStringLiteral("GetId")); // What it sent has arrived.
        QCoreApplication::processEvents();
        QCOMPARE(server.given, 0);
    }

    void aBusThatGoesWhileItEndsIsNoReasonToComeBack()
    {
        const SilentServer server{client_};
        QSignalSpy finished{notifier_.get(), &Notifier::finished};
        add(thisMinute());
        QTRY_COMPARE(server.given, 1);
        notifier_->end();

        QVERIFY(QMetaObject::invokeMethod(notifier_.get(), "busLost"));

        QCOMPARE(finished.takeFirst().value(0).value<Notifier::End>(), Notifier::End::Done);
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
    /// Instead of the notifier that every test has.
    void startWithShortTimes()
    {
        notifier_.reset(); // It has the name.
        notifier_ = std::make_unique<Notifier>(
            connection_, clock_,
            Notifier::Settings{.folder = folder_->path(),
                               .serverTimeout = 20ms,
                               .pauses = {.first = 10ms, .longest = 50ms}});
        QVERIFY(notifier_->start());
    }

    [[nodiscard]] static QString thisMinute()
    {
        return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddTHH:mm"));
    }

    void add(const QString &trigger)
    {
        QDBusMessage call = QDBusMessage::createMethodCall(
            busNames::notificationCenter, busNames::notificationCenterPath,
            QStringLiteral("org.norvane.NotificationCenter1"), QStringLiteral("AddRequest"));
        call << QStringLiteral("a-1h") << QString{} << QString{} << QString{} << trigger;
        client_.send(call);
    }

    /// A call that the bus has passed on already, and that is not looked at yet.
    void callWhileItLeaves(const QString &trigger = QStringLiteral("9999-01-01T12:00"))
    {
        add(trigger);
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

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/SingleInstance.h"
#include "tests/support/PrivateSessionBus.h"
#include "tests/support/TestProgram.h"

#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <thread>

using namespace norvane;

class TestSingleInstance final : public QObject {
    Q_OBJECT

    PrivateSessionBus sessionBus_;

    static void endTheFirst()
    {
        QDBusConnection::sessionBus().unregisterService(QStringLiteral("org.norvane.Norvane"));
    }
    static QDBusConnection another()
    {
        return QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                             QStringLiteral("another"));
    }

private slots:
    void cleanup()
    {
        endTheFirst();
        QDBusConnection::disconnectFromBus(QStringLiteral("another"));
    }

    void theFirstOneIsTheOne()
    {
        SingleInstance first{QDBusConnection::sessionBus()};

        QVERIFY(first.claim());
    }

    void theSecondOneIsNot()
    {
        SingleInstance first{QDBusConnection::sessionBus()};
        QVERIFY(first.claim());

        SingleInstance second{another()};

        QVERIFY(!second.claim());
    }

    void theSecondOneAsksTheFirstAndHandsOnItsToken()
    {
        SingleInstance first{QDBusConnection::sessionBus()};
        QVERIFY(first.claim());
        QSignalSpy activated{&first, &SingleInstance::activated};

        bool answered = false;
        {
            std::thread second{[&answered] {
                answered = SingleInstance{another()}.activateOther(QStringLiteral("token"));
            }};
            const auto joined = qScopeGuard([&second] { second.join(); });
            QTRY_COMPARE(activated.count(), 1);
        }

        QVERIFY(answered);
        QCOMPARE(activated.takeFirst().value(0).toString(), QStringLiteral("token"));
    }

    /// It keeps its name until its process ends, but nobody is at home any more.
    void oneThatIsEndingIsSucceeded()
    {
        QVERIFY(
            QDBusConnection::sessionBus().registerService(QStringLiteral("org.norvane.Norvane")));
        SingleInstance next{another()};
        QVERIFY(!next.claim());
        QVERIFY(!next.activateOther({}));

        QTimer::singleShot(0, this, &TestSingleInstance::endTheFirst);

        QVERIFY(next.succeedOther());
    }

    void withoutABusEveryStartIsTheFirst()
    {
        const QDBusConnection none{QStringLiteral("there is no such connection")};

        QVERIFY(SingleInstance{none}.claim());
        QVERIFY(SingleInstance{none}.claim());
    }
};

NORVANE_TEST(TestSingleInstance)
#include "tst_SingleInstance.moc"

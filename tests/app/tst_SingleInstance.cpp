// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/SingleInstance.h"
#include "tests/support/PrivateSessionBus.h"

#include <QSignalSpy>
#include <QTest>

#include <thread>

using namespace norvane;

class TestSingleInstance final : public QObject {
    Q_OBJECT

    PrivateSessionBus sessionBus_;

    static QDBusConnection another()
    {
        return QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                             QStringLiteral("another"));
    }

private slots:
    void cleanup()
    {
        QDBusConnection::sessionBus().unregisterService(QStringLiteral("org.norvane.Norvane"));
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

        std::thread second{
            [] { SingleInstance{another()}.activateOther(QStringLiteral("token")); }};
        QTRY_COMPARE(activated.count(), 1);
        second.join();

        QCOMPARE(activated.takeFirst().value(0).toString(), QStringLiteral("token"));
    }

    void withoutABusEveryStartIsTheFirst()
    {
        const QDBusConnection none{QStringLiteral("there is no such connection")};

        QVERIFY(SingleInstance{none}.claim());
        QVERIFY(SingleInstance{none}.claim());
    }
};

QTEST_GUILESS_MAIN(TestSingleInstance)
#include "tst_SingleInstance.moc"

// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "notifier/Ledger.h"
#include "notifier/ServiceFacade.h"
#include "platform/bus/BusNames.h"
#include "tests/notifier/FakeSurroundings.h"
#include "tests/support/PrivateSessionBus.h"
#include "tests/support/TestProgram.h"

#include <QDBusConnectionInterface>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace norvane;

class TestServiceFacade final : public QObject {
    Q_OBJECT

private slots:
    void callsDoNotPileUpThoughMoreAreOnTheirWay()
    {
        const QTemporaryDir folder;
        Ledger ledger{folder.path()};
        QVERIFY(ledger.open());
        const FakeClock clock{std::chrono::sys_days{std::chrono::year{2026} / 7 / 1}};
        FakeAlarm alarm;
        const FakeZone zone{"UTC"};
        Scheduler scheduler{ledger, alarm, zone, clock};
        ServiceFacade facade{scheduler, ledger, connection_};
        QVERIFY(connection_.registerObject(busNames::notificationCenterPath, &facade));
        qint64 calls = 0;
        qint64 mostUnwritten = 0;
        connect(&facade, &ServiceFacade::called, this, [&] {
            ++calls;
            mostUnwritten = std::max(mostUnwritten, calls - ledger.count());
        });

        for (int i = 0; i < 2'000; ++i) {
            QDBusMessage call = QDBusMessage::createMethodCall(
                connection_.baseService(), busNames::notificationCenterPath,
                QStringLiteral("org.norvane.NotificationCenter1"), QStringLiteral("AddRequest"));
            call << QString::number(i) << QString{} << QString{} << QString{}
                 << QStringLiteral("9999-01-01T12:00");
            QVERIFY(client_.send(call));
        }
        client_.interface()->call(QStringLiteral("GetId")); // Answered after those were passed on.

        QTRY_COMPARE(ledger.count(), 2'000);
        QVERIFY2(mostUnwritten <= 300, qPrintable(QString::number(mostUnwritten)));
        connection_.unregisterObject(busNames::notificationCenterPath);
    }

private:
    const PrivateSessionBus bus_;
    QDBusConnection client_ =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("facade-client"));
    QDBusConnection connection_ =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("facade"));
};

NORVANE_TEST(TestServiceFacade)
#include "tst_ServiceFacade.moc"

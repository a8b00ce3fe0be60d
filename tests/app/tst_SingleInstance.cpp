// SPDX-FileCopyrightText: 2026 the Norvane authors
// SPDX-License-Identifier: MIT

#include "app/SingleInstance.h"
#include "tests/support/PrivateSessionBus.h"
#include "tests/support/TestProgram.h"

#include <QElapsedTimer>
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

    void theFirstOneIsTheOnlyOne()
    {
        SingleInstance first;

        QVERIFY(first.isOnlyOne(QDBusConnection::sessionBus(), {}));
    }

    void theSecondOneActivatesTheFirstAndPassesOnItsToken()
    {
        SingleInstance first;
        QVERIFY(first.isOnlyOne(QDBusConnection::sessionBus(), {}));
        QSignalSpy activated{&first, &SingleInstance::activated};

        bool isOnlyOne = true;
        {
            std::thread second{[&isOnlyOne] {
                isOnlyOne = SingleInstance{}.isOnlyOne(another(), QStringLiteral("token"));
            }};
            const auto joined = qScopeGuard([&second] { second.join(); });
            QTRY_COMPARE(activated.count(), 1);
        }

        QVERIFY(!isOnlyOne);
        QCOMPARE(activated.takeFirst().value(0).toString(), QStringLiteral("token"));
    }

    /// The first one keeps its name until its process ends, but no longer answers.
    void aStartWhileTheFirstOneIsEndingTakesItsPlace()
    {
        QVERIFY(
            QDBusConnection::sessionBus().registerService(QStringLiteral("org.norvane.Norvane")));
        SingleInstance next;

        QTimer::singleShot(0, this, &TestSingleInstance::endTheFirst);

        QVERIFY(next.isOnlyOne(another(), {}));
    }

    void withoutABusEveryStartIsTheOnlyOne()
    {
        const QDBusConnection none{QStringLiteral("there is no such connection")};

        QVERIFY(SingleInstance{}.isOnlyOne(none, {}));
        QVERIFY(SingleInstance{}.isOnlyOne(none, {}));
    }

    void aBusThatSaysNothingIsWaitedForNoLongerThanASecond()
    {
        const QDBusConnection bus = another();
        SingleInstance first;
        QElapsedTimer timer;
        timer.start();

        sessionBus_.suspend();
        const bool isOnlyOne = first.isOnlyOne(bus, {});
        sessionBus_.resume();

        QVERIFY(isOnlyOne);
        QVERIFY2(timer.elapsed() < 1'500, qPrintable(QString::number(timer.elapsed())));
    }
};

NORVANE_TEST(TestSingleInstance)
#include "tst_SingleInstance.moc"
